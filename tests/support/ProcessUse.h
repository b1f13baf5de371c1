#pragma once

#include <windows.h>

#include <algorithm>
#include <cstddef>

#include "util/win32/Handle.h"

// What this process has of the machine, to be compared with what it has later. Wine 8 answers 0 to the
// system's own questions for it.

// Bytes taken of all heaps.
inline std::size_t HeapUse() {
    HANDLE heaps[64];
    std::size_t used = 0;
    for (DWORD i = std::min<DWORD>(GetProcessHeaps(64, heaps), 64); i > 0; --i) {
        PROCESS_HEAP_ENTRY entry{};
        HeapLock(heaps[i - 1]);
        while (HeapWalk(heaps[i - 1], &entry) != FALSE) {
            used += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0 ? entry.cbData : 0;
        }
        HeapUnlock(heaps[i - 1]);
    }
    return used;
}

// Handles, as the lowest one that is free tells, which rises as they leak.
inline std::size_t HandleUse() {
    const CKernelHandle free(CreateEventW(nullptr, FALSE, FALSE, nullptr));
    return reinterpret_cast<std::size_t>(free.Get()) / 4;
}
