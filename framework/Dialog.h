#pragma once

#include <windows.h>

#include "framework/DataExchange.h"
#include "framework/Wnd.h"

// A dialog over a dialog template of the program's resources, modeless by Create or modal by DoModal. Object
// and window live independently: a destroyed window leaves m_hWnd null and the object whole, and destroying
// the object destroys its window. A derived class whose handlers must still see that destruction calls
// DestroyWindow in its own destructor.
//
// An exception from a handler is shown once in a message box, and the program continues.
class CDialog : public CWnd {
public:
    explicit CDialog(UINT templateId, CWnd* parent = nullptr) noexcept
        : m_templateId(templateId), m_parent(parent) {}
    CDialog(const CDialog&) = delete;
    CDialog& operator=(const CDialog&) = delete;
    ~CDialog() override;

    // Makes the modeless window, hidden unless the template says otherwise. FALSE when the system cannot.
    BOOL Create(UINT templateId, CWnd* parent = nullptr);
    // Runs the dialog above its parent, or the main window, until EndDialog; returns what that was given, and
    // IDCANCEL when the window is destroyed before or cannot be made.
    virtual INT_PTR DoModal();
    void EndDialog(int result);

    // Moves the controls' contents into the members (TRUE) or back (FALSE) by DoDataExchange. Notifications
    // that the controls send meanwhile are not dispatched. FALSE when there is no window, and when a value
    // was refused, after a message box has shown the reason.
    BOOL UpdateData(BOOL saveAndValidate = TRUE);

    // Handles the dialog's keys.
    BOOL PreTranslateMessage(MSG* message) override;

protected:
    // The client area that the template asks for, in pixels. The window may be smaller: the system makes none
    // with a sizing border that is larger than the screen.
    [[nodiscard]] SIZE TemplateClientSize() const;

    // Called with the window and its controls made. FALSE when the handler has set the focus itself.
    virtual BOOL OnInitDialog();
    // A control's notification `code`, or a menu command (code 0, no control). TRUE when handled.
    virtual BOOL OnCommand(int id, UINT code, HWND control);
    virtual BOOL OnNotify(NMHDR* header, LRESULT* result);
    virtual void OnOK();
    virtual void OnCancel();
    virtual void DoDataExchange(CDataExchange*) {}
    // Every message of the window. A handler that wants default processing first calls the base class first.
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
