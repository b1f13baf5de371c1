// What the real control does not show: how it is called, and failures that only some editions of it tell
// about.
#include "script/MSScriptController.h"

#include <gmock/gmock.h>

#include "script/ComError.h"
#include "script/ScriptControllerFactory.h"
#include "tests/support/MessageRecorder.h"
#include "util/ComApartment.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"  // the interfaces have none, as they must

// A control that notes how it is called and answers what it is told to. Stands in for the registered one, as
// its own class object too, while it lives; lives on the stack and counts the references to it.
class CFakeControl final : public IScriptControl, public ISupportErrorInfo, public IClassFactory {
public:
    CFakeControl() {
        CLSID id{};
        EXPECT_EQ(CLSIDFromProgID(L"ScriptControl", &id), S_OK);
        EXPECT_EQ(CoRegisterClassObject(id, static_cast<IClassFactory*>(this), CLSCTX_INPROC_SERVER,
                                        REGCLS_MULTIPLEUSE, &m_registration),
                  S_OK);
    }
    CFakeControl(const CFakeControl&) = delete;
    CFakeControl& operator=(const CFakeControl&) = delete;
    ~CFakeControl() {
        CoRevokeClassObject(m_registration);
        EXPECT_EQ(m_references, 0);
    }

    HRESULT creation = S_OK;
    HRESULT answer = S_OK;   // of the next calls; a failure comes with a source and a description
    bool toldByCall = true;  // whether it says that it tells about failures
    bool allowsUI = true;
    bool isReset = false;
    std::wstring call;  // of Run: the function and the arguments, each in brackets

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
        *object = id == __uuidof(IScriptControl) || id == __uuidof(IUnknown) || id == __uuidof(IDispatch)
                      ? static_cast<IScriptControl*>(this)
                  : id == __uuidof(ISupportErrorInfo)
                      ? static_cast<void*>(static_cast<ISupportErrorInfo*>(this))
                  : id == __uuidof(IClassFactory) ? static_cast<void*>(static_cast<IClassFactory*>(this))
                                                  : nullptr;
        m_references += *object != nullptr ? 1 : 0;
        return *object != nullptr ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++m_references); }
    ULONG STDMETHODCALLTYPE Release() override { return static_cast<ULONG>(--m_references); }

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID id, void** object) override {
        return creation == S_OK ? QueryInterface(id, object) : creation;
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID id) override {
        return toldByCall && id == __uuidof(IScriptControl) ? S_OK : S_FALSE;
    }

    HRESULT STDMETHODCALLTYPE put_Language(BSTR) override { return Answer(); }
    HRESULT STDMETHODCALLTYPE put_AllowUI(VARIANT_BOOL allow) override {
        allowsUI = allow == VARIANT_TRUE;
        return Answer();
    }
    HRESULT STDMETHODCALLTYPE get_Error(IScriptError** error) override { return *error = nullptr, S_OK; }
    HRESULT STDMETHODCALLTYPE get_Procedures(IScriptProcedureCollection** procedures) override {
        return *procedures = nullptr, Answer();
    }
    HRESULT STDMETHODCALLTYPE Reset() override { return isReset = true, Answer(); }
    HRESULT STDMETHODCALLTYPE AddCode(BSTR) override { return Answer(); }
    HRESULT STDMETHODCALLTYPE Run(BSTR procedure, SAFEARRAY** arguments, VARIANT* result) override {
        call = procedure;
        if (*arguments == nullptr) {
            call += L" no array";
        } else {
            VARTYPE type = VT_EMPTY;
            LONG first = -1;
            LONG last = -1;
            SafeArrayGetVartype(*arguments, &type);
            SafeArrayGetLBound(*arguments, 1, &first);
            SafeArrayGetUBound(*arguments, 1, &last);
            EXPECT_EQ(type, VT_VARIANT);
            EXPECT_EQ(SafeArrayGetDim(*arguments), 1U);
            EXPECT_EQ(first, 0);
            for (LONG i = 0; i <= last; ++i) {
                CVariant argument;
                SafeArrayGetElement(*arguments, &i, argument.Put());
                EXPECT_EQ(argument.Get().vt, VT_BSTR);
                call += L" [" + CBstr::TextOf(argument.Get().bstrVal) + L"]";
            }
        }
        result->vt = VT_BSTR;
        result->bstrVal = SysAllocString(L"returned");
        return Answer();
    }

    // Never called.
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE get_Language(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_State(LONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_State(LONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_SitehWnd(LONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_SitehWnd(LONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_Timeout(LONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_Timeout(LONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_AllowUI(VARIANT_BOOL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_UseSafeSubset(VARIANT_BOOL*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_UseSafeSubset(VARIANT_BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_Modules(IDispatch**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_CodeObject(IDispatch**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE AboutBox() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE AddObject(BSTR, IDispatch*, VARIANT_BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Eval(BSTR, VARIANT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE ExecuteStatement(BSTR) override { return E_NOTIMPL; }

private:
    [[nodiscard]] HRESULT Answer() const {
        CComReference<ICreateErrorInfo> error;
        CComReference<IErrorInfo> told;
        if (FAILED(answer) && CreateErrorInfo(error.Put()) == S_OK &&
            error->QueryInterface(IID_PPV_ARGS(told.Put())) == S_OK) {
            error->SetSource(CBstr(L"the source").Get());
            error->SetDescription(CBstr(L"the description").Get());
            SetErrorInfo(0, told.Get());
        }
        return answer;
    }

    DWORD m_registration = 0;
    int m_references = 0;
};
#pragma GCC diagnostic pop

class MSScriptController : public testing::Test {
protected:
    CComApartment m_apartment;
    CFakeControl m_control;
    MessageRecorder m_boxes;
    CMSScriptController m_controller;
};

TEST_F(MSScriptController, CallsTheControlAsItExpects) {
    ASSERT_EQ(m_controller.Create(L"any"), 1);
    CStringArray results;
    EXPECT_EQ(m_controller.Run(L"F", nullptr, results), 1);
    EXPECT_EQ(m_control.call, L"F no array");
    CStringArray arguments;
    EXPECT_EQ(m_controller.Run(L"F", &arguments, results), 1);
    EXPECT_EQ(m_control.call, L"F");
    arguments.Add(L"1");
    arguments.Add(L"");
    EXPECT_EQ(m_controller.Run(L"F", &arguments, results), 1);
    EXPECT_EQ(m_control.call, L"F [1] []");
    EXPECT_EQ(results.GetSize(), 3);
    EXPECT_EQ(results[0], L"returned");
    EXPECT_EQ(m_controller.SetAllowUI(0), 1);
    EXPECT_FALSE(m_control.allowsUI);
    EXPECT_EQ(m_controller.SetAllowUI(1), 1);
    EXPECT_TRUE(m_control.allowsUI);
    EXPECT_EQ(m_controller.Reset(), 1);
    EXPECT_TRUE(m_control.isReset);
    EXPECT_EQ(m_controller.GetParamCount(L"F"), -1) << "there are no procedures";

    m_control.answer = S_FALSE;  // no failure and no success
    EXPECT_EQ(m_controller.SetLanguage(L"other"), 0);
    EXPECT_EQ(m_controller.GetLanguage(), L"any");
    EXPECT_EQ(m_controller.SetAllowUI(0), 0);
    EXPECT_EQ(m_controller.AddCode(L""), 0);
    EXPECT_EQ(m_controller.Reset(), 0);
    EXPECT_THAT(m_boxes.texts, IsEmpty());
}

TEST_F(MSScriptController, ShowsOrRaisesWhatTheControlTells) {
    ASSERT_EQ(m_controller.Create(L"any"), 1);
    m_control.answer = E_ACCESSDENIED;
    CStringArray results;
    EXPECT_EQ(m_controller.RunWithArgument(L"F", L"", results), 0);
    EXPECT_TRUE(results.IsEmpty());
    EXPECT_EQ(m_controller.Reset(), 0);
    EXPECT_EQ(m_controller.AddCode(L"code"), 0);
    m_control.toldByCall = false;  // what stands there as the thread's last error is not the control's
    EXPECT_EQ(m_controller.Reset(), 0);
    EXPECT_THAT(m_boxes.texts,
                ElementsAre(L"the source\r\nthe description", L"the source\r\nthe description",
                            L"Error Source: the source\r\nError Description: the description",
                            testing::AllOf(testing::StartsWith(L"\r\n"), testing::SizeIs(testing::Gt(2U)),
                                           testing::Not(testing::HasSubstr(L"the description")))));
    EXPECT_THAT(m_boxes.styles, testing::Each(MB_OK | MB_ICONERROR));

    m_boxes.texts.clear();
    m_control.toldByCall = true;
    const std::function<void()> raising[] = {
        [&] { m_controller.SetLanguage(L"other"); },
        [&] { m_controller.SetAllowUI(0); },
        [&] { static_cast<void>(m_controller.GetParamCount(L"F")); },
    };
    for (const auto& call : raising) {
        try {
            call();
            ADD_FAILURE() << "not raised";
        } catch (const CComError& error) {
            EXPECT_EQ(error.Result(), E_ACCESSDENIED);
            EXPECT_EQ(error.Source(), L"the source");
            EXPECT_EQ(error.Description(), L"the description");
        }
    }
    EXPECT_EQ(m_controller.GetLanguage(), L"any");
    EXPECT_THAT(m_boxes.texts, IsEmpty());
}

TEST_F(MSScriptController, WithoutTheControlThereIsNoController) {
    m_control.creation = CLASS_E_NOTLICENSED;
    EXPECT_EQ(CScriptControllerFactory::CreateController(), nullptr);
    EXPECT_EQ(m_controller.Create(L"any"), 0);
    EXPECT_EQ(m_controller.IsCreated(), 0);
    EXPECT_EQ(m_controller.GetLanguage(), L"");
    EXPECT_THAT(m_boxes.texts, IsEmpty());
}

}  // namespace
