#pragma once

#include <cstdint>
#include <string>

#include "util/StringArray.h"

// Checks and runs one script through a scripting engine. The editor makes one for each action and destroys it
// at the action's end, all on the thread that shows its dialogs.
//
// A success flag is 1 when the engine returned S_OK and 0 for everything else. Operations fail without
// reporting unless the host says otherwise.
class IScriptController {
public:
    IScriptController() = default;
    IScriptController(const IScriptController&) = delete;
    IScriptController& operator=(const IScriptController&) = delete;
    virtual ~IScriptController() = default;

    // Makes the engine and sets its language (see ScriptLanguages.h); success flag.
    virtual int Create(const std::wstring& language) = 0;
    // Releases the engine and empties the stored language.
    virtual void Close() = 0;
    // 1 while there is an engine, else 0.
    [[nodiscard]] virtual int IsCreated() const = 0;
    // The language that the engine is set to; empty until one was set.
    [[nodiscard]] virtual std::wstring GetLanguage() const { return m_strLanguage; }
    // 1 at once, without asking the engine, for the language that is stored already (case counts); otherwise
    // the success flag.
    virtual int SetLanguage(const std::wstring& language) = 0;
    // Whether the engine may show a user interface of its own (1, at first) or not (0); success flag.
    virtual int SetAllowUI(int allow) = 0;

    // Hands a whole script to the engine; success flag.
    virtual int AddCode(const std::wstring& scriptText) = 0;
    // Calls a function of the script and appends what it returns to `results`: a scalar as one text, an array
    // as one text for each element that is convertible to one. `arguments` may be null: no list at all.
    // Success flag.
    virtual int Run(const std::wstring& functionName, const CStringArray* arguments,
                    CStringArray& results) = 0;
    // Run with a list of one.
    virtual int RunWithArgument(const std::wstring& functionName, const std::wstring& argument,
                                CStringArray& results) = 0;
    // Discards all code; success flag.
    virtual int Reset() = 0;
    // The number of parameters of a function of the script. What a missing function gives depends on the
    // host.
    [[nodiscard]] virtual int GetParamCount(const std::wstring& functionName) = 0;
    // The engine's last script error. The line is 0 when it is unknown, and `text` is that line of the
    // script when the engine reports it.
    virtual void GetErrorInfo(std::wstring& source, std::wstring& description, std::int32_t& line,
                              std::int32_t& column, std::wstring& text) = 0;

protected:
    std::int32_t m_bAllowUI = 1;
    std::int32_t m_nTimeout = 10000;  // milliseconds; nothing applies it to the engine
    std::wstring m_strLanguage;
};
