// The bar in which the user searches a list.
#pragma once

#include "corvane/models/CVIndexPath.h"
#include "corvane/toolkit/EXDeferredScheduler.h"
#include "corvane/views/CompoundView.h"
#include "corvane/views/TextField.h"
#include "corvane/vocabulary/EXChoiceList.h"
#include "corvane/vocabulary/EXImageMap.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace corvane::views {
class SegmentedControl;
}

namespace corvane {

class SearchGlyphButton;

/// A field with a magnifier, which opens the menu of search categories where there are any, and a
/// button that clears it; beside it the menu of filters and the scopes, which go below where the
/// bar is too narrow.
///
/// Typing searches when it has paused for the delay, Return at once; the last text counts. Escape
/// clears the field, and in an empty one leaves the search. What the program sets is not told to
/// anybody and withdraws a search that is pending; so does clearing.
class CVMacSearchBar : public views::CompoundView, public views::TextFieldDelegate {
  public:
    CVMacSearchBar();
    ~CVMacSearchBar() override;

    /// For text that is not empty.
    std::function<void(const std::string&)> didSearchForString;
    /// The user has made the field empty.
    std::function<void()> didClearSearch;
    std::function<void()> didExitSearch;
    std::function<void(std::int64_t)> didSelectScope;
    std::function<void(std::int64_t)> didSelectSearchCategoryAtIndex;
    std::function<void(const CVIndexPath&)> didSelectFilterItemAtIndexPath;

    /// At first the word for a search in the user's language.
    const std::string& placeholder() const;
    void setPlaceholder(std::string text);
    const std::string& string() const;
    void setString(std::string text);
    /// In seconds; 0.3 at first.
    double searchDelay() const { return scheduler_.delay(); }
    void setSearchDelay(double seconds) { scheduler_.setDelay(seconds); }
    /// False in no window, or where whoever has the focus keeps it.
    bool focusSearchField();

    // The first scope and the first category are selected at first; -1 stands for none, where there
    // are none. What is no index is passed over.

    void setScopes(std::vector<std::string> scopes);
    std::int64_t selectedScope() const;
    void setSelectedScope(std::int64_t scope);

    const std::vector<std::string>& categories() const { return categories_; }
    void setCategories(std::vector<std::string> categories);
    std::int64_t selectedCategory() const { return selectedCategory_; }
    void setSelectedCategory(std::int64_t category);

    /// Null for none; the images are those that the items name, and may be missing. No item is
    /// selected afterwards.
    void setFilterItems(std::shared_ptr<const EXChoiceList> items,
                        std::shared_ptr<const EXImageMap> images);
    const std::optional<CVIndexPath>& selectedFilterItem() const { return selectedFilterItem_; }
    void setSelectedFilterItem(std::optional<CVIndexPath> path);

    views::Size preferredSizeThatFits(views::Size available) override;
    void applyLayout() override;
    void didMoveToWindow() override;
    void draw(views::Canvas& canvas, const views::Rect& dirty) override;
    bool mouseDown(const views::MouseEvent& event) override;
    views::Role accessibilityRole() const override { return views::Role::Group; }

    void controlTextDidChange(views::TextField& field) override;
    void controlTextDidBeginEditing(views::TextField& field) override;
    void controlTextDidEndEditing(views::TextField& field) override;
    bool controlDoCommandBySelector(views::TextField& field, views::FieldEditor& textView,
                                    views::Command command) override;

  private:
    class Field;
    struct Recipient;
    struct Places;

    void clearByUser();
    void withdrawSearch();
    void searchWhenPaused();
    void searchNow();
    void showCategories();
    void showFilters();
    void addFilterItems(views::Menu& menu, std::int64_t section);
    void showMenuBelow(const View& button, const std::shared_ptr<views::Menu>& menu);
    void selectCategory(std::int64_t category);
    void selectFilterItem(const CVIndexPath& path);
    void updateButtons();
    Places places(double width) const;

    std::shared_ptr<Field> field_;
    std::shared_ptr<SearchGlyphButton> magnifier_;
    std::shared_ptr<SearchGlyphButton> clear_;
    std::shared_ptr<SearchGlyphButton> filter_;
    std::shared_ptr<views::SegmentedControl> scopes_;
    std::vector<std::string> categories_;
    std::int64_t selectedCategory_ = -1;
    std::shared_ptr<const EXChoiceList> filterItems_;
    std::shared_ptr<const EXImageMap> filterImages_;
    std::optional<CVIndexPath> selectedFilterItem_;
    EXDeferredScheduler<Recipient> scheduler_;
    bool searchPending_ = false;
};

}  // namespace corvane
