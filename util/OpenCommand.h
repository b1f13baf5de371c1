#pragma once

#include <functional>
#include <string>

// The program's path in a file type's open command, such as "%ProgramFiles%\x\x.exe" "%1": without arguments,
// quotes and trailing white space, with variables expanded. A path with blanks must be in quotes.
// `environment` returns a variable's value, empty for an unknown one. Variables inside values are expanded
// too, up to a limit.
[[nodiscard]] std::wstring ProgramOfOpenCommand(
    std::wstring command, const std::function<std::wstring(const std::wstring& name)>& environment);
