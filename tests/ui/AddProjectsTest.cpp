#include "ui/AddProjects.h"

#include <gtest/gtest.h>

#include "core/SCVShchedulerTaskArray.h"

namespace {

TEST(AddProjects, AddsWhatIsNotListedAndNamesTheLastPath) {
    constexpr std::int64_t kNow = 1'700'000'000;
    CSCVShchedulerTaskArray tasks;
    EXPECT_FALSE(AddProjects(tasks, {}, kNow).isFirstOfList);
    EXPECT_EQ(tasks.GetSize(), 0);

    stAddedProjects added = AddProjects(tasks, {L"C:\\a.scvpr"}, kNow);
    EXPECT_TRUE(added.isFirstOfList);
    tasks[0]->m_bStart = 0;

    added = AddProjects(tasks, {L"C:\\b.scvpr", L"C:\\c.oslpr", L"C:\\A.SCVPR"}, kNow);
    EXPECT_FALSE(added.isFirstOfList);
    EXPECT_EQ(added.selectPath, L"C:\\A.SCVPR") << "as it was chosen, though listed";
    ASSERT_EQ(tasks.GetSize(), 3);
    EXPECT_EQ(tasks[0]->m_bStart, 0) << "a listed project keeps its settings";
    EXPECT_EQ(tasks[2]->BuildCommandLine(), [] {
        CSCVShchedulerTask task;
        task.m_strProjectPath = L"C:\\c.oslpr";
        task.m_bDeleteUrls = task.m_bDeleteResults = task.m_bStart = task.m_bExportResults = task.m_bExit = 1;
        return task.BuildCommandLine();
    }());
    EXPECT_EQ(tasks[2]->m_tStartTime, kNow + 300);
}

TEST(AddProjects, DropTakesProjectsOfTheMainProgramOnly) {
    for (const wchar_t* path : {L"C:\\A.SCVPR", L"a.scvpr", L"C:\\x.y\\a.b.ScvPr"}) {
        EXPECT_TRUE(AcceptsDrop(path)) << path;
    }
    for (const wchar_t* path :
         {L"", L"C:\\b.txt", L"C:\\c.oslpr", L"C:\\scvpr", L"C:\\a.scvpr\\b", L"a.scvpr2"}) {
        EXPECT_FALSE(AcceptsDrop(path)) << path;
    }
}

}  // namespace
