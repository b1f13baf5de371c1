#pragma once

#include <string>

#include "cli/commands/Context.h"

// Export and import of the whole list as JSON.

// Writes {"version", "tasks"} to the file, or to the output without one. Throws CRefusal when that fails.
[[nodiscard]] int ExportList(const Job& job);

// The text of the file, or of the input when `file` is empty, in UTF-8. Converts UTF-16 with a byte-order
// mark, which the redirection of some shells produces. Throws CRefusal when the text cannot be read.
[[nodiscard]] std::string ReadImport(const std::wstring& file, const Context& context);

// Appends the tasks of the text that ReadImport has returned. With --replace a task replaces the listed one
// of the same project. Throws CRefusal, and changes nothing, for a text in another format than that of
// ExportList and for a project that is listed already or twice in the text.
[[nodiscard]] int ImportList(const Job& job);
