#include "corvane/table/TablePrint.h"

#include "corvane/table/CVMacSectionHeaderView.h"
#include "corvane/table/TablePagination.h"
#include "corvane/views/Canvas.h"

#include "TableFixture.h"

#include <fmt/format.h>
#include <gmock/gmock.h>

namespace corvane::test {
namespace {

using testing::ElementsAre;

/// "section.row:height" of each page: where it begins and how much of it is taken.
std::string pagesOf(const std::vector<std::vector<float>>& sections, double header, double height) {
    RowCache rows;
    for (const auto& heights : sections) {
        const auto section = rows.sectionCount();
        rows.insertSection(section, nullptr);
        rows.insertRows({section, 0}, static_cast<std::int64_t>(heights.size()));
        for (std::size_t row = 0; row < heights.size(); ++row)
            rows.setHeight({section, static_cast<std::int64_t>(row)}, heights[row]);
    }
    std::string text;
    PageCursor next;
    for (PageCursor start = next;; start = next) {
        const double used = takePage(
            rows, [&](auto) { return header; }, height, next);
        if (used <= 0) return text;
        text += fmt::format("{}.{}:{} ", start.section, start.row, used);
    }
}

TEST(TablePagination, EndsPagesBetweenRows) {
    struct Case {
        const char* name;
        std::vector<std::vector<float>> heights;
        double header;
        const char* pages;
    };
    // Pages are 100 high, and a line of 1 is below each row.
    for (const Case& c : std::vector<Case>{
             {"nothing", {}, 10, ""},
             {"rows that just fit", {{49, 49}}, 0, "0.0:100 "},
             {"one more point", {{49, 50}}, 0, "0.0:50 0.1:51 "},
             {"a header is repeated", {{39, 39, 39, 39}}, 20, "0.0:100 0.2:100 "},
             {"and stays with its first row", {{69}, {9}}, 20, "0.0:90 1.0:30 "},
             {"a section ends with a page", {{79}, {79}}, 20, "0.0:100 1.0:100 "},
             {"a row that is too high", {{19, 149, 19}}, 0, "0.0:20 0.1:150 0.2:20 "},
             {"only with its header", {{9, 89}}, 20, "0.0:30 0.1:110 "},
             {"hidden rows", {{0, 49, 0, 49, 0}, {0, 0}}, 0, "0.0:100 "},
             {"hidden rows at the end of a page", {{69, 0, 0}, {9}}, 20, "0.0:90 1.0:30 "},
             {"the header of hidden rows", {{69}, {0}}, 20, "0.0:90 1.0:20 "},
             {"headers without rows", {{}, {0}, {69}}, 20, "0.0:40 2.0:90 "},
         })
        EXPECT_EQ(pagesOf(c.heights, c.header, 100), c.pages) << c.name;
    EXPECT_EQ(pagesOf({{9, 9}, {9}}, 5, 0), "0.0:15 0.1:15 1.0:15 ") << "no room at all";
}

/// Notes in which order things are drawn, and where.
struct NotingCanvas final : views::Canvas {
    void save() override { origins.push_back(origins.back()); }
    void restore() override { origins.pop_back(); }
    void translate(double dx, double dy) override {
        origins.back() = origins.back() + platform::Point{dx, dy};
    }
    void clip(const platform::Rect&) override {}
    void fillRect(const platform::Rect&, const platform::Color&) override {}
    void fillRoundedRect(const platform::Rect&, double, const platform::Color&) override {}
    void strokeRoundedRect(const platform::Rect&, double, const platform::Color&, double) override {
        texts.push_back("focus");
    }
    void drawLine(platform::Point, platform::Point, const platform::Color&, double) override {}
    void drawImage(const platform::ImagePtr&, const platform::Rect&) override {}
    void drawTiledImage(const platform::ImagePtr&, const platform::Rect&,
                        platform::Point) override {}
    void drawText(std::string_view text, const platform::Rect&, const views::TextStyle&) override {
        texts.push_back(fmt::format("{} at {}", text, origins.back().y));
    }

    std::vector<platform::Point> origins{{0, 0}};
    std::vector<std::string> texts;
};

/// Higher where it is narrower, as rows of text are.
struct PrintedCell : NumberedCell {
    using NumberedCell::NumberedCell;
    double rowHeightForContentWidth(double width) override { return width < 250 ? 89 : 59; }
    void draw(views::Canvas& canvas, const views::Rect& dirty) override {
        CVMacTableViewCell::draw(canvas, dirty);
        canvas.drawText(fmt::format("{}{}", number, selected() ? "!" : ""), bounds(), {});
    }
};

struct PrintedSource : NumberedSource {
    CellPtr tableViewCellForRowAtIndexPath(Table&, const Path& path, const CellPtr&) override {
        auto cell = std::make_shared<PrintedCell>(path);
        cell->number =
            numbers[static_cast<std::size_t>(path.section())][static_cast<std::size_t>(path.row())];
        return cell;
    }
};

TEST(TablePrint, DrawsRowsForPaperAndLeavesTheScreenAsItWas) {
    TableFixture fixture;
    const auto source = std::make_shared<PrintedSource>();
    source->numbers = {{1, 2, 3}, {4, 5}};
    source->titled = {0, 1};
    for (int number = 6; number < 30; ++number)
        source->numbers[1].push_back(number);
    auto& table = *fixture.table;
    table.setDataSource(source);
    table.reloadData();
    fixture.loop.runTurn();
    table.performSelectRowAtIndexPath({0, 1});
    table.insertPlaceholderCellAtIndexPath({0, 1});
    fixture.loop.runTurn();
    fixture.scrollView->scrollTo({0, 2000});
    const auto frames = [&] {
        std::vector<platform::Rect> found{table.frame()};
        for (const auto& view : table.subviews())
            found.push_back(view->frame());
        return found;
    };
    const auto before = frames();
    {
        // On paper, which is wider than the window, rows take 60, headers 25, and the placeholder
        // nothing.
        const TablePrint print(fixture.table, {300, 150});
        ASSERT_EQ(print.pageCount(), 15u);
        const auto texts = [&](std::size_t page) {
            NotingCanvas canvas;
            print.drawPage(page, canvas);
            return canvas.texts;
        };
        EXPECT_THAT(texts(0), ElementsAre("Section 0 at 0", "1 at 25", "2 at 85"));
        EXPECT_THAT(texts(1), ElementsAre("Section 0 at 0", "3 at 25"));
        EXPECT_THAT(texts(2), ElementsAre("Section 1 at 0", "4 at 25", "5 at 85"));
        EXPECT_THAT(texts(14), ElementsAre("Section 1 at 0", "28 at 25", "29 at 85"));
        EXPECT_EQ(print.scaleOfPage(0), 1);
    }
    EXPECT_EQ(frames(), before);
    EXPECT_TRUE(table.cellForRowAtIndexPath({0, 2})->selected());
    EXPECT_EQ(fixture.scrollView->documentVisibleRect().y, 2000);
    EXPECT_EQ(TablePrint(fixture.table, {300, 42.5}).scaleOfPage(0), 0.5);
}

}  // namespace
}  // namespace corvane::test
