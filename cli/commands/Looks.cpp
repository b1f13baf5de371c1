#include "cli/commands/Looks.h"

#include "cli/report/JsonReport.h"
#include "cli/report/Refusal.h"
#include "cli/report/TaskReport.h"
#include "cli/report/TextReport.h"
#include "core/check/Check.h"
#include "core/list/ProfileFile.h"
#include "core/platform/FileSystem.h"
#include "core/task/SCVShchedulerTaskArray.h"

namespace {

void RequireListed(const Job& job) {
    for (const std::wstring& path : job.arguments.paths) {
        if (job.tasks.FindTask(path) < 0) {
            throw CRefusal(Join("no task of the list has the project ", path));
        }
    }
}

}  // namespace

int ListTasks(const Job& job) {
    const std::vector<TaskReport> reports = ReportTasks(job.tasks, {}, job.now, 1);
    if (job.arguments.json) {
        job.context.out << TasksAsJson(job.context.list, job.now, reports, false) << '\n';
    } else {
        job.context.out << TasksAsText(reports, job.context.width);
    }
    return kFine;
}

int ListNextRuns(const Job& job) {
    RequireListed(job);
    const std::vector<TaskReport> reports =
        ReportTasks(job.tasks, job.arguments.paths, job.now, job.arguments.count);
    if (job.arguments.json) {
        job.context.out << TasksAsJson(job.context.list, job.now, reports, true) << '\n';
    } else {
        job.context.out << NextRunsAsText(reports);
    }
    return kFine;
}

int CheckList(const Job& job) {
    const Context& context = job.context;
    // The tasks alone do not show what loading them has cut or left out.
    const ProfileRead read = ReadProfile(context.platform.files, context.list);
    if (!read.profile) {
        throw CRefusal(Join("the task list cannot be read: ", context.Reason(read.result)), kNoList);
    }
    const std::vector<Finding> findings =
        FindProblems(*read.profile, job.tasks, context.platform.shell, job.now);
    if (job.arguments.json) {
        context.out << FindingsAsJson(context.list, job.now, findings) << '\n';
    } else {
        context.out << FindingsAsText(context.list, findings);
    }
    return findings.empty() ? kFine : kFindings;
}
