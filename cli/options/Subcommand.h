#pragma once

#include <cstdint>

struct Job;

// What a subcommand claims while it runs.
enum class Claim : std::uint8_t {
    None,   // it only reads
    List,   // no other program launches or edits the list's tasks until it ends
    Watch,  // the handler takes the claim in each pass that launches
};

// A group of options that a subcommand takes.
enum class Takes : std::uint8_t {
    Nothing,
    Filter,    // which tasks to list
    NextRuns,  // which runs to show
    Time,      // --at
    Command,   // what to start on a failure
    NewTask,   // projects and the properties of the new tasks
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
    bool canTry = false;     // has --dry-run, which shows the changes but claims and changes nothing
    // Returns the exit code (Refusal.h); throws CRefusal.
    int (*handler)(const Job& job) = nullptr;
};
