#include <gmock/gmock.h>

#include "core/SCVShchedulerTask.h"
#include "tests/support/FakeClock.h"
#include "tests/support/FakeShell.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int64_t kNow = 1711850400;

class Launcher : public testing::Test {
protected:
    int Run(const std::wstring& path) {
        m_task.m_strProjectPath = path;
        m_task.m_tLastRunTime = 5;
        m_task.m_strLastRunResult = L"before";
        const int result = m_task.Run(m_shell, FakeClock(kNow));
        EXPECT_EQ(m_task.m_tLastRunTime, kNow) << "whatever the outcome";
        return result;
    }

    FakeShell m_shell;
    CSCVShchedulerTask m_task;
};

TEST_F(Launcher, StartsTheProgramOfTheExtensionWithTheCommandLine) {
    m_task.m_bStart = 1;
    EXPECT_EQ(Run(L"C:\\my p\\a.scvpr"), 1);
    EXPECT_EQ(m_task.m_strLastRunResult, L"Success");
    EXPECT_EQ(Run(L"C:\\p\\a.SCVPR"), 1);
    EXPECT_EQ(Run(L"C:\\p\\a.OslPr"), 1);
    EXPECT_THAT(m_shell.starts,
                ElementsAre(FakeShell::Start{L"C:\\scrivane.exe", L"\"C:\\my p\\a.scvpr\" -s"},
                            FakeShell::Start{L"C:\\scrivane.exe", L"\"C:\\p\\a.SCVPR\" -s"},
                            FakeShell::Start{L"C:\\ostrel.exe", L"\"C:\\p\\a.OslPr\" -s"}));
    EXPECT_THAT(m_shell.askedAssociations, IsEmpty());
}

TEST_F(Launcher, AProjectThatIsMissingOrInUseIsNotStarted) {
    m_shell.missing = m_shell.held = {L"C:\\gone.scvpr"};
    m_shell.held.insert(L"C:\\held.scvpr");
    EXPECT_EQ(Run(L"C:\\gone.scvpr"), 0);
    EXPECT_EQ(m_task.m_strLastRunResult, L"Failure: File does not exist");
    EXPECT_EQ(Run(L"C:\\held.scvpr"), 0);
    EXPECT_EQ(m_task.m_strLastRunResult, L"Failure: File is already opened");
    EXPECT_THAT(m_shell.starts, IsEmpty());
}

TEST_F(Launcher, AStartCountsOnlyAboveThirtyTwo) {
    m_shell.answer = 32;
    EXPECT_EQ(Run(L"C:\\a.scvpr"), 0);
    EXPECT_EQ(m_task.m_strLastRunResult, L"Failure to run 'C:\\scrivane.exe'");
    m_shell.answer = 33;
    EXPECT_EQ(Run(L"C:\\a.scvpr"), 1);
    EXPECT_EQ(m_task.m_strLastRunResult, L"Success");
}

TEST_F(Launcher, WithoutARegisteredProgramTheAssociationDecides) {
    m_shell.programs[L"Software\\Talvernick\\Scrivane"].clear();
    m_shell.programs[L""] = L"C:\\root.exe";
    EXPECT_EQ(Run(L"C:\\a.Scvpr"), 0);
    EXPECT_EQ(m_task.m_strLastRunResult, L"Failure to run ''");
    m_shell.associated = L"C:\\viewer.exe";
    EXPECT_EQ(Run(L"C:\\a.Scvpr"), 1);
    EXPECT_THAT(m_shell.askedAssociations, ElementsAre(L"Scvpr", L"Scvpr"));

    // A foreign extension has no key: what stands at the root of the user's settings counts.
    EXPECT_EQ(Run(L"C:\\a.txt"), 1);
    m_shell.programs.clear();
    EXPECT_EQ(Run(L"C:\\a.txt"), 1);
    EXPECT_THAT(m_shell.askedAssociations, ElementsAre(L"Scvpr", L"Scvpr", L"txt"));
    EXPECT_THAT(m_shell.starts, ElementsAre(FakeShell::Start{L"C:\\viewer.exe", L"\"C:\\a.Scvpr\""},
                                            FakeShell::Start{L"C:\\root.exe", L"\"C:\\a.txt\""},
                                            FakeShell::Start{L"C:\\viewer.exe", L"\"C:\\a.txt\""}));
}

}  // namespace
