#include "cli/report/TaskReport.h"

#include <algorithm>
#include <exception>

#include "core/schedule/NextRuns.h"
#include "core/task/SCVShchedulerTaskArray.h"
#include "util/CaseFold.h"

TaskReport ReportTask(CSCVShchedulerTask& task, std::int64_t now, int count) {
    TaskReport report{&task, {}, {}};
    try {
        report.runs = NextRuns(task, now, count);
    } catch (const std::exception& error) {
        report.error = error.what();
    }
    return report;
}

std::vector<TaskReport> ReportTasks(CSCVShchedulerTaskArray& tasks, const std::vector<std::wstring>& paths,
                                    std::int64_t now, int count) {
    std::vector<TaskReport> reports;
    for (std::ptrdiff_t i = 0; i < tasks.GetSize(); ++i) {
        CSCVShchedulerTask& task = *tasks[i];
        const bool wanted =
            paths.empty() || std::any_of(paths.begin(), paths.end(), [&task](const std::wstring& path) {
                return EqualNoCase(path, task.m_strProjectPath);
            });
        if (!wanted) {
            continue;
        }
        reports.push_back(ReportTask(task, now, count));
    }
    return reports;
}
