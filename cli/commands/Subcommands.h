#pragma once

#include <span>

#include "cli/commands/Context.h"

// Every subcommand, in the order in which help shows them.
[[nodiscard]] std::span<const Subcommand> Subcommands();

// Carries out the subcommand and returns the process's exit code (Refusal.h). An error is one line on
// context.err.
[[nodiscard]] int RunSubcommand(const Arguments& arguments, const Context& context);
