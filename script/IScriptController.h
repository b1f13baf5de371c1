#pragma once

#include <cstdint>
#include <string>

#include "util/StringArray.h"

// Parses and runs a script through a scripting engine. The editor creates a controller for each action and
// destroys it afterwards, all on the thread that shows its dialogs.
//
// A success flag is 1 when the engine returned S_OK, otherwise 0. Failures are not shown to the user unless
// the derived class describes it.
class IScriptController {
public:
    IScriptController() = default;
    IScriptController(const IScriptController&) = delete;
    IScriptController& operator=(const IScriptController&) = delete;
    virtual ~IScriptController() = default;

    // Creates the engine and sets its language (see ScriptLanguages.h); success flag.
    virtual int Create(const std::wstring& language) = 0;
    // Releases the engine and empties the stored language.
    virtual void Close() = 0;
    // 1 while there is an engine, else 0.
    [[nodiscard]] virtual int IsCreated() const = 0;
    // The language of the engine; empty until one was set.
    [[nodiscard]] virtual std::wstring GetLanguage() const { return m_strLanguage; }
    // For the stored language (case counts) returns 1 without a call of the engine; otherwise the success
    // flag.
    virtual int SetLanguage(const std::wstring& language) = 0;
    // Whether the engine may show a user interface of its own (1, at first) or not (0); success flag.
    virtual int SetAllowUI(int allow) = 0;

    // Passes a whole script to the engine; success flag.
    virtual int AddCode(const std::wstring& scriptText) = 0;
    // Calls a function of the script and appends its result to `results`: a scalar as one text, an array as
    // one text for each element that can be converted. Null `arguments` mean no argument list. Success flag.
    virtual int Run(const std::wstring& functionName, const CStringArray* arguments,
                    CStringArray& results) = 0;
    // Run with one argument.
    virtual int RunWithArgument(const std::wstring& functionName, const std::wstring& argument,
                                CStringArray& results) = 0;
    // Discards all code; success flag.
    virtual int Reset() = 0;
    // The number of parameters of a function of the script. The result for a missing function depends on the
    // host.
    [[nodiscard]] virtual int GetParamCount(const std::wstring& functionName) = 0;
    // The engine's last script error. The line is 0 when it is unknown, and `text` is that line of the
    // script when the engine reports it.
    virtual void GetErrorInfo(std::wstring& source, std::wstring& description, std::int32_t& line,
                              std::int32_t& column, std::wstring& text) = 0;

protected:
    std::int32_t m_bAllowUI = 1;
    std::int32_t m_nTimeout = 10000;  // milliseconds; never applied to the engine
    std::wstring m_strLanguage;
};
