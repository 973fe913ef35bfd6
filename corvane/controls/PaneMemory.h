// The sizes of panes as the user's settings keep them.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace corvane {

struct RememberedPane {
    double size = 0;  ///< at least 0, and finite
    bool collapsed = false;
};

void rememberPanes(const std::string& name, const std::vector<RememberedPane>& panes);

/// None where nothing is kept under the name, or it is damaged or not of that many panes.
std::optional<std::vector<RememberedPane>> rememberedPanes(const std::string& name,
                                                           std::size_t count);

}  // namespace corvane
