#include <string>

#include "core/platform/win32/WindowsFileSystem.h"
#include "tests/savechild/GenerationList.h"

// savechild FILE FIRST: saves the generations of a task list from FIRST on into the file, one after the
// other, until it is killed. Ends with 1 when a save fails, with 2 for other arguments.
int wmain(int argc, wchar_t** argv) {
    if (argc != 3) {
        return 2;
    }
    CWindowsFileSystem files;
    unsigned generation = static_cast<unsigned>(std::stoul(argv[2]));
    while (SaveGeneration(generation, files, argv[1])) {
        ++generation;
    }
    return 1;
}
