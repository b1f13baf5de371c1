#pragma once

// The names of the two languages: the engines are registered under them, and users choose them.
inline constexpr wchar_t kJScript[] = L"JScript";
inline constexpr wchar_t kVBScript[] = L"VBScript";
