#pragma once

#include <string>
#include <string_view>
#include <vector>

// CSV for spreadsheets (RFC 4180): commas, CR LF, quotes where needed, UTF-8 with the byte-order mark by
// which they know it.

inline constexpr std::string_view kCsvStart = "\xEF\xBB\xBF";

inline void AppendCsvRow(std::string& text, const std::vector<std::string>& fields) {
    for (const std::string& field : fields) {
        text += &field == &fields.front() ? "" : ",";
        if (field.find_first_of(",\"\r\n") == std::string::npos) {
            text += field;
            continue;
        }
        text += '"';
        for (const char c : field) {
            text.append(c == '"' ? 2 : 1, c);
        }
        text += '"';
    }
    text += "\r\n";
}
