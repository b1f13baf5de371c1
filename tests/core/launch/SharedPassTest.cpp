// Several schedulers run one list.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "core/launch/LaunchClaim.h"
#include "core/launch/ListKeeper.h"
#include "core/launch/SchedulingPass.h"
#include "core/task/SCVShchedulerTaskArray.h"
#include "tests/support/FakeClock.h"
#include "tests/support/FakeFileSystem.h"
#include "tests/support/FakeShell.h"

namespace {

using Status = FileResult::Status;

const std::wstring kList = L"C:\\list.ini";

class SharedPass : public testing::Test {
protected:
    // A program that has the list in memory.
    struct Scheduler {
        explicit Scheduler(SharedPass& test) : machine(test), claim(test.files, kList) {
            tasks.Load(machine.files, kList);
        }
        FileResult Pass() {
            return RunSchedulingPass(tasks, {machine.clock, machine.files, machine.shell}, claim,
                                     [](const PassRun&) { return true; });
        }
        SharedPass& machine;
        CLaunchClaim claim;
        CSCVShchedulerTaskArray tasks;
    };

    void SetUp() override {
        CSCVShchedulerTaskArray tasks;
        tasks.AddTask(L"C:\\a.scvpr", clock.now);
        tasks.AddTask(L"C:\\it's.scvpr", clock.now);
        ASSERT_TRUE(tasks.TrySave(files, kList));
        clock.now += 300;
    }
    [[nodiscard]] std::size_t Starts() const { return shell.starts.size(); }
    void SaveElsewhere(const std::string& letters) {
        files.Remove(kList);
        CSCVShchedulerTaskArray saved;
        for (const char letter : letters) {
            saved.AddTask(static_cast<wchar_t>(letter) + std::wstring(L".scvpr"), clock.now);
        }
        EXPECT_TRUE(letters.empty() || saved.TrySave(files, kList));
    }
    [[nodiscard]] std::string Listed() {
        std::string letters;
        const Scheduler reader(*this);
        for (std::ptrdiff_t i = 0; i < reader.tasks.GetSize(); ++i) {
            letters += static_cast<char>(reader.tasks[i]->m_strProjectPath.front());
            letters += reader.tasks[i]->m_tLastRunTime == clock.now ? "!" : "";
        }
        return letters;
    }

    FakeClock clock{1'000'000};
    CFakeFileSystem files;
    FakeShell shell;
};

TEST_F(SharedPass, TakesOverWhatAnotherHasRun) {
    Scheduler first(*this);
    Scheduler second(*this);
    EXPECT_TRUE(first.Pass());
    clock.now += 2;
    EXPECT_TRUE(second.Pass());
    EXPECT_EQ(Starts(), 2U) << "each project once";
    EXPECT_EQ(second.tasks[0]->m_tLastRunTime, clock.now - 2);
    EXPECT_EQ(second.tasks[0]->m_strLastRunResult, L"Success");
    second.tasks[0]->m_tLastRunTime = 0;  // the user's reset
    EXPECT_TRUE(second.Pass());
    EXPECT_EQ(Starts(), 3U) << "nobody has run it since";
    first.tasks[1]->m_bRepeatOnMonthly = 1;  // accepted in a program that does not know of that run yet
    EXPECT_TRUE(first.tasks.TrySave(files, kList));
    EXPECT_EQ(first.tasks[0]->m_tLastRunTime, clock.now);
    EXPECT_EQ(Scheduler(*this).tasks[0]->m_tLastRunTime, clock.now) << "a save writes no older run";
}

TEST_F(SharedPass, LeavesWhatIsClaimedToTheNextPass) {
    Scheduler first(*this);
    Scheduler second(*this);
    shell.whileOpening = [&] { EXPECT_EQ(second.Pass(), Status::Busy); };
    EXPECT_TRUE(first.Pass());
    EXPECT_EQ(Starts(), 2U);
    EXPECT_FALSE(first.claim.IsTaken());
    shell.whileOpening = [] {};
    files.FailCalls(files.Calls() + 1, files.Calls() + 3);
    first.tasks[0]->m_tLastRunTime = 0;
    EXPECT_TRUE(first.Pass());
    EXPECT_EQ(Starts(), 3U) << "what nobody can claim is launched all the same";
}

TEST_F(SharedPass, FindsItsTasksInARenumberedList) {
    Scheduler first(*this);
    Scheduler second(*this);
    EXPECT_TRUE(first.Pass());
    first.tasks.RemoveTaskAt(0);
    EXPECT_TRUE(first.tasks.TrySave(files, kList));
    EXPECT_TRUE(second.Pass());
    EXPECT_EQ(second.tasks[1]->m_strIniSection, L"SCVShchedulerTask1");
    EXPECT_EQ(second.tasks[1]->m_tLastRunTime, clock.now) << "apostrophes have doubled meanwhile";
    EXPECT_EQ(Starts(), 3U) << "only what the other has removed";
    EXPECT_EQ(Scheduler(*this).tasks.FindTask(L"C:\\a.scvpr"), -1) << "nor written over what is there now";
}

// Each letter is a project, "!" behind it its run.
TEST_F(SharedPass, ARunIsSavedToItsOwnProject) {
    const struct {
        const char* label;
        std::string listed;
        std::ptrdiff_t due;
        std::string meanwhile, saved;  // the list that another program saves while the project is launched
        bool isClaimKept;
    } cases[] = {
        {"one before it is gone", "ab", 1, "b", "b!", false},
        {"it is behind another", "ab", 0, "ba", "ba!", false},
        {"it is gone", "ab", 0, "b", "b", false},
        {"the second of two equal ones", "aba", 2, "aa", "aa!", false},
        {"the second one is gone", "aba", 2, "ab", "ab", false},
        {"the list is gone", "ab", 0, "", "", true},
    };
    for (const auto& item : cases) {
        SCOPED_TRACE(item.label);
        SaveElsewhere(item.listed);
        Scheduler first(*this);
        for (std::ptrdiff_t i = 0; i < first.tasks.GetSize(); ++i) {
            first.tasks[i]->m_bEnable = i == item.due ? 1 : 0;
        }
        shell.whileOpening = [&] { SaveElsewhere(item.meanwhile); };
        clock.now += 300;
        EXPECT_TRUE(first.Pass());
        EXPECT_EQ(Listed(), item.saved);
        EXPECT_EQ(first.claim.IsTaken(), item.isClaimKept);
        if (item.isClaimKept) {
            SaveElsewhere("b" + item.listed);
            first.tasks.SaveUnsavedRuns(files);
            EXPECT_EQ(Listed(), "ba!b") << "once the list is back";
        }
    }
}

TEST_F(SharedPass, HeldListIsRunWhileNobodyChangesIt) {
    files.ForbidWaiting();
    Scheduler first(*this);
    Scheduler second(*this);
    files.Hold(kList, CFakeFileSystem::kForever);
    EXPECT_TRUE(first.Pass());
    EXPECT_EQ(Starts(), 2U) << "it is the list that was read";
    EXPECT_EQ(second.Pass(), Status::Busy) << "the runs of the first are in no file yet";
    files.Hold(kList, 0);
    EXPECT_TRUE(first.tasks.TrySave(files, kList));
    files.Hold(kList, CFakeFileSystem::kForever);
    EXPECT_TRUE(first.Pass()) << "which releases the claim";
    EXPECT_EQ(second.Pass(), Status::Busy) << "what it read is not what the file holds now";
    files.Hold(kList, 0);
    EXPECT_TRUE(second.Pass());
    EXPECT_EQ(Starts(), 2U);
    EXPECT_EQ(files.PausedMilliseconds(), 0U);
}

TEST_F(SharedPass, RunOfAnUnsavedTaskKeepsNoClaim) {
    Scheduler first(*this);
    first.tasks.RemoveAllTasks();
    first.tasks.AddTask(L"C:\\new.scvpr", clock.now - 300);
    EXPECT_TRUE(first.Pass());
    EXPECT_EQ(Starts(), 1U);
    EXPECT_FALSE(first.claim.IsTaken());
}

TEST_F(SharedPass, ALinkAndItsTargetAreOneList) {
    const std::wstring alias = L"D:\\link.ini";
    files.PutLink(alias, kList);
    CLaunchClaim claim(files, kList);
    CLaunchClaim claimByAlias(files, alias);
    EXPECT_TRUE(claim.TryTake());
    EXPECT_TRUE(claim.TryTake()) << "its own";
    EXPECT_EQ(claimByAlias.TryTake(), Status::Busy);
    for (const auto& [kept, asked] : {std::pair(kList, alias), std::pair(alias, kList)}) {
        CListKeeper keeper(files, kept, CListKeeper::Kind::Window);
        EXPECT_TRUE(keeper.TryKeep());
        EXPECT_TRUE(CListKeeper::IsKept(files, asked, CListKeeper::Kind::Window))
            << testing::PrintToString(asked);
        EXPECT_FALSE(CListKeeper::IsKept(files, asked, CListKeeper::Kind::Watch));
    }
}

}  // namespace
