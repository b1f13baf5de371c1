#include "layout/win32/ResizingDialog.h"

#include <commctrl.h>

#include <algorithm>
#include <string_view>

#include "framework/WinApp.h"

namespace {

constexpr wchar_t kMaximized[] = L"WS_MAXIMIZE";

Edges ToEdges(const RECT& rect) {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

bool IsGroupBox(HWND control, DWORD style) {
    wchar_t kind[16] = {};
    GetClassNameW(control, kind, static_cast<int>(std::size(kind)));
    return (style & BS_TYPEMASK) == BS_GROUPBOX && std::wstring_view(kind) == WC_BUTTONW;
}

// The work area of the monitor that shows most of the rectangle.
Edges WorkArea(const Placement& place) {
    const RECT rect{place.x, place.y, place.x + place.width, place.y + place.height};
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromRect(&rect, MONITOR_DEFAULTTONEAREST), &monitor);
    return ToEdges(monitor.rcWork);
}

}  // namespace

Edges CResizingDialog::ClientEdges() const {
    return ToEdges(GetClientRect());
}

Edges CResizingDialog::ControlEdges(HWND control) const {
    RECT rect{};
    ::GetWindowRect(control, &rect);
    MapWindowPoints(nullptr, m_hWnd, reinterpret_cast<POINT*>(&rect), 2);
    return ToEdges(rect);
}

CResizingDialog::stChildControl CResizingDialog::Measure(HWND control, UINT flags) const {
    const Edges distances = MeasureDistances(ClientEdges(), ControlEdges(control));
    return {control, flags, distances.left, distances.top, distances.right, distances.bottom};
}

int CResizingDialog::AddControl(HWND control, UINT flags) {
    m_arrChildControls.push_back(Measure(control, flags));
    return 1;
}

int CResizingDialog::AddControl(const CWnd* control, UINT flags) {
    return AddControl(control != nullptr ? control->m_hWnd : nullptr, flags);
}

void CResizingDialog::AddControls(std::span<const stAnchors> controls) {
    for (const stAnchors& control : controls) {
        AddControl(GetDlgItem(control.id), control.anchors);
    }
}

int CResizingDialog::HasControl(HWND control) const {
    return std::any_of(m_arrChildControls.begin(), m_arrChildControls.end(),
                       [&](const stChildControl& record) { return record.hWnd == control; });
}

int CResizingDialog::HasControl(const CWnd* control) const {
    return HasControl(control != nullptr ? control->m_hWnd : nullptr);
}

void CResizingDialog::UpdateControlOffsets() {
    for (stChildControl& record : m_arrChildControls) {
        record = Measure(record.hWnd, record.nFlags);
    }
}

void CResizingDialog::ArrangeControls() {
    std::vector<HWND> moved;
    for (const stChildControl& record : m_arrChildControls) {
        if (IsAnchored(record.nFlags)) {
            const Edges now = ControlEdges(record.hWnd);
            const Placement place =
                Arrange(record.nFlags, {record.nLeft, record.nTop, record.nRight, record.nBottom},
                        ClientEdges(), now);
            MoveWindow(record.hWnd, place.x, place.y, place.width, place.height, TRUE);
            if (place.x != now.left || place.y != now.top) {
                moved.push_back(record.hWnd);
            }
        }
    }
    for (const stChildControl& record : m_arrChildControls) {
        // A null handle would repaint every window on the screen.
        if (record.hWnd != nullptr) {
            InvalidateRect(record.hWnd, nullptr, FALSE);
        }
    }
    // When a control moves, the system also moves the pixels that another control has drawn over it.
    for (HWND control : moved) {
        RedrawWindow(control, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
    }
}

void CResizingDialog::RestoreWindowPlacement(const wchar_t* section, const RECT* defaultRect) {
    const CWinApp* app = AfxGetApp();
    const auto read = [&](const wchar_t* name, LONG defaultValue) {
        return static_cast<int>(app->GetProfileInt(section, name, static_cast<int>(defaultValue)));
    };
    const RECT initial = defaultRect != nullptr ? *defaultRect : RECT{};
    const bool maximized = read(kMaximized, 0) != 0;
    const Edges stored{read(L"left", initial.left), read(L"top", initial.top), read(L"right", initial.right),
                       read(L"bottom", initial.bottom)};
    if (defaultRect == nullptr && stored == Edges{}) {
        return;
    }
    if (IsZoomed(m_hWnd)) {
        // It was hidden while maximised. A new place would give it its normal size, although Windows still
        // counts it as maximised.
        SetWindowPos(m_hWnd, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_SHOWWINDOW);
        return;
    }
    Placement place = CorrectPlacement(stored, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN));
    // The system makes the window no smaller than this; FitInto needs the size that it will have.
    place.width = std::max(place.width, m_nMinTrackWidth);
    place.height = std::max(place.height, m_nMinTrackHeight);
    place = FitInto(WorkArea(place), place);
    SetWindowPos(m_hWnd, HWND_TOP, place.x, place.y, place.width, place.height, SWP_SHOWWINDOW);
    if (maximized) {
        SendMessage(WM_SYSCOMMAND, SC_MAXIMIZE);
    }
}

void CResizingDialog::SaveWindowPlacement(const wchar_t* section) const {
    const CWinApp* app = AfxGetApp();
    const bool maximized = IsZoomed(m_hWnd) != 0;
    app->WriteProfileInt(section, kMaximized, maximized ? 1 : 0);
    if (!maximized) {
        const Edges rect = ToEdges(GetWindowRect());
        app->WriteProfileInt(section, L"left", rect.left);
        app->WriteProfileInt(section, L"top", rect.top);
        app->WriteProfileInt(section, L"right", rect.right);
        app->WriteProfileInt(section, L"bottom", rect.bottom);
    }
}

BOOL CResizingDialog::OnInitDialog() {
    CDialog::OnInitDialog();
    // Without WM_WINDOWPOSCHANGING, in which the system would limit the size to that of the screen.
    const SIZE window = WindowSize(TemplateClientSize());
    SetWindowPos(m_hWnd, nullptr, 0, 0, window.cx, window.cy,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOSENDCHANGING);
    const Edges client = ClientEdges();
    m_nMinTrackWidth = MinTrackSize(client.right - client.left);
    m_nMinTrackHeight = MinTrackSize(client.bottom - client.top);
    return TRUE;
}

SIZE CResizingDialog::WindowSize(SIZE client) const {
    const RECT outer = GetWindowRect();
    const RECT inner = GetClientRect();
    return {client.cx + outer.right - outer.left - inner.right,
            client.cy + outer.bottom - outer.top - inner.bottom};
}

void CResizingDialog::OpenWith(SIZE client) {
    const RECT now = GetWindowRect();
    const SIZE size = WindowSize(client);
    const Edges area = WorkArea({now.left, now.top, now.right - now.left, now.bottom - now.top});
    const Placement place = FitInto(area, {(area.left + area.right - size.cx) / 2,
                                           (area.top + area.bottom - size.cy) / 2, size.cx, size.cy});
    SetWindowPos(m_hWnd, nullptr, place.x, place.y, place.width, place.height, SWP_NOZORDER | SWP_NOACTIVATE);
}

// Excludes the controls from the background, because painting it under them flickers. The inside of a group
// box is painted by the dialog alone and stays included.
void CResizingDialog::ExcludeControls(HDC dc) const {
    for (HWND child = GetWindow(m_hWnd, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        const auto style = static_cast<DWORD>(GetWindowLongPtrW(child, GWL_STYLE));
        if ((style & WS_VISIBLE) != 0 && !IsGroupBox(child, style)) {
            const Edges place = ControlEdges(child);
            ExcludeClipRect(dc, place.left, place.top, place.right, place.bottom);
        }
    }
}

LRESULT CResizingDialog::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    // When a control requests the background behind itself, the device context is the control's.
    HDC const dc = reinterpret_cast<HDC>(wParam);
    if (message == WM_ERASEBKGND && WindowFromDC(dc) == m_hWnd) {
        const int state = SaveDC(dc);
        ExcludeControls(dc);
        const LRESULT result = CDialog::WindowProc(message, wParam, lParam);
        RestoreDC(dc, state);
        return result;
    }
    const LRESULT result = CDialog::WindowProc(message, wParam, lParam);
    if (message == WM_SIZE) {
        OnSize(static_cast<UINT>(wParam), LOWORD(lParam), HIWORD(lParam));
    } else if (message == WM_GETMINMAXINFO) {
        OnGetMinMaxInfo(reinterpret_cast<MINMAXINFO*>(lParam));
    }
    return result;
}

void CResizingDialog::OnSize(UINT, int, int) {
    ArrangeControls();
    if (IsWindow(m_hWnd)) {
        // Without the controls: ArrangeControls has invalidated those that moved, and the others would
        // flicker.
        RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_NOCHILDREN);
    }
}

void CResizingDialog::OnGetMinMaxInfo(MINMAXINFO* info) {
    info->ptMinTrackSize = {m_nMinTrackWidth, m_nMinTrackHeight};
}
