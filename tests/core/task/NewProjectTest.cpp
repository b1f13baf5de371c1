#include "core/task/NewProject.h"

#include <gtest/gtest.h>

#include "core/task/SCVShchedulerTaskArray.h"

TEST(NewProject, IsListedOnceWithItsCommands) {
    CSCVShchedulerTaskArray tasks;
    const std::wstring added[] = {L"C:\\a.scvpr", L"c:\\A.SCVPR", L"C:\\b.oslpr"};
    AddNewProjects(tasks, added, 1'772'000'000);
    AddNewProjects(tasks, added, 1'999'000'000);
    ASSERT_EQ(tasks.GetSize(), 2);
    EXPECT_EQ(tasks[0]->BuildCommandLine(), L"\"C:\\a.scvpr\" -dt -dr -s -qe -ex");
    EXPECT_EQ(tasks[1]->m_tStartTime, 1'772'000'300);
}
