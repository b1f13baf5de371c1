#include "script/ScriptErrorInfo.h"

std::wstring ScriptErrorText(const CScriptErrorInfo& error) {
    std::wstring text = L"Error Source: " + error.source + L"\r\nError Description: " + error.description;
    if (error.line != 0) {
        text += L"\r\nError on Line: " + std::to_wstring(error.line) + L"\r\nError on Column: " +
                std::to_wstring(error.column) + L"\r\nError in String: \"" + error.text + L"\"";
    }
    return text;
}
