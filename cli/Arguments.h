#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

enum class Command { List, Next, Check, Pass, Watch };

// What the command line asks for.
struct Arguments {
    Command command = Command::List;
    std::wstring list;  // empty: the window program's list
    bool json = false;
    std::optional<std::int64_t> at;   // seconds since 1970
    int count = 1;                    // runs a task to compute, 1 or more
    std::vector<std::wstring> paths;  // tasks to report; empty: all
};

// The outcome of reading the command line: arguments to run with, or a text to show and the exit code to end
// with.
struct ParsedCommandLine {
    std::optional<Arguments> arguments;
    std::string message;
    int exitCode = 0;
};

// `words` are the arguments in UTF-8, without the program's own name; `version` is what --version shows.
[[nodiscard]] ParsedCommandLine ParseArguments(std::vector<std::string> words,
                                               const std::string& version = {});
