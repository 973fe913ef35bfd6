// Names with the numbers they stand for, to be found at the front of a text. Texts and names are
// compared by their bytes. Filled on one thread, then read on any.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace corvane {

/// A regular value.
class NameTable {
  public:
    struct Prefix {
        std::size_t length = 0;
        int value = 0;
    };

    /// The names that one text begins with, the shortest first. Of more than it has room for, it
    /// holds the longest.
    class Prefixes {
      public:
        void add(Prefix prefix);
        std::span<const Prefix> items() const { return {items_.data(), count_}; }

      private:
        std::array<Prefix, 6> items_;
        std::size_t count_ = 0;
    };

    /// A name that is already here keeps its value; an empty one is passed over. REQUIRES: the
    /// value is not negative.
    void add(std::string_view name, int value);

    bool isEmpty() const { return nodes_.size() == 1; }

    /// The value of the name that is the whole text.
    std::optional<int> find(std::string_view text) const;

    ///     // with "ma" for 1 and "may" for 5
    ///     prefixesOf("mayor")   // {2, 1}, {3, 5}
    Prefixes prefixesOf(std::string_view text) const;

  private:
    /// A tree of the names' bytes: each node's children are a chain.
    struct Node {
        std::uint32_t firstChild = 0;
        std::uint32_t nextSibling = 0;
        std::int32_t value = -1;
        char byte = 0;
    };

    std::uint32_t childOf(std::uint32_t node, char byte) const;

    std::vector<Node> nodes_{Node{}};
};

}  // namespace corvane
