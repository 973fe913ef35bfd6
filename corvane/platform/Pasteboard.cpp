#include "corvane/platform/Pasteboard.h"

#include <algorithm>

namespace corvane::platform {

void PasteboardItem::setValue(std::string_view type, Value value) {
    const auto form = std::ranges::find(forms_, type, &std::pair<std::string, Value>::first);
    if (value.isNull()) {
        if (form != forms_.end()) forms_.erase(form);
    } else if (form != forms_.end()) {
        form->second = std::move(value);
    } else {
        forms_.emplace_back(type, std::move(value));
    }
}

const Value& PasteboardItem::valueForType(std::string_view type) const {
    static const Value kNothing;
    const auto form = std::ranges::find(forms_, type, &std::pair<std::string, Value>::first);
    return form != forms_.end() ? form->second : kNothing;
}

std::optional<std::string> PasteboardItem::textForType(std::string_view type) const {
    const auto text = valueForType(type).text();
    if (!text) return std::nullopt;
    return std::string(*text);
}

std::vector<std::string> PasteboardItem::types() const {
    std::vector<std::string> types;
    for (const auto& [type, value] : forms_)
        types.push_back(type);
    return types;
}

PasteboardItem PasteboardWriting::pasteboardItem() const {
    PasteboardItem item;
    for (const std::string& type : writableTypes())
        item.setValue(type, pasteboardValueForType(type));
    return item;
}

bool Pasteboard::hasType(std::string_view type) const {
    return std::ranges::any_of(items_, [&](const auto& item) { return item.hasType(type); });
}

std::vector<std::string> Pasteboard::textsForType(std::string_view type) const {
    std::vector<std::string> texts;
    for (const PasteboardItem& item : items_)
        if (auto text = item.textForType(type)) texts.push_back(*std::move(text));
    return texts;
}

}  // namespace corvane::platform
