#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <limits>
#include <map>
#include <new>
#include <stdexcept>
#include <string>
#include <vector>

#include <fcntl.h>
#include <malloc.h>
#include <unistd.h>

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"
#pragma GCC diagnostic ignored "-Wsign-conversion"
#pragma GCC diagnostic ignored "-Wold-style-cast"
#pragma GCC diagnostic ignored "-Wuseless-cast"
#include <SimpleIni.h>
#pragma GCC diagnostic pop

#include "core/list/PrivateProfile.h"

// Compares CPrivateProfile with SimpleIni on the same files of tasks, and with bounds. Each ratio compares
// the fastest repetitions of one run. Exit code 1 when a bound is missed.

// NOLINTBEGIN(cppcoreguidelines-avoid-non-const-global-variables, cppcoreguidelines-no-malloc): counts memory
namespace {

std::size_t g_held = 0;
std::size_t g_peak = 0;

}  // namespace

[[gnu::noinline]] void* operator new(std::size_t size) {
    void* const block = std::malloc(size);
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    g_held += malloc_usable_size(block);
    g_peak = std::max(g_peak, g_held);
    return block;
}

[[gnu::noinline]] void operator delete(void* block) noexcept {
    g_held -= block != nullptr ? malloc_usable_size(block) : 0;
    std::free(block);
}

[[gnu::noinline]] void operator delete(void* block, std::size_t) noexcept {
    g_held -= block != nullptr ? malloc_usable_size(block) : 0;
    std::free(block);
}
// NOLINTEND(cppcoreguidelines-avoid-non-const-global-variables, cppcoreguidelines-no-malloc)

namespace {

constexpr std::array<const char*, 17> kKeys = {
    "Enable",      "CommandLine",     "StartTime",   "UntilTime",   "LastRunTime",  "RepeatOnMon",
    "RepeatOnTue", "RepeatOnWen",     "RepeatOnThu", "RepeatOnFri", "RepeatOnSat",  "RepeatOnSun",
    "EnableEvery", "RepeatOnMonthly", "EveryValue",  "EveryUnit",   "LastRunResult"};

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

// In the current folder, so that a flush reaches a disk.
const std::filesystem::path kFolder = "PrivateProfileBench.scratch";

// A task list of that many sections; made once.
const std::string& TaskFile(int tasks) {
    static std::map<int, std::string> paths;
    std::string& path = paths[tasks];
    if (path.empty()) {
        std::string text = "[SCVShchedulerTaskList]\r\nTaskCount=" + std::to_string(tasks) + "\r\n";
        for (int i = 1; i <= tasks; ++i) {
            const std::string number = std::to_string(i);
            text += "[SCVShchedulerTask" + number + "]\r\n";
            for (const std::string key : kKeys) {
                const std::string value =
                    key == "CommandLine" ? "'\"C:\\Projects\\Shop watch\\Project " + number +
                                               ".scvpr\" -dt -s -e \"C:\\Exports\\list.csv\"'"
                    : key == "LastRunResult" ? std::string("'Success'")
                    : key.ends_with("Time")  ? "17118" + std::to_string(10000 + i % 90000)
                                             : std::string("1");
                text.append(key).append("=").append(value).append("\r\n");
            }
        }
        std::filesystem::create_directories(kFolder);
        path = kFolder / (std::to_string(tasks) + ".ini");
        std::FILE* const file = std::fopen(path.c_str(), "wb");
        if (file == nullptr || std::fwrite(text.data(), 1, text.size(), file) != text.size() ||
            std::fclose(file) != 0) {
            std::perror(path.c_str());
            std::exit(1);
        }
    }
    return path;
}

std::string ReadFile(const std::string& path) {
    std::string bytes(std::filesystem::file_size(path), '\0');
    std::FILE* const file = std::fopen(path.c_str(), "rb");
    if (file == nullptr || std::fread(bytes.data(), 1, bytes.size(), file) != bytes.size()) {
        std::perror(path.c_str());
        std::exit(1);
    }
    std::fclose(file);
    return bytes;
}

// Writes and flushes a new file, then replaces the old file by it atomically.
void ReplaceFile(const std::string& path, const std::string& bytes) {
    const std::string temporary = path + ".new";
    const int file = open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    const bool written = file >= 0 &&
                         write(file, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()) &&
                         fsync(file) == 0 && close(file) == 0;
    if (!written || std::rename(temporary.c_str(), path.c_str()) != 0) {
        std::perror(path.c_str());
        std::exit(1);
    }
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
    for (const char* key : kKeys) {
        const char* const value = ini.GetValue(section.c_str(), key);
        if (value == nullptr) {
            return false;
        }
        const std::string copy(value);
        benchmark::DoNotOptimize(copy.data());
    }
    return true;
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

double PeakOfLoad(std::string text) {
    const std::size_t size = text.size();
    g_peak = g_held;
    const std::size_t before = g_held - malloc_usable_size(text.data());
    const CPrivateProfile profile(std::move(text));
    return static_cast<double>(g_peak - before) / static_cast<double>(size);
}

bool Check(const char* what, double value, bool atLeast, double bound) {
    const bool passed = atLeast ? value >= bound : value <= bound;
    std::printf("%-52s %8.2f  %s %5.1f  %s\n", what, value, atLeast ? "at least" : "at most ", bound,
                passed ? "pass" : "FAIL");
    return passed;
}

std::string Repeated(std::string_view piece) {
    std::string text;
    constexpr std::size_t kSize = 64U << 20U;
    text.reserve(kSize + piece.size());
    while (text.size() < kSize) {
        text += piece;
    }
    return text;
}

std::string ManyShortNames() {
    std::string text;
    constexpr std::size_t kSize = 64U << 20U;
    text.reserve(kSize + 8);
    for (unsigned i = 0; text.size() < kSize; ++i) {
        text += '[';
        for (unsigned rest = i, left = 3; left > 0; --left, rest /= 230) {
            text += static_cast<char>(rest % 230 + 14);
        }
        text += '\n';
    }
    return text;
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
    std::filesystem::remove_all(kFolder);
    return passed ? 0 : 1;
}
