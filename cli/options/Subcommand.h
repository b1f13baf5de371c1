#pragma once

#include <cstdint>

struct Job;

// What a subcommand claims for as long as it works.
enum class Claim : std::uint8_t {
    None,   // it only reads
    List,   // nobody else launches or edits the list's tasks until it ends
    Watch,  // the same, taken from one pass to the next by the handler
};

// A group of options that a subcommand takes.
enum class Takes : std::uint8_t {
    Nothing,
    Filter,    // which tasks to list
    NextRuns,  // which runs to show
    Time,      // --at
    Command,   // what to start on a failure
    NewTask,   // projects and what the new tasks are to be
    Changes,   // projects and what to change
    Projects,  // projects
    OutFile,   // a file to write
    InFile,    // a file to read, and --replace
};

// A row of the table of subcommands (Subcommands.h).
struct Subcommand {
    const char* name = nullptr;
    const char* help = nullptr;
    const char* example = nullptr;  // what follows the name
    Takes takes = Takes::Nothing;
    Claim claim = Claim::None;
    bool makesList = false;  // a list that does not exist counts as an empty one
    bool canTry = false;     // --dry-run: shows what it would change, claims and changes nothing
    // Returns the exit code (Refusal.h); throws CRefusal.
    int (*handler)(const Job& job) = nullptr;
};
