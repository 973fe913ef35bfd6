// A text field that offers the items of a choice list and completes what is typed to one of them.
// One thread, the window's.
#pragma once

#include "corvane/controls/ChooserField.h"
#include "corvane/platform/IndexPath.h"
#include "corvane/toolkit/EXValue.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace corvane {

class EXChoiceList;
class EXImageMap;

/// Whoever types at the end of the text gets the rest of the first title that begins so, selected,
/// to be typed over. Return and leaving the field take what the text says: the item with that
/// title, letter case and accents aside. Where unknown text is not allowed, other text becomes the
/// first item that begins so, or else what was chosen before. Up and Down walk through the items.
///
/// With a border it has an arrow at its trailing side, which opens and closes the choices.
///
/// Sends its action when value or text has changed. Made by std::make_shared.
class CVMacTextChoiceField final : public ChooserField {
  public:
    using ChooserField::ChooserField;
    ~CVMacTextChoiceField() override;

    /// Null for none. Keeps the choice where the new list has its value.
    void setChoiceList(std::shared_ptr<const EXChoiceList> choiceList);
    const std::shared_ptr<const EXChoiceList>& choiceList() const { return choiceList_; }
    /// Null for no pictures.
    void setIconMap(std::shared_ptr<const EXImageMap> iconMap);
    const std::shared_ptr<const EXImageMap>& iconMap() const { return iconMap_; }

    /// Of the chosen item; null where there is none, as for unknown text.
    EXValue value() const;
    /// Shows the title of the item with the value, or nothing where the list has no such item.
    void setValue(const EXValue& value);
    const std::optional<platform::IndexPath>& selectedIndexPath() const { return selection_; }

    /// Whether text may stay that is no item's title. Not so at first.
    bool allowsUnknownText() const { return allowsUnknownText_; }
    void setAllowsUnknownText(bool allows) { allowsUnknownText_ = allows; }
    /// Takes the text over as if it had been typed and committed, but sends no action.
    void setText(const std::string& text);

    void sendAction() override;
    /// Nothing to show where there are no items.
    void showDateChooserOverlay() override;
    void textDidBeginEditing() override;
    void textDidChange(std::string text) override;
    bool takesKey(const views::KeyEvent& event) override;
    bool mouseDown(const views::MouseEvent& event) override;
    views::Cursor cursorAt(views::Point point) const override;
    views::Rect textRect() const override;
    views::Size preferredSizeThatFits(views::Size available) override;
    void draw(views::Canvas& canvas, const views::Rect& dirty) override;
    std::string toolTip() const override;

  protected:
    std::string_view debugClassName() const override { return "CVMacTextChoiceField"; }
    void commit(const std::string& text) override;
    std::shared_ptr<ChooserView> makeChooser() override;
    void showInChooser(ChooserView& chooser, std::string_view text) override;

  private:
    using Path = std::optional<platform::IndexPath>;

    Path pathFor(const std::string& text) const;
    views::Rect arrowRect() const;  ///< empty where there is no arrow
    void complete(const std::string& typed);
    void choose(const platform::IndexPath& path);
    void showSelection();

    std::shared_ptr<const EXChoiceList> choiceList_;
    std::shared_ptr<const EXImageMap> iconMap_;
    Path selection_;
    std::string committed_;  ///< what the text was when it last said what is chosen
    std::string typed_;      ///< the text without what is selected at its end, to be typed over
    bool allowsUnknownText_ = false;
};

}  // namespace corvane
