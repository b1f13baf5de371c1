#include "framework/DataExchange.h"

#include <commctrl.h>

#include <cwchar>
#include <stdexcept>

#include "framework/MessageBox.h"

void CBoundControls::Bind(CWnd& control, HWND window) {
    if (control.m_hWnd == nullptr) {
        control.Attach(window);
        m_controls.push_back(&control);
    }
}

void CBoundControls::Unbind() noexcept {
    for (CWnd* control : m_controls) {
        control->Detach();
    }
    m_controls.clear();
}

HWND CDataExchange::PrepareCtrl(int id) const {
    const HWND control = m_pDlgWnd->GetDlgItem(id);
    if (control == nullptr) {
        throw std::invalid_argument("the dialog has no control " + std::to_string(id));
    }
    return control;
}

void CDataExchange::Fail(int id) const {
    CWnd control(PrepareCtrl(id));
    control.SetFocus();
    control.SendMessage(EM_SETSEL, 0, -1);
    throw CUserException();
}

void DDX_Control(CDataExchange* exchange, int id, CWnd& control) {
    exchange->m_pBoundControls->Bind(control, exchange->PrepareCtrl(id));
}

void DDX_Check(CDataExchange* exchange, int id, std::int32_t& value) {
    const CWnd control(exchange->PrepareCtrl(id));
    if (exchange->m_bSaveAndValidate) {
        value = control.SendMessage(BM_GETCHECK) == BST_CHECKED;
    } else {
        control.SendMessage(BM_SETCHECK, value != 0 ? BST_CHECKED : BST_UNCHECKED);
    }
}

void DDX_Text(CDataExchange* exchange, int id, std::wstring& value) {
    const CWnd control(exchange->PrepareCtrl(id));
    std::wstring shown = control.GetWindowText();
    if (exchange->m_bSaveAndValidate) {
        value = std::move(shown);
    } else if (shown != value) {
        // Setting an equal text would flicker and move the caret.
        control.SetWindowText(value);
    }
}

void DDV_MaxChars(CDataExchange* exchange, int id, const std::wstring& value, int maximum) {
    const auto limit = static_cast<std::size_t>(maximum);
    if (!exchange->m_bSaveAndValidate) {
        CWnd(exchange->PrepareCtrl(id)).SendMessage(EM_SETLIMITTEXT, limit);
    } else if (value.size() > limit) {
        AfxMessageBox(L"Enter no more than " + std::to_wstring(maximum) + L" characters.",
                      MB_OK | MB_ICONEXCLAMATION);
        exchange->Fail(id);
    }
}

void DDX_Text(CDataExchange* exchange, int id, std::int32_t& value) {
    std::wstring text = exchange->m_bSaveAndValidate ? std::wstring() : std::to_wstring(value);
    DDX_Text(exchange, id, text);
    if (exchange->m_bSaveAndValidate) {
        value = std::wcstol(text.c_str(), nullptr, 10);
    }
}

void DDX_CBIndex(CDataExchange* exchange, int id, std::int32_t& index) {
    const CWnd control(exchange->PrepareCtrl(id));
    if (exchange->m_bSaveAndValidate) {
        index = static_cast<std::int32_t>(control.SendMessage(CB_GETCURSEL));
    } else {
        control.SendMessage(CB_SETCURSEL, static_cast<WPARAM>(index));
    }
}

void DDX_DateTimeCtrl(CDataExchange* exchange, int id, SYSTEMTIME& time) {
    const CWnd control(exchange->PrepareCtrl(id));
    control.SendMessage(exchange->m_bSaveAndValidate ? DTM_GETSYSTEMTIME : DTM_SETSYSTEMTIME, GDT_VALID,
                        reinterpret_cast<LPARAM>(&time));
}
