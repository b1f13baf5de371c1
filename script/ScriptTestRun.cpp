#include "script/ScriptTestRun.h"

#include "script/EditorText.h"
#include "script/ScriptGenerator.h"

bool ParseScript(IScriptController& controller, const std::wstring& language, const std::wstring& script) {
    return controller.SetLanguage(language) >= 0 && controller.AddCode(script) >= 0;
}

std::wstring TestScript(IScriptController& controller, const std::wstring& language,
                        const std::wstring& script, const std::wstring& text) {
    if (!ParseScript(controller, language, script)) {
        return {};
    }
    CStringArray arguments;
    arguments.Add(text);
    if (controller.GetParamCount(kMainFunction) > 1) {
        arguments.Add(L"");
    }
    CStringArray results;
    return controller.Run(kMainFunction, &arguments, results) >= 0 ? JoinResults(results) : std::wstring();
}
