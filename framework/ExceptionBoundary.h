#pragma once

#include <exception>
#include <string>

// Shows in a message box why a handler failed. While such a box is open, further failures are not shown, so
// that a handler that fails on every timer tick opens only one.
void AfxReportFailure(const std::wstring& text) noexcept;
// The same with the text of the exception that the handler threw; null for one without a text.
void AfxReportException(const std::exception* error) noexcept;

// Runs `function`. Catches and shows an exception, and returns false then. No exception may leave a window
// procedure, because the system has called it.
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
