#include "cli/NextRuns.h"

#include <gtest/gtest.h>

#include "core/LocalTime.h"
#include "core/SCVShchedulerTask.h"

namespace {

using Runs = std::vector<std::int64_t>;

TEST(NextRuns, EachRunCountsAsMadeBeforeTheNextIsComputed) {
    const std::int64_t start = FromLocalTime(2024, 6, 3, 9, 0, 0);  // a Monday, no clock change near
    CSCVShchedulerTask task(start);
    task.m_tStartTime = start;
    task.m_bRepeatOnMon = task.m_bRepeatOnThu = 1;
    constexpr std::int64_t kDay = 86400;
    EXPECT_EQ(NextRuns(task, start - 60, 4),
              (Runs{start, start + 3 * kDay, start + 7 * kDay, start + 10 * kDay}));
    EXPECT_EQ(task.m_tLastRunTime, 0) << "the task is left as it was";
}

TEST(NextRuns, ALateRunCountsFromNow) {
    const std::int64_t start = FromLocalTime(2024, 6, 3, 9, 0, 0);
    CSCVShchedulerTask task(start);
    task.m_tStartTime = start;
    task.m_tLastRunTime = start;
    task.m_tUntilTime = FromLocalTime(2024, 6, 3, 23, 0, 0);
    task.m_bEnableEvery = 1;
    const std::int64_t now = start + 18'600;
    EXPECT_EQ(NextRuns(task, now, 3), (Runs{start + 3600, now + 3600, now + 7200}))
        << "the missed hour runs at once, the rest follows from now";
}

TEST(NextRuns, ATaskThatStopsOrIsDisabledHasNoMore) {
    const std::int64_t start = FromLocalTime(2024, 6, 3, 9, 0, 0);
    CSCVShchedulerTask task(start);
    task.m_tStartTime = start;
    EXPECT_EQ(NextRuns(task, start - 60, 5), Runs{start});
    task.m_bEnable = 0;
    EXPECT_EQ(NextRuns(task, start - 60, 5), Runs{});
}

}  // namespace
