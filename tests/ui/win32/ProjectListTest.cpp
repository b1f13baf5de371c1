#include "ui/win32/ProjectList.h"

#include <gtest/gtest.h>

#include <shellapi.h>
#include <shlobj.h>

#include <cstring>

#include "tests/support/MainDialog.h"

namespace {

using ProjectList = MainDialogTest;

TEST_F(ProjectList, ShowsTheTasksAsTheyAre) {
    constexpr UINT kUnchecked = INDEXTOSTATEIMAGEMASK(1);
    constexpr UINT kChecked = INDEXTOSTATEIMAGEMASK(2);
    Open({L"C:\\folder\\a.scvpr", L"C:\\" + std::wstring(300, L'x') + L"\\b.scvpr"});
    EXPECT_EQ(Cell(0, 3) + Cell(0, 4), L"25/02/2026 10:05C:\\folder\\");
    EXPECT_EQ(Cell(1, 4).size(), 254U);
    for (const auto& [lastRun, shown] :
         {std::pair{clock.now, L"25/02/2026 10:00"}, {INT64_MAX, L""}, {0, L""}}) {
        Task(0).m_tLastRunTime = lastRun;
        EXPECT_EQ(Cell(0, 1), shown);
    }
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
    CSCVShchedulerTask& x = Task(0);
    CSCVShchedulerTask& y = Task(1);
    CSCVShchedulerTask& z = Task(2);
    const auto expectAfterClick = [&](int column, const Texts& rows, int mark) {
        NMLISTVIEW click{};
        click.iSubItem = column;
        Notify(IDC_PROJECT_LIST, LVN_COLUMNCLICK, click);
        EXPECT_EQ(Rows(), rows) << column;
        HDITEMW item{};
        item.mask = HDI_FORMAT | HDI_IMAGE;
        SendMessageW(reinterpret_cast<HWND>(List(LVM_GETHEADER)), HDM_GETITEMW, static_cast<WPARAM>(column),
                     reinterpret_cast<LPARAM>(&item));
        EXPECT_EQ((item.fmt & HDF_IMAGE) == 0 ? -1 : item.iImage, mark);
    };
    y.m_tStartTime += 300;
    z.m_bEnable = 0;  // and has no next run
    expectAfterClick(3, {L"y.p", L"x.p", L"Z.p"}, 1);
    x.m_tLastRunTime = 3'000'000;
    y.m_tLastRunTime = 1'000'000;
    z.m_tLastRunTime = 2'000'000;
    expectAfterClick(1, {L"y.p", L"Z.p", L"x.p"}, 0);
    x.m_strLastRunResult = L"b";
    y.m_strLastRunResult = L"a";
    z.m_strLastRunResult = L"C";
    expectAfterClick(2, {L"Z.p", L"x.p", L"y.p"}, 1);
    expectAfterClick(0, {L"x.p", L"y.p", L"Z.p"}, 0);
    expectAfterClick(4, {L"y.p", L"x.p", L"Z.p"}, 1);
    expectAfterClick(4, {L"Z.p", L"x.p", L"y.p"}, 0);
}

TEST_F(ProjectList, AddsTheChosenProjectsAndRegistersWithTheFirst) {
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
    Task(1).m_bStart = 0;
    const FileDialogAnswer answer(std::wstring(L"C:\\\0c.scvpr\0B.scvpr", 19));
    Click(IDC_ADD_PROJECT);
    EXPECT_EQ(Rows(), (Texts{L"a.scvpr", L"b.scvpr", L"c.scvpr"}));
    EXPECT_EQ(Cell(2, 4), L"C:\\");
    EXPECT_EQ(Task(1).m_bStart, 0) << "a listed project keeps its settings";
    EXPECT_FALSE(dialog->IsDlgButtonChecked(IDC_RUN_AT_STARTUP)) << "only the first of a list";
}

TEST_F(ProjectList, DropTakesProjectsOfOneKind) {
    Open({L"C:\\listed.scvpr"});
    std::wstring paths(L"C:\\A.SCVPR\0C:\\b.txt\0C:\\c.oslpr\0C:\\scvpr\0", 39);
    paths += L"C:\\" + std::wstring(300, L'x') + L".scvpr" + L'\0';
    const HGLOBAL memory = GlobalAlloc(GHND, sizeof(DROPFILES) + (paths.size() + 1) * sizeof(wchar_t));
    auto* record = static_cast<DROPFILES*>(GlobalLock(memory));
    record->pFiles = sizeof(DROPFILES);
    record->fWide = TRUE;
    std::memcpy(record + 1, paths.data(), paths.size() * sizeof(wchar_t));
    GlobalUnlock(memory);
    dialog->SendMessage(WM_DROPFILES, reinterpret_cast<WPARAM>(memory));
    dialog->SendMessage(WM_DROPFILES, 0);
    EXPECT_EQ(Rows(), (Texts{L"A.SCVPR", L"listed.scvpr"}));
    EXPECT_EQ(Selected(), Texts{L"A.SCVPR"});
    EXPECT_FALSE(dialog->IsDlgButtonChecked(IDC_RUN_AT_STARTUP));
}

TEST_F(ProjectList, DeletesTheSelectedAndSelectsWhereTheLastOneWas) {
    Open({L"C:\\a.scvpr", L"C:\\b.scvpr", L"C:\\c.scvpr", L"C:\\d.scvpr"});
    const struct {
        std::vector<int> rows;
        Texts left, selected;
    } cases[] = {{{}, {L"a.scvpr", L"b.scvpr", L"c.scvpr", L"d.scvpr"}, {}},
                 {{0, 1}, {L"c.scvpr", L"d.scvpr"}, {L"d.scvpr"}},
                 {{1}, {L"c.scvpr"}, {L"c.scvpr"}},
                 {{0}, {}, {}}};
    for (const auto& item : cases) {
        Select(item.rows);
        dialog->SendMessage(WM_COMMAND, IDC_DELETE_PROJECT);
        EXPECT_EQ(Rows(), item.left);
        EXPECT_EQ(Selected(), item.selected);
        EXPECT_EQ(IsEnabled(IDC_DELETE_PROJECT), !item.selected.empty());
    }
}

TEST_F(ProjectList, EditRunAndResetActOnTheFirstSelectedRow) {
    Open({L"C:\\a.scvpr", L"C:\\b.scvpr", L"C:\\c.scvpr"});
    Select({1, 2});
    Click(IDC_RUN_PROJECT);
    ASSERT_EQ(shell.starts, (std::vector<FakeShell::Start>{{L"C:\\scrivane.exe", L"\"C:\\b.scvpr\""}}));
    EXPECT_EQ(Cell(1, 2), L"Success");
    Task(2).m_tLastRunTime = 7;
    Click(IDC_RESET_LAST_RUN);
    EXPECT_EQ(Cell(1, 1) + Cell(1, 2), L"");
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
    Select({});
    for (const int id : {IDC_EDIT_PROJECT, IDC_RUN_PROJECT, IDC_RESET_LAST_RUN}) {
        dialog->SendMessage(WM_COMMAND, static_cast<WPARAM>(id));
    }
    EXPECT_EQ(answer.count, 1);
    EXPECT_EQ(shell.starts.size(), 1U);
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
