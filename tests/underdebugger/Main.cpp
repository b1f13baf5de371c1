#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <string_view>

#include "util/Handle.h"

// Runs a program, whose command line is our own without our name, as its debugger, for only then does the
// system tell of a handle that is closed twice or is none. Says each on its error output, and ends with what
// the program ended with or, when there were any, with 98.

namespace {

std::wstring CommandLineOfProgram() {
    std::wstring_view line = GetCommandLineW();
    const bool isQuoted = line.starts_with(L'"');
    const std::size_t end = line.find(isQuoted ? L'"' : L' ', isQuoted ? 1 : 0);
    line.remove_prefix(end == std::wstring_view::npos ? line.size() : end + 1);
    line.remove_prefix(std::min(line.find_first_not_of(L' '), line.size()));
    return std::wstring(line);
}

}  // namespace

int wmain() {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION information{};
    std::wstring line = CommandLineOfProgram();
    if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, DEBUG_ONLY_THIS_PROCESS, nullptr,
                       nullptr, &startup, &information) == 0) {
        std::fprintf(stderr, "The program cannot be started: %ls\n", line.c_str());
        return 99;
    }
    const CKernelHandle process(information.hProcess);
    const CKernelHandle thread(information.hThread);
    int invalid = 0;
    DEBUG_EVENT event{};
    while (WaitForDebugEvent(&event, INFINITE) != 0) {
        DWORD answer = DBG_CONTINUE;
        if (event.dwDebugEventCode == CREATE_PROCESS_DEBUG_EVENT) {
            const CFileHandle file(event.u.CreateProcessInfo.hFile);
        } else if (event.dwDebugEventCode == LOAD_DLL_DEBUG_EVENT) {
            const CFileHandle file(event.u.LoadDll.hFile);
        } else if (event.dwDebugEventCode == EXCEPTION_DEBUG_EVENT) {
            const EXCEPTION_RECORD& exception = event.u.Exception.ExceptionRecord;
            if (exception.ExceptionCode == STATUS_INVALID_HANDLE) {
                ++invalid;
                std::fprintf(stderr, "invalid handle: closed from %p\n", exception.ExceptionAddress);
            } else if (exception.ExceptionCode != STATUS_BREAKPOINT) {
                answer = DBG_EXCEPTION_NOT_HANDLED;
            }
        } else if (event.dwDebugEventCode == EXIT_PROCESS_DEBUG_EVENT) {
            const auto code = static_cast<int>(event.u.ExitProcess.dwExitCode);
            ContinueDebugEvent(event.dwProcessId, event.dwThreadId, DBG_CONTINUE);
            return invalid > 0 ? 98 : code;
        }
        ContinueDebugEvent(event.dwProcessId, event.dwThreadId, answer);
    }
    return 97;
}
