#pragma once

#include <windows.h>

#include <activscp.h>

#include "script/ScriptErrorInfo.h"

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"  // the interface has none, as it must

// The host's side of a scripting engine: stores the engine's last error and shows it to the user unless it is
// silent. Gives scripts no objects beyond their language. Reference-counted; the creator owns the first
// reference.
class CActiveScriptSite final : public IActiveScriptSite {
public:
    explicit CActiveScriptSite(bool isSilent) noexcept : m_isSilent(isSilent) {}
    CActiveScriptSite(const CActiveScriptSite&) = delete;
    CActiveScriptSite& operator=(const CActiveScriptSite&) = delete;

    void SetSilent(bool isSilent) noexcept { m_isSilent = isSilent; }
    [[nodiscard]] const CScriptErrorInfo& LastError() const noexcept { return m_error; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID interfaceId, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    HRESULT STDMETHODCALLTYPE GetLCID(LCID* locale) override;
    HRESULT STDMETHODCALLTYPE GetItemInfo(LPCOLESTR name, DWORD mask, IUnknown** item,
                                          ITypeInfo** type) override;
    HRESULT STDMETHODCALLTYPE GetDocVersionString(BSTR* version) override;
    HRESULT STDMETHODCALLTYPE OnScriptTerminate(const VARIANT*, const EXCEPINFO*) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnStateChange(SCRIPTSTATE) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnScriptError(IActiveScriptError* error) override;
    HRESULT STDMETHODCALLTYPE OnEnterScript() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnLeaveScript() override { return S_OK; }

private:
    ~CActiveScriptSite() = default;

    LONG m_references = 1;
    bool m_isSilent;
    CScriptErrorInfo m_error;
};
#pragma GCC diagnostic pop
