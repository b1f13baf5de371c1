#include "ui/EditorMembers.h"

#include <gtest/gtest.h>

#include "core/LocalTime.h"

// The flags and texts go through EditorRulesTest.
TEST(EditorMembers, TakeTheTaskOrANewOne) {
    const std::int64_t now = FromLocalTime(2026, 3, 5, 8, 0, 0);
    CSCVShchedulerTask task;
    task.m_strExportFile = L"x";
    task.m_tStartTime = 5;
    task.m_tUntilTime = 6;
    task.m_nEveryValue = 7;
    task.m_nEveryUnit = 0;
    const auto numbers = [&](const CSCVShchedulerTask* shown) {
        const stEditorMembers members = EditorMembersOf(shown, now);
        return std::vector<std::int64_t>{members.m_bExportIntoNewFile, members.m_tStartDate,
                                         members.m_tStartTime,         members.m_tUntilTime,
                                         members.m_nEveryValue,        members.m_nEveryUnit};
    };
    EXPECT_EQ(numbers(&task), (std::vector<std::int64_t>{1, 5, 5, 6, 7, 0}));
    EXPECT_EQ(numbers(nullptr), (std::vector<std::int64_t>{0, now + 300, now + 300,
                                                           FromLocalTime(2026, 3, 5, 23, 59, 59), 1, 1}));
    EXPECT_EQ(stEditorMembers().m_nEveryUnit, -1);
}
