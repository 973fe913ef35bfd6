#include "corvane/platform/TimeZone.h"

#include <cctz/civil_time.h>
#include <cctz/time_zone.h>

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace corvane::platform {

struct TimeZone::Rules {
    cctz::time_zone zone;
};

namespace {

// Safely beyond the years of an Instant and safely inside those cctz can count with.
constexpr std::int64_t kFarthestYear = 1'000'000;

// An identifier is looked up as a file name; this keeps it inside the zone directory.
bool isIdentifier(std::string_view id) {
    auto mayStand = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
               c == '_' || c == '+' || c == '-' || c == '/';
    };
    return !id.starts_with('/') && std::all_of(id.begin(), id.end(), mayStand);
}

Instant instantFromSeconds(std::chrono::sys_seconds seconds) {
    constexpr auto earliest = std::chrono::ceil<std::chrono::seconds>(Instant::min());
    constexpr auto latest = std::chrono::floor<std::chrono::seconds>(Instant::max());
    if (seconds < earliest) return Instant::min();
    if (seconds > latest) return Instant::max();
    return seconds;
}

const TimeZone*& zoneInForce() {
    static const TimeZone* zone = nullptr;
    return zone;
}

TimeZone requiredZone(std::string_view id) {
    auto zone = TimeZone::named(id);
    if (!zone) throw std::invalid_argument("no such time zone: " + std::string(id));
    return *std::move(zone);
}

}  // namespace

TimeZone::TimeZone() {
    static const auto utc = std::make_shared<const Rules>();
    rules_ = utc;
}

const TimeZone& TimeZone::current() {
    if (const TimeZone* zone = zoneInForce()) return *zone;
    static const TimeZone local(std::make_shared<const Rules>(Rules{cctz::local_time_zone()}));
    return local;
}

std::optional<TimeZone> TimeZone::named(std::string_view id) {
    cctz::time_zone zone;
    if (!isIdentifier(id) || !cctz::load_time_zone(std::string(id), &zone)) return std::nullopt;
    return TimeZone(std::make_shared<const Rules>(Rules{zone}));
}

std::string TimeZone::name() const {
    return rules_->zone.name();
}

CivilTime TimeZone::civilFromInstant(Instant instant) const {
    auto seconds = std::chrono::floor<std::chrono::seconds>(instant);
    cctz::civil_second civil = rules_->zone.lookup(seconds).cs;
    return {civil.year(), civil.month(), civil.day(), civil.hour(), civil.minute(), civil.second()};
}

Instant TimeZone::instantFromCivil(const CivilTime& civil, RepeatedTime repeated) const {
    if (civil.year > kFarthestYear) return Instant::max();
    if (civil.year < -kFarthestYear) return Instant::min();
    cctz::civil_second second(civil.year, civil.month, civil.day, civil.hour, civil.minute,
                              civil.second);
    auto found = rules_->zone.lookup(second);
    if (found.kind == cctz::time_zone::civil_lookup::SKIPPED) {
        return instantFromSeconds(found.trans);
    }
    return instantFromSeconds(repeated == RepeatedTime::First ? found.pre : found.post);
}

bool TimeZone::isEqual(const TimeZone& other) const {
    return rules_ == other.rules_ || rules_->zone == other.rules_->zone;
}

ScopedTimeZone::ScopedTimeZone(TimeZone zone)
    : zone_(std::move(zone)), previous_(std::exchange(zoneInForce(), &zone_)) {}

ScopedTimeZone::ScopedTimeZone(std::string_view id) : ScopedTimeZone(requiredZone(id)) {}

ScopedTimeZone::~ScopedTimeZone() {
    zoneInForce() = previous_;
}

}  // namespace corvane::platform
