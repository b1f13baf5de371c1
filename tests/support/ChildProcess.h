#pragma once

#include <windows.h>

#include <string>

#include "util/win32/Handle.h"

// Starts a command line as CreateProcessW does, with its flags; the child inherits all inheritable handles.
// Returns the process. Throws std::system_error with the system's code. Thread-safe.
//
// Under Wine a start fails with ERROR_INTERNAL_ERROR (1359) when the new process dies before it is up, as it
// can where scripts/wine.sh cannot prevent that. On exactly that error, and ten times at most, it is started
// again, which the test's output then counts.
[[nodiscard]] CKernelHandle StartChild(std::wstring commandLine, DWORD flags, STARTUPINFOW start = {});

struct ChildResult {
    unsigned exitCode;
    std::string out;  // its output, with LF for CR LF
    std::string err;
};

// Runs an executable, named relative to the test program's folder, with the rest of its command line. Throws
// std::runtime_error when it cannot be started, or when it ran for a minute and had to be ended. Thread-safe.
[[nodiscard]] ChildResult RunChild(const std::wstring& executable, const std::wstring& words);
