#pragma once

#include "cli/commands/Context.h"

class CSCVShchedulerTaskArray;

// One scheduling pass over the tasks, a line for each launch; with `json` one object with all launches.
// kFindings when a launch failed or a result did not reach the list.
[[nodiscard]] int RunPass(CSCVShchedulerTaskArray& tasks, const Context& context, bool json);

// A pass every 2,000 ms until the user ends it; with `json` each launch is an object in a line of its own.
// Ends by itself with kFindings when somebody else starts to run the list's tasks; failed launches do not end
// it.
[[nodiscard]] int Watch(CSCVShchedulerTaskArray& tasks, const Context& context, bool json);
