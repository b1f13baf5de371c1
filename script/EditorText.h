#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "script/ScriptGenerator.h"
#include "util/StringArray.h"

// What the script editor's dialogs show and read, apart from their windows.

// The column that the editor shows for a position in a script; `position` is in UTF-16 units from the
// script's start. Columns count from 1, but on the first line, on purpose, the column is the number of units
// before the position, at least 1. In "ab" the positions 0, 1 and 2 have the columns 1, 1 and 2.
[[nodiscard]] std::int64_t CaretColumn(std::wstring_view script, std::int64_t position);

// `line` and `column` as the editor shows them: "Ln 1, Col 1".
[[nodiscard]] std::wstring CaretText(std::int64_t line, std::int64_t column);

// The results of a test run as the editor shows them: each on a line of its own, without the empty ones.
[[nodiscard]] std::wstring JoinResults(const CStringArray& results);

// A template's parameter is typed into one line, its line breaks (CR LF) as the four characters \r\n.
[[nodiscard]] std::wstring ToParameterField(std::wstring_view value);
[[nodiscard]] std::wstring FromParameterField(std::wstring_view text);

// The lines of a catalogue of functions, trimmed, without the empty ones.
[[nodiscard]] std::vector<std::wstring> CatalogueEntries(std::wstring_view catalogue);

// A template as a list offers it, by its function's name.
struct stOfferedTemplate {
    std::int32_t number;
    std::wstring name;
};
// In the order of their numbers. Templates without a function are not offered; case does not count in the
// language's name.
[[nodiscard]] std::vector<stOfferedTemplate> OfferedTemplates(const CScriptGenerator& generator,
                                                              std::wstring_view language);

// What the editor's file dialogs offer; see framework/FileDialog.h.
struct stScriptFileType {
    const wchar_t* filter;
    const wchar_t* extension;  // null for none
};
// Case counts in the language's name; for an unknown one all kinds are offered.
[[nodiscard]] stScriptFileType ScriptFileType(std::wstring_view language);
