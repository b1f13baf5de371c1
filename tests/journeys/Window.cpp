// What scripts that play a user need to know of another program's windows, so that mouse and keyboard find
// them.
//
//   window TITLE place [ID]     where the window of that title is or, with ID, that control of it: prints
//                               "left top right bottom" in pixels of the screen, "shown" or "hidden",
//                               "enabled" or "disabled"; for a list its header on a second line
//   window TITLE text ID        prints what that control says, in UTF-8
//   window TITLE rename TEXT    gives it another title
//
// A TITLE that ends in * is how the title begins. Ends with 1 when there is no such window.
#include <windows.h>

#include <commctrl.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "util/Utf8.h"

namespace {

HWND Find(std::wstring title) {
    const bool isPrefix = title.ends_with(L'*');
    title.resize(title.size() - (isPrefix ? 1 : 0));
    HWND window = GetTopWindow(nullptr);
    for (; window != nullptr; window = GetWindow(window, GW_HWNDNEXT)) {
        wchar_t text[256] = {};
        GetWindowTextW(window, text, 256);
        if (isPrefix ? std::wstring(text).starts_with(title) : text == title) {
            break;
        }
    }
    return window;
}

void Print(HWND window) {
    RECT rect{};
    GetWindowRect(window, &rect);
    std::printf("%ld %ld %ld %ld %s %s\n", rect.left, rect.top, rect.right, rect.bottom,
                IsWindowVisible(window) ? "shown" : "hidden",
                IsWindowEnabled(window) ? "enabled" : "disabled");
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    if (count < 3) {
        return 1;
    }
    HWND window = Find(arguments[1]);
    const std::wstring verb = arguments[2];
    if (verb == L"rename" && count > 3) {
        SendMessageW(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(arguments[3]));
        return 0;
    }
    if (count > 3) {
        window = GetDlgItem(window, static_cast<int>(std::wcstol(arguments[3], nullptr, 10)));
    }
    if (window == nullptr) {
        return 1;
    }
    if (verb == L"text") {
        wchar_t text[4096] = {};
        SendMessageW(window, WM_GETTEXT, 4096, reinterpret_cast<LPARAM>(text));
        std::printf("%s\n", ToUtf8(text).c_str());
        return 0;
    }
    Print(window);
    wchar_t kind[64] = {};
    GetClassNameW(window, kind, 64);
    if (std::wstring(kind) == WC_LISTVIEWW) {
        Print(reinterpret_cast<HWND>(SendMessageW(window, LVM_GETHEADER, 0, 0)));
    }
    return 0;
}
