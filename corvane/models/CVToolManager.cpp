#include "corvane/models/CVToolManager.h"

#include "corvane/models/CVAction.h"
#include "corvane/models/CVTool.h"
#include "corvane/models/CVToolGroup.h"
#include "corvane/platform/Console.h"

#include <fmt/format.h>

#include <map>
#include <stdexcept>
#include <utility>
#include <vector>

namespace corvane {

struct CVToolRegister {
    template <class T>
    using ByIdentifier = std::map<std::string, std::shared_ptr<T>, std::less<>>;

    std::vector<std::shared_ptr<CVToolGroup>> groups;
    ByIdentifier<CVToolGroup> groupsByIdentifiers;
    ByIdentifier<CVTool> toolsByIdentifiers;
    std::optional<std::string> startupToolIdentifier;
    std::optional<std::string> activeToolIdentifier;
    std::optional<std::string> previouslyActiveToolIdentifier;
    std::vector<std::shared_ptr<CVAction>> globalActions;
    ByIdentifier<CVAction> globalActionsByIdentifiers;
};

namespace {

CVToolRegister*& registerInForce() {
    // Never destroyed: tools may refer to whatever else ends with the process.
    static CVToolRegister* inForce = new CVToolRegister;
    return inForce;
}

CVToolRegister& inForce() {
    return *registerInForce();
}

template <class T>
std::shared_ptr<T> found(const CVToolRegister::ByIdentifier<T>& all, std::string_view identifier) {
    const auto entry = all.find(identifier);
    return entry == all.end() ? nullptr : entry->second;
}

template <class T>
const std::shared_ptr<T>& required(const std::shared_ptr<T>& registered) {
    if (!registered) throw std::invalid_argument("there is nothing to register");
    return registered;
}

std::shared_ptr<CVTool> toolNamed(const std::optional<std::string>& identifier) {
    return identifier ? found(inForce().toolsByIdentifiers, *identifier) : nullptr;
}

template <class Visit>
void forEachToolOfGroups(const Visit& visit) {
    for (const auto& group : inForce().groups)
        for (const auto& tool : group->tools())
            visit(*tool);
}

/// Null where the entry is missing.
const EXValue* entryOf(const CVToolManager::Dictionary& dictionary,
                       const std::optional<std::string>& key) {
    if (!key) return nullptr;
    const auto entry = dictionary.find(*key);
    return entry == dictionary.end() ? nullptr : &entry->second;
}

std::string description(const EXValue* value) {
    if (!value || value->isNull()) return "(null)";
    if (const auto text = value->text()) return std::string(*text);
    if (value->kind() == EXValue::Kind::Real) return fmt::format("{}", value->realValue());
    return value->isNumber() ? std::to_string(value->integerValue()) : "(no number)";
}

}  // namespace

// Groups ------------------------------------------------------------------------------------------

void CVToolManager::addGroup(std::shared_ptr<CVToolGroup> group) {
    const std::string identifier = required(group)->identifier();
    inForce().groupsByIdentifiers.insert_or_assign(identifier, group);
    inForce().groups.push_back(std::move(group));
}

std::int64_t CVToolManager::countGroups() {
    return static_cast<std::int64_t>(inForce().groups.size());
}

std::shared_ptr<CVToolGroup> CVToolManager::groupAtIndex(std::int64_t index) {
    return inForce().groups.at(static_cast<std::size_t>(index));
}

// Tools -------------------------------------------------------------------------------------------

void CVToolManager::addTool(std::shared_ptr<CVTool> tool, std::string_view group) {
    const auto owner = found(inForce().groupsByIdentifiers, group);
    if (!owner) return;
    addHiddenTool(tool);
    owner->addTool(std::move(tool));
}

void CVToolManager::addHiddenTool(std::shared_ptr<CVTool> tool) {
    const std::string identifier = required(tool)->identifier();
    inForce().toolsByIdentifiers.insert_or_assign(identifier, std::move(tool));
}

std::int64_t CVToolManager::countToolsInGroup(std::string_view group) {
    const auto owner = found(inForce().groupsByIdentifiers, group);
    return owner ? owner->countTools() : 0;
}

std::shared_ptr<CVTool> CVToolManager::toolInGroup(std::string_view group, std::int64_t index) {
    const auto owner = found(inForce().groupsByIdentifiers, group);
    return owner ? owner->toolAtIndex(index) : nullptr;
}

std::shared_ptr<CVTool> CVToolManager::toolWithIdentifier(std::string_view identifier) {
    return found(inForce().toolsByIdentifiers, identifier);
}

auto CVToolManager::startupToolIdentifier() -> Identifier {
    return inForce().startupToolIdentifier;
}

void CVToolManager::setStartupToolIdentifier(Identifier identifier) {
    inForce().startupToolIdentifier = std::move(identifier);
}

auto CVToolManager::activeToolIdentifier() -> Identifier {
    return inForce().activeToolIdentifier;
}

void CVToolManager::setActiveToolIdentifier(Identifier identifier) {
    auto& active = inForce().activeToolIdentifier;
    if (active && active != identifier) inForce().previouslyActiveToolIdentifier = active;
    active = std::move(identifier);
}

std::shared_ptr<CVTool> CVToolManager::activeTool() {
    return toolNamed(inForce().activeToolIdentifier);
}

std::shared_ptr<CVTool> CVToolManager::previouslyActiveTool() {
    return toolNamed(inForce().previouslyActiveToolIdentifier);
}

// Actions -----------------------------------------------------------------------------------------

void CVToolManager::addGlobalAction(std::shared_ptr<CVAction> action) {
    required(action);
    for (const auto& subAction : action->subActions())
        required(subAction);
    auto& byIdentifiers = inForce().globalActionsByIdentifiers;
    byIdentifiers.insert_or_assign(action->identifier(), action);
    for (const auto& subAction : action->subActions())
        byIdentifiers.insert_or_assign(subAction->identifier(), subAction);
    inForce().globalActions.push_back(std::move(action));
}

std::int64_t CVToolManager::countGlobalActions() {
    return static_cast<std::int64_t>(inForce().globalActions.size());
}

std::shared_ptr<CVAction> CVToolManager::globalActionAtIndex(std::int64_t index) {
    return inForce().globalActions.at(static_cast<std::size_t>(index));
}

std::shared_ptr<CVAction> CVToolManager::globalActionWithIdentifier(std::string_view identifier) {
    return found(inForce().globalActionsByIdentifiers, identifier);
}

// Visibility --------------------------------------------------------------------------------------

auto CVToolManager::userDefaultsVisibleMap() -> Dictionary {
    Dictionary map;
    forEachToolOfGroups([&](const CVTool& tool) {
        if (const auto& key = tool.userDefaultsKey()) map.insert_or_assign(*key, tool.isVisible());
    });
    return map;
}

void CVToolManager::updateToolsWithUserDefaultsVisibleMap(const Dictionary& map) {
    forEachToolOfGroups([&](CVTool& tool) {
        const auto& key = tool.userDefaultsKey();
        const EXValue* visible = entryOf(map, key);
        platform::currentConsole().writeLine(
            fmt::format("UPDATE TOOL: {} VIS:{}", key.value_or("(null)"), description(visible)));
        tool.setVisible(visible ? visible->booleanValue() : true);
    });
}

auto CVToolManager::hiddenSourceListItems() -> Dictionary {
    Dictionary items;
    forEachToolOfGroups([&](const CVTool& tool) {
        if (!tool.isVisible()) items.insert_or_assign(tool.identifier(), 1);
    });
    return items;
}

void CVToolManager::setHiddenSourceListItems(const std::optional<Dictionary>& items) {
    forEachToolOfGroups([&](CVTool& tool) {
        const EXValue* hidden = items ? entryOf(*items, tool.identifier()) : nullptr;
        tool.setVisible(!hidden || !hidden->booleanValue());
    });
}

std::set<CVIndexPath> CVToolManager::indexPathsOfVisibleRows() {
    std::set<CVIndexPath> paths;
    for (std::int64_t section = 0; section < countGroups(); ++section) {
        const auto& tools = groupAtIndex(section)->tools();
        for (std::size_t row = 0; row < tools.size(); ++row)
            if (tools[row]->isVisible()) paths.emplace(section, static_cast<std::int64_t>(row));
    }
    return paths;
}

// The scope ---------------------------------------------------------------------------------------

ScopedToolRegister::ScopedToolRegister()
    : registered_(std::make_unique<CVToolRegister>()),
      previous_(std::exchange(registerInForce(), registered_.get())) {}

ScopedToolRegister::~ScopedToolRegister() {
    registerInForce() = previous_;
}

}  // namespace corvane
