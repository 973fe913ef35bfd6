// A circle on the globe that somebody may enter and leave. A value without behaviour.
#pragma once

#include <string>

namespace corvane::platform {

struct CircularRegion {
    std::string identifier;
    double latitude = 0;   ///< Of the centre, in degrees; north is positive.
    double longitude = 0;  ///< Of the centre, in degrees; east is positive.
    double radius = 0;     ///< In metres.
    bool notifyOnEntry = true;
    bool notifyOnExit = true;

    friend bool operator==(const CircularRegion&, const CircularRegion&) = default;
};

}  // namespace corvane::platform
