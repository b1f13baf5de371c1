#include "core/schedule/NextRuns.h"

#include <algorithm>

#include "core/task/SCVShchedulerTask.h"

namespace {

// Puts the last run time back, also when the computation raises.
class LastRunKeeper {
public:
    explicit LastRunKeeper(CSCVShchedulerTask& task) noexcept
        : m_task(task), m_lastRun(task.m_tLastRunTime) {}
    LastRunKeeper(const LastRunKeeper&) = delete;
    LastRunKeeper& operator=(const LastRunKeeper&) = delete;
    ~LastRunKeeper() { m_task.m_tLastRunTime = m_lastRun; }

private:
    CSCVShchedulerTask& m_task;
    std::int64_t m_lastRun;
};

}  // namespace

std::vector<std::int64_t> NextRuns(CSCVShchedulerTask& task, std::int64_t now, int count) {
    std::vector<std::int64_t> runs;
    if (task.m_bEnable == 0) {
        return runs;
    }
    const LastRunKeeper keeper(task);
    for (int i = 0; i < count; ++i) {
        const std::int64_t next = task.GetNextRunTime(now);
        if (next <= 0) {
            break;
        }
        runs.push_back(next);
        now = std::max(next, now);
        task.m_tLastRunTime = now;
    }
    return runs;
}
