#include "cli/win32/FailureCommand.h"

#include <windows.h>

#include "util/win32/SystemError.h"

std::wstring CFailureCommand::Start(const std::wstring& command, const std::wstring& project,
                                    const std::wstring& result) {
    wchar_t folder[MAX_PATH] = L"";
    GetSystemDirectoryW(folder, MAX_PATH);
    const std::wstring interpreter = std::wstring(folder) + L"\\cmd.exe";
    // Without /s cmd.exe keeps or drops the outer quotes depending on the text between them.
    std::wstring line = L"cmd.exe /d /s /c \"" + command + L"\"";
    SetEnvironmentVariableW(L"SCV_PROJECT", project.c_str());
    SetEnvironmentVariableW(L"SCV_RESULT", result.c_str());
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (CreateProcessW(interpreter.c_str(), line.data(), nullptr, nullptr, FALSE, CREATE_NO_WINDOW, nullptr,
                       nullptr, &startup, &process) == FALSE) {
        return SystemErrorText(GetLastError());
    }
    const CKernelHandle thread(process.hThread);
    m_running.emplace_back(process.hProcess);
    return {};
}

std::vector<std::uint32_t> CFailureCommand::TakeFailures() {
    std::vector<std::uint32_t> failures;
    std::erase_if(m_running, [&](const CKernelHandle& process) {
        DWORD code = STILL_ACTIVE;
        if (WaitForSingleObject(process.Get(), 0) == WAIT_TIMEOUT) {
            return false;
        }
        if (GetExitCodeProcess(process.Get(), &code) != FALSE && code != 0) {
            failures.push_back(code);
        }
        return true;
    });
    return failures;
}
