#include "framework/ExceptionBoundary.h"

#include "framework/MessageBox.h"
#include "util/ExceptionText.h"

void AfxReportFailure(const std::wstring& text) noexcept {
    static bool isOpen = false;
    if (isOpen) {
        return;
    }
    isOpen = true;
    try {
        AfxMessageBox(text, MB_OK | MB_ICONSTOP);
    } catch (...) {
        // There is no other way to show it.
    }
    isOpen = false;
}

void AfxReportException(const std::exception* error) noexcept {
    try {
        const std::wstring text = error != nullptr ? FromWhat(*error) : std::wstring();
        AfxReportFailure(text.empty() ? L"An unknown error occurred." : text);
    } catch (...) {
        // No memory is left for the text.
    }
}
