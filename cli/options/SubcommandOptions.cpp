#include "cli/options/SubcommandOptions.h"

#include <CLI/CLI.hpp>
#include <charconv>

#include "cli/options/Arguments.h"
#include "core/schedule/TimeText.h"
#include "util/Utf8.h"

namespace {

constexpr const char* kAt = "Report as if it were this time";
constexpr const char* kListed = "Listed projects, by path or by pattern: *.scvpr or C:\\projects\\prices?.*";
constexpr const char* kShown =
    "Projects to show, by path or by pattern such as prices*; all when none is named";

std::string RejectBadTime(const std::string& text) {
    return ParseTime(text) ? std::string()
                           : "'" + text + "' is neither an ISO local time nor seconds since 1970";
}

std::string RejectBadCount(const std::string& text) {
    int count = 0;
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, count);
    return error == std::errc{} && rest == end && count >= 1 && count <= 100'000
               ? std::string()
               : "'" + text + "' is no whole number from 1 to 100000";
}

void AddTime(CLI::App& command, const char* name, std::string& text, const char* help) {
    command.add_option(name, text, help)->check(CLI::Validator(RejectBadTime, ""))->type_name("TIME");
}

}  // namespace

void CSubcommandOptions::AddTo(CLI::App& command, const Subcommand& row) {
    AddGroup(command, row.takes);
    if (row.canTry) {
        command.add_flag("--dry-run", m_arguments.dryRun, "Show what would change, and change nothing");
    }
}

void CSubcommandOptions::AddGroup(CLI::App& command, Takes takes) {
    switch (takes) {
        case Takes::Nothing:
            return;
        case Takes::Filter:
            return AddFilter(command);
        case Takes::NextRuns:
            return AddNextRuns(command);
        case Takes::Time:
            return AddTime(command, "--at", m_at, kAt);
        case Takes::Command:
            return AddOnFailure(command);
        case Takes::NewTask:
            return AddNewTask(command);
        case Takes::Changes:
            return AddChanges(command);
        case Takes::Projects:
            AddPaths(command, kListed)->required();
            return;
        case Takes::OutFile:
            return AddFile(command, "The file to write, in UTF-8; without it, standard output");
        case Takes::InFile:
            return AddInFile(command);
    }
}

CLI::Option* CSubcommandOptions::AddPaths(CLI::App& command, const char* text) {
    return command.add_option("PATH", m_paths, text)->type_name("");
}

void CSubcommandOptions::AddOnFailure(CLI::App& command) {
    command
        .add_option("--on-failure", m_onFailure,
                    "A command to start for each launch that fails, with the project in the variable "
                    "SCV_PROJECT and the result in SCV_RESULT")
        ->type_name("COMMAND");
}

void CSubcommandOptions::AddFilter(CLI::App& command) {
    AddPaths(command, kShown);
    command.add_flag("--failed", m_arguments.failed,
                     "Only tasks whose last launch failed; exit code 1 when there are any");
    command.add_flag("--csv", m_arguments.csv, "Report as CSV for a spreadsheet");
}

void CSubcommandOptions::AddNextRuns(CLI::App& command) {
    AddPaths(command, kShown);
    AddTime(command, "--at", m_at, kAt);
    command
        .add_option("--count", m_arguments.count, "How many runs of each task; with --from or --to, of all")
        ->check(CLI::Validator(RejectBadCount, ""))
        ->type_name("NUMBER");
    AddTime(command, "--from", m_from, "The runs of all tasks in order of time, from then on for a day");
    AddTime(command, "--to", m_to, "The runs of all tasks in order of time, until then");
    command.add_flag("--week", m_arguments.week,
                     "How many projects start in each hour of seven days, today the first");
    command.add_flag("--csv", m_arguments.csv, "Report as CSV for a spreadsheet");
}

void CSubcommandOptions::AddFile(CLI::App& command, const char* text) {
    command.add_option("FILE", m_file, text)->type_name("");
}

void CSubcommandOptions::AddInFile(CLI::App& command) {
    AddFile(command, "The file to read; without it, standard input");
    command.add_flag("--replace", m_arguments.replace,
                     "Let a task take the place of the listed one of the same project; otherwise "
                     "nothing is imported then");
}

void CSubcommandOptions::AddNewTask(CLI::App& command) {
    AddPaths(command,
             "Project files that are not in the list yet, or a pattern such as C:\\projects\\*.scvpr")
        ->required();
    m_edit.AddTo(command);
    m_edit.AddDisabled(command);
}

void CSubcommandOptions::AddChanges(CLI::App& command) {
    AddPaths(command, kListed)->required();
    m_edit.AddTo(command);
    m_edit.AddResetLastRun(command);
}

std::wstring CSubcommandOptions::Project(const std::string& path, const FullPath& fullPath) const {
    const bool isNameOnly =
        path.find_first_of("*?") != std::string::npos && path.find_first_of("\\/:") == std::string::npos;
    return isNameOnly && m_arguments.subcommand->takes != Takes::NewTask ? FromUtf8(path) : fullPath(path);
}

void CSubcommandOptions::Take(const FullPath& fullPath) {
    m_arguments.file = fullPath(m_file);
    m_arguments.onFailure = FromUtf8(m_onFailure);
    m_arguments.at = ParseTime(m_at);
    m_arguments.from = ParseTime(m_from);
    m_arguments.to = ParseTime(m_to);
    for (const std::string& path : m_paths) {
        if (path.empty()) {
            throw CLI::ValidationError("the path of a project is empty", CLI::ExitCodes::ValidationError);
        }
        m_arguments.paths.push_back(Project(path, fullPath));
    }
    m_arguments.changes = m_edit.Changes(fullPath);
}
