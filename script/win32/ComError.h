#pragma once

#include <windows.h>

#include <unknwn.h>

#include <stdexcept>
#include <string>
#include <utility>

// A call on a component that failed. The description is the system's for the result where there was none.
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

// What `object` has to tell about the failure of a call through that interface, right after it: source and
// description, both empty when it tells nothing.
[[nodiscard]] std::pair<std::wstring, std::wstring> ToldFailure(IUnknown& object, REFIID interfaceId);

// Returns the result of a call through that interface, unless it is a failure, which is raised.
template <class Interface>
HRESULT RaiseFailure(HRESULT result, Interface* object) {
    if (FAILED(result)) {
        auto [source, description] = ToldFailure(*object, __uuidof(Interface));
        throw CComError(result, std::move(source), description);
    }
    return result;
}
