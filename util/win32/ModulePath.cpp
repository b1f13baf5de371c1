#include "util/win32/ModulePath.h"

#include <windows.h>

std::wstring GetModulePath() {
    // 32,767 characters are the longest path that Windows has.
    for (std::wstring path(MAX_PATH, L'\0'); path.size() <= 65'536; path.resize(path.size() * 2)) {
        const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
    }
    return {};
}
