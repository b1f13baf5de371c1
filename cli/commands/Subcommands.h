#pragma once

#include <span>

#include "cli/commands/Context.h"

// All subcommands, in the order of the help.
[[nodiscard]] std::span<const Subcommand> Subcommands();

// Runs the subcommand and returns the process's exit code (Refusal.h). An error is one line on context.err.
[[nodiscard]] int RunSubcommand(const Arguments& arguments, const Context& context);
