#pragma once

#include <string>
#include <string_view>

// The system's ANSI code page (natively, where there is none, Windows-1252).

// Bytes that the code page does not assign are converted as the system decides. Never throws.
[[nodiscard]] std::wstring DecodeAnsi(std::string_view bytes);

// False, with `bytes` unspecified, when the code page cannot hold every character exactly.
[[nodiscard]] bool EncodeAnsi(std::wstring_view text, std::string& bytes);
