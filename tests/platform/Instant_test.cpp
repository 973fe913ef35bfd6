#include "corvane/platform/Instant.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace corvane::platform {
namespace {

using namespace std::chrono_literals;

TEST(Instant, CountsSecondsFromTheReferenceDate) {
    EXPECT_EQ(secondsSinceReferenceDate(kReferenceDate), 0);
    EXPECT_EQ(secondsSinceReferenceDate(Instant()), -978'307'200);
    EXPECT_EQ(secondsSinceReferenceDate(kReferenceDate + 1500ms), 1.5);
    EXPECT_EQ(instantFromReferenceSeconds(-0.25), kReferenceDate - 250ms);
    EXPECT_EQ(instantFromReferenceSeconds(1.9999999), kReferenceDate + 2s);
}

TEST(Instant, MicrosecondsSurviveTheRoundTrip) {
    // A double keeps microseconds within some 140 years of the reference date.
    for (auto years : {0, 1, 24, 50, 140}) {
        for (auto fraction : {0us, 1us, 333'333us, 999'999us}) {
            for (auto sign : {-1, 1}) {
                Instant instant = kReferenceDate + sign * (std::chrono::years{years} + fraction);
                EXPECT_EQ(instantFromReferenceSeconds(secondsSinceReferenceDate(instant)), instant)
                    << years << " years and " << fraction.count();
            }
        }
    }
}

TEST(Instant, NumbersBeyondItsRangeAreNone) {
    using Limits = std::numeric_limits<double>;
    for (double seconds : {Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity(), 9.3e12,
                           -9.3e12, Limits::max()}) {
        EXPECT_EQ(instantFromReferenceSeconds(seconds), std::nullopt) << seconds;
    }
    for (double seconds : {9.19e12, -9.19e12}) {
        auto instant = instantFromReferenceSeconds(seconds);
        ASSERT_TRUE(instant);
        EXPECT_DOUBLE_EQ(secondsSinceReferenceDate(*instant), seconds);
    }
}

}  // namespace
}  // namespace corvane::platform
