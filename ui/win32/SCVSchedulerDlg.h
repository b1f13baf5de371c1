#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "core/platform/Platform.h"
#include "framework/GuiHandle.h"
#include "framework/ToolTipCtrl.h"
#include "layout/win32/ResizingDialog.h"
#include "ui/model/ListSession.h"
#include "ui/win32/IconButtons.h"
#include "ui/win32/ProjectCommands.h"
#include "ui/win32/ProjectList.h"
#include "ui/win32/ProjectPane.h"
#include "ui/win32/RowTip.h"
#include "ui/win32/TaskEditor.h"
#include "ui/win32/TrayIcon.h"

// The program's window. It owns the session of the task list and launches due tasks on its timer, whether it
// is shown or hidden. It hides instead of closing; only Exit destroys it.
class CSCVSchedulerDlg : public CResizingDialog {
public:
    static constexpr UINT_PTR kTimer = 101;

    // The objects of `platform` outlive the dialog. Its files must not wait, or the window would not respond.
    // `taskListPath` is the task list file. The last save, when the program ends, uses `closingFiles`, which
    // may wait; null means the files of `platform`.
    CSCVSchedulerDlg(const CPlatform& platform, std::wstring taskListPath,
                     IFileSystem* closingFiles = nullptr);
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
    // Handles the dialog's own messages. Returns the result of a message that needs no further handling.
    std::optional<LRESULT> OnOwnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    bool CreateToolTips();
    void RegisterControls();
    void SetOpeningSize();
    void OnShowWindow(bool show);
    void OnTimer();
    void OnRun();
    void OnLocalTimeChanged();
    void OnHandOver(const COPYDATASTRUCT* data);
    void OnDestroy();
    void OnShowCommand();
    void OpenWindow(const std::wstring& projectPath);
    void OnExit();
    void OnLaunchEnded();
    void OnEndSession();

    CPlatform m_platform;
    IFileSystem& m_closingFiles;
    CListSession m_session;
    CProjectList m_list;
    CTaskEditor m_editor;
    CToolTipCtrl m_toolTip;
    CRowTip m_rowTip;
    CProjectPane m_pane;
    CProjectCommands m_commands;
    CTrayIcon m_trayIcon;
    CIconButtons m_iconButtons;
    CIconHandle m_largeIcon, m_smallIcon;

    bool m_bReady = false;      // initialised, and not being destroyed
    bool m_bRestoring = false;  // the placement is being restored
    bool m_bExits = false;      // Exit was chosen during a launch; the program ends after the launch
};
