#include "ui/win32/RowTip.h"

#include <windowsx.h>

#include "core/task/SCVShchedulerTaskArray.h"
#include "ui/model/HoverText.h"

namespace {

// Keys and the wheel change or move rows. The tooltip control itself handles mouse buttons.
bool ChangesRows(UINT message) {
    return (message >= WM_KEYFIRST && message <= WM_KEYLAST) || message == WM_MOUSEWHEEL;
}

// Doubles ampersands, because the tooltip control treats a single one as the mark of a mnemonic.
std::wstring WithoutMnemonics(const std::wstring& text) {
    std::wstring result;
    for (const wchar_t character : text) {
        result.append(character == L'&' ? 2 : 1, character);
    }
    return result;
}

}  // namespace

void CRowTip::Follow(const MSG& message) {
    if (ChangesRows(message.message)) {
        Hide();
    }
    if (message.message != WM_MOUSEMOVE || message.hwnd != m_list.m_hWnd) {
        return;
    }
    const int row = m_list.RowAt({GET_X_LPARAM(message.lParam), GET_Y_LPARAM(message.lParam)});
    if (row == m_row) {
        return;
    }
    // A new tool for each row: while the mouse stays on one tool, the control shows its tooltip only once.
    Hide();
    if (row >= 0 && m_toolTip.AddTool(m_list.m_hWnd)) {
        m_row = row;
    }
}

void CRowTip::Hide() {
    if (m_row >= 0) {
        m_toolTip.DelTool(m_list.m_hWnd);
        m_row = -1;
    }
}

bool CRowTip::OnGetDispInfo(NMTTDISPINFOW& request) {
    if (request.hdr.code != TTN_GETDISPINFOW || request.hdr.hwndFrom != m_toolTip.m_hWnd ||
        request.hdr.idFrom != reinterpret_cast<UINT_PTR>(m_list.m_hWnd)) {
        return false;
    }
    CSCVShchedulerTask* task = m_list.TaskOfRow(m_row);
    m_text = task != nullptr ? WithoutMnemonics(HoverText(*task, m_tasks, m_platform)) : L"";
    request.lpszText = m_text.data();
    return true;
}
