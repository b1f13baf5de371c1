#pragma once

#include <windows.h>

#include <string>
#include <string_view>

// The system's conversions between UTF-16 and a code page (CP_ACP, CP_UTF8, ...). The system replaces
// characters that cannot be converted. They throw std::length_error for more than two thousand million
// characters and std::runtime_error, with the system's text, when the conversion fails.
[[nodiscard]] std::wstring DecodeCodePage(UINT codePage, std::string_view bytes);
[[nodiscard]] std::string EncodeCodePage(UINT codePage, std::wstring_view text);
