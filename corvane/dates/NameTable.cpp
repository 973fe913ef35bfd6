#include "corvane/dates/NameTable.h"

#include <algorithm>

namespace corvane {

void NameTable::Prefixes::add(Prefix prefix) {
    if (count_ == items_.size()) {
        std::move(items_.begin() + 1, items_.end(), items_.begin());
        --count_;
    }
    items_[count_++] = prefix;
}

std::uint32_t NameTable::childOf(std::uint32_t node, char byte) const {
    auto child = nodes_[node].firstChild;
    while (child != 0 && nodes_[child].byte != byte)
        child = nodes_[child].nextSibling;
    return child;
}

void NameTable::add(std::string_view name, int value) {
    if (name.empty()) return;
    std::uint32_t node = 0;
    for (char byte : name) {
        auto child = childOf(node, byte);
        if (child == 0) {
            child = static_cast<std::uint32_t>(nodes_.size());
            nodes_.push_back({.nextSibling = nodes_[node].firstChild, .byte = byte});
            nodes_[node].firstChild = child;
        }
        node = child;
    }
    if (nodes_[node].value < 0) nodes_[node].value = value;
}

std::optional<int> NameTable::find(std::string_view text) const {
    std::uint32_t node = 0;
    for (char byte : text) {
        node = childOf(node, byte);
        if (node == 0) return std::nullopt;
    }
    return nodes_[node].value < 0 ? std::nullopt : std::optional<int>(nodes_[node].value);
}

NameTable::Prefixes NameTable::prefixesOf(std::string_view text) const {
    Prefixes result;
    std::uint32_t node = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        node = childOf(node, text[i]);
        if (node == 0) break;
        if (nodes_[node].value >= 0) result.add({i + 1, nodes_[node].value});
    }
    return result;
}

}  // namespace corvane
