#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <limits>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include <malloc.h>

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"
#pragma GCC diagnostic ignored "-Wsign-conversion"
#pragma GCC diagnostic ignored "-Wold-style-cast"
#pragma GCC diagnostic ignored "-Wuseless-cast"
#include <SimpleIni.h>
#pragma GCC diagnostic pop

#include "bench/LoadPeak.h"
#include "bench/ProfileFiles.h"
#include "core/list/PrivateProfile.h"

// Compares CPrivateProfile with SimpleIni on the same files of tasks, and with bounds. Each ratio compares
// the fastest repetitions of one run. Exit code 1 when a bound is missed.

namespace {

std::vector<std::wstring> WideKeys() {
    std::vector<std::wstring> keys;
    for (const std::string key : kKeys) {
        keys.emplace_back(key.begin(), key.end());
    }
    return keys;
}

std::wstring SectionName(int number) {
    return L"SCVShchedulerTask" + std::to_wstring(number);
}

// Several lists at once, each read from its file.
std::vector<CPrivateProfile> Load(const benchmark::State& state) {
    const std::string& path = TaskFile(static_cast<int>(state.range(0)));
    std::vector<std::string> texts;
    for (auto lists = state.range(1); lists > 0; --lists) {
        texts.push_back(ReadFile(path));
    }
    std::vector<CPrivateProfile> profiles;
    for (std::string& text : texts) {
        profiles.emplace_back(std::move(text));
    }
    return profiles;
}

void LoadEngine(benchmark::State& state) {
    for (auto _ : state) {
        const auto profiles = Load(state);
        benchmark::DoNotOptimize(profiles.data());
    }
}

void LoadSimpleIni(benchmark::State& state) {
    const std::string& path = TaskFile(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        CSimpleIniA ini;
        benchmark::DoNotOptimize(ini.LoadFile(path.c_str()));
    }
}

// Whether every task had its values.
bool ReadTasks(const CPrivateProfile& profile, int tasks, const std::vector<std::wstring_view>& keys) {
    for (int i = 1; i <= tasks; ++i) {
        const auto values = profile.GetStrings(SectionName(i), keys);
        if (!values.back() || *values.back() != L"Success") {
            return false;
        }
    }
    return true;
}

bool ReadTask(const CSimpleIniA& ini, const std::string& section) {
    return std::ranges::all_of(kKeys, [&](const char* key) {
        const char* const value = ini.GetValue(section.c_str(), key);
        if (value == nullptr) {
            return false;
        }
        const std::string copy(value);
        benchmark::DoNotOptimize(copy.data());
        return true;
    });
}

void ReadAllEngine(benchmark::State& state) {
    const int tasks = static_cast<int>(state.range(0));
    const std::vector<std::wstring> names = WideKeys();
    const std::vector<std::wstring_view> keys(names.begin(), names.end());
    for (auto _ : state) {
        for (const CPrivateProfile& profile : Load(state)) {
            if (!ReadTasks(profile, tasks, keys)) {
                state.SkipWithError("a value was not read");
            }
        }
    }
}

void ReadAllSimpleIni(benchmark::State& state) {
    const int tasks = static_cast<int>(state.range(0));
    const std::string& path = TaskFile(tasks);
    for (auto _ : state) {
        CSimpleIniA ini;
        benchmark::DoNotOptimize(ini.LoadFile(path.c_str()));
        for (int i = 1; i <= tasks; ++i) {
            if (!ReadTask(ini, "SCVShchedulerTask" + std::to_string(i))) {
                state.SkipWithError("a value was not read");
            }
        }
    }
}

void SaveEngine(benchmark::State& state) {
    const std::string path = TaskFile(static_cast<int>(state.range(0)));
    CPrivateProfile profile(ReadFile(path));
    int time = 0;
    for (auto _ : state) {
        const CPrivateProfile::Entry entry{L"LastRunTime", std::to_wstring(++time)};
        profile.SetStrings(SectionName(500), {&entry, 1});
        ReplaceFile(path + ".engine", profile.Serialise());
    }
}

void SaveSimpleIni(benchmark::State& state) {
    const std::string path = TaskFile(static_cast<int>(state.range(0)));
    CSimpleIniA ini;
    benchmark::DoNotOptimize(ini.LoadFile(path.c_str()));
    int time = 0;
    for (auto _ : state) {
        ini.SetValue("SCVShchedulerTask500", "LastRunTime", std::to_string(++time).c_str());
        benchmark::DoNotOptimize(ini.SaveFile((path + ".simpleini").c_str(), false));
    }
}

// Sets every key of every task to a new value, as OK does.
void WriteAllEngine(benchmark::State& state) {
    const int tasks = static_cast<int>(state.range(0));
    std::vector<CPrivateProfile::Entry> entries;
    const std::vector<std::wstring> names = WideKeys();
    for (const std::wstring& name : names) {
        entries.push_back({name, L"1234567890"});
    }
    for (auto _ : state) {
        std::vector<CPrivateProfile> profiles(static_cast<std::size_t>(state.range(1)),
                                              CPrivateProfile(std::string()));
        for (CPrivateProfile& profile : profiles) {
            for (int i = 1; i <= tasks; ++i) {
                profile.SetStrings(SectionName(i), entries);
            }
        }
        for (CPrivateProfile& profile : profiles) {
            benchmark::DoNotOptimize(profile.Serialise());
            for (int i = 1; i <= tasks; ++i) {
                profile.RemoveSection(SectionName(i));
            }
            if (!profile.Serialise().empty()) {
                state.SkipWithError("sections were not removed");
            }
        }
    }
}

BENCHMARK(LoadEngine)
    ->Args({1000, 1})
    ->Args({10000, 1})
    ->Args({10000, 10})
    ->Args({100000, 1})
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(5);
BENCHMARK(LoadSimpleIni)->Arg(10000)->Unit(benchmark::kMillisecond)->Repetitions(5);
BENCHMARK(ReadAllEngine)
    ->Args({1000, 1})
    ->Args({10000, 1})
    ->Args({10000, 10})
    ->Args({100000, 1})
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(5);
BENCHMARK(ReadAllSimpleIni)->Arg(10000)->Unit(benchmark::kMillisecond)->Repetitions(5);
BENCHMARK(SaveEngine)->Arg(10000)->Unit(benchmark::kMillisecond)->UseRealTime()->Repetitions(5);
BENCHMARK(SaveSimpleIni)->Arg(10000)->Unit(benchmark::kMillisecond)->UseRealTime()->Repetitions(5);
BENCHMARK(WriteAllEngine)
    ->Args({1000, 1})
    ->Args({10000, 1})
    ->Args({10000, 10})
    ->Args({100000, 1})
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(5);

// The time of the fastest repetition by the benchmark's name: processor time unless it waits for the disk.
class CQuickest : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            m_failed = m_failed || run.error_occurred;
            if (run.run_type == Run::RT_Iteration) {
                const std::string name = run.run_name.function_name + '/' + run.run_name.args;
                const auto slot = m_times.try_emplace(name, std::numeric_limits<double>::max()).first;
                slot->second =
                    std::min(slot->second, run.run_name.time_type.empty() ? run.GetAdjustedCPUTime()
                                                                          : run.GetAdjustedRealTime());
            }
        }
        ConsoleReporter::ReportRuns(runs);
    }
    [[nodiscard]] double Ratio(const std::string& slow, const std::string& quick) const {
        return m_times.at(slow) / m_times.at(quick);
    }
    [[nodiscard]] bool Failed() const { return m_failed; }

private:
    std::map<std::string, double> m_times;
    bool m_failed = false;
};

bool Check(const char* what, double value, bool atLeast, double bound) {
    const bool passed = atLeast ? value >= bound : value <= bound;
    std::printf("%-52s %8.2f  %s %5.1f  %s\n", what, value, atLeast ? "at least" : "at most ", bound,
                passed ? "pass" : "FAIL");
    return passed;
}

}  // namespace

int main(int argc, char** argv) {
    // Makes malloc keep large blocks for the next round, as it keeps small ones. Otherwise the kernel would
    // clear pages again in each round with 100,000 tasks, but not with 10,000.
    mallopt(M_MMAP_MAX, 0);
    mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
    benchmark::Initialize(&argc, argv);
    CQuickest times;
    benchmark::RunSpecifiedBenchmarks(&times);
    bool passed = !times.Failed();
    // Growth compares one list of 100,000 with ten lists of 10,000: a single one of 10,000 fits into the
    // processor's caches, which would make its time too short.
    try {
        std::puts("");
        passed &= Check("load, times quicker than SimpleIni",
                        times.Ratio("LoadSimpleIni/10000", "LoadEngine/10000/1"), true, 5);
        passed &= Check("load and read all, times quicker",
                        times.Ratio("ReadAllSimpleIni/10000", "ReadAllEngine/10000/1"), true, 5);
        passed &= Check("save one changed task, times quicker",
                        times.Ratio("SaveSimpleIni/10000", "SaveEngine/10000"), true, 5);
        passed &= Check("load, a list of 100,000 to ten of 10,000",
                        times.Ratio("LoadEngine/100000/1", "LoadEngine/10000/10"), false, 1.2);
        passed &= Check("load and read all, the same",
                        times.Ratio("ReadAllEngine/100000/1", "ReadAllEngine/10000/10"), false, 1.2);
        passed &= Check("write and remove all, the same",
                        times.Ratio("WriteAllEngine/100000/1", "WriteAllEngine/10000/10"), false, 1.2);
    } catch (const std::out_of_range&) {
        std::puts("A filter left out what the bounds compare.");
        passed = false;
    }
    passed &=
        Check("peak of a load to its file: 10,000 tasks", PeakOfLoad(ReadFile(TaskFile(10000))), false, 3);
    passed &= Check("peak: 64 MB of line breaks", PeakOfLoad(Repeated("\n")), false, 3);
    passed &= Check("peak: 64 MB of empty headers", PeakOfLoad(Repeated("[\n")), false, 3);
    passed &= Check("peak: 64 MB of different short headers", PeakOfLoad(ManyShortNames()), false, 3);
    passed &= Check("peak: 64 MB of keys", PeakOfLoad(Repeated("k=\n")), false, 3);
    RemoveTaskFiles();
    return passed ? 0 : 1;
}
