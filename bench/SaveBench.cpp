#include <cstdio>
#include <ctime>
#include <limits>
#include <string>

#include <malloc.h>

#include "bench/Judge.h"
#include "core/task/SCVShchedulerTaskArray.h"
#include "tests/support/FakeFileSystem.h"

// Measures the processor time for saving a list of 100,000 tasks to files in memory. Exit code 1 when a bound
// is missed.

namespace {

constexpr int kTasks = 100'000;
constexpr double kBound = 150;  // ms
const std::wstring kList = L"C:\\list.ini";

// The time of the fastest save. Before each save `change` changes the tasks.
template <typename Change>
double SaveMilliseconds(CFakeFileSystem& files, CSCVShchedulerTaskArray& tasks, Change change) {
    double best = 1e9;
    for (int round = 0; round < 7; ++round) {
        change();
        const std::clock_t begin = std::clock();
        if (!tasks.TrySave(files, kList)) {
            std::fputs("scv_save_bench: a save failed\n", stderr);
            return 1e9;
        }
        best = std::min(best, 1000.0 * static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC);
    }
    return best;
}

}  // namespace

int main() {
    // As in PrivateProfileBench: a file on a disk would not cost the time in which the kernel clears pages.
    mallopt(M_MMAP_MAX, 0);
    mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
    CFakeFileSystem files;
    CSCVShchedulerTaskArray tasks;
    for (int i = 0; i < kTasks; ++i) {
        tasks.AddTask(L"C:\\Projects\\Shop watch\\Project " + std::to_wstring(i) + L".scvpr", 1711850400);
        tasks[i]->m_bDeleteUrls = tasks[i]->m_bStart = 1;
        tasks[i]->m_strLastRunResult = L"Success";
    }
    (void)tasks.TrySave(files, kList);
    std::printf("%d tasks, %zu bytes\n", kTasks, files.Bytes(kList).size());
    bool isMet = Judge("save, nothing changed, ms", SaveMilliseconds(files, tasks, [] {}), kBound);
    isMet &= Judge("save, one task changed, ms",
                   SaveMilliseconds(files, tasks, [&] { ++tasks[500]->m_tLastRunTime; }), kBound);
    isMet &= Judge("save, every task changed, ms",
                   SaveMilliseconds(files, tasks,
                                    [&] {
                                        for (int i = 0; i < kTasks; ++i) {
                                            ++tasks[i]->m_tLastRunTime;
                                        }
                                    }),
                   kBound);
    return isMet ? 0 : 1;
}
