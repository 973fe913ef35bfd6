#include "corvane/preferences/EXPreferenceKeyCombo.h"

namespace corvane {

EXValue EXPreferenceKeyCombo::toUserDefaultsDictionary(
    const std::optional<EXPreferenceKeyCombo>& combo) {
    if (!combo) return {};
    return platform::ValueMap{{{EXPreferenceKeyComboCodeKey, combo->code_},
                               {EXPreferenceKeyComboModifiersKey, combo->modifiers_}}};
}

std::optional<EXPreferenceKeyCombo> EXPreferenceKeyCombo::fromUserDefaultsDictionary(
    const EXValue& dictionary) {
    if (!dictionary.map()) return std::nullopt;
    const EXValue* code = dictionary.find(EXPreferenceKeyComboCodeKey);
    const EXValue* modifiers = dictionary.find(EXPreferenceKeyComboModifiersKey);
    return EXPreferenceKeyCombo(code ? code->integerValue() : 0,
                                modifiers ? modifiers->unsignedValue() : 0);
}

}  // namespace corvane
