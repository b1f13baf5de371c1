#include <gmock/gmock.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "core/LocalTime.h"
#include "tests/support/TaskRules.h"

// The calendar rules where clocks change. Natively each zone is set in turn; Windows cannot switch zones
// within a process, so there the program is started once per zone, which SCV_TEST_ZONE names
// (scripts/zone-tests.sh).
//
// Times are written as the clock on the wall with its distance from UTC, so that every expectation can be
// checked by eye: a step of a day moves the wall clock by as much as the distance changes.

namespace {

using namespace std::chrono;

struct Zone {
    const char* name;
    int january, july;  // minutes east of UTC
    bool isRightInWine;
};

// 2026. Berlin, London: last Sundays of March and October, 01:00 UTC. New York, St Johns: second Sunday of
// March, first of November, 02:00 wall time; Havana the same Sundays at 00:00 standard time. Sydney, Lord
// Howe (by half an hour): first Sundays of April and October; Chatham: first of April, last of September,
// 02:45 standard time.
constexpr Zone kZones[] = {
    {"UTC", 0, 0, true},
    {"Asia/Kolkata", 330, 330, true},
    {"Asia/Kathmandu", 345, 345, true},
    {"Europe/Berlin", 60, 120, true},
    {"Europe/London", 0, 60, true},
    {"America/New_York", -300, -240, true},
    {"America/Havana", -300, -240, true},
    {"America/St_Johns", -210, -150, true},
    {"Australia/Sydney", 660, 600, true},
    {"Pacific/Chatham", 825, 765, true},
    // Wine's own data is wrong for these, so they are tried natively only.
    {"Australia/Lord_Howe", 660, 630, false},
    {"America/Nuuk", -120, -60, false},
    {"Pacific/Apia", 780, 780, false},
};

// The instant of "2026-03-29 01:59:59 +01:00".
std::int64_t At(std::string_view text) {
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
    int hours = 0;
    int minutes = 0;
    char sign = 0;
    const int fields = std::sscanf(std::string(text).c_str(), "%d-%d-%d %d:%d:%d %c%d:%d", &year, &month,
                                   &day, &hour, &minute, &second, &sign, &hours, &minutes);
    if (fields != 9) {
        ADD_FAILURE() << "not a time: " << text;
    }
    const sys_days date = std::chrono::year{year} / month / day;
    const int east = (hours * 60 + minutes) * (sign == '-' ? -1 : 1);
    return date.time_since_epoch().count() * 86400LL + (hour * 60 + minute - east) * 60 + second;
}

int MinutesEast(std::int64_t instant) {
    const LocalTime local = ToLocalTime(instant);
    const sys_days date = year{local.year} / local.month / local.day;
    const std::int64_t wall =
        date.time_since_epoch().count() * 86400LL + ((local.hour * 60) + local.minute) * 60 + local.second;
    return static_cast<int>((wall - instant) / 60);
}

sys_days DateOf(std::int64_t instant) {
    const LocalTime local = ToLocalTime(instant);
    return sys_days{year{local.year} / local.month / local.day};
}

class ZoneTest : public testing::Test {
protected:
    void TearDown() override {
#ifndef _WIN32
        unsetenv("TZ");
        RefreshTimeZone();
#endif
    }

    // False when this run is not about the zone.
    bool Enter(const Zone& zone) {
#ifdef _WIN32
        const char* wanted = std::getenv("SCV_TEST_ZONE");
        if (wanted == nullptr || std::string_view(wanted) != zone.name || !zone.isRightInWine) {
            return false;
        }
#else
        setenv("TZ", zone.name, 1);
        RefreshTimeZone();
#endif
        ++m_zones;
        EXPECT_EQ(MinutesEast(At("2026-01-01 12:00:00 +00:00")), zone.january)
            << zone.name << " is not in force";
        EXPECT_EQ(MinutesEast(At("2026-07-01 12:00:00 +00:00")), zone.july)
            << zone.name << " is not in force";
        return !HasFailure();
    }

    // Whether a row of a table is to be checked now, with its zone in force.
    bool Enter(std::string_view name) {
        for (const Zone& zone : kZones) {
            if (name == zone.name) {
                return Enter(zone);
            }
        }
        ADD_FAILURE() << "no such zone: " << name;
        return false;
    }

    int m_zones = 0;
};

std::string Text(std::int64_t instant) {
    const LocalTime local = ToLocalTime(instant);
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d %+d min", local.year, local.month,
                  local.day, local.hour, local.minute, local.second, MinutesEast(instant));
    return text;
}

TEST_F(ZoneTest, OneSecondBeforeAndAfterEachClockChange) {
    // Each row's last run is at the change. `every`: 30 minutes later without its seconds. `midnight`: the
    // window of an Every task on all days has closed, so from 00:00 of that date 24 hours on, or 00:00 of the
    // next date where that is still the same one. `monthly`: day 1 of the month at 00:30 and as many days of
    // 24 hours as lead to day 1 of the next, so the wall clock reads an hour more or less when the change
    // lies between. Havana skips or repeats the very time that these begin with; then Windows gives the
    // second answer and glibc either, depending on what it was asked before.
    struct Case {
        const char* zone = "";
        const char* last = "";
        const char* every = "";
        const char* midnight = "";
        const char* monthly = "";
        const char* windowsMidnight = nullptr;
        const char* windowsMonthly = nullptr;
    };
    const Case cases[] = {
        {"UTC", "2026-03-31 23:59:59 +00:00", "2026-04-01 00:29:00 +00:00", "2026-04-01 00:00:00 +00:00",
         "2026-04-01 00:30:00 +00:00"},
        {"Asia/Kolkata", "2026-03-31 23:59:59 +05:30", "2026-04-01 00:29:00 +05:30",
         "2026-04-01 00:00:00 +05:30", "2026-04-01 00:30:00 +05:30"},
        {"Asia/Kathmandu", "2026-04-01 00:00:00 +05:45", "2026-04-01 00:30:00 +05:45",
         "2026-04-02 00:00:00 +05:45", "2026-05-01 00:30:00 +05:45"},

        {"Europe/Berlin", "2026-03-29 01:59:59 +01:00", "2026-03-29 03:29:00 +02:00",
         "2026-03-30 01:00:00 +02:00", "2026-04-01 01:30:00 +02:00"},
        {"Europe/Berlin", "2026-03-29 03:00:00 +02:00", "2026-03-29 03:30:00 +02:00",
         "2026-03-30 01:00:00 +02:00", "2026-04-01 01:30:00 +02:00"},
        {"Europe/Berlin", "2026-10-25 02:59:59 +02:00", "2026-10-25 02:29:00 +01:00",
         "2026-10-26 00:00:00 +01:00", "2026-11-01 23:30:00 +01:00"},
        {"Europe/Berlin", "2026-10-25 02:00:00 +01:00", "2026-10-25 02:30:00 +01:00",
         "2026-10-26 00:00:00 +01:00", "2026-11-01 23:30:00 +01:00"},

        {"Europe/London", "2026-03-29 00:59:59 +00:00", "2026-03-29 02:29:00 +01:00",
         "2026-03-30 01:00:00 +01:00", "2026-04-01 01:30:00 +01:00"},
        {"Europe/London", "2026-03-29 02:00:00 +01:00", "2026-03-29 02:30:00 +01:00",
         "2026-03-30 01:00:00 +01:00", "2026-04-01 01:30:00 +01:00"},
        {"Europe/London", "2026-10-25 01:59:59 +01:00", "2026-10-25 01:29:00 +00:00",
         "2026-10-26 00:00:00 +00:00", "2026-11-01 23:30:00 +00:00"},
        {"Europe/London", "2026-10-25 01:00:00 +00:00", "2026-10-25 01:30:00 +00:00",
         "2026-10-26 00:00:00 +00:00", "2026-11-01 23:30:00 +00:00"},

        {"America/New_York", "2026-03-08 01:59:59 -05:00", "2026-03-08 03:29:00 -04:00",
         "2026-03-09 01:00:00 -04:00", "2026-04-01 01:30:00 -04:00"},
        {"America/New_York", "2026-03-08 03:00:00 -04:00", "2026-03-08 03:30:00 -04:00",
         "2026-03-09 01:00:00 -04:00", "2026-04-01 01:30:00 -04:00"},
        {"America/New_York", "2026-11-01 01:59:59 -04:00", "2026-11-01 01:29:00 -05:00",
         "2026-11-02 00:00:00 -05:00", "2026-12-01 23:30:00 -05:00"},
        {"America/New_York", "2026-11-01 01:00:00 -05:00", "2026-11-01 01:30:00 -05:00",
         "2026-11-02 00:00:00 -05:00", "2026-12-01 23:30:00 -05:00"},

        {"America/Havana", "2026-03-07 23:59:59 -05:00", "2026-03-08 01:29:00 -04:00",
         "2026-03-08 01:00:00 -04:00", "2026-04-01 01:30:00 -04:00"},
        {"America/Havana", "2026-03-08 01:00:00 -04:00", "2026-03-08 01:30:00 -04:00",
         "2026-03-09 01:00:00 -04:00", "2026-04-01 01:30:00 -04:00", "2026-03-09 00:00:00 -04:00"},
        {"America/Havana", "2026-11-01 00:59:59 -04:00", "2026-11-01 00:29:00 -05:00",
         "2026-11-02 00:00:00 -05:00", "2026-12-01 23:30:00 -05:00", nullptr, "2026-12-01 00:30:00 -05:00"},
        {"America/Havana", "2026-11-01 00:00:00 -05:00", "2026-11-01 00:30:00 -05:00",
         "2026-11-02 00:00:00 -05:00", "2026-12-01 23:30:00 -05:00", nullptr, "2026-12-01 00:30:00 -05:00"},

        {"America/St_Johns", "2026-03-08 01:59:59 -03:30", "2026-03-08 03:29:00 -02:30",
         "2026-03-09 01:00:00 -02:30", "2026-04-01 01:30:00 -02:30"},
        {"America/St_Johns", "2026-03-08 03:00:00 -02:30", "2026-03-08 03:30:00 -02:30",
         "2026-03-09 01:00:00 -02:30", "2026-04-01 01:30:00 -02:30"},
        {"America/St_Johns", "2026-11-01 01:59:59 -02:30", "2026-11-01 01:29:00 -03:30",
         "2026-11-02 00:00:00 -03:30", "2026-12-01 23:30:00 -03:30"},
        {"America/St_Johns", "2026-11-01 01:00:00 -03:30", "2026-11-01 01:30:00 -03:30",
         "2026-11-02 00:00:00 -03:30", "2026-12-01 23:30:00 -03:30"},

        {"Australia/Sydney", "2026-04-05 02:59:59 +11:00", "2026-04-05 02:29:00 +10:00",
         "2026-04-06 00:00:00 +10:00", "2026-05-01 23:30:00 +10:00"},
        {"Australia/Sydney", "2026-04-05 02:00:00 +10:00", "2026-04-05 02:30:00 +10:00",
         "2026-04-06 00:00:00 +10:00", "2026-05-01 23:30:00 +10:00"},
        {"Australia/Sydney", "2026-10-04 01:59:59 +10:00", "2026-10-04 03:29:00 +11:00",
         "2026-10-05 01:00:00 +11:00", "2026-11-01 01:30:00 +11:00"},
        {"Australia/Sydney", "2026-10-04 03:00:00 +11:00", "2026-10-04 03:30:00 +11:00",
         "2026-10-05 01:00:00 +11:00", "2026-11-01 01:30:00 +11:00"},

        {"Pacific/Chatham", "2026-04-05 03:44:59 +13:45", "2026-04-05 03:14:00 +12:45",
         "2026-04-06 00:00:00 +12:45", "2026-05-01 23:30:00 +12:45"},
        {"Pacific/Chatham", "2026-04-05 02:45:00 +12:45", "2026-04-05 03:15:00 +12:45",
         "2026-04-06 00:00:00 +12:45", "2026-05-01 23:30:00 +12:45"},
        {"Pacific/Chatham", "2026-09-27 02:44:59 +12:45", "2026-09-27 04:14:00 +13:45",
         "2026-09-28 01:00:00 +13:45", "2026-10-01 01:30:00 +13:45"},
        {"Pacific/Chatham", "2026-09-27 03:45:00 +13:45", "2026-09-27 04:15:00 +13:45",
         "2026-09-28 01:00:00 +13:45", "2026-10-01 01:30:00 +13:45"},

        {"Australia/Lord_Howe", "2026-04-05 01:59:59 +11:00", "2026-04-05 01:59:00 +10:30",
         "2026-04-06 00:00:00 +10:30", "2026-05-01 00:00:00 +10:30"},
        {"Australia/Lord_Howe", "2026-04-05 01:30:00 +10:30", "2026-04-05 02:00:00 +10:30",
         "2026-04-06 00:00:00 +10:30", "2026-05-01 00:00:00 +10:30"},
        {"Australia/Lord_Howe", "2026-10-04 01:59:59 +10:30", "2026-10-04 02:59:00 +11:00",
         "2026-10-05 00:30:00 +11:00", "2026-11-01 01:00:00 +11:00"},
        {"Australia/Lord_Howe", "2026-10-04 02:30:00 +11:00", "2026-10-04 03:00:00 +11:00",
         "2026-10-05 00:30:00 +11:00", "2026-11-01 01:00:00 +11:00"},
    };
    const auto isRight = [](const char* expected, const char* windows) {
#ifdef _WIN32
        return testing::Eq(Text(At(windows != nullptr ? windows : expected)));
#else
        return testing::AnyOf(Text(At(expected)), Text(At(windows != nullptr ? windows : expected)));
#endif
    };
    for (const Case& test : cases) {
        if (!Enter(test.zone)) {
            continue;
        }
        SCOPED_TRACE(std::string(test.zone) + " " + test.last);
        const std::int64_t last = At(test.last);
        const auto local = [](int hour, int minute) { return FromLocalTime(2026, 1, 15, hour, minute, 0); };
        EXPECT_EQ(Text(NextRun({.last = last, .isEvery = true, .every = 30, .until = local(23, 59)}, last)),
                  Text(At(test.every)));
        EXPECT_THAT(
            Text(NextRun({.last = last, .days = kDaily, .isEvery = true, .every = 1439, .until = local(0, 0)},
                         last)),
            isRight(test.midnight, test.windowsMidnight));
        EXPECT_THAT(Text(NextRun({.start = local(0, 30), .last = last, .monthly = true}, last)),
                    isRight(test.monthly, test.windowsMonthly));
    }
    EXPECT_GT(m_zones, 0) << "set SCV_TEST_ZONE to one of the zones";
}

TEST_F(ZoneTest, ADayStepNeverLandsOnAnotherDate) {
    // The order is that in which a row reads best.
    struct Case {  // NOLINT(clang-analyzer-optin.performance.Padding)
        const char* what = "";
        const char* zone = "";
        const char* last = "";  // the task's start has the same time of day
        unsigned days = 0;
        const char* next = "";
        bool monthly = false;
    };
    const Case cases[] = {
        {"23-hour day, an hour late", "Europe/Berlin", "2026-03-28 09:00:00 +01:00", kDaily,
         "2026-03-29 10:00:00 +02:00"},
        {"25-hour day, an hour early", "Europe/Berlin", "2026-10-24 09:00:00 +02:00", kDaily,
         "2026-10-25 08:00:00 +01:00"},
        {"24 hours jump over the date", "Europe/Berlin", "2026-03-28 23:30:00 +01:00", kDaily,
         "2026-03-29 23:30:00 +02:00"},
        {"a week jumps over Saturday", "Europe/Berlin", "2026-03-28 23:30:00 +01:00", kSat,
         "2026-04-04 23:30:00 +02:00"},
        {"24 hours stay on the date", "Europe/Berlin", "2026-10-25 00:30:00 +02:00", kDaily,
         "2026-10-26 00:30:00 +01:00"},
        {"a week falls short of Sunday", "Europe/Berlin", "2026-10-25 00:00:00 +02:00", kSun,
         "2026-11-01 00:00:00 +01:00"},
        {"a week keeps to Saturday, an hour early", "Europe/Berlin", "2026-10-24 23:30:00 +02:00", kSat,
         "2026-10-31 22:30:00 +01:00"},
        {"25 hours in the south", "Australia/Sydney", "2026-04-05 00:00:00 +11:00", kMon,
         "2026-04-06 00:00:00 +10:00"},
        {"23 hours in the south", "Australia/Sydney", "2026-10-03 23:30:00 +10:00", kSun,
         "2026-10-04 23:30:00 +11:00"},
        {"24 and a half hours", "Australia/Lord_Howe", "2026-04-05 00:15:00 +11:00", kDaily,
         "2026-04-06 00:15:00 +10:30"},
        {"midnight is skipped", "America/Havana", "2026-03-07 00:00:00 -05:00", kDaily,
         "2026-03-08 01:00:00 -04:00"},
        {"00:30 is skipped", "America/Havana", "2026-03-01 00:30:00 -05:00", kSun,
         "2026-03-08 01:30:00 -04:00"},
        {"23:30 before a skipped midnight", "America/Havana", "2026-03-07 23:30:00 -05:00", kDaily,
         "2026-03-08 23:30:00 -04:00"},
        {"midnight comes twice", "America/Havana", "2026-10-31 00:00:00 -04:00", kDaily,
         "2026-11-01 00:00:00 -04:00"},
        // Clocks go from 23:00 to 00:00: the date's last hour is missing.
        {"the last hour is skipped", "America/Nuuk", "2026-03-27 23:30:00 -02:00", kSat,
         "2026-03-28 22:30:00 -02:00"},
        // The zone went from -10 to +14 at the end of the 29th: there was no 30th.
        {"no such date", "Pacific/Apia", "2011-12-29 09:00:00 -10:00", kFri, "2011-12-31 09:00:00 +14:00"},

        // 1 September 23:30 and 32 days are 4 October 00:30; three days back are 30 September 23:30.
        {"monthly falls short of day 1", "Australia/Sydney", "2022-09-01 23:30:00 +10:00", 0,
         "2022-10-01 23:30:00 +10:00", true},
        {"monthly falls short of day 1 before a weekday", "Australia/Sydney", "2022-09-30 23:30:00 +10:00",
         kSun, "2022-10-01 23:30:00 +10:00", true},
    };
    for (const Case& test : cases) {
        if (!Enter(test.zone)) {
            continue;
        }
        const std::int64_t last = At(test.last);
        EXPECT_EQ(
            Text(NextRun({.start = last, .last = last, .days = test.days, .monthly = test.monthly}, last)),
            Text(At(test.next)))
            << test.zone << ": " << test.what;
    }
}

TEST_F(ZoneTest, ThirtyMinuteRepeatsKeepTheirPaceAcrossBothChanges) {
    for (const char* first : {"2026-03-29 00:30:00 +01:00", "2026-10-25 00:30:00 +02:00"}) {
        if (!Enter("Europe/Berlin")) {
            continue;
        }
        std::int64_t last = At(first);
        for (int i = 0; i < 8; ++i) {
            const std::int64_t next = NextRun(
                {.last = last, .isEvery = true, .every = 30, .until = At("2026-01-01 23:59:00 +01:00")},
                last);
            EXPECT_EQ(next, last + 1800) << Text(last);
            last = next;
        }
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

        // By date: an occurrence is a flagged date or day 1 of a month; a date has one run at most. A task
        // without either has its first run alone. The first run is on the start's date, flagged or not.
        for (const int minuteOfDay : {0, 30, 540, 1410}) {
            for (const auto& [days, monthly] :
                 std::initializer_list<std::pair<unsigned, bool>>{{kDaily, false},
                                                                  {kSun, false},
                                                                  {kSat | kMon, false},
                                                                  {0U, true},
                                                                  {kSun | kThu, true},
                                                                  {0U, false}}) {
                const std::int64_t start = FromLocalTime(2026, 1, 1, minuteOfDay / 60, minuteOfDay % 60, 0);
                std::vector<sys_days> dates;
                for (const std::int64_t run :
                     RunsOfAYear({.start = start, .days = days, .monthly = monthly}, begin, stop)) {
                    dates.push_back(DateOf(run));
                }
                std::vector<sys_days> expected;
                for (sys_days date = first; date < end; date += std::chrono::days{1}) {
                    if (date == first || isFlagged(days, date) ||
                        (monthly && year_month_day{date}.day() == std::chrono::day{1})) {
                        expected.push_back(date);
                    }
                }
                EXPECT_TRUE(dates == expected)
                    << zone.name << " minute " << minuteOfDay << " days " << days
                    << (monthly ? " monthly " : " ") << dates.size() << " runs for " << expected.size();
            }
        }

        // Every N: an occurrence is N minutes after the run before, whose seconds are dropped. No run comes
        // sooner; on each flagged date there is one; none on others.
        for (const auto& [every, until, days] :
             std::initializer_list<std::tuple<int, int, unsigned>>{{30, 1439, 0U},
                                                                   {30, 1439, kSun},
                                                                   {60, 1320, kDaily},
                                                                   {45, 360, kSun | kMon},
                                                                   {720, 0, kDaily}}) {
            const std::int64_t untilTime = FromLocalTime(2026, 1, 15, until / 60, until % 60, 0);
            const std::vector<std::int64_t> runs = RunsOfAYear(
                {.start = begin, .days = days, .isEvery = true, .every = every, .until = untilTime}, begin,
                stop);
            std::set<sys_days> dates;
            for (std::size_t i = 0; i < runs.size(); ++i) {
                dates.insert(DateOf(runs[i]));
                if (i > 0) {
                    EXPECT_GE(runs[i] - runs[i - 1], every * 60 - 59) << zone.name << " " << Text(runs[i]);
                }
                if (i > 0 && days == 0) {
                    EXPECT_LE(runs[i] - runs[i - 1], every * 60 + 2) << zone.name << " " << Text(runs[i]);
                }
            }
            for (sys_days date = first; date < end; date += std::chrono::days{1}) {
                const bool hasRun = date == first || days == 0 || isFlagged(days, date);
                EXPECT_EQ(dates.contains(date), hasRun)
                    << zone.name << " every " << every << " day " << date.time_since_epoch().count();
            }
        }
    }
    EXPECT_GT(m_zones, 0) << "set SCV_TEST_ZONE to one of the zones";
}

}  // namespace
