#include "ui/win32/SCVSchedulerDlg.h"

#include <algorithm>
#include <utility>

#include "core/launch/ExtractionProgram.h"
#include "core/platform/Clock.h"
#include "core/platform/LocalTime.h"
#include "core/platform/Shell.h"
#include "framework/ExceptionBoundary.h"
#include "framework/IconResource.h"
#include "framework/WinApp.h"
#include "ui/model/ProjectColumns.h"
#include "ui/model/RowSelection.h"
#include "ui/model/StartUp.h"
#include "ui/resource.h"
#include "ui/win32/StartupRegistration.h"
#include "util/win32/FileVersion.h"

namespace {

constexpr UINT kTimerPeriod = 2000;  // milliseconds
constexpr int kTipTime = 30'000;     // milliseconds, enough to read all lines about a row
constexpr wchar_t kSection[] = L"CSCVSchedulerDlg";
constexpr wchar_t kSortColumn[] = L"sortColumnIndex";
constexpr wchar_t kAscending[] = L"ascSort";

constexpr CResizingDialog::stAnchors kAnchors[] = {
    {IDC_PROJECT_LIST, ANCHOR_ALL},
    {IDC_PROGRAM_GROUP, ANCHOR_LEFT | ANCHOR_TOP | ANCHOR_RIGHT},
    {IDC_PROGRAM_PATH, ANCHOR_LEFT | ANCHOR_TOP | ANCHOR_RIGHT},
    {IDC_PROGRAM_BROWSE, ANCHOR_TOP | ANCHOR_RIGHT},
    {IDC_PROGRAM_RUN, ANCHOR_TOP | ANCHOR_RIGHT},
    {IDC_ADD_PROJECT, ANCHOR_LEFT | ANCHOR_BOTTOM},
    {IDC_EDIT_PROJECT, ANCHOR_LEFT | ANCHOR_BOTTOM},
    {IDC_DELETE_PROJECT, ANCHOR_LEFT | ANCHOR_BOTTOM},
    {IDC_RUN_PROJECT, ANCHOR_LEFT | ANCHOR_BOTTOM},
    {IDC_RESET_LAST_RUN, ANCHOR_LEFT | ANCHOR_BOTTOM},
    {IDC_RUN_AT_STARTUP, ANCHOR_RIGHT | ANCHOR_BOTTOM},
    {IDOK, ANCHOR_RIGHT | ANCHOR_BOTTOM},
    {IDCANCEL, ANCHOR_RIGHT | ANCHOR_BOTTOM},
    {ID_EXIT_PROGRAM, ANCHOR_RIGHT | ANCHOR_BOTTOM},
};

}  // namespace

CSCVSchedulerDlg::CSCVSchedulerDlg(const CPlatform& platform, std::wstring taskListPath,
                                   IFileSystem* closingFiles)
    : CResizingDialog(IDD_MAIN),
      m_platform(platform),
      m_closingFiles(closingFiles != nullptr ? *closingFiles : platform.files),
      m_session(platform, std::move(taskListPath)),
      m_list(m_session.Tasks(), m_platform.clock),
      m_editor(*this, m_list, m_platform.clock),
      m_rowTip(m_toolTip, m_list, m_session.Tasks(), m_platform),
      m_pane(*this, m_session, m_list, m_editor, m_rowTip),
      m_commands(*this, m_platform, m_session, m_list, m_pane) {}

CSCVSchedulerDlg::~CSCVSchedulerDlg() {
    if (m_hWnd != nullptr) {
        DestroyWindow();
    }
}

BOOL CSCVSchedulerDlg::OnInitDialog() {
    m_trayIcon.Add(m_hWnd);
    m_editor.Initialise();
    CResizingDialog::OnInitDialog();
    SetWindowText(WindowTitle(GetWindowText(), GetFileVersionString()));
    m_largeIcon = LoadLargeIcon(IDI_PROGRAM);
    SetIcon(m_largeIcon.Get(), true);
    m_smallIcon = LoadSmallIcon(IDI_PROGRAM);
    SetIcon(m_smallIcon.Get(), false);
    m_iconButtons.LoadIcons(*this);
    if (!CreateToolTips()) {
        return FALSE;
    }
    RegisterControls();
    m_list.Initialise();
    SetOpeningSize();
    SetDlgItemText(IDC_PROGRAM_PATH, m_platform.shell.RegisteredProgram(kScrivaneKey));

    const CWinApp& app = *AfxGetApp();
    m_list.SetSortColumn(static_cast<int>(app.GetProfileInt(kSection, kSortColumn, 0)),
                         app.GetProfileInt(kSection, kAscending, 1) != 0);
    m_bReady = true;
    m_session.Load();
    m_pane.ShowTasksAnew();
    CheckDlgButton(IDC_RUN_AT_STARTUP, IsStartedWithWindows());
    SetTimer(kTimer, kTimerPeriod);
    DragAcceptFiles(m_hWnd, TRUE);
    return TRUE;
}

void CSCVSchedulerDlg::DoDataExchange(CDataExchange* exchange) {
    DDX_Control(exchange, IDC_PROJECT_LIST, m_list);
    m_editor.DoDataExchange(exchange);
}

bool CSCVSchedulerDlg::CreateToolTips() {
    if (!m_toolTip.Create(*this)) {
        return false;
    }
    CIconButtons::AddTips(*this, m_toolTip);
    m_toolTip.SetMaxTipWidth(GetSystemMetrics(SM_CXSCREEN) * 2 / 3);
    m_toolTip.SetAutoPopTime(kTipTime);
    m_toolTip.Activate(true);
    return true;
}

void CSCVSchedulerDlg::RegisterControls() {
    AddControls(kAnchors);
    for (HWND child = GetWindow(m_hWnd, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        if (!HasControl(child)) {
            AddControl(child, ANCHOR_TOP | ANCHOR_RIGHT);
        }
    }
}

// Opens wide enough for the list's columns up to the next run, and with the smallest height: the template is
// higher only to keep the controls apart in the smallest window.
void CSCVSchedulerDlg::SetOpeningSize() {
    const RECT list = m_list.GetWindowRect();
    const LONG missing = m_list.WidthFor(kNextRunTimeColumn) - (list.right - list.left);
    OpenWith({GetClientRect().right + std::max(missing, 0L), m_nMinTrackHeight});
}

BOOL CSCVSchedulerDlg::PreTranslateMessage(MSG* message) {
    m_rowTip.Follow(*message);
    m_toolTip.RelayEvent(message);
    const bool isKey = message->message >= WM_KEYFIRST && message->message <= WM_KEYLAST;
    // A hidden window can have the focus, for instance after the tray menu.
    if (isKey && !IsWindowVisible() && (message->hwnd == m_hWnd || IsChild(m_hWnd, message->hwnd))) {
        return TRUE;
    }
    if (message->message == WM_KEYDOWN && message->hwnd == m_list.m_hWnd) {
        if (message->wParam == VK_DELETE) {
            m_commands.OnDeleteProject();
        } else if (message->wParam == 'A' && GetKeyState(VK_CONTROL) < 0 && GetKeyState(VK_MENU) >= 0) {
            m_list.SelectAll();
            return TRUE;
        }
    }
    return CResizingDialog::PreTranslateMessage(message);
}

LRESULT CSCVSchedulerDlg::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (const std::optional<LRESULT> ownResult = OnOwnMessage(message, wParam, lParam)) {
        return *ownResult;
    }
    const LRESULT result = CResizingDialog::WindowProc(message, wParam, lParam);
    if (message == WM_SHOWWINDOW) {
        OnShowWindow(wParam != FALSE);
    }
    return result;
}

std::optional<LRESULT> CSCVSchedulerDlg::OnOwnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_TIMER:
            if (wParam != kTimer) {
                return 0;
            }
            OnTimer();
            break;
        case kTrayMessage:
            m_trayIcon.OnMouse(LOWORD(lParam));
            return 1;
        case kTrayMenuClosed:
            m_trayIcon.OnMenuClosed(reinterpret_cast<HWND>(lParam));
            return 0;
        case WM_COPYDATA:
            OnHandOver(reinterpret_cast<const COPYDATASTRUCT*>(lParam));
            break;
        case WM_DROPFILES:
            m_commands.OnDropFiles(reinterpret_cast<HDROP>(wParam));
            return 0;
        case WM_TIMECHANGE:
        case WM_SETTINGCHANGE:
        case WM_POWERBROADCAST:
            OnLocalTimeChanged();
            break;
        case WM_QUERYENDSESSION:
            return TRUE;
        case WM_ENDSESSION:
            if (wParam != FALSE) {
                OnEndSession();
            }
            return 0;
        case WM_DESTROY:
            OnDestroy();
            break;
        default:
            break;
    }
    return std::nullopt;
}

BOOL CSCVSchedulerDlg::OnCommand(int id, UINT code, HWND control) {
    if (!m_bReady) {
        return FALSE;
    }
    if (control != nullptr && m_editor.OnCommand(id, code)) {
        m_rowTip.Hide();
        return TRUE;
    }
    if (code != BN_CLICKED) {
        return FALSE;
    }
    switch (id) {
        case ID_SHOW_WINDOW:
            OnShowCommand();
            return TRUE;
        case ID_EXIT_PROGRAM:
            OnExit();
            return TRUE;
        default:
            if (m_commands.OnCommand(id)) {
                OnLaunchEnded();
                return TRUE;
            }
            return CResizingDialog::OnCommand(id, code, control);
    }
}

BOOL CSCVSchedulerDlg::OnNotify(NMHDR* header, LRESULT* result) {
    if (!m_bReady) {
        return FALSE;
    }
    if (header->hwndFrom == m_list.m_hWnd) {
        *result = m_pane.OnListNotify(*header);
        return *result != 0;
    }
    if (m_rowTip.OnGetDispInfo(*reinterpret_cast<NMTTDISPINFOW*>(header))) {
        return TRUE;
    }
    const BOOL isHandled = m_editor.OnNotify(*header);
    if (isHandled) {
        m_rowTip.Hide();
    }
    return isHandled;
}

BOOL CSCVSchedulerDlg::ShowAndSelectProject(int showCommand, const std::wstring& projectPath) {
    const BOOL wasVisible = ShowWindow(showCommand);
    if (const auto row = static_cast<int>(RowAtProjectsPosition(m_session.Tasks(), projectPath)); row >= 0) {
        m_pane.SelectOnly(row);
    }
    return wasVisible;
}

void CSCVSchedulerDlg::OnShowWindow(bool show) {
    // RestoreWindowPlacement shows the window and may maximise it, which calls this function again.
    if (!show || m_bRestoring || !m_bReady) {
        return;
    }
    m_session.BeginEditing();
    m_bRestoring = true;
    m_list.SetFocus();
    RestoreWindowPlacement(kSection);
    m_bRestoring = false;
}

void CSCVSchedulerDlg::OnShowCommand() {
    OpenWindow({});
}

void CSCVSchedulerDlg::OpenWindow(const std::wstring& projectPath) {
    if (IsIconic(m_hWnd)) {
        ShowWindow(SW_RESTORE);
    }
    ShowAndSelectProject(SW_SHOW, projectPath);
    SetForegroundWindow();
}

void CSCVSchedulerDlg::OnOK() {
    if (m_session.Accept()) {
        m_pane.ShowTasksAnew();
    }
    ShowAndSelectProject(SW_HIDE, {});
}

void CSCVSchedulerDlg::OnCancel() {
    if (m_session.IsLaunching()) {
        return;
    }
    m_session.Discard();
    m_pane.ShowTasksAnew();
    ShowAndSelectProject(SW_HIDE, {});
}

void CSCVSchedulerDlg::OnExit() {
    // The pass still uses the task that it launches. OnLaunchEnded exits afterwards.
    if (m_session.IsLaunching()) {
        m_session.EndPass();
        m_bExits = true;
        return;
    }
    m_bReady = false;
    // The last save may wait for the file. The window does not respond meanwhile, so hide it.
    ShowWindow(SW_HIDE);
    m_session.Close(m_closingFiles);
    DestroyWindow();
}

void CSCVSchedulerDlg::OnLaunchEnded() {
    if (m_bExits && m_hWnd != nullptr && !m_session.IsLaunching()) {
        OnExit();
    }
}

// The system ends the process after this function, even in the middle of a launch.
void CSCVSchedulerDlg::OnEndSession() {
    m_session.EndPass();
    m_session.Close(m_closingFiles);
    DestroyWindow();
}

void CSCVSchedulerDlg::OnTimer() {
    if (m_session.IsLaunching() || !m_bReady) {
        return;
    }
    const bool hadNotice = !m_session.Notice().empty();
    // While a modal dialog is open the list is not read: that would delete the tasks that the dialog uses.
    if (m_session.OnTick(IsWindowEnabled() != FALSE)) {
        m_pane.ShowTasksAnew();
    } else if (hadNotice && m_session.Notice().empty()) {
        m_list.Invalidate();
    }
    const std::wstring error = m_session.RunDueProjects([this] { OnRun(); });
    if (!error.empty() && !m_bExits) {
        AfxReportFailure(error);
    }
    OnLaunchEnded();
}

void CSCVSchedulerDlg::OnRun() {
    m_rowTip.Hide();
    Invalidate();
}

void CSCVSchedulerDlg::OnLocalTimeChanged() {
    RefreshTimeZone();
    Invalidate();
}

void CSCVSchedulerDlg::OnHandOver(const COPYDATASTRUCT* data) {
    if (data != nullptr && data->dwData == kHandOverTag) {
        OpenWindow(ReadHandOver(data->lpData, data->cbData));
    }
}

void CSCVSchedulerDlg::OnDestroy() {
    m_bReady = false;
    SaveWindowPlacement(kSection);
    const CWinApp& app = *AfxGetApp();
    app.WriteProfileInt(kSection, kSortColumn, m_list.SortColumn());
    app.WriteProfileInt(kSection, kAscending, m_list.IsAscending() ? 1 : 0);
    m_toolTip.Destroy();
    m_trayIcon.Remove();
}
