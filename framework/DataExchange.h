#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

#include "framework/Wnd.h"

// Thrown to end the current action after a message box has shown the reason. The code that catches it shows
// nothing more.
class CUserException {};

// The wrappers that are bound to the controls of a window.
class CBoundControls {
public:
    // Does nothing for a wrapper that is bound already.
    void Bind(CWnd& control, HWND window);
    // Call it when the window is destroyed: no wrapper then keeps the handle of a destroyed control.
    void Unbind() noexcept;
    // Call it when the wrappers are destroyed.
    void Forget() noexcept { m_controls.clear(); }

private:
    std::vector<CWnd*> m_controls;
};

// One exchange between a dialog's controls and its members. Each DDX_ function transfers one value: from the
// control when m_bSaveAndValidate is set, otherwise to it. They throw std::invalid_argument when the dialog
// has no such control.
class CDataExchange {
public:
    // Without `bound`, DDX_Control may not be used.
    CDataExchange(CWnd& dialog, bool saveAndValidate, CBoundControls* bound = nullptr) noexcept
        : m_pDlgWnd(&dialog), m_pBoundControls(bound), m_bSaveAndValidate(saveAndValidate) {}
    // The control's handle.
    [[nodiscard]] HWND PrepareCtrl(int id) const;
    // Ends the exchange, after a message box has shown the reason: the control gets the focus, with its text
    // selected, and UpdateData returns FALSE. Members that were read before keep their new values.
    [[noreturn]] void Fail(int id) const;

    CWnd* m_pDlgWnd;
    CBoundControls* m_pBoundControls;
    bool m_bSaveAndValidate;
};

// Binds the wrapper to the control, in both directions; does nothing when it is bound already.
void DDX_Control(CDataExchange* exchange, int id, CWnd& control);
// A check box; any value but 0 ticks it, and reading gives 0 or 1.
void DDX_Check(CDataExchange* exchange, int id, std::int32_t& value);
void DDX_Text(CDataExchange* exchange, int id, std::wstring& value);
// Limits the number of characters that can be typed into an edit box. A longer text is reported in a message
// box and ends the exchange. Call it directly after the DDX_Text of the same control and value.
void DDV_MaxChars(CDataExchange* exchange, int id, const std::wstring& value, int maximum);
// A decimal number. Reading skips blanks and stops at the first character that is no digit; without digits
// the number is 0, and one out of range the nearest in range.
void DDX_Text(CDataExchange* exchange, int id, std::int32_t& value);
// A combo box's selected index, -1 for none.
void DDX_CBIndex(CDataExchange* exchange, int id, std::int32_t& index);
// A date-time picker's local date and time. A picker keeps the parts that its format does not show.
void DDX_DateTimeCtrl(CDataExchange* exchange, int id, SYSTEMTIME& time);
