#include "ui/win32/SCVSchedulerDlg.h"

#include <gtest/gtest.h>

#include <ctime>

#include "tests/support/MainDialog.h"
#include "ui/model/StartUp.h"

// OK, Cancel, Exit, the tray, further instances and what the next start remembers the journeys play on a real
// desktop (tests/journeys).

namespace {

constexpr wchar_t kSection[] = L"CSCVSchedulerDlg";

using SCVSchedulerDlg = MainDialogTest;

TEST_F(SCVSchedulerDlg, StartsHiddenWithTheSortedListAndItsFirstRow) {
    shell.programs[kScrivaneKey] = L"C:\\x\\Scrivane.exe";
    app.WriteProfileInt(kSection, L"sortColumnIndex", 4);
    app.WriteProfileInt(kSection, L"ascSort", 0);
    RegWriteString(HKEY_CURRENT_USER, kRunKey, L"SCVScheduler", L"x");
    Open({L"C:\\p\\a.scvpr", L"C:\\r\\b.scvpr", L"C:\\q\\c.scvpr"});
    EXPECT_EQ(dialog->GetWindowText(), WindowTitle(L"SCV Scheduler", SCV_VERSION));
    EXPECT_FALSE(dialog->IsWindowVisible());
    EXPECT_EQ(Rows(), (Texts{L"b.scvpr", L"c.scvpr", L"a.scvpr"}));
    EXPECT_EQ(Selected(), Texts{L"b.scvpr"});
    EXPECT_EQ(dialog->GetDlgItemText(IDC_PROGRAM_PATH), L"C:\\x\\Scrivane.exe");
    EXPECT_TRUE(dialog->IsDlgButtonChecked(IDC_RUN_AT_STARTUP));
    EXPECT_TRUE(GetWindowLongPtrW(dialog->m_hWnd, GWL_EXSTYLE) & WS_EX_ACCEPTFILES);
    EXPECT_TRUE(KillTimer(dialog->m_hWnd, CSCVSchedulerDlg::kTimer));
    EXPECT_TRUE(dialog->SendMessage(WM_GETICON, ICON_BIG));
    EXPECT_TRUE(SendMessageW(Item(IDC_SCRIPT_FILE_BROWSE), BM_GETIMAGE, IMAGE_ICON, 0));
}

TEST_F(SCVSchedulerDlg, LaunchesOnItsOwnTimerAndTellsOnceOfATaskWithoutACalendarDate) {
    const MessageRecorder boxes;
    Open({L"C:\\a.scvpr", L"C:\\b.scvpr", L"C:\\c.scvpr", L"C:\\d.scvpr"});
    Task(0).m_bEnableEvery = 1;
    Task(0).m_nEveryUnit = 0;
    Task(1).m_bEnable = 0;
    Task(2).m_tLastRunTime = 1;
    Task(2).m_bRepeatOnMonthly = 1;
    Task(2).m_tStartTime = -86400LL * 365 * 400;
    for (int minute = 0; minute < 3; ++minute) {
        clock.now += 300;
        Tick(102);
        EXPECT_EQ(shell.starts.size(), minute);
        Tick();
    }
    EXPECT_EQ(Cell(2, 3), L"") << "a list that shows such a task still draws";
    EXPECT_EQ(boxes.texts.size(), 1U);
    EXPECT_EQ(shell.starts.size(), 3U) << "those before it run on, hidden";
    EXPECT_EQ(Cell(0, 2), L"Success");
    Task(2).m_bRepeatOnMonthly = 0;
    Tick();
    EXPECT_EQ(shell.starts.size(), 4U) << "the one behind it";
    Task(2).m_bRepeatOnMonthly = 1;
    Tick();
    EXPECT_EQ(boxes.texts.size(), 2U) << "told again once it had gone";
}

TEST_F(SCVSchedulerDlg, ListThatIsHeldIsReadLaterAndNeverSavedOver) {
    Open({L"C:\\a.scvpr"});
    files.Hold(kList, CFakeFileSystem::kForever);
    Task(0).m_strProjectPath = L"C:\\d.scvpr";
    Click(IDCANCEL);
    EXPECT_EQ(Rows(), Texts{L"d.scvpr"}) << "a list that cannot be read discards nothing";
    files.Hold(kList, 0);
    Tick();
    EXPECT_EQ(Rows(), Texts{L"a.scvpr"}) << "until it can";

    const std::string saved = files.Bytes(kList);
    files.Hold(kList, CFakeFileSystem::kForever);
    dialog.emplace(CPlatform{clock, files, shell}, kList);
    ASSERT_TRUE(dialog->Create(IDD_MAIN));
    EXPECT_EQ(Rows(), Texts{});
    {
        const FileDialogAnswer answer(L"C:\\new.scvpr");
        Click(IDC_ADD_PROJECT);
    }
    Click(IDOK);
    Tick();
    files.Hold(kList, 0);
    Click(IDOK);
    EXPECT_EQ(files.Bytes(kList), saved) << "not before it has been read";
    Tick();
    EXPECT_EQ(Rows(), (Texts{L"a.scvpr", L"new.scvpr"}));
    files.SetReadOnly(kList);
    Click(IDC_RESET_URLS);
    Click(IDOK);
    EXPECT_EQ(Task(0).m_bResetUrls, 1) << "the edits stay although the list could not be saved";
}

TEST_F(SCVSchedulerDlg, RunIsNeverDoubledByALaunchThatPumpsOrASaveThatFails) {
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
    EXPECT_EQ(Task(0).m_bApplyFilter, 1) << "the task that is being launched was read again";
    Task(0).m_tLastRunTime = 0;
    clock.now += 300;
    files.Hold(kList, CFakeFileSystem::kForever);
    Tick();
    EXPECT_EQ(shell.starts.size(), 2U);
    Click(IDOK);  // forgets nothing, for it saves nothing
    files.Hold(kList, 0);
    Click(IDCANCEL);
    EXPECT_EQ(Task(0).m_tLastRunTime, clock.now) << "the file knows nothing of it";
    Tick();
    EXPECT_EQ(shell.starts.size(), 2U);
}

TEST_F(SCVSchedulerDlg, HandOverShowsTheWindowAndSelectsTheProjectsPlaceInTheArray) {
    Open({L"b", L"a", L"c"});
    const struct {
        ULONG_PTR tag;
        DWORD bytes;
        const void* data;
        bool shows;
        const wchar_t* selected;
    } cases[] = {{1, 2, L"a", false, L"c"},
                 {kHandOverTag, 0x7FFFFFFF, nullptr, true, L"c"},
                 {kHandOverTag, 2, L"A", true, L"b"}};  // sorted, that is the other one's row
    for (const auto& item : cases) {
        Select({2});
        COPYDATASTRUCT data{item.tag, item.bytes, const_cast<void*>(item.data)};
        dialog->SendMessage(WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data));
        EXPECT_EQ(dialog->IsWindowVisible() != FALSE, item.shows) << item.bytes;
        EXPECT_EQ(Selected(), Texts{item.selected});
        dialog->ShowWindow(SW_HIDE);
    }
    dialog->SendMessage(WM_COPYDATA, 0, 0);
}

TEST_F(SCVSchedulerDlg, TakesUpANewClock) {
    Open({});
    const int hour = ToLocalTime(clock.now).hour;
    for (const auto message : {UINT{WM_TIMECHANGE}, UINT{WM_SETTINGCHANGE}, UINT{WM_POWERBROADCAST}}) {
        _putenv("TZ=XXX-5:30");
        _tzset();
        ASSERT_NE(ToLocalTime(clock.now).hour, hour);
        dialog->SendMessage(message);
        EXPECT_EQ(ToLocalTime(clock.now).hour, hour) << message;
    }
}

}  // namespace
