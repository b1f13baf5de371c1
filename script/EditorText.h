#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "script/ScriptGenerator.h"
#include "util/StringArray.h"

// What the script editor's dialogs show and read, apart from their windows.

// The column that the editor shows for a position in a script, in UTF-16 units from the script's start.
// Columns count from 1. On the first line, on purpose, the column is the number of units before the position,
// but at least 1: in "ab" the positions 0, 1 and 2 have the columns 1, 1 and 2.
[[nodiscard]] std::int64_t CaretColumn(std::wstring_view script, std::int64_t position);

// `line` and `column` as the editor shows them: "Ln 1, Col 1".
[[nodiscard]] std::wstring CaretText(std::int64_t line, std::int64_t column);

// The results of a test run as the editor shows them: each on a line of its own, without the empty ones.
[[nodiscard]] std::wstring JoinResults(const CStringArray& results);

// Convert a template's parameter to the one line in which it is typed and back. In the line the four
// characters \r\n stand for a line break (CR LF).
[[nodiscard]] std::wstring ToParameterField(std::wstring_view value);
[[nodiscard]] std::wstring FromParameterField(std::wstring_view text);

// The lines of a catalogue of functions, trimmed, without the empty ones.
[[nodiscard]] std::vector<std::wstring> CatalogueEntries(std::wstring_view catalogue);

// A template in a list, with its function's name.
struct stOfferedTemplate {
    std::int32_t number;
    std::wstring name;
};
// The templates of a language in the order of their numbers, without those that have no function. Case does
// not count in the language's name.
[[nodiscard]] std::vector<stOfferedTemplate> OfferedTemplates(const CScriptGenerator& generator,
                                                              std::wstring_view language);

// The file types of the editor's file dialogs; see framework/FileDialog.h.
struct stScriptFileType {
    const wchar_t* filter;
    const wchar_t* extension;  // null for none
};
// Case counts in the language's name. For an unknown language all file types are offered.
[[nodiscard]] stScriptFileType ScriptFileType(std::wstring_view language);
