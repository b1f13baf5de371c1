#include "util/win32/FileVersion.h"

#include <windows.h>

#include <vector>

#include "util/win32/ModulePath.h"

std::wstring GetFileVersionString() {
    const std::wstring path = GetModulePath();
    const DWORD size = GetFileVersionInfoSizeW(path.c_str(), nullptr);
    std::vector<char> block(size);
    void* root = nullptr;
    UINT length = 0;
    if (size == 0 || !GetFileVersionInfoW(path.c_str(), 0, size, block.data()) ||
        !VerQueryValueW(block.data(), L"\\", &root, &length) || length < sizeof(VS_FIXEDFILEINFO)) {
        return {};
    }
    const auto* info = static_cast<const VS_FIXEDFILEINFO*>(root);
    if (info->dwSignature != VS_FFI_SIGNATURE) {
        return {};
    }
    return std::to_wstring(HIWORD(info->dwFileVersionMS)) + L'.' +
           std::to_wstring(LOWORD(info->dwFileVersionMS)) + L'.' +
           std::to_wstring(HIWORD(info->dwFileVersionLS));
}
