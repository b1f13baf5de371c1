#include <windows.h>

#include <cstdio>
#include <string>

#include "tests/support/ChildProcess.h"

// Runs a program as its debugger, because only then the system reports a handle that is invalid or closed
// twice. The program's command line is our own without our name. Prints each report on standard error. The
// exit code is the program's or, after a report, 98.
int wmain(int, wchar_t** arguments) {
    std::wstring line = GetCommandLineW();
    const std::size_t at = line.find(arguments[1]);
    line.erase(0, line[at - 1] == L'"' ? at - 1 : at);
    const CKernelHandle child = StartChild(line, DEBUG_ONLY_THIS_PROCESS);
    int invalid = 0;
    DEBUG_EVENT event{};
    while (WaitForDebugEvent(&event, INFINITE) != 0) {
        DWORD answer = DBG_CONTINUE;
        if (event.dwDebugEventCode == EXCEPTION_DEBUG_EVENT) {
            const EXCEPTION_RECORD& exception = event.u.Exception.ExceptionRecord;
            if (exception.ExceptionCode == STATUS_INVALID_HANDLE) {
                ++invalid;
                std::fprintf(stderr, "invalid handle: closed from %p\n", exception.ExceptionAddress);
            } else if (exception.ExceptionCode != STATUS_BREAKPOINT) {
                answer = DBG_EXCEPTION_NOT_HANDLED;
            }
        }
        ContinueDebugEvent(event.dwProcessId, event.dwThreadId, answer);
        if (event.dwDebugEventCode == EXIT_PROCESS_DEBUG_EVENT) {
            return invalid > 0 ? 98 : static_cast<int>(event.u.ExitProcess.dwExitCode);
        }
    }
    return 97;
}
