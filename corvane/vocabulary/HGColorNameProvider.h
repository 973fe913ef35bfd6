// The names by which colors find their images and styles. They are resource names, not titles. Any
// thread.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace corvane {

class HGColorNameProvider {
  public:
    HGColorNameProvider() = delete;

    /// In the order of the codes.
    static const std::vector<std::string>& allColorNames();

    /// Throws std::out_of_range for a code outside 0 to 7.
    static const std::string& nameForColor(std::int64_t code);
};

}  // namespace corvane
