#pragma once

#include <cstdint>
#include <string>

// An error in a script, as its engine reports it.
struct CScriptErrorInfo {
    std::wstring source;       // the engine
    std::wstring description;  // what is wrong
    std::int32_t line = 0;     // 1-based; 0 when unknown
    std::int32_t column = 0;   // as the engine counts columns
    std::wstring text;         // that line of the script; empty when the engine does not report it
};

// The text of the error's message box. It has line, column and text when the line is known.
[[nodiscard]] std::wstring ScriptErrorText(const CScriptErrorInfo& error);
