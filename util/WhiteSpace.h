#pragma once

#include <string_view>

// Whether the character is white space, which trimming removes everywhere in the program. These are the
// characters for which iswspace of the Windows run-time is true in the C locale, on every platform: U+0009 to
// U+000D, U+0020, U+00A0, U+1680,
// U+2000 to U+200A, U+2028, U+2029, U+202F, U+205F and U+3000.
[[nodiscard]] constexpr bool IsWhiteSpace(wchar_t unit) noexcept {
    return (unit >= 0x09 && unit <= 0x0D) || unit == 0x20 || unit == 0xA0 || unit == 0x1680 ||
           (unit >= 0x2000 && unit <= 0x200A) || unit == 0x2028 || unit == 0x2029 || unit == 0x202F ||
           unit == 0x205F || unit == 0x3000;
}

[[nodiscard]] constexpr std::wstring_view TrimRight(std::wstring_view text) noexcept {
    while (!text.empty() && IsWhiteSpace(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

[[nodiscard]] constexpr std::wstring_view Trim(std::wstring_view text) noexcept {
    while (!text.empty() && IsWhiteSpace(text.front())) {
        text.remove_prefix(1);
    }
    return TrimRight(text);
}
