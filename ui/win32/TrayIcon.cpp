#include "ui/win32/TrayIcon.h"

#include <shellapi.h>

#include <cwchar>

#include "framework/IconResource.h"
#include "ui/model/StartUp.h"
#include "ui/resource.h"
#include "util/win32/PopupMenu.h"

namespace {

NOTIFYICONDATAW IconRecord(HWND owner) {
    NOTIFYICONDATAW record{};
    // The size without the fields of later versions, which are not used.
    record.cbSize = NOTIFYICONDATAW_V2_SIZE;
    record.hWnd = owner;
    record.uID = 103;
    return record;
}

}  // namespace

void CTrayIcon::Add(HWND owner) {
    m_hOwner = owner;
    m_icon = LoadSmallIcon(IDI_PROGRAM);
    NOTIFYICONDATAW record = IconRecord(owner);
    record.uFlags = NIF_MESSAGE | NIF_ICON | NIF_TIP;
    record.uCallbackMessage = kTrayMessage;
    record.hIcon = m_icon.Get();
    std::wcsncpy(record.szTip, kProgramTitle, ARRAYSIZE(record.szTip) - 1);
    Shell_NotifyIconW(NIM_ADD, &record);
}

void CTrayIcon::Remove() noexcept {
    NOTIFYICONDATAW record = IconRecord(m_hOwner);
    Shell_NotifyIconW(NIM_DELETE, &record);
    m_icon.Close();
}

void CTrayIcon::OnMouse(UINT message) const {
    if (message == WM_LBUTTONDBLCLK) {
        PostMessageW(m_hOwner, WM_COMMAND, ID_SHOW_WINDOW, 0);
    } else if (message == WM_RBUTTONUP) {
        POINT point{};
        GetCursorPos(&point);
        const HWND foregroundBefore = GetForegroundWindow();
        // Only a menu of the foreground window closes when the user clicks elsewhere.
        SetForegroundWindow(m_hOwner);
        ShowPopupMenu(IDR_TRAY_MENU, point.x, point.y, m_hOwner, 0);
        // Posted, so that it arrives after the command that the menu may have posted.
        PostMessageW(m_hOwner, kTrayMenuClosed, 0, reinterpret_cast<LPARAM>(foregroundBefore));
    }
}

// Otherwise the hidden window would keep the focus.
void CTrayIcon::OnMenuClosed(HWND foregroundBefore) const {
    if (!IsWindowVisible(m_hOwner) && GetForegroundWindow() == m_hOwner) {
        SetForegroundWindow(foregroundBefore);
    }
}
