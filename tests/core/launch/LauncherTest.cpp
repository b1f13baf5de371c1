#include <gtest/gtest.h>

#include "core/task/SCVShchedulerTask.h"
#include "tests/support/FakeClock.h"
#include "tests/support/FakeShell.h"

// What comes of missing and held projects and of failures the soak sees.
TEST(Launcher, StartsTheProgramOfTheExtension) {
    FakeShell shell;
    // For a foreign extension what is at the root of the user's settings counts, then the association.
    shell.programs[L"txt"] = L"C:\\viewer.exe";
    CSCVShchedulerTask task;
    task.m_bStart = 1;
    for (const wchar_t* project : {L"C:\\my p\\a.SCVPR", L"b.OslPr", L"c.txt", L"d.none"}) {
        task.m_strProjectPath = project;
        EXPECT_EQ(task.Run(shell, FakeClock()), *project == L'd' ? 0 : 1) << testing::PrintToString(project);
    }
    EXPECT_EQ(task.m_strLastRunResult, L"Failure to run ''");
    EXPECT_EQ(shell.starts, (std::vector<FakeShell::Start>{{L"C:\\scrivane.exe", L"\"C:\\my p\\a.SCVPR\" -s"},
                                                           {L"C:\\ostrel.exe", L"\"b.OslPr\" -s"},
                                                           {L"C:\\viewer.exe", L"\"c.txt\" -s"}}));
    shell.answer = 32;
    task.m_strProjectPath = L"a.scvpr";
    EXPECT_EQ(task.Run(shell, FakeClock()), 0) << "the highest failure";
}
