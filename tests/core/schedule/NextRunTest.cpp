#include <gtest/gtest.h>

#include <stdexcept>

#include "core/platform/LocalTime.h"
#include "tests/support/TaskRules.h"

// Whatever the zone: local times on days that no zone of today changes its clocks on. Times that no calendar
// holds throw.

namespace {

// Monday is 8 June 2026; 31 is 1 July, a Wednesday.
std::int64_t At(int day, int hour, int minute = 0, int second = 0) {
    return FromLocalTime(2026, day > 30 ? 7 : 6, day > 30 ? day - 30 : day, hour, minute, second);
}

std::int64_t Until18() {
    return FromLocalTime(2020, 1, 31, 18, 0, 0);
}
std::int64_t Until12() {
    return At(8, 12, 0, 59);
}

struct Case {
    const char* label = "";
    Rules rules;  // start is 1 June 09:00 unless it says so
    std::int64_t next = 0;
    std::int64_t now = 0;  // a minute after the last run, unless it says so
};

void ExpectNextRuns(std::initializer_list<Case> cases) {
    for (Case test : cases) {
        test.rules.start = test.rules.start != 0 ? test.rules.start : At(1, 9);
        EXPECT_EQ(NextRun(test.rules, test.now != 0 ? test.now : test.rules.last + 60), test.next)
            << test.label;
    }
}

TEST(NextRun, OnceAndEvery) {
    ExpectNextRuns({
        {"ahead", {.start = At(8, 9, 0, 1), .last = At(1, 9), .days = kDaily}, At(8, 9, 0, 1), At(8, 9)},
        {"never run", {.days = kFri, .monthly = true}, At(8, 9, 17), At(8, 9, 17, 59)},
        {"one-off that has run", {.last = At(8, 9)}, 0},
        {"seconds go",
         {.last = At(8, 10, 0, 40), .isEvery = true, .every = 15, .until = Until18()},
         At(8, 10, 15)},
        {"odd unit",
         {.last = At(8, 10), .isEvery = true, .every = 2, .unit = -5, .until = Until18()},
         At(8, 10, 2)},
        {"in the until minute", {.last = At(8, 17, 59, 59), .isEvery = true, .until = Until18()}, At(8, 18)},
        {"past it for good",
         {.last = At(8, 17, 50), .isEvery = true, .unit = 1, .until = Until18()},
         0,
         At(20, 3)},
        {"over midnight",
         {.last = At(8, 23, 30), .isEvery = true, .unit = 1, .until = Until18()},
         At(9, 0, 30)},
        {"in the past", {.last = At(8, 10), .isEvery = true, .until = Until18()}, At(8, 10, 1), At(20, 3)},
    });
    EXPECT_THROW(NextRun({.last = INT64_MAX, .isEvery = true}, At(8, 9)), std::invalid_argument);
}

TEST(NextRun, DaysAndMonths) {
    const auto nine = [](int year, int month, int day) { return FromLocalTime(year, month, day, 9, 0, 0); };
    ExpectNextRuns({
        {"every -3 is none",
         {.last = At(8, 9), .days = kMon, .isEvery = true, .every = -3, .until = Until18()},
         At(15, 9)},
        {"not flagged",
         {.last = At(8, 9), .days = kMon, .isEvery = true, .until = Until12()},
         At(15, 0),
         At(9, 9)},
        {"all",
         {.last = At(8, 9), .days = kDaily, .isEvery = true, .until = Until12()},
         At(8, 9, 1),
         At(9, 9, 1)},
        {"over",
         {.last = At(8, 11, 30), .days = kMon, .isEvery = true, .unit = 1, .until = Until12()},
         At(15, 0)},
        {"back, late", {.last = At(11, 22, 41, 7), .days = kMon | kThu}, At(15, 9)},
        {"missed", {.last = At(8, 9), .days = kTue}, At(9, 9), At(20, 3)},
        {"31st", {.start = nine(2020, 1, 1), .last = nine(2024, 1, 31), .monthly = true}, nine(2024, 2, 1)},
        {"new year",
         {.start = nine(2020, 1, 1), .last = nine(2024, 12, 5), .monthly = true},
         nine(2025, 1, 1)},
        {"monthly is first", {.last = At(29, 9), .days = kThu, .monthly = true}, At(31, 9)},
        {"a window begins at midnight",
         {.last = At(29, 11, 30),
          .days = kWed,
          .monthly = true,
          .isEvery = true,
          .unit = 1,
          .until = Until12()},
         At(31, 0)},
    });
    EXPECT_THROW(NextRun({.start = INT64_MIN, .last = At(8, 9), .days = kMon}, At(8, 9)),
                 std::invalid_argument);
}

}  // namespace
