#include <gmock/gmock.h>

#include "core/SCVShchedulerTask.h"
#include "tests/support/FakeClock.h"
#include "tests/support/FakeShell.h"

namespace {

using testing::ElementsAre;
using Start = FakeShell::Start;

constexpr std::int64_t kNow = 1711850400;

class Launcher : public testing::Test {
protected:
    std::wstring Run(const std::wstring& path) {
        m_task.m_strProjectPath = path;
        m_task.m_tLastRunTime = 5;
        const int result = m_task.Run(m_shell, FakeClock(kNow));
        EXPECT_EQ(m_task.m_tLastRunTime, kNow) << "whatever the outcome";
        EXPECT_EQ(result, m_task.m_strLastRunResult == L"Success");
        return m_task.m_strLastRunResult;
    }

    FakeShell m_shell;
    CSCVShchedulerTask m_task;
};

TEST_F(Launcher, StartsTheProgramOfTheExtensionWithTheCommandLine) {
    m_task.m_bStart = 1;
    EXPECT_EQ(Run(L"C:\\my p\\a.SCVPR"), L"Success");
    EXPECT_EQ(Run(L"C:\\p\\a.OslPr"), L"Success");
    EXPECT_THAT(m_shell.starts, ElementsAre(Start{L"C:\\scrivane.exe", L"\"C:\\my p\\a.SCVPR\" -s"},
                                            Start{L"C:\\ostrel.exe", L"\"C:\\p\\a.OslPr\" -s"}));
    EXPECT_TRUE(m_shell.askedAssociations.empty());
}

TEST_F(Launcher, WhatIsMissingOrInUseIsNotStartedAndAFailureSaysSo) {
    m_shell.missing = m_shell.held = {L"C:\\gone.scvpr"};
    m_shell.held.insert(L"C:\\held.scvpr");
    EXPECT_EQ(Run(L"C:\\gone.scvpr"), L"Failure: File does not exist");
    EXPECT_EQ(Run(L"C:\\held.scvpr"), L"Failure: File is already opened");
    EXPECT_TRUE(m_shell.starts.empty());
    m_shell.answer = 32;
    EXPECT_EQ(Run(L"C:\\a.scvpr"), L"Failure to run 'C:\\scrivane.exe'");
}

TEST_F(Launcher, WithoutARegisteredProgramTheAssociationDecides) {
    m_shell.programs = {{L"", L"C:\\root.exe"}};
    EXPECT_EQ(Run(L"C:\\a.Scvpr"), L"Failure to run ''");
    m_shell.associated = L"C:\\viewer.exe";
    EXPECT_EQ(Run(L"C:\\a.Scvpr"), L"Success");
    // A foreign extension has no key: what stands at the root of the user's settings counts.
    Run(L"C:\\a.txt");
    m_shell.programs.clear();
    Run(L"C:\\a.txt");
    EXPECT_THAT(m_shell.askedAssociations, ElementsAre(L"Scvpr", L"Scvpr", L"txt"));
    EXPECT_THAT(m_shell.starts, ElementsAre(Start{L"C:\\viewer.exe", L"\"C:\\a.Scvpr\""},
                                            Start{L"C:\\root.exe", L"\"C:\\a.txt\""},
                                            Start{L"C:\\viewer.exe", L"\"C:\\a.txt\""}));
}

}  // namespace
