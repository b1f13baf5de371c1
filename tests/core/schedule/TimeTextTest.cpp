#include "core/schedule/TimeText.h"

#include <gtest/gtest.h>

#include "core/platform/LocalTime.h"

TEST(TimeText, OnlyWhatACalendarHoldsIsRead) {
    const std::int64_t noon = FromLocalTime(2024, 2, 29, 12, 5, 0);
    EXPECT_EQ(ParseTime("2024-02-29T12:05"), noon);
    EXPECT_EQ(ParseTime("2024-02-29 12:05:07"), noon + 7);
    EXPECT_EQ(ParseTime("2024-02-29"), FromLocalTime(2024, 2, 29, 0, 0, 0)) << "midnight";
    EXPECT_EQ(ParseTime("1711850400"), 1711850400);
    EXPECT_EQ(ParseTimeOfDay("18:05"), 18 * 60 + 5);
    for (const char* text :
         {"", "T", "2024-02-30T10:00", "2023-02-29T10:00", "2024-13-01T00:00", "2024-01-01T24:00",
          "2024-1-1T10:00", "2024-01-01T10:00Z", "+2024-01-1T10:00", "99999999999999999999", "12abc", " 5"}) {
        EXPECT_FALSE(ParseTime(text)) << text;
    }
    for (const char* text : {"", "1805", "24:00", "12:60", "1:05", "12:5", "-1:05", "12:05:00"}) {
        EXPECT_FALSE(ParseTimeOfDay(text)) << text;
    }
    EXPECT_EQ(FormatMinute(0), L"-");
    constexpr std::int64_t kBeyondAnyCalendar = std::int64_t{1} << 60;
    EXPECT_EQ(FormatMinute(kBeyondAnyCalendar), std::to_wstring(kBeyondAnyCalendar));
}
