#pragma once

#include <cstdint>
#include <string>
#include <vector>

class CSCVShchedulerTask;

// A task and its next runs. The task stays the array's.
struct TaskReport {
    const CSCVShchedulerTask* task;
    std::vector<std::int64_t> runs;  // empty when there is none or the task is disabled
    std::string error;               // why the runs could not be computed

    [[nodiscard]] std::int64_t NextRun() const { return runs.empty() ? 0 : runs.front(); }
};

[[nodiscard]] TaskReport ReportTask(CSCVShchedulerTask& task, std::int64_t now, int count);

// Each task with its next `count` runs seen from `now`.
[[nodiscard]] std::vector<TaskReport> ReportTasks(const std::vector<CSCVShchedulerTask*>& tasks,
                                                  std::int64_t now, int count);
