#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "util/Utf8.h"

// CSV for spreadsheets (RFC 4180): commas, CR LF, quotes where needed, UTF-8. Start the text with kCsvStart,
// the byte-order mark by which spreadsheets recognise UTF-8.

inline constexpr std::string_view kCsvStart = "\xEF\xBB\xBF";

inline void AppendCsvRow(std::string& text, const std::vector<std::wstring>& fields) {
    std::wstring row;
    for (const std::wstring& field : fields) {
        row += &field == &fields.front() ? L"" : L",";
        if (field.find_first_of(L",\"\r\n") == std::wstring::npos) {
            row += field;
            continue;
        }
        row += L'"';
        for (const wchar_t unit : field) {
            row.append(unit == L'"' ? 2 : 1, unit);
        }
        row += L'"';
    }
    text += ToUtf8(row);
    text += "\r\n";
}
