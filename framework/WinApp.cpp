#include "framework/WinApp.h"

#include <shellapi.h>

#include <memory>

#include "util/Path.h"
#include "util/win32/ModulePath.h"

namespace {

CWinApp* g_app = nullptr;

}  // namespace

CWinApp* AfxGetApp() noexcept {
    return g_app;
}

CWinApp::CWinApp()
    : m_strExeName(StripFileExtension(GetFileName(GetModulePath()))),
      m_strAppName(m_strExeName),
      m_strHelpFilePath(GetFolderPath(GetModulePath()) + m_strExeName + L".HLP"),
      m_previous(g_app) {
    g_app = this;
}

CWinApp::~CWinApp() {
    g_app = m_previous;
}

std::wstring CWinApp::SectionKey(const wchar_t* section) const {
    return L"Software\\" + m_strRegistryKey + L'\\' + m_strAppName + L'\\' + section;
}

UINT CWinApp::GetProfileInt(const wchar_t* section, const wchar_t* entry, int defaultValue) const {
    DWORD value = 0;
    DWORD size = sizeof(value);
    const bool found =
        !m_strRegistryKey.empty() && RegGetValueW(HKEY_CURRENT_USER, SectionKey(section).c_str(), entry,
                                                  RRF_RT_REG_DWORD, nullptr, &value, &size) == ERROR_SUCCESS;
    return found ? UINT{value} : static_cast<UINT>(defaultValue);
}

BOOL CWinApp::WriteProfileInt(const wchar_t* section, const wchar_t* entry, int value) const {
    return !m_strRegistryKey.empty() && RegSetKeyValueW(HKEY_CURRENT_USER, SectionKey(section).c_str(), entry,
                                                        REG_DWORD, &value, sizeof(value)) == ERROR_SUCCESS;
}

void CWinApp::ParseCommandLine(CCommandLineInfo& info) const {
    // CommandLineToArgvW treats the first argument as the program's name.
    const std::wstring line = std::wstring(L"x ") + m_lpCmdLine;
    int count = 0;
    const std::unique_ptr<wchar_t*, decltype(&LocalFree)> arguments(CommandLineToArgvW(line.c_str(), &count),
                                                                    &LocalFree);
    for (int i = 1; arguments != nullptr && i < count; ++i) {
        const std::wstring argument = arguments.get()[i];
        const bool isSwitch = argument.starts_with(L'/') || argument.starts_with(L'-');
        info.ParseParam(isSwitch ? argument.substr(1) : argument, isSwitch);
    }
}
