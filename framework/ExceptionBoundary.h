#pragma once

#include <exception>
#include <string>

// Shows why a handler failed. While such a box is open, further ones are dropped: a handler that fails on
// every timer tick does not pile them up.
void AfxReportFailure(const std::wstring& text) noexcept;
// The same with the text of the exception that the handler threw; null for one without a text.
void AfxReportException(const std::exception* error) noexcept;

// Runs `function`. An exception is caught and shown, and the result is false then. No exception may pass a
// window procedure, because the system's frames lie between it and the next handler.
template <class Function>
bool AfxRunGuarded(Function&& function) noexcept {
    try {
        function();
        return true;
    } catch (const std::exception& error) {
        AfxReportException(&error);
    } catch (...) {
        AfxReportException(nullptr);
    }
    return false;
}
