#pragma once

#include <windows.h>

#include <activscp.h>

#include "script/win32/ActiveScriptSite.h"
#include "script/win32/IScriptController.h"
#include "util/Csv.h"
#include "util/win32/ComHandle.h"

// Runs scripts in an Active Scripting engine directly. The site shows the errors of a script; any other
// failure is only returned. Where it differs from the Script Control (Reset, GetParamCount) it does so on
// purpose.
class CActiveScriptController final : public IScriptController {
public:
    CActiveScriptController() = default;
    CActiveScriptController(const CActiveScriptController&) = delete;
    CActiveScriptController& operator=(const CActiveScriptController&) = delete;
    ~CActiveScriptController() override { CActiveScriptController::Close(); }

    // Nothing is held after a failure.
    int Create(const std::wstring& language) override;
    void Close() override;
    [[nodiscard]] int IsCreated() const override { return m_site ? 1 : 0; }
    // Another language is another engine: all code is gone.
    int SetLanguage(const std::wstring& language) override;
    // Where the engine does not take the site once more, errors are silent from now on all the same.
    int SetAllowUI(int allow) override;
    int AddCode(const std::wstring& scriptText) override;
    int Run(const std::wstring& functionName, const CStringArray* arguments, CStringArray& results) override;
    int RunWithArgument(const std::wstring& functionName, const std::wstring& argument,
                        CStringArray& results) override;
    // Discards nothing; always 1.
    int Reset() override { return 1; }
    // By the text of the last code added, see ParameterCount.h; 0 for a function that is not there.
    [[nodiscard]] int GetParamCount(const std::wstring& functionName) override;
    void GetErrorInfo(std::wstring& source, std::wstring& description, std::int32_t& line,
                      std::int32_t& column, std::wstring& text) override;

private:
    CComReference<CActiveScriptSite> m_site;
    CComReference<IActiveScript> m_engine;
    CComReference<IActiveScriptParse> m_parse;
    CCsv m_lines;
};
