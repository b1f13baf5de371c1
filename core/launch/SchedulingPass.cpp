#include "core/launch/SchedulingPass.h"

#include <cstddef>
#include <cstdint>

#include "core/platform/Clock.h"
#include "core/task/SCVShchedulerTask.h"
#include "core/task/SCVShchedulerTaskArray.h"

void RunSchedulingPass(CSCVShchedulerTaskArray& tasks, const CPlatform& platform,
                       const std::function<bool(const PassRun&)>& onRun) {
    const std::int64_t now = platform.clock.Now();
    // What is called for a run may change the array: its count is asked for each time.
    for (std::ptrdiff_t i = 0; i < tasks.GetSize(); ++i) {
        CSCVShchedulerTask& task = *tasks[i];
        if (task.m_bEnable == 0) {
            continue;
        }
        const std::int64_t next = task.GetNextRunTime(now);
        if (next <= 0 || next > now) {
            continue;
        }
        const bool isStarted = task.Run(platform.shell, platform.clock) != 0;
        const bool isSaved{task.TrySaveToIni(platform.files, task.m_strIniFile, task.m_strIniSection)};
        if (!onRun({task, isStarted, isSaved})) {
            return;
        }
    }
}
