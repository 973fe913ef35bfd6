// How letters look. A value; which family it is, is the matter of whoever draws.
#pragma once

namespace corvane::views {

struct Font {
    float size = 13;  ///< in points
    bool bold = false;
    bool italic = false;

    friend constexpr bool operator==(const Font&, const Font&) = default;
};

}  // namespace corvane::views
