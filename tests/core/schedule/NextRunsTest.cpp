#include "core/schedule/NextRuns.h"

#include <gtest/gtest.h>

#include "core/platform/LocalTime.h"
#include "core/task/SCVShchedulerTask.h"

TEST(NextRuns, CountsEachRunBeforeTheNext) {
    using Runs = std::vector<std::int64_t>;
    const std::int64_t start = FromLocalTime(2024, 6, 3, 9, 0, 0);  // a Monday, no clock change near
    CSCVShchedulerTask task(start);
    task.m_tStartTime = start;
    EXPECT_EQ(NextRuns(task, start - 60, 5), Runs{start});
    task.m_bRepeatOnMon = task.m_bRepeatOnThu = 1;
    EXPECT_EQ(NextRuns(task, start - 60, 3),
              (Runs{start, start + 3 * kSecondsPerDay, start + 7 * kSecondsPerDay}));
    EXPECT_EQ(task.m_tLastRunTime, 0) << "the task is left as it was";
    task.m_bRepeatOnMon = task.m_bRepeatOnThu = 0;
    task.m_bEnableEvery = 1;
    task.m_tLastRunTime = start;
    task.m_tUntilTime = start + 14 * 3600;
    const std::int64_t late = start + 18'600;
    EXPECT_EQ(NextRuns(task, late, 3), (Runs{start + 3600, late + 3600, late + 7200}))
        << "the missed hour runs at once, the rest follows from now";
    task.m_bEnable = 0;
    EXPECT_EQ(NextRuns(task, start - 60, 5), Runs{});
}
