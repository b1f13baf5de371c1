#include "core/schedule/ScheduleText.h"

#include <gtest/gtest.h>

#include "core/platform/LocalTime.h"
#include "core/schedule/NextRuns.h"
#include "tests/support/LocalZone.h"
#include "tests/support/TaskRules.h"

namespace {

// Monday is 23 November 2026, when no zone changes its clocks.
std::int64_t At(int day, int hour, int minute = 0) {
    return FromLocalTime(2026, 11, day, hour, minute, 0);
}

TEST(ScheduleText, SaysEachKindOfSchedule) {
    const struct {
        const char* label;
        Rules rules;
        const wchar_t* words;
        std::vector<std::wstring> warnings = {};
    } cases[] = {
        {"once", {.start = At(23, 8)}, L"once, on 23 Nov 2026 at 08:00"},
        {"once, over", {.start = At(2, 8), .last = At(2, 8)}, L"once; has run"},
        {"the guide's first example",
         {.start = At(23, 8), .isEvery = true, .unit = 1, .until = At(1, 18)},
         L"every 60 minutes until 18:00, only on 23 Nov 2026; ends for good",
         {L"ends for good on 2026-11-23 with the run of 18:00"}},
        {"over midnight, then the end",
         {.start = At(23, 8), .isEvery = true, .every = 7, .unit = 1, .until = At(1, 22)},
         L"first on 23 Nov 2026 at 08:00, then every 7 hours until 22:00; ends for good on 25 Nov 2026",
         {L"ends for good on 2026-11-25 with the run of 16:00"}},
        {"has ended",
         {.start = At(2, 8), .last = At(2, 18), .isEvery = true, .unit = 1, .until = At(1, 18)},
         L"every 60 minutes until 18:00; has ended for good",
         {L"has ended for good, as the next run would be later than the until time"}},
        {"weekdays",
         {.start = At(2, 8), .last = At(2, 8), .days = kMon | kWed | kSun},
         L"on Mon, Wen and Sun at 08:00"},
        {"a window of days",
         {.start = At(23, 8), .days = kDaily, .isEvery = true, .every = 2, .unit = 1, .until = At(1, 18)},
         L"first on 23 Nov 2026 at 08:00, then every day from 00:00 until 18:00, every 2 hours",
         {L"with days ticked, Every begins at 00:00"}},
        {"months beside Every",
         {.start = At(2, 8), .last = At(2, 8), .monthly = true, .isEvery = true, .until = At(1, 18)},
         L"every minute until 18:00 and on day 1 of each month at 08:00"},
    };
    for (const auto& row : cases) {
        CSCVShchedulerTask task;
        SetRules(task, row.rules);
        EXPECT_EQ(ScheduleInWords(task, At(20, 12)), row.words) << row.label;
        EXPECT_EQ(ScheduleWarnings(task, At(20, 12)), row.warnings) << row.label;
    }
}

// Compares with counting every run.
void ExpectLastRunForGood(const CSCVShchedulerTask& task, std::int64_t now, const std::string& label) {
    constexpr std::size_t kMany = 12'000;
    const std::int64_t horizon = now + (366 * 24 * 60 - task.m_nEveryValue) * 60;
    const std::vector<std::int64_t> runs = NextRuns(task, now, kMany);
    const auto last = LastRunForGood(task, now, ClockChangesOfYear(now));
    if (runs.size() < kMany && runs.back() < horizon) {
        EXPECT_EQ(last, std::max(runs.back(), now)) << label;
    } else {
        EXPECT_TRUE(!last || *last >= horizon) << label;
    }
}

// Also over a change of the clocks, and for a start after one.
TEST(ScheduleText, FindsTheLastRunOfEachRule) {
    const std::pair<const char*, int> starts[] = {{"UTC", 0}, {"Europe/Berlin", 0}, {"Europe/Berlin", 100}};
    for (const auto& [zone, days] : starts) {
        const CLocalZone entered(zone);
        const std::int64_t now = FromLocalTime(2026, 3, 28, 10, 20, 30);
        for (const int every : {1, 45, 60, 90, 420, 1000, 1439, 1440, 3000}) {
            for (const int until : {0, 359, 620, 1080, 1438, 1439}) {
                CSCVShchedulerTask task;
                SetRules(task, {.start = now - 5 + days * kSecondsPerDay,
                                .isEvery = true,
                                .every = every,
                                .until = FromLocalTime(2026, 1, 5, until / 60, until % 60, 0)});
                ExpectLastRunForGood(task, now,
                                     std::string(zone) + ", in " + std::to_string(days) + " days, every " +
                                         std::to_string(every) + " until " + std::to_string(until));
            }
        }
    }
}

}  // namespace
