#pragma once

#include <cstdint>
#include <functional>

#include "cli/commands/Context.h"

class CChangeReport;
class CSCVShchedulerTaskArray;

// The subcommands that change the list. Each returns the exit code; what is refused (CRefusal) changes
// nothing.

[[nodiscard]] int AddProjects(const Job& job);
[[nodiscard]] int SetTasks(const Job& job);
[[nodiscard]] int EnableTasks(const Job& job);
[[nodiscard]] int DisableTasks(const Job& job);
[[nodiscard]] int RemoveTasks(const Job& job);
// kFindings when a project could not be launched; the others are all the same.
[[nodiscard]] int RunProjects(const Job& job);

// Loads the list afresh, lets `edit` change and report its tasks, saves it and writes the report, as one step
// that no other program sees the middle of. Throws CRefusal when it cannot be saved.
void EditList(const Job& job,
              const std::function<void(CSCVShchedulerTaskArray& tasks, CChangeReport& report)>& edit);
