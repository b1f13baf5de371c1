#pragma once

#include <cstdint>
#include <string>

// An error in a script, as its engine tells it.
struct CScriptErrorInfo {
    std::wstring source;       // which engine
    std::wstring description;  // what is wrong
    std::int32_t line = 0;     // 1-based; 0 when unknown
    std::int32_t column = 0;   // as the engine counts
    std::wstring text;         // that line of the script; empty where the engine does not tell it
};

// What a user is shown: where the error is, too, when its line is known.
[[nodiscard]] std::wstring ScriptErrorText(const CScriptErrorInfo& error);
