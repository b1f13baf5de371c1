#pragma once

#include <cstdint>
#include <string>
#include <vector>

class CSCVShchedulerTask;
class CSCVShchedulerTaskArray;

// A task and its next runs. The task stays the array's.
struct TaskReport {
    const CSCVShchedulerTask* task;
    std::vector<std::int64_t> runs;  // empty when there is none or the task is disabled
    std::string error;               // why the runs could not be computed

    [[nodiscard]] std::int64_t NextRun() const { return runs.empty() ? 0 : runs.front(); }
};

[[nodiscard]] TaskReport ReportTask(CSCVShchedulerTask& task, std::int64_t now, int count);

// The tasks with one of the project paths (without regard to case; all tasks when `paths` is empty) in the
// order of the array, each with its next `count` runs seen from `now`.
[[nodiscard]] std::vector<TaskReport> ReportTasks(CSCVShchedulerTaskArray& tasks,
                                                  const std::vector<std::wstring>& paths, std::int64_t now,
                                                  int count);
