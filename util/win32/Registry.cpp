#include "util/win32/Registry.h"

#include <cwchar>

#include "util/win32/Handle.h"

namespace {

CRegistryKey CreateKey(HKEY root, const std::wstring& subKey) {
    CRegistryKey key;
    if (RegCreateKeyExW(root, subKey.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS, nullptr,
                        key.Put(), nullptr) != ERROR_SUCCESS) {
        return {};
    }
    return key;
}

}  // namespace

int RegReadString(HKEY root, const std::wstring& subKey, const wchar_t* valueName, std::wstring& text) {
    CRegistryKey key;
    if (RegOpenKeyExW(root, subKey.c_str(), 0, KEY_QUERY_VALUE, key.Put()) != ERROR_SUCCESS) {
        return 0;
    }
    wchar_t buffer[256];
    DWORD bytes = 255;  // not the whole buffer: the limit decides which values can be read
    if (RegQueryValueExW(key.Get(), valueName, nullptr, nullptr, reinterpret_cast<BYTE*>(buffer), &bytes) !=
        ERROR_SUCCESS) {
        return 0;
    }
    constexpr DWORD kTerminator = sizeof(wchar_t);
    text.assign(buffer, bytes < kTerminator ? 0 : (bytes - kTerminator) / sizeof(wchar_t));
    return 1;
}

int RegWriteString(HKEY root, const std::wstring& subKey, const wchar_t* valueName, const wchar_t* data) {
    const CRegistryKey key = CreateKey(root, subKey);
    if (!key) {
        return 0;
    }
    if (data == nullptr) {
        return 1;
    }
    const auto bytes = static_cast<DWORD>((std::wcslen(data) + 1) * sizeof(wchar_t));
    return RegSetValueExW(key.Get(), valueName, 0, REG_SZ, reinterpret_cast<const BYTE*>(data), bytes) ==
                   ERROR_SUCCESS
               ? 1
               : 0;
}

int RegRemoveValue(HKEY root, const std::wstring& subKey, const wchar_t* valueName) {
    const CRegistryKey key = CreateKey(root, subKey);
    if (!key) {
        return 0;
    }
    return valueName == nullptr || RegDeleteValueW(key.Get(), valueName) == ERROR_SUCCESS ? 1 : 0;
}
