// A place with an alert for whoever enters or leaves it; for reminders that depend on the place.
#pragma once

#include "corvane/platform/CircularRegion.h"

#include <cstdint>
#include <optional>
#include <string>

namespace corvane {

/// A regular value. Only circular regions can be made; the names of its getters leave room for
/// beacons.
///
///     HGLocation office("office", "Office", 52.52, 13.405, 150.0, 1);
///     office.alert()     // 1: on entry
///     office.radius()    // 150.0
class HGLocation {
  public:
    /// `latitude` and `longitude` in degrees, `radius` in metres; an absent one is 0.
    ///
    /// `alert`: 0 none, 1 on entry, 2 on exit, 3 both. Anything else is none too: only the four
    /// codes mean something.
    HGLocation(std::string identifier, std::optional<std::string> name,
               std::optional<double> latitude, std::optional<double> longitude,
               std::optional<double> radius, std::int16_t alert);

    /// The kind of region: 1, circular.
    std::int16_t type() const { return type_; }
    const std::optional<std::string>& name() const { return name_; }
    const platform::CircularRegion& region() const { return region_; }

    const std::string& identifierOrProximityUUID() const { return region_.identifier; }

    /// Absent for other kinds of regions.
    std::optional<double> latitudeOrMajor() const { return ofCircle(region_.latitude); }
    std::optional<double> longitudeOrMinor() const { return ofCircle(region_.longitude); }
    std::optional<double> radius() const { return ofCircle(region_.radius); }

    /// One of the four codes.
    std::int16_t alert() const;

    friend bool operator==(const HGLocation&, const HGLocation&) = default;

  private:
    static constexpr std::int16_t kCircular = 1;

    std::optional<double> ofCircle(double number) const {
        return type_ == kCircular ? std::optional(number) : std::nullopt;
    }

    std::int16_t type_ = kCircular;
    std::optional<std::string> name_;
    platform::CircularRegion region_;
};

}  // namespace corvane
