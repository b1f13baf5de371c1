#include "framework/TextFile.h"

#include <algorithm>
#include <cstdint>
#include <new>
#include <string_view>

#include "framework/MessageBox.h"
#include "util/Csv.h"
#include "util/Path.h"
#include "util/TextEncoding.h"
#include "util/win32/CodePage.h"
#include "util/win32/FileTests.h"
#include "util/win32/Handle.h"
#include "util/win32/SystemError.h"

namespace {

constexpr std::size_t kLongestMessage = 260;

// Returns the system's error code, or ERROR_SUCCESS.
DWORD Open(CFileHandle& file, const std::wstring& path, DWORD access, DWORD disposition) {
    constexpr DWORD kNotShared = 0;
    file = CFileHandle(
        CreateFileW(path.c_str(), access, kNotShared, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr));
    return file ? ERROR_SUCCESS : GetLastError();
}

std::wstring FailureText(DWORD error, const std::wstring& path) {
    return (SystemErrorText(error) + L"\r\n" + path).substr(0, kLongestMessage);
}

// False when the user cancels, or when the box closes without an answer because the program is ending.
bool AsksToRetry(DWORD error, const std::wstring& path) {
    return AfxMessageBox(FailureText(error, path), MB_RETRYCANCEL | MB_ICONERROR) == IDRETRY;
}

std::string ReadAll(HANDLE file) {
    LARGE_INTEGER size;
    if (!GetFileSizeEx(file, &size)) {
        RaiseSystemError(GetLastError());
    }
    const auto length = static_cast<std::int32_t>(size.LowPart);
    if (length < 0) {
        throw std::bad_alloc();
    }
    std::string bytes(static_cast<std::size_t>(length), '\0');
    DWORD read = 0;
    if (!ReadFile(file, bytes.data(), static_cast<DWORD>(length), &read, nullptr)) {
        RaiseSystemError(GetLastError());
    }
    bytes.resize(read);
    return bytes;
}

// Whether a folder of the path is missing or the path is not valid.
bool IsBadPath(DWORD error) {
    return error == ERROR_PATH_NOT_FOUND || error == ERROR_INVALID_DRIVE || error == ERROR_BAD_PATHNAME;
}

// Creates the file's folder unless it exists. Returns whether it exists afterwards. A network path loses its
// leading backslashes here, so that its folders are created below the current one.
bool MakeFolderOf(const std::wstring& path) {
    const std::wstring folder = GetFolderPathNoSlash(path);
    if (DirectoryExists(folder) != 0) {
        return true;
    }
    CCsv parts;
    parts.Split(folder, L'\\', true, false);
    std::wstring built;
    for (const std::wstring& part : parts) {
        if (!built.empty()) {
            built += L'\\';
        }
        built += part;
        if (!built.empty()) {
            CreateDirectoryW(built.c_str(), nullptr);
        }
    }
    return DirectoryExists(folder) != 0;
}

// Returns the system's error code, or ERROR_SUCCESS.
DWORD Write(CFileHandle& file, std::string_view bytes, bool append) {
    if (append && !SetFilePointerEx(file.Get(), {}, nullptr, FILE_END)) {
        return GetLastError();
    }
    while (!bytes.empty()) {
        constexpr std::size_t kLargestPart = 1U << 30U;
        const auto part = static_cast<DWORD>(std::min(bytes.size(), kLargestPart));
        DWORD written = 0;
        if (!WriteFile(file.Get(), bytes.data(), part, &written, nullptr)) {
            return GetLastError();
        }
        if (written < part) {
            return ERROR_DISK_FULL;
        }
        bytes.remove_prefix(part);
    }
    return file.Close() ? ERROR_SUCCESS : GetLastError();
}

}  // namespace

std::wstring ReadTextFile(const std::wstring& path) {
    CFileHandle file;
    DWORD error = Open(file, path, GENERIC_READ, OPEN_EXISTING);
    while (error != ERROR_SUCCESS) {
        if (!AsksToRetry(error, path)) {
            return {};
        }
        error = Open(file, path, GENERIC_READ, OPEN_EXISTING);
    }
    const std::string bytes = ReadAll(file.Get());
    file.Close();
    if (DetectEncoding(bytes) == TextEncoding::Utf16LE) {
        std::wstring text;
        AppendDecoded(TextEncoding::Utf16LE, bytes, text);
        return text;
    }
    return DecodeCodePage(CP_UTF8, bytes.c_str());
}

int SaveTextFile(const std::wstring& text, const std::wstring& path, bool append) {
    const std::string bytes = EncodeCodePage(CP_UTF8, text.c_str());
    return WriteBytesToFile(bytes.data(), bytes.size(), path, append);
}

int WriteBytesToFile(const void* data, std::size_t length, const std::wstring& path, bool append) {
    CFileHandle file;
    const DWORD disposition = append ? OPEN_ALWAYS : CREATE_ALWAYS;
    DWORD error = Open(file, path, GENERIC_WRITE, disposition);
    while (error != ERROR_SUCCESS) {
        if (IsBadPath(error) && MakeFolderOf(path)) {
            error = Open(file, path, GENERIC_WRITE, CREATE_ALWAYS);
        }
        if (error != ERROR_SUCCESS) {
            if (!AsksToRetry(error, path)) {
                return 0;
            }
            error = Open(file, path, GENERIC_WRITE, disposition);
        }
    }
    error = Write(file, {static_cast<const char*>(data), length}, append);
    if (error != ERROR_SUCCESS) {
        AfxMessageBox(FailureText(error, path), MB_OK);
    }
    return error == ERROR_SUCCESS ? 1 : 0;
}
