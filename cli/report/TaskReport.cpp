#include "cli/report/TaskReport.h"

#include <exception>

#include "core/schedule/NextRuns.h"
#include "core/schedule/ScheduleText.h"
#include "core/task/SCVShchedulerTask.h"
#include "util/ExceptionText.h"

namespace {

template <typename Words>
TaskReport Report(const CSCVShchedulerTask& task, std::int64_t now, int count, Words words) {
    TaskReport report{&task, {}, {}, {}};
    try {
        report.runs = NextRuns(task, now, count);
        report.schedule = words();
    } catch (const std::exception& error) {
        report.error = FromWhat(error);
    }
    return report;
}

}  // namespace

TaskReport ReportTask(const CSCVShchedulerTask& task, std::int64_t now, int count) {
    return Report(task, now, count, [&] { return ScheduleInWords(task, now); });
}

std::vector<TaskReport> ReportTasks(const std::vector<CSCVShchedulerTask*>& tasks, std::int64_t now,
                                    int count) {
    const std::vector<ClockChange> changes = ClockChangesOfYear(now);
    std::vector<TaskReport> reports;
    reports.reserve(tasks.size());
    for (const CSCVShchedulerTask* task : tasks) {
        reports.push_back(Report(*task, now, count, [&] { return ScheduleInWords(*task, now, changes); }));
    }
    return reports;
}
