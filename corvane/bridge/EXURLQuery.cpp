#include "corvane/bridge/EXURLQuery.h"

#include <algorithm>
#include <cstdint>
#include <stdexcept>
#include <string>

namespace corvane {

namespace {

/// Where a parameter stands, with the front of its key as a number that orders as its bytes do.
struct Rank {
    std::uint64_t keyFront;
    std::size_t index;
};

std::uint64_t frontOf(std::string_view key) {
    std::uint64_t front = 0;
    for (std::size_t i = 0; i < sizeof front; ++i)
        front = front << 8 | (i < key.size() ? static_cast<unsigned char>(key[i]) : 0U);
    return front;
}

}  // namespace

EXURLQuery::EXURLQuery(std::shared_ptr<const char[]> texts,
                       const std::vector<Parameter>& parameters)
    : texts_(std::move(texts)) {
    std::vector<Rank> ranks(parameters.size());
    for (std::size_t i = 0; i < ranks.size(); ++i)
        ranks[i] = {frontOf(parameters[i].first), i};
    std::sort(ranks.begin(), ranks.end(), [&](const Rank& a, const Rank& b) {
        if (a.keyFront != b.keyFront) return a.keyFront < b.keyFront;
        const int order = parameters[a.index].first.compare(parameters[b.index].first);
        return order != 0 ? order < 0 : a.index < b.index;
    });
    parameters_.reserve(ranks.size());
    for (const Rank& rank : ranks) {
        const auto& parameter = parameters[rank.index];
        const bool isRepeated = !empty() && parameters_.back().first == parameter.first;
        if (isRepeated)
            parameters_.back() = parameter;
        else
            parameters_.push_back(parameter);
    }
}

EXURLQuery::const_iterator EXURLQuery::find(std::string_view key) const {
    const auto found = std::lower_bound(
        begin(), end(), key,
        [](const Parameter& each, std::string_view wanted) { return each.first < wanted; });
    return found != end() && found->first == key ? found : end();
}

const std::optional<std::string_view>& EXURLQuery::at(std::string_view key) const {
    const auto found = find(key);
    if (found == end()) throw std::out_of_range("no parameter '" + std::string(key) + "'");
    return found->second;
}

}  // namespace corvane
