#include "cli/options/Arguments.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "cli/options/EditOptions.h"
#include "cli/commands/ExitCode.h"
#include "core/schedule/TimeText.h"
#include "util/Utf8.h"

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
    explicit Parser(const std::string& version);
    Parser(const Parser&) = delete;
    Parser& operator=(const Parser&) = delete;

    void Parse(std::vector<std::string> words);
    [[nodiscard]] std::string Help() const { return m_app.help("", CLI::AppFormatMode::Normal); }
    [[nodiscard]] Arguments Take(const std::function<std::wstring(const std::wstring&)>& fullPath);

private:
    CLI::App* Add(const char* name, Command value, const char* text, const char* example);
    void AddLooks();
    void AddEdits();
    CLI::Option* AddPaths(CLI::App* command, const char* text);
    void AddAt(CLI::App* command);

    CLI::App m_app{kDescription, "scvsched"};
    Arguments m_arguments;
    CEditOptions m_options;
    std::string m_list;
    std::string m_at;
    std::string m_file;
    std::vector<std::string> m_paths;
};

Parser::Parser(const std::string& version) {
    m_app.footer(kExitCodes);
    m_app.set_version_flag("--version", "scvsched " + version + "\n", "Show the version and end");
    m_app.require_subcommand(0, 1);  // Parse tells a missing one in better words
    m_app.allow_windows_style_options(false);
    m_app.fallthrough();
    m_app.add_option("--list", m_list, "The task list file; without it, the list of the window program");
    m_app.add_flag("--json", m_arguments.json, "Report as JSON");
    AddLooks();
    AddEdits();
}

CLI::App* Parser::Add(const char* name, Command value, const char* text, const char* example) {
    CLI::App* command = m_app.add_subcommand(name, text);
    command->callback([this, value] { m_arguments.command = value; });
    const bool hasOpposites = value == Command::Add || value == Command::Set;
    command->footer(std::string(hasOpposites ? kOpposites : "") +
                    "--list FILE names another task list, --json reports as JSON.\n\nExample:\n  scvsched " +
                    example);
    return command;
}

CLI::Option* Parser::AddPaths(CLI::App* command, const char* text) {
    return command->add_option("PATH", m_paths, text)->type_name("");
}

void Parser::AddAt(CLI::App* command) {
    command->add_option("--at", m_at, "Report as if it were this time")
        ->check(CLI::Validator(RejectBadTime, ""))
        ->type_name("TIME");
}

void Parser::AddLooks() {
    Add("list", Command::List, "Show every task with its last and next run", "list --json");
    CLI::App* next = Add("next", Command::Next, "Show when each task runs next",
                         R"(next --at 2026-11-23T08:00 --count 5 C:\projects\prices.scvpr)");
    AddAt(next);
    next->add_option("--count", m_arguments.count, "How many runs of each task")
        ->check(CLI::Range(1, 100000));
    AddPaths(next, "Project files to report; all when none is named");
    AddAt(Add("check", Command::Check, "Find what will not work or will not survive", "check"));
    Add("pass", Command::Pass, "Launch what is due now, once", "pass");
    Add("watch", Command::Watch, "Launch what is due, every two seconds until Ctrl+C", "watch");
}

void Parser::AddEdits() {
    CLI::App* add = Add(
        "add", Command::Add,
        "Add projects to the list. Without commands a task deletes its URLs and results, starts, exports "
        "its results and closes the program; the first run is five minutes from now",
        R"(add C:\projects\prices.scvpr --start 2026-11-23T08:00 --days mon,thu --every 2h --until 18:00)");
    AddPaths(add, "Project files that are not in the list yet")->required();
    m_options.AddTo(*add);
    m_options.AddDisabled(*add);

    CLI::App* set =
        Add("set", Command::Set, "Change listed tasks; what is not named stays",
            R"(set C:\projects\prices.scvpr C:\projects\news.scvpr --no-every --add-urls more.csv)");
    AddPaths(set, "Listed project files")->required();
    m_options.AddTo(*set);
    m_options.AddResetLastRun(*set);

    const struct {
        const char* name;
        Command value;
        const char* text;
    } simple[] = {{"enable", Command::Enable, "Let listed tasks run when they are due"},
                  {"disable", Command::Disable, "Keep listed tasks from running"},
                  {"remove", Command::Remove, "Take tasks out of the list"}};
    for (const auto& row : simple) {
        const std::string example = std::string(row.name) + R"( C:\projects\prices.scvpr)";
        AddPaths(Add(row.name, row.value, row.text, example.c_str()), "Listed project files")->required();
    }
    AddPaths(Add("run", Command::Run, "Run a listed project now, due or not, and note when and how it went",
                 R"(run C:\projects\prices.scvpr)"),
             "A listed project file")
        ->required()
        ->expected(1);

    Add("export", Command::Export, "Write the whole list as JSON", "export tasks.json")
        ->add_option("FILE", m_file, "The file to write, in UTF-8; without it, standard output")
        ->type_name("");
    CLI::App* import =
        Add("import", Command::Import,
            "Add the tasks of what export has written. A task that says nothing but its project becomes what "
            "add makes of it",
            "import tasks.json --replace");
    import->add_option("FILE", m_file, "The file to read; without it, standard input")->type_name("");
    import->add_flag("--replace", m_arguments.replace,
                     "Let a task take the place of the listed one of the same project; otherwise nothing is "
                     "imported then");
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
    if (m_arguments.command == Command::Set && m_arguments.changes.IsEmpty()) {
        throw CLI::ValidationError("set wants to be told what to change; scvsched set --help names it",
                                   CLI::ExitCodes::ValidationError);
    }
    return std::move(m_arguments);
}

}  // namespace

ParsedCommandLine ParseArguments(std::vector<std::string> words,
                                 const std::function<std::wstring(const std::wstring&)>& fullPath,
                                 const std::string& version) {
    Parser parser(version);
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
