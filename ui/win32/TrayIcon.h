#pragma once

#include <windows.h>

#include "framework/GuiHandle.h"

// What the shell sends to the icon's owner: the mouse message is in the low word of lParam.
inline constexpr UINT kTrayMessage = WM_USER + 10;

// The program's icon in the notification area. The shell removes the icon of a vanished owner only when it
// notices. Without a shell there is no icon, and no error.
class CTrayIcon {
public:
    void Add(HWND owner);
    // To be called while the owner is being destroyed.
    void Remove(HWND owner) noexcept;

private:
    CIconHandle m_icon;
};
