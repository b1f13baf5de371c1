#pragma once

#include <windows.h>

#include <oaidl.h>

// The Script Control's interfaces, as its type library declares them. Only the order of the functions
// matters, not their names; each interface is declared up to the last function that is called. A caller owns
// a reference to each object that the control returns.

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"  // IDispatch has one, as it must

// A procedure of the script.
struct IScriptProcedure : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE get_Name(BSTR* name) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_NumArgs(LONG* count) = 0;

protected:
    ~IScriptProcedure() = default;
};

struct IScriptProcedureCollection : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE get_NewEnum(IUnknown** enumerator) = 0;
    // By name or by number, from 1.
    virtual HRESULT STDMETHODCALLTYPE get_Item(VARIANT index, IScriptProcedure** procedure) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Count(LONG* count) = 0;

protected:
    ~IScriptProcedureCollection() = default;
};

// The last error of a script.
struct IScriptError : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE get_Number(LONG* number) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Source(BSTR* source) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Description(BSTR* description) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_HelpFile(BSTR* file) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_HelpContext(LONG* context) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Text(BSTR* text) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Line(LONG* line) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Column(LONG* column) = 0;

protected:
    ~IScriptError() = default;
};

struct IScriptControl : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE get_Language(BSTR* language) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Language(BSTR language) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_State(LONG* state) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_State(LONG state) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_SitehWnd(LONG window) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_SitehWnd(LONG* window) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Timeout(LONG* milliseconds) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Timeout(LONG milliseconds) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_AllowUI(VARIANT_BOOL* allow) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_AllowUI(VARIANT_BOOL allow) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_UseSafeSubset(VARIANT_BOOL* use) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_UseSafeSubset(VARIANT_BOOL use) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Modules(IDispatch** modules) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Error(IScriptError** error) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_CodeObject(IDispatch** object) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Procedures(IScriptProcedureCollection** procedures) = 0;
    virtual HRESULT STDMETHODCALLTYPE AboutBox() = 0;
    virtual HRESULT STDMETHODCALLTYPE AddObject(BSTR name, IDispatch* object, VARIANT_BOOL addMembers) = 0;
    virtual HRESULT STDMETHODCALLTYPE Reset() = 0;
    virtual HRESULT STDMETHODCALLTYPE AddCode(BSTR code) = 0;
    virtual HRESULT STDMETHODCALLTYPE Eval(BSTR expression, VARIANT* result) = 0;
    virtual HRESULT STDMETHODCALLTYPE ExecuteStatement(BSTR statement) = 0;
    // `arguments` points to a one-dimensional array of VARIANTs, or to null.
    virtual HRESULT STDMETHODCALLTYPE Run(BSTR procedure, SAFEARRAY** arguments, VARIANT* result) = 0;

protected:
    ~IScriptControl() = default;
};

#pragma GCC diagnostic pop

__CRT_UUID_DECL(IScriptProcedure, 0x70841C73, 0x067D, 0x11D0, 0x95, 0xD8, 0x00, 0xA0, 0x24, 0x63, 0xAB, 0x28)
__CRT_UUID_DECL(IScriptProcedureCollection, 0x70841C71, 0x067D, 0x11D0, 0x95, 0xD8, 0x00, 0xA0, 0x24, 0x63,
                0xAB, 0x28)
__CRT_UUID_DECL(IScriptError, 0x70841C78, 0x067D, 0x11D0, 0x95, 0xD8, 0x00, 0xA0, 0x24, 0x63, 0xAB, 0x28)
__CRT_UUID_DECL(IScriptControl, 0x0E59F1D3, 0x1FBE, 0x11D0, 0x8F, 0xF2, 0x00, 0xA0, 0xD1, 0x00, 0x38, 0xBC)
