#include "framework/ToolTipCtrl.h"

#include <commctrl.h>

namespace {

TTTOOLINFOW Tool(HWND control) {
    TTTOOLINFOW tool{};
    // The size that every version of the common controls accepts.
    tool.cbSize = TTTOOLINFOW_V2_SIZE;
    tool.uFlags = TTF_IDISHWND;
    tool.hwnd = GetParent(control);
    tool.uId = reinterpret_cast<UINT_PTR>(control);
    return tool;
}

}  // namespace

BOOL CToolTipCtrl::Create(const CWnd& parent) {
    Destroy();
    Attach(CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP, CW_USEDEFAULT, CW_USEDEFAULT,
                           CW_USEDEFAULT, CW_USEDEFAULT, parent.m_hWnd, nullptr, GetModuleHandleW(nullptr),
                           nullptr));
    return m_hWnd != nullptr;
}

BOOL CToolTipCtrl::AddTool(HWND control, const std::wstring& text) const {
    std::wstring copy = text;
    TTTOOLINFOW tool = Tool(control);
    tool.lpszText = copy.data();
    return SendMessage(TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool)) != 0;
}

BOOL CToolTipCtrl::AddTool(HWND control) const {
    TTTOOLINFOW tool = Tool(control);
    tool.lpszText = LPSTR_TEXTCALLBACKW;
    return SendMessage(TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool)) != 0;
}

void CToolTipCtrl::DelTool(HWND control) const {
    TTTOOLINFOW tool = Tool(control);
    SendMessage(TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

void CToolTipCtrl::SetMaxTipWidth(int width) const {
    SendMessage(TTM_SETMAXTIPWIDTH, 0, width);
}

void CToolTipCtrl::SetAutoPopTime(int milliseconds) const {
    SendMessage(TTM_SETDELAYTIME, TTDT_AUTOPOP, milliseconds);
}

void CToolTipCtrl::Activate(bool activate) const {
    SendMessage(TTM_ACTIVATE, activate ? TRUE : FALSE);
}

void CToolTipCtrl::RelayEvent(MSG* message) const {
    if (m_hWnd != nullptr) {
        SendMessage(TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(message));
    }
}

void CToolTipCtrl::Destroy() noexcept {
    // It may have been destroyed with its owner.
    if (const HWND window = Detach(); IsWindow(window)) {
        ::DestroyWindow(window);
    }
}
