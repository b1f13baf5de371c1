#pragma once

#include <windows.h>

#include <unknwn.h>

#include <stdexcept>
#include <string>
#include <utility>

// A failed COM call. Without a description it has the system's text for the result.
class CComError : public std::runtime_error {
public:
    CComError(HRESULT result, std::wstring source, const std::wstring& description);

    [[nodiscard]] HRESULT Result() const noexcept { return m_result; }
    [[nodiscard]] const std::wstring& Source() const noexcept { return m_source; }
    [[nodiscard]] std::wstring Description() const;

private:
    HRESULT m_result;
    std::wstring m_source;
};

// The source and description of the error that `object` has set for a failed call through this interface;
// empty when it has set none. Call it directly after the failed call.
[[nodiscard]] std::pair<std::wstring, std::wstring> ReportedFailure(IUnknown& object, REFIID interfaceId);

// Throws CComError when the result of a call through that interface is a failure, otherwise returns it.
template <class Interface>
HRESULT ThrowFailure(HRESULT result, Interface* object) {
    if (FAILED(result)) {
        auto [source, description] = ReportedFailure(*object, __uuidof(Interface));
        throw CComError(result, std::move(source), description);
    }
    return result;
}
