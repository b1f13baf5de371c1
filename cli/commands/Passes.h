#pragma once

#include "cli/commands/Context.h"

// One scheduling pass over the tasks, a line for each launch; with --json one object with all launches.
// kFindings when a launch failed or a result could not be saved in the list.
[[nodiscard]] int RunPass(const Job& job);

// A pass every 2,000 ms until the user ends it; with --json each launch is an object in a line of its own.
// Throws CRefusal when somebody else starts to run the list's tasks; failed launches do not end it.
[[nodiscard]] int Watch(const Job& job);
