#pragma once

#include <string>
#include <string_view>

#include "util/Utf8.h"

// Converts texts to UTF-8: core has UTF-16; streams, JSON and the parser have UTF-8.

inline void AppendUtf8(std::string& text, std::string_view part) {
    text += part;
}
inline void AppendUtf8(std::string& text, std::wstring_view part) {
    text += ToUtf8(part);
}

// Concatenates the parts, in UTF-8 or UTF-16, as UTF-8: Join("the project ", path, " is missing").
template <typename... Parts>
[[nodiscard]] std::string Join(const Parts&... parts) {
    std::string text;
    (AppendUtf8(text, parts), ...);
    return text;
}
