#pragma once

#include <cstdint>
#include <string>

#include "cli/commands/Context.h"

class CChangeReport;
class CSCVShchedulerTaskArray;

// The whole list as JSON, to be kept or carried elsewhere.

// {"tasks": [...]} in UTF-8, ended by a line feed.
[[nodiscard]] std::string ExportTasks(const CSCVShchedulerTaskArray& tasks);

// Writes the text into the file, or to the output when `file` is empty. Raises CRefusal when it cannot.
void WriteExport(const std::string& text, const std::wstring& file, const Context& context);

// The text of the file, or of the input when `file` is empty, in UTF-8; UTF-16 with a byte-order mark, which
// some shells' redirection makes, is converted. Raises CRefusal when it cannot be read.
[[nodiscard]] std::string ReadImport(const std::wstring& file, const Context& context);

// Appends the tasks of an exported text. With `replace` a task takes the place of the listed one of the same
// project. Raises CRefusal, with the array half changed, for a text that is not as ExportTasks makes it, and
// for a project that is listed already or twice in the text.
void ImportTasks(const std::string& text, bool replace, std::int64_t now, CSCVShchedulerTaskArray& tasks,
                 CChangeReport& report);
