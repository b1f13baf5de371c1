#include "cli/commands/Edit.h"

#include <algorithm>
#include <stdexcept>

#include "cli/commands/TaskSelection.h"
#include "cli/report/ChangeReport.h"
#include "cli/report/Refusal.h"
#include "core/launch/ExtractionProgram.h"
#include "core/list/Storable.h"
#include "core/platform/Clock.h"
#include "core/platform/Shell.h"
#include "core/schedule/ScheduleText.h"
#include "core/task/NewProject.h"
#include "core/task/ProjectSet.h"
#include "core/task/SCVShchedulerTaskArray.h"
#include "util/Path.h"

namespace {

void RequireKept(const CSCVShchedulerTask& task) {
    std::wstring why = WhyNotStorable(task);
    if (why.empty() && HoldsApostrophe(task)) {
        why =
            L"the list doubles an apostrophe in the project or the files of its commands, so that they "
            L"would not be found";
    }
    if (!why.empty()) {
        throw CRefusal(Join(task.m_strProjectPath, ": ", why));
    }
}

void AddProject(const std::wstring& path, const Job& job, CSCVShchedulerTaskArray& tasks, CProjectSet& listed,
                CChangeReport& report) {
    if (!IsProjectExtension(GetFileExtension(path))) {
        throw CRefusal(Join("the project ", path, " ends in neither .scvpr nor .oslpr"));
    }
    if (!listed.Add(path)) {
        throw CRefusal(Join("the project ", path, " is in the list already; scvsched set changes it"));
    }
    const TaskChanges& changes = job.arguments.changes;
    CSCVShchedulerTask& task = *tasks[tasks.AddTask(path, job.now)];
    if (!changes.SwitchesACommandOn()) {
        SetNewProjectDefaults(task);
    }
    changes.ApplyTo(task, job.now);
    RequireKept(task);
    report.Add(kAdded, task);
}

// The projects to add. A pattern is replaced by the files that match it.
std::vector<std::wstring> NewProjects(const Job& job) {
    std::vector<std::wstring> projects;
    for (const std::wstring& name : job.arguments.paths) {
        if (!IsPattern(name)) {
            projects.push_back(name);
            continue;
        }
        const std::vector<std::wstring> found = job.context.findFiles(name);
        if (found.empty()) {
            throw CRefusal(Join("no file matches ", name));
        }
        projects.insert(projects.end(), found.begin(), found.end());
    }
    return projects;
}

// Prints the warnings about new schedules (ScheduleWarnings). `check` reports those that cannot be computed.
void WarnOfSchedules(const Job& job, const CChangeReport& report) {
    for (const CSCVShchedulerTask* task : report.ChangedTasks()) {
        try {
            for (const std::wstring& warning : ScheduleWarnings(*task, job.now)) {
                job.context.Warn(task->m_strProjectPath, ": ", warning);
            }
        } catch (const std::invalid_argument&) {
        }
    }
}

// Calls `change` with each task that the command line names. `change` returns whether the task has changed.
template <typename Change>
int ChangeNamed(const Job& job, std::string_view name, Change change) {
    EditList(job, [&](CSCVShchedulerTaskArray& tasks, CChangeReport& report) {
        for (CSCVShchedulerTask* task : SelectTasks(tasks, job.arguments.paths)) {
            if (change(*task)) {
                report.Add(name, *task);
            } else {
                report.AddUnchanged(*task);
            }
        }
    });
    return kFine;
}

int SwitchTasks(const Job& job, std::int32_t flag) {
    return ChangeNamed(job, flag != 0 ? "enabled" : "disabled", [&](CSCVShchedulerTask& task) {
        const bool changes = (task.m_bEnable != 0) != (flag != 0);
        if (changes) {
            task.m_bEnable = flag;
        }
        return changes;
    });
}

}  // namespace

void EditList(const Job& job,
              const std::function<void(CSCVShchedulerTaskArray& tasks, CChangeReport& report)>& edit) {
    const Context& context = job.context;
    const Arguments& arguments = job.arguments;
    CChangeReport report;
    const auto write = [&] {
        context.out << report.Write(context.list, job.now, arguments.json, arguments.dryRun);
    };
    if (arguments.dryRun) {
        edit(job.tasks, report);
    } else if (const FileResult saved =
                   job.tasks.TryEdit(context.platform.files, context.list, [&] { edit(job.tasks, report); });
               !saved) {
        if (report.HasLaunches()) {
            write();  // the launched projects are running although the list could not be saved
        }
        throw CRefusal(Join("the task list could not be saved: ", context.Reason(saved)), kFindings);
    }
    write();
    if (arguments.changes.ChangesSchedule()) {
        WarnOfSchedules(job, report);
    }
}

int AddProjects(const Job& job) {
    const std::vector<std::wstring> projects = NewProjects(job);
    EditList(job, [&](CSCVShchedulerTaskArray& tasks, CChangeReport& report) {
        CProjectSet listed(tasks);
        for (const std::wstring& path : projects) {
            AddProject(path, job, tasks, listed, report);
        }
    });
    for (const std::wstring& path : projects) {
        if (!job.context.platform.shell.FileExists(path)) {
            job.context.Warn(path, " does not exist; the task fails until it does");
        }
    }
    return kFine;
}

int SetTasks(const Job& job) {
    const TaskChanges& changes = job.arguments.changes;
    return ChangeNamed(job, kSet, [&](CSCVShchedulerTask& task) {
        const auto before = static_cast<const TaskFields&>(task);
        changes.ApplyTo(task, job.now);
        if (changes.ChangesCommands()) {
            RequireKept(task);
        }
        return static_cast<const TaskFields&>(task) != before;
    });
}

int EnableTasks(const Job& job) {
    return SwitchTasks(job, 1);
}

int DisableTasks(const Job& job) {
    return SwitchTasks(job, 0);
}

int RemoveTasks(const Job& job) {
    EditList(job, [&](CSCVShchedulerTaskArray& tasks, CChangeReport& report) {
        for (CSCVShchedulerTask* task : SelectTasks(tasks, job.arguments.paths)) {
            report.AddRemoved(*task, job.now);
        }
        for (std::ptrdiff_t i = tasks.GetSize(); i-- > 0;) {
            const std::wstring& project = tasks[i]->m_strProjectPath;
            if (std::any_of(job.arguments.paths.begin(), job.arguments.paths.end(),
                            [&](const auto& name) { return NamesProject(name, project); })) {
                tasks.RemoveTaskAt(i);
            }
        }
    });
    return kFine;
}

int RunProjects(const Job& job) {
    const CPlatform& platform = job.context.platform;
    bool areLaunched = true;
    EditList(job, [&](CSCVShchedulerTaskArray& tasks, CChangeReport& report) {
        for (CSCVShchedulerTask* task : SelectTasks(tasks, job.arguments.paths)) {
            if (!job.arguments.dryRun && task->Run(platform.shell, platform.clock) == 0) {
                areLaunched = false;
            }
            report.Add(kLaunched, *task);
        }
    });
    return areLaunched ? kFine : kFindings;
}
