#pragma once

#include <windows.h>

#include "script/IScriptController.h"
#include "script/ScriptErrorInfo.h"
#include "script/win32/ScriptControl.h"
#include "util/win32/ComHandle.h"

// Runs scripts in the Windows Script Control. AddCode, Run and Reset show the user why they failed; the other
// operations throw CComError when a call fails.
class CMSScriptController final : public IScriptController {
public:
    // 1 when the control was created, even if the language could not be set.
    int Create(const std::wstring& language) override;
    void Close() override;
    [[nodiscard]] int IsCreated() const override { return m_control ? 1 : 0; }
    int SetLanguage(const std::wstring& language) override;
    int SetAllowUI(int allow) override;
    int AddCode(const std::wstring& scriptText) override;
    int Run(const std::wstring& functionName, const CStringArray* arguments, CStringArray& results) override;
    int RunWithArgument(const std::wstring& functionName, const std::wstring& argument,
                        CStringArray& results) override;
    int Reset() override;
    // -1 for a missing function; case counts.
    [[nodiscard]] int GetParamCount(const std::wstring& functionName) override;
    void GetErrorInfo(std::wstring& source, std::wstring& description, std::int32_t& line,
                      std::int32_t& column, std::wstring& text) override;

private:
    // Throws CComError for a failure, otherwise returns the result.
    HRESULT Check(HRESULT result);

    struct LastError {
        LONG number = 0;
        CScriptErrorInfo info;
    };
    // Reads the control's error object; nothing without one. Returns the failure of a call.
    HRESULT ReadLastError(LastError& last) const;

    CComReference<IScriptControl> m_control;
};
