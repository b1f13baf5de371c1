#include "ui/win32/TrayIcon.h"

#include <shellapi.h>

#include <cwchar>

#include "framework/IconResource.h"
#include "ui/model/StartUp.h"
#include "ui/resource.h"

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
    m_icon = LoadSmallIcon(IDI_PROGRAM);
    NOTIFYICONDATAW record = IconRecord(owner);
    record.uFlags = NIF_MESSAGE | NIF_ICON | NIF_TIP;
    record.uCallbackMessage = kTrayMessage;
    record.hIcon = m_icon.Get();
    std::wcsncpy(record.szTip, kProgramTitle, ARRAYSIZE(record.szTip) - 1);
    Shell_NotifyIconW(NIM_ADD, &record);
}

void CTrayIcon::Remove(HWND owner) noexcept {
    NOTIFYICONDATAW record = IconRecord(owner);
    Shell_NotifyIconW(NIM_DELETE, &record);
    m_icon.Close();
}
