#pragma once

#include "framework/WinApp.h"

// An application. While it exists HKEY_CURRENT_USER is a key of this process's own, which its destructor
// deletes.
class TestApp : public CWinApp {
public:
    TestApp() {
        HKEY key = nullptr;
        RegCreateKeyW(HKEY_CURRENT_USER, m_key.c_str(), &key);
        RegOverridePredefKey(HKEY_CURRENT_USER, key);
        RegCloseKey(key);
        SetRegistryKey(L"Talvernick");
    }
    ~TestApp() override {
        RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
        RegDeleteTreeW(HKEY_CURRENT_USER, m_key.c_str());
    }

private:
    std::wstring m_key = L"Software\\Talvernick\\Test" + std::to_wstring(GetCurrentProcessId());
};
