#include "ui/SCVSchedulerApp.h"

#include <gtest/gtest.h>

#include "core/Clock.h"
#include "core/TaskListPlaces.h"
#include "core/WindowsFileSystem.h"
#include "tests/framework/TestDialogs.h"
#include "tests/support/FakeShell.h"
#include "tests/support/TemporaryFolder.h"
#include "ui/StartUp.h"
#include "util/FileTests.h"

namespace {

struct Program {
    CSystemClock clock;
    CWindowsFileSystem files;
    FakeShell shell;
    CSCVSchedulerApp app{{clock, files, shell}};
    std::wstring key;

    explicit Program(const wchar_t* commandLine) {
        app.m_lpCmdLine = commandLine;
        app.m_strAppName = app.m_strExeName = L"Test" + std::to_wstring(GetCurrentProcessId());
        app.m_strHelpFilePath = L"Z:\\nowhere\\x.HLP";
        key = L"Software\\Talvernick\\" + app.m_strAppName;
    }
    ~Program() { RegDeleteTreeW(HKEY_CURRENT_USER, key.c_str()); }
    [[nodiscard]] bool IsVisible() const {
        return app.m_pMainWnd != nullptr && app.m_pMainWnd->IsWindowVisible();
    }
};

// A window of the title by which a running instance is looked for.
class OlderInstance : public CDialog {
public:
    OlderInstance() : CDialog(IDD_TEST_CONTROLS) {
        Create(IDD_TEST_CONTROLS);
        SetWindowText(L"SCV Scheduler");
    }
    std::vector<std::wstring> received;

private:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_COPYDATA) {
            const auto* data = reinterpret_cast<const COPYDATASTRUCT*>(lParam);
            EXPECT_EQ(data->dwData, 32771U);
            received.push_back(ReadHandOver(data->lpData, data->cbData));
        }
        return CDialog::WindowProc(message, wParam, lParam);
    }
};

TEST(SCVSchedulerApp, StartsShownOrHiddenAndHandsOverOnlyToTheExactTitle) {
    Program first(L"C:\\no.scvpr");
    ASSERT_TRUE(first.app.InitInstance());
    EXPECT_TRUE(first.IsVisible());
    {
        Program second(L"/BACKGROUND");
        ASSERT_TRUE(second.app.InitInstance()) << "the first one's title carries its version";
        EXPECT_NE(second.app.m_pMainWnd, nullptr);
        EXPECT_FALSE(second.IsVisible());
        second.app.ExitInstance();
    }
    OlderInstance older;
    Program third(L"\"C:\\my projects\\ab.scvpr\"");
    EXPECT_FALSE(third.app.InitInstance());
    EXPECT_EQ(third.app.m_pMainWnd, nullptr);
    EXPECT_EQ(older.received, std::vector<std::wstring>{L"C:\\my proje"}) << "half of it, kept so on purpose";
    first.app.ExitInstance();
    const HANDLE event = OpenEventW(SYNCHRONIZE, FALSE, L"SCVSchedulerApp");
    EXPECT_NE(event, nullptr) << "while the first application object lives";
    CloseHandle(event);
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    }
}

TEST(SCVSchedulerApp, OldListIsMovedWholeOrNotAtAll) {
    const TemporaryFolder folder;
    const std::wstring old = folder.File(L"old.ini", "[x]\r\na=1\r\n");
    CWindowsFileSystem files;
    CTaskListPlaces places(files);
    places.CreateFolder(folder.Path(L"new"));
    const std::wstring path = folder.Path(L"new\\list.ini");
    EXPECT_FALSE(places.Exists(path));
    EXPECT_FALSE(places.Copy(folder.Path(L"missing.ini"), path));
    EXPECT_FALSE(places.Copy(old, folder.Path(L"none\\list.ini")));
    EXPECT_TRUE(places.Copy(old, path));
    std::string bytes;
    EXPECT_EQ(files.Read(path, bytes), IFileSystem::Status::Ok);
    EXPECT_EQ(bytes, "[x]\r\na=1\r\n");
    places.Delete(old);
    EXPECT_FALSE(places.Exists(old));
    EXPECT_EQ(FileExists(folder.Path(L"new\\*.tmp")), 0);
}

}  // namespace
