#include "ui/win32/SCVSchedulerApp.h"

#include <shlobj.h>

#include "core/list/TaskListPath.h"
#include "ui/model/StartUp.h"
#include "util/win32/KnownFolder.h"

namespace {

CKernelHandle CreateInstanceEvent() {
    return CKernelHandle(CreateEventW(nullptr, TRUE, FALSE, kInstanceEventName));
}

// False when there is no window of that title.
bool HandOver(std::wstring project) {
    const HWND window = FindWindowW(nullptr, kProgramTitle);
    if (window == nullptr) {
        return false;
    }
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    // The user started this process, so only it may allow the other one to come to the foreground.
    AllowSetForegroundWindow(process);
    COPYDATASTRUCT data{};
    data.dwData = kHandOverTag;
    data.cbData = HandOverByteCount(project);
    data.lpData = project.data();
    SendMessageW(window, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data));
    return true;
}

}  // namespace

BOOL CSCVSchedulerApp::InitInstance() {
    SetRegistryKey(L"Talvernick");
    CCommandLineInfo commandLine;
    ParseCommandLine(commandLine);

    m_firstEvent = CreateInstanceEvent();
    if (GetLastError() == ERROR_ALREADY_EXISTS) {
        m_firstEvent.Close();
        if (HandOver(commandLine.m_strFileName)) {
            return FALSE;
        }
    }

    m_dialog = std::make_unique<CSCVSchedulerDlg>(
        m_platform,
        SettleTaskListPath({m_strHelpFilePath, GetKnownFolder(CSIDL_APPDATA),
                            GetKnownFolder(CSIDL_LOCAL_APPDATA), m_strAppName, m_strExeName},
                           m_patientFiles),
        &m_patientFiles);
    if (!m_dialog->Create(IDD_MAIN)) {
        return FALSE;
    }
    m_instanceEvent = CreateInstanceEvent();
    if (!StartsHidden(m_lpCmdLine)) {
        m_dialog->ShowAndSelectProject(SW_SHOW, commandLine.m_strFileName);
        m_dialog->UpdateWindow();
    }
    m_pMainWnd = m_dialog.get();
    return TRUE;
}

int CSCVSchedulerApp::ExitInstance() {
    m_dialog.reset();
    m_instanceEvent.Close();
    return CWinApp::ExitInstance();
}
