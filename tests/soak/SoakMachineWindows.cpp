#include <windows.h>

#include <psapi.h>

#include <algorithm>
#include <vector>

#include "core/WindowsFileSystem.h"
#include "tests/soak/SoakMachine.h"
#include "tests/support/TemporaryFolder.h"
#include "util/Handle.h"

namespace {

class CSoakMachine final : public ISoakMachine {
public:
    [[nodiscard]] IFileSystem& Files() override { return m_files; }
    [[nodiscard]] std::wstring ListPath() const override { return m_folder.Path(L"list.ini"); }
    [[nodiscard]] std::size_t CountFiles() const override {
        const std::filesystem::directory_iterator entries(m_folder.Path());
        return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
    }

private:
    TemporaryFolder m_folder;
    CWindowsFileSystem m_files;
};

}  // namespace

std::unique_ptr<ISoakMachine> MakeSoakMachine() {
    return std::make_unique<CSoakMachine>();
}

Usage MeasureUsage() {
    PROCESS_MEMORY_COUNTERS_EX counters{};
    GetProcessMemoryInfo(GetCurrentProcess(), reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&counters),
                         sizeof counters);
    DWORD handles = 0;
    GetProcessHandleCount(GetCurrentProcess(), &handles);
    // Wine 8 knows nothing of private memory.
    const SIZE_T bytes = counters.PrivateUsage != 0 ? counters.PrivateUsage : counters.WorkingSetSize;
    // Nor does it count handles; but it gives the lowest one that is free, so that these fill the holes and
    // then reach as far above their own number as there are others.
    std::vector<CKernelHandle> probes;
    std::int64_t used = handles;
    while (handles == 0 && probes.size() < 256) {
        probes.emplace_back(CreateEventW(nullptr, FALSE, FALSE, nullptr));
        used = std::max<std::int64_t>(used, reinterpret_cast<std::intptr_t>(probes.back().Get()) / 4);
    }
    // The heap takes and keeps pages.
    return {static_cast<std::int64_t>(bytes), used, 1 << 20};
}
