#include "corvane/dates/WordTable.h"

#include <functional>
#include <utility>

namespace corvane {

std::size_t WordTable::placeOf(std::string_view word, std::size_t hash) const {
    const std::size_t mask = entries_.size() - 1;
    std::size_t place = hash & mask;
    for (; entries_[place].value; place = (place + 1) & mask)
        if (entries_[place].hash == hash && entries_[place].word == word) break;
    return place;
}

void WordTable::add(std::string_view word, int value) {
    const auto hash = std::hash<std::string_view>()(word);
    auto& entry = entries_[placeOf(word, hash)];
    if (entry.value) return;
    entry = {hash, value, std::string(word)};
    if (++count_ * 2 > entries_.size()) grow();
}

std::optional<int> WordTable::find(std::string_view word) const {
    return entries_[placeOf(word, std::hash<std::string_view>()(word))].value;
}

void WordTable::grow() {
    const auto former = std::exchange(entries_, std::vector<Entry>(2 * entries_.size()));
    for (const auto& entry : former)
        if (entry.value) entries_[placeOf(entry.word, entry.hash)] = entry;
}

}  // namespace corvane
