#pragma once

#include <windows.h>

#include "framework/GuiHandle.h"

// The message that the shell sends to the icon's owner window. The low word of lParam is the mouse message.
inline constexpr UINT kTrayMessage = WM_USER + 10;
// Posted to the owner after the icon's menu has closed; lParam is the window that was in the foreground
// before the menu.
inline constexpr UINT kTrayMenuClosed = kTrayMessage + 1;

// The program's icon in the notification area, and its menu. Without a shell there is no icon, which is not
// reported. Remove it before the owner window is gone: the shell notices a missing owner only later.
class CTrayIcon {
public:
    // The owner window gets kTrayMessage and kTrayMenuClosed, ID_SHOW_WINDOW for a double-click, and the
    // commands of the menu.
    void Add(HWND owner);
    // Call it while the owner window is being destroyed.
    void Remove() noexcept;

    // The owner calls these for the two messages.
    void OnMouse(UINT message) const;
    void OnMenuClosed(HWND foregroundBefore) const;

private:
    HWND m_hOwner = nullptr;
    CIconHandle m_icon;
};
