#include "cli/Passes.h"

#include <gtest/gtest.h>

#include <sstream>

#include "cli/Commands.h"
#include "cli/ExitCode.h"
#include "core/LocalTime.h"
#include "core/SCVShchedulerTaskArray.h"
#include "tests/support/FakeClock.h"
#include "tests/support/FakeFileSystem.h"
#include "tests/support/FakeShell.h"

namespace {

const std::wstring kList = L"C:\\l.ini";

// A list with one task that is due and one that is not.
class Passes : public testing::Test {
protected:
    Passes() {
        CSCVShchedulerTaskArray tasks;
        tasks.AddTask(L"C:\\due.scvpr", clock.now);
        tasks.AddTask(L"C:\\later.scvpr", clock.now);
        tasks[0]->m_tStartTime = clock.now - 60;
        tasks.Save(files, kList);
    }

    int Run(Command command) {
        Arguments arguments;
        arguments.command = command;
        out.str("");
        err.str("");
        return RunCommand(arguments, context);
    }

    FakeClock clock{FromLocalTime(2024, 6, 3, 10, 0, 0)};
    CFakeFileSystem files;
    FakeShell shell;
    const CPlatform platform{clock, files, shell};
    std::ostringstream out, err;
    std::string whyNot;
    int ticks = 1;
    const Context context{platform,
                          kList,
                          out,
                          err,
                          80,
                          [this] { return whyNot; },
                          [this](unsigned milliseconds) {
                              EXPECT_EQ(milliseconds, 2000U);
                              clock.now += 2;
                              return --ticks == 0;
                          }};
};

TEST_F(Passes, APassLaunchesWhatIsDueOnceAndTellsIt) {
    EXPECT_EQ(Run(Command::Pass), kFine) << err.str();
    EXPECT_EQ(out.str(), "2024-06-03 10:00:00  C:\\due.scvpr  Success\n");
    EXPECT_EQ(Run(Command::Pass), kFine);
    EXPECT_EQ(out.str(), "") << "the first pass is recorded in the list";
    EXPECT_EQ(shell.starts.size(), 1U);
}

TEST_F(Passes, AFailedLaunchIsToldByTheExitCode) {
    shell.missing.insert(L"C:\\due.scvpr");
    EXPECT_EQ(Run(Command::Pass), kFindings);
    EXPECT_NE(out.str().find("Failure: File does not exist"), std::string::npos);
}

TEST_F(Passes, ARunThatCannotBeRecordedIsTold) {
    // The list becomes unwritable between the check before the pass and the save after the launch.
    files.SetCapacity(0);
    EXPECT_EQ(Run(Command::Pass), kFindings);
    EXPECT_NE(err.str().find("could not be saved"), std::string::npos) << err.str();
    files.SetReadOnly(kList);
    EXPECT_EQ(Run(Command::Pass), kFindings);
    EXPECT_NE(err.str().find("read-only"), std::string::npos);
    EXPECT_EQ(shell.starts.size(), 1U) << "nothing is launched from a list that cannot be written";
}

TEST_F(Passes, AWatchGoesOnUntilItIsStopped) {
    ticks = 200;  // the second task is due after 300 seconds
    EXPECT_EQ(Run(Command::Watch), kFine);
    EXPECT_EQ(out.str(),
              "2024-06-03 10:00:00  C:\\due.scvpr  Success\n2024-06-03 10:05:00  C:\\later.scvpr  Success\n");
}

TEST_F(Passes, NothingIsLaunchedWhileSomebodyElseDoes) {
    whyNot = "the window program runs";
    for (const Command command : {Command::Pass, Command::Watch}) {
        EXPECT_EQ(Run(command), kFindings);
        EXPECT_EQ(err.str(), "scvsched: the window program runs\n");
    }
    EXPECT_TRUE(shell.starts.empty());
    EXPECT_EQ(Run(Command::List), kFine) << "looking is allowed";
}

TEST_F(Passes, AListThatIsMissingOrUnreadableIsToldApart) {
    files.Remove(kList);
    EXPECT_EQ(Run(Command::List), kNoList);
    EXPECT_EQ(err.str(), "scvsched: the task list C:\\l.ini does not exist\n");
    files.PutFolder(kList);
    EXPECT_EQ(Run(Command::Check), kNoList);
    EXPECT_EQ(err.str(), "scvsched: the task list C:\\l.ini cannot be read\n");
}

}  // namespace
