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
#include "ui/win32/RowTip.h"
#include "ui/win32/TaskEditor.h"
#include "ui/win32/TrayIcon.h"

// The program's window. It owns the session of the task list, launches the due ones on its timer whether it
// is shown or hidden, and hides instead of closing: only Exit destroys it.
class CSCVSchedulerDlg : public CResizingDialog {
public:
    static constexpr UINT_PTR kTimer = 101;

    // What `platform` refers to outlives the dialog; its files do not wait, or the window would not respond.
    // `taskListPath` is the file that the list is loaded from and saved to. `closingFiles` may wait; they
    // make the last save, when the program ends. Null: those of `platform` make it.
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
    // Handles a message that the base class does not know; returns its result, if it has one.
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
    void ShowTasksAnew();
    void OnExit();
    void OnLaunchEnded();
    void OnEndSession();
    LRESULT OnListNotify(NMHDR& header);

    CPlatform m_platform;
    IFileSystem& m_closingFiles;
    CListSession m_session;
    CProjectList m_list;
    CTaskEditor m_editor;
    CProjectCommands m_commands;
    CToolTipCtrl m_toolTip;
    CRowTip m_rowTip;
    CTrayIcon m_trayIcon;
    CIconButtons m_iconButtons;
    CIconHandle m_largeIcon, m_smallIcon;

    bool m_bReady = false;      // initialised, and not being destroyed
    bool m_bRestoring = false;  // the placement is being restored
    bool m_bExits = false;      // Exit was chosen during a launch and follows it
};
