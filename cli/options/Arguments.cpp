#include "cli/options/Arguments.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "cli/options/EditOptions.h"
#include "cli/report/Refusal.h"
#include "cli/report/Text.h"
#include "core/schedule/TimeText.h"

namespace {

constexpr const char* kDescription =
    "Reads, edits and runs the task list of SCVScheduler without a window.\n"
    "Times are ISO local (2024-03-31T02:30) or seconds since 1970.";

constexpr const char* kExitCodes =
    "scvsched COMMAND --help tells a command's options, with an example.\n"
    "Exit codes: 0 fine; 1 findings, a failed launch, or refused as the tasks are in use or the list cannot "
    "be written; 2 wrong words or input; 3 the list file is missing or unreadable.";

constexpr const char* kOpposites =
    "--no-days, --no-monthly, --no-every, --no-export-file and --no- before any command switch it off.\n";

std::string RejectBadTime(const std::string& text) {
    return ParseTime(text) ? std::string()
                           : "'" + text + "' is neither an ISO local time nor seconds since 1970";
}

// The parser's messages may span lines; errors are one line here.
std::string OneLine(std::string text) {
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
}

// The parser and what it fills in.
class Parser {
public:
    Parser(std::span<const Subcommand> table, const std::string& version);
    Parser(const Parser&) = delete;
    Parser& operator=(const Parser&) = delete;

    void Parse(std::vector<std::string> words);
    [[nodiscard]] std::string Help() const { return m_app.help("", CLI::AppFormatMode::Normal); }
    [[nodiscard]] Arguments Take(const std::function<std::wstring(const std::wstring&)>& fullPath);

private:
    void Add(const Subcommand& row);
    void AddOptions(Takes takes, CLI::App& command);
    CLI::Option* AddPaths(CLI::App& command, const char* text);
    void AddAt(CLI::App& command);
    void AddFile(CLI::App& command, const char* text);

    CLI::App m_app{kDescription, "scvsched"};
    Arguments m_arguments;
    CEditOptions m_options;
    std::string m_list;
    std::string m_at;
    std::string m_file;
    std::vector<std::string> m_paths;
};

Parser::Parser(std::span<const Subcommand> table, const std::string& version) {
    m_app.footer(kExitCodes);
    m_app.set_version_flag("--version", "scvsched " + version + "\n", "Show the version and end");
    m_app.require_subcommand(0, 1);  // Parse has better words for a missing one
    m_app.allow_windows_style_options(false);
    m_app.fallthrough();
    m_app.add_option("--list", m_list, "The task list file; without it, the list of the window program");
    m_app.add_flag("--json", m_arguments.json, "Report as JSON");
    for (const Subcommand& row : table) {
        Add(row);
    }
}

void Parser::Add(const Subcommand& row) {
    CLI::App& command = *m_app.add_subcommand(row.name, row.help);
    command.callback([this, &row] { m_arguments.subcommand = &row; });
    AddOptions(row.takes, command);
    const bool hasOpposites = row.takes == Takes::NewTask || row.takes == Takes::Changes;
    const char* const blank = *row.example == '\0' ? "" : " ";
    command.footer(
        Join(hasOpposites ? kOpposites : "",
             "--list FILE names another task list, --json reports as JSON.\n\nExample:\n  scvsched ",
             row.name, blank, row.example));
}

void Parser::AddOptions(Takes takes, CLI::App& command) {
    switch (takes) {
        case Takes::Nothing:
            break;
        case Takes::Times:
            AddAt(command);
            break;
        case Takes::NextRuns:
            AddAt(command);
            command.add_option("--count", m_arguments.count, "How many runs of each task")
                ->check(CLI::Range(1, 100000));
            AddPaths(command, "Project files to report; all when none is named");
            break;
        case Takes::NewTask:
            AddPaths(command, "Project files that are not in the list yet")->required();
            m_options.AddTo(command);
            m_options.AddDisabled(command);
            break;
        case Takes::Changes:
            AddPaths(command, "Listed project files")->required();
            m_options.AddTo(command);
            m_options.AddResetLastRun(command);
            break;
        case Takes::Projects:
            AddPaths(command, "Listed project files")->required();
            break;
        case Takes::OneProject:
            AddPaths(command, "A listed project file")->required()->expected(1);
            break;
        case Takes::OutFile:
            AddFile(command, "The file to write, in UTF-8; without it, standard output");
            break;
        case Takes::InFile:
            AddFile(command, "The file to read; without it, standard input");
            command.add_flag("--replace", m_arguments.replace,
                             "Let a task take the place of the listed one of the same project; otherwise "
                             "nothing is imported then");
            break;
    }
}

CLI::Option* Parser::AddPaths(CLI::App& command, const char* text) {
    return command.add_option("PATH", m_paths, text)->type_name("");
}

void Parser::AddAt(CLI::App& command) {
    command.add_option("--at", m_at, "Report as if it were this time")
        ->check(CLI::Validator(RejectBadTime, ""))
        ->type_name("TIME");
}

void Parser::AddFile(CLI::App& command, const char* text) {
    command.add_option("FILE", m_file, text)->type_name("");
}

void Parser::Parse(std::vector<std::string> words) {
    std::reverse(words.begin(), words.end());  // the library takes them from the back
    try {
        m_app.parse(std::move(words));
    } catch (const CLI::ExtrasError&) {
        const std::vector<std::string> unknown = m_app.remaining();
        if (!m_app.get_subcommands().empty() || unknown.empty()) {
            throw;
        }
        throw CLI::ValidationError("'" + unknown.front() + "' is no command; scvsched --help names them",
                                   CLI::ExitCodes::ValidationError);
    }
    if (m_app.get_subcommands().empty()) {
        throw CLI::ValidationError("a command is missing; scvsched --help names them",
                                   CLI::ExitCodes::ValidationError);
    }
}

Arguments Parser::Take(const std::function<std::wstring(const std::wstring&)>& fullPath) {
    const auto full = [&](const std::string& path) {
        return path.empty() ? std::wstring() : fullPath(FromUtf8(path));
    };
    m_arguments.list = full(m_list);
    m_arguments.file = full(m_file);
    if (!m_at.empty()) {
        m_arguments.at = ParseTime(m_at);
    }
    for (const std::string& path : m_paths) {
        m_arguments.paths.push_back(full(path));
    }
    m_arguments.changes = m_options.Changes(fullPath);
    if (m_arguments.subcommand->takes == Takes::Changes && m_arguments.changes.IsEmpty()) {
        throw CLI::ValidationError("set needs at least one change; scvsched set --help names them",
                                   CLI::ExitCodes::ValidationError);
    }
    return std::move(m_arguments);
}

}  // namespace

ParsedCommandLine ParseArguments(std::span<const Subcommand> table, std::vector<std::string> words,
                                 const std::function<std::wstring(const std::wstring&)>& fullPath,
                                 const std::string& version) {
    Parser parser(table, version);
    try {
        parser.Parse(std::move(words));
        return {parser.Take(fullPath), {}, kFine};
    } catch (const CLI::CallForVersion& shown) {
        return {std::nullopt, shown.what(), kFine};
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) {
            return {std::nullopt, parser.Help(), kFine};
        }
        return {std::nullopt, OneLine(error.what()), kUsage};
    }
}
