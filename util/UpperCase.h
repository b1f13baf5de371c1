#pragma once

// What the platform says is the upper-case form of one UTF-16 code unit outside ASCII. Callers use ToUpper of
// CaseFold.h, which answers ASCII itself.
[[nodiscard]] wchar_t SystemUpperCase(wchar_t unit) noexcept;
