#pragma once

#include <string>
#include <string_view>

// Conversions between UTF-8 and UTF-16 (one code unit per wchar_t on every platform). They never throw for
// invalid text: each invalid byte or lone surrogate becomes U+FFFD.
[[nodiscard]] std::string ToUtf8(std::wstring_view text);
[[nodiscard]] std::wstring FromUtf8(std::string_view bytes);
