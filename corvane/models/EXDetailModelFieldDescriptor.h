// What one field of a form is: its type, its label, and which value of the edited object it shows.
// A record of identity, held by shared pointers; one thread, that of the model.
#pragma once

#include "corvane/models/EXValueFormatter.h"
#include "corvane/toolkit/EXValue.h"
#include "corvane/vocabulary/EXChoiceList.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace corvane {

class EXImageMap;

// Field types. Applications may have more of their own.
inline constexpr std::string_view EXDetailModelFieldTypeString = "EXDetailModelFieldTypeString";
inline constexpr std::string_view EXDetailModelFieldTypeText = "EXDetailModelFieldTypeText";
inline constexpr std::string_view EXDetailModelFieldTypeExtendedText =
    "EXDetailModelFieldTypeExtendedText";
inline constexpr std::string_view EXDetailModelFieldTypeBool = "EXDetailModelFieldTypeBool";
inline constexpr std::string_view EXDetailModelFieldTypeInteger = "EXDetailModelFieldTypeInteger";
inline constexpr std::string_view EXDetailModelFieldTypeDouble = "EXDetailModelFieldTypeDouble";
inline constexpr std::string_view EXDetailModelFieldTypeDateAndTime =
    "EXDetailModelFieldTypeDateAndTime";
inline constexpr std::string_view EXDetailModelFieldTypeDateOnly = "EXDetailModelFieldTypeDateOnly";
inline constexpr std::string_view EXDetailModelFieldTypeTimeOnly = "EXDetailModelFieldTypeTimeOnly";
inline constexpr std::string_view EXDetailModelFieldTypeChoice = "EXDetailModelFieldTypeChoice";

// Display hints, which combine as bits.
inline constexpr std::int64_t EXDetailModelFieldDisplayHintEditInline = 1;
inline constexpr std::int64_t EXDetailModelFieldDisplayHintInformative = 2;
inline constexpr std::int64_t EXDetailModelFieldDisplayHintUseSwitch = 4;

/// A field without a key shows no value of the object and cannot be edited.
class EXDetailModelFieldDescriptor {
  public:
    using Text = std::optional<std::string>;

    /// A type that is none makes a field of strings.
    explicit EXDetailModelFieldDescriptor(const Text& type = {}, Text title = {}, Text key = {});
    EXDetailModelFieldDescriptor(const EXDetailModelFieldDescriptor&) = delete;
    EXDetailModelFieldDescriptor& operator=(const EXDetailModelFieldDescriptor&) = delete;

    const std::string& type() const { return type_; }
    void setType(const Text& type);

    const Text& title() const { return title_; }  ///< the label
    void setTitle(Text title) { title_ = std::move(title); }

    const Text& key() const { return key_; }
    void setKey(Text key) { key_ = std::move(key); }

    const Text& placeholder() const { return placeholder_; }
    void setPlaceholder(Text placeholder) { placeholder_ = std::move(placeholder); }

    const EXValue& defaultValue() const { return defaultValue_; }  ///< null for none
    void setDefaultValue(EXValue value) { defaultValue_ = std::move(value); }

    const std::shared_ptr<const EXValueFormatter>& formatter() const { return formatter_; }
    void setFormatter(std::shared_ptr<const EXValueFormatter> formatter) {
        formatter_ = std::move(formatter);
    }

    /// 0 leaves it to the view.
    std::int64_t numberOfLines() const { return numberOfLines_; }
    void setNumberOfLines(std::int64_t lines) { numberOfLines_ = lines; }

    const std::shared_ptr<const EXChoiceList>& choiceList() const { return choiceList_; }
    void setChoiceList(std::shared_ptr<const EXChoiceList> list) { choiceList_ = std::move(list); }

    /// The pictures of the choices.
    const std::shared_ptr<const EXImageMap>& iconMap() const { return iconMap_; }
    void setIconMap(std::shared_ptr<const EXImageMap> map) { iconMap_ = std::move(map); }

    std::int64_t displayHints() const { return displayHints_; }
    void setDisplayHints(std::int64_t hints) { displayHints_ = hints; }

    bool isEditable() const { return editable_; }
    void setEditable(bool editable) { editable_ = editable; }

    /// Whether what is typed is hidden.
    bool isSecureTextEntry() const { return secureTextEntry_; }
    void setSecureTextEntry(bool secure) { secureTextEntry_ = secure; }

  private:
    std::string type_;
    Text title_;
    Text key_;
    Text placeholder_;
    EXValue defaultValue_;
    std::shared_ptr<const EXValueFormatter> formatter_;
    std::int64_t numberOfLines_ = 0;
    std::shared_ptr<const EXChoiceList> choiceList_;
    std::shared_ptr<const EXImageMap> iconMap_;
    std::int64_t displayHints_ = 0;
    bool editable_ = true;
    bool secureTextEntry_ = false;
};

}  // namespace corvane
