#include "script/win32/ActiveScriptSite.h"

#include "framework/ExceptionBoundary.h"
#include "framework/MessageBox.h"
#include "util/win32/ComHandle.h"

namespace {

CScriptErrorInfo Read(IActiveScriptError& error) {
    CScriptErrorInfo info;
    CExceptionInfo exception;
    if (SUCCEEDED(error.GetExceptionInfo(exception.Put()))) {
        info.source = CBstr::TextOf(exception.Get().bstrSource);
        info.description = CBstr::TextOf(exception.Get().bstrDescription);
    }
    CBstr text;
    if (SUCCEEDED(error.GetSourceLineText(text.Put()))) {
        info.text = text.Text();
    }
    DWORD context = 0;
    ULONG line = 0;
    LONG column = 0;
    if (SUCCEEDED(error.GetSourcePosition(&context, &line, &column))) {
        info.line = static_cast<std::int32_t>(line + 1);  // engines count from 0
        info.column = column;
    }
    return info;
}

}  // namespace

HRESULT CActiveScriptSite::QueryInterface(REFIID interfaceId, void** object) {
    if (object == nullptr) {
        return E_POINTER;
    }
    if (interfaceId != __uuidof(IUnknown) && interfaceId != __uuidof(IActiveScriptSite)) {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    *object = static_cast<IActiveScriptSite*>(this);
    AddRef();
    return S_OK;
}

ULONG CActiveScriptSite::AddRef() {
    return static_cast<ULONG>(InterlockedIncrement(&m_references));
}

ULONG CActiveScriptSite::Release() {
    const LONG references = InterlockedDecrement(&m_references);
    if (references == 0) {
        delete this;
    }
    return static_cast<ULONG>(references);
}

HRESULT CActiveScriptSite::GetLCID(LCID* locale) {
    if (locale != nullptr) {
        *locale = LOCALE_NEUTRAL;  // has to be set: engines pass an uninitialised variable
    }
    return S_OK;
}

HRESULT CActiveScriptSite::GetItemInfo(LPCOLESTR, DWORD, IUnknown** item, ITypeInfo** type) {
    if (item != nullptr) {
        *item = nullptr;
    }
    if (type != nullptr) {
        *type = nullptr;
    }
    return TYPE_E_ELEMENTNOTFOUND;
}

HRESULT CActiveScriptSite::GetDocVersionString(BSTR* version) {
    if (version != nullptr) {
        *version = nullptr;
    }
    return S_OK;
}

HRESULT CActiveScriptSite::OnScriptError(IActiveScriptError* error) {
    // The caller is the engine. No exception may reach it.
    AfxRunGuarded([&] {
        m_error = {};
        if (error != nullptr) {
            m_error = Read(*error);
        }
        if (!m_isSilent) {
            AfxMessageBox(ScriptErrorText(m_error), MB_OK | MB_ICONERROR);
        }
    });
    return S_OK;
}
