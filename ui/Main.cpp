#include <windows.h>

#include <objbase.h>

#include "core/Clock.h"
#include "core/LocalTime.h"
#include "core/Shell.h"
#include "core/WindowsFileSystem.h"
#include "ui/SCVSchedulerApp.h"
#include "util/ProcessHardening.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR commandLine, int) {
    HardenProcess();
    RefreshTimeZone();
    // The shell starts programs and shows its dialogs through components. Without them both mostly work
    // still.
    const HRESULT components = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE);
    int result = 0;
    {
        const CSystemClock clock;
        CWindowsFileSystem files;
        CWindowsShell shell;
        CSCVSchedulerApp app({clock, files, shell});
        result = AfxWinMain(app, commandLine);
    }
    if (SUCCEEDED(components)) {
        CoUninitialize();
    }
    return result;
}
