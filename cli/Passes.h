#pragma once

#include "cli/Context.h"

class CSCVShchedulerTaskArray;

// One scheduling pass over the tasks, a line for each launch. kFindings when a launch failed or a result did
// not reach the list.
[[nodiscard]] int RunPass(CSCVShchedulerTaskArray& tasks, const Context& context);

// A pass every 2,000 ms until the user ends it. Ends by itself with kFindings when somebody else starts to
// run the list's tasks; failed launches do not end it.
[[nodiscard]] int Watch(CSCVShchedulerTaskArray& tasks, const Context& context);
