#include "cli/commands/Commands.h"

#include <ostream>

#include "core/check/Check.h"
#include "cli/commands/Edit.h"
#include "cli/commands/Exchange.h"
#include "cli/commands/ExitCode.h"
#include "cli/report/JsonReport.h"
#include "cli/commands/Passes.h"
#include "cli/commands/Refusal.h"
#include "cli/report/TaskReport.h"
#include "cli/report/TextReport.h"
#include "core/platform/Clock.h"
#include "core/platform/FileSystem.h"
#include "core/list/ProfileFile.h"
#include "core/task/SCVShchedulerTaskArray.h"
#include "util/Utf8.h"

namespace {

int TellUnread(IFileSystem::Status status, const Context& context) {
    context.err << "scvsched: the task list " << ToUtf8(context.list)
                << (status == IFileSystem::Status::Missing ? " does not exist\n" : " cannot be read\n");
    return kNoList;
}

// False, with the reason told, when a path names no task of the list.
bool AreAllListed(const std::vector<std::wstring>& paths, const CSCVShchedulerTaskArray& tasks,
                  const Context& context) {
    for (const std::wstring& path : paths) {
        if (tasks.FindTask(path) < 0) {
            context.err << "scvsched: no task of the list has the project " << ToUtf8(path) << '\n';
            return false;
        }
    }
    return true;
}

int Report(const Arguments& arguments, const Context& context, CSCVShchedulerTaskArray& tasks,
           std::int64_t now) {
    const bool next = arguments.command == Command::Next;
    if (!AreAllListed(arguments.paths, tasks, context)) {
        return kUsage;
    }
    const std::vector<TaskReport> reports =
        ReportTasks(tasks, arguments.paths, now, next ? arguments.count : 1);
    if (arguments.json) {
        context.out << TasksAsJson(context.list, now, reports, next) << '\n';
    } else if (next) {
        context.out << NextRunsAsText(reports);
    } else {
        context.out << TasksAsText(reports, context.width);
    }
    return kFine;
}

int Check(const Arguments& arguments, const Context& context, CSCVShchedulerTaskArray& tasks,
          std::int64_t now) {
    // The tasks alone do not show what loading them has cut or left out.
    const ProfileRead read = ReadProfile(context.platform.files, context.list);
    if (!read.profile) {
        return TellUnread(read.status, context);
    }
    const std::vector<Finding> findings = FindProblems(*read.profile, tasks, context.platform.shell, now);
    if (arguments.json) {
        context.out << FindingsAsJson(context.list, now, findings) << '\n';
    } else {
        context.out << FindingsAsText(context.list, findings);
    }
    return findings.empty() ? kFine : kFindings;
}

bool Launches(Command command) {
    return command == Command::Pass || command == Command::Watch || command == Command::Run;
}

bool IsLook(Command command) {
    return command == Command::List || command == Command::Next || command == Command::Check;
}

bool MakesAList(Command command) {
    return command == Command::Add || command == Command::Import;
}

// Raises CRefusal when somebody else may be using the tasks, or when no change could be recorded.
void RequireUnused(Command command, const Context& context) {
    std::string why = Launches(command) ? context.whyNotToLaunch() : context.whyNotToEdit();
    if (why.empty() && command != Command::Export && context.platform.files.IsReadOnly(context.list)) {
        why = "the task list " + ToUtf8(context.list) + " is read-only, so nothing could be recorded";
    }
    if (!why.empty()) {
        throw CRefusal(why, kFindings);
    }
}

int Carry(const Arguments& arguments, const Context& context) {
    const Command command = arguments.command;
    // Before anything is claimed: the input may be what another scvsched is about to export.
    const std::string input =
        command == Command::Import ? ReadImport(arguments.file, context) : std::string();
    if (!IsLook(command)) {
        RequireUnused(command, context);
    }
    CSCVShchedulerTaskArray tasks;
    if (const auto status = tasks.TryLoad(context.platform.files, context.list);
        status != IFileSystem::Status::Ok &&
        !(status == IFileSystem::Status::Missing && MakesAList(command))) {
        return TellUnread(status, context);
    }
    const std::int64_t now = arguments.at.value_or(context.platform.clock.Now());
    switch (command) {
        case Command::List:
        case Command::Next:
            return Report(arguments, context, tasks, now);
        case Command::Check:
            return Check(arguments, context, tasks, now);
        case Command::Pass:
            return RunPass(tasks, context, arguments.json);
        case Command::Watch:
            return Watch(tasks, context, arguments.json);
        case Command::Export:
            WriteExport(ExportTasks(tasks), arguments.file, context);
            return kFine;
        default:
            return EditList(arguments, input, context);
    }
}

}  // namespace

int RunCommand(const Arguments& arguments, const Context& context) {
    try {
        return Carry(arguments, context);
    } catch (const CRefusal& refusal) {
        context.err << "scvsched: " << refusal.what() << '\n';
        return refusal.Code();
    }
}
