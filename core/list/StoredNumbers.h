#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// The two ways in which numbers of the list file are read, and how they are written.

// Parses a decimal number as the C run-time does: leading blanks, a sign, digits up to the first other
// character. 0 without digits; a number beyond 32 bits becomes the nearest limit. "0x10" is 0.
[[nodiscard]] std::int32_t ParseStoredNumber(std::wstring_view text) noexcept;

// Parses a number as GetPrivateProfileIntW does: leading blanks, a sign, then decimal digits up to the first
// other character (hexadecimal, octal or binary digits after 0x, 0o or 0b), modulo 2^32. "0x10" is 16.
[[nodiscard]] std::int32_t ParseProfileInt(std::wstring_view text) noexcept;

// Decimal digits, after a minus for a negative number.
void AppendNumber(std::int64_t number, std::wstring& text);
