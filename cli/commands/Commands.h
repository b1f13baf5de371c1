#pragma once

#include "cli/options/Arguments.h"
#include "cli/commands/Context.h"

// Carries out the command and answers the process's exit code (ExitCode.h). An error is one line on
// context.err.
[[nodiscard]] int RunCommand(const Arguments& arguments, const Context& context);
