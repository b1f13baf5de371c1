#pragma once

#include "cli/commands/Context.h"

// A pass every 2,000 ms until the user ends it, over the list as the file has it: what another program
// changes there counts from the next pass on. With --json each launch is an object in a line of its own.
// Throws CRefusal when a window opens the list; failed launches do not end it.
[[nodiscard]] int Watch(const Job& job);
