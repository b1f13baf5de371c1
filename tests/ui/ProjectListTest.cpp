#include "ui/ProjectList.h"

#include <gtest/gtest.h>

#include <shellapi.h>
#include <shlobj.h>

#include <cstring>

#include "tests/support/MainDialog.h"
#include "util/ModulePath.h"

namespace {

using ProjectList = MainDialogTest;

constexpr UINT kUnchecked = INDEXTOSTATEIMAGEMASK(1);
constexpr UINT kChecked = INDEXTOSTATEIMAGEMASK(2);

TEST_F(ProjectList, ShowsTheTasksAsTheyAre) {
    Open({L"C:\\folder\\a.scvpr", L"C:\\" + std::wstring(300, L'x') + L"\\b.scvpr"});
    EXPECT_EQ(List(LVM_GETEXTENDEDLISTVIEWSTYLE), LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT);
    const HDC screen = GetDC(nullptr);
    const int resolution = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    const std::pair<std::wstring, int> columns[] = {{L"Project File Name", 200},
                                                    {L"Last Run Time", 110},
                                                    {L"Last Run Result", 100},
                                                    {L"Next Run Time", 110},
                                                    {L"File Path", 400}};
    for (std::size_t i = 0; i < std::size(columns); ++i) {
        wchar_t text[64] = {};
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT | LVCF_WIDTH;
        column.pszText = text;
        column.cchTextMax = 64;
        ASSERT_TRUE(List(LVM_GETCOLUMNW, i, reinterpret_cast<LPARAM>(&column)));
        EXPECT_EQ(text, columns[i].first);
        EXPECT_EQ(column.cx, MulDiv(columns[i].second, resolution, 96));
    }
    EXPECT_EQ(Cell(0, 1), L"");
    EXPECT_EQ(Cell(0, 3), L"25/02/2026 10:05");
    EXPECT_EQ(Cell(1, 4).size(), 254U);
    Task(0).m_tLastRunTime = clock.now;
    EXPECT_EQ(Cell(0, 1), L"25/02/2026 10:00") << "without a refill";

    EXPECT_EQ(List(LVM_GETITEMSTATE, 0, LVIS_STATEIMAGEMASK), kChecked);
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
    Open({L"C:\\b\\x.scvpr", L"C:\\a\\z.scvpr", L"C:\\c\\y.scvpr"});
    Task(1).m_tLastRunTime = 5;
    const auto mark = [&](int column) {
        HDITEMW item{};
        item.mask = HDI_FORMAT | HDI_IMAGE;
        SendMessageW(reinterpret_cast<HWND>(List(LVM_GETHEADER)), HDM_GETITEMW, static_cast<WPARAM>(column),
                     reinterpret_cast<LPARAM>(&item));
        return (item.fmt & HDF_IMAGE) == 0 ? -1 : item.iImage;
    };
    EXPECT_EQ(mark(0), 0);
    const struct {
        int column;
        const wchar_t* first;
        int mark;
    } clicks[] = {
        {4, L"y.scvpr", 1}, {4, L"z.scvpr", 0}, {0, L"z.scvpr", 1}, {0, L"x.scvpr", 0}, {1, L"y.scvpr", 1}};
    int before = 0;
    for (const auto& click : clicks) {
        ClickHeader(click.column);
        EXPECT_EQ(Rows().front(), click.first) << click.column << click.mark;
        EXPECT_EQ(mark(click.column), click.mark);
        EXPECT_TRUE(before == click.column || mark(before) == -1);
        before = click.column;
    }
}

TEST_F(ProjectList, AddsTheChosenProjectsAndRegistersWithTheFirst) {
    RegDeleteKeyValueW(HKEY_CURRENT_USER, kRunKey, L"SCVScheduler");
    Open({});
    EXPECT_FALSE(IsEnabled(IDC_RUN_PROJECT));
    {
        const FileDialogAnswer answer(std::wstring(L"C:\\p\0b.scvpr\0a.scvpr", 20));
        Click(IDC_ADD_PROJECT);
        EXPECT_TRUE(answer.open);
        EXPECT_EQ(answer.bufferSize, 262144U);
        EXPECT_TRUE(answer.flags & OFN_ALLOWMULTISELECT);
    }
    EXPECT_EQ(Rows(), (Names{L"a.scvpr", L"b.scvpr"}));
    EXPECT_EQ(Selected(), Names{L"a.scvpr"});
    EXPECT_TRUE(IsEnabled(IDC_RUN_PROJECT));
    EXPECT_TRUE(dialog->IsDlgButtonChecked(IDC_EXPORT_RESULTS)) << "the editor shows it";
    EXPECT_TRUE(dialog->IsDlgButtonChecked(IDC_RUN_AT_STARTUP));
    EXPECT_EQ(Value(kRunKey, L"SCVScheduler"), L'"' + GetModulePath() + L"\" /background");
    Click(IDC_RUN_AT_STARTUP);
    EXPECT_EQ(Value(kRunKey, L"SCVScheduler"), std::nullopt);
    const FileDialogAnswer answer(std::wstring(L"C:\\p\0c.scvpr\0B.scvpr", 20));
    Click(IDC_ADD_PROJECT);
    EXPECT_EQ(RowCount(), 3);
    EXPECT_FALSE(dialog->IsDlgButtonChecked(IDC_RUN_AT_STARTUP)) << "only the first of a list";
}

TEST_F(ProjectList, DropTakesProjectsOfOneKind) {
    Open({L"C:\\listed.scvpr"});
    std::wstring paths(L"C:\\A.SCVPR\0C:\\b.txt\0C:\\c.oslpr\0C:\\folder\0", 40);
    paths += L"C:\\" + std::wstring(300, L'x') + L".scvpr" + L'\0';
    for (int i = 0; i < 300; ++i) {
        paths += L"C:\\" + std::to_wstring(i) + L".scvpr" + L'\0';
    }
    const HGLOBAL memory = GlobalAlloc(GHND, sizeof(DROPFILES) + (paths.size() + 1) * sizeof(wchar_t));
    auto* record = static_cast<DROPFILES*>(GlobalLock(memory));
    record->pFiles = sizeof(DROPFILES);
    record->fWide = TRUE;
    std::memcpy(record + 1, paths.data(), paths.size() * sizeof(wchar_t));
    GlobalUnlock(memory);
    dialog->SendMessage(WM_DROPFILES, reinterpret_cast<WPARAM>(memory));
    EXPECT_EQ(RowCount(), 302);
    EXPECT_EQ(Selected(), Names{L"299.scvpr"});
    dialog->SendMessage(WM_DROPFILES, 0);
    EXPECT_EQ(Selected(), Names{L"299.scvpr"});
    EXPECT_EQ(Saved().size(), 1U) << "nothing is saved by dropping";
}

TEST_F(ProjectList, DeletesTheSelectedAndSelectsWhereTheLastOneWas) {
    Open({L"C:\\a.scvpr", L"C:\\b.scvpr", L"C:\\c.scvpr", L"C:\\d.scvpr"});
    const struct {
        std::vector<int> rows;
        Names left, selected;
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
    ASSERT_EQ(shell.starts.size(), 1U);
    EXPECT_EQ(shell.starts[0].parameters, L"\"C:\\b.scvpr\"");
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
    const FileDialogAnswer answer(L"C:\\new.scvpr");
    Click(IDC_EDIT_PROJECT);
    EXPECT_EQ(Rows(), (Names{L"a.scvpr", L"new.scvpr", L"c.scvpr"}));
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
    dialog->SetDlgItemText(IDC_PROGRAM_PATH, L"C:\\old\\Scrivane.exe");
    Click(IDC_PROGRAM_BROWSE);
    EXPECT_FALSE(answer.open);
    EXPECT_EQ(answer.folder, L"C:\\old\\");
    EXPECT_EQ(Value(kProgramKey, L"ProgramFileName"), L"C:\\x\\Scrivane.exe");
    Click(IDC_PROGRAM_RUN);
    ASSERT_EQ(shell.starts, (std::vector<FakeShell::Start>{{L"C:\\x\\Scrivane.exe", L""}}));
    shell.answer = 2;
    Click(IDC_PROGRAM_RUN);
    EXPECT_EQ(boxes.texts, Names{L"Failure to run 'C:\\x\\Scrivane.exe'. Error: 2"});
}

}  // namespace
