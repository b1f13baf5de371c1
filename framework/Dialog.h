#pragma once

#include <windows.h>

#include "framework/DataExchange.h"
#include "framework/Wnd.h"

// A dialog from a dialog template of the program's resources, modeless by Create or modal by DoModal. The
// object may outlive its window: when the window is destroyed, m_hWnd becomes null. Destroying the object
// destroys its window. A derived class whose handlers have to process that destruction calls DestroyWindow in
// its own destructor.
//
// An exception from a handler is shown in a message box, and the program continues.
class CDialog : public CWnd {
public:
    explicit CDialog(UINT templateId, CWnd* parent = nullptr) noexcept
        : m_templateId(templateId), m_parent(parent) {}
    CDialog(const CDialog&) = delete;
    CDialog& operator=(const CDialog&) = delete;
    ~CDialog() override;

    // Creates the modeless window, hidden unless the template makes it visible. FALSE when that fails.
    BOOL Create(UINT templateId, CWnd* parent = nullptr);
    // Runs the dialog as a modal one, owned by its parent or the main window. Returns the argument of
    // EndDialog; IDCANCEL when the window is destroyed before or cannot be created.
    virtual INT_PTR DoModal();
    void EndDialog(int result);

    // Transfers the controls' contents into the members (TRUE) or back (FALSE) by DoDataExchange.
    // Notifications that the controls send meanwhile are ignored. FALSE when there is no window, or when a
    // value was refused; a message box has then shown the reason.
    BOOL UpdateData(BOOL saveAndValidate = TRUE);

    // Handles the keys of dialogs, such as Tab and Enter.
    BOOL PreTranslateMessage(MSG* message) override;

protected:
    // The client area of the template, in pixels. The window may be smaller: the system limits a window with
    // a sizing border to the screen.
    [[nodiscard]] SIZE TemplateClientSize() const;

    // Called once the window and its controls exist. Return FALSE when the handler has set the focus itself.
    virtual BOOL OnInitDialog();
    // For a control's notification `code` or a menu command (code 0, no control). Return TRUE when handled.
    virtual BOOL OnCommand(int id, UINT code, HWND control);
    virtual BOOL OnNotify(NMHDR* header, LRESULT* result);
    virtual void OnOK();
    virtual void OnCancel();
    virtual void DoDataExchange(CDataExchange*) {}
    // Receives every message of the window. For default processing first, call the base class first.
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    // The system's processing of a message.
    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);

private:
    static INT_PTR CALLBACK DialogProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void AttachWindow(HWND window);
    void OnWindowGone();

    UINT m_templateId;
    CWnd* m_parent;
    WNDPROC m_systemProcedure = nullptr;
    CBoundControls m_boundControls;
    bool m_updating = false;
    bool m_modal = false;
    int m_result = IDCANCEL;
};
