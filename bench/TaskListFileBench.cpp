#include <windows.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "bench/Judge.h"
#include "core/list/PrivateProfile.h"
#include "core/list/TaskListFile.h"
#include "core/platform/win32/WindowsFileSystem.h"
#include "core/task/SCVShchedulerTaskArray.h"
#include "tests/support/TemporaryFolder.h"

// Compares saving and loading a task list with the system's private-profile functions, which rewrite or read
// the file for each key. Both run in one process on the same tasks; the bounds are ratios.
//   scv_winbench [TASKS]     exit code 1 when a bound is missed

namespace {

constexpr double kSaveBound = 15'000;
constexpr double kLoadBound = 1'000;
constexpr int kRepeats = 21;

constexpr std::array kKeys = {
    L"Enable",          L"CommandLine", L"StartTime",   L"UntilTime",   L"LastRunTime",  L"RepeatOnMon",
    L"RepeatOnTue",     L"RepeatOnWen", L"RepeatOnThu", L"RepeatOnFri", L"RepeatOnSat",  L"RepeatOnSun",
    L"RepeatOnMonthly", L"EnableEvery", L"EveryValue",  L"EveryUnit",   L"LastRunResult"};

void Require(bool condition, const char* what) {
    if (!condition) {
        std::fprintf(stderr, "scv_winbench: %s\n", what);
        std::exit(2);
    }
}

void FillTasks(CSCVShchedulerTaskArray& tasks, int count) {
    for (int i = 0; i < count; ++i) {
        tasks.AddTask(L"C:\\projects\\project" + std::to_wstring(i) + L".scvpr", 1711850400);
        tasks[i]->m_bDeleteUrls = 1;
        tasks[i]->m_bStart = 1;
        tasks[i]->m_strLastRunResult = L"Success";
    }
}

// Writes the contents of the array's file key by key.
void SaveThroughSystem(const CPrivateProfile& profile, int count, const std::wstring& path) {
    WritePrivateProfileStringW(L"SCVShchedulerTaskList", L"TaskCount", std::to_wstring(count).c_str(),
                               path.c_str());
    for (int i = 1; i <= count; ++i) {
        const std::wstring section = TaskSectionName(i);
        for (const wchar_t* const key : kKeys) {
            const std::wstring value = profile.GetString(section, key).value();
            Require(WritePrivateProfileStringW(section.c_str(), key, (L'\'' + value + L'\'').c_str(),
                                               path.c_str()) != 0,
                    "the system does not write");
        }
    }
}

std::size_t LoadThroughSystem(int count, const std::wstring& path) {
    std::size_t units = 0;
    for (int i = 1; i <= count; ++i) {
        const std::wstring section = TaskSectionName(i);
        for (const wchar_t* const key : kKeys) {
            wchar_t value[1024];
            units += GetPrivateProfileStringW(section.c_str(), key, L"", value, 1024, path.c_str());
        }
    }
    return units;
}

bool Report(const char* what, double system, double own, double bound) {
    const double ratio = system / own;
    std::printf("%s: system %.3f s, own %.3f ms, %.0f times faster (bound %.0f): %s\n", what, system / 1000,
                own, ratio, bound, ratio >= bound ? "met" : "MISSED");
    return ratio >= bound;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    const int count = argc > 1 ? static_cast<int>(std::wcstol(argv[1], nullptr, 10)) : 1000;
    Require(count > 0, "the number of tasks is none");
    const TemporaryFolder folder;
    const std::wstring path = folder.Path(L"own.ini");
    CWindowsFileSystem files;
    CSCVShchedulerTaskArray tasks;
    FillTasks(tasks, count);

    // Changes every task before every save, because an unchanged text is not written.
    const double ownSave = Best(
        [&] {
            for (int i = 0; i < count; ++i) {
                ++tasks[i]->m_tLastRunTime;
            }
            Require(tasks.TrySave(files, path) == FileResult::Status::Ok, "a save failed");
        },
        kRepeats);
    const double ownLoad = Best(
        [&] {
            CSCVShchedulerTaskArray loaded;
            Require(loaded.Load(files, path) == 1 && loaded.GetSize() == count, "a load failed");
        },
        kRepeats);

    std::string bytes;
    Require(files.Read(path, bytes) == IFileSystem::Status::Ok, "the saved list cannot be read");
    const CPrivateProfile profile(bytes);
    const std::wstring systemPath = folder.Path(L"system.ini");
    std::size_t units = 0;
    const double systemSave = Milliseconds([&] { SaveThroughSystem(profile, count, systemPath); });
    const double systemLoad = Milliseconds([&] { units = LoadThroughSystem(count, systemPath); });
    Require(units > 0 && units == LoadThroughSystem(count, path),
            "the system reads something else from our file");

    std::printf("%d tasks, %zu bytes\n", count, bytes.size());
    const bool saves = Report("save", systemSave, ownSave, kSaveBound);
    const bool loads = Report("load", systemLoad, ownLoad, kLoadBound);
    return saves && loads ? 0 : 1;
}
