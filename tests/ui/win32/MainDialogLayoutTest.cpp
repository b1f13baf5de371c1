#include <algorithm>
#include <climits>
#include <set>
#include <string>
#include <vector>

#include "tests/support/DialogLayoutTest.h"
#include "tests/support/MainDialog.h"

namespace {

class MainDialogLayout : public DialogLayoutTest {
protected:
    MainDialogLayout() : DialogLayoutTest(IDD_MAIN) {}
};

INSTANTIATE_DIALOG_LAYOUT(MainDialogLayout);

// The program's dialog, for its table of anchors.
class AnchoredDialog : public CSCVSchedulerDlg {
public:
    using CSCVSchedulerDlg::CSCVSchedulerDlg;
    using CSCVSchedulerDlg::m_arrChildControls;
    using CSCVSchedulerDlg::TemplateClientSize;
};

TEST_P(MainDialogLayout, CutsOffAndOverlapsNothingAtAnySize) {
    ExpectNothingCutOff({{IDC_START_DATE, L"30/12/2026"},
                         {IDC_START_TIME, L"23:59"},
                         {IDC_UNTIL_TIME, L"23:59"},
                         {IDC_EVERY_UNIT, L"minutes"}});
    const TestApp app;
    FakeClock clock;
    CFakeFileSystem files;
    FakeShell shell;
    AnchoredDialog dialog({clock, files, shell}, L"C:\\list.ini");
    ASSERT_TRUE(dialog.Create(IDD_MAIN));
    std::map<int, std::uint32_t> anchors;
    for (const CResizingDialog::stChildControl& control : dialog.m_arrChildControls) {
        anchors[GetDlgCtrlID(control.hWnd)] = control.nFlags;
    }
    ExpectNoOverlap([&](int id) { return anchors.at(id); });

    // The controls do follow, and the window cannot be dragged smaller than its limit.
    MINMAXINFO info{};
    dialog.SendMessage(WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&info));
    EXPECT_EQ(info.ptMinTrackSize.x, MinTrackSize(dialog.TemplateClientSize().cx));
    EXPECT_EQ(info.ptMinTrackSize.y, MinTrackSize(dialog.TemplateClientSize().cy));
    const CWnd list(dialog.GetDlgItem(IDC_PROJECT_LIST));
    const CWnd exit(dialog.GetDlgItem(ID_EXIT_PROGRAM));
    const RECT window = dialog.GetWindowRect();
    const RECT a = list.GetWindowRect();
    const RECT b = exit.GetWindowRect();
    MoveWindow(dialog.m_hWnd, window.left, window.top, window.right - window.left + 60,
               window.bottom - window.top + 60, FALSE);
    EXPECT_EQ(list.GetWindowRect().left, a.left);
    EXPECT_EQ(list.GetWindowRect().bottom, a.bottom + 60);
    EXPECT_EQ(exit.GetWindowRect().left, b.left + 60);
}

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

// The rectangle in which two pictures of a client area of this width differ; empty when they are equal.
std::string Difference(const std::vector<COLORREF>& a, const std::vector<COLORREF>& b, LONG width) {
    RECT box{LONG_MAX, LONG_MAX, -1, -1};
    const LONG pixels = static_cast<LONG>(std::min(a.size(), b.size()));
    for (LONG i = 0; i < pixels; ++i) {
        if (a[static_cast<std::size_t>(i)] != b[static_cast<std::size_t>(i)]) {
            box = {std::min(box.left, i % width), std::min(box.top, i / width),
                   std::max(box.right, i % width), std::max(box.bottom, i / width)};
        }
    }
    return box.right < 0 ? std::string()
                         : "in " + std::to_string(box.left) + ',' + std::to_string(box.top) + " to " +
                               std::to_string(box.right) + ',' + std::to_string(box.bottom) + " from below";
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
    const LONG width = dialog->GetClientRect().right;
    EXPECT_EQ(Difference(Painted(*dialog), first, width), "") << "painted again";
    const RECT place = dialog->GetWindowRect();
    for (const int change : {-37, 41, 0}) {
        MoveWindow(dialog->m_hWnd, place.left, place.top, place.right - place.left + change,
                   place.bottom - place.top + change, TRUE);
        Painted(*dialog);
    }
    EXPECT_EQ(Difference(Painted(*dialog), first, width), "") << "smaller, larger and back";
}

}  // namespace
