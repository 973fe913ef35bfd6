// Words with the numbers they stand for, to be found by a whole text. Words and texts are compared
// by their bytes. Filled on one thread, then read on any.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// A regular value. For the few words of one locale: finding one, or that there is none, costs a
/// look or two, where the standard maps search a handful of words one by one.
class WordTable {
  public:
    /// A word that is already here keeps its value.
    void add(std::string_view word, int value);

    std::optional<int> find(std::string_view word) const;

  private:
    struct Entry {
        std::size_t hash = 0;
        std::optional<int> value;  ///< None in a free place.
        std::string word;
    };

    /// Where the word is or, if it is not, belongs. REQUIRES: a free place.
    std::size_t placeOf(std::string_view word, std::size_t hash) const;
    void grow();

    std::size_t count_ = 0;
    std::vector<Entry> entries_ = std::vector<Entry>(64);  ///< A power of two, half of them free.
};

}  // namespace corvane
