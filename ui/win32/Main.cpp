#include <windows.h>

#include "core/platform/Clock.h"
#include "core/platform/LocalTime.h"
#include "core/platform/Shell.h"
#include "core/platform/win32/WindowsFileSystem.h"
#include "framework/MessageLoop.h"
#include "ui/win32/SCVSchedulerApp.h"
#include "util/win32/ComApartment.h"
#include "util/win32/ProcessHardening.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR lpCmdLine, int) {
    HardenProcess();
    RefreshTimeZone();
    const CComApartment apartment;
    const CSystemClock clock;
    CWindowsFileSystem files(CWindowsFileSystem::Waiting::Never);
    CWindowsFileSystem patientFiles;
    CWindowsShell shell;
    CSCVSchedulerApp app({clock, files, shell}, patientFiles);
    return AfxWinMain(app, lpCmdLine);
}
