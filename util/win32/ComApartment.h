#pragma once

#include <windows.h>

#include <objbase.h>

// Readies the calling thread for components while it lives. The shell may start a program and show its
// dialogs through some that want this; without it most still works, so a failure is not reported. Link ole32.
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
