#pragma once

#include <string>
#include <string_view>

#include "util/Utf8.h"

// Where the console's texts become UTF-8: core keeps UTF-16, the streams, JSON and the parser take UTF-8.

inline void AppendUtf8(std::string& text, std::string_view part) {
    text += part;
}
inline void AppendUtf8(std::string& text, std::wstring_view part) {
    text += ToUtf8(part);
}

// The parts, in UTF-8 or UTF-16, one behind the other in UTF-8: Join("the project ", path, " is missing").
template <typename... Parts>
[[nodiscard]] std::string Join(const Parts&... parts) {
    std::string text;
    (AppendUtf8(text, parts), ...);
    return text;
}
