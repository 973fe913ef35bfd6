// A control by which the user picks one of the items of a choice list. What is common to those that
// show the items as a menu, as segments or as rows. One thread, the window's.
#pragma once

#include "corvane/controls/ChoiceItems.h"
#include "corvane/platform/Image.h"
#include "corvane/platform/IndexPath.h"
#include "corvane/toolkit/EXValue.h"
#include "corvane/views/Control.h"
#include "corvane/vocabulary/EXChoiceList.h"
#include "corvane/vocabulary/EXImageMap.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace corvane {

/// Sends its action after the user has chosen another item than the one that was chosen; what the
/// program sets sends none. Made by std::make_shared.
class ChoiceControl : public views::Control {
  public:
    using ChoicePath = std::optional<platform::IndexPath>;

    using views::Control::Control;

    /// What can be chosen; null for nothing. Keeps the choice where the new list has its value. The
    /// items are read now, so set a list again that has got others.
    void setChoiceList(std::shared_ptr<const EXChoiceList> choiceList);
    const std::shared_ptr<const EXChoiceList>& choiceList() const { return choiceList_; }
    /// The pictures to which the items' icon numbers belong; null for no pictures.
    void setIconMap(std::shared_ptr<const EXImageMap> iconMap);
    const std::shared_ptr<const EXImageMap>& iconMap() const { return iconMap_; }

    /// What the chosen item stands for. Null where none is chosen, and for an item without value.
    EXValue value() const;
    /// Chooses the item with the value; none where the list has no such item. Set the list first.
    void setValue(const EXValue& value);
    const ChoicePath& selectedIndexPath() const { return selection_; }
    void setSelectedIndexPath(const ChoicePath& path);

    /// The title of the chosen item; empty where there is none.
    std::string selectedTitle() const;
    std::string accessibilityValue() const override { return selectedTitle(); }

  protected:
    struct Choice : ChoiceItem {
        /// None until it is asked for. One that cannot be loaded is not tried at every drawing.
        mutable std::optional<platform::ImagePtr> icon = {};
    };

    /// All items, section after section.
    const std::vector<Choice>& choices() const { return choices_; }
    /// Where the chosen item stands among them; -1 for none.
    std::int64_t selectedPosition() const;
    const Choice* selectedChoice() const;  ///< null for none
    platform::ImagePtr iconOf(const Choice& choice) const;

    /// As the user does it. Nothing while it is disabled, or for what is no item.
    void choose(const platform::IndexPath& path);
    void choosePosition(std::int64_t position);

    /// Other items, or other pictures.
    virtual void choicesDidChange() {}
    virtual void selectionDidChange() {}

  private:
    void select(const ChoicePath& path);

    std::shared_ptr<const EXChoiceList> choiceList_;
    std::shared_ptr<const EXImageMap> iconMap_;
    std::vector<Choice> choices_;
    ChoicePath selection_;
};

}  // namespace corvane
