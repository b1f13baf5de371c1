#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "cli/options/Subcommand.h"
#include "cli/options/TaskChanges.h"

// What the command line asks for.
struct Arguments {
    const Subcommand* subcommand = nullptr;
    std::wstring list;  // full path; empty: the window program's list
    bool json = false;
    bool csv = false;
    std::optional<std::int64_t> at, from, to;  // seconds since 1970
    std::optional<int> count;                  // runs to show, 1 or more
    bool failed = false;                       // only tasks whose last launch failed
    bool week = false;
    // Full paths or patterns of projects; a pattern without a folder stays without one. Empty: all.
    std::vector<std::wstring> paths;
    TaskChanges changes;
    std::wstring file;       // full path of what is exported or imported; empty: the console
    bool replace = false;    // an imported task may take the place of a listed one
    bool dryRun = false;     // change nothing
    std::wstring onFailure;  // the command to start for a failed launch; empty: none
};

// The outcome of reading the command line: arguments to run with, or a text to show and the exit code to end
// with.
struct ParsedCommandLine {
    std::optional<Arguments> arguments;
    std::string message;
    int exitCode = 0;
};

// `words` are the arguments in UTF-8, without the program's own name; `fullPath` makes the full path of a
// file as the user names it, `version` is what --version shows. The table has to outlive the arguments.
[[nodiscard]] ParsedCommandLine ParseArguments(
    std::span<const Subcommand> table, std::vector<std::string> words,
    const std::function<std::wstring(const std::wstring&)>& fullPath, const std::string& version = {});
