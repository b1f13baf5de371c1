#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

#include "core/LocalTime.h"
#include "tests/support/TaskRules.h"

// Whatever the zone: local times on days that no zone of today changes its clocks on.

namespace {

constexpr std::int64_t kBeyond = std::numeric_limits<std::int64_t>::max();

std::int64_t At(int year, int month, int day, int hour, int minute, int second = 0) {
    return FromLocalTime(year, month, day, hour, minute, second);
}

// June 2026: Monday is the 8th, the 15th and the 22nd.
std::int64_t June(int day, int hour, int minute, int second = 0) {
    return At(2026, 6, day, hour, minute, second);
}

TEST(NextRun, FollowsTheRulesInTheirOrder) {
    const std::int64_t start = June(1, 9, 0);
    const std::int64_t until18 = At(2020, 1, 31, 18, 0);
    const std::int64_t until12 = June(8, 12, 0, 59);
    struct Case {
        const char* what = "";
        Rules rules;
        std::int64_t now = 0;
        std::int64_t next = 0;
    };
    const Case cases[] = {
        // The first run.
        {"start in a second", {.start = June(8, 9, 0, 1)}, June(8, 9, 0), June(8, 9, 0, 1)},
        {"start in a second, run before",
         {.start = June(8, 9, 0, 1), .last = June(1, 9, 0), .days = kDaily},
         June(8, 9, 0),
         June(8, 9, 0, 1)},
        {"start now", {.start = June(8, 9, 0, 30)}, June(8, 9, 0, 30), June(8, 9, 0)},
        {"start yesterday, never run",
         {.start = June(7, 9, 0), .days = kFri, .monthly = true},
         June(8, 9, 17, 59),
         June(8, 9, 17)},
        {"one-off that has run", {.start = start, .last = start}, June(8, 9, 0), 0},

        // Every N.
        {"seconds are cleared",
         {.start = start, .last = June(8, 10, 0, 40), .isEvery = true, .every = 15, .until = until18},
         June(8, 10, 1),
         June(8, 10, 15)},
        {"hours",
         {.start = start, .last = June(8, 10, 0), .isEvery = true, .every = 2, .unit = 1, .until = until18},
         June(8, 10, 1),
         June(8, 12, 0)},
        {"any other unit is minutes",
         {.start = start, .last = June(8, 10, 0), .isEvery = true, .every = 2, .unit = -5, .until = until18},
         June(8, 10, 1),
         June(8, 10, 2)},
        {"in the until minute",
         {.start = start, .last = June(8, 17, 30, 59), .isEvery = true, .every = 30, .until = until18},
         June(8, 17, 31),
         June(8, 18, 0)},
        {"past the until minute",
         {.start = start, .last = June(8, 17, 50), .isEvery = true, .unit = 1, .until = until18},
         June(8, 17, 51),
         0},
        {"past it for good",
         {.start = start, .last = June(8, 17, 50), .isEvery = true, .unit = 1, .until = until18},
         June(20, 3, 0),
         0},
        {"crossed midnight",
         {.start = start, .last = June(8, 23, 30), .isEvery = true, .unit = 1, .until = until18},
         June(8, 23, 31),
         June(9, 0, 30)},
        {"a past candidate",
         {.start = start, .last = June(8, 10, 0), .isEvery = true, .every = 15, .until = until18},
         June(20, 3, 0),
         June(8, 10, 15)},
        {"every 0 is no rule",
         {.start = start, .last = June(8, 9, 0), .isEvery = true, .every = 0, .until = until18},
         June(8, 9, 1),
         0},
        {"every -3 leaves the start's time of day",
         {.start = start,
          .last = June(8, 9, 0),
          .days = kMon,
          .isEvery = true,
          .every = -3,
          .until = until18},
         June(8, 9, 1),
         June(15, 9, 0)},
        {"the largest number of hours lies beyond all calendars",
         {.start = start,
          .last = June(8, 9, 0),
          .isEvery = true,
          .every = std::numeric_limits<std::int32_t>::max(),
          .unit = 1},
         June(8, 9, 1),
         June(8, 9, 0) + 2147483647LL * 3600 + 1},

        // Every N on flagged days.
        {"today flagged",
         {.start = start, .last = June(8, 9, 0), .days = kMon, .isEvery = true, .unit = 1, .until = until12},
         June(8, 9, 1),
         June(8, 10, 0)},
        {"today not flagged",
         {.start = start, .last = June(8, 9, 0), .days = kMon, .isEvery = true, .unit = 1, .until = until12},
         June(9, 9, 1),
         June(15, 0, 0)},
        {"all days flagged",
         {.start = start,
          .last = June(8, 9, 0),
          .days = kDaily,
          .isEvery = true,
          .unit = 1,
          .until = until12},
         June(9, 9, 1),
         June(8, 10, 0)},
        {"window over, opens at midnight",
         {.start = start,
          .last = June(8, 11, 30),
          .days = kMon,
          .isEvery = true,
          .every = 2,
          .unit = 1,
          .until = until12},
         June(8, 11, 31),
         June(15, 0, 0)},

        // Weekdays.
        {"Monday to Thursday",
         {.start = start, .last = June(8, 9, 0), .days = kMon | kThu},
         June(8, 9, 1),
         June(11, 9, 0)},
        {"Thursday to Monday, late",
         {.start = start, .last = June(11, 22, 41, 7), .days = kMon | kThu},
         June(11, 22, 42),
         June(15, 9, 0)},
        {"a week later",
         {.start = start, .last = June(8, 9, 0), .days = kMon},
         June(8, 9, 1),
         June(15, 9, 0)},
        {"missed, and due since",
         {.start = start, .last = June(8, 9, 0), .days = kTue},
         June(20, 3, 0),
         June(9, 9, 0)},
        {"run on a day that is not flagged",
         {.start = start, .last = June(10, 9, 0), .days = kSun},
         June(10, 9, 1),
         June(14, 9, 0)},
        {"into the next month",
         {.start = start, .last = June(28, 9, 0), .days = kSat},
         June(28, 9, 1),
         At(2026, 7, 4, 9, 0)},

        // Monthly.
        {"from the 31st",
         {.start = At(2020, 1, 1, 8, 15), .last = At(2024, 1, 31, 8, 15), .monthly = true},
         At(2024, 1, 31, 9, 0),
         At(2024, 2, 1, 8, 15)},
        {"from the 1st",
         {.start = At(2020, 1, 1, 8, 15), .last = At(2023, 2, 1, 8, 15), .monthly = true},
         At(2023, 2, 1, 8, 15),
         At(2023, 3, 1, 8, 15)},
        {"into the next year",
         {.start = At(2020, 1, 1, 8, 15), .last = At(2024, 12, 5, 0, 0), .monthly = true},
         At(2024, 12, 5, 0, 0),
         At(2025, 1, 1, 8, 15)},

        // Monthly and weekdays: the earlier one. 1 July 2026 is a Wednesday.
        {"weekday in the same month",
         {.start = start, .last = June(15, 9, 0), .days = kWed, .monthly = true},
         June(15, 9, 1),
         June(17, 9, 0)},
        {"weekday on the last of the month",
         {.start = start, .last = June(29, 9, 0), .days = kTue, .monthly = true},
         June(29, 9, 1),
         June(30, 9, 0)},
        {"monthly before the weekday",
         {.start = start, .last = June(29, 9, 0), .days = kThu, .monthly = true},
         June(29, 9, 1),
         At(2026, 7, 1, 9, 0)},
        {"a tie",
         {.start = start, .last = June(29, 9, 0), .days = kWed, .monthly = true},
         June(29, 9, 1),
         At(2026, 7, 1, 9, 0)},
        {"a window from midnight is before the month's start time",
         {.start = start,
          .last = June(29, 11, 30),
          .days = kWed,
          .monthly = true,
          .isEvery = true,
          .unit = 1,
          .until = until12},
         June(29, 11, 31),
         At(2026, 7, 1, 0, 0)},
        {"monthly after a window without days",
         {.start = start,
          .last = June(29, 11, 30),
          .monthly = true,
          .isEvery = true,
          .unit = 1,
          .until = until12},
         June(29, 11, 31),
         At(2026, 7, 1, 9, 0)},
    };
    for (const Case& test : cases) {
        EXPECT_EQ(NextRun(test.rules, test.now), test.next) << test.what;
    }
}

TEST(NextRun, EachWeekdayHasItsFlagAndNumber) {
    const unsigned days[] = {kSun, kMon, kTue, kWed, kThu, kFri, kSat};
    for (int flagged = 1; flagged <= 7; ++flagged) {
        CSCVShchedulerTask task;
        EXPECT_EQ(task.HasWeekdayRepeat(), 0);
        SetRules(task, {.days = days[flagged - 1]});
        EXPECT_EQ(task.HasWeekdayRepeat(), 1);
        for (int dayNumber = -1; dayNumber <= 9; ++dayNumber) {
            EXPECT_EQ(task.RepeatsOnWeekday(dayNumber), dayNumber == flagged ? 1 : 0) << dayNumber;
        }
    }
    CSCVShchedulerTask task;
    task.m_bRepeatOnSat = -7;  // as a hand-edited list may have it
    EXPECT_EQ(task.RepeatsOnWeekday(7), 1);
}

TEST(NextRun, TimesThatNoCalendarHoldsRaiseOrCountAsTheyFall) {
    const std::int64_t now = June(8, 9, 0, 30);
    // No local time: its seconds read -1.
    EXPECT_EQ(NextRun({.start = -kBeyond}, kBeyond - 1), kBeyond);
    EXPECT_THROW(NextRun({.start = -kBeyond}, kBeyond), std::invalid_argument);
    EXPECT_THROW(NextRun({.start = -kBeyond, .last = now, .days = kMon}, now), std::invalid_argument);
    EXPECT_THROW(NextRun({.start = -kBeyond, .last = now, .monthly = true}, now), std::invalid_argument);
    EXPECT_THROW(NextRun({.start = 0, .last = kBeyond, .days = kMon}, now), std::invalid_argument);
    EXPECT_THROW(NextRun({.start = 0, .last = kBeyond, .isEvery = true}, now), std::invalid_argument);
    // A window's day begins at midnight whatever the start time.
    EXPECT_EQ(NextRun({.start = -kBeyond, .last = June(8, 9, 0), .days = kTue, .isEvery = true}, now),
              June(9, 0, 0));
    // A candidate without a local time is before any until time.
    EXPECT_EQ(NextRun({.last = kBeyond - 61, .isEvery = true, .until = kBeyond}, now), kBeyond);
}

}  // namespace
