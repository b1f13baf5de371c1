#include "cli/commands/Passes.h"

#include <nlohmann/json.hpp>

#include "core/task/SCVShchedulerTaskArray.h"
#include "tests/cli/ConsoleRun.h"
#include "util/Utf8.h"

namespace {

// A list with one task that is due and one that is not.
class Passes : public ConsoleRun {
protected:
    Passes() {
        CSCVShchedulerTaskArray tasks;
        tasks.AddTask(L"C:\\due.scvpr", clock.now);
        tasks.AddTask(L"C:\\later.scvpr", clock.now);
        tasks[0]->m_tStartTime = clock.now - 60;
        tasks.Save(files, kList);
    }
};

TEST_F(Passes, PassLaunchesOnceAndWatchContinues) {
    EXPECT_EQ(Run("pass"), kFine) << err.str();
    EXPECT_EQ(out.str(), "2024-06-03 10:00:00  C:\\due.scvpr  Success\n");
    EXPECT_EQ(Run("pass"), kFine);
    EXPECT_EQ(out.str(), "") << "the first pass is recorded in the list";
    EXPECT_EQ(shell.starts.size(), 1U);
    ticks = 200;  // the second task is due after 300 seconds
    EXPECT_EQ(Run("watch"), kFine);
    EXPECT_EQ(out.str(),
              "Watching C:\\l.ini: 2 tasks, the next run is 2024-06-03 10:05:00  C:\\later.scvpr\n"
              "2024-06-03 10:05:00  C:\\later.scvpr  Success\n");
    shell.programs.clear();
    EXPECT_EQ(Run("run C:\\due.scvpr"), kFindings);
    EXPECT_EQ(
        out.str(),
        "2024-06-03 10:06:40  C:\\due.scvpr  Failure to run '' (no program is registered for .scvpr)\n");
    ticks = 200;
    std::unique_ptr<IFileSystem::IFile> window;
    onTick = [&] { window = Lock(L".window"); };
    EXPECT_EQ(Run("watch"), kFindings) << "it gives way to a window that is opened meanwhile";
    EXPECT_EQ(ticks, 199);
}

TEST_F(Passes, JsonIsALineForEachLaunchOfAWatch) {
    ticks = 200;
    EXPECT_EQ(Run("watch --json"), kFine);
    std::istringstream lines(out.str());
    for (const char* project : {"C:\\due.scvpr", "C:\\later.scvpr"}) {
        std::string line;
        std::getline(lines, line);
        EXPECT_EQ(nlohmann::json::parse(line)["task"]["project"], project);
    }
}

TEST_F(Passes, UnwritableOrUsedListsAreNotLaunched) {
    // The list becomes unwritable between the check before the pass and the save after the launch.
    files.SetCapacity(0);
    EXPECT_EQ(Run("pass"), kFindings);
    EXPECT_NE(err.str().find("could not be saved"), std::string::npos) << err.str();
    files.SetReadOnly(kList);
    EXPECT_EQ(Run("pass"), kFindings);
    EXPECT_NE(err.str().find("read-only"), std::string::npos);
    EXPECT_EQ(shell.starts.size(), 1U) << "only the one of a list that seemed writable";
    files.Remove(kList);
    EXPECT_EQ(Run("list"), kNoList);
    EXPECT_EQ(err.str(), "scvsched: the task list C:\\l.ini does not exist\n");
    files.PutFolder(kList);
    EXPECT_EQ(Run("check"), kNoList);
    EXPECT_EQ(err.str(), "scvsched: the task list cannot be read: Access denied: C:\\l.ini\n");
}

TEST_F(Passes, WatchSaysWhatItKeepsAndFollowsTheFile) {
    ticks = 6;
    onTick = [this] {
        if (ticks == 6) {  // another program replaces the list
            const std::string before = files.Bytes(kList);
            std::string fewer = before;
            fewer.replace(fewer.find("TaskCount=2"), 11, "TaskCount=1");
            files.Put(kList, fewer);
        } else if (ticks == 4) {
            files.Remove(kList);
        }
    };
    EXPECT_EQ(Run("watch"), kFine);
    EXPECT_EQ(out.str(),
              "Watching C:\\l.ini: 2 tasks, the next run is 2024-06-03 10:00:00  C:\\due.scvpr\n"
              "2024-06-03 10:00:00  C:\\due.scvpr  Success\n"
              "Changed: C:\\l.ini: 1 task, none of them has a next run\n");
    EXPECT_EQ(err.str(), "scvsched: the task list C:\\l.ini is gone; nothing is launched until it is back\n");
}

TEST_F(Passes, WatchRemembersRunsItCouldNotSave) {
    files.SetCapacity(0);
    ticks = 3;
    onTick = [this] { files.Put(kList, files.Bytes(kList) + "; touched\n"); };
    EXPECT_EQ(Run("watch"), kFine);
    EXPECT_EQ(shell.starts.size(), 1U) << "read again, the list still says that it never ran";
}

TEST_F(Passes, WatchSavesARunLaterAndFreesTheClaim) {
    files.SetCapacity(0);
    ticks = 4;
    std::string claimed;
    onTick = [&] {
        std::unique_ptr<IFileSystem::IFile> lock;
        claimed += files.CreateLock(kList + L".launch", lock) ? "free " : "taken ";
        if (ticks == 4) {
            files.Put(kList, files.Bytes(kList) + "; touched\n");
        } else if (ticks == 3) {
            files.SetCapacity(CFakeFileSystem::kForever);
        }
    };
    EXPECT_EQ(Run("watch"), kFine);
    EXPECT_EQ(claimed, "taken taken free free ");
    EXPECT_EQ(Run("list due*"), kFine);
    EXPECT_NE(out.str().find("2024-06-03 10:00\t-\tSuccess"), std::string::npos) << out.str();
}

TEST_F(Passes, WatchWaitsForTheClaimOfAPass) {
    auto pass = Lock(L".launch");
    ticks = 3;
    onTick = [&] { pass.reset(); };
    EXPECT_EQ(Run("watch"), kFine);
    EXPECT_EQ(shell.starts.size(), 1U) << err.str();
    EXPECT_NE(err.str().find("what is due is left to the next pass"), std::string::npos) << err.str();
}

TEST_F(Passes, WatchKeepsItsList) {
    ticks = 2;
    onTick = [this] {
        std::unique_ptr<IFileSystem::IFile> lock;
        EXPECT_FALSE(files.CreateLock(kList + L".watch", lock));
    };
    EXPECT_EQ(Run("watch"), kFine);
    (void)Lock(L".watch");
}

TEST_F(Passes, WatchKeepsApostrophesOverItsOwnSaves) {
    ASSERT_EQ(Run("set C:\\due.scvpr --every 1m --until 23:59"), kFine);
    std::string text = files.Bytes(kList);
    text.replace(text.find("due.scvpr"), 9, "d'ue.scvpr");
    files.Put(kList, text);
    ticks = 120;
    EXPECT_EQ(Run("watch"), kFine);
    ASSERT_GE(shell.starts.size(), 3U);
    EXPECT_EQ(shell.starts.back(), shell.starts.front()) << ToUtf8(shell.starts.back().parameters);
}

TEST_F(Passes, WatchStartsTheFailureCommandOnce) {
    shell.missing.insert(L"C:\\due.scvpr");
    failureCommand.refusal = L"Access is denied";
    ticks = 5;
    onTick = [this] {
        if (ticks == 3) {
            failureCommand.failures = {7};
        }
    };
    EXPECT_EQ(Run("watch --on-failure mail.cmd"), kFine);
    EXPECT_EQ(failureCommand.starts,
              (std::vector<std::wstring>{L"mail.cmd|C:\\due.scvpr|Failure: File does not exist"}));
    EXPECT_EQ(err.str(),
              "scvsched: the command of --on-failure could not be started: Access is denied\n"
              "scvsched: the command of --on-failure has ended with code 7\n");
}

}  // namespace
