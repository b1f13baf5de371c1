#include "tests/support/OpenDialogs.h"

#include <windows.h>

#include "util/Utf8.h"

static BOOL CALLBACK AddText(HWND window, LPARAM report) {
    wchar_t text[512] = {};
    DWORD_PTR length = 0;
    SendMessageTimeoutW(window, WM_GETTEXT, std::size(text), reinterpret_cast<LPARAM>(text), SMTO_ABORTIFHUNG,
                        1000, &length);
    *reinterpret_cast<std::string*>(report) += length != 0 ? " | " + ToUtf8(text) : "";
    return TRUE;
}

std::string DescribeOpenDialogs() {
    std::string report;
    for (HWND window = nullptr; (window = FindWindowExW(nullptr, window, L"#32770", nullptr)) != nullptr;) {
        if (IsWindowVisible(window)) {
            report += "  open dialog:";
            AddText(window, reinterpret_cast<LPARAM>(&report));
            EnumChildWindows(window, AddText, reinterpret_cast<LPARAM>(&report));
            report += '\n';
        }
    }
    return report;
}
