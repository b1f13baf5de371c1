#include "core/LocalTime.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <limits>
#include <stdexcept>

#include "tests/support/LocalZone.h"

namespace {

TEST(LocalTime, ComesBackAsItWent) {
    const LocalTime local = ToLocalTime(FromLocalTime(2024, 2, 29, 23, 59, 58));
    EXPECT_EQ(local.year * 10000 + local.month * 100 + local.day, 20240229);
    EXPECT_EQ(local.hour * 10000 + local.minute * 100 + local.second, 235958);
    EXPECT_EQ(local.weekday, 4);
    // Beyond 2038, where 32 bits end.
    EXPECT_EQ(FromLocalTime(2060, 7, 1, 12, 0, 0) - FromLocalTime(2020, 7, 1, 12, 0, 0), 14610 * 86400LL);

    using Limits = std::numeric_limits<std::int64_t>;
    for (const std::int64_t instant : {Limits::max(), Limits::min(), std::int64_t{300'000'000'000}}) {
        const LocalTime none = ToLocalTime(instant);
        EXPECT_EQ(none.hour + none.minute + none.second, -3);
        EXPECT_EQ(none.year + none.month + none.day + none.weekday, 0);
    }
}

TEST(LocalTime, ImpossibleDatesRaise) {
    const int cases[][6] = {
        {1899, 12, 31, 0, 0, 0}, {2024, 0, 1, 0, 0, 0},  {2024, 13, 1, 0, 0, 0}, {2024, 1, 0, 0, 0, 0},
        {2024, 1, 32, 0, 0, 0},  {2024, 1, 1, -1, 0, 0}, {2024, 1, 1, 24, 0, 0}, {2024, 1, 1, 0, -1, 0},
        {2024, 1, 1, 0, 60, 0},  {2024, 1, 1, 0, 0, -1}, {2024, 1, 1, 0, 0, 60},
#ifdef _WIN32  // what the system cannot convert
        {3002, 1, 1, 0, 0, 0},   {1900, 1, 1, 0, 0, 0},
#endif
    };
    for (const auto& [year, month, day, hour, minute, second] : cases) {
        EXPECT_THROW((void)FromLocalTime(year, month, day, hour, minute, second), std::invalid_argument);
    }
}

#ifdef _WIN32
TEST(LocalTime, ARefreshDropsTheVariableAndTakesTheSystemsZone) {
    const std::int64_t instant = FromLocalTime(2026, 6, 8, 12, 0, 0);
    ASSERT_EQ(_putenv("TZ=XYZ-13:30"), 0);
    _tzset();
    EXPECT_NE(ToLocalTime(instant).minute, 0);  // the variable counts
    RefreshTimeZone();
    EXPECT_EQ(ToLocalTime(instant).hour, 12);
    EXPECT_EQ(ToLocalTime(instant).minute, 0);
    EXPECT_EQ(std::getenv("TZ"), nullptr);
}
#else
TEST(LocalTime, TheSecondBefore1970IsAnInstant) {
    const CLocalZone zone("UTC");
    EXPECT_EQ(FromLocalTime(1969, 12, 31, 23, 59, 59), -1);
}
#endif

}  // namespace
