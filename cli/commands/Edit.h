#pragma once

#include <string>

#include "cli/options/Arguments.h"
#include "cli/commands/Context.h"

// Carries out the commands that change the list: add, remove, enable, disable, set, run and import, whose
// text is `input`. Loading, changing and saving are one step that no other program sees the middle of; what
// is refused (CRefusal) changes nothing. Answers kFine, or kFindings when the project of run could not be
// launched.
[[nodiscard]] int EditList(const Arguments& arguments, const std::string& input, const Context& context);
