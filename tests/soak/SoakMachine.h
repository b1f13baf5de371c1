#pragma once

#include <string>

#include "tests/support/LocalZone.h"
#ifdef _WIN32
#include "core/platform/win32/WindowsFileSystem.h"
#include "tests/support/ProcessUse.h"
#include "tests/support/TemporaryFolder.h"
#else
#include "tests/support/FakeFileSystem.h"

// NOLINTNEXTLINE(bugprone-reserved-identifier): the sanitizer's name; gcc has no header for it
extern "C" [[gnu::weak]] std::size_t __sanitizer_get_current_allocated_bytes();
#endif

// The machine of the soak test: files in memory, real files on Windows. After Break the call that comes so
// many calls later fails or, on Windows, every save does, until Repair. Use must not grow: kilobytes and, on
// Windows, handles.
struct SoakMachine {
    const CLocalZone zone{"Europe/Berlin"};
#ifdef _WIN32
    static constexpr unsigned kTick = 20;  // seconds; natively the rules and faults of each tick are played
    const TemporaryFolder folder;
    const std::wstring list = folder.Path(L"list.ini");
    CWindowsFileSystem files;

    void Break(int) const {
        SetFileAttributesW(list.c_str(), FILE_ATTRIBUTE_READONLY);
    }
    void Repair() const {
        SetFileAttributesW(list.c_str(), FILE_ATTRIBUTE_NORMAL);
    }
    static std::size_t Use() {
        return HandleUse() + HeapUse() / 1024;
    }
#else
    static constexpr unsigned kTick = 2;
    const std::wstring list = L"C:\\list.ini";
    CFakeFileSystem files;

    void Break(int later) {
        files.FailCalls(files.Calls() + later, files.Calls() + later);
    }
    void Repair() {
        files.FailCalls(CFakeFileSystem::kForever, CFakeFileSystem::kForever);
    }
    static std::size_t Use() {
        const auto bytes = &__sanitizer_get_current_allocated_bytes;
        return bytes != nullptr ? bytes() / 1024 : 0;
    }
#endif
};
