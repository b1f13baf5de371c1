#include "ui/SCVSchedulerDlg.h"

#include <gtest/gtest.h>

#include <ctime>

#include "tests/support/MainDialog.h"
#include "ui/StartUp.h"

// What a user sees of a start, the tray and further instances, the journeys play on a real desktop
// (scripts/journeys.sh).

namespace {

constexpr wchar_t kSection[] = L"CSCVSchedulerDlg";

using SCVSchedulerDlg = MainDialogTest;

TEST_F(SCVSchedulerDlg, StartsHiddenWithTheSortedListAndItsFirstRow) {
    shell.programs[kProgramKey] = L"C:\\x\\Scrivane.exe";
    app.WriteProfileInt(kSection, L"ascSort", 0);
    RegWriteString(HKEY_CURRENT_USER, kRunKey, L"SCVScheduler", L"x");
    Open({L"C:\\p\\a.scvpr", L"C:\\p\\c.scvpr", L"C:\\p\\b.scvpr"});
    EXPECT_EQ(dialog->GetWindowText(), WindowTitle(L"SCV Scheduler", SCV_VERSION));
    EXPECT_FALSE(dialog->IsWindowVisible());
    EXPECT_EQ(Rows(), (Names{L"c.scvpr", L"b.scvpr", L"a.scvpr"}));
    EXPECT_EQ(Selected(), Names{L"c.scvpr"});
    EXPECT_EQ(dialog->GetDlgItemText(IDC_PROGRAM_PATH), L"C:\\x\\Scrivane.exe");
    EXPECT_TRUE(dialog->IsDlgButtonChecked(IDC_RUN_AT_STARTUP));
    EXPECT_TRUE(GetWindowLongPtrW(dialog->m_hWnd, GWL_EXSTYLE) & WS_EX_ACCEPTFILES);
    EXPECT_TRUE(KillTimer(dialog->m_hWnd, CSCVSchedulerDlg::kTimer));
    EXPECT_TRUE(dialog->SendMessage(WM_GETICON, ICON_BIG));
    EXPECT_TRUE(SendMessageW(Item(IDC_SCRIPT_FILE_BROWSE), BM_GETIMAGE, IMAGE_ICON, 0));

    // Each kind of anchor: the window grows by 60 and 40 pixels.
    const struct {
        int id, left, top, right, bottom;
    } anchored[] = {{IDC_PROJECT_LIST, 0, 0, 60, 40},     {IDC_PROGRAM_PATH, 0, 0, 60, 0},
                    {IDC_PROGRAM_RUN, 60, 0, 60, 0},      {IDC_RUN_PROJECT, 0, 40, 0, 40},
                    {IDC_RUN_AT_STARTUP, 60, 40, 60, 40}, {IDC_UNTIL_LABEL, 60, 0, 60, 0}};
    std::vector<RECT> before;
    for (const auto& control : anchored) {
        before.push_back(CWnd(Item(control.id)).GetWindowRect());
    }
    const RECT window = dialog->GetWindowRect();
    SetWindowPos(dialog->m_hWnd, nullptr, 0, 0, window.right - window.left + 60,
                 window.bottom - window.top + 40, SWP_NOMOVE | SWP_NOZORDER);
    for (std::size_t i = 0; i < std::size(anchored); ++i) {
        const auto& [id, left, top, right, bottom] = anchored[i];
        const RECT after = CWnd(Item(id)).GetWindowRect();
        const RECT expected{before[i].left + left, before[i].top + top, before[i].right + right,
                            before[i].bottom + bottom};
        EXPECT_TRUE(EqualRect(&after, &expected)) << id;
    }
}

TEST_F(SCVSchedulerDlg, OkSavesCancelDiscardsExitSavesAndEnds) {
    Open({L"C:\\a.scvpr", L"C:\\b.scvpr"});
    dialog->ShowAndSelectProject(SW_SHOW, L"c:\\B.scvpr");
    EXPECT_TRUE(dialog->IsWindowVisible());
    EXPECT_EQ(Selected(), Names{L"b.scvpr"});
    EXPECT_EQ(GetFocus(), Item(IDC_PROJECT_LIST));
    Click(IDC_DELETE_PROJECT);
    Click(IDCANCEL);
    EXPECT_FALSE(dialog->IsWindowVisible());
    EXPECT_EQ(Rows(), (Names{L"a.scvpr", L"b.scvpr"})) << "the deletion is discarded";
    EXPECT_EQ(Selected(), Names{L"a.scvpr"});

    MSG del{Item(IDC_PROJECT_LIST), WM_KEYDOWN, VK_DELETE, 0, 0, {}};
    dialog->PreTranslateMessage(&del);
    EXPECT_EQ(Saved().size(), 2U);
    Click(IDOK);
    EXPECT_EQ(Saved(), Paths{L"C:\\b.scvpr"});
    Task(0).m_strProjectPath = L"C:\\d.scvpr";
    files.Hold(kList, CFakeFileSystem::kForever);
    Click(IDCANCEL);
    EXPECT_EQ(Rows(), Names{L"d.scvpr"}) << "a list that cannot be read discards nothing";
    files.Hold(kList, 0);
    Tick();
    EXPECT_EQ(Rows(), Names{L"b.scvpr"}) << "until it can";

    Task(0).m_strProjectPath = L"C:\\e.scvpr";
    ClickHeader(2);
    SetWindowPos(dialog->m_hWnd, nullptr, 30, 40, 1000, 600, SWP_NOZORDER);
    dialog->SendMessage(WM_COMMAND, ID_EXIT_PROGRAM);
    EXPECT_EQ(dialog->m_hWnd, nullptr);
    EXPECT_EQ(Saved(), Paths{L"C:\\e.scvpr"});
    EXPECT_EQ(app.GetProfileInt(kSection, L"sortColumnIndex", 9), 2U);
    EXPECT_EQ(app.GetProfileInt(kSection, L"ascSort", 9), 0U);
    Open();
    dialog->ShowAndSelectProject(SW_SHOW, {});
    EXPECT_EQ(dialog->GetWindowRect().left, 30);
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
    EXPECT_EQ(boxes.texts.size(), 1U);
    EXPECT_EQ(shell.starts.size(), 3U) << "those before it run on, hidden";
    EXPECT_EQ(shell.starts[0].parameters, L"\"C:\\a.scvpr\"");
    EXPECT_EQ(Cell(0, 2), L"Success");
    EXPECT_EQ(Cell(2, 3), L"") << "a list that shows such a task still draws";
    Task(2).m_bRepeatOnMonthly = 0;
    Tick();
    EXPECT_EQ(shell.starts.size(), 4U) << "the one behind it";
    Task(2).m_bRepeatOnMonthly = 1;
    Tick();
    EXPECT_EQ(boxes.texts.size(), 2U) << "told again once it had gone";
}

TEST_F(SCVSchedulerDlg, ListThatIsHeldAtTheStartIsReadLaterAndNeverSavedOver) {
    CSCVShchedulerTaskArray tasks;
    tasks.AddTask(L"C:\\a.scvpr", clock.now);
    tasks.Save(files, kList);
    files.Hold(kList, CFakeFileSystem::kForever);
    Open();
    EXPECT_EQ(RowCount(), 0);
    {
        const FileDialogAnswer answer(L"C:\\new.scvpr");
        Click(IDC_ADD_PROJECT);
    }
    Click(IDOK);
    Tick();
    files.Hold(kList, 0);
    Click(IDOK);
    EXPECT_EQ(Saved(), Paths{L"C:\\a.scvpr"}) << "not before it has been read";
    Tick();
    EXPECT_EQ(Rows(), (Names{L"a.scvpr", L"new.scvpr"}));
    files.SetReadOnly(kList);
    Click(IDC_RESET_URLS);
    Click(IDOK);
    EXPECT_EQ(Saved(), Paths{L"C:\\a.scvpr"});
    EXPECT_EQ(Task(0).m_bResetUrls, 1) << "the edits stay although the list could not be saved";
}

// A shell that dispatches messages while it starts a program, as the system's does.
class PumpingShell final : public IShell {
public:
    bool FileExists(const std::wstring&) override { return true; }
    bool CanOpenForWriting(const std::wstring&) override { return true; }
    std::wstring RegisteredProgram(const std::wstring&) override { return L"C:\\x.exe"; }
    std::wstring AssociatedProgram(const std::wstring&) override { return {}; }
    std::intptr_t Open(const std::wstring&, const std::wstring&) override {
        ++starts;
        SendMessageW(window, WM_TIMER, CSCVSchedulerDlg::kTimer, 0);
        for (const int command : {IDCANCEL, IDC_DELETE_PROJECT, IDC_RUN_PROJECT}) {
            SendMessageW(window, WM_COMMAND, static_cast<WPARAM>(command), 0);
        }
        return 33;
    }
    HWND window = nullptr;
    int starts = 0;
};

TEST_F(SCVSchedulerDlg, RunIsNeverDoubledByALaunchThatPumpsOrASaveThatFails) {
    PumpingShell pumping;
    Open({L"C:\\a.scvpr"});
    dialog.emplace(CPlatform{clock, files, pumping}, kList);
    dialog->Create(IDD_MAIN);
    pumping.window = dialog->m_hWnd;
    Task(0).m_bExit = 1;
    Click(IDC_RUN_PROJECT);
    EXPECT_EQ(pumping.starts, 1);
    EXPECT_EQ(Task(0).m_bExit, 1) << "the task that is being launched was read again";
    EXPECT_EQ(Task(0).m_tLastRunTime, clock.now);
    Task(0).m_tLastRunTime = 0;
    clock.now += 300;
    files.Hold(kList, CFakeFileSystem::kForever);
    Tick();
    EXPECT_EQ(pumping.starts, 2);
    files.Hold(kList, 0);
    Click(IDCANCEL);
    EXPECT_EQ(Task(0).m_tLastRunTime, clock.now) << "the file knows nothing of it";
    Tick();
    EXPECT_EQ(pumping.starts, 2);
}

TEST_F(SCVSchedulerDlg, HandOverShowsTheWindowAndReadsOnlyWhatWasDelivered) {
    Open({L"a", L"b"});
    const struct {
        ULONG_PTR tag;
        DWORD bytes;
        const void* data;
        bool shows;
        const wchar_t* selected;
    } cases[] = {{1, 2, L"b", false, L"a"},
                 {kHandOverTag, 0x7FFFFFFF, nullptr, true, L"a"},
                 {kHandOverTag, 1, L"b", true, L"a"},  // half a path is no project
                 {kHandOverTag, 2, L"b", true, L"b"}};
    for (const auto& item : cases) {
        Select({0});
        COPYDATASTRUCT data{item.tag, item.bytes, const_cast<void*>(item.data)};
        dialog->SendMessage(WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data));
        EXPECT_EQ(dialog->IsWindowVisible() != FALSE, item.shows) << item.bytes;
        EXPECT_EQ(Selected(), Names{item.selected});
        dialog->ShowWindow(SW_HIDE);
    }
    dialog->SendMessage(WM_COPYDATA, 0, 0);
}

TEST_F(SCVSchedulerDlg, SurvivesSettingsThatNobodyStored) {
    app.WriteProfileInt(kSection, L"sortColumnIndex", 99);
    for (const wchar_t* edge : {L"left", L"top", L"right", L"bottom"}) {
        app.WriteProfileInt(kSection, edge, edge[0] == L'r' ? -2'000'000'000 : 2'000'000'000);
    }
    RegWriteString(HKEY_CURRENT_USER, kRunKey, L"SCVScheduler", std::wstring(600, L'x').c_str());
    Open({L"C:\\b.scvpr", L"C:\\a.scvpr"});
    EXPECT_EQ(RowCount(), 2);
    EXPECT_FALSE(dialog->IsDlgButtonChecked(IDC_RUN_AT_STARTUP));
    dialog->ShowAndSelectProject(SW_SHOW, {});
    EXPECT_TRUE(dialog->IsWindowVisible());
    ClickHeader(0);
    EXPECT_EQ(Rows(), (Names{L"b.scvpr", L"a.scvpr"})) << "the direction turns: descending";
}

TEST_F(SCVSchedulerDlg, TakesUpANewClock) {
    Open({L"C:\\a.scvpr"});
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
