#pragma once

#include <cstdint>
#include <functional>

#include "cli/commands/Context.h"

class CChangeReport;
class CSCVShchedulerTaskArray;

// The subcommands that change the list. Each returns the exit code. Throws CRefusal when it is refused; the
// list is then unchanged.

[[nodiscard]] int AddProjects(const Job& job);
[[nodiscard]] int SetTasks(const Job& job);
[[nodiscard]] int EnableTasks(const Job& job);
[[nodiscard]] int DisableTasks(const Job& job);
[[nodiscard]] int RemoveTasks(const Job& job);
// kFindings when a project could not be launched; the other projects are launched in any case.
[[nodiscard]] int RunProjects(const Job& job);

// Loads the list again, lets `edit` change and report its tasks, and saves it, all under the file's lock;
// then writes the report. With --dry-run only edits in memory. Throws CRefusal when the list cannot be saved.
void EditList(const Job& job,
              const std::function<void(CSCVShchedulerTaskArray& tasks, CChangeReport& report)>& edit);
