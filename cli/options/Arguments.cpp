#include "cli/options/Arguments.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>

#include "cli/options/EditOptions.h"
#include "cli/report/Refusal.h"
#include "cli/report/Text.h"
#include "core/schedule/TimeText.h"

namespace {

constexpr const char* kDescription =
    "Reads, edits and runs the task list of SCVScheduler without a window.\n"
    "Times are ISO local (2024-03-31T02:30, or 2024-03-31 for midnight) or seconds since 1970.";

constexpr const char* kExitCodes =
    "scvsched COMMAND --help shows a command's options, with an example.\n"
    "Exit codes: 0 fine; 1 findings, a failed launch, or refused as the tasks are in use or the list cannot "
    "be written; 2 wrong arguments or input; 3 the list file is missing or unreadable.";

constexpr const char* kListed = "Listed projects, by path or by pattern: *.scvpr or C:\\projects\\prices?.*";
constexpr const char* kShown =
    "Projects to show, by path or by pattern such as prices*; all when none is named";

constexpr const char* kOpposites =
    "--no-days, --no-monthly, --no-every, --no-export-file and --no- before any command switch it off.\n";

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

// The parser's messages may have several lines; our errors have one.
std::string OneLine(std::string text) {
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
}

[[noreturn]] void Refuse(const std::string& sentence) {
    throw CLI::ValidationError(sentence, CLI::ExitCodes::ValidationError);
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
    static void AddTime(CLI::App& command, const char* name, std::string& text, const char* help);
    void AddOnFailure(CLI::App& command);
    void AddFilter(CLI::App& command);
    void AddNextRuns(CLI::App& command);
    [[nodiscard]] std::wstring Project(
        const std::string& path, const std::function<std::wstring(const std::wstring&)>& fullPath) const;
    void RequireSense() const;
    void AddFile(CLI::App& command, const char* text);

    CLI::App m_app{kDescription, "scvsched"};
    Arguments m_arguments;
    CEditOptions m_options;
    std::optional<std::string> m_list;
    std::string m_at, m_from, m_to;
    std::string m_file;
    std::string m_onFailure;
    std::vector<std::string> m_paths;
};

Parser::Parser(std::span<const Subcommand> table, const std::string& version) {
    m_app.footer(kExitCodes);
    m_app.set_version_flag("--version", "scvsched " + version + "\n", "Show the version and end");
    m_app.require_subcommand(0, 1);  // Parse has a better message for a missing one
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
    if (row.canTry) {
        command.add_flag("--dry-run", m_arguments.dryRun, "Show what would change, and change nothing");
    }
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
        case Takes::Filter:
            AddFilter(command);
            break;
        case Takes::NextRuns:
            AddNextRuns(command);
            break;
        case Takes::Time:
            AddTime(command, "--at", m_at, "Report as if it were this time");
            break;
        case Takes::Command:
            AddOnFailure(command);
            break;
        case Takes::NewTask:
            AddPaths(command,
                     "Project files that are not in the list yet, or a pattern such as C:\\projects\\*.scvpr")
                ->required();
            m_options.AddTo(command);
            m_options.AddDisabled(command);
            break;
        case Takes::Changes:
            AddPaths(command, kListed)->required();
            m_options.AddTo(command);
            m_options.AddResetLastRun(command);
            break;
        case Takes::Projects:
            AddPaths(command, kListed)->required();
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

void Parser::AddTime(CLI::App& command, const char* name, std::string& text, const char* help) {
    command.add_option(name, text, help)->check(CLI::Validator(RejectBadTime, ""))->type_name("TIME");
}

void Parser::AddOnFailure(CLI::App& command) {
    command
        .add_option("--on-failure", m_onFailure,
                    "A command to start for each launch that fails, with the project in the variable "
                    "SCV_PROJECT and the result in SCV_RESULT")
        ->type_name("COMMAND");
}

void Parser::AddFilter(CLI::App& command) {
    AddPaths(command, kShown);
    command.add_flag("--failed", m_arguments.failed,
                     "Only tasks whose last launch failed; exit code 1 when there are any");
    command.add_flag("--csv", m_arguments.csv, "Report as CSV for a spreadsheet");
}

void Parser::AddNextRuns(CLI::App& command) {
    AddPaths(command, kShown);
    AddTime(command, "--at", m_at, "Report as if it were this time");
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

void Parser::AddFile(CLI::App& command, const char* text) {
    command.add_option("FILE", m_file, text)->type_name("");
}

void Parser::Parse(std::vector<std::string> words) {
    // As in other Windows programs: /? anywhere, "help", "help COMMAND".
    std::replace(words.begin(), words.end(), std::string("/?"), std::string("--help"));
    if (!words.empty() && words.front() == "help") {
        words.front() = "--help";
        std::reverse(words.begin(), words.end());
    }
    std::reverse(words.begin(), words.end());  // the library takes them from the back
    try {
        m_app.parse(std::move(words));
    } catch (const CLI::ExtrasError&) {
        const std::vector<std::string> unknown = m_app.remaining(true);
        const auto given = m_app.get_subcommands();
        if (given.empty() && !unknown.front().starts_with('-')) {
            Refuse("'" + unknown.front() + "' is no command; scvsched --help names them");
        }
        Refuse("'" + unknown.front() + "' is not understood; scvsched " +
               (given.empty() ? "" : given.front()->get_name() + " ") + "--help names the options");
    }
    if (m_app.get_subcommands().empty()) {
        Refuse("a command is missing; scvsched --help names them");
    }
}

void Parser::RequireSense() const {
    const Arguments& given = m_arguments;
    if (m_list && m_list->empty()) {
        Refuse("--list needs the name of a file");
    }
    if (given.json && given.csv) {
        Refuse("--json and --csv exclude each other");
    }
    if (given.week && (given.from || given.to || given.count)) {
        Refuse("--week shows seven days, without --from, --to and --count");
    }
    if (given.from && given.to && *given.from > *given.to) {
        Refuse("--to lies before --from");
    }
    if (given.subcommand->takes == Takes::Changes && given.changes.IsEmpty()) {
        Refuse("set needs at least one change; scvsched set --help names them");
    }
}

std::wstring Parser::Project(const std::string& path,
                             const std::function<std::wstring(const std::wstring&)>& fullPath) const {
    const bool isNameOnly =
        path.find_first_of("*?") != std::string::npos && path.find_first_of("\\/:") == std::string::npos;
    return isNameOnly && m_arguments.subcommand->takes != Takes::NewTask ? FromUtf8(path)
                                                                         : fullPath(FromUtf8(path));
}

Arguments Parser::Take(const std::function<std::wstring(const std::wstring&)>& fullPath) {
    const auto full = [&](const std::string& path) {
        return path.empty() ? std::wstring() : fullPath(FromUtf8(path));
    };
    m_arguments.list = full(m_list.value_or(""));
    m_arguments.file = full(m_file);
    m_arguments.onFailure = FromUtf8(m_onFailure);
    m_arguments.at = ParseTime(m_at);
    m_arguments.from = ParseTime(m_from);
    m_arguments.to = ParseTime(m_to);
    for (const std::string& path : m_paths) {
        if (path.empty()) {
            Refuse("the path of a project is empty");
        }
        m_arguments.paths.push_back(Project(path, fullPath));
    }
    m_arguments.changes = m_options.Changes(fullPath);
    RequireSense();
    return std::move(m_arguments);
}

// The parser's messages mention its internals; these are for users.
std::string InOurWords(const CLI::ParseError& error) {
    std::string what = OneLine(error.what());
    const std::string name = what.substr(0, what.find(':'));
    if (error.get_name() == "RequiredError") {
        return what.starts_with("PATH")
                   ? "the path of a project is missing; the command's --help shows an example"
                   : what;
    }
    if (error.get_name() == "ArgumentMismatch") {
        return name + (what.find("received") == std::string::npos ? " needs a value" : " is given twice");
    }
    return what;
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
        return {std::nullopt, InOurWords(error), kUsage};
    }
}
