#include "script/win32/ActiveScriptController.h"

#include <objbase.h>

#include <vector>

#include "script/ParameterCount.h"
#include "script/win32/ScriptValues.h"

int CActiveScriptController::Create(const std::wstring& language) {
    Close();
    m_site = CComReference<CActiveScriptSite>(new CActiveScriptSite(m_bAllowUI == 0));
    CLSID id;
    if (CLSIDFromProgID(language.c_str(), &id) != S_OK ||
        CoCreateInstance(id, nullptr, CLSCTX_ALL, IID_PPV_ARGS(m_engine.Put())) != S_OK ||
        m_engine->SetScriptSite(m_site.Get()) != S_OK ||
        m_engine->QueryInterface(IID_PPV_ARGS(m_parse.Put())) != S_OK || m_parse->InitNew() != S_OK) {
        Close();
        return 0;
    }
    m_strLanguage = language;
    return 1;
}

void CActiveScriptController::Close() {
    m_parse.Close();
    if (m_engine) {
        m_engine->Close();  // the engine and the site refer to each other
    }
    m_engine.Close();
    m_site.Close();
    m_lines.RemoveAll();
    m_strLanguage.clear();
}

int CActiveScriptController::SetLanguage(const std::wstring& language) {
    if (language == m_strLanguage) {
        return 1;
    }
    return m_engine ? Create(language) : 0;
}

int CActiveScriptController::SetAllowUI(int allow) {
    if (!m_engine) {
        return 0;
    }
    m_site->SetSilent(allow == 0);
    if (m_engine->SetScriptSite(m_site.Get()) != S_OK) {
        return 0;
    }
    m_bAllowUI = allow;
    return 1;
}

int CActiveScriptController::AddCode(const std::wstring& scriptText) {
    if (!m_engine) {
        return 0;
    }
    CExceptionInfo exception;
    if (m_parse->ParseScriptText(scriptText.c_str(), nullptr, nullptr, nullptr, 0, 0, 0, nullptr,
                                 exception.Put()) != S_OK) {
        return 0;
    }
    m_lines.Split(scriptText, L'\n', false, false);
    return m_engine->SetScriptState(SCRIPTSTATE_CONNECTED) == S_OK ? 1 : 0;
}

int CActiveScriptController::Run(const std::wstring& functionName, const CStringArray* arguments,
                                 CStringArray& results) {
    CComReference<IDispatch> script;
    CBstr name(functionName);
    BSTR names = name.Get();
    DISPID function = DISPID_UNKNOWN;
    if (!m_engine || m_engine->GetScriptDispatch(nullptr, script.Put()) != S_OK ||
        script->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_NEUTRAL, &function) != S_OK) {
        return 0;
    }
    std::vector<CBstr> texts;
    std::vector<VARIANT> parameters;  // the last argument comes first; `texts` owns the texts
    for (std::ptrdiff_t i = arguments != nullptr ? arguments->GetSize() : 0; i-- > 0;) {
        VARIANT& parameter = parameters.emplace_back();
        parameter.vt = VT_BSTR;
        parameter.bstrVal = texts.emplace_back(arguments->GetAt(i)).Get();
    }
    DISPPARAMS call{};
    call.rgvarg = parameters.data();
    call.cArgs = static_cast<UINT>(parameters.size());
    CVariant value;
    CExceptionInfo exception;
    return script->Invoke(function, IID_NULL, LOCALE_NEUTRAL, DISPATCH_METHOD, &call, value.Put(),
                          exception.Put(), nullptr) == S_OK &&
                   AppendTexts(value.Get(), results) == S_OK
               ? 1
               : 0;
}

int CActiveScriptController::RunWithArgument(const std::wstring& functionName, const std::wstring& argument,
                                             CStringArray& results) {
    CStringArray arguments;
    arguments.Add(argument);
    return Run(functionName, &arguments, results);
}

int CActiveScriptController::GetParamCount(const std::wstring& functionName) {
    return CountParameters(m_lines, functionName);
}

void CActiveScriptController::GetErrorInfo(std::wstring& source, std::wstring& description,
                                           std::int32_t& line, std::int32_t& column, std::wstring& text) {
    const CScriptErrorInfo last = m_site ? m_site->LastError() : CScriptErrorInfo();
    source = last.source;
    description = last.description;
    line = last.line;
    column = last.column;
    text = last.text;
}
