#pragma once

#include "cli/commands/Context.h"

// Runs a pass every 2,000 ms until the user ends it. Changes of the list file by other programs apply from
// the next pass on. With --json prints each launch as an object on its own line. Throws CRefusal when a
// window opens the list. A failed launch does not end it.
[[nodiscard]] int Watch(const Job& job);
