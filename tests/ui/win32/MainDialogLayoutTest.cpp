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
    EXPECT_EQ(info.ptMinTrackSize.x, MinTrackSize(dialog.GetClientRect().right));
    EXPECT_EQ(info.ptMinTrackSize.y, MinTrackSize(dialog.GetClientRect().bottom));
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

}  // namespace
