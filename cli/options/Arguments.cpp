#include "cli/options/Arguments.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "cli/options/SubcommandOptions.h"
#include "cli/report/Refusal.h"
#include "cli/report/Text.h"

namespace {

constexpr const char* kDescription =
    "Reads, edits and runs the task list of SCVScheduler without a window.\n"
    "Times are ISO local (2024-03-31T02:30, or 2024-03-31 for midnight) or seconds since 1970.";

constexpr const char* kExitCodes =
    "scvsched COMMAND --help shows a command's options, with an example.\n"
    "Exit codes: 0 fine; 1 findings, a failed launch, or refused as the tasks are in use or the list cannot "
    "be written; 2 wrong arguments or input; 3 the list file is missing or unreadable.";

constexpr const char* kOpposites =
    "--no-days, --no-monthly, --no-every, --no-export-file and --no- before any command switch it off.\n";

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
    [[nodiscard]] Arguments Take(const FullPath& fullPath);

private:
    void Add(const Subcommand& row);
    void RequireSense() const;

    CLI::App m_app{kDescription, "scvsched"};
    Arguments m_arguments;
    CSubcommandOptions m_options{m_arguments};
    std::optional<std::string> m_list;
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
    m_options.AddTo(command, row);
    const bool hasOpposites = row.takes == Takes::NewTask || row.takes == Takes::Changes;
    const char* const blank = *row.example == '\0' ? "" : " ";
    command.footer(
        Join(hasOpposites ? kOpposites : "",
             "--list FILE names another task list, --json reports as JSON.\n\nExample:\n  scvsched ",
             row.name, blank, row.example));
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

Arguments Parser::Take(const FullPath& fullPath) {
    m_arguments.list = fullPath(m_list.value_or(""));
    m_options.Take(fullPath);
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
        const auto full = [&](const std::string& file) {
            return file.empty() ? std::wstring() : fullPath(FromUtf8(file));
        };
        return {parser.Take(full), {}, kFine};
    } catch (const CLI::CallForVersion& shown) {
        return {std::nullopt, shown.what(), kFine};
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) {
            return {std::nullopt, parser.Help(), kFine};
        }
        return {std::nullopt, InOurWords(error), kUsage};
    }
}
