#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

#include "core/LocalTime.h"
#include "tests/support/TaskRules.h"

// Whatever the zone: local times on days that no zone of today changes its clocks on.

namespace {

constexpr std::int64_t kBeyond = std::numeric_limits<std::int64_t>::max();

// Monday is 8 June 2026; 31 is 1 July.
std::int64_t At(int day, int hour, int minute = 0, int second = 0) {
    return FromLocalTime(2026, day > 30 ? 7 : 6, day > 30 ? day - 30 : day, hour, minute, second);
}

TEST(NextRun, FollowsTheRulesInTheirOrder) {
    const std::int64_t u18 = FromLocalTime(2020, 1, 31, 18, 0, 0);
    const std::int64_t u12 = At(8, 12, 0, 59);
    const auto nine = [](int year, int month, int day) { return FromLocalTime(year, month, day, 9, 0, 0); };
    struct Case {
        const char* what = "";
        Rules rules;  // start is 1 June 09:00 unless it says so
        std::int64_t next = 0;
        std::int64_t now = 0;  // a minute after the last run, unless it says so
    };
    const Case cases[] = {
        {"start in a second",
         {.start = At(8, 9, 0, 1), .last = At(1, 9), .days = kDaily},
         At(8, 9, 0, 1),
         At(8, 9)},
        {"start now", {.start = At(8, 9, 0, 30)}, At(8, 9), At(8, 9, 0, 30)},
        {"never run", {.days = kFri, .monthly = true}, At(8, 9, 17), At(8, 9, 17, 59)},
        {"one-off that has run", {.last = At(8, 9)}, 0},

        {"every: seconds go",
         {.last = At(8, 10, 0, 40), .isEvery = true, .every = 15, .until = u18},
         At(8, 10, 15)},
        {"hours", {.last = At(8, 10), .isEvery = true, .every = 2, .unit = 1, .until = u18}, At(8, 12)},
        {"other units",
         {.last = At(8, 10), .isEvery = true, .every = 2, .unit = -5, .until = u18},
         At(8, 10, 2)},
        {"in the until minute", {.last = At(8, 17, 59, 59), .isEvery = true, .until = u18}, At(8, 18)},
        {"past it for good", {.last = At(8, 17, 50), .isEvery = true, .unit = 1, .until = u18}, 0, At(20, 3)},
        {"over midnight", {.last = At(8, 23, 30), .isEvery = true, .unit = 1, .until = u18}, At(9, 0, 30)},
        {"in the past", {.last = At(8, 10), .isEvery = true, .until = u18}, At(8, 10, 1), At(20, 3)},
        {"every 0 is none", {.last = At(8, 9), .isEvery = true, .every = 0, .until = u18}, 0},
        {"nor -3", {.last = At(8, 9), .days = kMon, .isEvery = true, .every = -3, .until = u18}, At(15, 9)},
        {"beyond all calendars",
         {.last = At(8, 9), .isEvery = true, .every = std::numeric_limits<std::int32_t>::max(), .unit = 1},
         At(8, 9) + 2147483647LL * 3600 + 1},

        {"today flagged",
         {.last = At(8, 9), .days = kMon, .isEvery = true, .unit = 1, .until = u12},
         At(8, 10)},
        {"not", {.last = At(8, 9), .days = kMon, .isEvery = true, .until = u12}, At(15, 0), At(9, 9, 1)},
        {"all", {.last = At(8, 9), .days = kDaily, .isEvery = true, .until = u12}, At(8, 9, 1), At(9, 9, 1)},
        {"over", {.last = At(8, 11, 30), .days = kMon, .isEvery = true, .unit = 1, .until = u12}, At(15, 0)},

        {"Monday to Thursday", {.last = At(8, 9), .days = kMon | kThu}, At(11, 9)},
        {"back, late", {.last = At(11, 22, 41, 7), .days = kMon | kThu}, At(15, 9)},
        {"a week later", {.last = At(8, 9), .days = kMon}, At(15, 9)},
        {"missed", {.last = At(8, 9), .days = kTue}, At(9, 9), At(20, 3)},
        {"run on another day", {.last = At(10, 9), .days = kSun}, At(14, 9)},
        {"into the next month", {.last = At(28, 9), .days = kSat}, At(34, 9)},

        {"from the 31st",
         {.start = nine(2020, 1, 1), .last = nine(2024, 1, 31), .monthly = true},
         nine(2024, 2, 1)},
        {"from the 1st",
         {.start = nine(2020, 1, 1), .last = nine(2023, 2, 1), .monthly = true},
         nine(2023, 3, 1)},
        {"next year",
         {.start = nine(2020, 1, 1), .last = nine(2024, 12, 5), .monthly = true},
         nine(2025, 1, 1)},

        // 1 July is a Wednesday.
        {"weekday in the month", {.last = At(15, 9), .days = kWed, .monthly = true}, At(17, 9)},
        {"on its last", {.last = At(29, 9), .days = kTue, .monthly = true}, At(30, 9)},
        {"monthly is first", {.last = At(29, 9), .days = kThu, .monthly = true}, At(31, 9)},
        {"a tie", {.last = At(29, 9), .days = kWed, .monthly = true}, At(31, 9)},
        {"a window begins at midnight",
         {.last = At(29, 11, 30), .days = kWed, .monthly = true, .isEvery = true, .unit = 1, .until = u12},
         At(31, 0)},
        {"monthly after a window",
         {.last = At(29, 11, 30), .monthly = true, .isEvery = true, .unit = 1, .until = u12},
         At(31, 9)},
    };
    for (Case test : cases) {
        test.rules.start = test.rules.start != 0 ? test.rules.start : At(1, 9);
        EXPECT_EQ(NextRun(test.rules, test.now != 0 ? test.now : test.rules.last + 60), test.next)
            << test.what;
    }
}

TEST(NextRun, EachWeekdayHasItsFlagAndNumber) {
    const unsigned days[] = {kSun, kMon, kTue, kWed, kThu, kFri, kSat};
    for (int flagged = 1; flagged <= 7; ++flagged) {
        CSCVShchedulerTask task;
        SetRules(task, {.days = days[flagged - 1]});
        task.m_bRepeatOnSat *= -7;  // as a hand-edited list may have it
        for (int dayNumber = -1; dayNumber <= 9; ++dayNumber) {
            EXPECT_EQ(task.RepeatsOnWeekday(dayNumber), dayNumber == flagged ? 1 : 0) << dayNumber;
        }
        task.m_bRepeatOnMon = 1;
        EXPECT_EQ(task.HasWeekdayRepeat(), 1);
    }
    EXPECT_EQ(CSCVShchedulerTask().HasWeekdayRepeat(), 0);
}

TEST(NextRun, TimesThatNoCalendarHoldsRaiseOrCountAsTheyFall) {
    const std::int64_t now = At(8, 9, 0, 30);
    // No local time: its seconds read -1.
    EXPECT_EQ(NextRun({.start = -kBeyond}, kBeyond - 1), kBeyond);
    for (const Rules& rules : {Rules{.start = -kBeyond, .last = now, .days = kMon},
                               {.start = -kBeyond, .last = now, .monthly = true},
                               {.last = kBeyond, .days = kMon},
                               {.last = kBeyond, .isEvery = true}}) {
        EXPECT_THROW(NextRun(rules, now), std::invalid_argument);
    }
    EXPECT_THROW(NextRun({.start = -kBeyond}, kBeyond), std::invalid_argument);
    // A window's day begins at midnight whatever the start time.
    EXPECT_EQ(NextRun({.start = -kBeyond, .last = At(8, 9), .days = kTue, .isEvery = true}, now), At(9, 0));
    // A candidate without a local time is before any until time.
    EXPECT_EQ(NextRun({.last = kBeyond - 61, .isEvery = true, .until = kBeyond}, now), kBeyond);
}

}  // namespace
