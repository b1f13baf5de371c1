#include "ui/win32/SCVSchedulerDlg.h"

#include <gtest/gtest.h>

#include "tests/support/MainDialog.h"
#include "ui/model/StartUp.h"

// The journeys (tests/journeys) test OK, Cancel, Exit, the tray, further instances and what the next start
// remembers, on a real desktop.

namespace {

constexpr wchar_t kSection[] = L"CSCVSchedulerDlg";

using SCVSchedulerDlg = MainDialogTest;

TEST_F(SCVSchedulerDlg, StartsHiddenWithTheSortedList) {
    shell.programs[kScrivaneKey] = L"C:\\x\\Scrivane.exe";
    app.WriteProfileInt(kSection, L"sortColumnIndex", 4);
    app.WriteProfileInt(kSection, L"ascSort", 0);
    RegWriteString(HKEY_CURRENT_USER, kRunKey, L"SCVScheduler", L"x");
    Open({L"C:\\p\\a.scvpr", L"C:\\r\\b.scvpr", L"C:\\q\\c.scvpr"});
    EXPECT_FALSE(dialog->IsWindowVisible());
    EXPECT_EQ(Rows(), (Texts{L"b.scvpr", L"c.scvpr", L"a.scvpr"}));
    EXPECT_EQ(Selected(), Texts{L"b.scvpr"});
    EXPECT_EQ(dialog->GetDlgItemText(IDC_PROGRAM_PATH), L"C:\\x\\Scrivane.exe");
    EXPECT_TRUE(dialog->IsDlgButtonChecked(IDC_RUN_AT_STARTUP));
    EXPECT_TRUE(GetWindowLongPtrW(dialog->m_hWnd, GWL_EXSTYLE) & WS_EX_ACCEPTFILES);
    EXPECT_TRUE(KillTimer(dialog->m_hWnd, CSCVSchedulerDlg::kTimer));
}

TEST_F(SCVSchedulerDlg, LaunchesOnItsOwnTimer) {
    Open({L"C:\\a.scvpr"});
    clock.now += 300;
    Tick(102);
    EXPECT_EQ(shell.starts.size(), 0U) << "another timer";
    Tick();
    EXPECT_EQ(shell.starts.size(), 1U);
    EXPECT_EQ(Cell(0, 2), L"Success");
}

TEST_F(SCVSchedulerDlg, ImpossibleDateIsShownOnce) {
    const MessageRecorder boxes;
    Open({L"C:\\a.scvpr"});
    Task(0).m_tLastRunTime = 1;
    Task(0).m_bRepeatOnMonthly = 1;
    Task(0).m_tStartTime = INT64_MIN;
    Tick();
    Tick();
    EXPECT_EQ(Cell(0, 3), L"") << "a list that shows such a task still draws";
    EXPECT_EQ(boxes.texts.size(), 1U);
}

TEST_F(SCVSchedulerDlg, HeldListIsShownOnceItIsRead) {
    Open({L"C:\\a.scvpr"});
    files.Hold(kList, CFakeFileSystem::kForever);
    dialog.emplace(CPlatform{clock, files, shell}, kList);
    ASSERT_TRUE(dialog->Create(IDD_MAIN));
    {
        const FileDialogAnswer answer(L"C:\\new.scvpr");
        Click(IDC_ADD_PROJECT);
    }
    files.Hold(kList, 0);
    Tick();
    EXPECT_EQ(Rows(), (Texts{L"a.scvpr", L"new.scvpr"}));
}

TEST_F(SCVSchedulerDlg, NoTaskIsRemovedDuringItsLaunch) {
    Open({L"C:\\a.scvpr"});
    // As the system's shell does, which dispatches messages while it starts a program.
    shell.whileOpening = [&] {
        Tick();
        for (const UINT command : {UINT{IDCANCEL}, UINT{IDC_DELETE_PROJECT}, UINT{IDC_RUN_PROJECT}}) {
            dialog->SendMessage(WM_COMMAND, command);
        }
    };
    Task(0).m_bApplyFilter = 1;
    Click(IDC_RUN_PROJECT);
    EXPECT_EQ(shell.starts.size(), 1U);
    EXPECT_EQ(Task(0).m_bApplyFilter, 1) << "neither read again nor deleted";
}

TEST_F(SCVSchedulerDlg, HandOverSelectsByPosition) {
    Open({L"b", L"a", L"c"});
    const struct {
        const char* label;
        ULONG_PTR tag;
        DWORD bytes;
        const void* data;
        bool shows;
        const wchar_t* selected;
    } cases[] = {{"another tag", 1, 2, L"a", false, L"c"},
                 {"no data", kHandOverTag, 0x7FFFFFFF, nullptr, true, L"c"},
                 {"the array has a where the sorted rows have b", kHandOverTag, 2, L"A", true, L"b"}};
    for (const auto& item : cases) {
        Select({2});
        COPYDATASTRUCT data{item.tag, item.bytes, const_cast<void*>(item.data)};
        dialog->SendMessage(WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data));
        EXPECT_EQ(dialog->IsWindowVisible() != FALSE, item.shows) << item.label;
        EXPECT_EQ(Selected(), Texts{item.selected}) << item.label;
        dialog->ShowWindow(SW_HIDE);
    }
    dialog->SendMessage(WM_COPYDATA, 0, 0);
}

}  // namespace
