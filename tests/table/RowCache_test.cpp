// Rows put in and taken out many at once, against lists that take them one at a time.

#include "corvane/table/RowCache.h"

#include "corvane/table/CVMacTableViewCell.h"

#include <gtest/gtest.h>

#include <random>

using namespace corvane;

namespace {

using Run = RowCache::Run;

struct Trial {
    struct Row {
        RowCache::CellPtr cell;
        float height = 0;
    };
    std::mt19937 random;
    RowCache rows;
    std::vector<std::vector<Row>> plain{3};

    explicit Trial(std::uint32_t seed) : random(seed) {
        for (int section = 0; section < 3; ++section)
            rows.insertSection(section, nullptr);
    }
    /// Ascending, and some of them where nothing can be.
    std::vector<Run> pickRuns() {
        std::vector<Run> runs;
        for (std::int64_t section = -1; section <= 3; ++section) {
            std::int64_t row = static_cast<std::int64_t>(random() % 4) - 1;
            for (auto left = random() % 6; left > 0; --left) {
                const auto count = static_cast<std::int64_t>(random() % 4);
                runs.push_back({{section, row}, count});
                row += count + static_cast<std::int64_t>(random() % 5);
            }
        }
        return runs;
    }
    void insert(const std::vector<Run>& runs) {
        std::vector<Run> fitting;
        for (const auto& [first, count] : runs) {
            if (first.section < 0 || first.section >= 3 || count == 0) continue;
            auto& list = plain[static_cast<std::size_t>(first.section)];
            if (first.item < 0 || first.item > std::ssize(list)) continue;
            list.insert(list.begin() + first.item, static_cast<std::size_t>(count), {});
            fitting.push_back({first, count});
        }
        const auto done = rows.insertRuns(runs);
        ASSERT_EQ(done.size(), fitting.size());
        for (std::size_t i = 0; i < done.size(); ++i) {
            ASSERT_EQ(done[i].first, fitting[i].first);
            ASSERT_EQ(done[i].count, fitting[i].count);
        }
    }
    void remove(const std::vector<Run>& runs) {
        std::vector<RowCache::CellPtr> expected;
        for (auto run = runs.rbegin(); run != runs.rend(); ++run)
            for (auto row = run->first.item + run->count - 1; row >= run->first.item; --row) {
                if (!rows.contains(run->first) || row >= rows.rowCount(run->first.section))
                    continue;
                auto& list = plain[static_cast<std::size_t>(run->first.section)];
                expected.insert(expected.begin(), list[static_cast<std::size_t>(row)].cell);
                list.erase(list.begin() + row);
            }
        EXPECT_EQ(rows.removeRuns(runs), expected);
    }
    /// Some of the rows get a cell and a height.
    void build() {
        for (std::int64_t section = 0; section < 3; ++section)
            for (std::int64_t row = 0; row < rows.rowCount(section); ++row) {
                auto& [cell, height] =
                    plain[static_cast<std::size_t>(section)][static_cast<std::size_t>(row)];
                if (cell || random() % 4 == 0) continue;
                cell = std::make_shared<CVMacTableViewCell>(CVIndexPath(9, 9));
                height = static_cast<float>(random() % 100);
                rows.setCell({section, row}, cell);
                rows.setHeight({section, row}, height);
            }
    }
    void check() const {
        for (std::int64_t section = 0; section < 3; ++section) {
            const auto& list = plain[static_cast<std::size_t>(section)];
            ASSERT_EQ(rows.rowCount(section), std::ssize(list));
            for (std::int64_t row = 0; row < rows.rowCount(section); ++row) {
                const auto& [cell, height] = list[static_cast<std::size_t>(row)];
                ASSERT_EQ(rows.cellAt({section, row}), cell);
                ASSERT_EQ(rows.heightAt({section, row}), height);
                ASSERT_TRUE(!cell || rows.holds(*cell)) << section << "," << row;
            }
        }
    }
};

}  // namespace

TEST(RowCache, ChangesManyRowsAsItWouldOneAtATime) {
    for (std::uint32_t seed = 1; seed <= 40; ++seed) {
        Trial trial(seed);
        for (int step = 0; step < 60; ++step) {
            const auto runs = trial.pickRuns();
            trial.random() % 3 ? trial.insert(runs) : trial.remove(runs);
            trial.check();
            trial.build();
            trial.check();
            if (testing::Test::HasFailure()) FAIL() << "seed " << seed << ", step " << step;
        }
    }
    // What begins within the run before is left out.
    RowCache rows;
    rows.insertSection(0, nullptr);
    EXPECT_EQ(rows.insertRuns({{{0, 0}, 5}, {{0, 2}, 1}, {{0, 5}, 2}}).size(), 2u);
    EXPECT_EQ(rows.removeRuns({{{0, 1}, 3}, {{0, 2}, 1}, {{0, 6}, 99}}).size(), 4u);
    EXPECT_EQ(rows.rowCount(0), 3);
}
