#include <gtest/gtest.h>

#include "tests/support/MainDialog.h"
#include "ui/model/StartUp.h"
#include "ui/win32/TrayIcon.h"

// The window while it is hidden, minimised or about to end. The journeys (tests/journeys) test what needs a
// desktop with a task bar.

namespace {

class Visibility : public MainDialogTest {
protected:
    // Dispatches the queued messages, as the program's loop does.
    static void PumpQueue() {
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE)) {
            AfxPumpMessage(message);
        }
    }
    static void Press(HWND target, UINT message, WPARAM key) {
        PostMessageW(target, message, key, 0);
        PumpQueue();
    }
    [[nodiscard]] Texts SavedProjects() {
        CSCVShchedulerTaskArray saved;
        saved.Load(files, kList);
        Texts projects;
        for (std::ptrdiff_t i = 0; i < saved.GetSize(); ++i) {
            projects.push_back(saved[i]->m_strProjectPath);
        }
        return projects;
    }
};

TEST_F(Visibility, HiddenWindowActsOnNoKey) {
    Open({L"C:\\a.scvpr", L"C:\\b.scvpr"});
    const int replacements = files.Replacements();
    Press(Item(IDC_ADD_PROJECT), WM_CHAR, 'x');
    ASSERT_NE(dialog->m_hWnd, nullptr) << "the mnemonic of Exit";
    Press(Item(IDC_PROJECT_LIST), WM_KEYDOWN, VK_DELETE);
    EXPECT_EQ(Rows().size(), 2U);
    Press(Item(IDC_PROJECT_LIST), WM_KEYDOWN, VK_RETURN);
    EXPECT_EQ(files.Replacements(), replacements) << "Enter is OK, which saves";
    dialog->ShowWindow(SW_SHOW);
    Press(Item(IDC_PROJECT_LIST), WM_KEYDOWN, VK_DELETE);
    EXPECT_EQ(Rows().size(), 1U) << "a window that is shown does";
}

TEST_F(Visibility, TrayMenuGivesTheForegroundBack) {
    Open({});
    const HWND other = CreateWindowExW(0, L"STATIC", L"other", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 50, 50,
                                       nullptr, nullptr, nullptr, nullptr);
    SetForegroundWindow(other);
    PostMessageW(dialog->m_hWnd, WM_KEYDOWN, VK_ESCAPE, 0);
    dialog->SendMessage(kTrayMessage, 0, WM_RBUTTONUP);
    PumpQueue();
    EXPECT_EQ(GetForegroundWindow(), other);
    DestroyWindow(other);
}

TEST_F(Visibility, MinimisedWindowOpens) {
    COPYDATASTRUCT handOver{kHandOverTag, 0, nullptr};
    const struct {
        const char* label;
        UINT message;
        WPARAM wParam;
        LPARAM lParam;
    } cases[] = {{"menu", WM_COMMAND, ID_SHOW_WINDOW, 0},
                 {"double click", kTrayMessage, 0, WM_LBUTTONDBLCLK},
                 {"hand-over", WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&handOver)}};
    Open({});
    for (const auto& item : cases) {
        dialog->ShowWindow(SW_SHOW);
        dialog->ShowWindow(SW_MINIMIZE);
        dialog->SendMessage(item.message, item.wParam, item.lParam);
        PumpQueue();
        EXPECT_FALSE(IsIconic(dialog->m_hWnd)) << item.label;
        EXPECT_TRUE(dialog->IsWindowVisible()) << item.label;
    }
}

TEST_F(Visibility, ExitEndsAPassAfterTheProjectAtHand) {
    Open({L"C:\\a.scvpr", L"C:\\b.scvpr"});
    clock.now += 300;
    shell.whileOpening = [&] { dialog->SendMessage(WM_COMMAND, ID_EXIT_PROGRAM); };
    Tick();
    EXPECT_EQ(dialog->m_hWnd, nullptr);
    EXPECT_EQ(shell.starts.size(), 1U);
    CSCVShchedulerTaskArray saved;
    saved.Load(files, kList);
    EXPECT_EQ(saved[0]->m_tLastRunTime, clock.now);
}

TEST_F(Visibility, ExitDuringALaunchWaitsForIt) {
    Open({L"C:\\a.scvpr"});
    shell.whileOpening = [&] { dialog->SendMessage(WM_COMMAND, ID_EXIT_PROGRAM); };
    Click(IDC_RUN_PROJECT);
    EXPECT_EQ(dialog->m_hWnd, nullptr);
    CSCVShchedulerTaskArray saved;
    saved.Load(files, kList);
    EXPECT_EQ(saved[0]->m_tLastRunTime, clock.now);
}

TEST_F(Visibility, LogOffSavesWhatExitSaves) {
    Open({L"C:\\a.scvpr"});
    Task(0).m_strProjectPath = L"C:\\edited.scvpr";
    NMLISTVIEW click{};
    click.iSubItem = 2;
    Notify(IDC_PROJECT_LIST, LVN_COLUMNCLICK, click);
    EXPECT_TRUE(dialog->SendMessage(WM_QUERYENDSESSION));
    dialog->SendMessage(WM_ENDSESSION, FALSE);
    EXPECT_EQ(SavedProjects(), Texts{L"C:\\a.scvpr"}) << "another program said no";
    dialog->SendMessage(WM_ENDSESSION, TRUE);
    EXPECT_EQ(SavedProjects(), Texts{L"C:\\edited.scvpr"});
    EXPECT_EQ(app.GetProfileInt(L"CSCVSchedulerDlg", L"sortColumnIndex", 0), 2U);
}

}  // namespace
