#pragma once

#include <string>

#include "cli/commands/Context.h"

// The whole list as JSON, to be kept or carried elsewhere.

// Writes {"tasks": [...]} into the file, or to the output when none is named. Throws CRefusal when it cannot.
[[nodiscard]] int ExportList(const Job& job);

// The text of the file, or of the input when `file` is empty, in UTF-8; UTF-16 with a byte-order mark, which
// some shells' redirection makes, is converted. Throws CRefusal when it cannot be read.
[[nodiscard]] std::string ReadImport(const std::wstring& file, const Context& context);

// Appends the tasks of the text that ReadImport has returned. With --replace a task takes the place of the
// listed one of the same project. Throws CRefusal, and changes nothing, for a text that is not as ExportList
// makes it, and for a project that is listed already or twice in the text.
[[nodiscard]] int ImportList(const Job& job);
