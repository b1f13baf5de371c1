#pragma once

#include <windows.h>

#include "framework/GuiHandle.h"

// What the shell sends to the icon's owner: the mouse message is in the low word of lParam.
inline constexpr UINT kTrayMessage = WM_USER + 10;

// The program's icon in the notification area. The shell takes it away by itself only when it notices that
// the owner is gone. No shell, no icon: nothing is reported.
class CTrayIcon {
public:
    void Add(HWND owner);
    // To be called while the owner is being destroyed.
    void Remove(HWND owner) noexcept;

private:
    CIconHandle m_icon;
};
