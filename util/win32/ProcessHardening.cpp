#include "util/win32/ProcessHardening.h"

#include <windows.h>

void HardenProcess() noexcept {
    SetDllDirectoryW(L"");
    // Windows 7 knows this function only with an update.
    using SetDefaultDllDirectoriesFunction = BOOL(WINAPI*)(DWORD);
    constexpr DWORD kSystemFolder = 0x00000800;  // LOAD_LIBRARY_SEARCH_SYSTEM32
    const auto setDirectories = reinterpret_cast<SetDefaultDllDirectoriesFunction>(reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "SetDefaultDllDirectories")));
    if (setDirectories != nullptr) {
        setDirectories(kSystemFolder);
    }
}
