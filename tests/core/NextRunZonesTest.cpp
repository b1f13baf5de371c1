#include <gmock/gmock.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "core/LocalTime.h"
#include "tests/support/LocalZone.h"
#include "tests/support/TaskRules.h"

// The calendar rules where clocks change. Natively each zone is set in turn; Windows cannot switch zones
// within a process, so there the program is started once per zone, which SCV_TEST_ZONE names
// (scripts/zone-tests.sh).

namespace {

using namespace std::chrono;

struct Zone {
    const char* name = "";
    int january = 0, july = 0;  // minutes east of UTC in 2026
    bool isRightInWine = true;
};
constexpr Zone kZones[] = {{"UTC", 0, 0},
                           {"Asia/Kolkata", 330, 330},
                           {"Asia/Kathmandu", 345, 345},
                           {"Europe/Berlin", 60, 120},
                           {"Europe/London", 0, 60},
                           {"America/New_York", -300, -240},
                           {"America/Havana", -300, -240},
                           {"America/St_Johns", -210, -150},
                           {"Australia/Sydney", 660, 600},
                           {"Pacific/Chatham", 825, 765},
                           {"Australia/Lord_Howe", 660, 630, false},
                           {"America/Nuuk", -120, -60, false},
                           {"Pacific/Apia", 780, 780, false}};

sys_days DateOf(std::int64_t instant) {
    const LocalTime local = ToLocalTime(instant);
    return sys_days{year{local.year} / local.month / local.day};
}

// The instant of "2026-03-29 01:59 +1": the clock on the wall and its hours from UTC.
std::int64_t At(const char* text) {
    int fields[5] = {};
    double east = 0;
    EXPECT_EQ(std::sscanf(text, "%d-%d-%d %d:%d %lf", &fields[0], &fields[1], &fields[2], &fields[3],
                          &fields[4], &east),
              6);
    const sys_days date = year{fields[0]} / fields[1] / fields[2];
    return date.time_since_epoch().count() * 86400LL + fields[3] * 3600 + fields[4] * 60 -
           static_cast<int>(east * 3600);
}

int MinutesEast(std::int64_t instant) {
    const LocalTime local = ToLocalTime(instant);
    return static_cast<int>((DateOf(instant).time_since_epoch().count() * 86400LL + local.hour * 3600 +
                             local.minute * 60 + local.second - instant) /
                            60);
}

std::string Text(std::int64_t instant) {
    const LocalTime local = ToLocalTime(instant);
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d %+d min", local.year, local.month,
                  local.day, local.hour, local.minute, local.second, MinutesEast(instant));
    return text;
}

class ZoneTest : public testing::Test {
protected:
    // False when this run is not about the zone.
    bool Enter(const Zone& zone) {
#ifdef _WIN32
        const char* wanted = std::getenv("SCV_TEST_ZONE");
        if (wanted == nullptr || std::string_view(wanted) != zone.name || !zone.isRightInWine) {
            return false;
        }
#else
        m_zone.emplace(zone.name);
#endif
        ++m_zones;
        EXPECT_EQ(MinutesEast(At("2026-01-01 12:00 0")), zone.january) << zone.name;
        EXPECT_EQ(MinutesEast(At("2026-07-01 12:00 0")), zone.july) << zone.name;
        return !HasFailure();
    }

    int m_zones = 0;
#ifndef _WIN32
    std::optional<CLocalZone> m_zone;
#endif
};

TEST_F(ZoneTest, ADayStepNeverLandsOnAnotherDate) {
    struct Case {  // NOLINT(clang-analyzer-optin.performance.Padding): in the order in which a row reads best
        const char* zone = "";
        const char* last = "";  // the task's start has the same time of day
        unsigned days = 0;      // monthly without any
        const char* next = "";
        bool monthly = false;
    };
    const Case cases[] = {
        {"Europe/Berlin", "2026-03-28 09:00 +1", kDaily, "2026-03-29 10:00 +2"},  // 23 hours: an hour late
        {"Europe/Berlin", "2026-10-24 09:00 +2", kDaily, "2026-10-25 08:00 +1"},  // 25 hours: an hour early
        {"Europe/Berlin", "2026-03-28 23:30 +1", kDaily, "2026-03-29 23:30 +2"},  // 24 hours jump a date
        {"Europe/Berlin", "2026-03-28 23:30 +1", kSat, "2026-04-04 23:30 +2"},
        {"Europe/Berlin", "2026-10-25 00:30 +2", kDaily, "2026-10-26 00:30 +1"},  // 24 hours stay on it
        {"Europe/Berlin", "2026-10-25 00:00 +2", kSun, "2026-11-01 00:00 +1"},
        {"Europe/Berlin", "2026-10-24 23:30 +2", kSat, "2026-10-31 22:30 +1"},
        {"Europe/Berlin", "2026-03-10 00:30 +1", 0, "2026-04-01 01:30 +2", true},
        {"Europe/Berlin", "2026-10-10 00:30 +2", 0, "2026-11-01 23:30 +1", true},
        {"Australia/Sydney", "2026-04-05 00:00 +11", kMon, "2026-04-06 00:00 +10"},
        {"Australia/Sydney", "2026-10-03 23:30 +10", kSun, "2026-10-04 23:30 +11"},
        {"Australia/Lord_Howe", "2026-04-05 00:15 +11", kDaily, "2026-04-06 00:15 +10.5"},
        {"America/Havana", "2026-03-07 00:00 -5", kDaily, "2026-03-08 01:00 -4"},  // no midnight
        {"America/Havana", "2026-03-01 00:30 -5", kSun, "2026-03-08 01:30 -4"},
        {"America/Havana", "2026-03-07 23:30 -5", kDaily, "2026-03-08 23:30 -4"},
        {"America/Havana", "2026-10-31 00:00 -4", kDaily, "2026-11-01 00:00 -4"},  // midnight comes twice
        // The last hour of the date is missing; from -10 to +14 all of it is.
        {"America/Nuuk", "2026-03-27 23:30 -2", kSat, "2026-03-28 22:30 -2"},
        {"Pacific/Apia", "2011-12-29 09:00 -10", kFri, "2011-12-31 09:00 +14"},
        // 1 September 23:30 and 32 days are 4 October 00:30; three days back are 30 September 23:30.
        {"Australia/Sydney", "2022-09-01 23:30 +10", 0, "2022-10-01 23:30 +10", true},
        {"Australia/Sydney", "2022-09-30 23:30 +10", kSun, "2022-10-01 23:30 +10", true},
    };
    for (const Case& test : cases) {
        for (const Zone& zone : kZones) {
            if (zone.name == std::string_view(test.zone) && Enter(zone)) {
                const std::int64_t last = At(test.last);
                const Rules rules{.start = last, .last = last, .days = test.days, .monthly = test.monthly};
                EXPECT_EQ(Text(NextRun(rules, last)), Text(At(test.next))) << test.zone << ' ' << test.last;
            }
        }
    }
}

TEST_F(ZoneTest, EveryKeepsItsPaceAcrossEachChange) {
    for (const Zone& zone : kZones) {
        if (!Enter(zone)) {
            continue;
        }
        const Rules rules{.isEvery = true, .every = 30, .until = FromLocalTime(2026, 1, 15, 23, 59, 0)};
        int changes = 0;
        for (std::int64_t at = At("2026-01-01 00:00 0"); at < At("2027-01-01 00:00 0"); at += 900) {
            if (MinutesEast(at) == MinutesEast(at - 1)) {
                continue;
            }
            ++changes;
            for (Rules run = rules; const std::int64_t last : {at - 1800, at - 1, at}) {
                run.last = last;
                EXPECT_EQ(NextRun(run, last), last + 1800 - ToLocalTime(last).second) << Text(last);
            }
        }
        EXPECT_EQ(changes, zone.january == zone.july ? 0 : 2) << zone.name;
    }
}

// A year of ticks. A tick where nothing can have changed since the one before is left out: the result depends
// on `now` through the local date alone, so there is one each hour, one at the next run, and some at two
// seconds after it.
std::vector<std::int64_t> RunsOfAYear(Rules rules, std::int64_t now, std::int64_t end) {
    CSCVShchedulerTask task;
    SetRules(task, rules);
    std::vector<std::int64_t> runs;
    int closeTicks = 0;
    while (now < end) {
        const std::int64_t next = task.GetNextRunTime(now);
        if (next > 0 && next <= now) {
            runs.push_back(now);
            task.m_tLastRunTime = now;
            closeTicks = 5;
        }
        const std::int64_t hour = now - now % 3600 + 3600;
        if (closeTicks > 0) {
            --closeTicks;
            now += 2;
        } else {
            now = next > now ? std::min(hour, next + next % 2) : hour;
        }
    }
    return runs;
}

TEST_F(ZoneTest, AYearHasEachOccurrenceOnceAndMissesNone) {
    for (const Zone& zone : kZones) {
        if (!Enter(zone)) {
            continue;
        }
        const sys_days first = 2026y / 1 / 1;
        const sys_days end = 2026y / 12 / 31;
        const std::int64_t begin = FromLocalTime(2026, 1, 1, 0, 0, 0);
        const std::int64_t stop = FromLocalTime(2026, 12, 31, 0, 0, 0);
        const auto isFlagged = [](unsigned days, sys_days date) {
            return (days & (1U << weekday{date}.c_encoding())) != 0;
        };

        // By date: an occurrence is a flagged date or day 1 of a month; a date has one run at most. The first
        // run is on the start's date, flagged or not.
        for (const int minuteOfDay : {0, 30, 540, 1410}) {
            const std::int64_t start = FromLocalTime(2026, 1, 1, minuteOfDay / 60, minuteOfDay % 60, 0);
            for (const Rules& rules : {Rules{.start = start, .days = kDaily},
                                       {.start = start, .days = kSun},
                                       {.start = start, .days = kSat | kMon},
                                       {.start = start, .monthly = true},
                                       {.start = start, .days = kSun | kThu, .monthly = true},
                                       {.start = start}}) {
                std::vector<sys_days> dates;
                for (const std::int64_t run : RunsOfAYear(rules, begin, stop)) {
                    dates.push_back(DateOf(run));
                }
                std::vector<sys_days> expected;
                for (sys_days date = first; date < end; date += days{1}) {
                    const bool isMonthly = rules.monthly && year_month_day{date}.day() == day{1};
                    if (date == first || isFlagged(rules.days, date) || isMonthly) {
                        expected.push_back(date);
                    }
                }
                EXPECT_TRUE(dates == expected)
                    << zone.name << " minute " << minuteOfDay << " days " << rules.days;
            }
        }

        // Every N: an occurrence is N minutes after the run before, whose seconds are dropped. No run comes
        // sooner; on each flagged date there is one; none on others.
        const auto until = [](int hour, int minute) { return FromLocalTime(2026, 1, 15, hour, minute, 0); };
        for (const Rules& rules : {Rules{.isEvery = true, .every = 30, .until = until(23, 59)},
                                   {.days = kSun, .isEvery = true, .every = 30, .until = until(23, 59)},
                                   {.days = kDaily, .isEvery = true, .every = 60, .until = until(22, 0)},
                                   {.days = kSun | kMon, .isEvery = true, .every = 45, .until = until(6, 0)},
                                   {.days = kDaily, .isEvery = true, .every = 720, .until = until(0, 0)}}) {
            std::set<sys_days> dates;
            std::int64_t before = 0;
            for (const std::int64_t run : RunsOfAYear(rules, begin, stop)) {
                dates.insert(DateOf(run));
                EXPECT_GE(run - before, rules.every * 60 - 59) << zone.name << ' ' << Text(run);
                EXPECT_TRUE(rules.days != 0 || before == 0 || run - before <= rules.every * 60 + 2)
                    << Text(run);
                before = run;
            }
            for (sys_days date = first; date < end; date += days{1}) {
                const bool hasRun = date == first || rules.days == 0 || isFlagged(rules.days, date);
                EXPECT_EQ(dates.contains(date), hasRun) << zone.name << " every " << rules.every;
            }
        }
    }
    EXPECT_GT(m_zones, 0) << "set SCV_TEST_ZONE to one of the zones";
}

}  // namespace
