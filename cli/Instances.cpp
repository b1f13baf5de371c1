#include "cli/Instances.h"

#include <windows.h>

#include <utility>

namespace {

// The window program holds this event for as long as it runs.
constexpr const wchar_t* kWindowProgramEvent = L"SCVSchedulerApp";
constexpr const wchar_t* kConsoleClaim = L"SCVSchedulerConsole";

bool IsWindowProgramRunning() {
    const CKernelHandle event(OpenEventW(SYNCHRONIZE, FALSE, kWindowProgramEvent));
    return event || GetLastError() == ERROR_ACCESS_DENIED;
}

}  // namespace

std::string CInstances::WhyNotToLaunch() {
    if (IsWindowProgramRunning()) {
        return "the window program is running and launches the tasks itself; end it with its Exit button "
               "first";
    }
    if (m_claim) {
        return {};
    }
    CKernelHandle claim(CreateMutexW(nullptr, FALSE, kConsoleClaim));
    if (!claim || GetLastError() == ERROR_ALREADY_EXISTS) {
        return "another scvsched is launching tasks; wait for it or end it with Ctrl+C first";
    }
    m_claim = std::move(claim);
    return {};
}
