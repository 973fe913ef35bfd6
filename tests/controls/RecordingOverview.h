// An overview controller that writes down what it is asked and told, with the arguments, and gives
// answers by which they can be told apart.
#pragma once

#include "corvane/models/CVAction.h"
#include "corvane/models/CVOverview.h"
#include "corvane/models/CVOverviewController.h"
#include "corvane/table/CVMacTableView.h"
#include "corvane/table/CVMacTableViewCell.h"
#include "corvane/table/HGMacListView.h"
#include "corvane/views/Alert.h"
#include "corvane/views/Menu.h"

#include <fmt/format.h>

#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace corvane::test {

/// Numbers and texts as they are; views, tables and the like by where they are.
template <class Value>
std::string textOf(const Value& value) {
    if constexpr (std::is_same_v<Value, CVIndexPath>) {
        return std::to_string(value.section()) + "." + std::to_string(value.row());
    } else if constexpr (std::is_same_v<Value, std::optional<std::string>>) {
        return value ? "'" + *value + "'" : "none";
    } else if constexpr (std::is_same_v<Value, platform::URL>) {
        return std::string(value.absoluteString());
    } else if constexpr (std::is_same_v<Value, CVAction>) {
        return value.identifier();
    } else if constexpr (std::is_convertible_v<Value, std::string>) {
        return "'" + std::string(value) + "'";
    } else if constexpr (std::is_polymorphic_v<Value>) {
        return fmt::format("@{}", dynamic_cast<const void*>(&value));
    } else if constexpr (std::is_integral_v<Value> || std::is_enum_v<Value>) {
        return std::to_string(static_cast<std::int64_t>(value));
    } else {
        std::string text;
        for (const auto& one : value)
            text += (text.empty() ? "" : "+") + textOf(one);
        return text;
    }
}

/// A hook in one statement whose name is too long for a line.
#define HOOK(Result, hook, parameters, ...) \
    Result hook parameters override {       \
        return __VA_ARGS__;                 \
    }

class RecordingOverview : public CVOverviewController {
  public:
    using Base = CVOverviewController;
    using P = const IndexPath&;
    using R = const IndexPaths&;
    using T = const Texts&;
    using U = const URL&;
    using N = const Text&;
    using OptionalPath = std::optional<IndexPath>;
    using Table = CVMacTableView;
    using List = HGMacListView;
    using Int = std::int64_t;
    using Cell = CVMacTableViewCell;
    using Style = CVMacTableViewEditingStyle;

    /// What came since the last call, in order, one to a line.
    std::string take() { return std::exchange(log_, {}); }

    bool yes = true;  ///< the answer to all questions for yes or no but the next
    bool hasLists = true;
    Int sections = 0;
    Int rows = 0;
    std::vector<Action> globalActions, navigationActions, overviewActions;
    Menu menu = std::make_shared<views::Menu>();

    void overviewDidLoad() override { note("didLoad"); }
    void overviewWillAppear() override { note("willAppear"); }
    void overviewDidAppear() override { note("didAppear"); }
    void overviewWillDisappear() override { note("willDisappear"); }
    void overviewDidDisappear() override { note("didDisappear"); }

    bool hasNavigation() const override { return hasLists; }
    bool hasSidebar() const override { return yes; }
    Text navigationTitle() const override { return "Lists"; }
    Text overviewTitle() const override { return "Tasks"; }
    Int countGlobalActions() const override { return std::ssize(globalActions); }
    Int countNavigationActions() const override { return std::ssize(navigationActions); }
    Int countOverviewActions() const override { return std::ssize(overviewActions); }
    Action globalActionAtIndex(Int i) const override { return globalActions.at(at(i)); }
    Action navigationActionAtIndex(Int i) const override { return navigationActions.at(at(i)); }
    Action overviewActionAtIndex(Int i) const override { return overviewActions.at(at(i)); }
    void didInvokeGlobalAction(CVAction& a) override { note("globalAction", a); }
    void didInvokeNavigationAction(CVAction& a) override { note("navigationAction", a); }
    void didInvokeOverviewAction(CVAction& a) override { note("overviewAction", a); }

    Int numberOfSectionsInNavigation() const override { return get(sections, "navSections"); }
    Int numberOfSectionsInOverview() const override { return get(sections, "sections"); }
    HOOK(Text, titleForHeaderInNavigationSection, (Int s) const,
         get("list " + textOf(s), "navTitle", s));
    HOOK(Text, titleForHeaderInOverviewSection, (Int s) const,
         get("part " + textOf(s), "title", s));
    HOOK(double, heightForHeaderInNavigationSection, (Int s) const,
         get(Base::heightForHeaderInNavigationSection(s), "navHeight", s));
    HOOK(double, heightForHeaderInOverviewSection, (Int s) const,
         get(Base::heightForHeaderInOverviewSection(s), "height", s));
    Int numberOfRowsInNavigationSection(Int s) const override { return get(rows, "navRows", s); }
    Int numberOfRowsInOverviewSection(Int s) const override { return get(rows, "rows", s); }
    void configureNavigationCell(Cell& c, P p) override { note("navCell", c, p); }
    HOOK(void, configureOverviewCell, (Cell & c, P p),
         note(c.placeholderCell() ? "newCell" : "cell", c, p));

    void navigationDidSelectRowAtIndexPath(P p) override { note("navSelect", p); }
    void navigationDidDoubleSelectRowAtIndexPath(P p) override { note("navDouble", p); }
    void navigationDidClearSelection() override { note("navClear"); }
    void overviewDidSelectRowAtIndexPath(P p) override { note("select", p); }
    void overviewDidDoubleSelectRowAtIndexPath(P p) override { note("double", p); }
    void overviewDidClearSelection() override { note("clear"); }
    void overviewWillTapAccessoryButtonForRowAtIndexPath(P p) override { note("willTap", p); }
    void overviewAccessoryButtonTappedForRowWithIndexPath(P p) override { note("tap", p); }
    HOOK(void, overviewAccessoryButtonDoubleTappedForRowWithIndexPath, (P p), note("doubleTap", p));

    bool navigationCanEditRowAtIndexPath(P p) const override { return ask("navCanEdit", p); }
    bool navigationCanMoveRowAtIndexPath(P p) const override { return ask("navCanMove", p); }
    HOOK(IndexPath, navigationTargetIndexPathForMoveFromRowAtIndexPath, (P p, IndexPath to) const,
         get(to, "navTarget", p, to));
    void navigationCommitEditingStyle(Style s, P p) override { note("navCommit", s, p); }
    void navigationBeginMovingRows() override { note("navBegin"); }
    void navigationMoveRowAtIndexPath(P p, P to) override { note("navMove", p, to); }
    void navigationCommitMovingRows() override { note("navMoved"); }
    bool overviewCanEditRowAtIndexPath(P p) const override { return ask("canEdit", p); }
    bool overviewCanMoveRowAtIndexPath(P p) const override { return ask("canMove", p); }
    HOOK(IndexPath, overviewTargetIndexPathForMoveFromRowAtIndexPath, (P p, IndexPath to) const,
         get(to, "target", p, to));
    void overviewCommitEditingStyle(Style s, P p) override { note("commit", s, p); }
    void overviewBeginMovingRows() override { note("begin"); }
    void overviewMoveRowAtIndexPath(P p, P to) override { note("move", p, to); }
    void overviewCommitMovingRows() override { note("moved"); }

    HOOK(bool, canStartInlineEditingOverviewRowAtIndexPath, (P p) const, ask("canStart", p));
    HOOK(OptionalPath, placeholderIndexPathForAppendingToOverviewSection, (Int s) const,
         get(IndexPath(s, 9), "appendAt", s));
    void overviewInsertPlaceholderRowAtIndexPath(P p) override { note("placeholder", p); }
    bool overviewCanInlineInsertRowAtIndexPath(P p) const override { return ask("canInsert", p); }
    bool overviewCanInlineEditRowAtIndexPath(P p) const override { return ask("canInline", p); }

    bool navigationAllowsStartDrag() const override { return ask("navDrag"); }
    HOOK(bool, navigationWillDropSourceIndexPaths, (R r, CVOverview& o, P p),
         ask("navWillRows", r, o, p));
    HOOK(bool, navigationWillDropTexts, (T t, P p), ask("navWillTexts", t, p));
    HOOK(bool, navigationWillDropURL, (U u, N n, P p), ask("navWillURL", u, n, p));
    HOOK(bool, navigationDidDropSourceIndexPaths, (R r, CVOverview& o, P p),
         ask("navDidRows", r, o, p));
    HOOK(bool, navigationDidDropTexts, (T t, P p), ask("navDidTexts", t, p));
    HOOK(bool, navigationDidDropURL, (U u, N n, P p), ask("navDidURL", u, n, p));
    bool overviewAllowsStartDrag() const override { return ask("drag"); }
    HOOK(Text, dragableTextForOverviewRowAtIndexPath, (P p) const,
         get("row " + textOf(p), "dragText", p));
    HOOK(bool, overviewWillDropSourceIndexPaths, (R r, Table& o, P p), ask("willRows", r, o, p));
    HOOK(bool, overviewWillDropSourceIndex, (Int i, List& o, P p), ask("willItem", i, o, p));
    HOOK(bool, overviewWillDropTexts, (T t, P p), ask("willTexts", t, p));
    HOOK(bool, overviewWillDropURL, (U u, N n, P p), ask("willURL", u, n, p));
    HOOK(bool, overviewDidDropSourceIndexPaths, (R r, Table& o, P p), ask("didRows", r, o, p));
    HOOK(bool, overviewDidDropSourceIndex, (Int i, List& o, P p), ask("didItem", i, o, p));
    HOOK(bool, overviewDidDropTexts, (T t, P p), ask("didTexts", t, p));
    HOOK(bool, overviewDidDropURL, (U u, N n, P p), ask("didURL", u, n, p));

    Menu navigationContextMenuForRowAtIndexPath(P p) override { return get(menu, "navMenu", p); }
    Menu overviewContextMenuForRowAtIndexPath(P p) override { return get(menu, "menu", p); }
    HOOK(Menu, overviewContextMenuForAccessoryViewOfRowAtIndexPath, (P p),
         get(menu, "accessoryMenu", p));
    Menu overviewContextMenuForStatusIcon() override { return get(menu, "statusMenu"); }
    void overviewDidSelectScope(Int i) override { note("scope", i); }
    void overviewStatusIconSelected() override { note("statusIcon"); }
    void overviewDidSelectFilterItemAtIndexPath(P p) override { note("filter", p); }
    void overviewDidSelectSearchCategoryAtIndex(Int i) override { note("category", i); }
    void overviewDidSearchForString(const std::string& s) override { note("search", s); }
    void overviewDidClearSearch() override { note("clearSearch"); }
    HOOK(void, overviewDidExitSearch, (), (note("exitSearch"), Base::overviewDidExitSearch()));
    HOOK(void, confirmationSheet, (const views::Alert& alert, Int button),
         note("sheet", alert.messageText, button));

  private:
    static std::size_t at(Int index) { return static_cast<std::size_t>(index); }
    template <class Answer, class... Arguments>
    Answer get(Answer answer, const char* name, const Arguments&... arguments) const {
        note(name, arguments...);
        return answer;
    }
    template <class... Arguments>
    bool ask(const char* name, const Arguments&... arguments) const {
        note(name, arguments...);
        return yes;
    }
    template <class... Arguments>
    void note(const char* name, const Arguments&... arguments) const {
        log_ += name;
        ((log_ += " " + textOf(arguments)), ...);
        log_ += "\n";
    }

    mutable std::string log_;
};

#undef HOOK

}  // namespace corvane::test
