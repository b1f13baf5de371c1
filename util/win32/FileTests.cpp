#include "util/win32/FileTests.h"

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

int CanOpenForWriting(const std::wstring& path) {
    constexpr DWORD kNotShared = 0;
    return CFileHandle(CreateFileW(path.c_str(), GENERIC_WRITE, kNotShared, nullptr, OPEN_EXISTING,
                                   FILE_ATTRIBUTE_NORMAL, nullptr))
               ? 1
               : 0;
}
