#pragma once

#include <string>

// What CWinApp::ParseCommandLine finds on a command line.
class CCommandLineInfo {
public:
    virtual ~CCommandLineInfo() = default;
    // Called for each argument in turn; a leading '/' or '-' makes it a switch and has been removed.
    virtual void ParseParam(const std::wstring& param, bool isSwitch) {
        if (!isSwitch && m_strFileName.empty()) {
            m_strFileName = param;
        }
    }
    // The first argument that is not a switch, without its quotes.
    std::wstring m_strFileName;
};
