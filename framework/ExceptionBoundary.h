#pragma once

#include <exception>

// Shows the text of an exception that a handler threw (UTF-8; null for one without a text). While such a box
// is open, further ones are dropped: a handler that fails on every timer tick does not pile them up.
void AfxReportException(const char* text) noexcept;

// Runs `function`. An exception is caught and shown, and the result is false then. No exception may pass a
// window procedure, because the system's frames lie between it and the next handler.
template <class Function>
bool AfxRunGuarded(Function&& function) noexcept {
    try {
        function();
        return true;
    } catch (const std::exception& error) {
        AfxReportException(error.what());
    } catch (...) {
        AfxReportException(nullptr);
    }
    return false;
}
