#include "cli/Arguments.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "cli/ExitCode.h"
#include "cli/TimeText.h"
#include "util/Utf8.h"

namespace {

constexpr const char* kDescription =
    "Reads and runs the task list of SCVScheduler without a window.\n"
    "Times are ISO local (2024-03-31T02:30) or seconds since 1970.";

constexpr const char* kExitCodes =
    "Exit codes: 0 fine; 1 findings, failed launches or a refused pass; 2 usage; 3 the list file is missing "
    "or "
    "unreadable.";

std::string RejectBadTime(const std::string& text) {
    return ParseTime(text) ? std::string()
                           : "'" + text + "' is neither an ISO local time nor seconds since 1970";
}

// The parser's messages may span lines; errors are one line here.
std::string OneLine(std::string text) {
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
}

}  // namespace

ParsedCommandLine ParseArguments(std::vector<std::string> words, const std::string& version) {
    Arguments arguments;
    std::string list;
    std::string at;
    std::vector<std::string> paths;

    CLI::App app(kDescription, "scvsched");
    app.footer(kExitCodes);
    app.set_version_flag("--version", "scvsched " + version + "\n", "Show the version and end");
    app.require_subcommand(1);
    app.fallthrough();
    app.add_option("--list", list, "The task list file; without it, the list of the window program");
    app.add_flag("--json", arguments.json, "Report as one JSON object (list, next, check)");

    const auto addAt = [&at](CLI::App* command) {
        command->add_option("--at", at, "Report as if it were this time")
            ->check(CLI::Validator(RejectBadTime, "TIME"));
    };
    const auto add = [&](const char* name, Command value, const char* text) {
        CLI::App* command = app.add_subcommand(name, text);
        command->callback([&arguments, value] { arguments.command = value; });
        return command;
    };
    add("list", Command::List, "Show every task with its last and next run");
    CLI::App* next = add("next", Command::Next, "Show when each task runs next");
    addAt(next);
    next->add_option("--count", arguments.count, "How many runs of each task")->check(CLI::Range(1, 100000));
    next->add_option("PATH", paths, "Project files to report; all when none is named");
    addAt(add("check", Command::Check, "Find what will not work or will not survive"));
    add("pass", Command::Pass, "Launch what is due now, once");
    add("watch", Command::Watch, "Launch what is due, every two seconds until Ctrl+C");

    try {
        std::reverse(words.begin(), words.end());  // the library takes them from the back
        app.parse(std::move(words));
        if (arguments.json && (arguments.command == Command::Pass || arguments.command == Command::Watch)) {
            throw CLI::ValidationError("--json", "goes with list, next and check");
        }
    } catch (const CLI::CallForVersion& shown) {
        return {std::nullopt, shown.what(), kFine};
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) {
            return {std::nullopt, app.help("", CLI::AppFormatMode::Normal), kFine};
        }
        return {std::nullopt, OneLine(error.what()), kUsage};
    }

    arguments.list = FromUtf8(list);
    if (!at.empty()) {
        arguments.at = ParseTime(at);
    }
    for (const std::string& path : paths) {
        arguments.paths.push_back(FromUtf8(path));
    }
    return {std::move(arguments), {}, kFine};
}
