#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// The two ways in which numbers of the list file are read, and how they are written.

// As the C run-time reads a decimal number: leading blanks, a sign, digits up to the first other character. 0
// without digits; what exceeds 32 bits becomes the limit. "0x10" is 0.
[[nodiscard]] std::int32_t ParseStoredNumber(std::wstring_view text) noexcept;

// As GetPrivateProfileIntW reads it: leading blanks, a sign, then decimal digits up to what is none (or
// hexadecimal, octal, binary ones after 0x, 0o, 0b), modulo 2^32. "0x10" is 16.
[[nodiscard]] std::int32_t ParseProfileInt(std::wstring_view text) noexcept;

// Decimal digits, after a minus where it belongs.
[[nodiscard]] std::wstring FormatNumber(std::int64_t number);
