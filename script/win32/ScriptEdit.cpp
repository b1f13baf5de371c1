#include "script/win32/ScriptEdit.h"

#include <commctrl.h>

#include <cstdint>

#include "script/EditorText.h"

namespace {

bool IsDown(int key) {
    return GetKeyState(key) < 0;
}

// An edit control that gets the focus by Tab or its mnemonic selects all its text, and the next key would
// replace the script. This subclass keeps the selection as it is.
LRESULT CALLBACK KeepSelection(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                               DWORD_PTR) {
    if (message == WM_NCDESTROY) {
        RemoveWindowSubclass(window, &KeepSelection, id);
    }
    const LRESULT result = DefSubclassProc(window, message, wParam, lParam);
    return message == WM_GETDLGCODE ? result & ~LRESULT{DLGC_HASSETSEL} : result;
}

}  // namespace

void CScriptEdit::Initialise(HFONT dialogFont) {
    SetFont(dialogFont);
    SetWindowSubclass(m_hWnd, &KeepSelection, 0, 0);
}

// A little larger than the dialog's own font, because letters of a fixed pitch look smaller.
void CScriptEdit::SetFont(HFONT dialogFont) {
    LOGFONTW font{};
    GetObjectW(dialogFont, sizeof(font), &font);
    font.lfHeight = MulDiv(font.lfHeight, 5, 4);
    font.lfWidth = 0;
    font.lfPitchAndFamily = FIXED_PITCH | FF_MODERN;
    wcscpy(font.lfFaceName, L"Consolas");
    m_font = CFontHandle(CreateFontIndirectW(&font));
    SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(m_font.Get()));
    // Four characters, in units of a quarter of a character.
    constexpr UINT tabStop = 16;
    SendMessage(EM_SETTABSTOPS, 1, reinterpret_cast<LPARAM>(&tabStop));
}

// With Shift the Tab key leaves the script, so that this is possible with the keyboard alone.
bool CScriptEdit::OnKey(const MSG& message) const {
    if (message.hwnd != m_hWnd || message.message != WM_KEYDOWN) {
        return false;
    }
    if (message.wParam == VK_TAB && !IsDown(VK_SHIFT) && !IsDown(VK_CONTROL)) {
        ReplaceSel(L"\t", true);
        return true;
    }
    if (message.wParam == 'A' && IsDown(VK_CONTROL) && !IsDown(VK_MENU)) {
        SendMessage(EM_SETSEL, 0, -1);
        return true;
    }
    return false;
}

bool CScriptEdit::MayMoveCaret(const MSG& message) const {
    return message.hwnd == m_hWnd &&
           (message.message == WM_KEYDOWN || message.message == WM_LBUTTONDOWN ||
            message.message == WM_LBUTTONDBLCLK ||
            (message.message == WM_MOUSEMOVE && (message.wParam & MK_LBUTTON) != 0));
}

void CScriptEdit::Insert(const std::wstring& text) {
    const auto [start, end] = GetSel();
    std::wstring script = GetWindowText();
    script.replace(start, end - start, text);
    SetWindowText(script);
    SetFocus();
    const DWORD caret = start + static_cast<DWORD>(text.size());
    SetSel(caret, caret);
    SendMessage(EM_SCROLLCARET);
}

std::wstring CScriptEdit::CaretPosition() const {
    const DWORD end = GetSel().second;
    return CaretText(CaretLine(end) + 1, CaretColumn(GetWindowText(), std::int64_t{end}));
}

// Counted from 0. The caret's position is used only while the script has the focus and the caret is visible.
LRESULT CScriptEdit::CaretLine(DWORD selectionEnd) const {
    constexpr LRESULT outside = 0xFFFF;
    POINT caret{};
    if (GetFocus() == m_hWnd && GetCaretPos(&caret)) {
        const LRESULT found = SendMessage(EM_CHARFROMPOS, 0, MAKELPARAM(caret.x, caret.y));
        if (HIWORD(found) != outside) {
            return HIWORD(found);
        }
    }
    return SendMessage(EM_LINEFROMCHAR, selectionEnd);
}
