#include <gtest/gtest.h>
#include <windows.h>

#include "core/platform/Shell.h"
#include "core/task/SCVShchedulerTask.h"
#include "tests/support/FakeClock.h"
#include "tests/support/TemporaryFolder.h"
#include "util/Path.h"
#include "util/Utf8.h"
#include "util/win32/Handle.h"
#include "util/win32/ModulePath.h"
#include "util/win32/Registry.h"

// The command line of a project's one start, by what the stand-in program wrote down: time, process, command
// line. It is ended.
static std::wstring WaitForStart(const std::wstring& project) {
    std::string line;
    for (int tries = 0; tries < 6000 && !line.ends_with('\n'); ++tries) {
        Sleep(5);
        line = BytesOf(project + L".runs.txt");
    }
    const std::size_t tab = line.find('\t') + 1;
    const CKernelHandle process(
        OpenProcess(SYNCHRONIZE | PROCESS_TERMINATE, FALSE, std::stoul(line.substr(tab))));
    TerminateProcess(process.Get(), 1);
    WaitForSingleObject(process.Get(), 10'000);
    return FromUtf8(line.substr(line.find('\t', tab) + 1));
}

TEST(WindowsShell, HandsOnTheCommandLineUnchanged) {
    constexpr wchar_t kScrivane[] = L"Software\\Talvernick\\Scrivane";
    constexpr wchar_t kValue[] = L"ProgramFileName";
    const TemporaryFolder folder;
    CWindowsShell shell;
    const std::wstring before = shell.RegisteredProgram(kScrivane);
    const std::wstring program = folder.Path(L"stand in.exe");
    RegWriteString(HKEY_CURRENT_USER, kScrivane, kValue, program.c_str());
    CSCVShchedulerTask task;
    task.m_bExit = task.m_bAddUrls = task.m_bApplyFilter = 1;
    task.m_strUrlsFile = L"C:\\\u0426\u0435\u043d\u044b, 100%\\it's & more.txt";
    task.m_strFilterArgument = L"%PATH% > ^1 | \u4fa1\u683c\\\\";
    std::wstring name = L"\u0426\u4fa1\U0001F600 d'\u00e9t\u00e9 %PATH% & ^.SCVPR";
    name.insert(0, 250 - folder.Path(name).size(), L'x');
    task.m_strProjectPath = folder.File(name, "");
    EXPECT_EQ(task.Run(shell, FakeClock()), 0) << "there is no such program yet";
    EXPECT_EQ(task.m_strLastRunResult, L"Failure to run '" + program + L"'");
    std::filesystem::copy_file(GetFolderPath(GetModulePath()) + L"standin.exe", program);
    EXPECT_EQ(task.Run(shell, FakeClock()), 1);
    EXPECT_EQ(WaitForStart(task.m_strProjectPath), L'"' + program + L"\" " + task.BuildCommandLine() + L'\n');
    task.m_strProjectPath = folder.File(L"a.exe", "");
    EXPECT_EQ(task.Run(shell, FakeClock()), 0) << "an association is asked and gives nothing";
    RegWriteString(HKEY_CURRENT_USER, kScrivane, kValue, before.c_str());
}
