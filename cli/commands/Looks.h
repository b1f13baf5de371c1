#pragma once

#include "cli/commands/Context.h"

// The subcommands that only show the list. Each returns the exit code and throws CRefusal for a path of which
// the list has no task.

[[nodiscard]] int ListTasks(const Job& job);
[[nodiscard]] int ListNextRuns(const Job& job);
// Returns kFindings when there are findings.
[[nodiscard]] int CheckList(const Job& job);
