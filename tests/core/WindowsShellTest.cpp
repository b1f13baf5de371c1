#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <optional>

#include "core/SCVShchedulerTask.h"
#include "core/Shell.h"
#include "tests/support/FakeClock.h"
#include "tests/support/TemporaryFolder.h"
#include "util/Handle.h"
#include "util/ModulePath.h"
#include "util/Path.h"
#include "util/Registry.h"
#include "util/Utf8.h"

// Real launches of the stand-in extraction program, which writes down how it was started.

namespace {

constexpr wchar_t kScrivane[] = L"Software\\Talvernick\\Scrivane";

// Registers a program for as long as it lives.
class RegisteredProgram {
public:
    RegisteredProgram(const wchar_t* key, const std::wstring& program) : m_key(key) {
        std::wstring text;
        if (RegReadString(HKEY_CURRENT_USER, m_key, kValue, text) != 0) {
            m_before = text;
        }
        EXPECT_EQ(RegWriteString(HKEY_CURRENT_USER, m_key, kValue, program.c_str()), 1);
    }
    RegisteredProgram(const RegisteredProgram&) = delete;
    RegisteredProgram& operator=(const RegisteredProgram&) = delete;
    ~RegisteredProgram() {
        RegRemoveValue(HKEY_CURRENT_USER, m_key, kValue);
        if (m_before) {
            RegWriteString(HKEY_CURRENT_USER, m_key, kValue, m_before->c_str());
        }
    }

private:
    static constexpr const wchar_t* kValue = L"ProgramFileName";
    const wchar_t* m_key;
    std::optional<std::wstring> m_before;
};

class WindowsShell : public testing::Test {
protected:
    // A copy of the stand-in program below the scratch folder.
    [[nodiscard]] std::wstring StandIn(const std::wstring& name) const {
        std::wstring copy = m_folder.Path(name);
        std::filesystem::create_directories(GetFolderPath(copy));
        std::filesystem::copy_file(GetFolderPath(GetModulePath()) + L"standin.exe", copy);
        return copy;
    }
    [[nodiscard]] std::wstring Run(const std::wstring& project) {
        m_task.m_strProjectPath = project;
        m_task.Run(m_shell, FakeClock(1711850400));
        return m_task.m_strLastRunResult;
    }
    // The command line of a project's one start, of which nothing is left then.
    [[nodiscard]] static std::wstring WaitForStart(const std::wstring& project) {
        std::string line;
        for (int tries = 0; tries < 6000 && !line.ends_with('\n'); ++tries) {
            Sleep(5);
            line = BytesOf(project + L".runs.txt");  // time, process, command line
        }
        EXPECT_EQ(std::ranges::count(line, '\n'), 1) << line;
        const std::size_t tab = line.find('\t') + 1;
        const CKernelHandle process(
            OpenProcess(SYNCHRONIZE | PROCESS_TERMINATE, FALSE, std::stoul(line.substr(tab))));
        TerminateProcess(process.Get(), 1);
        WaitForSingleObject(process.Get(), 10'000);
        std::filesystem::remove(project + L".runs.txt");
        return FromUtf8(line.substr(line.find('\t', tab) + 1, line.size() - line.find('\t', tab) - 2));
    }

    TemporaryFolder m_folder;
    CWindowsShell m_shell;
    CSCVShchedulerTask m_task;
};

TEST_F(WindowsShell, TheProgramReceivesTheCommandLineAsItWasBuilt) {
    const std::wstring program = StandIn(L"my programs\\stand in.exe");
    const RegisteredProgram scrivane(kScrivane, program);
    const RegisteredProgram ostrel(L"Software\\Talvernick\\Ostrel", program);
    m_task.m_bExit = m_task.m_bAddUrls = m_task.m_bApplyFilter = 1;
    m_task.m_strUrlsFile = L"C:\\\u0426\u0435\u043d\u044b, 100%\\it's & more.txt";
    m_task.m_strFilterArgument = L"%PATH% > ^1 | \u4fa1\u683c\\\\";
    std::wstring longName = L"long.scvpr";
    longName.insert(0, 250 - m_folder.Path(longName).size(), L'x');
    for (const std::wstring& name :
         {std::wstring(L"two words.SCVPR"), std::wstring(L"a.oslpr"),
          std::wstring(L"\u0426\u4fa1\U0001F600 d'\u00e9t\u00e9 %PATH% & ^.scvpr"), longName}) {
        const std::wstring project = m_folder.File(name, "");
        EXPECT_EQ(Run(project), L"Success") << testing::PrintToString(name);
        EXPECT_EQ(WaitForStart(project), L'"' + program + L"\" " + m_task.BuildCommandLine());
    }
}

TEST_F(WindowsShell, WhatCannotBeStartedSaysSo) {
    const std::wstring missing = m_folder.Path(L"missing program.exe");
    const RegisteredProgram scrivane(kScrivane, missing);
    EXPECT_EQ(Run(m_folder.File(L"a.scvpr", "")), L"Failure to run '" + missing + L"'");
    EXPECT_EQ(Run(m_folder.Path(L"gone.scvpr")), L"Failure: File does not exist");
    EXPECT_EQ(Run(m_folder.Path()), L"Failure: File is already opened");
    EXPECT_EQ(Run(m_folder.File(L"a.exe", "")), L"Failure to run ''")
        << "an association is asked and gives nothing";
    const RegisteredProgram tooLong(kScrivane, std::wstring(127, L'x'));
    EXPECT_EQ(m_shell.RegisteredProgram(kScrivane), L"");
}

}  // namespace
