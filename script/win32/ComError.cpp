#include "script/win32/ComError.h"

#include "util/ExceptionText.h"
#include "util/win32/ComHandle.h"
#include "util/win32/SystemError.h"

CComError::CComError(HRESULT result, std::wstring source, const std::wstring& description)
    : std::runtime_error(
          ToWhat(description.empty() ? SystemErrorText(static_cast<DWORD>(result)) : description)),
      m_result(result),
      m_source(std::move(source)) {}

std::wstring CComError::Description() const {
    return FromWhat(*this);
}

std::pair<std::wstring, std::wstring> ReportedFailure(IUnknown& object, REFIID interfaceId) {
    CBstr source;
    CBstr description;
    // The thread's error information may come from another object, unless this object supports error
    // information for the interface.
    CComReference<ISupportErrorInfo> support;
    CComReference<IErrorInfo> error;
    if (object.QueryInterface(IID_PPV_ARGS(support.Put())) == S_OK &&
        support->InterfaceSupportsErrorInfo(interfaceId) == S_OK && GetErrorInfo(0, error.Put()) == S_OK) {
        error->GetSource(source.Put());
        error->GetDescription(description.Put());
    }
    return {source.Text(), description.Text()};
}
