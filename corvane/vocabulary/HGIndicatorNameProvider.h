// The names by which category indicators and task states find their images and styles. They are
// resource names, not titles. Any thread.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace corvane {

class HGIndicatorNameProvider {
  public:
    HGIndicatorNameProvider() = delete;

    /// In the order of the codes.
    static const std::vector<std::string>& allCategoryIndicatorNames();
    static const std::vector<std::string>& allTaskStatusIndicatorNames();

    /// Throw std::out_of_range for a code outside 0 to 44, or 0 to 8.
    static const std::string& nameForCategoryIndicator(std::int64_t code);
    static const std::string& nameForTaskStatusIndicator(std::int64_t code);
};

}  // namespace corvane
