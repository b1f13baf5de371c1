#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <optional>
#include <string>
#include <vector>

#include "bench/Judge.h"
#include "core/launch/LaunchClaim.h"
#include "core/launch/SchedulingPass.h"
#include "core/platform/LocalTime.h"
#include "core/task/SCVShchedulerTaskArray.h"
#include "tests/support/FakeClock.h"
#include "tests/support/FakeFileSystem.h"
#include "tests/support/FakeShell.h"
#include "tests/support/TaskRules.h"

// Compares the time for a next run with the time for the local-time conversions that it needs, checks that it
// makes no others, and compares a pass with the time between two ticks. Exit code 1 when a bound is missed.

// The linker redirects the conversions to these functions (--wrap), so that the counted code is the code that
// ships. NOLINTBEGIN(cppcoreguidelines-avoid-non-const-global-variables, bugprone-reserved-identifier): for
// --wrap
namespace {
int localTimesMade = 0;
int instantsMade = 0;
}  // namespace

extern "C" {
std::tm* __real_localtime_r(const std::time_t* instant, std::tm* local);
std::time_t __real_mktime(std::tm* local);
std::tm* __wrap_localtime_r(const std::time_t* instant, std::tm* local);
std::time_t __wrap_mktime(std::tm* local);

std::tm* __wrap_localtime_r(const std::time_t* instant, std::tm* local) {
    ++localTimesMade;
    return __real_localtime_r(instant, local);
}
std::time_t __wrap_mktime(std::tm* local) {
    ++instantsMade;
    return __real_mktime(local);
}
}
// NOLINTEND(cppcoreguidelines-avoid-non-const-global-variables, bugprone-reserved-identifier)

namespace {

std::int64_t June(int day, int hour) {
    return FromLocalTime(2026, 6, day, hour, 0, 0);
}

struct Path {
    const char* name;
    Rules rules;
    int localTimes, instants;  // the conversions it needs
};

// `now` is Monday, 8 June 2026, 10:00; none of these is due then.
std::vector<Path> Paths() {
    const std::int64_t start = June(1, 9);
    const std::int64_t last = June(8, 9);
    const std::int64_t until = June(1, 23);
    const std::int64_t late = FromLocalTime(2026, 6, 29, 9, 0, 0);
    return {
        {"every", {.start = start, .last = last, .isEvery = true, .every = 120, .until = until}, 2, 0},
        {"every on days",
         {.start = start, .last = last, .days = kMon, .isEvery = true, .every = 120, .until = until},
         3,
         0},
        {"every, closed",
         {.start = start, .last = last, .days = kMon, .isEvery = true, .every = 120, .until = start},
         5,
         1},
        {"weekday", {.start = start, .last = last, .days = kSun}, 3, 1},
        {"monthly", {.start = start, .last = last, .monthly = true}, 4, 1},
        {"both", {.start = start, .last = late, .days = kSun, .monthly = true}, 5, 2},
    };
}

void Bare(const Path& path) {
    for (int i = 0; i < path.localTimes; ++i) {
        const std::time_t instant = path.rules.last + i * 86400;
        std::tm local{};
        benchmark::DoNotOptimize(localtime_r(&instant, &local));
        benchmark::DoNotOptimize(local);
    }
    for (int i = 0; i < path.instants; ++i) {
        std::tm local{};
        local.tm_year = 126;
        local.tm_mon = 5;
        local.tm_mday = 8;
        local.tm_hour = 9;
        local.tm_isdst = -1;
        benchmark::DoNotOptimize(std::mktime(&local));
    }
}

struct List {
    CSCVShchedulerTaskArray tasks;
    FakeClock clock{June(8, 10)};
    CFakeFileSystem files;
    CLaunchClaim claim{files, L"C:\\list.ini"};

    void Fill(int count, const Rules& rules) {
        for (int i = 0; i < count; ++i) {
            SetRules(*tasks[tasks.AddTask(L"C:\\project.scvpr", clock.now)], rules);
        }
    }
};

// A shell that records the time of its first call.
class CTimingShell final : public IShell {
public:
    bool FileExists(const std::wstring&) override { return true; }
    bool CanOpenForWriting(const std::wstring&) override { return true; }
    std::wstring RegisteredProgram(const std::wstring&) override { return L"C:\\program.exe"; }
    std::wstring AssociatedProgram(const std::wstring&) override { return {}; }
    std::intptr_t Open(const std::wstring&, const std::wstring&) override {
        opened = std::chrono::steady_clock::now();
        return 33;
    }
    std::chrono::steady_clock::time_point opened;
};

// Whether a next run makes the conversions that it needs and no others.
bool MakesItsConversions(const Path& path, const CSCVShchedulerTask& task, std::int64_t now) {
    localTimesMade = instantsMade = 0;
    benchmark::DoNotOptimize(task.GetNextRunTime(now));
    const bool isExact = localTimesMade == path.localTimes && instantsMade == path.instants;
    std::printf("%-6s conversions of %s: %d to local time, %d back\n", isExact ? "passed" : "MISSED",
                path.name, localTimesMade, instantsMade);
    return isExact;
}

// The time of a next run, as a multiple of that of its bare conversions.
double TimesOfBare(const Path& path, const CSCVShchedulerTask& task, std::int64_t now) {
    constexpr int kRepeats = 5000;
    double computed = 1e9;
    double bare = 1e9;
    for (int round = 0; round < 15; ++round) {  // in turn, so that both run at the same speed
        computed = std::min(computed, Milliseconds([&] {
                                for (int i = 0; i < kRepeats; ++i) {
                                    benchmark::DoNotOptimize(task.GetNextRunTime(now));
                                }
                            }));
        bare = std::min(bare, Milliseconds([&] {
                            for (int i = 0; i < kRepeats; ++i) {
                                Bare(path);
                            }
                        }));
    }
    return computed / bare;
}

// Milliseconds of a pass over 100,000 tasks of which none is due; nothing when one was.
std::optional<double> IdlePass(const Path& path) {
    List list;
    list.Fill(100000, path.rules);
    FakeShell shell;
    const double pass = Best(
        [&] {
            RunSchedulingPass(list.tasks, {list.clock, list.files, shell}, list.claim,
                              [](const auto&) { return true; });
        },
        3);
    return shell.starts.empty() ? std::optional(pass) : std::nullopt;
}

// Milliseconds until a pass launches the last of 1,000 tasks, the only one that is due.
double FirstLaunch(const Path& path, std::int64_t now) {
    double first = 1e9;
    for (int round = 0; round < 5; ++round) {
        List due;
        due.Fill(999, path.rules);
        due.Fill(1, {.start = now});
        CTimingShell timing;
        const auto begin = std::chrono::steady_clock::now();
        RunSchedulingPass(due.tasks, {due.clock, due.files, timing}, due.claim,
                          [](const auto&) { return true; });
        first = std::min(first, std::chrono::duration<double, std::milli>(timing.opened - begin).count());
    }
    return first;
}

bool JudgeAll() {
    bool areMet = true;
    for (const Path& path : Paths()) {
        const auto judge = [&](const std::string& what, double figure, double limit) {
            areMet &= Judge((what + ", " + path.name).c_str(), figure, limit);
        };
        CSCVShchedulerTask task;
        SetRules(task, path.rules);
        const std::int64_t now = June(8, 10);
        areMet &= MakesItsConversions(path, task, now);
        judge("next run / its bare conversions", TimesOfBare(path, task, now), 1.3);
        if (const std::optional<double> pass = IdlePass(path)) {
            judge("pass over 100,000 tasks / the tick", *pass / 2000, 0.05);
        } else {
            std::printf("MISSED a task was due\n");
            areMet = false;
        }
        judge("ms to the first launch, 1,000 tasks", FirstLaunch(path, now), 1.0);
    }
    return areMet;
}

}  // namespace

int main(int argc, char** argv) {
    // A zone with clock changes. Without this variable glibc would check its zone file in every conversion.
    setenv("TZ", "Europe/Berlin", 1);
    RefreshTimeZone();
    const std::vector<Path> paths = Paths();
    for (const Path& path : paths) {
        benchmark::RegisterBenchmark((std::string("next run: ") + path.name).c_str(),
                                     [&](benchmark::State& state) {
                                         CSCVShchedulerTask task;
                                         SetRules(task, path.rules);
                                         const std::int64_t now = June(8, 10);
                                         for (auto step : state) {
                                             benchmark::DoNotOptimize(task.GetNextRunTime(now));
                                         }
                                     });
        benchmark::RegisterBenchmark((std::string("bare conversions: ") + path.name).c_str(),
                                     [&](benchmark::State& state) {
                                         for (auto step : state) {
                                             Bare(path);
                                         }
                                     });
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return JudgeAll() ? 0 : 1;
}
