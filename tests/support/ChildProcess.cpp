#include "tests/support/ChildProcess.h"

#include <atomic>
#include <cstdio>
#include <stdexcept>
#include <system_error>

#include "tests/support/TemporaryFolder.h"
#include "util/Path.h"
#include "util/win32/ModulePath.h"

CKernelHandle StartChild(std::wstring commandLine, DWORD flags, STARTUPINFOW start) {
    static std::atomic<int> again = 0;
    start.cb = sizeof(start);
    PROCESS_INFORMATION process{};
    for (int attempt = 0; CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, TRUE, flags, nullptr,
                                         nullptr, &start, &process) == FALSE;
         ++attempt) {
        const DWORD error = GetLastError();
        if (error != ERROR_INTERNAL_ERROR || attempt == 10) {
            throw std::system_error(static_cast<int>(error), std::system_category(), "CreateProcessW");
        }
        std::printf("started again after error 1359, time %d in this program\n", ++again);
    }
    CloseHandle(process.hThread);
    return CKernelHandle(process.hProcess);
}

// Output goes to files: a full pipe would block the child.
static CFileHandle OpenForChild(const std::wstring& path) {
    SECURITY_ATTRIBUTES inheritable{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    return CFileHandle(CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inheritable, CREATE_ALWAYS,
                                   FILE_ATTRIBUTE_NORMAL, nullptr));
}

ChildResult RunChild(const std::wstring& executable, const std::wstring& words) {
    const TemporaryFolder folder;
    CFileHandle out = OpenForChild(folder.Path(L"out"));
    CFileHandle err = OpenForChild(folder.Path(L"err"));
    const std::wstring path = std::filesystem::path(GetFolderPath(GetModulePath())) / executable;
    STARTUPINFOW start{};
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdOutput = out.Get();
    start.hStdError = err.Get();
    const CKernelHandle child = StartChild(L"\"" + path + L"\" " + words, 0, start);
    if (WaitForSingleObject(child.Get(), 60'000) != WAIT_OBJECT_0) {
        TerminateProcess(child.Get(), 1);
        throw std::runtime_error("the child process had to be ended");
    }
    DWORD exitCode = 0;
    GetExitCodeProcess(child.Get(), &exitCode);
    out.Close();
    err.Close();
    ChildResult result{exitCode, BytesOf(folder.Path(L"out")), BytesOf(folder.Path(L"err"))};
    std::erase(result.out, '\r');
    std::erase(result.err, '\r');
    return result;
}
