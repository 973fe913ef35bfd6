#include "corvane/models/CVIndexPath.h"

#include "corvane/models/EXIndexPath.h"
#include "corvane/platform/KeyedArchiver.h"
#include "corvane/platform/KeyedUnarchiver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace corvane::tests {
using namespace platform;
using testing::ElementsAre;

CVIndexPath pathWithText(std::int64_t section, std::int64_t row) {
    CVIndexPath path(section, row);
    path.setPasteboardText("Water the plants");
    return path;
}

TEST(IndexPathTag, HoldsTwentyBitsOfRowAndEightOfSection) {
    const struct {
        IndexPath path;
        std::int64_t tag;
        IndexPath decoded;
    } cases[] = {{{2, 5}, 2'097'157, {2, 5}},
                 {{0, 1'048'576}, 0, {0, 0}},
                 {{255, 1'048'575}, 0xFFFFFFF, {255, 1'048'575}},
                 {{256, 7}, 7, {0, 7}},
                 {{-1, -1}, 0xFFFFFFF, {255, 1'048'575}},
                 {{INT64_MIN, INT64_MAX}, 0xFFFFF, {0, 0xFFFFF}}};
    for (const auto& [path, tag, decoded] : cases) {
        EXPECT_EQ(tagForIndexPath(path), tag);
        EXPECT_EQ(indexPathForTag(tag), decoded);
        EXPECT_EQ(EXIndexPath::tagForIndexPath({path.item, 9, path.section}), tag);
        EXPECT_EQ(EXIndexPath::indexPathForTag(tag), EXIndexPath(decoded.item, 0, decoded.section));
    }
}

TEST(IndexPaths, AreOrderedEachKindInItsOwnDirection) {
    std::vector<EXIndexPath> cells{{0, 0}, {1, 0}, {0, 1, 0}, {0, 1}};
    std::sort(cells.begin(), cells.end());
    EXPECT_THAT(cells, ElementsAre(EXIndexPath(0, 1), EXIndexPath(0, 1, 0), EXIndexPath(1, 0),
                                   EXIndexPath(0, 0)));
    std::vector<CVIndexPath> rows{{1, 0}, {0, 3}, {0, 2}};
    std::sort(rows.begin(), rows.end());
    for (std::size_t a = 0; a < 3; ++a) {
        for (std::size_t b = 0; b < 3; ++b) {
            const int order = a < b ? -1 : a > b ? 1 : 0;
            EXPECT_EQ(rows[a].compare(rows[b]), order);
            EXPECT_EQ(cells[a].compare(cells[b]), order);
            EXPECT_EQ(rows[a].isEqual(rows[b]), order == 0);
        }
    }
    EXPECT_EQ(CVIndexPath(0x101, 2).hash(), 0x301u);
    EXPECT_EQ(CVIndexPath::indexPathForRow(5, 2), CVIndexPath(IndexPath::indexPathForRow(5, 2)));
}

TEST(CVIndexPath, ConvertsCollectionsAndNothing) {
    const std::vector<IndexPath> list{{2, 5}, {0, 1}, {2, 5}};
    const auto paths = CVIndexPath::fromNSIndexPathArray(list);
    EXPECT_THAT(*paths, ElementsAre(CVIndexPath(2, 5), CVIndexPath(0, 1), CVIndexPath(2, 5)));
    EXPECT_EQ(CVIndexPath::toNSIndexPathArray(paths), list);
    const std::set<IndexPath> set(list.begin(), list.end());
    EXPECT_EQ(CVIndexPath::toNSIndexPathSet(CVIndexPath::fromNSIndexPathSet(set)), set);
    EXPECT_EQ(CVIndexPath::toNSIndexPath(CVIndexPath::fromNSIndexPath(list[0])), list[0]);
    EXPECT_FALSE(CVIndexPath::fromNSIndexPath({}) || CVIndexPath::toNSIndexPath({}) ||
                 CVIndexPath::fromNSIndexPathArray({}) || CVIndexPath::fromNSIndexPathSet({}) ||
                 CVIndexPath::toNSIndexPathArray({}) || CVIndexPath::toNSIndexPathSet({}));
}

TEST(CVIndexPath, LosesItsTextWhereverItIsCopiedOrArchived) {
    const CVIndexPath path = pathWithText(-3, std::int64_t{1} << 40);
    CVIndexPath assigned = pathWithText(0, 0);
    assigned = path;
    const auto archive = KeyedArchiver::archivedData(path);
    const auto read = KeyedUnarchiver::unarchiveData(*archive, CVIndexPath::archiveClasses())
                          .objectAs<CVIndexPath>();
    ASSERT_TRUE(read && !read->pasteboardText());
    for (const CVIndexPath& copy : {CVIndexPath(path), assigned, *read}) {
        EXPECT_EQ(copy, path);
        EXPECT_EQ(copy.pasteboardText(), std::nullopt);
    }
    std::vector<CVIndexPath> moved;
    for (int i = 0; i < 9; ++i)
        moved.push_back(pathWithText(i, i));
    EXPECT_EQ(moved[0].pasteboardText(), "Water the plants");
}

TEST(CVIndexPath, TravelsOnThePasteboardAsItselfAndAsText) {
    Pasteboard pasteboard;
    pasteboard.writeObject(pathWithText(2, 5));
    pasteboard.writeObject(CVIndexPath(0, 1));
    PasteboardItem foreign;
    foreign.setValue(kPasteboardTypeString, "a text");
    pasteboard.addItem(foreign);
    for (const Value& bad : {Value("no bytes"), Value(Bytes(9)),
                             Value(KeyedArchiver::archivedData(Value("no path")))}) {
        foreign.setValue(CVPasteboardTypeIndexPath, bad);
        pasteboard.addItem(foreign);
    }
    EXPECT_THAT(pasteboard.items()[0].types(),
                ElementsAre(CVIndexPath::pasteboardType(), kPasteboardTypeString));
    EXPECT_THAT(pasteboard.items()[1].types(), ElementsAre(CVPasteboardTypeIndexPath));
    EXPECT_EQ(pasteboard.textsForType(kPasteboardTypeString).front(), "Water the plants");
    EXPECT_THAT(CVIndexPath::fromPasteboard(pasteboard),
                ElementsAre(CVIndexPath(2, 5), CVIndexPath(0, 1)));
    EXPECT_FALSE(CVIndexPath::withPasteboardPropertyList(ValueMap{}, CVPasteboardTypeIndexPath));
}

TEST(PasteboardItem, KeepsTypesInOrderAndNoEmptyOnes) {
    PasteboardItem item;
    item.setValue("a", 1);
    item.setValue("b", "two");
    item.setValue("c", nullptr);
    item.setValue("a", "one");
    EXPECT_THAT(item.types(), ElementsAre("a", "b"));
    EXPECT_EQ(item.textForType("a"), "one");
    EXPECT_TRUE(!item.textForType("c") && item.valueForType("c").isNull() && item.hasType("b"));
    Pasteboard pasteboard;
    pasteboard.addItem(item);
    EXPECT_TRUE(pasteboard.hasType("b") && !pasteboard.hasType("c"));
    pasteboard.clear();
    EXPECT_TRUE(pasteboard.items().empty() && pasteboard.textsForType("a").empty());
}

}  // namespace corvane::tests
