#include "core/LocalTime.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <limits>
#include <stdexcept>

namespace {

TEST(LocalTime, ComesBackAsItWent) {
    const std::int64_t instant = FromLocalTime(2024, 2, 29, 23, 59, 58);
    const LocalTime local = ToLocalTime(instant);
    EXPECT_EQ(local.year, 2024);
    EXPECT_EQ(local.month, 2);
    EXPECT_EQ(local.day, 29);
    EXPECT_EQ(local.weekday, 4);
    EXPECT_EQ(local.hour, 23);
    EXPECT_EQ(local.minute, 59);
    EXPECT_EQ(local.second, 58);
    // Beyond 2038, where 32 bits end.
    EXPECT_EQ(FromLocalTime(2060, 7, 1, 12, 0, 0) - FromLocalTime(2020, 7, 1, 12, 0, 0), 14610 * 86400LL);
}

TEST(LocalTime, ImpossibleDatesRaise) {
    const int cases[][6] = {{1899, 12, 31, 0, 0, 0}, {2024, 0, 1, 0, 0, 0},  {2024, 13, 1, 0, 0, 0},
                            {2024, 1, 0, 0, 0, 0},   {2024, 1, 32, 0, 0, 0}, {2024, 1, 1, -1, 0, 0},
                            {2024, 1, 1, 24, 0, 0},  {2024, 1, 1, 0, -1, 0}, {2024, 1, 1, 0, 60, 0},
                            {2024, 1, 1, 0, 0, -1},  {2024, 1, 1, 0, 0, 60}};
    for (const auto& date : cases) {
        EXPECT_THROW((void)FromLocalTime(date[0], date[1], date[2], date[3], date[4], date[5]),
                     std::invalid_argument);
    }
}

TEST(LocalTime, AnInstantWithoutLocalTimeHasNoTimeOfDay) {
    for (const std::int64_t instant :
         {std::numeric_limits<std::int64_t>::max(), std::numeric_limits<std::int64_t>::min(),
          std::int64_t{300'000'000'000}}) {
        const LocalTime local = ToLocalTime(instant);
        EXPECT_EQ(local.hour, -1);
        EXPECT_EQ(local.minute, -1);
        EXPECT_EQ(local.second, -1);
        EXPECT_EQ(local.year + local.month + local.day + local.weekday, 0);
    }
}

#ifdef _WIN32
TEST(LocalTime, ADateThatTheSystemCannotConvertRaises) {
    EXPECT_THROW((void)FromLocalTime(3002, 1, 1, 0, 0, 0), std::invalid_argument);
    EXPECT_THROW((void)FromLocalTime(1900, 1, 1, 0, 0, 0), std::invalid_argument);
}

TEST(LocalTime, ARefreshDropsTheVariableAndTakesTheSystemsZone) {
    const std::int64_t instant = FromLocalTime(2026, 6, 8, 12, 0, 0);
    const int hour = ToLocalTime(instant).hour;
    ASSERT_EQ(_putenv("TZ=XYZ-13:30"), 0);
    _tzset();
    EXPECT_NE(ToLocalTime(instant).minute, 0);  // the variable counts
    RefreshTimeZone();
    EXPECT_EQ(ToLocalTime(instant).hour, hour);
    EXPECT_EQ(ToLocalTime(instant).minute, 0);
    EXPECT_EQ(std::getenv("TZ"), nullptr);
}
#else
TEST(LocalTime, TheSecondBefore1970IsAnInstant) {
    ASSERT_EQ(setenv("TZ", "UTC", 1), 0);
    RefreshTimeZone();
    EXPECT_EQ(FromLocalTime(1969, 12, 31, 23, 59, 59), -1);
    unsetenv("TZ");
    RefreshTimeZone();
}
#endif

}  // namespace
