#include <windows.h>

#include "core/Clock.h"
#include "core/LocalTime.h"
#include "core/Shell.h"
#include "core/WindowsFileSystem.h"
#include "ui/SCVSchedulerApp.h"
#include "util/ComApartment.h"
#include "util/ProcessHardening.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR lpCmdLine, int) {
    HardenProcess();
    RefreshTimeZone();
    const CComApartment apartment;
    const CSystemClock clock;
    CWindowsFileSystem files;
    CWindowsShell shell;
    CSCVSchedulerApp app({clock, files, shell});
    return AfxWinMain(app, lpCmdLine);
}
