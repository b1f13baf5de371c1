#include "util/win32/KnownFolder.h"

#include <windows.h>

#include <shlobj.h>

std::wstring GetKnownFolder(int csidl) {
    wchar_t path[MAX_PATH] = {};
    return SHGetFolderPathW(nullptr, csidl, nullptr, SHGFP_TYPE_CURRENT, path) == S_OK ? path
                                                                                       : std::wstring();
}
