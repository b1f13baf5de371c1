#include "script/win32/MSScriptController.h"

#include <objbase.h>

#include <utility>

#include "framework/MessageBox.h"
#include "script/win32/ComError.h"
#include "script/win32/ScriptValues.h"

namespace {

int Flag(HRESULT result) {
    return result == S_OK ? 1 : 0;
}

void ShowError(const std::wstring& text) {
    AfxMessageBox(text, MB_OK | MB_ICONERROR);
}

// Runs an operation and returns its success flag. Shows a failure to the user.
template <class Operation>
int ShowFailure(Operation&& operation) {
    try {
        return Flag(operation());
    } catch (const CComError& error) {
        ShowError(error.Source() + L"\r\n" + error.Description());
        return 0;
    }
}

}  // namespace

int CMSScriptController::Create(const std::wstring& language) {
    Close();
    CLSID id;
    if (CLSIDFromProgID(L"ScriptControl", &id) != S_OK ||
        CoCreateInstance(id, nullptr, CLSCTX_ALL, IID_PPV_ARGS(m_control.Put())) != S_OK) {
        return 0;
    }
    SetLanguage(language);
    return 1;
}

void CMSScriptController::Close() {
    m_control.Close();
    m_strLanguage.clear();
}

int CMSScriptController::SetLanguage(const std::wstring& language) {
    if (language == m_strLanguage) {
        return 1;
    }
    if (!m_control || Check(m_control->put_Language(CBstr(language).Get())) != S_OK) {
        return 0;
    }
    m_strLanguage = language;
    return 1;
}

int CMSScriptController::SetAllowUI(int allow) {
    if (!m_control || Check(m_control->put_AllowUI(allow != 0 ? VARIANT_TRUE : VARIANT_FALSE)) != S_OK) {
        return 0;
    }
    m_bAllowUI = allow;
    return 1;
}

int CMSScriptController::AddCode(const std::wstring& scriptText) {
    if (!m_control) {
        return 0;
    }
    try {
        return Flag(Check(m_control->AddCode(CBstr(scriptText).Get())));
    } catch (const CComError& error) {
        LastError last;
        const bool isKnown = ReadLastError(last) == S_OK && last.info.line != 0;
        ShowError(ScriptErrorText(isKnown ? last.info
                                          : CScriptErrorInfo{error.Source(), error.Description(), 0, 0, {}}));
        return 0;
    }
}

int CMSScriptController::Run(const std::wstring& functionName, const CStringArray* arguments,
                             CStringArray& results) {
    if (!m_control) {
        return 0;
    }
    return ShowFailure([&] {
        CSafeArray array = arguments != nullptr ? ArrayOfTexts(*arguments) : CSafeArray();
        SAFEARRAY* parameters = array.Get();
        CVariant value;
        Check(m_control->Run(CBstr(functionName).Get(), &parameters, value.Put()));
        return AppendTexts(value.Get(), results);
    });
}

int CMSScriptController::RunWithArgument(const std::wstring& functionName, const std::wstring& argument,
                                         CStringArray& results) {
    CStringArray arguments;
    arguments.Add(argument);
    return Run(functionName, &arguments, results);
}

int CMSScriptController::Reset() {
    return m_control ? ShowFailure([&] { return Check(m_control->Reset()); }) : 0;
}

int CMSScriptController::GetParamCount(const std::wstring& functionName) {
    CComReference<IScriptProcedureCollection> procedures;
    if (m_control) {
        Check(m_control->get_Procedures(procedures.Put()));
    }
    if (!procedures) {
        return -1;
    }
    LONG count = 0;
    ThrowFailure(procedures->get_Count(&count), procedures.Get());
    for (LONG number = 1; number <= count; ++number) {
        VARIANT index{};
        index.vt = VT_I4;
        index.lVal = number;
        CComReference<IScriptProcedure> procedure;
        ThrowFailure(procedures->get_Item(index, procedure.Put()), procedures.Get());
        CBstr name;
        ThrowFailure(procedure->get_Name(name.Put()), procedure.Get());
        if (name.Text() == functionName) {
            LONG parameters = 0;
            ThrowFailure(procedure->get_NumArgs(&parameters), procedure.Get());
            return static_cast<int>(parameters);
        }
    }
    return -1;
}

void CMSScriptController::GetErrorInfo(std::wstring& source, std::wstring& description, std::int32_t& line,
                                       std::int32_t& column, std::wstring& text) {
    LastError last;
    Check(ReadLastError(last));
    source = std::move(last.info.source);
    description = std::move(last.info.description);
    line = last.info.line;
    column = last.info.column;
    text = std::move(last.info.text);
}

HRESULT CMSScriptController::Check(HRESULT result) {
    if (SUCCEEDED(result)) {
        return result;
    }
    auto [source, description] = ReportedFailure(*m_control.Get(), __uuidof(IScriptControl));
    LastError last;
    // Wine's control sets no error information for a call. The texts are then in its error object, if that
    // has the number of this failure and not that of an earlier one.
    if (description.empty() && ReadLastError(last) == S_OK && last.number == result) {
        source = std::move(last.info.source);
        description = std::move(last.info.description);
    }
    throw CComError(result, std::move(source), description);
}

HRESULT CMSScriptController::ReadLastError(LastError& last) const {
    CComReference<IScriptError> error;
    HRESULT result = m_control ? m_control->get_Error(error.Put()) : S_OK;
    if (FAILED(result) || !error) {
        return result;
    }
    CBstr source;
    CBstr description;
    CBstr text;
    LONG line = 0;
    LONG column = 0;
    for (const HRESULT each : {error->get_Number(&last.number), error->get_Source(source.Put()),
                               error->get_Description(description.Put()), error->get_Line(&line),
                               error->get_Column(&column), error->get_Text(text.Put())}) {
        result = FAILED(each) ? each : result;
    }
    last.info = {source.Text(), description.Text(), line, column, text.Text()};
    return result;
}
