#include "core/launch/SchedulingPass.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <stdexcept>

#include "core/launch/LaunchClaim.h"
#include "core/platform/LocalTime.h"
#include "core/task/SCVShchedulerTaskArray.h"
#include "tests/support/FakeClock.h"
#include "tests/support/FakeFileSystem.h"
#include "tests/support/FakeShell.h"
#include "tests/support/LocalZone.h"
#include "tests/support/TaskRules.h"

// Which tasks are launched and saved, and when, the soak sees.
TEST(SchedulingPass, ReportsEachRunUntilItIsEnded) {
    constexpr wchar_t kList[] = L"C:\\list.ini";
    CFakeFileSystem files;
    FakeShell shell;
    FakeClock clock(1'000'000);
    CSCVShchedulerTaskArray tasks;
    for (const wchar_t* project : {L"C:\\a.scvpr", L"C:\\b.scvpr", L"C:\\c.scvpr", L"C:\\d.scvpr"}) {
        tasks.AddTask(project, clock.now);
    }
    ASSERT_TRUE(tasks.TrySave(files, kList));
    clock.now += 300;
    shell.missing = {L"C:\\b.scvpr"};
    const struct {
        const wchar_t* label;
        bool isStarted, isSaved;
    } expected[] = {
        {L"a: fine", true, true}, {L"b: no project", false, true}, {L"c: list held", true, false}};
    std::size_t count = 0;
    CLaunchClaim claim(files, kList);
    RunSchedulingPass(tasks, {clock, files, shell}, claim, [&](const PassRun& run) {
        EXPECT_EQ(run.isStarted, expected[count].isStarted) << expected[count].label;
        EXPECT_EQ(run.isSaved, expected[count].isSaved) << expected[count].label;
        files.Hold(kList, count == 1 ? CFakeFileSystem::kForever : 0);
        return ++count < 3;
    });
    EXPECT_EQ(count, 3U) << "the last project is left to the next pass";
    EXPECT_EQ(tasks[3]->m_tLastRunTime, 0);
}

TEST(SchedulingPass, StopsAtAnImpossibleDate) {
    const auto june = [](int day, int hour) { return FromLocalTime(2026, 6, day, hour, 0, 0); };
    CSCVShchedulerTaskArray tasks;
    for (const wchar_t* project : {L"C:\\a.scvpr", L"C:\\bad.scvpr", L"C:\\c.scvpr"}) {
        SetRules(*tasks[tasks.AddTask(project, 0)],
                 {.start = june(1, 9), .last = june(7, 9), .days = kDaily});
    }
    tasks[1]->m_tStartTime = INT64_MIN;
    CFakeFileSystem files;
    FakeShell shell;
    FakeClock clock(june(15, 9));
    const CPlatform platform{clock, files, shell};
    CLaunchClaim claim(files, L"C:\\list.ini");
    std::string message;
    try {
        RunSchedulingPass(tasks, platform, claim, [](const auto&) { return true; });
    } catch (const std::invalid_argument& error) {
        message = error.what();
    }
    EXPECT_EQ(message,
              "The project C:\\bad.scvpr has an impossible start time. Untick it, delete it, or set a new "
              "start.");
    EXPECT_EQ(shell.starts.size(), 1U) << "the one before it";
    // A repaint may run code that changes the list.
    tasks.RemoveTaskAt(1);
    clock.now = june(17, 9);
    RunSchedulingPass(tasks, platform, claim, [&](const auto&) {
        tasks.RemoveAllTasks();
        return true;
    });
    EXPECT_EQ(shell.starts.size(), 2U);
}

#ifndef _WIN32
TEST(SchedulingPass, FollowsAChangeOfTheTimeZone) {
    const CLocalZone zone("America/New_York");
    CSCVShchedulerTaskArray tasks;
    SetRules(*tasks[tasks.AddTask(L"C:\\a.scvpr", 0)], {.start = FromLocalTime(2026, 6, 8, 9, 0, 0),
                                                        .last = FromLocalTime(2026, 6, 8, 9, 0, 0),
                                                        .days = kTue});
    CFakeFileSystem files;
    FakeShell shell;
    FakeClock clock(FromLocalTime(2026, 6, 9, 9, 30, 0));
    CLaunchClaim claim(files, L"C:\\list.ini");
    const auto pass = [&] {
        (void)RunSchedulingPass(tasks, {clock, files, shell}, claim, [](const auto&) { return true; });
        return shell.starts.size();
    };
    // The last run, Monday 9:00 in New York, was on Tuesday 1:00 in Auckland, which has a week to go.
    setenv("TZ", "Pacific/Auckland", 1);
    EXPECT_EQ(pass(), 0U) << "in Auckland";
    setenv("TZ", "America/New_York", 1);
    EXPECT_EQ(pass(), 1U) << "back in New York, Tuesday 9:30";
}
#endif
