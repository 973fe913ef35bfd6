// The parameters of a URL's query by key. An immutable value; copies share the texts and may be
// used on several threads.
#pragma once

#include <memory>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace corvane {

/// Searched and gone through like a std::map, in the order of the keys' bytes. A key without a
/// value is there with none, which is not the empty text. The texts live as long as any copy of the
/// query that they were asked from.
class EXURLQuery {
  public:
    using Parameter = std::pair<std::string_view, std::optional<std::string_view>>;
    using const_iterator = std::vector<Parameter>::const_iterator;

    /// Without parameters.
    EXURLQuery() = default;

    /// Of equal keys the last one counts. REQUIRES: what is viewed lies in `texts`.
    EXURLQuery(std::shared_ptr<const char[]> texts, const std::vector<Parameter>& parameters);

    const_iterator begin() const { return parameters_.begin(); }
    const_iterator end() const { return parameters_.end(); }
    std::size_t size() const { return parameters_.size(); }
    bool empty() const { return parameters_.empty(); }

    /// end() where there is no such key.
    const_iterator find(std::string_view key) const;
    bool contains(std::string_view key) const { return find(key) != end(); }

    /// Throws std::out_of_range where there is no such key.
    const std::optional<std::string_view>& at(std::string_view key) const;

    friend bool operator==(const EXURLQuery& a, const EXURLQuery& b) {
        return a.parameters_ == b.parameters_;
    }

  private:
    std::shared_ptr<const char[]> texts_;
    std::vector<Parameter> parameters_;
};

}  // namespace corvane
