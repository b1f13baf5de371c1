#include "framework/ExceptionBoundary.h"

#include "framework/MessageBox.h"
#include "util/Utf8.h"

void AfxReportException(const char* text) noexcept {
    static bool isOpen = false;
    if (isOpen) {
        return;
    }
    isOpen = true;
    try {
        AfxMessageBox(text != nullptr && *text != '\0' ? FromUtf8(text) : L"An unknown error occurred.",
                      MB_OK | MB_ICONSTOP);
    } catch (...) {
        // There is no other way to show it.
    }
    isOpen = false;
}
