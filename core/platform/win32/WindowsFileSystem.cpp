#include "core/platform/win32/WindowsFileSystem.h"

#include <windows.h>

#include <algorithm>
#include <utility>

#include "core/platform/win32/FileProtection.h"
#include "util/win32/FileTests.h"
#include "util/win32/Handle.h"
#include "util/win32/SystemError.h"

namespace {

using Status = IFileSystem::Status;

// The path, with the prefix for long paths if it needs it.
std::wstring ToSystemPath(const std::wstring& path) {
    if (path.size() < MAX_PATH || path.starts_with(L"\\\\?\\")) {
        return path;
    }
    std::wstring full(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
    full.resize(GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    return full.starts_with(L"\\\\") ? L"\\\\?\\UNC" + full.substr(1) : L"\\\\?\\" + full;
}

// Windows reports "access denied" for a folder, for a file that another program has open or that is being
// deleted, and when the user has no rights.
Status StatusOfDenied(const std::wstring& systemPath) {
    const DWORD attributes = GetFileAttributesW(systemPath.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        return GetLastError() == ERROR_FILE_NOT_FOUND ? Status::Failed : Status::Busy;
    }
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? Status::Failed : Status::Busy;
}

// The status for the error of a call that could not open or replace a file.
Status StatusOf(DWORD error, const std::wstring& systemPath) {
    switch (error) {
        case ERROR_FILE_NOT_FOUND:
        case ERROR_PATH_NOT_FOUND:
        case ERROR_INVALID_NAME:
            return Status::Missing;
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
        case ERROR_USER_MAPPED_FILE:
            return Status::Busy;
        case ERROR_ACCESS_DENIED:
            return StatusOfDenied(systemPath);
        default:
            return Status::Failed;
    }
}

// To be called before anything else can change the last error.
FileResult LastFailure(const std::wstring& path) {
    const DWORD error = GetLastError();
    return {StatusOf(error, ToSystemPath(path)), error, path};
}

// For a call on an open file: another try would fail as well.
FileResult ResultOfOpen(bool succeeded, const std::wstring& path) {
    const DWORD error = succeeded ? 0 : GetLastError();
    return succeeded ? FileResult() : FileResult{Status::Failed, error, path};
}

class CWindowsFile final : public IFileSystem::IFile {
public:
    CWindowsFile(CFileHandle file, std::wstring path) : m_file(std::move(file)), m_path(std::move(path)) {}

    [[nodiscard]] FileResult Write(std::string_view bytes) override {
        while (!bytes.empty()) {
            // In pieces: one huge write to a network drive can exceed what its server accepts.
            const auto wanted = static_cast<DWORD>(std::min(bytes.size(), std::size_t{16} << 20));
            DWORD written = 0;
            if (!WriteFile(m_file.Get(), bytes.data(), wanted, &written, nullptr)) {
                return ResultOfOpen(false, m_path);
            }
            if (written == 0) {
                return {Status::Failed, ERROR_DISK_FULL, m_path};
            }
            bytes.remove_prefix(written);
        }
        return {};
    }
    [[nodiscard]] FileResult Flush() override {
        return ResultOfOpen(FlushFileBuffers(m_file.Get()) != FALSE, m_path);
    }
    [[nodiscard]] FileResult Close() override { return ResultOfOpen(m_file.Close(), m_path); }

private:
    CFileHandle m_file;
    std::wstring m_path;
};

// Sets `file` when Ok.
FileResult Open(const std::wstring& path, DWORD access, DWORD share, DWORD disposition, DWORD flags,
                CFileHandle& file) {
    const std::wstring systemPath = ToSystemPath(path);
    file = CFileHandle(CreateFileW(systemPath.c_str(), access, share, nullptr, disposition,
                                   flags | FILE_ATTRIBUTE_NORMAL, nullptr));
    return file ? FileResult() : LastFailure(path);
}

FileResult OpenToWrite(const std::wstring& path, DWORD access, DWORD disposition, DWORD flags,
                       std::unique_ptr<IFileSystem::IFile>& file) {
    CFileHandle handle;
    FileResult result = Open(path, access, 0, disposition, flags, handle);
    if (result) {
        file = std::make_unique<CWindowsFile>(std::move(handle), path);
    }
    return result;
}

bool IsSymbolicLink(const std::wstring& systemPath) {
    WIN32_FIND_DATAW found{};
    const HANDLE search = FindFirstFileW(systemPath.c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) {
        return false;
    }
    FindClose(search);
    // Other reparse points, such as those of online files, are replaced like ordinary files.
    return (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
           found.dwReserved0 == IO_REPARSE_TAG_SYMLINK;
}

// Without the prefix for long paths, which ToSystemPath adds where it is needed.
std::wstring WithoutSystemPrefix(const std::wstring& path) {
    constexpr std::wstring_view kShare = L"\\\\?\\UNC\\";
    constexpr std::wstring_view kPrefix = L"\\\\?\\";
    if (path.starts_with(kShare)) {
        return L"\\\\" + path.substr(kShare.size());
    }
    return path.starts_with(kPrefix) ? path.substr(kPrefix.size()) : path;
}

// The path of an open file with all links followed; empty when the system returns none.
std::wstring FinalPath(HANDLE file) {
    std::wstring path(GetFinalPathNameByHandleW(file, nullptr, 0, 0), L'\0');
    path.resize(GetFinalPathNameByHandleW(file, path.data(), static_cast<DWORD>(path.size()), 0));
    return WithoutSystemPrefix(path);
}

}  // namespace

bool CWindowsFileSystem::Exists(const std::wstring& path) {
    return FileExists(ToSystemPath(path)) != 0;
}

bool CWindowsFileSystem::IsReadOnly(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(ToSystemPath(path).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0;
}

FileResult CWindowsFileSystem::ResolveLink(const std::wstring& path, std::wstring& target) {
    target = path;
    CFileHandle file;
    FileResult opened =
        Open(path, 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, OPEN_EXISTING, 0, file);
    const std::wstring final = opened ? FinalPath(file.Get()) : std::wstring();
    if (!final.empty()) {
        target = final;
        return {};
    }
    if (!IsSymbolicLink(ToSystemPath(path))) {
        return {};
    }
    // Not Missing: the link is there.
    return {Status::Failed, opened ? DWORD{ERROR_PATH_NOT_FOUND} : opened.error, path};
}

std::optional<FileStamp> CWindowsFileSystem::Stamp(const std::wstring& path) {
    // Without access to the contents, so that no sharing mode of another program can prevent it.
    CFileHandle file;
    BY_HANDLE_FILE_INFORMATION found{};
    if (!Open(path, 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, OPEN_EXISTING, 0, file) ||
        GetFileInformationByHandle(file.Get(), &found) == FALSE) {
        return std::nullopt;
    }
    const auto join = [](DWORD high, DWORD low) { return std::uint64_t{high} << 32 | low; };
    return FileStamp{join(found.nFileIndexHigh, found.nFileIndexLow),
                     join(found.nFileSizeHigh, found.nFileSizeLow),
                     join(found.ftLastWriteTime.dwHighDateTime, found.ftLastWriteTime.dwLowDateTime)};
}

FileResult CWindowsFileSystem::Read(const std::wstring& path, std::string& bytes) {
    CFileHandle file;
    FileResult opened = Open(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                             OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, file);
    if (!opened) {
        return opened;
    }
    LARGE_INTEGER size{};
    if (!GetFileSizeEx(file.Get(), &size)) {
        return ResultOfOpen(false, path);
    }
    if (size.QuadPart > static_cast<LONGLONG>(kLargestFile)) {
        return {Status::Failed, ERROR_FILE_TOO_LARGE, path};
    }
    bytes.resize(static_cast<std::size_t>(size.QuadPart));
    std::size_t done = 0;
    DWORD read = 0;
    do {
        if (!ReadFile(file.Get(), bytes.data() + done, static_cast<DWORD>(bytes.size() - done), &read,
                      nullptr)) {
            return LastFailure(path);
        }
        done += read;
    } while (read != 0 && done < bytes.size());
    bytes.resize(done);
    return {};
}

FileResult CWindowsFileSystem::CreateLock(const std::wstring& path, std::unique_ptr<IFile>& file) {
    // The system deletes the file when its last handle is closed, so a killed process leaves no lock. A file
    // left by a power cut is opened again.
    return OpenToWrite(path, GENERIC_WRITE | DELETE, OPEN_ALWAYS, FILE_FLAG_DELETE_ON_CLOSE, file);
}

FileResult CWindowsFileSystem::Create(const std::wstring& path, std::unique_ptr<IFile>& file) {
    FileResult result = OpenToWrite(path, GENERIC_WRITE, CREATE_ALWAYS, 0, file);
    // CreateFile refuses a hidden file. A power cut can leave one that was about to replace a hidden list.
    if (result.error == ERROR_ACCESS_DENIED &&
        SetFileAttributesW(ToSystemPath(path).c_str(), FILE_ATTRIBUTE_NORMAL) != FALSE) {
        result = OpenToWrite(path, GENERIC_WRITE, CREATE_ALWAYS, 0, file);
    }
    return result;
}

void CWindowsFileSystem::CreateFolder(const std::wstring& folder) {
    CreateDirectoryW(ToSystemPath(folder).c_str(), nullptr);
}

FileResult CWindowsFileSystem::Replace(const std::wstring& from, const std::wstring& to) {
    const std::wstring fresh = ToSystemPath(from);
    const std::wstring target = ToSystemPath(to);
    CopyProtection(target, fresh);
    // Not ReplaceFileW: it copies attributes by itself, but for a moment no file has the name.
    return MoveFileExW(fresh.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)
               ? FileResult()
               : LastFailure(to);
}

void CWindowsFileSystem::Remove(const std::wstring& path) {
    DeleteFileW(ToSystemPath(path).c_str());
}

bool CWindowsFileSystem::Pause(unsigned milliseconds) {
    if (m_waiting == Waiting::Never) {
        return false;
    }
    Sleep(milliseconds);
    return true;
}

std::wstring CWindowsFileSystem::ErrorText(std::uint32_t error) {
    std::wstring text = SystemErrorText(error);
    if (text.ends_with(L'.')) {
        text.pop_back();
    }
    return text;
}
