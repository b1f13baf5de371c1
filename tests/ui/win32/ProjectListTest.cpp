#include "ui/win32/ProjectList.h"

#include <gtest/gtest.h>

#include <shellapi.h>

#include "tests/support/DroppedFiles.h"
#include "tests/support/MainDialog.h"

namespace {

using ProjectList = MainDialogTest;

TEST_F(ProjectList, ShowsTheTasksAsTheyAre) {
    constexpr UINT kUnchecked = INDEXTOSTATEIMAGEMASK(1);
    constexpr UINT kChecked = INDEXTOSTATEIMAGEMASK(2);
    Open({L"C:\\a.scvpr", L"C:\\b.scvpr"});
    Task(0).m_tLastRunTime = clock.now;
    EXPECT_EQ(Cell(0, 1), L"25/02/2026 10:00") << "as the task is now";
    Task(0).m_tLastRunTime = 0;
    for (const UINT state : {kUnchecked, kChecked, kUnchecked}) {
        SetState(0, state, LVIS_STATEIMAGEMASK);
        EXPECT_EQ(Task(0).m_bEnable, state == kChecked);
        EXPECT_EQ(Cell(0, 3).empty(), state == kUnchecked);
    }
    Click(IDOK);
    Click(IDCANCEL);
    EXPECT_EQ(List(LVM_GETITEMSTATE, 0, LVIS_STATEIMAGEMASK), kUnchecked) << "as saved";
    EXPECT_EQ(List(LVM_GETITEMSTATE, 1, LVIS_STATEIMAGEMASK), kChecked);
}

TEST_F(ProjectList, EveryHeaderClickTurnsTheDirection) {
    Open({L"C:\\b\\x.p", L"C:\\c\\y.p", L"C:\\A\\Z.p"});
    const auto expectAfterClick = [&](int column, const Texts& rows, int mark) {
        NMLISTVIEW click{};
        click.iSubItem = column;
        Notify(IDC_PROJECT_LIST, LVN_COLUMNCLICK, click);
        EXPECT_EQ(Rows(), rows) << column;
        HDITEMW item{};
        item.mask = HDI_FORMAT | HDI_IMAGE;
        SendMessageW(reinterpret_cast<HWND>(List(LVM_GETHEADER)), HDM_GETITEMW, static_cast<WPARAM>(column),
                     reinterpret_cast<LPARAM>(&item));
        EXPECT_EQ((item.fmt & HDF_IMAGE) == 0 ? -1 : item.iImage, mark) << column;
    };
    Task(1).m_tStartTime += 300;
    Task(2).m_bEnable = 0;  // and has no next run
    expectAfterClick(3, {L"y.p", L"x.p", L"Z.p"}, 1);
    expectAfterClick(0, {L"x.p", L"y.p", L"Z.p"}, 0);
    expectAfterClick(4, {L"y.p", L"x.p", L"Z.p"}, 1);
    expectAfterClick(4, {L"Z.p", L"x.p", L"y.p"}, 0);
}

TEST_F(ProjectList, AddsChosenProjects) {
    Open({});
    EXPECT_FALSE(IsEnabled(IDC_RUN_PROJECT));
    {
        const FileDialogAnswer answer(std::wstring(L"C:\\\0b.scvpr\0a.scvpr", 19));
        Click(IDC_ADD_PROJECT);
        EXPECT_TRUE(answer.open);
        EXPECT_TRUE(answer.flags & OFN_ALLOWMULTISELECT);
        EXPECT_TRUE(answer.flags & OFN_NOCHANGEDIR);
    }
    EXPECT_EQ(Rows(), (Texts{L"a.scvpr", L"b.scvpr"}));
    EXPECT_EQ(Selected(), Texts{L"a.scvpr"});
    EXPECT_TRUE(IsEnabled(IDC_RUN_PROJECT));
    EXPECT_TRUE(dialog->IsDlgButtonChecked(IDC_RUN_AT_STARTUP));
    EXPECT_NE(Registered(kRunKey, L"SCVScheduler"), L"");
    Click(IDC_RUN_AT_STARTUP);
    EXPECT_EQ(Registered(kRunKey, L"SCVScheduler"), L"");
}

TEST_F(ProjectList, DropAddsProjectsOfOneKind) {
    Open({L"C:\\listed.scvpr"});
    std::wstring paths(L"C:\\A.SCVPR\0C:\\b.txt\0C:\\c.oslpr\0C:\\scvpr\0", 39);
    paths += L"C:\\" + std::wstring(300, L'x') + L".scvpr" + L'\0';
    dialog->SendMessage(WM_DROPFILES, reinterpret_cast<WPARAM>(MakeDroppedFiles(paths)));
    dialog->SendMessage(WM_DROPFILES, 0);
    EXPECT_EQ(Rows(), (Texts{L"A.SCVPR", L"listed.scvpr"}));
    EXPECT_EQ(Selected(), Texts{L"A.SCVPR"});
    EXPECT_FALSE(dialog->IsDlgButtonChecked(IDC_RUN_AT_STARTUP));
}

TEST_F(ProjectList, DeletesTheSelectedRows) {
    Open({L"C:\\a.scvpr", L"C:\\b.scvpr", L"C:\\c.scvpr", L"C:\\d.scvpr"});
    Select({0, 1});
    dialog->SendMessage(WM_COMMAND, IDC_DELETE_PROJECT);
    EXPECT_EQ(Rows(), (Texts{L"c.scvpr", L"d.scvpr"}));
    EXPECT_EQ(Selected(), Texts{L"d.scvpr"});
    Select({0, 1});
    dialog->SendMessage(WM_COMMAND, IDC_DELETE_PROJECT);
    EXPECT_FALSE(IsEnabled(IDC_DELETE_PROJECT)) << "none left";
}

TEST_F(ProjectList, FocusStaysOnTheDeleteButton) {
    Open({L"C:\\a.scvpr", L"C:\\b.scvpr", L"C:\\c.scvpr"});
    for (const int id : {IDC_DELETE_PROJECT, IDC_PROJECT_LIST}) {
        SetFocus(Item(id));
        dialog->SendMessage(WM_COMMAND, IDC_DELETE_PROJECT);
        EXPECT_EQ(GetDlgCtrlID(GetFocus()), id) << "the next key deletes the next project";
    }
}

TEST_F(ProjectList, ControlASelectsAllRows) {
    Open({L"C:\\a.scvpr", L"C:\\b.scvpr"});
    dialog->ShowWindow(SW_SHOW);
    const auto press = [&](int target) {
        BYTE keys[256] = {};
        keys[VK_CONTROL] = 0x80;
        SetKeyboardState(keys);
        MSG message{Item(target), WM_KEYDOWN, 'A', 0, 0, {}};
        dialog->PreTranslateMessage(&message);
        keys[VK_CONTROL] = 0;
        SetKeyboardState(keys);
    };
    press(IDC_EXPORT_FILE);
    EXPECT_EQ(Selected(), Texts{L"a.scvpr"}) << "elsewhere the key is not the list's";
    press(IDC_PROJECT_LIST);
    EXPECT_EQ(Selected(), (Texts{L"a.scvpr", L"b.scvpr"}));
}

TEST_F(ProjectList, RowsOfFailedRunsAreColoured) {
    Open({L"C:\\a.scvpr", L"C:\\b.scvpr", L"C:\\c.scvpr"});
    Task(0).m_strLastRunResult = L"Success";
    Task(1).m_strLastRunResult = L"Failure: File does not exist";
    const auto draw = [&](DWORD stage, std::size_t row) {
        NMLVCUSTOMDRAW record{};
        record.nmcd.hdr = {Item(IDC_PROJECT_LIST), IDC_PROJECT_LIST, NM_CUSTOMDRAW};
        record.nmcd.dwDrawStage = stage;
        record.nmcd.dwItemSpec = row;
        record.nmcd.lItemlParam = reinterpret_cast<LPARAM>(&Task(static_cast<int>(row)));
        record.clrText = CLR_DEFAULT;
        const LRESULT result =
            dialog->SendMessage(WM_NOTIFY, IDC_PROJECT_LIST, reinterpret_cast<LPARAM>(&record));
        return std::pair{result & CDRF_NOTIFYITEMDRAW, record.clrText};
    };
    EXPECT_NE(draw(CDDS_PREPAINT, 0).first, 0) << "asks for the rows";
    EXPECT_EQ(draw(CDDS_ITEMPREPAINT, 0).second, CLR_DEFAULT) << "success";
    EXPECT_NE(draw(CDDS_ITEMPREPAINT, 1).second, CLR_DEFAULT) << "failure";
    EXPECT_EQ(draw(CDDS_ITEMPREPAINT, 2).second, CLR_DEFAULT) << "never run";
}

TEST_F(ProjectList, EditRunAndResetActOnTheFirstSelectedRow) {
    Open({L"C:\\a.scvpr", L"C:\\b.scvpr", L"C:\\c.scvpr"});
    Select({1, 2});
    Click(IDC_RUN_PROJECT);
    ASSERT_EQ(shell.starts, (std::vector<FakeShell::Start>{{L"C:\\scrivane.exe", L"\"C:\\b.scvpr\""}}));
    EXPECT_EQ(Cell(1, 2), L"Success");
    Task(2).m_tLastRunTime = 7;
    Click(IDC_RESET_LAST_RUN);
    EXPECT_EQ(Cell(1, 1), L"");
    EXPECT_EQ(Cell(1, 2), L"");
    EXPECT_EQ(Task(2).m_tLastRunTime, 7);
    {
        const FileDialogAnswer answer(L"c:\\A.scvpr");
        Click(IDC_EDIT_PROJECT);
        EXPECT_EQ(answer.fileName, L"C:\\b.scvpr");
        EXPECT_EQ(Selected().size(), 3U) << "the row of the project that is listed already, as well";
    }
    Select({1});
    const FileDialogAnswer answer(L"C:\\n.p");
    Click(IDC_EDIT_PROJECT);
    EXPECT_EQ(Rows(), (Texts{L"a.scvpr", L"n.p", L"c.scvpr"}));
}

TEST_F(ProjectList, ProgramIsChosenAndStarted) {
    const MessageRecorder boxes;
    Open({});
    const FileDialogAnswer answer(L"C:\\x\\Scrivane.exe");
    Click(IDC_PROGRAM_BROWSE);
    EXPECT_EQ(Registered(kScrivaneKey, kProgramValue), L"C:\\x\\Scrivane.exe");
    Click(IDC_PROGRAM_RUN);
    ASSERT_EQ(shell.starts, (std::vector<FakeShell::Start>{{L"C:\\x\\Scrivane.exe", L""}}));
    shell.answer = 32;
    Click(IDC_PROGRAM_RUN);
    EXPECT_EQ(boxes.texts, Texts{L"Failure to run 'C:\\x\\Scrivane.exe'. Error: 32"});
}

}  // namespace
