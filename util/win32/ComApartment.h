#pragma once

#include <windows.h>

#include <objbase.h>

// Initialises COM for the calling thread during its lifetime. The shell may use COM objects to start a
// program and to show dialogs. Most of that also works without COM, so a failure is not reported. Link ole32.
class CComApartment {
public:
    CComApartment() noexcept
        : m_result(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE)) {}
    CComApartment(const CComApartment&) = delete;
    CComApartment& operator=(const CComApartment&) = delete;
    ~CComApartment() {
        if (SUCCEEDED(m_result)) {
            CoUninitialize();
        }
    }

private:
    HRESULT m_result;
};
