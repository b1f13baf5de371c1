#pragma once

#include <string>
#include <string_view>

class IShell;

// Whether an extension (without its dot, any case) is that of a project file.
[[nodiscard]] bool IsProjectExtension(std::wstring_view extension);

// The program that a project is started with: the one registered for its extension, else the one that the
// system associates with it. Empty when there is neither.
[[nodiscard]] std::wstring FindExtractionProgram(IShell& shell, const std::wstring& project);
