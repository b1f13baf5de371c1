#pragma once

#include "framework/WinApp.h"

// An application whose settings are this test process's own and vanish with it.
class TestApp : public CWinApp {
public:
    TestApp() {
        SetRegistryKey(L"Talvernick");
        m_strAppName = L"Test" + std::to_wstring(GetCurrentProcessId());
        m_key = L"Software\\Talvernick\\" + m_strAppName;
    }
    ~TestApp() override { RegDeleteTreeW(HKEY_CURRENT_USER, m_key.c_str()); }

    // The key below HKEY_CURRENT_USER that holds the settings.
    std::wstring m_key;
};
