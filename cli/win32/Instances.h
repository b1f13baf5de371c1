#pragma once

#include <windows.h>

#include <string>

#include "util/win32/Handle.h"

struct OwnedMutexPolicy {
    using Type = HANDLE;
    static HANDLE None() noexcept { return nullptr; }
    static bool Close(HANDLE handle) noexcept {
        return ReleaseMutex(handle) != 0 && KernelHandlePolicy::Close(handle);
    }
};
// A mutex that this thread has waited for; released by the same thread.
using COwnedMutex = CUniqueHandle<OwnedMutexPolicy>;

// Who else works with tasks in this session. Two programs that run the same list would launch each due task
// twice, and one that holds the tasks in memory would save them over what another has edited.
class CInstances {
public:
    // Makes this process the one console that launches until the object is destroyed. Returns an empty text,
    // or a sentence that says who launches already. Waits for a console that is editing.
    [[nodiscard]] std::string TryClaimLaunching();
    // Until the object is destroyed no other console edits, and none begins to launch. Returns an empty text,
    // or a sentence that says who has the tasks in memory.
    [[nodiscard]] std::string TryClaimEditing();

private:
    CKernelHandle m_claim;  // the launching console's named mutex: its existence counts
    COwnedMutex m_edit;
};
