#pragma once

// The names of the two languages, as engines are registered and users choose them.
inline constexpr wchar_t kJScript[] = L"JScript";
inline constexpr wchar_t kVBScript[] = L"VBScript";
