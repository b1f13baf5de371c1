#pragma once

#include <memory>

#include "core/platform/Platform.h"
#include "framework/WinApp.h"
#include "ui/win32/SCVSchedulerDlg.h"
#include "util/win32/Handle.h"

// The application. A second process searches the first one's window by its title and, if it finds the window,
// sends it the project and ends. It hardly ever finds it, because the title also has the version; then it
// runs as a further instance, on purpose.
class CSCVSchedulerApp : public CWinApp {
public:
    // The objects of `platform` and `patientFiles` outlive the application. The files of `platform` do not
    // wait for a busy file. `patientFiles` may wait: they are used before the window exists and for the last
    // save.
    CSCVSchedulerApp(const CPlatform& platform, IFileSystem& patientFiles) noexcept
        : m_platform(platform), m_patientFiles(patientFiles) {}

    BOOL InitInstance() override;
    int ExitInstance() override;

private:
    CPlatform m_platform;
    IFileSystem& m_patientFiles;
    CKernelHandle m_firstEvent;  // held by the first instance, from before its window exists on
    CKernelHandle m_instanceEvent;
    std::unique_ptr<CSCVSchedulerDlg> m_dialog;
};
