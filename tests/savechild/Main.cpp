#include <windows.h>

#include <string>

#include "core/launch/LaunchClaim.h"
#include "core/platform/win32/WindowsFileSystem.h"
#include "tests/savechild/GenerationList.h"
#include "util/win32/Handle.h"

namespace {

int SaveForEver(const std::wstring& list, unsigned generation) {
    CWindowsFileSystem files;
    while (SaveGeneration(generation, files, list)) {
        ++generation;
    }
    return 1;
}

int KeepClaim(const std::wstring& list, const wchar_t* eventName) {
    CWindowsFileSystem files(CWindowsFileSystem::Waiting::Never);
    CLaunchClaim claim(files, list);
    if (!claim.TryTake()) {
        return 1;
    }
    const CKernelHandle taken(OpenEventW(EVENT_MODIFY_STATE, FALSE, eventName));
    SetEvent(taken.Get());
    Sleep(INFINITE);
    return 0;
}

}  // namespace

// savechild FILE FIRST: saves the generations of a task list from FIRST on into the file, one after the
// other, until it is killed. Ends with 1 when a save fails.
// savechild FILE claim EVENT: takes the claim to launch the list's projects, signals the event and keeps the
// claim until it is killed. Ends with 1 when another process has the claim.
// Ends with 2 for other arguments.
int wmain(int argc, wchar_t** argv) {
    if (argc == 4 && argv[2] == std::wstring(L"claim")) {
        return KeepClaim(argv[1], argv[3]);
    }
    return argc == 3 ? SaveForEver(argv[1], static_cast<unsigned>(std::stoul(argv[2]))) : 2;
}
