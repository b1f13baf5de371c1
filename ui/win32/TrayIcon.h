#pragma once

#include <windows.h>

#include "framework/GuiHandle.h"

// What the shell sends to the icon's owner: the mouse message is in the low word of lParam.
inline constexpr UINT kTrayMessage = WM_USER + 10;
// Posted to the owner after the icon's menu has closed; lParam is the window that was in the foreground
// before the menu.
inline constexpr UINT kTrayMenuClosed = kTrayMessage + 1;

// The program's icon in the notification area, and its menu. The shell removes the icon of a vanished owner
// only when it notices. Without a shell there is no icon, and no error.
class CTrayIcon {
public:
    // The owner gets kTrayMessage and kTrayMenuClosed, ID_SHOW_WINDOW for a double click, and what is chosen
    // in the menu.
    void Add(HWND owner);
    // To be called while the owner is being destroyed.
    void Remove() noexcept;

    // What the owner does with the two messages.
    void OnMouse(UINT message) const;
    void OnMenuClosed(HWND foregroundBefore) const;

private:
    HWND m_hOwner = nullptr;
    CIconHandle m_icon;
};
