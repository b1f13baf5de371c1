#include "cli/commands/Edit.h"

#include <algorithm>
#include <optional>

#include "cli/report/ChangeReport.h"
#include "cli/commands/Exchange.h"
#include "cli/commands/ExitCode.h"
#include "cli/commands/Refusal.h"
#include "core/list/Storable.h"
#include "core/platform/Clock.h"
#include "core/launch/ExtractionProgram.h"
#include "core/task/NewProject.h"
#include "core/task/SCVShchedulerTaskArray.h"
#include "util/CaseFold.h"
#include "util/Path.h"
#include "util/Utf8.h"

namespace {

void RequireKept(const CSCVShchedulerTask& task) {
    std::string why = WhyNotStorable(task);
    if (why.empty() && HoldsApostrophe(task)) {
        why =
            "the list doubles an apostrophe in the project or the files of its commands, so that they "
            "would not be found";
    }
    if (!why.empty()) {
        throw CRefusal(ToUtf8(task.m_strProjectPath) + ": " + why);
    }
}

// One command at work on the tasks of the list.
class Editor {
public:
    Editor(const Arguments& arguments, const std::string& input, const Context& context,
           CSCVShchedulerTaskArray& tasks)
        : m_arguments(arguments),
          m_input(input),
          m_context(context),
          m_tasks(tasks),
          m_now(context.platform.clock.Now()) {}

    void Edit();
    void Report() const { m_report.Write(m_context, m_now, m_arguments.json); }
    [[nodiscard]] bool IsFine() const { return m_isFine; }

private:
    void Add();
    void Set();
    void Enable(std::int32_t flag);
    void Remove();
    void Run();
    void RequireListed() const;

    template <typename Change>
    void ForEachNamed(Change change) {
        for (std::ptrdiff_t i = 0; i < m_tasks.GetSize(); ++i) {
            CSCVShchedulerTask& task = *m_tasks[i];
            if (std::any_of(m_arguments.paths.begin(), m_arguments.paths.end(),
                            [&](const auto& path) { return EqualNoCase(path, task.m_strProjectPath); })) {
                change(task);
            }
        }
    }

    const Arguments& m_arguments;
    const std::string& m_input;
    const Context& m_context;
    CSCVShchedulerTaskArray& m_tasks;
    std::int64_t m_now;
    CChangeReport m_report;
    bool m_isFine = true;
};

void Editor::Edit() {
    switch (m_arguments.command) {
        case Command::Add:
            return Add();
        case Command::Import:
            return ImportTasks(m_input, m_arguments.replace, m_now, m_tasks, m_report);
        default:
            RequireListed();
    }
    switch (m_arguments.command) {
        case Command::Set:
            return Set();
        case Command::Enable:
            return Enable(1);
        case Command::Disable:
            return Enable(0);
        case Command::Remove:
            return Remove();
        default:
            return Run();
    }
}

void Editor::RequireListed() const {
    for (const std::wstring& path : m_arguments.paths) {
        if (m_tasks.FindTask(path) < 0) {
            throw CRefusal("no task of the list has the project " + ToUtf8(path));
        }
    }
}

void Editor::Add() {
    for (const std::wstring& path : m_arguments.paths) {
        const std::string name = ToUtf8(path);
        if (!IsProjectExtension(GetFileExtension(path))) {
            throw CRefusal("the project " + name + " ends in neither .scvpr nor .oslpr");
        }
        if (m_tasks.FindTask(path) >= 0) {
            throw CRefusal("the project " + name + " is in the list already; scvsched set changes it");
        }
        CSCVShchedulerTask& task = *m_tasks[m_tasks.AddTask(path, m_now)];
        if (!m_arguments.changes.SwitchesACommandOn()) {
            SetNewProjectDefaults(task);
        }
        m_arguments.changes.ApplyTo(task, m_now);
        RequireKept(task);
        m_report.Add("added", task);
    }
}

void Editor::Set() {
    ForEachNamed([&](CSCVShchedulerTask& task) {
        const std::string before = ChangeAsJson("set", task, m_now);
        m_arguments.changes.ApplyTo(task, m_now);
        if (m_arguments.changes.ChangesCommands()) {
            RequireKept(task);
        }
        if (ChangeAsJson("set", task, m_now) != before) {
            m_report.Add("set", task);
        }
    });
}

void Editor::Enable(std::int32_t flag) {
    ForEachNamed([&](CSCVShchedulerTask& task) {
        if ((task.m_bEnable != 0) != (flag != 0)) {
            task.m_bEnable = flag;
            m_report.Add(flag != 0 ? "enabled" : "disabled", task);
        }
    });
}

void Editor::Remove() {
    ForEachNamed([&](CSCVShchedulerTask& task) { m_report.AddGone("removed", task, m_now); });
    for (const std::wstring& path : m_arguments.paths) {
        while (m_tasks.RemoveTask(path) != 0) {
        }
    }
}

void Editor::Run() {
    CSCVShchedulerTask& task = *m_tasks[m_tasks.FindTask(m_arguments.paths.front())];
    m_isFine = task.Run(m_context.platform.shell, m_context.platform.clock) != 0;
    m_report.Add(kRunChange, task);
}

}  // namespace

int EditList(const Arguments& arguments, const std::string& input, const Context& context) {
    CSCVShchedulerTaskArray tasks;
    Editor editor(arguments, input, context, tasks);
    const bool saved = tasks.TryEdit(context.platform.files, context.list, [&] { editor.Edit(); });
    if (!saved) {
        if (arguments.command == Command::Run) {
            editor.Report();  // a project that was launched runs all the same
        }
        throw CRefusal("the task list " + ToUtf8(context.list) + " could not be saved", kFindings);
    }
    editor.Report();
    return editor.IsFine() ? kFine : kFindings;
}
