#include "tests/support/ChildProcess.h"

#include <windows.h>

#include <stdexcept>

#include "tests/support/TemporaryFolder.h"
#include "util/win32/Handle.h"
#include "util/win32/ModulePath.h"
#include "util/Path.h"

// Files, as a full pipe would block the child.
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
    std::wstring commandLine = L"\"" + path + L"\" " + words;
    STARTUPINFOW start{};
    start.cb = sizeof(start);
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdOutput = out.Get();
    start.hStdError = err.Get();
    PROCESS_INFORMATION process{};
    if (CreateProcessW(path.c_str(), commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start,
                       &process) == FALSE) {
        throw std::runtime_error("the child process cannot be started");
    }
    const CKernelHandle child(process.hProcess);
    const CKernelHandle thread(process.hThread);
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
