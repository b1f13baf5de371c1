#pragma once

#include <windows.h>

#include <algorithm>
#include <cstddef>

#include "util/win32/Handle.h"

// What this process uses of the machine, to be compared with a later use. The system's own functions for it
// return 0 in Wine 8.

// Bytes allocated in all heaps.
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

// The number of open handles, from the value of the lowest free one, which rises when handles leak.
inline std::size_t HandleUse() {
    const CKernelHandle free(CreateEventW(nullptr, FALSE, FALSE, nullptr));
    return reinterpret_cast<std::size_t>(free.Get()) / 4;
}
