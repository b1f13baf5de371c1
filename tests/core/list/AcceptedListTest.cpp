#include "core/list/AcceptedList.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/FakeFileSystem.h"

namespace {

const std::wstring kList = L"C:\\list.ini";

class AcceptedList : public testing::Test {
protected:
    AcceptedList() {
        files.ForbidWaiting();
        for (const wchar_t* project : {L"C:\\a.scvpr", L"C:\\b.scvpr", L"C:\\c.scvpr"}) {
            tasks.AddTask(project, 0);
        }
    }
    [[nodiscard]] std::wstring Saved() {
        CSCVShchedulerTaskArray saved;
        saved.Load(files, kList);
        std::wstring projects;
        for (std::ptrdiff_t i = 0; i < saved.GetSize(); ++i) {
            projects += saved[i]->m_strProjectPath.substr(3, 1);
        }
        return projects;
    }

    CFakeFileSystem files;
    CSCVShchedulerTaskArray tasks;
    CAcceptedList accepted{files, kList};
};

TEST_F(AcceptedList, KeepsWhatWasAcceptedUntilItIsSaved) {
    ASSERT_TRUE(accepted.Save(tasks));
    EXPECT_EQ(accepted.Pending(), nullptr);
    files.Hold(kList, CFakeFileSystem::kForever);
    tasks.RemoveTaskAt(0);
    EXPECT_EQ(accepted.Save(tasks), FileResult::Status::Busy);
    ASSERT_NE(accepted.Pending(), nullptr);
    tasks.RemoveTaskAt(0);  // not accepted
    tasks.AddTask(L"C:\\d.scvpr", 0);
    files.Hold(kList, 0);
    EXPECT_TRUE(accepted.OnTick(tasks));
    EXPECT_EQ(Saved(), L"bc");
    EXPECT_EQ(tasks[0]->m_strIniSection, L"SCVShchedulerTask2") << "where the file has it now";
    EXPECT_EQ(tasks[1]->m_strIniSection, L"") << "not in the file";
    EXPECT_EQ(accepted.Pending(), nullptr);
}

TEST_F(AcceptedList, LaterListTakesTheEarlierOnesPlace) {
    files.Hold(kList, CFakeFileSystem::kForever);
    EXPECT_FALSE(accepted.Save(tasks));
    tasks.RemoveTaskAt(1);
    EXPECT_FALSE(accepted.Save(tasks));
    files.Hold(kList, 0);
    EXPECT_TRUE(accepted.OnTick(tasks));
    EXPECT_EQ(Saved(), L"ac");
}

TEST_F(AcceptedList, TriesOnceATickAndRestsInBetween) {
    files.Hold(kList, CFakeFileSystem::kForever);
    EXPECT_FALSE(accepted.Save(tasks));
    std::string tries;
    for (int tick = 0; tick < 7; ++tick) {
        const int before = files.Calls();
        EXPECT_FALSE(accepted.OnTick(tasks));
        tries += files.Calls() > before ? '+' : '-';
    }
    EXPECT_EQ(tries, "+-+-+-+");
    EXPECT_EQ(files.PausedMilliseconds(), 0U) << "it never waits";
    files.Hold(kList, 0);
    EXPECT_FALSE(accepted.OnTick(tasks));
    EXPECT_TRUE(accepted.OnTick(tasks)) << "within two ticks";
}

}  // namespace
