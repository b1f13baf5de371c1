#include "core/SCVShchedulerTaskArray.h"

#include <gtest/gtest.h>

#include <stdexcept>

TEST(TaskArray, TasksAreFoundAndRemovedByPathWithoutRegardToCase) {
    constexpr std::int64_t kNow = 1711850400;
    CSCVShchedulerTaskArray tasks;
    EXPECT_EQ(tasks.InsertTask(1, L"none", kNow), -1);
    EXPECT_EQ(tasks.AddTask(L"C:\\a.scvpr", kNow), 0);
    EXPECT_EQ(tasks.AddTask(L"C:\\A.SCVPR", kNow), 1);
    EXPECT_EQ(tasks.InsertTask(1, L"C:\\b.scvpr", kNow), 1);
    EXPECT_EQ(tasks.FindTask(L"c:\\A.scvpr"), 0);
    EXPECT_EQ(tasks.RemoveTask(L"c:\\a.scvpr"), 1);
    EXPECT_EQ(tasks.RemoveTask(L"C:\\c.scvpr"), 0);
    ASSERT_EQ(tasks.GetSize(), 2);
    EXPECT_EQ(tasks[0]->m_strProjectPath, L"C:\\b.scvpr");
    EXPECT_EQ(tasks[1]->m_strProjectPath, L"C:\\A.SCVPR");

    for (const std::ptrdiff_t outside : {-1, 2}) {
        EXPECT_THROW((void)tasks[outside], std::invalid_argument);
        EXPECT_THROW(tasks.RemoveTaskAt(outside), std::invalid_argument);
    }
    EXPECT_THROW(tasks.InsertTask(-1, L"b", kNow), std::invalid_argument);
    EXPECT_EQ(tasks.RemoveTaskAt(0), 1);
    tasks.RemoveAllTasks();
    EXPECT_EQ(tasks.GetSize(), 0);
}
