#include <string>

#include "core/TaskListFile.h"
#include "core/WindowsFileSystem.h"
#include "tests/savechild/GenerationList.h"

// Saves into a task list file for tests that kill it or run two of it. What it did is seen in the file.
//   savechild lists FILE FIRST     saves the generations from FIRST on, one after the other, until killed
//   savechild tasks FILE FIRST N   saves N tasks, each by itself, into the sections from FIRST on
// Ends with 1 when a save fails, with 2 for other arguments.
int wmain(int argc, wchar_t** argv) {
    if (argc < 4) {
        return 2;
    }
    CWindowsFileSystem files;
    const std::wstring mode = argv[1];
    const std::wstring file = argv[2];
    const unsigned first = static_cast<unsigned>(std::stoul(argv[3]));
    if (mode == L"lists") {
        for (unsigned generation = first;; ++generation) {
            if (!GenerationList(generation)->TrySave(files, file)) {
                return 1;
            }
        }
    }
    if (mode != L"tasks" || argc < 5) {
        return 2;
    }
    CSCVShchedulerTask task(1711850400);
    const unsigned end = first + static_cast<unsigned>(std::stoul(argv[4]));
    for (unsigned section = first; section < end; ++section) {
        task.m_strProjectPath = L"C:\\" + std::to_wstring(section) + L".scvpr";
        if (!task.TrySaveToIni(files, file, TaskSectionName(static_cast<std::int32_t>(section)))) {
            return 1;
        }
    }
    return 0;
}
