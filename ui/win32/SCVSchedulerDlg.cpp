#include "ui/win32/SCVSchedulerDlg.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "core/launch/ExtractionProgram.h"
#include "core/launch/SchedulingPass.h"
#include "core/platform/Clock.h"
#include "core/platform/LocalTime.h"
#include "core/platform/Shell.h"
#include "framework/ExceptionBoundary.h"
#include "framework/IconResource.h"
#include "framework/WinApp.h"
#include "ui/model/AddProjects.h"
#include "ui/model/CellText.h"
#include "ui/model/RowSelection.h"
#include "ui/model/StartUp.h"
#include "ui/resource.h"
#include "ui/win32/SortMarks.h"
#include "ui/win32/StartupRegistration.h"
#include "util/win32/FileVersion.h"
#include "util/win32/PopupMenu.h"

namespace {

constexpr UINT kTimerPeriod = 2000;  // milliseconds
constexpr wchar_t kSection[] = L"CSCVSchedulerDlg";
constexpr wchar_t kSortColumn[] = L"sortColumnIndex";
constexpr wchar_t kAscending[] = L"ascSort";

constexpr struct {
    int button;
    int icon;
} kIconButtons[] = {
    {IDC_ADD_PROJECT, IDI_ADD_PROJECT},
    {IDC_EDIT_PROJECT, IDI_BROWSE},
    {IDC_DELETE_PROJECT, IDI_DELETE_PROJECT},
    {IDC_RUN_PROJECT, IDI_RUN},
    {IDC_RESET_LAST_RUN, IDI_RESET_LAST_RUN},
    {IDC_PROGRAM_BROWSE, IDI_BROWSE},
    {IDC_PROGRAM_RUN, IDI_RUN},
    {IDC_EXPORT_FILE_BROWSE, IDI_BROWSE},
    {IDC_FAILED_URLS_FILE_BROWSE, IDI_BROWSE},
    {IDC_URLS_FILE_BROWSE, IDI_BROWSE},
    {IDC_INPUT_VALUES_FILE_BROWSE, IDI_BROWSE},
    {IDC_SCRIPT_FILE_BROWSE, IDI_BROWSE},
};

constexpr struct {
    int id;
    UINT anchors;
} kAnchors[] = {
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

CSCVSchedulerDlg::CSCVSchedulerDlg(const CPlatform& platform, std::wstring taskListPath)
    : CResizingDialog(IDD_MAIN),
      m_platform(platform),
      m_strTaskListPath(std::move(taskListPath)),
      m_list(m_tasks, m_platform.clock),
      m_editor(*this, m_list, m_platform.clock) {}

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
    SetIcons();
    if (!CreateToolTips()) {
        return FALSE;
    }
    RegisterControls();
    m_list.Initialise(LoadSortMarks());
    SetOpeningSize();
    SetDlgItemText(IDC_PROGRAM_PATH, m_platform.shell.RegisteredProgram(kScrivaneKey));

    const CWinApp& app = *AfxGetApp();
    m_nSortColumn = static_cast<int>(app.GetProfileInt(kSection, kSortColumn, 0));
    m_bAscending = app.GetProfileInt(kSection, kAscending, 1) != 0;
    m_bReady = true;
    LoadTasks();
    FillProjectList();
    SelectFirstRow();
    CheckDlgButton(IDC_RUN_AT_STARTUP, IsStartedWithWindows());
    SetTimer(kTimer, kTimerPeriod);
    DragAcceptFiles(m_hWnd, TRUE);
    return TRUE;
}

void CSCVSchedulerDlg::DoDataExchange(CDataExchange* exchange) {
    DDX_Control(exchange, IDC_PROJECT_LIST, m_list);
    m_editor.DoDataExchange(exchange);
}

void CSCVSchedulerDlg::SetIcons() {
    m_icons.push_back(LoadLargeIcon(IDI_PROGRAM));
    SetIcon(m_icons.back().Get(), true);
    m_icons.push_back(LoadSmallIcon(IDI_PROGRAM));
    SetIcon(m_icons.back().Get(), false);
    for (const auto& item : kIconButtons) {
        m_icons.push_back(LoadSmallIcon(item.icon));
        CWnd(GetDlgItem(item.button))
            .SendMessage(BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(m_icons.back().Get()));
    }
}

bool CSCVSchedulerDlg::CreateToolTips() {
    if (!m_toolTip.Create(*this)) {
        return false;
    }
    for (const auto& item : kIconButtons) {
        m_toolTip.AddTool(GetDlgItem(item.button), GetDlgItemText(item.button));
    }
    m_toolTip.Activate(true);
    return true;
}

void CSCVSchedulerDlg::RegisterControls() {
    for (const auto& control : kAnchors) {
        AddControl(GetDlgItem(control.id), control.anchors);
    }
    for (HWND child = GetWindow(m_hWnd, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        if (!HasControl(child)) {
            AddControl(child, ANCHOR_TOP | ANCHOR_RIGHT);
        }
    }
}

// Wide enough for the list's columns as far as the next run, and without the room below the editor that keeps
// the controls apart in the smallest window.
void CSCVSchedulerDlg::SetOpeningSize() {
    const RECT list = m_list.GetWindowRect();
    const LONG missing = m_list.WidthFor(kNextRunTimeColumn) - (list.right - list.left);
    OpenWith({GetClientRect().right + std::max(missing, 0L), m_nMinTrackHeight});
}

BOOL CSCVSchedulerDlg::PreTranslateMessage(MSG* message) {
    m_toolTip.RelayEvent(message);
    if (message->message == WM_KEYDOWN && message->wParam == VK_DELETE && message->hwnd == m_list.m_hWnd) {
        OnDeleteProject();
    }
    return CResizingDialog::PreTranslateMessage(message);
}

LRESULT CSCVSchedulerDlg::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_TIMER:
            if (wParam != kTimer) {
                return 0;
            }
            OnTimer();
            break;
        case kTrayMessage:
            OnTrayMessage(LOWORD(lParam));
            return 1;
        case WM_COPYDATA:
            OnHandOver(reinterpret_cast<const COPYDATASTRUCT*>(lParam));
            break;
        case WM_DROPFILES:
            OnDropFiles(reinterpret_cast<HDROP>(wParam));
            return 0;
        case WM_TIMECHANGE:
        case WM_SETTINGCHANGE:
        case WM_POWERBROADCAST:
            OnLocalTimeChanged();
            break;
        case WM_DESTROY:
            OnDestroy();
            break;
        default:
            break;
    }
    const LRESULT result = CResizingDialog::WindowProc(message, wParam, lParam);
    if (message == WM_SHOWWINDOW) {
        OnShowWindow(wParam != FALSE);
    }
    return result;
}

BOOL CSCVSchedulerDlg::OnCommand(int id, UINT code, HWND control) {
    if (!m_bReady) {
        return FALSE;
    }
    if (control != nullptr && m_editor.OnCommand(id, code)) {
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
        case IDC_ADD_PROJECT:
            OnAddProject();
            return TRUE;
        case IDC_EDIT_PROJECT:
            OnEditProject();
            return TRUE;
        case IDC_DELETE_PROJECT:
            OnDeleteProject();
            return TRUE;
        case IDC_RUN_PROJECT:
            OnRunProject();
            return TRUE;
        case IDC_RESET_LAST_RUN:
            OnResetLastRun();
            return TRUE;
        case IDC_RUN_AT_STARTUP:
            OnRunAtStartup();
            return TRUE;
        case IDC_PROGRAM_BROWSE:
            OnBrowseProgram();
            return TRUE;
        case IDC_PROGRAM_RUN:
            OnRunProgram();
            return TRUE;
        default:
            return CResizingDialog::OnCommand(id, code, control);
    }
}

BOOL CSCVSchedulerDlg::OnNotify(NMHDR* header, LRESULT*) {
    if (!m_bReady) {
        return FALSE;
    }
    if (header->hwndFrom == m_list.m_hWnd) {
        OnListNotify(*header);
        return FALSE;
    }
    return m_editor.OnNotify(*header);
}

void CSCVSchedulerDlg::OnListNotify(const NMHDR& header) {
    switch (header.code) {
        case LVN_GETDISPINFOW:
            m_list.OnGetDispInfo(*reinterpret_cast<NMLVDISPINFOW*>(const_cast<NMHDR*>(&header)));
            break;
        case LVN_ITEMCHANGED: {
            const auto& change = reinterpret_cast<const NMLISTVIEW&>(header);
            if (m_list.IsFilling() || (change.uChanged & LVIF_STATE) == 0) {
                break;
            }
            m_list.OnItemChanged(change);
            if ((change.uNewState & LVIS_FOCUSED) != 0) {
                m_editor.Load(change.iItem);
            }
            m_editor.FollowSelection();
            break;
        }
        case LVN_COLUMNCLICK:
            // The direction turns with every click, also on another column.
            SetSortColumn(reinterpret_cast<const NMLISTVIEW&>(header).iSubItem, !m_bAscending);
            break;
        case NM_CLICK:
            if (m_list.RowAt(reinterpret_cast<const NMITEMACTIVATE&>(header).ptAction) < 0) {
                m_editor.Load(-1);
            }
            break;
        default:
            break;
    }
}

void CSCVSchedulerDlg::FillProjectList() {
    m_list.Fill();
    Invalidate();
    m_editor.Load(-1);
    SetSortColumn(m_nSortColumn, m_bAscending);
}

void CSCVSchedulerDlg::SelectFirstRow() {
    m_list.Select(m_list.RowCount() > 0 ? 0 : -1);
}

void CSCVSchedulerDlg::SetSortColumn(int column, bool ascending) {
    m_list.Sort(column, ascending, m_nSortColumn);
    m_nSortColumn = column;
    m_bAscending = ascending;
}

BOOL CSCVSchedulerDlg::ShowAndSelectProject(int showCommand, const std::wstring& projectPath) {
    const BOOL wasVisible = ShowWindow(showCommand);
    if (const auto row = static_cast<int>(RowAtProjectsPosition(m_tasks, projectPath)); row >= 0) {
        m_list.ClearSelection();
        m_editor.Load(-1);
        m_list.Select(row);
    }
    return wasVisible;
}

void CSCVSchedulerDlg::OnShowWindow(bool show) {
    // Restoring shows the window and may maximise it, which comes here again.
    if (!show || m_bRestoring || !m_bReady) {
        return;
    }
    m_bRestoring = true;
    m_list.SetFocus();
    RestoreWindowPlacement(kSection);
    m_bRestoring = false;
}

void CSCVSchedulerDlg::OnShowCommand() {
    ShowAndSelectProject(SW_SHOW, {});
    SetForegroundWindow();
}

void CSCVSchedulerDlg::OnOK() {
    SaveTasks();
    ShowAndSelectProject(SW_HIDE, {});
}

void CSCVSchedulerDlg::OnCancel() {
    if (m_bLaunching) {
        return;
    }
    LoadTasks();
    FillProjectList();
    SelectFirstRow();
    ShowAndSelectProject(SW_HIDE, {});
}

void CSCVSchedulerDlg::OnExit() {
    SaveTasks();
    DestroyWindow();
}

bool CSCVSchedulerDlg::LoadTasks() {
    const IFileSystem::Status status = m_tasks.TryLoad(m_platform.files, m_strTaskListPath);
    m_bLoadPending = status == IFileSystem::Status::Busy || status == IFileSystem::Status::Failed;
    m_bListWasRead = m_bListWasRead || !m_bLoadPending;
    m_passRecord.ApplyTo(m_tasks);
    return !m_bLoadPending;
}

void CSCVSchedulerDlg::SaveTasks() {
    if (m_tasks.TrySave(m_platform.files, m_strTaskListPath)) {
        m_passRecord.Clear();
    }
}

void CSCVSchedulerDlg::ReloadPendingTasks() {
    // Projects that were added while the list could not be read at all are no part of it yet.
    std::vector<std::wstring> added;
    for (std::ptrdiff_t i = 0; !m_bListWasRead && i < m_tasks.GetSize(); ++i) {
        added.push_back(m_tasks[i]->m_strProjectPath);
    }
    if (LoadTasks()) {
        AddProjects(m_tasks, added, m_platform.clock.Now());
        FillProjectList();
        SelectFirstRow();
    }
}

void CSCVSchedulerDlg::OnTimer() {
    if (m_bLaunching || !m_bReady) {
        return;
    }
    // Not while a dialog stands before the window: what it is asking about may go with the old tasks.
    if (m_bLoadPending && IsWindowEnabled()) {
        ReloadPendingTasks();
    }
    m_bLaunching = true;
    std::string error;
    try {
        RunSchedulingPass(m_tasks, m_platform, [this](const CSCVShchedulerTask& task) {
            m_passRecord.Add(task);
            Invalidate();
        });
    } catch (const std::exception& failure) {
        error = failure.what();
    }
    m_bLaunching = false;
    // Told once, not every two seconds.
    if (std::exchange(m_strPassError, error) != error && !error.empty()) {
        AfxReportException(error.c_str());
    }
}

void CSCVSchedulerDlg::OnLocalTimeChanged() {
    RefreshTimeZone();
    Invalidate();
}

void CSCVSchedulerDlg::OnTrayMessage(UINT mouseMessage) {
    if (mouseMessage == WM_LBUTTONDBLCLK) {
        PostMessage(WM_COMMAND, ID_SHOW_WINDOW);
    } else if (mouseMessage == WM_RBUTTONUP) {
        POINT point{};
        GetCursorPos(&point);
        // The system closes the menu of a foreground window when the user clicks elsewhere, of another one it
        // does not.
        SetForegroundWindow();
        ShowPopupMenu(IDR_TRAY_MENU, point.x, point.y, m_hWnd, 0);
    }
}

void CSCVSchedulerDlg::OnHandOver(const COPYDATASTRUCT* data) {
    if (data != nullptr && data->dwData == kHandOverTag) {
        ShowAndSelectProject(SW_SHOW, ReadHandOver(data->lpData, data->cbData));
        SetForegroundWindow();
    }
}

void CSCVSchedulerDlg::OnDestroy() {
    m_bReady = false;
    SaveWindowPlacement(kSection);
    const CWinApp& app = *AfxGetApp();
    app.WriteProfileInt(kSection, kSortColumn, m_nSortColumn);
    app.WriteProfileInt(kSection, kAscending, m_bAscending ? 1 : 0);
    m_toolTip.Destroy();
    m_trayIcon.Remove(m_hWnd);
}
