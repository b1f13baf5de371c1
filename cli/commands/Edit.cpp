#include "cli/commands/Edit.h"

#include <algorithm>
#include <array>

#include "cli/report/ChangeReport.h"
#include "cli/report/Refusal.h"
#include "core/launch/ExtractionProgram.h"
#include "core/list/Storable.h"
#include "core/platform/Clock.h"
#include "core/task/NewProject.h"
#include "core/task/SCVShchedulerTaskArray.h"
#include "core/task/TaskDays.h"
#include "util/CaseFold.h"
#include "util/Path.h"

namespace {

// Everything of a task that the list keeps, to be compared.
struct TaskRecord {
    std::wstring commandLine;
    std::array<std::int64_t, 8> numbers;
    std::array<std::int32_t, std::size(kTaskDays)> days{};
    std::wstring lastRunResult;

    explicit TaskRecord(const CSCVShchedulerTask& task)
        : commandLine(task.BuildCommandLine()),
          numbers{task.m_bEnable,      task.m_tStartTime,       task.m_tUntilTime,  task.m_tLastRunTime,
                  task.m_bEnableEvery, task.m_bRepeatOnMonthly, task.m_nEveryValue, task.m_nEveryUnit},
          lastRunResult(task.m_strLastRunResult) {
        std::transform(std::begin(kTaskDays), std::end(kTaskDays), days.begin(),
                       [&](const TaskDay& day) { return task.*day.flag; });
    }
    bool operator==(const TaskRecord&) const = default;
};

void RequireKept(const CSCVShchedulerTask& task) {
    std::string why = WhyNotStorable(task);
    if (why.empty() && HoldsApostrophe(task)) {
        why =
            "the list doubles an apostrophe in the project or the files of its commands, so that they "
            "would not be found";
    }
    if (!why.empty()) {
        throw CRefusal(Join(task.m_strProjectPath, ": ", why));
    }
}

void RequireListed(const std::vector<std::wstring>& paths, const CSCVShchedulerTaskArray& tasks) {
    for (const std::wstring& path : paths) {
        if (tasks.FindTask(path) < 0) {
            throw CRefusal(Join("no task of the list has the project ", path));
        }
    }
}

// Calls `change` with each task that the command line names. Throws CRefusal, before that, for a path that
// names none.
template <typename Change>
void ForEachNamed(const std::vector<std::wstring>& paths, CSCVShchedulerTaskArray& tasks, Change change) {
    RequireListed(paths, tasks);
    for (std::ptrdiff_t i = 0; i < tasks.GetSize(); ++i) {
        CSCVShchedulerTask& task = *tasks[i];
        if (std::any_of(paths.begin(), paths.end(),
                        [&](const auto& path) { return EqualNoCase(path, task.m_strProjectPath); })) {
            change(task);
        }
    }
}

void AddProject(const std::wstring& path, const Job& job, CSCVShchedulerTaskArray& tasks,
                CChangeReport& report) {
    if (!IsProjectExtension(GetFileExtension(path))) {
        throw CRefusal(Join("the project ", path, " ends in neither .scvpr nor .oslpr"));
    }
    if (tasks.FindTask(path) >= 0) {
        throw CRefusal(Join("the project ", path, " is in the list already; scvsched set changes it"));
    }
    const TaskChanges& changes = job.arguments.changes;
    CSCVShchedulerTask& task = *tasks[tasks.AddTask(path, job.now)];
    if (!changes.SwitchesACommandOn()) {
        SetNewProjectDefaults(task);
    }
    changes.ApplyTo(task, job.now);
    RequireKept(task);
    report.Add("added", task);
}

int SwitchTasks(const Job& job, std::int32_t flag) {
    EditList(job, [&](CSCVShchedulerTaskArray& tasks, CChangeReport& report) {
        ForEachNamed(job.arguments.paths, tasks, [&](CSCVShchedulerTask& task) {
            if ((task.m_bEnable != 0) != (flag != 0)) {
                task.m_bEnable = flag;
                report.Add(flag != 0 ? "enabled" : "disabled", task);
            }
        });
    });
    return kFine;
}

}  // namespace

void EditList(const Job& job,
              const std::function<void(CSCVShchedulerTaskArray& tasks, CChangeReport& report)>& edit) {
    const Context& context = job.context;
    CChangeReport report;
    const auto write = [&] { context.out << report.Write(context.list, job.now, job.arguments.json); };
    if (const FileResult saved =
            job.tasks.TryEdit(context.platform.files, context.list, [&] { edit(job.tasks, report); });
        !saved) {
        if (report.HasLaunches()) {
            write();  // a project that was launched runs all the same
        }
        throw CRefusal(Join("the task list could not be saved: ", context.Reason(saved)), kFindings);
    }
    write();
}

int AddProjects(const Job& job) {
    EditList(job, [&](CSCVShchedulerTaskArray& tasks, CChangeReport& report) {
        for (const std::wstring& path : job.arguments.paths) {
            AddProject(path, job, tasks, report);
        }
    });
    return kFine;
}

int SetTasks(const Job& job) {
    const TaskChanges& changes = job.arguments.changes;
    EditList(job, [&](CSCVShchedulerTaskArray& tasks, CChangeReport& report) {
        ForEachNamed(job.arguments.paths, tasks, [&](CSCVShchedulerTask& task) {
            const TaskRecord before(task);
            changes.ApplyTo(task, job.now);
            if (changes.ChangesCommands()) {
                RequireKept(task);
            }
            if (TaskRecord(task) != before) {
                report.Add("set", task);
            }
        });
    });
    return kFine;
}

int EnableTasks(const Job& job) {
    return SwitchTasks(job, 1);
}

int DisableTasks(const Job& job) {
    return SwitchTasks(job, 0);
}

int RemoveTasks(const Job& job) {
    EditList(job, [&](CSCVShchedulerTaskArray& tasks, CChangeReport& report) {
        ForEachNamed(job.arguments.paths, tasks,
                     [&](CSCVShchedulerTask& task) { report.AddRemoved(task, job.now); });
        for (const std::wstring& path : job.arguments.paths) {
            while (tasks.RemoveTask(path) != 0) {
            }
        }
    });
    return kFine;
}

int RunProject(const Job& job) {
    const CPlatform& platform = job.context.platform;
    bool isLaunched = false;
    EditList(job, [&](CSCVShchedulerTaskArray& tasks, CChangeReport& report) {
        RequireListed(job.arguments.paths, tasks);
        CSCVShchedulerTask& task = *tasks[tasks.FindTask(job.arguments.paths.front())];
        isLaunched = task.Run(platform.shell, platform.clock) != 0;
        report.Add(kLaunched, task);
    });
    return isLaunched ? kFine : kFindings;
}
