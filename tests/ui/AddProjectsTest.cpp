#include "ui/AddProjects.h"

#include <gtest/gtest.h>

#include "core/SCVShchedulerTaskArray.h"

TEST(AddProjects, AddsWhatIsNotListedAndNamesTheLastPath) {
    constexpr std::int64_t kNow = 1'700'000'000;
    CSCVShchedulerTaskArray tasks;
    EXPECT_FALSE(AddProjects(tasks, {}, kNow).isFirstOfList);
    EXPECT_TRUE(AddProjects(tasks, {L"C:\\a.scvpr"}, kNow).isFirstOfList);
    tasks[0]->m_bStart = 0;
    const stAddedProjects added = AddProjects(tasks, {L"C:\\c.oslpr", L"C:\\A.SCVPR"}, kNow);
    EXPECT_FALSE(added.isFirstOfList);
    EXPECT_EQ(added.selectPath, L"C:\\A.SCVPR") << "as it was chosen, though listed";
    ASSERT_EQ(tasks.GetSize(), 2);
    EXPECT_EQ(tasks[0]->m_bStart, 0) << "a listed project keeps its settings";
    EXPECT_EQ(tasks[1]->BuildCommandLine(), L"\"C:\\c.oslpr\" -dt -dr -s -qe -ex");
    EXPECT_EQ(tasks[1]->m_tStartTime, kNow + 300);

    for (const wchar_t* path : {L"C:\\A.SCVPR", L"C:\\x.y\\a.b.ScvPr"}) {
        EXPECT_TRUE(AcceptsDrop(path)) << path;
    }
    for (const wchar_t* path : {L"", L"C:\\c.oslpr", L"C:\\scvpr", L"C:\\a.scvpr\\b", L"a.scvpr2"}) {
        EXPECT_FALSE(AcceptsDrop(path)) << path;
    }
}
