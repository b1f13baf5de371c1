#include "core/SchedulingPass.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

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
        std::wstring repainted;
        RunSchedulingPass(m_tasks, {m_clock, m_files, m_shell},
                          [&](const CSCVShchedulerTask& task) { repainted += task.m_strIniSection + L" "; });
        return repainted;
    }

    CSCVShchedulerTaskArray m_tasks;
    FakeClock m_clock;
    CFakeFileSystem m_files;
    FakeShell m_shell;
};

TEST_F(SchedulingPass, LaunchesAndSavesWhatIsDueInOrderWhateverComesOfIt) {
    const std::int64_t now = June(8, 9);
    m_shell.answer = 2;
    Add(L"weekly", {.start = June(1, 9), .last = June(1, 9), .days = kMon});  // due at this very second
    Add(L"disabled", {.start = June(1, 9)}).m_bEnable = 0;
    Add(L"done", {.start = June(1, 9), .last = June(1, 9)});
    Add(L"later", {.start = now + 1});
    Add(L"first", {.start = now});
    Add(L"", {.start = now}).m_strIniFile.clear();  // never saved
    EXPECT_EQ(Pass(now), L"weekly first  ");
    ASSERT_EQ(m_shell.starts.size(), 3U);
    EXPECT_NE(m_shell.starts[0].parameters.find(L"C:\\weekly.scvpr"), std::wstring::npos);
    EXPECT_EQ(m_files.Replacements(), 2);
    const std::string& saved = m_files.Bytes(L"C:\\list.ini");
    EXPECT_TRUE(saved.starts_with("[weekly]") && saved.find("[first]") != std::string::npos) << saved;
    EXPECT_EQ(m_tasks[0]->m_tLastRunTime, now);
    EXPECT_EQ(m_tasks[5]->m_tLastRunTime, now);
    EXPECT_EQ(Pass(now + 2), L"later ");
    EXPECT_EQ(Pass(now + 4), L"");
    EXPECT_EQ(m_files.Replacements(), 3);  // nothing is written for a pass that launches nothing
}

TEST_F(SchedulingPass, AnImpossibleDateEndsThePassAfterTheTasksBeforeIt) {
    Add(L"before", {.start = June(8, 9)});
    Add(L"impossible", {.start = INT64_MIN, .last = June(1, 9), .days = kMon});
    EXPECT_THROW(Pass(June(8, 9)), std::invalid_argument);
    EXPECT_EQ(m_shell.starts.size(), 1U);
    EXPECT_EQ(m_files.Replacements(), 1);
    m_tasks.RemoveTaskAt(1);
    m_tasks[0]->m_tLastRunTime = 0;
    Add(L"gone when it would be its turn", {.start = June(8, 9)});
    RunSchedulingPass(m_tasks, {m_clock, m_files, m_shell},
                      [&](const CSCVShchedulerTask&) { m_tasks.RemoveAllTasks(); });
    EXPECT_EQ(m_shell.starts.size(), 2U);
}

TEST_F(SchedulingPass, AWeekSwitchedOffOrAClockSetBackRepeatsNothing) {
    Add(L"once", {.start = June(8, 9)});
    Add(L"daily", {.start = June(1, 9), .last = June(7, 9), .days = kDaily});
    Add(L"every",
        {.start = June(1, 9), .last = June(8, 8), .isEvery = true, .every = 30, .until = June(1, 23, 59)});
    Add(L"monthly", {.start = June(1, 9), .last = June(2, 9), .monthly = true}).m_tLastRunTime -= 40 * 86400;
    EXPECT_EQ(Pass(June(15, 9)), L"once daily every monthly ");
    for (int minute = -60; minute < 30; ++minute) {
        EXPECT_EQ(Pass(June(15, 9) + minute * 60), L"") << minute;
    }
    EXPECT_EQ(Pass(June(15, 9, 30)), L"every ");
}

}  // namespace
