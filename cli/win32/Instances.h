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
    // A sentence that says who runs tasks already, or an empty text; then this process counts as the one
    // console that does until the object goes. Waits for a console that is editing.
    [[nodiscard]] std::string WhyNotToLaunch();
    // The same for who has the tasks in memory; then no other console edits, and none begins to launch, until
    // the object goes.
    [[nodiscard]] std::string WhyNotToEdit();

private:
    CKernelHandle m_claim;  // the launching console's named mutex: its existence counts
    COwnedMutex m_edit;
};
