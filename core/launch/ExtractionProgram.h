#pragma once

#include <string>
#include <string_view>

class IShell;

// Where a program's path is registered, below the current user's keys.
inline constexpr wchar_t kScrivaneKey[] = L"Software\\Talvernick\\Scrivane";
inline constexpr wchar_t kOstrelKey[] = L"Software\\Talvernick\\Ostrel";
inline constexpr wchar_t kProgramValue[] = L"ProgramFileName";

// Whether an extension (without its dot, any case) is that of a project file.
[[nodiscard]] bool IsProjectExtension(std::wstring_view extension);

// The program that a project is started with: the one registered for its extension, else the one that the
// system associates with it. Empty when there is neither.
[[nodiscard]] std::wstring FindExtractionProgram(IShell& shell, const std::wstring& project);
