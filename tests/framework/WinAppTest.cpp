#include "framework/WinApp.h"

#include <gtest/gtest.h>

#include <functional>
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
    {
        const TestApp app;
        EXPECT_EQ(AfxGetApp(), &app);
        EXPECT_EQ(static_cast<int>(app.GetProfileInt(L"CDlg", L"left", -3)), -3) << "nothing stored";
        HKEY key = nullptr;
        EXPECT_EQ(RegOpenKeyW(HKEY_CURRENT_USER, app.m_key.c_str(), &key), ERROR_FILE_NOT_FOUND)
            << "reading makes no keys";
        EXPECT_TRUE(app.WriteProfileInt(L"CDlg", L"left", -32'000));
        EXPECT_EQ(static_cast<int>(app.GetProfileInt(L"CDlg", L"left", 5)), -32'000);
        RegSetKeyValueW(HKEY_CURRENT_USER, (app.m_key + L"\\CDlg").c_str(), L"left", REG_SZ, L"1", 4);
        EXPECT_EQ(app.GetProfileInt(L"CDlg", L"left", 5), 5U) << "a text is no number";
    }
    EXPECT_EQ(AfxGetApp(), &unnamed);
    EXPECT_EQ(unnamed.m_strExeName + unnamed.m_strAppName, L"scv_testsscv_tests");
    const std::wstring help = unnamed.m_strHelpFilePath;
    EXPECT_TRUE(help.ends_with(L"\\scv_tests.HLP"));
    EXPECT_NE(GetFileAttributesW((help.substr(0, help.size() - 3) + L"exe").c_str()),
              INVALID_FILE_ATTRIBUTES);
}

TEST(WinApp, TheFirstArgumentThatIsNoSwitchIsTheFile) {
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"/background", L""},
        {L"-background C:\\a.scvpr", L"C:\\a.scvpr"},
        {L"\"C:\\my projects\\a b.scvpr\" other /x", L"C:\\my projects\\a b.scvpr"},
        {L"\"\" second", L"second"}};
    for (const auto& [line, file] : cases) {
        CWinApp app;
        app.m_lpCmdLine = line;
        CCommandLineInfo info;
        app.ParseCommandLine(info);
        EXPECT_EQ(info.m_strFileName, file);
    }
}

// Its controls' messages pass it on their way to the main window.
class WatchingDialog : public CDialog {
public:
    WatchingDialog(const char* name, std::string& seen)
        : CDialog(IDD_TEST_CONTROLS), m_name(name), m_seen(seen) {}
    BOOL PreTranslateMessage(MSG* message) override {
        if (message->message == WM_USER) {
            m_seen += m_name;
        }
        return message->message == WM_USER && m_name.starts_with("taker");
    }

private:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        return message == WM_USER + 1 ? DestroyWindow() : CDialog::WindowProc(message, wParam, lParam);
    }
    std::string m_name;
    std::string& m_seen;
};

TEST(WinApp, MessagesWalkFromTheirTargetToTheMainWindowWhoseEndIsTheLoops) {
    std::string seen;
    CWinApp app;
    WatchingDialog root("root ", seen);
    WatchingDialog main("main ", seen);
    WatchingDialog child("child ", seen);
    WatchingDialog taker("taker ", seen);
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
    EXPECT_EQ(seen, "child main taker root ");
    EXPECT_EQ(app.m_pMainWnd, nullptr);
    EXPECT_EQ(app.Run(), 0) << "without a main window there is nothing to wait for";
}

TEST(WinApp, AnyStartCleansUpAtItsEnd) {
    class StartingApp : public CWinApp {
    public:
        explicit StartingApp(std::function<BOOL(StartingApp&)> start) : m_start(std::move(start)) {}
        BOOL InitInstance() override { return m_start(*this); }
        int ExitInstance() override { return 7; }

    private:
        std::function<BOOL(StartingApp&)> m_start;
    };
    MessageRecorder boxes;
    std::string seen;
    WatchingDialog main("main", seen);
    for (const wchar_t* what : {L"refuses", L"runs"}) {
        StartingApp app([&](StartingApp& starting) {
            EXPECT_STREQ(starting.m_lpCmdLine, what);
            main.Create(IDD_TEST_CONTROLS);
            starting.m_pMainWnd = &main;
            main.PostMessage(WM_USER + 1);
            return what[1] == L'u';
        });
        EXPECT_EQ(AfxWinMain(app, what), 7);
        EXPECT_EQ(main.m_hWnd, nullptr);
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        }
    }
    EXPECT_TRUE(boxes.texts.empty());
    StartingApp throwing([](StartingApp&) -> BOOL { throw std::runtime_error("no start"); });
    EXPECT_EQ(AfxWinMain(throwing, L""), 7);
    EXPECT_EQ(boxes.texts, std::vector<std::wstring>{L"no start"});
}

}  // namespace
