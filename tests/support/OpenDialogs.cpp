#include "tests/support/OpenDialogs.h"

#include <windows.h>

#include "util/Utf8.h"

namespace {

std::string TextOf(HWND window) {
    wchar_t text[512] = {};
    DWORD_PTR result = 0;
    SendMessageTimeoutW(window, WM_GETTEXT, std::size(text), reinterpret_cast<LPARAM>(text), SMTO_ABORTIFHUNG,
                        1000, &result);
    return ToUtf8(text);
}

BOOL CALLBACK AddControl(HWND control, LPARAM parameter) {
    const std::string text = TextOf(control);
    if (!text.empty()) {
        *reinterpret_cast<std::string*>(parameter) += " | " + text;
    }
    return TRUE;
}

BOOL CALLBACK AddDialog(HWND window, LPARAM parameter) {
    wchar_t className[16] = {};
    GetClassNameW(window, className, static_cast<int>(std::size(className)));
    if (IsWindowVisible(window) && std::wstring_view(className) == L"#32770") {
        std::string& report = *reinterpret_cast<std::string*>(parameter);
        report += "  open dialog: " + TextOf(window);
        EnumChildWindows(window, AddControl, parameter);
        report += '\n';
    }
    return TRUE;
}

}  // namespace

std::string DescribeOpenDialogs() {
    std::string report;
    EnumWindows(AddDialog, reinterpret_cast<LPARAM>(&report));
    return report;
}
