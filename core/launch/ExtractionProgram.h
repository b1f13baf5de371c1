#pragma once

#include <string>
#include <string_view>

class IShell;

// Where the path of an extraction program is registered, below HKEY_CURRENT_USER.
inline constexpr wchar_t kScrivaneKey[] = L"Software\\Talvernick\\Scrivane";
inline constexpr wchar_t kOstrelKey[] = L"Software\\Talvernick\\Ostrel";
inline constexpr wchar_t kProgramValue[] = L"ProgramFileName";

// Whether this is the extension of a project file. Without its dot, in any case.
[[nodiscard]] bool IsProjectExtension(std::wstring_view extension);

// The program that a project is started with: the one registered for its extension, else the one that the
// system associates with it. Empty when there is neither.
[[nodiscard]] std::wstring FindExtractionProgram(IShell& shell, const std::wstring& project);
