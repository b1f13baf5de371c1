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

TEST(TaskArray, RemovesManyOneTaskForEachPath) {
    const struct {
        const char* label;
        std::vector<std::wstring> removed;
        std::wstring left;  // of aAbAca
    } cases[] = {
        {"the first of equal projects", {L"A"}, L"AbAca"},
        {"a path given twice, in any order", {L"c", L"a", L"b", L"A"}, L"Aa"},
        {"more often than listed", {L"b", L"b", L"x"}, L"aAAca"},
    };
    for (const auto& c : cases) {
        CSCVShchedulerTaskArray tasks;
        for (const wchar_t unit : std::wstring(L"aAbAca")) {
            tasks.AddTask(std::wstring(1, unit), 0);
        }
        EXPECT_EQ(tasks.RemoveTasks(c.removed), 6 - c.left.size()) << c.label;
        std::wstring left;
        for (std::ptrdiff_t i = 0; i < tasks.GetSize(); ++i) {
            left += tasks[i]->m_strProjectPath;
        }
        EXPECT_EQ(left, c.left) << c.label;
    }
}
