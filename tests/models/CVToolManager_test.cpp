#include "corvane/models/CVToolManager.h"

#include "corvane/models/CVAction.h"
#include "corvane/models/CVTool.h"
#include "corvane/models/CVToolGroup.h"
#include "corvane/platform/Console.h"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace corvane;
using Manager = CVToolManager;
using Dictionary = CVToolManager::Dictionary;

namespace {

/// Two groups of tools: (0,0) a, (0,1) b, (0,2) c with a key, (1,0) d with a key; "x" in no group.
struct CVToolManagerTest : testing::Test {
    ScopedToolRegister scope;
    platform::RecordingConsole console;
    platform::ScopedConsole consoleScope{console};

    CVToolManagerTest() {
        Manager::addGroup(std::make_shared<CVToolGroup>("first", "First"));
        Manager::addGroup(std::make_shared<CVToolGroup>("second", "Second"));
        for (const char* identifier : {"a", "b", "c"})
            Manager::addTool(std::make_shared<CVTool>(identifier, ""), "first");
        Manager::addTool(std::make_shared<CVTool>("d", ""), "second");
        Manager::addTool(std::make_shared<CVTool>("lost", ""), "third");
        Manager::addHiddenTool(std::make_shared<CVTool>("x", ""));
        Manager::toolWithIdentifier("c")->setUserDefaultsKey("showC");
        Manager::toolWithIdentifier("d")->setUserDefaultsKey("showD");
    }
    std::string visible() {
        std::string text;
        for (const char* identifier : {"a", "b", "c", "d"})
            if (Manager::toolWithIdentifier(identifier)->isVisible()) text += identifier;
        return text;
    }
};

TEST_F(CVToolManagerTest, FindsWhatIsRegistered) {
    EXPECT_FALSE(Manager::toolWithIdentifier("lost"));
    EXPECT_TRUE(Manager::toolWithIdentifier("x"));
    EXPECT_EQ(Manager::countToolsInGroup("first"), 3);
    EXPECT_EQ(Manager::countToolsInGroup("third"), 0);
    EXPECT_EQ(Manager::toolInGroup("first", 1)->identifier(), "b");
    EXPECT_FALSE(Manager::toolInGroup("third", 9));
    EXPECT_THROW(Manager::toolInGroup("first", 3), std::out_of_range);
    auto again = std::make_shared<CVToolGroup>("first", "Again");
    Manager::addGroup(again);
    Manager::addTool(std::make_shared<CVTool>("e", ""), "first");
    EXPECT_EQ(Manager::countGroups(), 3);
    EXPECT_EQ(Manager::groupAtIndex(0)->countTools() * 10 + again->countTools(), 31);
    const ScopedToolRegister inner;
    EXPECT_EQ(Manager::countGroups(), 0);
}

TEST_F(CVToolManagerTest, RemembersThePreviouslyActiveTool) {
    struct Step {
        std::optional<std::string> activated;
        std::string active, previous;
    };
    const Step steps[] = {
        {"a", "a", "-"},          {"a", "a", "-"}, {"b", "b", "a"}, {std::string("b"), "b", "a"},
        {std::nullopt, "-", "b"}, {"x", "x", "b"}, {"?", "-", "x"},
    };
    const auto name = [](const auto& tool) { return tool ? tool->identifier() : "-"; };
    for (const auto& step : steps) {
        Manager::setActiveToolIdentifier(step.activated);
        EXPECT_EQ(name(Manager::activeTool()) + name(Manager::previouslyActiveTool()),
                  step.active + step.previous);
    }
}

TEST_F(CVToolManagerTest, CarriesVisibilityToSettingsAndBack) {
    const std::pair<std::optional<Dictionary>, std::string> cases[] = {
        {Dictionary{{"c", 1}, {"a", 0}, {"d", true}, {"x", 1}}, "ab"},
        {Dictionary{{"b", 1}}, "acd"},
        {std::nullopt, "abcd"},
    };
    for (const auto& [items, expected] : cases) {
        Manager::setHiddenSourceListItems(items);
        EXPECT_EQ(visible(), expected);
        const auto kept = Manager::hiddenSourceListItems();
        EXPECT_EQ(kept.size(), 4 - expected.size());
        for (const auto& [identifier, value] : kept)
            EXPECT_EQ(value.integerValue(), 1) << identifier;
        Manager::setHiddenSourceListItems(Dictionary{{"a", 1}});
        Manager::setHiddenSourceListItems(kept);
        EXPECT_EQ(visible(), expected);
    }
    Manager::setHiddenSourceListItems(Dictionary{{"b", 1}});
    EXPECT_EQ(Manager::indexPathsOfVisibleRows(), (std::set<CVIndexPath>{{0, 0}, {0, 2}, {1, 0}}));
    EXPECT_TRUE(Manager::toolWithIdentifier("x")->isVisible()) << "it is no entry";

    Manager::updateToolsWithUserDefaultsVisibleMap({{"showC", false}, {"b", false}});
    EXPECT_EQ(visible(), "abd");
    EXPECT_EQ(console.lines(), (std::vector<std::string>{
                                   "UPDATE TOOL: (null) VIS:(null)",
                                   "UPDATE TOOL: (null) VIS:(null)",
                                   "UPDATE TOOL: showC VIS:0",
                                   "UPDATE TOOL: showD VIS:(null)",
                               }));
    EXPECT_EQ(Manager::userDefaultsVisibleMap(), (Dictionary{{"showC", false}, {"showD", true}}));
}

TEST_F(CVToolManagerTest, FindsSubActionsWithoutListingThem) {
    auto action = std::make_shared<CVAction>("views", 0);
    action->setSubActions(
        {std::make_shared<CVAction>("list", 0), std::make_shared<CVAction>("grid", 1)});
    Manager::addGlobalAction(action);
    EXPECT_EQ(Manager::countGlobalActions(), 1);
    EXPECT_EQ(Manager::globalActionAtIndex(0), action);
    EXPECT_EQ(Manager::globalActionWithIdentifier("grid"), action->subActions()[1]);
    EXPECT_FALSE(Manager::globalActionWithIdentifier("table"));
    EXPECT_THROW(Manager::addGlobalAction(nullptr), std::invalid_argument);
}

}  // namespace
