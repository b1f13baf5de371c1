#include "core/platform/LocalTime.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <stdexcept>
#include <vector>

#include "core/schedule/ClockChanges.h"

TEST(LocalTime, ConvertsThereAndBack) {
    const LocalTime local = ToLocalTime(FromLocalTime(2060, 2, 29, 23, 59, 58));
    EXPECT_EQ((std::vector<int>{local.year, local.month, local.day, local.weekday, local.hour, local.minute,
                                local.second}),
              (std::vector<int>{2060, 2, 29, 0, 23, 59, 58}));
    EXPECT_EQ(ToLocalTime(INT64_MIN).hour, -1) << "no local time";
    EXPECT_EQ(ToLocalTime(300'000'000'000).hour, -1) << "no local time";
    EXPECT_TRUE(ClockChangesOfYear(300'000'000'000).empty());
    EXPECT_THROW((void)FromLocalTime(1899, 12, 31, 0, 0, 0), std::invalid_argument);
    EXPECT_THROW((void)FromLocalTime(2024, 13, 1, 0, 0, 0), std::invalid_argument);
    EXPECT_THROW((void)FromLocalTime(2024, 1, 1, 24, 0, 0), std::invalid_argument);
#ifdef _WIN32
    EXPECT_THROW((void)FromLocalTime(3002, 1, 1, 0, 0, 0), std::invalid_argument) << "for the system";
    const std::int64_t noon = FromLocalTime(2026, 6, 8, 12, 0, 0);
    ASSERT_EQ(_putenv("TZ=XYZ-13:30"), 0);
    _tzset();
    EXPECT_NE(ToLocalTime(noon).minute, 0) << "the variable counts";
    RefreshTimeZone();
    EXPECT_EQ(ToLocalTime(noon).hour * 100 + ToLocalTime(noon).minute, 1200) << "the system's zone";
    EXPECT_EQ(std::getenv("TZ"), nullptr);
#endif
}
