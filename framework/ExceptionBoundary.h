#pragma once

#include <exception>

// Shows the text of what a handler threw (UTF-8; null for something that carries none). While such a box is
// open, further ones are dropped: a handler that fails on every timer tick does not pile them up.
void AfxReportException(const char* text) noexcept;

// Runs `function` and lets nothing out that it throws: the error is shown and the answer is false. No
// exception may pass a window procedure, because the system's frames lie between it and the next handler.
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
