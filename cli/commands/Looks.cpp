#include "cli/commands/Looks.h"

#include <limits>

#include "cli/commands/TaskSelection.h"
#include "cli/report/JsonReport.h"
#include "cli/report/Refusal.h"
#include "cli/report/RunPlan.h"
#include "cli/report/TaskReport.h"
#include "cli/report/TextReport.h"
#include "core/check/Check.h"
#include "core/launch/LaunchResult.h"
#include "core/list/ProfileFile.h"
#include "core/platform/FileSystem.h"
#include "core/platform/LocalTime.h"
#include "core/task/SCVShchedulerTaskArray.h"

namespace {

constexpr std::int64_t kEndOfTime = std::numeric_limits<std::int64_t>::max();
constexpr std::size_t kMostRuns = 100'000;

std::vector<PlannedRun> Plan(const Job& job, std::int64_t from, std::int64_t to, std::size_t count) {
    std::vector<const CSCVShchedulerTask*> unplanned;
    const auto tasks = SelectTasks(job.tasks, job.arguments.paths);
    std::vector<PlannedRun> plan = PlanRuns(tasks, job.now, from, to, count, unplanned);
    for (const CSCVShchedulerTask* task : unplanned) {
        job.context.Complain("the runs of ", task->m_strProjectPath,
                             " cannot be computed; scvsched check says why");
    }
    return plan;
}

std::string WeekReport(const Job& job) {
    const std::int64_t end = EndOfWeek(job.now);
    const WeekGrid week =
        CountStarts(Plan(job, job.now, end, std::numeric_limits<std::size_t>::max()), job.now);
    return job.arguments.json  ? WeekAsJson(job.context.list, job.now, week)
           : job.arguments.csv ? WeekAsCsv(week)
                               : WeekAsText(week);
}

std::string RunsReport(const Job& job) {
    const Arguments& arguments = job.arguments;
    const std::int64_t from = arguments.from.value_or(job.now);
    const std::int64_t to = arguments.to.value_or(arguments.count ? kEndOfTime : from + kSecondsPerDay);
    const std::size_t count = arguments.count ? static_cast<std::size_t>(*arguments.count) : kMostRuns;
    const std::vector<PlannedRun> runs = Plan(job, from, to, count);
    return arguments.json  ? RunsAsJson(job.context.list, job.now, runs)
           : arguments.csv ? RunsAsCsv(runs)
                           : RunsAsText(runs);
}

std::string NextReport(const Job& job) {
    const std::vector<TaskReport> reports =
        ReportTasks(SelectTasks(job.tasks, job.arguments.paths), job.now, job.arguments.count.value_or(1));
    return job.arguments.json  ? TasksAsJson(job.context.list, job.now, reports, true) + '\n'
           : job.arguments.csv ? NextRunsAsCsv(reports)
                               : NextRunsAsText(reports);
}

}  // namespace

int ListTasks(const Job& job) {
    const Arguments& arguments = job.arguments;
    std::vector<CSCVShchedulerTask*> tasks = SelectTasks(job.tasks, arguments.paths);
    if (arguments.failed) {
        std::erase_if(tasks, [](const CSCVShchedulerTask* task) { return !HasFailed(*task); });
    }
    const std::vector<TaskReport> reports = ReportTasks(tasks, job.now, 1);
    if (arguments.json) {
        job.context.out << TasksAsJson(job.context.list, job.now, reports, false) << '\n';
    } else if (arguments.csv) {
        job.context.out << TasksAsCsv(reports);
    } else if (arguments.failed || !arguments.paths.empty()) {
        job.context.out << TasksAsLines(reports);
    } else {
        job.context.out << TasksAsText(reports, job.context.width);
    }
    return arguments.failed && !tasks.empty() ? kFindings : kFine;
}

int ListNextRuns(const Job& job) {
    const Arguments& arguments = job.arguments;
    job.context.out << (arguments.week                   ? WeekReport(job)
                        : arguments.from || arguments.to ? RunsReport(job)
                                                         : NextReport(job));
    return kFine;
}

int CheckList(const Job& job) {
    const Context& context = job.context;
    // Reads the text as well, because the tasks do not show what loading them has cut or left out.
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
