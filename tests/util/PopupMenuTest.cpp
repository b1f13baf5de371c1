#include "util/PopupMenu.h"

#include <gtest/gtest.h>

#include <vector>

#include "ui/resource.h"

namespace {

struct Seen {
    UINT defaultItem = 0;
    int items = 0;
    std::vector<WPARAM> commands;
};

LRESULT CALLBACK OwnerProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* seen = reinterpret_cast<Seen*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (seen != nullptr && message == WM_INITMENUPOPUP) {
        auto* const menu = reinterpret_cast<HMENU>(wParam);
        seen->defaultItem = GetMenuDefaultItem(menu, FALSE, 0);
        seen->items = GetMenuItemCount(menu);
        PostMessageW(window, WM_KEYDOWN, VK_UP, 0);
        PostMessageW(window, WM_KEYDOWN, VK_RETURN, 0);
    } else if (seen != nullptr && message == WM_COMMAND) {
        seen->commands.push_back(wParam);
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

TEST(PopupMenu, SendsTheChoiceToItsOwnerAndMarksTheDefault) {
    const HWND owner =
        CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
    Seen seen;
    SetWindowLongPtrW(owner, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&seen));
    SetWindowLongPtrW(owner, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&OwnerProcedure));
    EXPECT_FALSE(ShowPopupMenu(4711, 0, 0, owner, 0)) << "no such menu";
    EXPECT_TRUE(ShowPopupMenu(IDR_TRAY_MENU, 20, 20, owner, 0));
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        DispatchMessageW(&message);
    }
    EXPECT_EQ(seen.items, 3);
    EXPECT_EQ(seen.defaultItem, UINT{ID_SHOW_WINDOW});
    EXPECT_EQ(seen.commands, std::vector<WPARAM>{ID_EXIT_PROGRAM}) << "upwards from nothing is the last item";
    DestroyWindow(owner);
}

}  // namespace
