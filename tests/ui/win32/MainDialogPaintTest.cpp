#include <map>
#include <set>
#include <vector>

#include "tests/support/MainDialog.h"

namespace {

TEST_F(MainDialogTest, OpensWithTheNextRunInView) {
    Open({});
    RECT list{};
    GetClientRect(Item(IDC_PROJECT_LIST), &list);
    LRESULT needed = GetSystemMetrics(SM_CXVSCROLL);
    for (WPARAM column = 0; column < 4; ++column) {
        needed += List(LVM_GETCOLUMNWIDTH, column);
    }
    EXPECT_EQ(list.right, needed);
}

LRESULT CALLBACK CountErasing(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                              DWORD_PTR count) {
    *reinterpret_cast<int*>(count) += message == WM_ERASEBKGND ? 1 : 0;
    return DefSubclassProc(window, message, wParam, lParam);
}

TEST_F(MainDialogTest, SizingErasesNoControlThatStays) {
    Open({L"C:\\a.scvpr"});
    dialog->ShowWindow(SW_SHOW);
    const RECT place = dialog->GetWindowRect();
    for (const SIZE change : {SIZE{-1, 0}, SIZE{-1, -1}}) {
        RedrawWindow(dialog->m_hWnd, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
        struct Control {
            RECT before{};
            int erased = 0;
        };
        std::map<HWND, Control> controls;
        for (HWND child = GetTopWindow(dialog->m_hWnd); child; child = GetNextWindow(child, GW_HWNDNEXT)) {
            GetWindowRect(child, &controls[child].before);
            SetWindowSubclass(child, &CountErasing, 0, reinterpret_cast<DWORD_PTR>(&controls[child].erased));
        }
        MoveWindow(dialog->m_hWnd, place.left, place.top, place.right - place.left + change.cx,
                   place.bottom - place.top + change.cy, TRUE);
        RedrawWindow(dialog->m_hWnd, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
        int stayed = 0;
        for (const auto& [child, control] : controls) {
            RECT now{};
            GetWindowRect(child, &now);
            if (EqualRect(&now, &control.before)) {
                ++stayed;
                EXPECT_EQ(control.erased, 0) << "control " << GetDlgCtrlID(child) << ", " << change.cy;
            }
            RemoveWindowSubclass(child, &CountErasing, 0);
        }
        EXPECT_GT(stayed, 4) << change.cy;
    }
}

// The pixels of the window's client area as they are on the screen.
std::vector<COLORREF> Pixels(const CWnd& window) {
    const RECT client = window.GetClientRect();
    const HDC dc = GetDC(window.m_hWnd);
    const HDC memory = CreateCompatibleDC(dc);
    BITMAPINFO info{};
    info.bmiHeader = {sizeof info.bmiHeader, client.right, client.bottom, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    const HBITMAP bitmap = CreateDIBSection(dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    const HGDIOBJ before = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, client.right, client.bottom, dc, 0, 0, SRCCOPY);
    GdiFlush();
    const auto* pixels = static_cast<const COLORREF*>(bits);
    std::vector<COLORREF> result(pixels, pixels + client.right * client.bottom);
    SelectObject(memory, before);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(window.m_hWnd, dc);
    return result;
}

// The same after the window has painted what was invalid.
std::vector<COLORREF> Painted(const CWnd& window) {
    RedrawWindow(window.m_hWnd, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    return Pixels(window);
}

TEST_F(MainDialogTest, PaintsNothingOverItsControls) {
    Open({L"C:\\a.scvpr"});
    dialog->ShowWindow(SW_SHOW);
    dialog->Invalidate();
    Painted(*dialog);
    const CWnd list(Item(IDC_PROJECT_LIST));
    const std::vector<COLORREF> before = Pixels(list);
    ASSERT_GT(std::set<COLORREF>(before.begin(), before.end()).size(), 5U) << "nothing was painted";
    RedrawWindow(dialog->m_hWnd, nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_NOCHILDREN | RDW_ERASENOW);
    EXPECT_TRUE(Pixels(list) == before);
}

TEST_F(MainDialogTest, LooksTheSameHoweverItWasPainted) {
    Open({L"C:\\a.scvpr"});
    dialog->ShowWindow(SW_SHOW);
    dialog->Invalidate();
    const std::vector<COLORREF> first = Painted(*dialog);
    ASSERT_GT(std::set<COLORREF>(first.begin(), first.end()).size(), 20U) << "nothing was painted";
    dialog->Invalidate();
    EXPECT_TRUE(Painted(*dialog) == first) << "painted again";
    const RECT place = dialog->GetWindowRect();
    for (const int change : {-37, 41, 0}) {
        MoveWindow(dialog->m_hWnd, place.left, place.top, place.right - place.left + change,
                   place.bottom - place.top + change, TRUE);
        Painted(*dialog);
    }
    EXPECT_TRUE(Painted(*dialog) == first) << "smaller, larger and back";
}

}  // namespace
