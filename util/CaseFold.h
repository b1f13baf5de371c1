#pragma once

#include <string>
#include <string_view>

// Comparison without regard to case, one UTF-16 code unit at a time and independent of the user's language,
// as Windows compares file names: letters outside the basic plane keep their case.

// The upper-case form of one UTF-16 code unit; the unit itself when it has none.
[[nodiscard]] wchar_t ToUpper(wchar_t unit) noexcept;

// The text with ToUpper applied to each unit: equal for texts that EqualNoCase takes for equal.
[[nodiscard]] std::wstring ToUpperText(std::wstring_view text);

// Less than, equal to or greater than zero, by the order of the upper-case units.
[[nodiscard]] int CompareNoCase(std::wstring_view left, std::wstring_view right) noexcept;

[[nodiscard]] bool EqualNoCase(std::wstring_view left, std::wstring_view right) noexcept;
