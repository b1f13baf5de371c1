#include "core/SchedulingPass.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "core/LocalTime.h"
#include "core/SCVShchedulerTaskArray.h"
#include "tests/support/FakeClock.h"
#include "tests/support/FakeFileSystem.h"
#include "tests/support/FakeShell.h"
#include "tests/support/TaskRules.h"

namespace {

// Monday 8 June 2026, 09:00 local.
std::int64_t June(int day, int hour, int minute = 0) {
    return FromLocalTime(2026, 6, day, hour, minute, 0);
}

class SchedulingPass : public testing::Test {
protected:
    CSCVShchedulerTask& Add(const std::wstring& name, const Rules& rules) {
        CSCVShchedulerTask& task = *m_tasks[m_tasks.AddTask(L"C:\\" + name + L".scvpr", June(1, 0))];
        SetRules(task, rules);
        task.m_strIniFile = L"C:\\list.ini";
        task.m_strIniSection = name;
        return task;
    }

    // Names of the tasks launched, in order.
    std::wstring Pass(std::int64_t now) {
        m_clock.now = now;
        m_repainted.clear();
        RunSchedulingPass(m_tasks, {m_clock, m_files, m_shell}, [&](const CSCVShchedulerTask& task) {
            m_repainted += task.m_strIniSection + L" ";
        });
        return m_repainted;
    }

    [[nodiscard]] bool IsSaved(const std::string& name) const {
        return m_files.Has(L"C:\\list.ini") &&
               m_files.Bytes(L"C:\\list.ini").find("[" + name + "]") != std::string::npos;
    }

    CSCVShchedulerTaskArray m_tasks;
    FakeClock m_clock;
    CFakeFileSystem m_files;
    FakeShell m_shell;
    std::wstring m_repainted;
};

TEST_F(SchedulingPass, LaunchesAndSavesWhatIsDueInOrder) {
    const std::int64_t now = June(8, 9);
    Add(L"weekly", {.start = June(1, 9), .last = June(1, 9), .days = kMon});  // due at this very second
    Add(L"disabled", {.start = June(1, 9)}).m_bEnable = 0;
    Add(L"done", {.start = June(1, 9), .last = June(1, 9)});
    Add(L"later", {.start = now + 1});
    Add(L"first", {.start = now});
    EXPECT_EQ(Pass(now), L"weekly first ");
    ASSERT_EQ(m_shell.starts.size(), 2U);
    EXPECT_NE(m_shell.starts[0].parameters.find(L"C:\\weekly.scvpr"), std::wstring::npos);
    EXPECT_EQ(m_files.Replacements(), 2);
    EXPECT_TRUE(IsSaved("weekly"));
    EXPECT_TRUE(IsSaved("first"));
    EXPECT_FALSE(IsSaved("later"));
    EXPECT_EQ(m_tasks[0]->m_tLastRunTime, now);
    EXPECT_EQ(Pass(now + 2), L"later ");
    EXPECT_EQ(Pass(now + 4), L"");
    EXPECT_EQ(m_files.Replacements(), 3);  // nothing is written for a pass that launches nothing
}

TEST_F(SchedulingPass, AFailedLaunchIsRecordedAndSaved) {
    m_shell.answer = 2;
    Add(L"failed", {.start = June(8, 9)});
    Add(L"next", {.start = June(8, 9)});
    EXPECT_EQ(Pass(June(8, 9)), L"failed next ");
    EXPECT_EQ(m_tasks[0]->m_tLastRunTime, June(8, 9));
    EXPECT_FALSE(m_tasks[0]->m_strLastRunResult.empty());
    EXPECT_TRUE(IsSaved("failed"));
    EXPECT_EQ(Pass(June(8, 10)), L"");
}

TEST_F(SchedulingPass, ATaskThatWasNeverSavedIsLaunchedAndWritesNothing) {
    CSCVShchedulerTask& task = Add(L"new", {.start = June(8, 9)});
    task.m_strIniFile.clear();
    task.m_strIniSection.clear();
    Pass(June(8, 9));
    EXPECT_EQ(m_shell.starts.size(), 1U);
    EXPECT_EQ(task.m_tLastRunTime, June(8, 9));
    EXPECT_EQ(m_files.FileCount(), 0U);
    EXPECT_EQ(task.m_strIniFile, L"");
}

TEST_F(SchedulingPass, AnImpossibleDateEndsThePassAfterTheTasksBeforeIt) {
    Add(L"before", {.start = June(8, 9)});
    Add(L"impossible", {.start = INT64_MIN, .last = June(1, 9), .days = kMon});
    Add(L"after", {.start = June(8, 9)});
    EXPECT_THROW(Pass(June(8, 9)), std::invalid_argument);
    EXPECT_EQ(m_shell.starts.size(), 1U);
    EXPECT_TRUE(IsSaved("before"));
}

TEST_F(SchedulingPass, TheCountIsReadAgainAfterEachTask) {
    Add(L"one", {.start = June(8, 9)});
    Add(L"two", {.start = June(8, 9)});
    m_clock.now = June(8, 9);
    RunSchedulingPass(m_tasks, {m_clock, m_files, m_shell},
                      [&](const CSCVShchedulerTask&) { m_tasks.RemoveAllTasks(); });
    EXPECT_EQ(m_shell.starts.size(), 1U);
}

TEST_F(SchedulingPass, AWeekSwitchedOffIsCaughtUpWithOneRunOfEach) {
    Add(L"daily", {.start = June(1, 9), .last = June(8, 9), .days = kDaily});
    Add(L"every",
        {.start = June(1, 9), .last = June(8, 9), .isEvery = true, .every = 15, .until = June(1, 23, 59)});
    Add(L"monthly", {.start = FromLocalTime(2026, 4, 1, 9, 0, 0),
                     .last = FromLocalTime(2026, 4, 2, 9, 0, 0),
                     .monthly = true});
    EXPECT_EQ(Pass(June(15, 10)), L"daily every monthly ");
    EXPECT_EQ(Pass(June(15, 10) + 2), L"");
    EXPECT_EQ(Pass(June(15, 10, 15)), L"every ");
}

TEST_F(SchedulingPass, AClockSetBackDoesNotRepeatARun) {
    Add(L"once", {.start = June(8, 9)});
    Add(L"daily", {.start = June(1, 9), .last = June(7, 9), .days = kDaily});
    Add(L"every", {.start = June(1, 9),
                   .last = June(8, 8, 30),
                   .isEvery = true,
                   .every = 30,
                   .until = June(1, 23, 59)});
    EXPECT_EQ(Pass(June(8, 9)), L"once daily every ");
    for (int minute = 0; minute < 90; ++minute) {
        EXPECT_EQ(Pass(June(8, 8, 0) + minute * 60), L"") << minute;
    }
    EXPECT_EQ(Pass(June(8, 9, 30)), L"every ");
}

}  // namespace
