#include "cli/win32/Files.h"

#include <windows.h>

#include <algorithm>

#include "cli/commands/TaskSelection.h"
#include "util/CaseFold.h"
#include "util/Path.h"
#include "util/win32/Handle.h"

std::wstring FullPath(const std::wstring& path) {
    const DWORD size = GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
    if (size == 0) {
        return path;
    }
    std::wstring full(size, L'\0');
    full.resize(GetFullPathNameW(path.c_str(), size, full.data(), nullptr));
    return full;
}

std::vector<std::wstring> FindFiles(const std::wstring& pattern) {
    std::vector<std::wstring> files;
    WIN32_FIND_DATAW data{};
    const CFindHandle search(FindFirstFileW(pattern.c_str(), &data));
    const std::wstring folder = GetFolderPath(pattern);
    for (BOOL isFound = search ? TRUE : FALSE; isFound != FALSE;
         isFound = FindNextFileW(search.Get(), &data)) {
        const bool isFolder = (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        // The system also matches short names: "*.scvpr" finds "a.scvpr_old".
        if (!isFolder && NamesProject(GetFileName(pattern), data.cFileName)) {
            files.push_back(folder + data.cFileName);
        }
    }
    std::sort(files.begin(), files.end(), [](const std::wstring& left, const std::wstring& right) {
        return CompareNoCase(left, right) < 0;
    });
    return files;
}
