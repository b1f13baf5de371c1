#include "core/SCVShchedulerTaskArray.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

constexpr std::int64_t kNow = 1711850400;

TEST(TaskArray, TasksAreFoundAndRemovedByPathWithoutRegardToCase) {
    CSCVShchedulerTaskArray tasks;
    EXPECT_EQ(tasks.AddTask(L"C:\\a.scvpr", kNow), 0);
    EXPECT_EQ(tasks.AddTask(L"C:\\b.scvpr", kNow), 1);
    EXPECT_EQ(tasks.AddTask(L"C:\\A.SCVPR", kNow), 2);
    EXPECT_EQ(tasks.FindTask(L"c:\\A.scvpr"), 0);
    EXPECT_EQ(tasks.FindTask(L"C:\\c.scvpr"), -1);

    EXPECT_EQ(tasks.RemoveTask(L"c:\\a.scvpr"), 1);
    ASSERT_EQ(tasks.GetSize(), 2);
    EXPECT_EQ(tasks[1]->m_strProjectPath, L"C:\\A.SCVPR");
    EXPECT_EQ(tasks.RemoveTask(L"C:\\c.scvpr"), 0);
    EXPECT_EQ(tasks.RemoveTaskAt(0), 1);
    tasks.RemoveAllTasks();
    EXPECT_EQ(tasks.GetSize(), 0);
}

TEST(TaskArray, InsertKeepsTheOrderOfTheOthers) {
    CSCVShchedulerTaskArray tasks;
    EXPECT_EQ(tasks.InsertTask(1, L"none", kNow), -1);
    EXPECT_EQ(tasks.InsertTask(0, L"a", kNow), 0);
    EXPECT_EQ(tasks.InsertTask(1, L"c", kNow), 1);
    EXPECT_EQ(tasks.InsertTask(1, L"b", kNow), 1);
    ASSERT_EQ(tasks.GetSize(), 3);
    EXPECT_EQ(tasks[0]->m_strProjectPath, L"a");
    EXPECT_EQ(tasks[1]->m_strProjectPath, L"b");
    EXPECT_EQ(tasks[2]->m_strProjectPath, L"c");
}

TEST(TaskArray, AnIndexOutsideRaises) {
    CSCVShchedulerTaskArray tasks;
    tasks.AddTask(L"a", kNow);
    EXPECT_THROW((void)tasks[-1], std::invalid_argument);
    EXPECT_THROW((void)tasks[1], std::invalid_argument);
    EXPECT_THROW(tasks.RemoveTaskAt(1), std::invalid_argument);
    EXPECT_THROW(tasks.RemoveTaskAt(-1), std::invalid_argument);
    EXPECT_THROW(tasks.InsertTask(-1, L"b", kNow), std::invalid_argument);
}

}  // namespace
