#pragma once

#include <windows.h>

#include <string>

#include "framework/CommandLineInfo.h"
#include "framework/Wnd.h"

// The application: its names, its settings in the registry and its message loop. AfxGetApp returns the object
// that was created last and still exists.
class CWinApp {
public:
    CWinApp();
    CWinApp(const CWinApp&) = delete;
    CWinApp& operator=(const CWinApp&) = delete;
    virtual ~CWinApp();

    // Prepares the program. FALSE ends the program without a message loop.
    virtual BOOL InitInstance() { return TRUE; }
    // Dispatches messages until the main window is destroyed; returns what ExitInstance returns.
    // (framework/MessageLoop.cpp)
    virtual int Run();
    // Cleans up; the result is the process's exit code.
    virtual int ExitInstance() { return m_nExitCode; }

    // Sets where settings are: HKEY_CURRENT_USER\Software\<key>\<application name>\<section>.
    void SetRegistryKey(const wchar_t* key) { m_strRegistryKey = key; }
    // The default also when the stored value is not a number. Values have 32 bits and may be negative.
    [[nodiscard]] UINT GetProfileInt(const wchar_t* section, const wchar_t* entry, int defaultValue) const;
    // FALSE also when no registry key was set.
    BOOL WriteProfileInt(const wchar_t* section, const wchar_t* entry, int value) const;

    // Passes each argument of m_lpCmdLine to `info`.
    void ParseCommandLine(CCommandLineInfo& info) const;

    // Not owned. Destroying this window ends the message loop.
    CWnd* m_pMainWnd = nullptr;
    // The raw command line without the program's name; not owned.
    const wchar_t* m_lpCmdLine = L"";
    // The executable's base name; the application name is the same unless somebody sets another.
    std::wstring m_strExeName;
    std::wstring m_strAppName;
    // The executable's folder and base name with the extension "HLP".
    std::wstring m_strHelpFilePath;

private:
    [[nodiscard]] std::wstring SectionKey(const wchar_t* section) const;

    CWinApp* m_previous;
    std::wstring m_strRegistryKey;
    int m_nExitCode = 0;
};

// The application object, or null.
[[nodiscard]] CWinApp* AfxGetApp() noexcept;
