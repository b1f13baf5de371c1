#include "core/schedule/NextRuns.h"

#include <algorithm>

#include "core/task/SCVShchedulerTask.h"

std::vector<std::int64_t> NextRuns(const CSCVShchedulerTask& task, std::int64_t now, int count) {
    std::vector<std::int64_t> runs;
    if (task.m_bEnable == 0) {
        return runs;
    }
    std::int64_t lastRun = task.m_tLastRunTime;
    for (int i = 0; i < count; ++i) {
        const std::int64_t next = task.GetNextRunTime(now, lastRun);
        if (next <= 0) {
            break;
        }
        runs.push_back(next);
        now = std::max(next, now);
        lastRun = now;
    }
    return runs;
}
