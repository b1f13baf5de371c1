#pragma once

#include <windows.h>

#include <shellapi.h>

#include <string>
#include <vector>

#include "core/platform/Platform.h"
#include "core/task/SCVShchedulerTaskArray.h"
#include "framework/GuiHandle.h"
#include "framework/ToolTipCtrl.h"
#include "layout/win32/ResizingDialog.h"
#include "ui/model/PassRecord.h"
#include "ui/win32/ProjectList.h"
#include "ui/win32/TaskEditor.h"
#include "ui/win32/TrayIcon.h"

// The program's window. It owns the tasks, launches the due ones on its timer whether it is shown or hidden,
// and hides instead of closing: only Exit destroys it.
class CSCVSchedulerDlg : public CResizingDialog {
public:
    static constexpr UINT_PTR kTimer = 101;

    // What `platform` refers to outlives the dialog. `taskListPath` is the file that the list is loaded from
    // and saved to.
    CSCVSchedulerDlg(const CPlatform& platform, std::wstring taskListPath);
    ~CSCVSchedulerDlg() override;

    // Shows or hides the window. A listed project is selected by the position rule of RowAtProjectsPosition;
    // an empty or unknown path leaves the selection. Returns whether the window was visible before.
    BOOL ShowAndSelectProject(int showCommand, const std::wstring& projectPath);
    BOOL PreTranslateMessage(MSG* message) override;

protected:
    BOOL OnInitDialog() override;
    BOOL OnCommand(int id, UINT code, HWND control) override;
    BOOL OnNotify(NMHDR* header, LRESULT* result) override;
    void OnOK() override;
    void OnCancel() override;
    void DoDataExchange(CDataExchange* exchange) override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    // SCVSchedulerDlg.cpp: the window's life.
    void SetIcons();
    bool CreateToolTips();
    void RegisterControls();
    void SetOpeningSize();
    void OnShowWindow(bool show);
    void OnTimer();
    void OnLocalTimeChanged();
    void OnTrayMessage(UINT mouseMessage);
    void OnHandOver(const COPYDATASTRUCT* data);
    void OnDestroy();
    void OnShowCommand();
    void OnExit();
    // Reads the list from its file. False when it is there and cannot be read: then it is tried again on
    // later ticks.
    bool LoadTasks();
    void SaveTasks();
    void ReloadPendingTasks();
    void FillProjectList();
    void SelectFirstRow();
    void SetSortColumn(int column, bool ascending);
    void OnListNotify(const NMHDR& header);

    // ProjectCommands.cpp: the buttons of the list and of the extraction program.
    void OnAddProject();
    void OnEditProject();
    void OnDeleteProject();
    void OnRunProject();
    void OnResetLastRun();
    void OnDropFiles(HDROP drop);
    void OnRunAtStartup();
    void OnBrowseProgram();
    void OnRunProgram();
    void AddAndSelect(const std::vector<std::wstring>& projects, bool registersFirst);

    CPlatform m_platform;
    std::wstring m_strTaskListPath;
    CSCVShchedulerTaskArray m_tasks;
    CPassRecord m_passRecord;
    int m_nSortColumn = 0;  // -1 is none
    bool m_bAscending = true;

    CProjectList m_list;
    CTaskEditor m_editor;
    CToolTipCtrl m_toolTip;
    CTrayIcon m_trayIcon;
    std::vector<CIconHandle> m_icons;

    bool m_bReady = false;        // initialised, and not being destroyed
    bool m_bRestoring = false;    // the placement is being restored
    bool m_bListWasRead = false;  // what the tasks are comes from the file, or there was none
    bool m_bLoadPending = false;  // the file is there and could not be read
    // The shell is starting a program. It may dispatch messages meanwhile: nothing may be launched a second
    // time then, and no task may go.
    bool m_bLaunching = false;
    std::string m_strPassError;  // what the last pass failed with and the user has been told
};
