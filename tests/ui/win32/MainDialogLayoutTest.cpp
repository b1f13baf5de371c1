#include "tests/support/DialogLayoutTest.h"
#include "tests/support/MainDialog.h"

namespace {

class MainDialogLayout : public DialogLayoutTest {
protected:
    MainDialogLayout() : DialogLayoutTest(IDD_MAIN) {}
};

INSTANTIATE_DIALOG_LAYOUT(MainDialogLayout);

// The program's dialog, which knows its controls' anchors.
class AnchoredDialog : public CSCVSchedulerDlg {
public:
    using CSCVSchedulerDlg::CSCVSchedulerDlg;
    using CSCVSchedulerDlg::m_arrChildControls;
    using CSCVSchedulerDlg::TemplateClientSize;
};

TEST_P(MainDialogLayout, CutsNothingOffAndOverlapsNothingAtAnySize) {
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

    // They do follow, and the window is not dragged smaller than that.
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

// But for the groups, in which the dialog paints, the arrows, which lie in their field, and what stretches.
TEST_F(MainDialogTest, SizingErasesNoControlThatKeepsItsSize) {
    Open({L"C:\\a.scvpr"});
    dialog->ShowWindow(SW_SHOW);
    UpdateWindow(dialog->m_hWnd);
    std::map<int, int> erased;
    for (HWND child = GetTopWindow(dialog->m_hWnd); child; child = GetNextWindow(child, GW_HWNDNEXT)) {
        const int id = GetDlgCtrlID(child);
        if ((GetWindowLongPtrW(child, GWL_EXSTYLE) & WS_EX_TRANSPARENT) == 0 && id != IDC_EVERY_SPIN &&
            id != IDC_PROJECT_LIST && id != IDC_PROGRAM_PATH) {
            SetWindowSubclass(child, &CountErasing, 0, reinterpret_cast<DWORD_PTR>(&erased[id]));
        }
    }
    const RECT place = dialog->GetWindowRect();
    for (int step = 1; step <= 3; ++step) {
        MoveWindow(dialog->m_hWnd, place.left, place.top, place.right - place.left - step,
                   place.bottom - place.top - step, TRUE);
        RedrawWindow(dialog->m_hWnd, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    }
    for (const auto& [id, count] : erased) {
        EXPECT_EQ(count, 0) << "control " << id;
    }
    dialog.reset();  // before the counts
}

}  // namespace
