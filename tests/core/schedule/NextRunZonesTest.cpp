#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <vector>

#include "core/platform/LocalTime.h"
#include "tests/support/LocalZone.h"
#include "tests/support/TaskRules.h"

// The calendar rules where clocks change. Natively each zone is set in turn; Windows cannot switch zones
// within a process, so there the program is started once per zone, which SCV_TEST_ZONE names
// (cmake/ScvTests.cmake, which leaves out those that Wine has wrong).

namespace {

using namespace std::chrono;

struct Zone {
    std::string_view name;
    int july;  // what the clock shows on 1 July 2026 at noon UTC
};
constexpr Zone kZones[] = {{"UTC", 1200},           {"Asia/Kolkata", 1730},        {"Asia/Kathmandu", 1745},
                           {"Europe/Berlin", 1400}, {"Europe/London", 1300},       {"America/New_York", 800},
                           {"America/Havana", 800}, {"America/St_Johns", 930},     {"Australia/Sydney", 2200},
                           {"Pacific/Chatham", 45}, {"Australia/Lord_Howe", 2230}, {"America/Nuuk", 1100},
                           {"Pacific/Apia", 100}};

std::vector<Zone> ZonesToTest() {
    const char* const only = std::getenv("SCV_TEST_ZONE");
    std::vector<Zone> zones(std::begin(kZones), std::end(kZones));
    std::erase_if(zones, [&](const Zone& zone) { return only != nullptr && only != zone.name; });
    return zones;
}

// The instant of "2026-03-29 01:59 +1": the clock on the wall and its hours from UTC.
std::int64_t At(const char* text) {
    int f[6] = {};
    EXPECT_EQ(std::sscanf(text, "%d-%d-%d %d:%d %d", &f[0], &f[1], &f[2], &f[3], &f[4], &f[5]), 6) << text;
    const sys_days date = year{f[0]} / f[1] / f[2];
    return date.time_since_epoch().count() * 86400LL + (f[3] - f[5]) * 3600 + f[4] * 60;
}

TEST(ZoneTest, ADayStepNeverLandsOnAnotherDate) {
    const struct {
        std::string_view zone;
        const char* last;  // the task's start has the same time of day
        unsigned days;     // monthly without any
        const char* next;
    } cases[] = {
        {"Europe/Berlin", "2026-03-28 09:00 +1", kDaily, "2026-03-29 10:00 +2"},  // 23 hours: an hour late
        {"Europe/Berlin", "2026-10-24 09:00 +2", kDaily, "2026-10-25 08:00 +1"},  // 25 hours: an hour early
        {"Europe/Berlin", "2026-03-28 23:30 +1", kDaily, "2026-03-29 23:30 +2"},  // 24 hours jump a date
        {"Europe/Berlin", "2026-10-25 00:30 +2", kDaily, "2026-10-26 00:30 +1"},  // 24 hours stay on it
        {"Europe/Berlin", "2026-10-10 00:30 +2", 0, "2026-11-01 23:30 +1"},
        {"America/Havana", "2026-03-07 00:00 -5", kDaily, "2026-03-08 01:00 -4"},  // no midnight
        {"America/Havana", "2026-10-31 00:00 -4", kDaily, "2026-11-01 00:00 -4"},  // midnight comes twice
        // The last hour of the date is missing; from -10 to +14 all of it is.
        {"America/Nuuk", "2026-03-27 23:30 -2", kSat, "2026-03-28 22:30 -2"},
        {"Pacific/Apia", "2011-12-29 09:00 -10", kFri, "2011-12-31 09:00 +14"},
        // 1 September 23:30 and 32 days are 4 October 00:30; three days back are 30 September 23:30.
        {"Australia/Sydney", "2022-09-01 23:30 +10", 0, "2022-10-01 23:30 +10"},
    };
    for (const auto& test : cases) {
        const auto zones = ZonesToTest();
        if (std::ranges::find(zones, test.zone, &Zone::name) != zones.end()) {
            const CLocalZone entered(test.zone.data());
            const std::int64_t last = At(test.last);
            const Rules rules{.start = last, .last = last, .days = test.days, .monthly = test.days == 0};
            EXPECT_EQ(NextRun(rules, last), At(test.next)) << test.zone << ' ' << test.last;
        }
    }
}

TEST(ZoneTest, EveryKeepsItsPaceAcrossEachChange) {
    const auto secondOfDay = [](std::int64_t instant) {
        const LocalTime local = ToLocalTime(instant);
        return (local.hour * 60 + local.minute) * 60 + local.second;
    };
    const std::int64_t begin = At("2026-01-01 12:00 0");
    for (const Zone& zone : ZonesToTest()) {
        const CLocalZone entered(zone.name.data());
        Rules rules{.isEvery = true, .every = 30, .until = FromLocalTime(2026, 1, 15, 23, 59, 0)};
        int changes = 0;
        for (std::int64_t at = begin; at < begin + 365 * kSecondsPerDay; at += 900) {
            if ((secondOfDay(at) - secondOfDay(at - 1) + kSecondsPerDay) % kSecondsPerDay == 1) {
                continue;
            }
            ++changes;
            rules.last = at - 1800;
            EXPECT_EQ(NextRun(rules, at - 1800), at) << zone.name;
            rules.last = at;
            EXPECT_EQ(NextRun(rules, at), at + 1800) << zone.name;
        }
        const bool isChanging = secondOfDay(begin) != secondOfDay(At("2026-07-01 12:00 0"));
        EXPECT_EQ(changes, isChanging ? 2 : 0) << zone.name;
    }
}

// The dates on which a year of ticks runs a task with these rules. A date has one run at most, unless Every
// is on: then the next run is that long after one.
std::vector<sys_days> DatesOfYear(const Rules& rules) {
    CSCVShchedulerTask task;
    SetRules(task, rules);
    std::vector<sys_days> dates;
    const std::int64_t stop = FromLocalTime(2026, 12, 31, 0, 0, 0);
    for (auto now = FromLocalTime(2026, 1, 1, 0, 0, 0); now < stop; now += 1800) {
        const std::int64_t next = task.GetNextRunTime(now);
        if (next <= 0 || next > now) {
            continue;
        }
        const LocalTime local = ToLocalTime(now);
        const sys_days date = year{local.year} / local.month / local.day;
        const bool isOnTime = now - task.m_tLastRunTime == rules.every * 60;
        const bool isFirstOfDate = dates.empty() || dates.back() != date;
        EXPECT_TRUE(isFirstOfDate || (rules.isEvery && isOnTime)) << "run again at " << now;
        EXPECT_TRUE(dates.empty() || !rules.isEvery || rules.days != 0 || isOnTime) << "late at " << now;
        if (isFirstOfDate) {
            dates.push_back(date);
        }
        task.m_tLastRunTime = now;
    }
    return dates;
}

// The flagged dates and the first days of months; before them the start's date, flagged or not.
std::vector<sys_days> ExpectedDatesOfYear(const Rules& rules) {
    std::vector<sys_days> dates{year{2026} / 1 / 1};
    for (sys_days date = year{2026} / 1 / 2; date < year{2026} / 12 / 31; date += days{1}) {
        const bool isFlagged = (rules.days & (1U << weekday{date}.c_encoding())) != 0;
        const bool isMonthly = rules.monthly && year_month_day{date}.day() == day{1};
        if (isFlagged || isMonthly || (rules.isEvery && rules.days == 0)) {
            dates.push_back(date);
        }
    }
    return dates;
}

TEST(ZoneTest, AYearHasEachOccurrenceOnceAndMissesNone) {
    const auto until = [](int hour) { return FromLocalTime(2026, 1, 15, hour, 30, 0); };
    for (const Zone& zone : ZonesToTest()) {
        const CLocalZone entered(zone.name.data());
        const LocalTime july = ToLocalTime(At("2026-07-01 12:00 0"));
        ASSERT_EQ(july.hour * 100 + july.minute, zone.july) << zone.name;
        for (Rules rules : {Rules{.days = kSat | kMon},
                            {.monthly = true},
                            {.days = kSun | kThu, .monthly = true},
                            {},
                            {.isEvery = true, .every = 30, .until = until(23)},
                            {.days = kSun, .isEvery = true, .every = 30, .until = until(23)},
                            {.days = kDaily, .isEvery = true, .every = 60, .until = until(22)},
                            {.days = kSun | kMon, .isEvery = true, .every = 90, .until = until(6)}}) {
            for (const int minute : {0, 30, 1410}) {
                SCOPED_TRACE(testing::Message()
                             << zone.name << " days " << rules.days << " minute " << minute);
                rules.start = FromLocalTime(2026, 1, 1, minute / 60, minute % 60, 0);
                EXPECT_TRUE(DatesOfYear(rules) == ExpectedDatesOfYear(rules));
            }
        }
    }
}

}  // namespace
