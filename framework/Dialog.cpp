#include "framework/Dialog.h"

#include <commctrl.h>

#include <utility>

#include "framework/ExceptionBoundary.h"
#include "framework/MessageLoop.h"
#include "framework/WinApp.h"

namespace {

// The dialog whose window is being created. The window's first message arrives before the window is connected
// to its dialog.
CDialog* g_creating = nullptr;

void RegisterControls() {
    static const bool registered = [] {
        const INITCOMMONCONTROLSEX classes{sizeof(classes), ICC_STANDARD_CLASSES | ICC_LISTVIEW_CLASSES |
                                                                ICC_DATE_CLASSES | ICC_UPDOWN_CLASS |
                                                                ICC_BAR_CLASSES};
        return InitCommonControlsEx(&classes) != 0;
    }();
    static_cast<void>(registered);
}

bool IsInput(UINT message) {
    return (message >= WM_KEYFIRST && message <= WM_KEYLAST) ||
           (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST);
}

}  // namespace

CDialog::~CDialog() {
    // The derived class is destroyed by now, and with it the wrappers that are its members.
    m_boundControls.Forget();
    if (m_hWnd != nullptr) {
        DestroyWindow();
    }
}

BOOL CDialog::Create(UINT templateId, CWnd* parent) {
    if (m_hWnd != nullptr) {
        return FALSE;
    }
    RegisterControls();
    g_creating = this;
    const HWND window = CreateDialogParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(templateId),
                                           parent != nullptr ? parent->m_hWnd : nullptr, &DialogProcedure, 0);
    g_creating = nullptr;
    return window != nullptr && m_hWnd == window;
}

SIZE CDialog::TemplateClientSize() const {
    HINSTANCE const module = GetModuleHandleW(nullptr);
    const HRSRC resource = FindResourceW(module, MAKEINTRESOURCEW(m_templateId), RT_DIALOG);
    const auto* words = static_cast<const WORD*>(LockResource(LoadResource(module, resource)));
    // The size in dialog units, at its place in an extended template.
    RECT rect{0, 0, words[11], words[12]};
    MapDialogRect(m_hWnd, &rect);
    return {rect.right, rect.bottom};
}

INT_PTR CDialog::DoModal() {
    const CWinApp* app = AfxGetApp();
    CWnd* parent = m_parent != nullptr || app == nullptr ? m_parent : app->m_pMainWnd;
    CWnd owner(parent != nullptr ? GetAncestor(parent->m_hWnd, GA_ROOT) : nullptr);
    m_result = IDCANCEL;
    m_modal = true;
    const bool disabled = owner.m_hWnd != nullptr && !owner.EnableWindow(FALSE);
    if (Create(m_templateId, parent)) {
        if (m_modal) {
            ShowWindow(SW_SHOW);
        }
        MSG message{};
        while (m_modal && m_hWnd != nullptr) {
            if (!AfxPumpMessage(message)) {
                PostQuitMessage(static_cast<int>(static_cast<INT_PTR>(message.wParam)));
                break;
            }
        }
        // Enable the owner before destroying the dialog, or the system would activate another program's
        // window.
    }
    m_modal = false;
    if (disabled) {
        owner.EnableWindow(TRUE);
    }
    if (m_hWnd != nullptr) {
        DestroyWindow();
    }
    return m_result;
}

void CDialog::EndDialog(int result) {
    m_result = result;
    m_modal = false;
    // Ends the wait of the message loop. A sent message would not.
    ::PostMessageW(nullptr, WM_NULL, 0, 0);
}

BOOL CDialog::UpdateData(BOOL saveAndValidate) {
    if (m_hWnd == nullptr) {
        return FALSE;
    }
    struct Lock {
        bool& flag;
        bool before;
        explicit Lock(bool& locked) : flag(locked), before(std::exchange(locked, true)) {}
        Lock(const Lock&) = delete;
        Lock& operator=(const Lock&) = delete;
        ~Lock() { flag = before; }
    } const lock(m_updating);
    CDataExchange exchange(*this, saveAndValidate != FALSE, &m_boundControls);
    try {
        DoDataExchange(&exchange);
    } catch (const CUserException&) {
        return FALSE;
    }
    return TRUE;
}

BOOL CDialog::PreTranslateMessage(MSG* message) {
    return m_hWnd != nullptr && IsInput(message->message) && IsDialogMessageW(m_hWnd, message);
}

BOOL CDialog::OnInitDialog() {
    UpdateData(FALSE);
    return TRUE;
}

BOOL CDialog::OnCommand(int id, UINT code, HWND) {
    if (code != BN_CLICKED || (id != IDOK && id != IDCANCEL)) {
        return FALSE;
    }
    id == IDOK ? OnOK() : OnCancel();
    return TRUE;
}

BOOL CDialog::OnNotify(NMHDR*, LRESULT*) {
    return FALSE;
}

void CDialog::OnOK() {
    if (UpdateData(TRUE)) {
        EndDialog(IDOK);
    }
}

void CDialog::OnCancel() {
    EndDialog(IDCANCEL);
}

LRESULT CDialog::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    if (message == WM_COMMAND) {
        const bool silenced = m_updating && lParam != 0;
        if (silenced || OnCommand(LOWORD(wParam), HIWORD(wParam), reinterpret_cast<HWND>(lParam))) {
            return 0;
        }
    } else if (message == WM_NOTIFY && (m_updating || OnNotify(reinterpret_cast<NMHDR*>(lParam), &result))) {
        return result;
    }
    return DefWindowProc(message, wParam, lParam);
}

LRESULT CDialog::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    return m_hWnd != nullptr ? CallWindowProcW(m_systemProcedure, m_hWnd, message, wParam, lParam) : 0;
}

void CDialog::AttachWindow(HWND window) {
    m_hWnd = window;
    SetWindowLongPtrW(window, DWLP_USER, reinterpret_cast<LONG_PTR>(this));
    SetOwner(this);
    m_systemProcedure = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&WindowProcedure)));
}

void CDialog::OnWindowGone() {
    SetWindowLongPtrW(m_hWnd, DWLP_USER, 0);
    SetOwner(nullptr);
    m_hWnd = nullptr;
    m_boundControls.Unbind();
    CWinApp* app = AfxGetApp();
    if (app != nullptr && app->m_pMainWnd == this) {
        app->m_pMainWnd = nullptr;
        PostQuitMessage(0);
    } else if (m_modal) {
        EndDialog(m_result);
    }
}

// The system's dialog procedure needs this function only for WM_INITDIALOG. Every other message has passed
// WindowProcedure before.
INT_PTR CALLBACK CDialog::DialogProcedure(HWND window, UINT message, WPARAM, LPARAM) {
    if (g_creating != nullptr) {
        std::exchange(g_creating, nullptr)->AttachWindow(window);
    }
    auto* dialog = reinterpret_cast<CDialog*>(GetWindowLongPtrW(window, DWLP_USER));
    BOOL result = FALSE;
    if (dialog != nullptr && message == WM_INITDIALOG) {
        AfxRunGuarded([&] { result = dialog->OnInitDialog(); });
    }
    return result;
}

LRESULT CALLBACK CDialog::WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* dialog = reinterpret_cast<CDialog*>(GetWindowLongPtrW(window, DWLP_USER));
    if (dialog == nullptr) {
        return DefDlgProcW(window, message, wParam, lParam);
    }
    LRESULT result = 0;
    AfxRunGuarded([&] { result = dialog->WindowProc(message, wParam, lParam); });
    if (message == WM_NCDESTROY) {
        dialog->OnWindowGone();
    }
    return result;
}
