#pragma once

#include <windows.h>

#include <activscp.h>

#include "script/IScriptController.h"
#include "script/win32/ActiveScriptSite.h"
#include "util/Csv.h"
#include "util/win32/ComHandle.h"

// Runs scripts in an Active Scripting engine directly. The site shows the errors of a script; other failures
// are only returned. The differences from the Script Control (Reset, GetParamCount) are kept on purpose.
class CActiveScriptController final : public IScriptController {
public:
    CActiveScriptController() = default;
    CActiveScriptController(const CActiveScriptController&) = delete;
    CActiveScriptController& operator=(const CActiveScriptController&) = delete;
    ~CActiveScriptController() override { CActiveScriptController::Close(); }

    // After a failure there is no engine.
    int Create(const std::wstring& language) override;
    void Close() override;
    [[nodiscard]] int IsCreated() const override { return m_site ? 1 : 0; }
    // For another language it creates another engine, without the code.
    int SetLanguage(const std::wstring& language) override;
    // Errors become silent, or shown, even when the engine rejects the site and the result is 0.
    int SetAllowUI(int allow) override;
    int AddCode(const std::wstring& scriptText) override;
    int Run(const std::wstring& functionName, const CStringArray* arguments, CStringArray& results) override;
    int RunWithArgument(const std::wstring& functionName, const std::wstring& argument,
                        CStringArray& results) override;
    // Discards nothing. Always 1.
    int Reset() override { return 1; }
    // From the text of the code added last, see ParameterCount.h; 0 for a missing function.
    [[nodiscard]] int GetParamCount(const std::wstring& functionName) override;
    void GetErrorInfo(std::wstring& source, std::wstring& description, std::int32_t& line,
                      std::int32_t& column, std::wstring& text) override;

private:
    CComReference<CActiveScriptSite> m_site;
    CComReference<IActiveScript> m_engine;
    CComReference<IActiveScriptParse> m_parse;
    CCsv m_lines;
};
