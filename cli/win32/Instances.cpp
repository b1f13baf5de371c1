#include "cli/win32/Instances.h"

namespace {

// The window program holds this event for as long as it runs.
constexpr const wchar_t* kWindowProgramEvent = L"SCVSchedulerApp";
constexpr const wchar_t* kLaunchClaim = L"SCVSchedulerConsole";
constexpr const wchar_t* kEditMutex = L"SCVSchedulerConsoleEdit";
constexpr DWORD kEditMilliseconds = 10'000;

bool IsWindowProgramRunning() {
    const CKernelHandle event(OpenEventW(SYNCHRONIZE, FALSE, kWindowProgramEvent));
    return event || GetLastError() == ERROR_ACCESS_DENIED;
}

bool IsConsoleLaunching() {
    const CKernelHandle claim(OpenMutexW(SYNCHRONIZE, FALSE, kLaunchClaim));
    return claim || GetLastError() == ERROR_ACCESS_DENIED;
}

// None when another console keeps it.
COwnedMutex TryTakeEditMutex() {
    CKernelHandle mutex(CreateMutexW(nullptr, FALSE, kEditMutex));
    // A console that was killed leaves it abandoned, and the list file is whole at any time.
    const DWORD wait = mutex ? WaitForSingleObject(mutex.Get(), kEditMilliseconds) : WAIT_FAILED;
    return COwnedMutex(wait == WAIT_OBJECT_0 || wait == WAIT_ABANDONED ? mutex.Release() : nullptr);
}

std::string WhoHoldsTasks() {
    if (IsWindowProgramRunning()) {
        return "the window program is running and launches the tasks itself; end it with its Exit button "
               "first";
    }
    if (IsConsoleLaunching()) {
        return "another scvsched is launching tasks; wait for it or end it with Ctrl+C first";
    }
    return {};
}

constexpr const char* kEdited = "another scvsched is editing tasks; wait for it first";

}  // namespace

std::string CInstances::TryClaimLaunching() {
    if (m_claim) {
        return IsWindowProgramRunning() ? WhoHoldsTasks() : std::string();
    }
    const COwnedMutex edit = TryTakeEditMutex();
    std::string who = edit ? WhoHoldsTasks() : kEdited;
    if (who.empty()) {
        m_claim = CKernelHandle(CreateMutexW(nullptr, FALSE, kLaunchClaim));
    }
    return who;
}

std::string CInstances::TryClaimEditing() {
    m_edit = TryTakeEditMutex();
    return m_edit ? WhoHoldsTasks() : kEdited;
}
