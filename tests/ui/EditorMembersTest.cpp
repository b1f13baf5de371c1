#include "ui/EditorMembers.h"

#include <gtest/gtest.h>

#include "core/LocalTime.h"

namespace {

TEST(EditorMembers, TakeEveryFieldOfTheTask) {
    CSCVShchedulerTask task;
    std::int32_t flag = 100;
    for (const stFlagControl& control : kFlagControls) {
        task.*control.field = ++flag;
    }
    std::wstring text = L"t";
    for (const stTextControl& control : kTextControls) {
        task.*control.field = text += L't';
    }
    task.m_tStartTime = 5;
    task.m_tUntilTime = 6;
    task.m_nEveryValue = 7;
    task.m_nEveryUnit = 0;

    const stEditorMembers members = EditorMembersOf(&task, 0);
    flag = 100;
    for (const stFlagControl& control : kFlagControls) {
        EXPECT_EQ(members.*control.member, ++flag)
            << control.id << ": a member or a field stands twice in the table";
    }
    text = L"t";
    for (const stTextControl& control : kTextControls) {
        EXPECT_EQ(members.*control.member, text += L't') << control.id;
    }
    EXPECT_EQ(members.m_bExportIntoNewFile, 1);
    EXPECT_EQ(members.m_tStartDate, 5);
    EXPECT_EQ(members.m_tStartTime, 5);
    EXPECT_EQ(members.m_tUntilTime, 6);
    EXPECT_EQ(members.m_nEveryValue, 7);
    EXPECT_EQ(members.m_nEveryUnit, 0);

    // Which box is which field, where the names do not give it away.
    EXPECT_EQ(members.m_bRepeatOnWen, task.m_bRepeatOnWen);
    EXPECT_EQ(members.m_bEnableEvery, task.m_bEnableEvery);
    task.m_strExportFile.clear();
    EXPECT_EQ(EditorMembersOf(&task, 0).m_bExportIntoNewFile, 0);
}

TEST(EditorMembers, NoTaskShowsANewOne) {
    const std::int64_t now = FromLocalTime(2026, 3, 5, 8, 0, 0);
    const stEditorMembers members = EditorMembersOf(nullptr, now);
    EXPECT_EQ(members.m_tStartDate, now + 300);
    EXPECT_EQ(members.m_tStartTime, now + 300);
    EXPECT_EQ(members.m_tUntilTime, FromLocalTime(2026, 3, 5, 23, 59, 59));
    EXPECT_EQ(members.m_nEveryValue, 1);
    EXPECT_EQ(members.m_nEveryUnit, 1);
    EXPECT_EQ(members.m_bStart, 0) << "not the defaults of an added project";
    EXPECT_EQ(stEditorMembers().m_nEveryUnit, -1);
}

}  // namespace
