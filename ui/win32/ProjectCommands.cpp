#include "ui/win32/ProjectCommands.h"

#include <shlobj.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <memory>

#include "core/launch/ExtractionProgram.h"
#include "core/platform/Clock.h"
#include "core/platform/Shell.h"
#include "framework/FileDialog.h"
#include "framework/MessageBox.h"
#include "ui/model/AddProjects.h"
#include "ui/model/FileFilters.h"
#include "ui/resource.h"
#include "ui/win32/StartupRegistration.h"
#include "util/Path.h"
#include "util/win32/Registry.h"

namespace {

std::vector<std::wstring> QueryPaths(HDROP drop) {
    std::vector<std::wstring> paths;
    const UINT count = DragQueryFileW(drop, 0xFFFFFFFF, nullptr, 0);
    for (UINT i = 0; i < count; ++i) {
        wchar_t path[MAX_PATH] = {};
        DragQueryFileW(drop, i, path, MAX_PATH);
        paths.emplace_back(path);
    }
    return paths;
}

// As QueryPaths, for a drop of Unicode paths that has this many bytes. DragQueryFileW searches each path from
// the first one on and takes seconds for 10,000 paths.
std::vector<std::wstring> ReadPaths(const DROPFILES& drop, std::size_t bytes) {
    std::vector<std::wstring> paths;
    const auto* const begin = reinterpret_cast<const std::byte*>(&drop);
    const auto* text = reinterpret_cast<const wchar_t*>(begin + std::min<std::size_t>(drop.pFiles, bytes));
    const auto* const end = reinterpret_cast<const wchar_t*>(begin + bytes);
    while (text < end && *text != L'\0') {
        const wchar_t* const stop = std::find(text, end, L'\0');
        paths.emplace_back(text, std::min<std::ptrdiff_t>(stop - text, MAX_PATH - 1));
        text = stop + 1;
    }
    return paths;
}

// The dropped files that are projects, in the order of the drop. Releases the drop. Paths of 260 characters
// or more are cut, so they hardly ever count as projects.
std::vector<std::wstring> TakeDroppedProjects(HDROP drop) {
    struct Release {
        void operator()(HDROP taken) const noexcept { DragFinish(taken); }
    };
    const std::unique_ptr<HDROP__, Release> release(drop);
    const std::size_t bytes = GlobalSize(drop);
    const auto* record =
        bytes >= sizeof(DROPFILES) ? static_cast<const DROPFILES*>(GlobalLock(drop)) : nullptr;
    std::vector<std::wstring> paths =
        record != nullptr && record->fWide != FALSE ? ReadPaths(*record, bytes) : QueryPaths(drop);
    if (record != nullptr) {
        GlobalUnlock(drop);
    }
    std::erase_if(paths, [](const std::wstring& path) { return !AcceptsDrop(path); });
    return paths;
}

}  // namespace

bool CProjectCommands::OnCommand(int id) {
    static constexpr struct {
        int id;
        void (CProjectCommands::*handle)();
    } kHandlers[] = {
        {IDC_ADD_PROJECT, &CProjectCommands::OnAddProject},
        {IDC_EDIT_PROJECT, &CProjectCommands::OnEditProject},
        {IDC_DELETE_PROJECT, &CProjectCommands::OnDeleteProject},
        {IDC_RUN_PROJECT, &CProjectCommands::OnRunProject},
        {IDC_RESET_LAST_RUN, &CProjectCommands::OnResetLastRun},
        {IDC_RUN_AT_STARTUP, &CProjectCommands::OnRunAtStartup},
        {IDC_PROGRAM_BROWSE, &CProjectCommands::OnBrowseProgram},
        {IDC_PROGRAM_RUN, &CProjectCommands::OnRunProgram},
    };
    const auto* const handler = std::find_if(std::begin(kHandlers), std::end(kHandlers),
                                             [=](const auto& row) { return row.id == id; });
    if (handler == std::end(kHandlers)) {
        return false;
    }
    (this->*handler->handle)();
    return true;
}

void CProjectCommands::OnAddProject() {
    CFileDialog dialog(true, kProjectExtension, {}, OFN_ALLOWMULTISELECT | OFN_HIDEREADONLY, kProjectFilter,
                       &m_dialog);
    dialog.SetBufferSize(kProjectNamesLength);
    if (dialog.DoModal() == IDOK) {
        AddAndSelect(dialog.GetPathNames(), true);
    }
}

void CProjectCommands::OnDropFiles(HDROP drop) {
    AddAndSelect(TakeDroppedProjects(drop), false);
}

void CProjectCommands::AddAndSelect(const std::vector<std::wstring>& projects, bool registersFirst) {
    const stAddedProjects added = AddProjects(m_session.Tasks(), projects, m_platform.clock.Now());
    if (added.selectPath.empty()) {
        return;
    }
    m_pane.Fill();
    m_list.Select(m_list.FindRowByPath(added.selectPath));
    if (registersFirst && added.isFirstOfList) {
        m_dialog.CheckDlgButton(IDC_RUN_AT_STARTUP, true);
        OnRunAtStartup();
    }
}

void CProjectCommands::OnEditProject() {
    const CSCVShchedulerTask* shown = m_list.FirstSelectedTask();
    if (shown == nullptr) {
        return;
    }
    CFileDialog dialog(true, kProjectExtension, shown->m_strProjectPath, OFN_HIDEREADONLY, kProjectFilter,
                       &m_dialog);
    if (dialog.DoModal() != IDOK) {
        return;
    }
    const std::ptrdiff_t listed = m_session.Tasks().FindTask(dialog.GetPathName());
    if (listed >= 0) {
        m_list.Select(m_list.FindRowOf(*m_session.Tasks()[listed]));
    } else if (CSCVShchedulerTask* task = m_list.FirstSelectedTask(); task != nullptr) {
        task->m_strProjectPath = dialog.GetPathName();
        m_dialog.Invalidate();
    }
}

void CProjectCommands::OnDeleteProject() {
    if (m_session.IsLaunching()) {
        return;
    }
    const HWND focus = GetFocus();
    const std::vector<int> rows = m_list.SelectedRows();
    std::vector<std::wstring> projects;
    for (const int row : rows) {
        projects.push_back(m_list.TaskOfRow(row)->m_strProjectPath);
    }
    m_session.Tasks().RemoveTasks(projects);
    m_pane.Fill();
    m_pane.SelectAfterDeletion(rows.empty() ? -1 : rows.back());
    // Without a selection the button was disabled for a moment and lost the focus to the editor, where the
    // next key would change the project that is now selected.
    if (GetFocus() != focus && IsChild(m_dialog.m_hWnd, focus) && ::IsWindowEnabled(focus)) {
        m_dialog.SendMessage(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(focus), TRUE);
    }
}

void CProjectCommands::OnRunProject() {
    CSCVShchedulerTask* task = m_list.FirstSelectedTask();
    if (task != nullptr && m_session.RunProject(*task)) {
        m_list.Invalidate();
    }
}

void CProjectCommands::OnResetLastRun() {
    if (CSCVShchedulerTask* task = m_list.FirstSelectedTask(); task != nullptr) {
        task->m_tLastRunTime = 0;
        task->m_strLastRunResult.clear();
        m_list.Invalidate();
    }
}

void CProjectCommands::OnRunAtStartup() {
    StartWithWindows(m_dialog.IsDlgButtonChecked(IDC_RUN_AT_STARTUP));
}

void CProjectCommands::OnBrowseProgram() {
    // The save dialog, on purpose. It only returns a path and writes nothing.
    CFileDialog dialog(false, kProgramExtension, {}, OFN_HIDEREADONLY, kProgramFilter, &m_dialog);
    dialog.SetInitialFolder(GetFolderPath(m_dialog.GetDlgItemText(IDC_PROGRAM_PATH)));
    if (dialog.DoModal() == IDOK) {
        m_dialog.SetDlgItemText(IDC_PROGRAM_PATH, dialog.GetPathName());
        RegWriteString(HKEY_CURRENT_USER, kScrivaneKey, kProgramValue, dialog.GetPathName().c_str());
    }
}

void CProjectCommands::OnRunProgram() {
    constexpr std::intptr_t kHighestFailure = 32;
    const std::wstring program = m_dialog.GetDlgItemText(IDC_PROGRAM_PATH);
    const std::intptr_t result = m_platform.shell.Open(program, {});
    if (result <= kHighestFailure) {
        AfxMessageBox(L"Failure to run '" + program + L"'. Error: " + std::to_wstring(result));
    }
}
