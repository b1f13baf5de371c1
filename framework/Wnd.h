#pragma once

#include <windows.h>

#include <string>

// A window's handle with the calls that the program makes on it. It does not own the window: CDialog owns a
// dialog's window, and DDX_Control binds a control's wrapper, which is unbound when the dialog is destroyed.
class CWnd {
public:
    CWnd() noexcept = default;
    explicit CWnd(HWND window) noexcept : m_hWnd(window) {}
    virtual ~CWnd() = default;

    void Attach(HWND window) noexcept { m_hWnd = window; }
    HWND Detach() noexcept;
    // The object that owns a window of this thread; null for every other window, also for a bound control.
    [[nodiscard]] static CWnd* FromHandle(HWND window) noexcept;
    // Called, if the object owns its window, with every message before it is dispatched to this window or a
    // child. TRUE means handled: the message is not dispatched.
    virtual BOOL PreTranslateMessage(MSG*) { return FALSE; }

    [[nodiscard]] HWND GetDlgItem(int id) const { return ::GetDlgItem(m_hWnd, id); }
    [[nodiscard]] int GetDlgCtrlID() const { return ::GetDlgCtrlID(m_hWnd); }
    [[nodiscard]] std::wstring GetWindowText() const;
    void SetWindowText(const std::wstring& text) const { ::SetWindowTextW(m_hWnd, text.c_str()); }
    [[nodiscard]] std::wstring GetDlgItemText(int id) const { return CWnd(GetDlgItem(id)).GetWindowText(); }
    void SetDlgItemText(int id, const std::wstring& text) const { CWnd(GetDlgItem(id)).SetWindowText(text); }
    [[nodiscard]] bool IsDlgButtonChecked(int id) const { return ::IsDlgButtonChecked(m_hWnd, id) != 0; }
    void CheckDlgButton(int id, bool check) const {
        ::CheckDlgButton(m_hWnd, id, check ? BST_CHECKED : BST_UNCHECKED);
    }

    [[nodiscard]] BOOL IsWindowEnabled() const { return ::IsWindowEnabled(m_hWnd); }
    [[nodiscard]] BOOL IsWindowVisible() const { return ::IsWindowVisible(m_hWnd); }

    // NOLINTBEGIN(readability-make-member-function-const): they change the window, if not this object
    // Returns whether it was disabled before.
    BOOL EnableWindow(BOOL enable = TRUE) { return ::EnableWindow(m_hWnd, enable); }
    // Returns whether it was visible before.
    BOOL ShowWindow(int command) { return ::ShowWindow(m_hWnd, command); }
    HWND SetFocus() { return ::SetFocus(m_hWnd); }
    BOOL SetForegroundWindow() { return ::SetForegroundWindow(m_hWnd); }
    // The period is in milliseconds. The timer ends with the window.
    UINT_PTR SetTimer(UINT_PTR id, UINT period) { return ::SetTimer(m_hWnd, id, period, nullptr); }
    BOOL DestroyWindow() { return ::DestroyWindow(m_hWnd); }
    // NOLINTEND(readability-make-member-function-const)

    // The caller keeps the icon alive as long as the window.
    void SetIcon(HICON icon, bool large) const;

    [[nodiscard]] RECT GetClientRect() const;
    // In screen coordinates.
    [[nodiscard]] RECT GetWindowRect() const;
    void Invalidate(BOOL erase = TRUE) const {
        // A null handle would mean every window of the desktop.
        if (m_hWnd != nullptr) {
            ::InvalidateRect(m_hWnd, nullptr, erase);
        }
    }
    void UpdateWindow() const { ::UpdateWindow(m_hWnd); }

    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return ::SendMessageW(m_hWnd, message, wParam, lParam);
    }
    BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return ::PostMessageW(m_hWnd, message, wParam, lParam);
    }
    // Null when there is no window.
    HWND m_hWnd = nullptr;

protected:
    CWnd(const CWnd&) = default;
    CWnd& operator=(const CWnd&) = default;

    // Sets the object that FromHandle returns for this window; null for none.
    void SetOwner(CWnd* owner) const;
};
