#pragma once

// The platform's upper-case form of one UTF-16 code unit outside ASCII. Callers use ToUpper of CaseFold.h,
// which handles ASCII itself.
[[nodiscard]] wchar_t SystemUpperCase(wchar_t unit) noexcept;
