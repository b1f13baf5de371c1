#pragma once

#include "cli/commands/Context.h"

// The subcommands that only show. Each returns the exit code and throws CRefusal for a path that names no
// task.

[[nodiscard]] int ListTasks(const Job& job);
[[nodiscard]] int ListNextRuns(const Job& job);
// kFindings when there are any.
[[nodiscard]] int CheckList(const Job& job);
