#include <gtest/gtest.h>

#include <ctime>

#include "core/LocalTime.h"
#include "tests/support/TaskRules.h"

// How many local-time conversions a next run costs. The linker leads the calls through here (--wrap), so that
// the code under test is the code that ships.

namespace {

// NOLINTBEGIN(cppcoreguidelines-avoid-non-const-global-variables, bugprone-reserved-identifier): what --wrap
// asks for
int localTimes = 0;
int instants = 0;

}  // namespace

extern "C" {
std::tm* __real_localtime_r(const std::time_t* instant, std::tm* local);
std::time_t __real_mktime(std::tm* local);

std::tm* __wrap_localtime_r(const std::time_t* instant, std::tm* local);
std::tm* __wrap_localtime_r(const std::time_t* instant, std::tm* local) {
    ++localTimes;
    return __real_localtime_r(instant, local);
}

std::time_t __wrap_mktime(std::tm* local);
std::time_t __wrap_mktime(std::tm* local) {
    ++instants;
    return __real_mktime(local);
}
}
// NOLINTEND(cppcoreguidelines-avoid-non-const-global-variables, bugprone-reserved-identifier)

namespace {

TEST(ConversionCount, EachPathMakesOnlyTheConversionsItNeeds) {
    const auto june = [](int day, int hour) { return FromLocalTime(2026, 6, day, hour, 0, 0); };
    const std::int64_t start = june(1, 9);
    const std::int64_t last = june(8, 9);
    const std::int64_t noon = june(1, 12);
    const std::int64_t early = june(1, 8);
    struct Case {
        const char* path = "";
        Rules rules;
        std::int64_t now = 0;
        int localTimes = 0;
        int instants = 0;
    };
    const Case cases[] = {
        {"start ahead",
         {.start = june(9, 9), .last = last, .days = kDaily, .monthly = true},
         june(8, 10),
         0,
         0},
        {"one-off that has run", {.start = start, .last = last}, june(8, 10), 0, 0},
        {"never run: now", {.start = start, .days = kDaily}, june(8, 10), 1, 0},
        {"every: candidate, until", {.last = last, .isEvery = true, .until = noon}, june(8, 10), 2, 0},
        {"every, over: the same", {.last = last, .isEvery = true, .until = early}, june(8, 10), 2, 0},
        {"every on a flagged day: now too",
         {.last = last, .days = kMon, .isEvery = true, .until = noon},
         june(8, 10),
         3,
         0},
        {"every on all days: not now",
         {.last = last, .days = kDaily, .isEvery = true, .until = noon},
         june(8, 10),
         2,
         0},
        {"another day: now, last, the day found; midnight",
         {.last = last, .days = kMon, .isEvery = true, .until = noon},
         june(9, 10),
         3,
         1},
        {"weekday: last, start, the day found; base",
         {.start = start, .last = last, .days = kMon},
         june(8, 10),
         3,
         1},
        {"monthly: last, start, 32 days on, day 1; base",
         {.start = start, .last = last, .monthly = true},
         june(8, 10),
         4,
         1},
        {"weekday long before the month's end: not the month's",
         {.start = start, .last = last, .days = kMon, .monthly = true},
         june(8, 10),
         3,
         1},
        {"both: last, start, the day found, 32 days on, day 1; both bases",
         {.start = start, .last = june(29, 9), .days = kSun, .monthly = true},
         june(29, 10),
         5,
         2},
    };
    for (const Case& test : cases) {
        localTimes = instants = 0;
        (void)NextRun(test.rules, test.now);
        EXPECT_EQ(localTimes, test.localTimes) << test.path;
        EXPECT_EQ(instants, test.instants) << test.path;
    }
}

}  // namespace
