#include "framework/MessageBox.h"

#include <utility>

#include "framework/WinApp.h"

namespace {

MessageBoxFunction g_messageBox;

}  // namespace

int AfxMessageBox(const std::wstring& text, UINT style) {
    if (g_messageBox) {
        return g_messageBox(text, style);
    }
    const CWinApp* app = AfxGetApp();
    const HWND main = app != nullptr && app->m_pMainWnd != nullptr ? app->m_pMainWnd->m_hWnd : nullptr;
    const HWND owner = main != nullptr ? GetLastActivePopup(main) : GetActiveWindow();
    const bool owned = owner != nullptr && IsWindowVisible(owner);
    return MessageBoxW(owned ? owner : nullptr, text.c_str(),
                       app != nullptr ? app->m_strAppName.c_str() : L"",
                       owned ? style : style | MB_TASKMODAL);
}

MessageBoxFunction AfxSetMessageBox(MessageBoxFunction function) {
    return std::exchange(g_messageBox, std::move(function));
}
