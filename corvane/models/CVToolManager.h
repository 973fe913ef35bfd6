// The process's register of what the main window is made of: tools in their groups, and the
// commands of its toolbar. Also which tool is active, and which the user has hidden.
#pragma once

#include "corvane/models/CVIndexPath.h"
#include "corvane/preferences/EXPreferenceField.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace corvane {

class CVAction;
class CVTool;
class CVToolGroup;
struct CVToolRegister;

/// What is registered stays so for the process's life, in the order of registration. No locking:
/// one thread, the window's. Registering null throws std::invalid_argument, an index beyond what
/// there is std::out_of_range.
///
/// A hidden tool is an entry that the user has switched off, and keeps its row; one added with
/// addHiddenTool never was an entry. The application keeps what is switched off in its settings:
///
///     CVToolManager::setHiddenSourceListItems(preferences.hiddenSourceListItems());
///     preferences.hiddenSourceListItems = CVToolManager::hiddenSourceListItems();
class CVToolManager {
  public:
    using Identifier = std::optional<std::string>;
    using Dictionary = EXPreferenceDictionary;

    CVToolManager() = delete;

    // Groups, the sections of the source list.

    /// Of groups with one identifier the last is found by it, but all are listed.
    static void addGroup(std::shared_ptr<CVToolGroup> group);
    static std::int64_t countGroups();
    static std::shared_ptr<CVToolGroup> groupAtIndex(std::int64_t index);

    // Tools, its rows.

    /// Without such a group the tool is not registered at all.
    static void addTool(std::shared_ptr<CVTool> tool, std::string_view group);
    /// Found by its identifier, but in no group.
    static void addHiddenTool(std::shared_ptr<CVTool> tool);
    static std::int64_t countToolsInGroup(std::string_view group);
    /// Null without such a group.
    static std::shared_ptr<CVTool> toolInGroup(std::string_view group, std::int64_t index);
    /// Null where there is none.
    static std::shared_ptr<CVTool> toolWithIdentifier(std::string_view identifier);

    static Identifier startupToolIdentifier();
    static void setStartupToolIdentifier(Identifier identifier);

    static Identifier activeToolIdentifier();
    /// The one that was active becomes the previous one, unless it is the same.
    static void setActiveToolIdentifier(Identifier identifier);
    static std::shared_ptr<CVTool> activeTool();
    static std::shared_ptr<CVTool> previouslyActiveTool();

    // Actions.

    /// Its sub-actions are found by their identifiers too, but are not listed.
    static void addGlobalAction(std::shared_ptr<CVAction> action);
    static std::int64_t countGlobalActions();
    static std::shared_ptr<CVAction> globalActionAtIndex(std::int64_t index);
    /// Null where there is none.
    static std::shared_ptr<CVAction> globalActionWithIdentifier(std::string_view identifier);

    // Which tools of the groups are visible.

    /// Every tool that has a key for it, by that key.
    static Dictionary userDefaultsVisibleMap();
    /// Tools that the map does not have become visible.
    static void updateToolsWithUserDefaultsVisibleMap(const Dictionary& map);

    /// 1 for each hidden tool, by its identifier.
    static Dictionary hiddenSourceListItems();
    /// Tools that the dictionary does not have become visible.
    static void setHiddenSourceListItems(const std::optional<Dictionary>& items);

    /// By the places of group and tool; those of hidden tools are left out.
    static std::set<CVIndexPath> indexPathsOfVisibleRows();
};

/// Puts an empty register in force for as long as it lives; for tests. Scopes nest, on one thread.
class ScopedToolRegister {
  public:
    ScopedToolRegister();
    ~ScopedToolRegister();
    ScopedToolRegister(const ScopedToolRegister&) = delete;
    ScopedToolRegister& operator=(const ScopedToolRegister&) = delete;

  private:
    std::unique_ptr<CVToolRegister> registered_;
    CVToolRegister* previous_;
};

}  // namespace corvane
