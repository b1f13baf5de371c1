#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "core/SCVShchedulerTaskArray.h"
#include "core/SchedulingPass.h"
#include "tests/soak/ExpectedRuns.h"
#include "tests/soak/SoakMachine.h"
#include "tests/soak/UnreliablePlatform.h"
#include "tests/support/FakeClock.h"
#include "ui/PassRecord.h"

// A day of schedule in minutes: many tasks with mixed rules, a tick after another of an injected clock, over
// a clock change, while files, registry and launches fail at random and the user saves, reloads, ends and
// kills the program at random. Tasks must run exactly when ExpectedRun says, once, and the list must be whole
// whatever happened.
//
// SCV_SOAK=whole plays all of it, else a tenth; SCV_SOAK_SEED=N another day than the usual one. The zone must
// be Europe/Berlin (on Windows TZ, when the program is started).

namespace {

std::int64_t NumberAfter(std::string_view key, std::string_view text, std::size_t& at) {
    at = text.find(key, at);
    if (at == std::string_view::npos) {
        return -1;
    }
    at += key.size();
    return std::atoll(std::string(text.substr(at, 12)).c_str());
}

class Soak : public testing::Test {
protected:
    struct Task {
        Rules rules;
        bool isEnabled = true;
        std::int64_t last = 0;   // as the program knows it
        std::int64_t saved = 0;  // as the file does
        std::optional<std::int64_t> next;
    };

    void SetUp() override {
        const char* seed = std::getenv("SCV_SOAK_SEED");
        m_seed = seed != nullptr ? static_cast<unsigned>(std::atol(seed)) : 1;
        m_isWhole = std::getenv("SCV_SOAK") != nullptr;
        m_random.seed(m_seed);
    }

    unsigned Below(unsigned limit) { return std::uniform_int_distribution<unsigned>(0, limit - 1)(m_random); }
    bool OneIn(unsigned times) { return Below(times) == 0; }

    Rules RandomRules() {
        Rules rules{.start = m_now - Below(20 * kDay), .last = m_now - Below(2 * kDay), .every = 1};
        switch (Below(10)) {
            case 0:  // runs once
                rules.last = 0;
                break;
            case 1:
                rules.start = m_now + Below(kDay);
                rules.last = 0;
                break;
            case 2:
            case 3:
                rules.monthly = true;
                rules.last -= Below(35 * kDay);
                rules.days = OneIn(2) ? Below(128) : 0;
                break;
            case 4:
            case 5:
            case 6:
                rules.isEvery = true;
                rules.unit = static_cast<std::int32_t>(Below(2));
                rules.every = static_cast<std::int32_t>(rules.unit == 1 ? 1 + Below(3) : 10 + Below(60));
                rules.until = m_now + 12 * kHour + Below(10 * kHour);
                rules.days = Below(128);
                rules.monthly = OneIn(4);
                break;
            default:
                rules.days = 1 + Below(127);
                rules.start += OneIn(4) ? 20 * kDay : 0;  // moved into the future after the last run
        }
        return rules;
    }

    [[nodiscard]] static std::wstring Project(std::size_t task) {
        return L"C:\\projects\\" + std::to_wstring(task) + (task % 3 == 0 ? L".oslpr" : L".scvpr");
    }

    void MakeTasks(std::size_t count) {
        m_array = std::make_unique<CSCVShchedulerTaskArray>();
        m_tasks.clear();
        for (std::size_t i = 0; i < count; ++i) {
            Task task;
            task.rules = RandomRules();
            task.isEnabled = !OneIn(20);
            task.last = task.saved = task.rules.last;
            CSCVShchedulerTask& made = *(*m_array)[m_array->AddTask(Project(i), m_now)];
            SetRules(made, task.rules);
            made.m_bEnable = task.isEnabled ? 1 : 0;
            m_tasks.push_back(task);
        }
        m_files.isReliable = true;
        ASSERT_TRUE(m_array->TrySave(m_files, m_list));
        m_files.isReliable = false;
    }

    enum Written { kNothing, kRunsPerhaps, kRuns, kAll };

    // The list is whole and holds the last runs that were saved before or now.
    void CheckFile(Written written) {
        std::string bytes;
        ASSERT_EQ(m_machine->Files().Read(m_list, bytes), IFileSystem::Status::Ok);
        std::size_t at = 0;
        ASSERT_EQ(NumberAfter("TaskCount=", bytes, at), static_cast<std::int64_t>(m_tasks.size()));
        for (std::size_t i = 0; i < m_tasks.size(); ++i) {
            ASSERT_EQ(NumberAfter("[SCVShchedulerTask", bytes, at), static_cast<std::int64_t>(i + 1));
            const std::int64_t last = NumberAfter("LastRunTime=", bytes, at);
            Task& task = m_tasks[i];
            const bool isWritten = written == kAll || (written != kNothing && task.last == m_now);
            ASSERT_TRUE(last == (isWritten ? task.last : task.saved) ||
                        (written == kRunsPerhaps && last == task.saved))
                << "task " << i << " ran at " << task.last << ", the file says " << last;
            task.saved = last;
        }
        ASSERT_EQ(NumberAfter("[SCVShchedulerTask", bytes, at), -1);
        ASSERT_EQ(m_machine->CountFiles(), 1U) << "something is left beside the list";
    }

    void CheckTasks() {
        ASSERT_EQ(m_array->GetSize(), static_cast<std::ptrdiff_t>(m_tasks.size()));
        for (std::size_t i = 0; i < m_tasks.size(); ++i) {
            const CSCVShchedulerTask& task = *(*m_array)[static_cast<std::ptrdiff_t>(i)];
            CSCVShchedulerTask wanted;
            SetRules(wanted, m_tasks[i].rules);
            ASSERT_EQ(task.m_strProjectPath, Project(i));
            ASSERT_EQ(task.m_bEnable != 0, m_tasks[i].isEnabled);
            ASSERT_EQ(task.m_tLastRunTime, m_tasks[i].last);
            ASSERT_EQ(task.m_tStartTime, wanted.m_tStartTime);
            ASSERT_EQ(task.m_nEveryValue, wanted.m_nEveryValue);
            ASSERT_EQ(task.HasWeekdayRepeat(), wanted.HasWeekdayRepeat());
        }
    }

    void Load() {
        m_isLoadPending = m_array->TryLoad(m_files, m_list) != IFileSystem::Status::Ok;
        if (!m_isLoadPending) {
            m_isLoaded = true;
            m_record.ApplyTo(*m_array);
            CheckTasks();
        }
    }

    void Save() {
        const int failures = m_files.FailureCount();
        const bool isSaved = m_array->TrySave(m_files, m_list);
        ASSERT_TRUE(isSaved || m_files.FailureCount() > failures || m_isLoadPending);
        ASSERT_FALSE(isSaved && m_isLoadPending) << "saved over a list that could not be read";
        if (isSaved) {
            m_record.Clear();
        }
        CheckFile(isSaved ? kAll : kNothing);
    }

    // The program ends, having saved or not, and starts anew: what the file does not know is forgotten.
    void Restart() {
        m_array = std::make_unique<CSCVShchedulerTaskArray>();
        m_record.Clear();
        m_isLoaded = false;
        for (Task& task : m_tasks) {
            m_forgotten += task.last != task.saved;
            task.last = task.saved;
        }
        ExpectAnew();
        Load();
    }

    void ActAsUser() {
        const unsigned what = Below(5);
        if (what < 3) {
            Save();
        }
        if (what == 0 || what == 3) {  // ended or, without a save, killed
            Restart();
            if (m_isLoadPending) {  // the file can be had again, and is saved before it is read
                m_files.failing = CUnreliableFiles::kNone;
                Save();
            }
        } else if (what == 4 && m_isLoaded) {
            Load();
        }
    }

    void ExpectAnew() {
        for (Task& task : m_tasks) {
            task.next = ExpectedRun(task.rules, task.last, m_now);
        }
    }

    void Pass() {
        if (m_isLoadPending) {
            Load();
        }
        std::vector<std::size_t> due;
        for (std::size_t i = 0; m_isLoaded && i < m_tasks.size(); ++i) {
            Task& task = m_tasks[i];
            if (task.isEnabled && task.next && *task.next <= m_now) {
                task.next = ExpectedRun(task.rules, task.last, m_now);  // its start may have come
                if (task.next && *task.next <= m_now) {
                    due.push_back(i);
                }
            }
        }
        const int failures = m_files.FailureCount();
        const int locks = m_files.calls[CUnreliableFiles::kLock];
        m_shell.launches.clear();
        RunSchedulingPass(*m_array, {m_clock, m_files, m_shell},
                          [&](const CSCVShchedulerTask& task) { m_record.Add(task); });

        ASSERT_EQ(m_shell.launches.size(), due.size());
        for (std::size_t k = 0; k < due.size(); ++k) {
            Task& task = m_tasks[due[k]];
            const CUnreliableShell::Launch& launch = m_shell.launches[k];
            const CSCVShchedulerTask& run = *(*m_array)[static_cast<std::ptrdiff_t>(due[k])];
            ASSERT_EQ(launch.project, Project(due[k])) << "expected at " << *task.next;
            ASSERT_EQ(launch.starts, launch.wanted);
            ASSERT_EQ(run.m_strLastRunResult, launch.result);
            ASSERT_EQ(run.m_tLastRunTime, m_now);
            task.last = m_now;
            task.next = ExpectedRun(task.rules, task.last, m_now);
            m_failedLaunches += launch.result != L"Success";
        }
        m_launches += static_cast<int>(due.size());
        if (due.empty()) {
            ASSERT_EQ(m_files.calls[CUnreliableFiles::kLock], locks) << "saved without need";
        } else {
            CheckFile(m_files.FailureCount() > failures ? kRunsPerhaps : kRuns);
        }
    }

    // With the results of all tasks alike: apostrophes in them grow with every load and save.
    Usage UsageOnceLoaded() {
        m_files.isReliable = true;
        Restart();
        for (std::ptrdiff_t i = 0; i < m_array->GetSize(); ++i) {
            (*m_array)[i]->m_strLastRunResult = L"Success";
        }
        Save();
        Restart();
        m_files.isReliable = false;
        return MeasureUsage();
    }

    void Play(std::int64_t change) {
        const std::int64_t tick = m_isWhole ? 2 : 20;
        const std::int64_t end = change + 23 * kHour;
        m_now = end - kDay;
        MakeTasks(m_isWhole ? 500 : 50);
        ExpectAnew();
        Usage before{};
        for (std::int64_t day = DayOf(m_now); m_now < end; m_now += tick) {
            m_clock.now = m_now;
            if (DayOf(m_now) != day) {
                day = DayOf(m_now);
                ExpectAnew();
            }
            if (OneIn(50)) {
                m_files.failing = static_cast<CUnreliableFiles::Call>(
                    std::min<unsigned>(Below(16), CUnreliableFiles::kNone));
            }
            if (OneIn(static_cast<unsigned>(600 / tick))) {
                ActAsUser();
            }
            Pass();
            if (HasFatalFailure()) {
                FAIL() << "at " << m_now << ", seed " << m_seed;
            }
            if (end - m_now == 20 * kHour) {  // warm by now
                before = UsageOnceLoaded();
            }
        }
        const Usage after = UsageOnceLoaded();
        EXPECT_LE(after.bytes, before.bytes + before.grain);
        EXPECT_LE(after.handles, before.handles);
        // All that was to happen has happened.
        EXPECT_GT(m_launches, static_cast<int>(m_tasks.size()));
        EXPECT_GT(m_failedLaunches, m_launches / 20);
        EXPECT_GT(m_forgotten, 0);
        for (const int failed : m_files.failures) {
            EXPECT_TRUE(failed > 0 || !m_isWhole);
        }
        std::cout << m_launches << " launches, " << m_failedLaunches << " failed, " << m_forgotten
                  << " forgotten\n";
    }

    std::unique_ptr<ISoakMachine> m_machine = MakeSoakMachine();
    const std::wstring m_list = m_machine->ListPath();
    unsigned m_seed = 0;
    bool m_isWhole = false;
    std::mt19937 m_random;
    CUnreliableFiles m_files{m_machine->Files(), m_random};
    CUnreliableShell m_shell{m_random};
    FakeClock m_clock;
    std::int64_t m_now = 0;
    std::unique_ptr<CSCVShchedulerTaskArray> m_array;
    CPassRecord m_record;
    std::vector<Task> m_tasks;
    bool m_isLoaded = true, m_isLoadPending = false;
    int m_launches = 0, m_failedLaunches = 0, m_forgotten = 0;
};

TEST_F(Soak, ADayOverTheSpringChange) {
    Play(kSpring);
}

TEST_F(Soak, ADayOverTheAutumnChange) {
    Play(kAutumn);
}

}  // namespace
