#pragma once

#include <array>
#include <string>

// Task list files for benchmarks, in a folder of the current one, so that a flush reaches a disk. A call that
// fails prints why and ends the program.

// The keys of a section.
inline constexpr std::array<const char*, 17> kKeys = {
    "Enable",      "CommandLine",     "StartTime",   "UntilTime",   "LastRunTime",  "RepeatOnMon",
    "RepeatOnTue", "RepeatOnWen",     "RepeatOnThu", "RepeatOnFri", "RepeatOnSat",  "RepeatOnSun",
    "EnableEvery", "RepeatOnMonthly", "EveryValue",  "EveryUnit",   "LastRunResult"};

// The path of a task list of that many sections; made once.
[[nodiscard]] const std::string& TaskFile(int tasks);
void RemoveTaskFiles();

[[nodiscard]] std::string ReadFile(const std::string& path);
// Writes and flushes a new file, then replaces the old file by it atomically.
void ReplaceFile(const std::string& path, const std::string& bytes);
