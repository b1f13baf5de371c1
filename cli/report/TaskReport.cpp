#include "cli/report/TaskReport.h"

#include <exception>

#include "core/schedule/NextRuns.h"
#include "core/task/SCVShchedulerTask.h"

TaskReport ReportTask(CSCVShchedulerTask& task, std::int64_t now, int count) {
    TaskReport report{&task, {}, {}};
    try {
        report.runs = NextRuns(task, now, count);
    } catch (const std::exception& error) {
        report.error = error.what();
    }
    return report;
}

std::vector<TaskReport> ReportTasks(const std::vector<CSCVShchedulerTask*>& tasks, std::int64_t now,
                                    int count) {
    std::vector<TaskReport> reports;
    reports.reserve(tasks.size());
    for (CSCVShchedulerTask* task : tasks) {
        reports.push_back(ReportTask(*task, now, count));
    }
    return reports;
}
