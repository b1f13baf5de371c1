#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "script/ScriptGenerator.h"
#include "util/StringArray.h"

// What the script editor's dialogs show and read, apart from their windows.

// The column that is told of a position in a script, in UTF-16 units from the script's start. Counted from 1
// on every line but the first, where, on purpose, it is the number of characters before the position; but at
// least 1.
[[nodiscard]] std::int64_t CaretColumn(std::wstring_view script, std::int64_t position);

// `line` and `column` as they are told, "Ln 1, Col 1".
[[nodiscard]] std::wstring CaretText(std::int64_t line, std::int64_t column);

// What a test run shows of its results: one a line, without the empty ones.
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
