#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <memory>
#include <random>
#include <vector>

#include "core/launch/LaunchClaim.h"
#include "core/launch/SchedulingPass.h"
#include "core/task/SCVShchedulerTaskArray.h"
#include "tests/soak/ExpectedRuns.h"
#include "tests/soak/SoakMachine.h"
#include "tests/support/FakeClock.h"
#include "tests/support/FakeShell.h"
#include "ui/model/PassRecord.h"

// Plays a day of schedule in minutes: many tasks with mixed rules, tick by tick of a clock that the test
// sets, across a clock change. Files, registry and launches fail at random, and the user saves, reloads and
// kills the program at random. Each task must run exactly once at each instant of ExpectedRun, and the list
// must be intact after each fault.
//
// SCV_SOAK=whole plays all of it, natively with each tick and on Windows with every tenth one; otherwise a
// tenth of the tasks is played with every tenth tick. SCV_SOAK_SEED=N plays another day than the usual one.
// The zone must be Europe/Berlin (on Windows by TZ when the program starts).

namespace {

class Soak : public testing::Test {
protected:
    struct Task {
        Rules rules;  // the last run as the program knows it
        bool isEnabled;
        std::wstring project;
        std::int64_t saved = rules.last;  // the last run as the file knows it
    };

    unsigned Below(unsigned limit) { return std::uniform_int_distribution<unsigned>(0, limit - 1)(m_random); }
    bool OneIn(unsigned times) { return Below(times) == 0; }

    void AddTask() {
        Rules rules;
        rules.start = OneIn(4) ? m_now + Below(kDay) : m_now - Below(20 * kDay);
        rules.last = OneIn(8) ? 0 : m_now - Below((OneIn(4) ? 35 : 2) * kDay);
        rules.days = OneIn(4) ? 0 : Below(128);
        rules.monthly = OneIn(4);
        rules.isEvery = OneIn(2);
        rules.unit = static_cast<std::int32_t>(Below(2));
        rules.every = static_cast<std::int32_t>(rules.unit == 1 ? 1 + Below(3) : 10 + Below(60));
        rules.until = m_now + 12 * kHour + Below(10 * kHour);
        m_tasks.push_back(
            {rules, m_tasks.size() % 16 > 0, L"C:\\" + std::to_wstring(m_tasks.size()) + L".scvpr"});
        const std::wstring& project = m_tasks.back().project;
        CSCVShchedulerTask& task = *(*m_array)[m_array->AddTask(project, m_now)];
        SetRules(task, rules);
        task.m_bEnable = m_tasks.back().isEnabled ? 1 : 0;
        if (OneIn(10)) {
            (OneIn(2) ? m_shell.missing : m_shell.held).insert(project);
        }
    }

    // Checks that the file's list is intact. The runs of now must be in it; with `perhaps` each of them may
    // also be missing. `holdsAll`: runs that were not saved before must be in it too.
    void CheckFile(bool holdsAll, bool perhaps) {
        m_machine.Repair();
        std::string bytes;
        ASSERT_EQ(m_machine.files.Read(m_machine.list + L".tmp", bytes), IFileSystem::Status::Missing);
        CSCVShchedulerTaskArray list;
        ASSERT_EQ(list.Load(m_machine.files, m_machine.list), 1);
        ASSERT_EQ(list.GetSize(), std::ssize(m_tasks));
        for (std::ptrdiff_t i = 0; Task & task : m_tasks) {
            ASSERT_EQ(list[i]->m_strProjectPath, task.project);
            const std::int64_t last = list[i++]->m_tLastRunTime;
            const bool isNew = holdsAll || task.rules.last == m_now;
            ASSERT_TRUE(last == (isNew ? task.rules.last : task.saved) || (perhaps && last == task.saved))
                << task.project << " ran at " << task.rules.last << ", the file says " << last;
            task.saved = last;
        }
    }

    void Save() {
        const bool isSaved{m_array->TrySave(m_machine.files, m_machine.list)};
        ASSERT_TRUE(isSaved || m_isBroken);
        if (isSaved) {
            m_record.Clear();
        }
        CheckFile(isSaved, false);
    }

    void Load() {
        m_machine.Repair();
        ASSERT_EQ(m_array->Load(m_machine.files, m_machine.list), 1);
        m_record.ApplyTo(*m_array);
    }

    // Forgets the runs that are not in the file.
    void KillAndStart() {
        m_array = std::make_unique<CSCVShchedulerTaskArray>();
        m_record.Clear();
        for (Task& task : m_tasks) {
            m_forgotten += task.rules.last != task.saved;
            task.rules.last = task.saved;
        }
        Load();
    }

    void Pass() {
        const std::wstring program = OneIn(16) ? L"" : L"C:\\scrivane.exe";
        m_shell.programs[L"Software\\Talvernick\\Scrivane"] = program;
        m_shell.answer = OneIn(16) ? 2 : 33;
        m_shell.starts.clear();
        std::vector<FakeShell::Start> starts;
        std::vector<std::wstring> due;
        std::vector<std::wstring> run;
        for (Task& task : m_tasks) {
            const auto next = ExpectedRun(task.rules, m_now);
            if (!task.isEnabled || !next || *next > m_now) {
                continue;
            }
            task.rules.last = m_now;
            std::wstring result = L"Failure to run '" + program + L"'";
            if (m_shell.missing.contains(task.project)) {
                result = L"Failure: File does not exist";
            } else if (m_shell.held.contains(task.project)) {
                result = L"Failure: File is already opened";
            } else if (!program.empty()) {
                starts.push_back({program, L'"' + task.project + L'"'});
                result = m_shell.answer > 32 ? L"Success" : result;
            }
            m_failedLaunches += result != L"Success";
            due.push_back(task.project + result);
        }
        CLaunchClaim claim(m_machine.files, m_machine.list);
        RunSchedulingPass(*m_array, {m_clock, m_machine.files, m_shell}, claim, [&](const PassRun& made) {
            m_record.Add(*m_array, made.task);
            run.push_back(made.task.m_strProjectPath + made.task.m_strLastRunResult);
            EXPECT_EQ(made.task.m_tLastRunTime, m_now);
            EXPECT_EQ(made.isStarted, made.task.m_strLastRunResult == L"Success");
            return true;
        });
        ASSERT_EQ(run, due);
        ASSERT_EQ(m_shell.starts, starts);
        m_launches += static_cast<int>(due.size());
        if (!due.empty()) {
            CheckFile(false, m_isBroken);
        }
    }

    // With the same result for all tasks: its apostrophes double with every load and save.
    std::size_t UseOnceLoaded() {
        for (std::ptrdiff_t i = 0; i < m_array->GetSize(); ++i) {
            (*m_array)[i]->m_strLastRunResult = L"Success";
        }
        m_machine.Repair();
        Save();
        KillAndStart();
        return SoakMachine::Use();
    }

    void Play(std::int64_t change) {
        const bool isWhole = std::getenv("SCV_SOAK") != nullptr;
        if (const char* const seed = std::getenv("SCV_SOAK_SEED")) {
            m_random.seed(static_cast<unsigned>(std::atol(seed)));
        }
        const unsigned tick = isWhole ? SoakMachine::kTick : 20;
        const std::int64_t end = change + 23 * kHour;
        m_now = end - kDay;
        for (int i = 0; i < (isWhole ? 500 : 50); ++i) {
            AddTask();
        }
        ASSERT_TRUE(m_array->TrySave(m_machine.files, m_machine.list));
        std::size_t use = 0;
        for (; m_now < end && !HasFatalFailure(); m_now += tick) {
            m_clock.now = m_now;
            m_machine.Repair();
            m_isBroken = OneIn(3);
            if (m_isBroken) {
                m_machine.Break(static_cast<int>(1 + Below(12)));
            }
            if (OneIn(1000 / tick)) {
                Save();
            } else if (OneIn(3000 / tick)) {
                Load();
            } else if (OneIn(3000 / tick)) {
                KillAndStart();
            }
            Pass();
            if (end - m_now == 20 * kHour) {  // caches are full by now
                use = UseOnceLoaded();
            }
        }
        EXPECT_LE(UseOnceLoaded(), use + 16);
        // Every expected run has happened.
        EXPECT_GT(m_launches, std::ssize(m_tasks));
        EXPECT_GT(m_failedLaunches, m_launches / 20);
        EXPECT_GT(m_forgotten, 0);
        std::cout << m_launches << " launches, " << m_failedLaunches << " failed, " << m_forgotten
                  << " forgotten; played to " << m_now << '\n';
    }

    SoakMachine m_machine;
    std::mt19937 m_random;
    FakeShell m_shell;
    FakeClock m_clock;
    std::int64_t m_now = 0;
    std::unique_ptr<CSCVShchedulerTaskArray> m_array = std::make_unique<CSCVShchedulerTaskArray>();
    CPassRecord m_record;
    std::vector<Task> m_tasks;
    bool m_isBroken = false;
    int m_launches = 0, m_failedLaunches = 0, m_forgotten = 0;
};

TEST_F(Soak, ADayOverTheSpringChange) {
    Play(kSpring);
}

TEST_F(Soak, ADayOverTheAutumnChange) {
    Play(kAutumn);
}

}  // namespace
