#include "framework/WinApp.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

#include "framework/Dialog.h"
#include "tests/framework/TestDialogs.h"
#include "tests/support/MessageRecorder.h"
#include "tests/support/TestApp.h"

namespace {

TEST(WinApp, SettingsAreNumbersUnderTheApplicationsKey) {
    CWinApp unnamed;
    EXPECT_EQ(unnamed.GetProfileInt(L"s", L"v", 5), 5U);
    EXPECT_FALSE(unnamed.WriteProfileInt(L"s", L"v", 1)) << "no registry key is set";

    const TestApp app;
    EXPECT_EQ(AfxGetApp(), &app);
    EXPECT_EQ(static_cast<int>(app.GetProfileInt(L"CDlg", L"left", -3)), -3) << "nothing stored";
    HKEY key = nullptr;
    EXPECT_EQ(RegOpenKeyW(HKEY_CURRENT_USER, app.m_key.c_str(), &key), ERROR_FILE_NOT_FOUND)
        << "reading makes no keys";
    for (const int value : {0, 1, -32'000, 2'147'483'647}) {
        EXPECT_TRUE(app.WriteProfileInt(L"CDlg", L"left", value));
        EXPECT_EQ(static_cast<int>(app.GetProfileInt(L"CDlg", L"left", 5)), value);
    }
    DWORD raw = 0;
    DWORD size = sizeof(raw);
    EXPECT_EQ(RegGetValueW(HKEY_CURRENT_USER, (app.m_key + L"\\CDlg").c_str(), L"left", RRF_RT_REG_DWORD,
                           nullptr, &raw, &size),
              ERROR_SUCCESS);
    EXPECT_EQ(raw, 2'147'483'647U);
    RegSetKeyValueW(HKEY_CURRENT_USER, (app.m_key + L"\\CDlg").c_str(), L"left", REG_SZ, L"1", 4);
    EXPECT_EQ(app.GetProfileInt(L"CDlg", L"left", 5), 5U) << "a text is no number";
}

TEST(WinApp, NamesComeFromTheExecutable) {
    const CWinApp app;
    EXPECT_EQ(app.m_strExeName, L"scv_tests");
    EXPECT_EQ(app.m_strAppName, L"scv_tests");
    EXPECT_TRUE(app.m_strHelpFilePath.ends_with(L"\\scv_tests.HLP"));
    const std::wstring program = app.m_strHelpFilePath.substr(0, app.m_strHelpFilePath.size() - 3) + L"exe";
    EXPECT_NE(GetFileAttributesW(program.c_str()), INVALID_FILE_ATTRIBUTES) << "the executable's own folder";
}

TEST(WinApp, TheFirstArgumentThatIsNoSwitchIsTheFile) {
    struct {
        const wchar_t* line;
        const wchar_t* file;
    } const cases[] = {
        {L"", L""},
        {L"/background", L""},
        {L"-background C:\\a.scvpr", L"C:\\a.scvpr"},
        {L"\"C:\\my projects\\a b.scvpr\" other /x", L"C:\\my projects\\a b.scvpr"},
        {L"  /BACKGROUND \"C:\\\u4fa1.scvpr\"", L"C:\\\u4fa1.scvpr"},
        {L"\"\" second", L"second"},
    };
    for (const auto& item : cases) {
        CWinApp app;
        app.m_lpCmdLine = item.line;
        CCommandLineInfo info;
        app.ParseCommandLine(info);
        EXPECT_EQ(info.m_strFileName, item.file);
    }
}

// Its controls' messages pass it on their way to the main window.
class WatchingDialog : public CDialog {
public:
    WatchingDialog(const char* name, std::vector<std::string>& seen, bool takes = false)
        : CDialog(IDD_TEST_CONTROLS), m_name(name), m_seen(seen), m_takes(takes) {}
    BOOL PreTranslateMessage(MSG* message) override {
        if (message->message == WM_USER) {
            m_seen.emplace_back(m_name);
        }
        return m_takes && message->message == WM_USER;
    }

private:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_USER + 1) {
            DestroyWindow();
            return 0;
        }
        return CDialog::WindowProc(message, wParam, lParam);
    }
    const char* m_name;
    std::vector<std::string>& m_seen;
    bool m_takes;
};

TEST(WinApp, MessagesWalkFromTheirTargetToTheMainWindowWhoseEndIsTheLoops) {
    using Names = std::vector<std::string>;
    Names seen;
    CWinApp app;
    WatchingDialog root("root", seen);
    WatchingDialog main("main", seen);
    WatchingDialog child("child", seen);
    WatchingDialog taker("taker", seen, true);
    ASSERT_TRUE(root.Create(IDD_TEST_CONTROLS));
    ASSERT_TRUE(main.Create(IDD_TEST_CONTROLS, &root));
    ASSERT_TRUE(child.Create(IDD_TEST_CONTROLS, &main));
    ASSERT_TRUE(taker.Create(IDD_TEST_CONTROLS, &main));
    app.m_pMainWnd = &main;
    PostMessageW(child.GetDlgItem(IDC_TEST_EDIT), WM_USER, 0, 0);
    PostMessageW(taker.GetDlgItem(IDC_TEST_EDIT), WM_USER, 0, 0);
    root.PostMessage(WM_USER);
    main.PostMessage(WM_USER + 1);
    EXPECT_EQ(app.Run(), 0);
    EXPECT_EQ(seen, (Names{"child", "main", "taker", "root"}));
    EXPECT_EQ(app.m_pMainWnd, nullptr);
    EXPECT_EQ(app.Run(), 0) << "without a main window there is nothing to wait for";
}

class StartingApp : public CWinApp {
public:
    explicit StartingApp(std::function<BOOL(StartingApp&)> start) : m_start(std::move(start)) {}
    BOOL InitInstance() override { return m_start(*this); }
    int ExitInstance() override {
        ++m_exits;
        return 7;
    }
    int m_exits = 0;

private:
    std::function<BOOL(StartingApp&)> m_start;
};

TEST(WinApp, StartThatFailsStillCleansUp) {
    MessageRecorder boxes;
    std::vector<std::string> seen;
    WatchingDialog main("main", seen);
    StartingApp refusing([&](StartingApp& app) {
        EXPECT_STREQ(app.m_lpCmdLine, L"/x");
        main.Create(IDD_TEST_CONTROLS);
        app.m_pMainWnd = &main;
        return FALSE;
    });
    EXPECT_EQ(AfxWinMain(refusing, L"/x"), 7);
    EXPECT_EQ(refusing.m_exits, 1);
    EXPECT_EQ(main.m_hWnd, nullptr);
    EXPECT_TRUE(boxes.texts.empty());

    StartingApp throwing([](StartingApp&) -> BOOL { throw std::runtime_error("no start"); });
    EXPECT_EQ(AfxWinMain(throwing, L""), 7);
    EXPECT_EQ(boxes.texts, std::vector<std::wstring>{L"no start"});

    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    }
    StartingApp running([&](StartingApp& app) {
        main.Create(IDD_TEST_CONTROLS);
        app.m_pMainWnd = &main;
        main.PostMessage(WM_USER + 1);
        return TRUE;
    });
    EXPECT_EQ(AfxWinMain(running, L""), 7);
    EXPECT_EQ(main.m_hWnd, nullptr);
}

}  // namespace
