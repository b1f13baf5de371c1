#include "util/win32/FileTests.h"

#include "util/CaseFold.h"
#include "util/win32/Handle.h"

int FileExists(const std::wstring& path) {
    WIN32_FIND_DATAW entry;
    return CFindHandle(FindFirstFileW(path.c_str(), &entry)) ? 1 : 0;
}

int DirectoryExists(std::wstring path) {
    while (path.ends_with(L'\\')) {
        path.pop_back();
    }
    WIN32_FIND_DATAW entry;
    if (!CFindHandle(FindFirstFileW(path.c_str(), &entry))) {
        return 0;
    }
    return static_cast<int>(entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY);
}

bool IsRemotePath(std::wstring_view path) {
    const auto isSlash = [&](std::size_t at) { return path[at] == L'\\' || path[at] == L'/'; };
    if (path.size() < 2) {
        return false;
    }
    if (isSlash(0) && isSlash(1)) {
        // Forms: \\?\C:\a.scvpr, \\?\UNC\server\share and \\server\share.
        const bool isDevice = path.size() > 3 && (path[2] == L'?' || path[2] == L'.') && isSlash(3);
        return !isDevice || EqualNoCase(path.substr(4, 3), L"UNC") || IsRemotePath(path.substr(4));
    }
    const wchar_t root[] = {path[0], L':', L'\\', L'\0'};
    return path[1] == L':' && GetDriveTypeW(root) == DRIVE_REMOTE;
}

int CanOpenForWriting(const std::wstring& path) {
    constexpr DWORD kNotShared = 0;
    return CFileHandle(CreateFileW(path.c_str(), GENERIC_WRITE, kNotShared, nullptr, OPEN_EXISTING,
                                   FILE_ATTRIBUTE_NORMAL, nullptr))
               ? 1
               : 0;
}
