#pragma once

#include <memory>

#include "core/platform/Platform.h"
#include "framework/WinApp.h"
#include "ui/win32/SCVSchedulerDlg.h"
#include "util/win32/Handle.h"

// The application. A second process hands its project over to the first one when it finds that one's window
// by its title, which it hardly ever does: the title carries the version. Then it runs as a further instance,
// on purpose.
class CSCVSchedulerApp : public CWinApp {
public:
    // What `platform` refers to and `patientFiles` outlive the application. The files of `platform` do not
    // wait for a busy file. `patientFiles` may: they are used before the window exists and after it is gone.
    CSCVSchedulerApp(const CPlatform& platform, IFileSystem& patientFiles) noexcept
        : m_platform(platform), m_patientFiles(patientFiles) {}

    BOOL InitInstance() override;
    int ExitInstance() override;

private:
    CPlatform m_platform;
    IFileSystem& m_patientFiles;
    CKernelHandle m_firstEvent;  // held by the first instance from before its window exists
    CKernelHandle m_instanceEvent;
    std::unique_ptr<CSCVSchedulerDlg> m_dialog;
};
