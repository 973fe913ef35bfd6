#include "corvane/controls/OverviewModelController.h"

#include "corvane/controls/CVMacOverview.h"
#include "corvane/controls/CVMacTitleBar.h"
#include "corvane/models/EXOverviewModel.h"
#include "corvane/platform/Console.h"
#include "corvane/table/CVMacTableView.h"
#include "corvane/table/CVMacTableViewCell.h"
#include "corvane/vocabulary/EXLocalizable.h"

#include "tests/controls/BarsFixture.h"

#include <random>

using namespace corvane;
using platform::IndexPath;

namespace {

/// Numbers that come, go and move, with or without saying so.
struct NumbersModel : EXOverviewModel {
    using Numbers = std::vector<std::vector<std::shared_ptr<int>>>;

    std::int64_t numberOfSections() const override { return std::ssize(numbers); }
    std::int64_t numberOfObjectsInSection(std::int64_t section) const override {
        return std::ssize(numbers.at(static_cast<std::size_t>(section)));
    }
    EXObject objectAtIndexPath(const IndexPath& path) const override { return at(path); }
    const std::shared_ptr<int>& at(const IndexPath& path) const {
        return numbers.at(static_cast<std::size_t>(path.section))
            .at(static_cast<std::size_t>(path.item));
    }
    bool canDeleteObjectAtIndexPath(const IndexPath& path) const override {
        return *at(path) != 13;
    }
    void deleteObjectAtIndexPath(const IndexPath& path) override {
        take(path);
        didRemoveObjectsAtIndexPaths({path}, true);
    }
    bool canMoveObjectAtIndexPath(const IndexPath&) const override { return true; }
    void moveObjectAtIndexPath(const IndexPath& path, const IndexPath& target) override {
        const auto moved = take(path);
        didRemoveObjectsAtIndexPaths({path}, true);
        const IndexPath to = sorts ? IndexPath{target.section, 0} : target;
        put(to, moved);
        didInsertObjectsAtIndexPaths({to}, true);
    }
    bool loadData(std::optional<platform::Error>& error) override {
        if (!failure.empty()) error = platform::Error{"test", 1, failure};
        numbers = failure.empty() ? stored : Numbers();
        return failure.empty();
    }
    void unloadData() override { numbers.clear(); }
    void handlePreloadedData(const EXObject&) override { numbers = stored; }

    std::shared_ptr<int> take(const IndexPath& path) {
        auto& section = numbers[static_cast<std::size_t>(path.section)];
        const auto taken = section[static_cast<std::size_t>(path.item)];
        section.erase(section.begin() + path.item);
        return taken;
    }
    void put(const IndexPath& path, const std::shared_ptr<int>& number) {
        auto& section = numbers[static_cast<std::size_t>(path.section)];
        section.insert(section.begin() + path.item, number);
    }
    using EXOverviewModel::didInsertObjectsAtIndexPaths;
    using EXOverviewModel::didRemoveObjectsAtIndexPaths;

    Numbers numbers;
    Numbers stored;
    std::string failure;
    bool sorts = false;
};

struct NumbersController : OverviewModelController {
    using OverviewModelController::OverviewModelController;
    void configureOverviewCell(CVMacTableViewCell& cell, const CVIndexPath& path) override {
        ++asked;
        const auto number = objectAtIndexPath(path).as<int>();
        cell.setAccessibilityName(cell.placeholderCell() || !number ? "P"
                                                                    : std::to_string(*number));
    }
    bool overviewCanInlineInsertRowAtIndexPath(const CVIndexPath&) const override { return true; }
    bool overviewCanInlineEditRowAtIndexPath(const CVIndexPath&) const override { return true; }
    void overviewCommitEditingStyle(CVMacTableViewEditingStyle style,
                                    const CVIndexPath& path) override {
        OverviewModelController::overviewCommitEditingStyle(style, path);
        if (style != CVMacTableViewEditingStyle::Insert) return;
        auto& numbers = dynamic_cast<NumbersModel&>(*model());
        const platform::IndexPath place{path.section(), numbers.sorts ? 0 : path.row()};
        numbers.put(place, std::make_shared<int>(50));
        numbers.didInsertObjectsAtIndexPaths({place}, true);
    }
    void modelDidChange() override { ++changes; }
    int changes = 0;
    int asked = 0;
};

struct OverviewModelControllerTest : test::BarsFixture {
    ~OverviewModelControllerTest() override { controller->setOverview(nullptr); }

    void open(const std::vector<std::vector<int>>& numbers) {
        for (const auto& section : numbers) {
            model->stored.emplace_back();
            for (const int number : section)
                model->stored.back().push_back(std::make_shared<int>(number));
        }
        overview->setController(controller);
        show(overview, {0, 0, 600, 400});
    }
    CVMacTableView& table() const { return *overview->overviewTable(); }
    /// What stands in the table, without placeholders; sections end with a line.
    std::string rows() const {
        std::string text;
        for (const auto& section : table().rows().sections()) {
            for (const auto& cell : section.cells)
                if (!cell->placeholderCell()) text += cell->accessibilityName() + " ";
            text += "|";
        }
        return text;
    }
    std::string objects() const {
        std::string text;
        for (const auto& section : model->numbers) {
            for (const auto& number : section)
                text += std::to_string(*number) + " ";
            text += "|";
        }
        return text;
    }

    platform::RecordingConsole console;
    platform::ScopedConsole consoleScope{console};
    std::shared_ptr<NumbersModel> model = std::make_shared<NumbersModel>();
    std::shared_ptr<NumbersController> controller = std::make_shared<NumbersController>(model);
    std::shared_ptr<CVMacOverview> overview = std::make_shared<CVMacOverview>();
};

}  // namespace

TEST_F(OverviewModelControllerTest, TheTableFollowsWhateverHappensToTheModel) {
    open({{1, 2, 3, 4, 5}, {}, {6, 7, 8}});
    std::mt19937 random(7);
    const auto below = [&](std::int64_t end) {
        return static_cast<std::int64_t>(random() % static_cast<std::uint64_t>(end));
    };
    const auto place = [&](bool forNew) {
        const auto section = below(model->numberOfSections());
        const auto count = model->numberOfObjectsInSection(section) + (forNew ? 1 : 0);
        return IndexPath{section, count == 0 ? -1 : below(count)};
    };
    int next = 100;
    for (int step = 0; step < 2000; ++step) {
        const IndexPath path = place(false);
        const IndexPath other = place(true);
        const auto act = path.item < 0 ? 0 : below(9);
        SCOPED_TRACE("step " + std::to_string(step) + ", act " + std::to_string(act));
        if (act == 0) {
            // Some of them next to each other, some not.
            NumbersModel::IndexPaths paths{other};
            for (auto i = below(3); i > 0; --i)
                paths.push_back({other.section, paths.back().item + 1});
            for (const auto& one : paths)
                model->put(one, std::make_shared<int>(next++));
            std::shuffle(paths.begin(), paths.end(), random);
            model->didInsertObjectsAtIndexPaths(paths, below(2) == 0);
        } else if (act == 1) {
            model->take(path);
            model->didRemoveObjectsAtIndexPaths({path}, below(2) == 0);
        } else if (act == 2) {
            table().performDeleteRowsAtIndexPaths({path});
        } else if (act == 3) {
            // Which row that is, a placeholder decides.
            table().moveDraggedRows({path}, other);
        } else if (act == 4) {
            table().insertPlaceholderCellAtIndexPath(other);
        } else if (act == 5 && table().placeholderCell()) {
            table().performDeleteRowsAtIndexPaths({table().placeholderCell()->indexPath()});
        } else if (act == 6) {
            // Two changes are made before the first is told of.
            const auto moved = model->take(path);
            const IndexPath target = place(true);
            model->put({target.section, std::max<std::int64_t>(target.item, 0)}, moved);
            model->didRemoveObjectsAtIndexPaths({path}, false);
            model->didInsertObjectsAtIndexPaths({target}, false);
        } else if (act == 7 && below(20) == 0) {
            model->numbers.emplace_back();
            model->put({model->numberOfSections() - 1, 0}, std::make_shared<int>(next++));
            model->didInsertObjectsAtIndexPaths({{model->numberOfSections() - 1, 0}}, true);
        } else if (act == 8 && below(20) == 0) {
            model->stored = model->numbers;
            model->reloadData();
        }
        ASSERT_EQ(rows(), objects());
        loop.runTurn();
    }
}

TEST_F(OverviewModelControllerTest, RowsBehindAPlaceholderKeepTheirObjects) {
    open({{1, 2, 3}});
    table().insertPlaceholderCellAtIndexPath({0, 1});
    EXPECT_FALSE(controller->objectAtIndexPath({0, 1}));
    EXPECT_EQ(controller->objectAtIndexPath({0, 2}).as<int>(), model->numbers[0][1]);
    EXPECT_FALSE(controller->overviewCanEditRowAtIndexPath({0, 1}));
    table().performDeleteRowsAtIndexPaths({{0, 3}});
    EXPECT_EQ(objects(), "1 2 |");
    EXPECT_EQ(rows(), "1 2 |");
    for (const CVIndexPath& none : {CVIndexPath(0, 4), CVIndexPath(-1, 0), CVIndexPath(9, 0)})
        EXPECT_FALSE(controller->objectAtIndexPath(none));
}

TEST_F(OverviewModelControllerTest, ShowsTheStateOfTheModel) {
    EXPECT_EQ(model->state(), EXOverviewModelStateInitial);
    model->failure = "The disk is gone.";
    open({{}});
    EXPECT_EQ(table().emptyText(), "The disk is gone.");
    EXPECT_TRUE(model->isActive());
    model->failure.clear();
    model->reloadData();
    EXPECT_EQ(table().emptyText(), EXLocalizable::localize("ListEmpty"));
    model->stored = {{std::make_shared<int>(13)}};
    model->reset();
    EXPECT_EQ(table().emptyText(), "");
    EXPECT_EQ(rows(), "");
    const int changes = controller->changes;
    model->preloadData(std::make_shared<int>(0));
    EXPECT_EQ(rows(), "13 |");
    EXPECT_EQ(controller->changes, changes + 1);
    table().performDeleteRowsAtIndexPaths({{0, 0}});
    EXPECT_EQ(rows(), "13 |");  // it may not be deleted

    model->setTitle("Numbers");
    EXPECT_EQ(overview->titleBar()->title(), "Numbers");
    bool confirmed = false;
    model->showConfirmationWithTitle("Sure?", "", "Yes", "No", [&] { confirmed = true; });
    window.endSheet(views::kAlertFirstButtonReturn);
    EXPECT_TRUE(confirmed);
    overview->removeFromSuperview();
    EXPECT_FALSE(model->isActive());
}

TEST_F(OverviewModelControllerTest, AModelMayPutObjectsElsewhereThanTheTable) {
    open({{1, 2, 3, 4}});
    const auto insertAt = [&](const CVIndexPath& path) {
        const auto cell = table().insertPlaceholderCellAtIndexPath(path);
        table().cellDidChangeValueForView(*cell, *cell);
    };
    insertAt({0, 2});
    EXPECT_EQ(rows(), "1 2 50 3 4 |");
    model->sorts = true;
    table().moveDraggedRows({{0, 3}}, {0, 2});
    EXPECT_EQ(rows(), "3 1 2 50 4 |");
    insertAt({0, 2});
    EXPECT_EQ(rows(), "50 3 1 2 50 4 |");
    EXPECT_EQ(objects(), rows());
}

TEST_F(OverviewModelControllerTest, AnotherModelTakesThePlaceOfOne) {
    open({{1, 2}});
    const auto next = std::make_shared<NumbersModel>();
    next->stored = {{std::make_shared<int>(9)}};
    controller->asked = 0;
    controller->setModel(next);
    EXPECT_EQ(rows(), "9 |");
    EXPECT_EQ(controller->asked, 1);
    EXPECT_FALSE(model->isActive());
    model->reset();
    EXPECT_EQ(rows(), "9 |");
    const auto other = std::make_shared<NumbersController>(model);
    overview->setController(other);
    EXPECT_EQ(rows(), "1 2 |");
    next->put({0, 0}, std::make_shared<int>(10));
    next->didInsertObjectsAtIndexPaths({{0, 0}}, false);
    EXPECT_EQ(rows(), "1 2 |");  // it has lost the view
    other->setModel(nullptr);
    EXPECT_EQ(rows(), "");
    other->setOverview(nullptr);
}
