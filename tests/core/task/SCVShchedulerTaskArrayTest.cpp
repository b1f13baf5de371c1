#include "core/task/SCVShchedulerTaskArray.h"

#include <gtest/gtest.h>

#include <stdexcept>

TEST(TaskArray, FindsAndRemovesInAnyCase) {
    CSCVShchedulerTaskArray tasks;
    EXPECT_EQ(tasks.InsertTask(1, L"none", 0), -1);
    tasks.AddTask(L"C:\\a.scvpr", 0);
    tasks.AddTask(L"C:\\A.SCVPR", 0);
    EXPECT_EQ(tasks.FindTask(L"c:\\A.scvpr"), 0);
    EXPECT_EQ(tasks.RemoveTask(L"c:\\a.scvpr"), 1);
    EXPECT_EQ(tasks.RemoveTask(L"C:\\c.scvpr"), 0);
    EXPECT_EQ(tasks[0]->m_strProjectPath, L"C:\\A.SCVPR");
    EXPECT_THROW((void)tasks[1], std::invalid_argument);
    EXPECT_THROW(tasks.RemoveTaskAt(1), std::invalid_argument);
    EXPECT_THROW(tasks.InsertTask(-1, L"b", 0), std::invalid_argument);
}
