#include "tests/support/OpenDialogs.h"

#include <windows.h>

#include "util/Utf8.h"

std::string DescribeOpenDialogs() {
    std::string report;
    for (HWND window = nullptr; (window = FindWindowExW(nullptr, window, L"#32770", nullptr)) != nullptr;) {
        wchar_t title[512] = {};
        wchar_t text[512] = {};
        InternalGetWindowText(window, title, 512);  // asks the system, not the window
        InternalGetWindowText(GetDlgItem(window, 0xFFFF), text, 512);
        if (IsWindowVisible(window)) {
            report += "  open dialog: " + ToUtf8(title) + " | " + ToUtf8(text) + '\n';
        }
    }
    return report;
}
