#include <gtest/gtest.h>
#include <windows.h>

#include <chrono>
#include <optional>
#include <sstream>
#include <vector>

#include "core/SCVShchedulerTask.h"
#include "core/Shell.h"
#include "tests/support/FakeClock.h"
#include "tests/support/TemporaryFolder.h"
#include "util/FileTests.h"
#include "util/Handle.h"
#include "util/Path.h"
#include "util/Registry.h"
#include "util/Utf8.h"

// Real launches of the stand-in extraction program, which writes down how it was started.

namespace {

constexpr std::int64_t kNow = 1711850400;

// Registers a program for as long as it lives.
class RegisteredProgram {
public:
    RegisteredProgram(std::wstring key, const std::wstring& program) : m_key(std::move(key)) {
        std::wstring text;
        if (RegReadString(HKEY_CURRENT_USER, m_key, kValue, text) != 0) {
            m_before = text;
        }
        EXPECT_EQ(RegWriteString(HKEY_CURRENT_USER, m_key, kValue, program.c_str()), 1);
    }
    RegisteredProgram(const RegisteredProgram&) = delete;
    RegisteredProgram& operator=(const RegisteredProgram&) = delete;
    ~RegisteredProgram() {
        if (m_before) {
            RegWriteString(HKEY_CURRENT_USER, m_key, kValue, m_before->c_str());
        } else {
            RegRemoveValue(HKEY_CURRENT_USER, m_key, kValue);
        }
    }

private:
    static constexpr const wchar_t* kValue = L"ProgramFileName";
    std::wstring m_key;
    std::optional<std::wstring> m_before;
};

template <class Condition>
[[nodiscard]] bool WaitUntil(Condition condition) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > deadline) {
            return false;
        }
        Sleep(5);
    }
    return true;
}

class WindowsShell : public testing::Test {
protected:
    struct Start {
        DWORD process = 0;
        std::wstring commandLine;
    };

    ~WindowsShell() override {
        for (const CKernelHandle& process : m_processes) {
            TerminateProcess(process.Get(), 1);
            WaitForSingleObject(process.Get(), 10'000);
        }
    }

    // A copy of the stand-in program below the scratch folder.
    [[nodiscard]] std::wstring StandIn(const std::wstring& name) const {
        wchar_t self[MAX_PATH] = {};
        GetModuleFileNameW(nullptr, self, MAX_PATH);
        std::wstring copy = m_folder.Path(name);
        std::filesystem::create_directories(GetFolderPath(copy));
        std::filesystem::copy_file(GetFolderPath(self) + L"standin.exe", copy);
        return copy;
    }

    [[nodiscard]] int Run(const std::wstring& project) {
        m_task.m_strProjectPath = project;
        return m_task.Run(m_shell, FakeClock(kNow));
    }

    // Waits for the `count`-th start of a project and takes care that its process ends with the test.
    [[nodiscard]] Start WaitForStart(const std::wstring& project, std::size_t count) {
        std::vector<std::string> lines;
        const bool came = WaitUntil([&] {
            std::ifstream file(std::filesystem::path(project + L".runs.txt"), std::ios::binary);
            std::ostringstream text;
            text << file.rdbuf();
            lines.clear();
            std::istringstream stream(text.str());
            for (std::string line; std::getline(stream, line) && !stream.eof();) {
                lines.push_back(line);
            }
            return lines.size() >= count;
        });
        if (!came) {
            ADD_FAILURE() << "no start number " << count;
            return {};
        }
        EXPECT_EQ(lines.size(), count);
        std::istringstream fields(lines[count - 1]);
        std::int64_t time = 0;
        Start start;
        std::string commandLine;
        fields >> time >> start.process;
        fields.get();
        std::getline(fields, commandLine);
        EXPECT_NEAR(static_cast<double>(time), static_cast<double>(_time64(nullptr)), 60);
        start.commandLine = FromUtf8(commandLine);
        CKernelHandle process(OpenProcess(SYNCHRONIZE | PROCESS_TERMINATE, FALSE, start.process));
        if (process) {
            m_processes.push_back(std::move(process));
        }
        return start;
    }

    TemporaryFolder m_folder;
    std::vector<CKernelHandle> m_processes;
    CWindowsShell m_shell;
    CSCVShchedulerTask m_task;
};

TEST_F(WindowsShell, TheProgramReceivesTheCommandLineAsItWasBuilt) {
    const std::wstring program = StandIn(L"my programs\\stand in.exe");
    const RegisteredProgram scrivane(L"Software\\Talvernick\\Scrivane", program);
    const RegisteredProgram ostrel(L"Software\\Talvernick\\Ostrel", program);
    m_task.m_bStart = m_task.m_bExit = m_task.m_bAddUrls = m_task.m_bApplyFilter =
        m_task.m_bImportInputValues = 1;
    m_task.m_strUrlsFile = L"C:\\\u0426\u0435\u043d\u044b, 100%\\it's & more.txt";
    m_task.m_strFilterArgument = L"%PATH% > ^1 | \u4fa1\u683c\\\\";
    m_task.m_strInputValuesFile = L"C:\\v w.txt";
    m_task.m_strInputElementName = L"q";

    std::wstring longName = L"long.scvpr";
    longName.insert(0, 250 - m_folder.Path(longName).size(), L'x');
    for (const std::wstring& name :
         {std::wstring(L"plain.scvpr"), std::wstring(L"two words.SCVPR"), std::wstring(L"a.oslpr"),
          std::wstring(L"\u0426\u0435\u043d\u044b \u0440\u044b\u043d\u043a\u0430.scvpr"),
          std::wstring(L"\u4fa1\u683c\u8868.scvpr"),
          std::wstring(L"\U0001F600 d'\u00e9t\u00e9 %PATH% & ^.scvpr"), longName}) {
        SCOPED_TRACE(testing::PrintToString(name));
        const std::wstring project = m_folder.File(name, "");
        EXPECT_EQ(Run(project), 1);
        EXPECT_EQ(m_task.m_strLastRunResult, L"Success");
        EXPECT_EQ(m_task.m_tLastRunTime, kNow);
        EXPECT_EQ(WaitForStart(project, 1).commandLine, L'"' + program + L"\" " + m_task.BuildCommandLine());
    }
    EXPECT_EQ(m_folder.Path(longName).size(), 250U);
}

TEST_F(WindowsShell, AProjectThatIsWorkedOnIsNotStartedAgain) {
    const RegisteredProgram scrivane(L"Software\\Talvernick\\Scrivane", StandIn(L"standin.exe"));
    const std::wstring project = m_folder.File(L"held.scvpr", "60.5");
    EXPECT_EQ(Run(project), 1);
    (void)WaitForStart(project, 1);
    EXPECT_EQ(Run(project), 0);
    EXPECT_EQ(m_task.m_strLastRunResult, L"Failure: File is already opened");

    ASSERT_EQ(m_processes.size(), 1U);
    TerminateProcess(m_processes[0].Get(), 1);
    EXPECT_TRUE(WaitUntil([&] { return m_shell.CanOpenForWriting(project); }));
    EXPECT_EQ(Run(project), 1);
    (void)WaitForStart(project, 2);
}

TEST_F(WindowsShell, WhatCannotBeStartedSaysSo) {
    const std::wstring project = m_folder.File(L"a.scvpr", "");
    const std::wstring missing = m_folder.Path(L"missing program.exe");
    {
        const RegisteredProgram scrivane(L"Software\\Talvernick\\Scrivane", missing);
        EXPECT_EQ(Run(project), 0);
        EXPECT_EQ(m_task.m_strLastRunResult, L"Failure to run '" + missing + L"'");
        EXPECT_EQ(Run(m_folder.Path(L"gone.scvpr")), 0);
        EXPECT_EQ(m_task.m_strLastRunResult, L"Failure: File does not exist");
    }
    EXPECT_EQ(Run(m_folder.File(L"a.exe", "")), 0);
    EXPECT_EQ(m_task.m_strLastRunResult, L"Failure to run ''") << "an association is asked and gives nothing";
    const RegisteredProgram tooLong(L"Software\\Talvernick\\Scrivane", std::wstring(127, L'x'));
    EXPECT_EQ(m_shell.RegisteredProgram(L"Software\\Talvernick\\Scrivane"), L"");
}

}  // namespace
