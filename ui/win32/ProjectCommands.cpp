#include <algorithm>

#include "core/platform/Clock.h"
#include "core/launch/ExtractionProgram.h"
#include "core/platform/Shell.h"
#include "framework/FileDialog.h"
#include "framework/MessageBox.h"
#include "ui/model/AddProjects.h"
#include "ui/model/DirectRun.h"
#include "ui/win32/DroppedFiles.h"
#include "ui/model/FileFilters.h"
#include "ui/model/RowSelection.h"
#include "ui/win32/SCVSchedulerDlg.h"
#include "ui/win32/StartupRegistration.h"
#include "ui/resource.h"
#include "util/Path.h"
#include "util/win32/Registry.h"

void CSCVSchedulerDlg::OnAddProject() {
    CFileDialog dialog(true, kProjectExtension, {}, OFN_ALLOWMULTISELECT | OFN_HIDEREADONLY, kProjectFilter,
                       this);
    dialog.SetBufferSize(kProjectNamesLength);
    if (dialog.DoModal() == IDOK) {
        AddAndSelect(dialog.GetPathNames(), true);
    }
}

void CSCVSchedulerDlg::OnDropFiles(HDROP drop) {
    AddAndSelect(TakeDroppedProjects(drop), false);
}

void CSCVSchedulerDlg::AddAndSelect(const std::vector<std::wstring>& projects, bool registersFirst) {
    const stAddedProjects added = AddProjects(m_tasks, projects, m_platform.clock.Now());
    if (added.selectPath.empty()) {
        return;
    }
    FillProjectList();
    m_list.Select(m_list.FindRowByPath(added.selectPath));
    if (registersFirst && added.isFirstOfList) {
        CheckDlgButton(IDC_RUN_AT_STARTUP, true);
        OnRunAtStartup();
    }
}

void CSCVSchedulerDlg::OnEditProject() {
    const CSCVShchedulerTask* shown = m_list.FirstSelectedTask();
    if (shown == nullptr) {
        return;
    }
    CFileDialog dialog(true, kProjectExtension, shown->m_strProjectPath, OFN_HIDEREADONLY, kProjectFilter,
                       this);
    if (dialog.DoModal() != IDOK) {
        return;
    }
    const std::ptrdiff_t listed = m_tasks.FindTask(dialog.GetPathName());
    if (listed >= 0) {
        m_list.Select(m_list.FindRowOf(*m_tasks[listed]));
    } else if (CSCVShchedulerTask* task = m_list.FirstSelectedTask(); task != nullptr) {
        task->m_strProjectPath = dialog.GetPathName();
        Invalidate();
    }
}

void CSCVSchedulerDlg::OnDeleteProject() {
    if (m_bLaunching) {
        return;
    }
    const std::vector<int> rows = m_list.SelectedRows();
    std::vector<std::wstring> projects;
    for (const int row : rows) {
        projects.push_back(m_list.TaskOfRow(row)->m_strProjectPath);
    }
    for (const std::wstring& project : projects) {
        m_tasks.RemoveTask(project);
    }
    FillProjectList();
    const auto next = static_cast<int>(RowAfterDeletion(rows.empty() ? -1 : rows.back(), m_list.RowCount()));
    if (next >= 0) {
        m_list.Select(next);
    } else {
        m_editor.UpdateStates();
    }
}

void CSCVSchedulerDlg::OnRunProject() {
    CSCVShchedulerTask* task = m_list.FirstSelectedTask();
    if (task == nullptr || m_bLaunching) {
        return;
    }
    m_bLaunching = true;
    task->Run(m_platform.shell, m_platform.clock);
    m_bLaunching = false;
    m_list.Invalidate();
}

void CSCVSchedulerDlg::OnResetLastRun() {
    if (CSCVShchedulerTask* task = m_list.FirstSelectedTask(); task != nullptr) {
        task->m_tLastRunTime = 0;
        task->m_strLastRunResult.clear();
        m_list.Invalidate();
    }
}

void CSCVSchedulerDlg::OnRunAtStartup() {
    StartWithWindows(IsDlgButtonChecked(IDC_RUN_AT_STARTUP));
}

void CSCVSchedulerDlg::OnBrowseProgram() {
    // The save form on purpose. It only answers a path and writes nothing.
    CFileDialog dialog(false, kProgramExtension, {}, OFN_HIDEREADONLY, kProgramFilter, this);
    dialog.SetInitialFolder(GetFolderPath(GetDlgItemText(IDC_PROGRAM_PATH)));
    if (dialog.DoModal() == IDOK) {
        SetDlgItemText(IDC_PROGRAM_PATH, dialog.GetPathName());
        RegWriteString(HKEY_CURRENT_USER, kScrivaneKey, kProgramValue, dialog.GetPathName().c_str());
    }
}

void CSCVSchedulerDlg::OnRunProgram() {
    const std::wstring program = GetDlgItemText(IDC_PROGRAM_PATH);
    const std::wstring failure = DirectRunFailure(program, m_platform.shell.Open(program, {}));
    if (!failure.empty()) {
        AfxMessageBox(failure);
    }
}
