#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "cli/options/Subcommand.h"
#include "cli/options/TaskChanges.h"

// The parsed command line.
struct Arguments {
    const Subcommand* subcommand = nullptr;
    std::wstring list;  // full path; empty: the window program's list
    bool json = false;
    bool csv = false;
    std::optional<std::int64_t> at, from, to;  // seconds since 1970
    std::optional<int> count;                  // runs to show, 1 or more
    bool failed = false;                       // only tasks whose last launch failed
    bool week = false;
    // Full paths or patterns of projects. A pattern without a folder is not made a full path. Empty: all.
    std::vector<std::wstring> paths;
    TaskChanges changes;
    std::wstring file;       // full path of the file to export or import; empty: the console
    bool replace = false;    // an imported task may take the place of a listed one
    bool dryRun = false;     // change nothing
    std::wstring onFailure;  // the command to start for a failed launch; empty: none
};

// The result of parsing the command line: the arguments, or a text to show and the exit code.
struct ParsedCommandLine {
    std::optional<Arguments> arguments;
    std::string message;
    int exitCode = 0;
};

// `words` are the arguments in UTF-8, without the program's name. `fullPath` makes a path from the user a
// full path. `version` is shown by --version. The table outlives the arguments.
[[nodiscard]] ParsedCommandLine ParseArguments(
    std::span<const Subcommand> table, std::vector<std::string> words,
    const std::function<std::wstring(const std::wstring&)>& fullPath, const std::string& version = {});
