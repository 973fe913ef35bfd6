#include "corvane/bridge/HGLocation.h"

#include <utility>

namespace corvane {

namespace {

constexpr std::int16_t kOnEntry = 1;
constexpr std::int16_t kOnExit = 2;
constexpr std::int16_t kOnBoth = kOnEntry | kOnExit;

}  // namespace

HGLocation::HGLocation(std::string identifier, std::optional<std::string> name,
                       std::optional<double> latitude, std::optional<double> longitude,
                       std::optional<double> radius, std::int16_t alert)
    : name_(std::move(name)),
      region_{std::move(identifier), latitude.value_or(0),         longitude.value_or(0),
              radius.value_or(0),    (alert | kOnExit) == kOnBoth, (alert | kOnEntry) == kOnBoth} {}

std::int16_t HGLocation::alert() const {
    return static_cast<std::int16_t>((region_.notifyOnEntry ? kOnEntry : 0) |
                                     (region_.notifyOnExit ? kOnExit : 0));
}

}  // namespace corvane
