#include "core/platform/win32/WindowsFileSystem.h"

#include <windows.h>

#include <algorithm>
#include <utility>

#include "util/win32/Handle.h"

namespace {

using Status = IFileSystem::Status;

// The form that Windows takes at any length, for a path that needs it.
std::wstring ToSystemPath(const std::wstring& path) {
    if (path.size() < MAX_PATH || path.starts_with(L"\\\\?\\")) {
        return path;
    }
    std::wstring full(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
    full.resize(GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    return full.starts_with(L"\\\\") ? L"\\\\?\\UNC" + full.substr(1) : L"\\\\?\\" + full;
}

// Windows says "access denied" of a folder, of a file that somebody holds or that is about to go, and where
// the user has no rights.
Status StatusOfDenied(const std::wstring& systemPath) {
    const DWORD attributes = GetFileAttributesW(systemPath.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        return GetLastError() == ERROR_FILE_NOT_FOUND ? Status::Failed : Status::Busy;
    }
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? Status::Failed : Status::Busy;
}

// What the last error says about a file that could not be opened or replaced.
Status StatusOfLastError(const std::wstring& systemPath) {
    switch (GetLastError()) {
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

class CWindowsFile final : public IFileSystem::IFile {
public:
    explicit CWindowsFile(CFileHandle file) : m_file(std::move(file)) {}

    [[nodiscard]] bool Write(std::string_view bytes) override {
        while (!bytes.empty()) {
            // In pieces: one huge write to a network drive can exceed what its server takes.
            const auto wanted = static_cast<DWORD>(std::min(bytes.size(), std::size_t{16} << 20));
            DWORD written = 0;
            if (!WriteFile(m_file.Get(), bytes.data(), wanted, &written, nullptr) || written == 0) {
                return false;
            }
            bytes.remove_prefix(written);
        }
        return true;
    }
    [[nodiscard]] bool Flush() override { return FlushFileBuffers(m_file.Get()) != FALSE; }
    [[nodiscard]] bool Close() override { return m_file.Close(); }

private:
    CFileHandle m_file;
};

// Sets `file` when Ok.
Status Open(const std::wstring& path, DWORD access, DWORD share, DWORD disposition, DWORD flags,
            CFileHandle& file) {
    const std::wstring systemPath = ToSystemPath(path);
    file = CFileHandle(CreateFileW(systemPath.c_str(), access, share, nullptr, disposition,
                                   flags | FILE_ATTRIBUTE_NORMAL, nullptr));
    return file ? Status::Ok : StatusOfLastError(systemPath);
}

Status OpenToWrite(const std::wstring& path, DWORD access, DWORD disposition, DWORD flags,
                   std::unique_ptr<IFileSystem::IFile>& file) {
    CFileHandle handle;
    const Status status = Open(path, access, 0, disposition, flags, handle);
    if (status == Status::Ok) {
        file = std::make_unique<CWindowsFile>(std::move(handle));
    }
    return status;
}

}  // namespace

bool CWindowsFileSystem::IsReadOnly(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(ToSystemPath(path).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0;
}

CWindowsFileSystem::Status CWindowsFileSystem::Read(const std::wstring& path, std::string& bytes) {
    CFileHandle file;
    const Status status = Open(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                               OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, file);
    if (status != Status::Ok) {
        return status;
    }
    LARGE_INTEGER size{};
    if (!GetFileSizeEx(file.Get(), &size) || size.QuadPart > static_cast<LONGLONG>(kLargestFile)) {
        return Status::Failed;
    }
    bytes.resize(static_cast<std::size_t>(size.QuadPart));
    std::size_t done = 0;
    DWORD read = 0;
    do {
        if (!ReadFile(file.Get(), bytes.data() + done, static_cast<DWORD>(bytes.size() - done), &read,
                      nullptr)) {
            return GetLastError() == ERROR_LOCK_VIOLATION ? Status::Busy : Status::Failed;
        }
        done += read;
    } while (read != 0 && done < bytes.size());
    bytes.resize(done);
    return Status::Ok;
}

CWindowsFileSystem::Status CWindowsFileSystem::CreateLock(const std::wstring& path,
                                                          std::unique_ptr<IFile>& file) {
    // The system removes the file with its last handle, so a process that is killed leaves no lock; a file
    // that a power cut left behind is simply opened.
    return OpenToWrite(path, GENERIC_WRITE | DELETE, OPEN_ALWAYS, FILE_FLAG_DELETE_ON_CLOSE, file);
}

CWindowsFileSystem::Status CWindowsFileSystem::Create(const std::wstring& path,
                                                      std::unique_ptr<IFile>& file) {
    return OpenToWrite(path, GENERIC_WRITE, CREATE_ALWAYS, 0, file);
}

CWindowsFileSystem::Status CWindowsFileSystem::Replace(const std::wstring& from, const std::wstring& to) {
    // Not ReplaceFileW, which has moments in which nothing bears the name.
    const std::wstring target = ToSystemPath(to);
    return MoveFileExW(ToSystemPath(from).c_str(), target.c_str(),
                       MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)
               ? Status::Ok
               : StatusOfLastError(target);
}

void CWindowsFileSystem::Remove(const std::wstring& path) {
    DeleteFileW(ToSystemPath(path).c_str());
}

void CWindowsFileSystem::Pause(unsigned milliseconds) {
    Sleep(milliseconds);
}
