#pragma once

#include <string>

// The result of CWinApp::ParseCommandLine.
class CCommandLineInfo {
public:
    virtual ~CCommandLineInfo() = default;
    // Called for each argument in turn. One with a leading '/' or '-', which has been removed, is a switch.
    virtual void ParseParam(const std::wstring& param, bool isSwitch) {
        if (!isSwitch && m_strFileName.empty()) {
            m_strFileName = param;
        }
    }
    // The first argument that is not a switch, without its quotes.
    std::wstring m_strFileName;
};
