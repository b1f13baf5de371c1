#include <gtest/gtest.h>

#include <ctime>

#include "core/LocalTime.h"
#include "tests/support/TaskRules.h"

// How many local-time conversions a next run costs. The linker leads the calls through here (--wrap), so that
// the code under test is the code that ships.

// NOLINTBEGIN(cppcoreguidelines-avoid-non-const-global-variables, bugprone-reserved-identifier): for --wrap
namespace {
int localTimes = 0;
int instants = 0;
}  // namespace

extern "C" {
std::tm* __real_localtime_r(const std::time_t* instant, std::tm* local);
std::time_t __real_mktime(std::tm* local);
std::tm* __wrap_localtime_r(const std::time_t* instant, std::tm* local);
std::time_t __wrap_mktime(std::tm* local);

std::tm* __wrap_localtime_r(const std::time_t* instant, std::tm* local) {
    ++localTimes;
    return __real_localtime_r(instant, local);
}
std::time_t __wrap_mktime(std::tm* local) {
    ++instants;
    return __real_mktime(local);
}
}
// NOLINTEND(cppcoreguidelines-avoid-non-const-global-variables, bugprone-reserved-identifier)

TEST(ConversionCount, EachPathMakesOnlyTheConversionsItNeeds) {
    const auto june = [](int day, int hour) { return FromLocalTime(2026, 6, day, hour, 0, 0); };
    const std::int64_t start = june(1, 9);
    const std::int64_t last = june(8, 9);
    const std::int64_t now = june(8, 10);
    const std::int64_t noon = june(1, 12);
    const struct {
        const char* path = "";
        Rules rules;
        std::int64_t now = 0;
        int localTimes = 0;
        int instants = 0;
    } cases[] = {
        {"start ahead", {.start = june(9, 9), .last = last, .days = kDaily, .monthly = true}, now, 0, 0},
        {"one-off that has run", {.start = start, .last = last}, now, 0, 0},
        {"never run: now", {.start = start, .days = kDaily}, now, 1, 0},
        {"every: candidate, until", {.last = last, .isEvery = true, .until = noon}, now, 2, 0},
        {"every, over: the same", {.last = last, .isEvery = true, .until = june(1, 8)}, now, 2, 0},
        {"a flagged day: now", {.last = last, .days = kMon, .isEvery = true, .until = noon}, now, 3, 0},
        {"all days: not now", {.last = last, .days = kDaily, .isEvery = true, .until = noon}, now, 2, 0},
        {"another day: now, last, the day; midnight",
         {.last = last, .days = kMon, .isEvery = true},
         june(9, 10),
         3,
         1},
        {"weekday: last, start, the day; base", {.start = start, .last = last, .days = kMon}, now, 3, 1},
        {"monthly: last, start, two; base", {.start = start, .last = last, .monthly = true}, now, 4, 1},
        {"not the month's", {.start = start, .last = last, .days = kMon, .monthly = true}, now, 3, 1},
        {"both", {.start = start, .last = june(29, 9), .days = kSun, .monthly = true}, june(29, 10), 5, 2},
    };
    for (const auto& test : cases) {
        localTimes = instants = 0;
        (void)NextRun(test.rules, test.now);
        EXPECT_EQ(localTimes, test.localTimes) << test.path;
        EXPECT_EQ(instants, test.instants) << test.path;
    }
}
