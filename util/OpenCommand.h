#pragma once

#include <functional>
#include <string>

// The program's path out of a file type's open command, such as "%ProgramFiles%\x\x.exe" "%1": cut after the
// program, variables expanded, quotes and trailing white space removed. A path with blanks must be in
// quotes. `environment` is asked for a variable's value; an unknown one is empty. Variables inside a value
// are expanded too, up to a limit.
[[nodiscard]] std::wstring ProgramOfOpenCommand(
    std::wstring command, const std::function<std::wstring(const std::wstring& name)>& environment);
