#include "tests/support/ChildProcess.h"

#include <windows.h>

#include <array>
#include <atomic>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "util/Handle.h"

namespace {

constexpr DWORD kPatienceMilliseconds = 60'000;

std::filesystem::path OwnFolder() {
    std::array<wchar_t, 1024> path{};
    GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    return std::filesystem::path(path.data()).parent_path();
}

// A file that the child can write to, gone with the object. Files, as a full pipe would block the child.
class COutputFile {
public:
    explicit COutputFile(const wchar_t* name)
        : m_path(std::filesystem::temp_directory_path() /
                 (name + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(++s_count))) {
        SECURITY_ATTRIBUTES inheritable{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
        m_handle = CFileHandle(CreateFileW(m_path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inheritable,
                                           CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    }
    COutputFile(const COutputFile&) = delete;
    COutputFile& operator=(const COutputFile&) = delete;
    ~COutputFile() {
        m_handle.Close();
        std::error_code ignored;
        std::filesystem::remove(m_path, ignored);
    }

    [[nodiscard]] HANDLE Get() const { return m_handle.Get(); }
    [[nodiscard]] std::string Text() {
        m_handle.Close();
        std::ifstream file(m_path);  // as text, which makes CR LF one character
        return {std::istreambuf_iterator<char>(file), {}};
    }

private:
    static inline std::atomic<unsigned> s_count = 0;  // several children can run at once

    std::filesystem::path m_path;
    CFileHandle m_handle;
};

}  // namespace

ChildResult RunChild(const std::wstring& executable, const std::wstring& words) {
    COutputFile out(L"scv-out-");
    COutputFile err(L"scv-err-");
    const std::wstring path = (OwnFolder() / executable).wstring();
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
    if (WaitForSingleObject(child.Get(), kPatienceMilliseconds) != WAIT_OBJECT_0) {
        TerminateProcess(child.Get(), 1);
        throw std::runtime_error("the child process had to be ended");
    }
    DWORD exitCode = 0;
    GetExitCodeProcess(child.Get(), &exitCode);
    return {exitCode, out.Text(), err.Text()};
}
