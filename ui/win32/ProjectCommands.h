#pragma once

#include <windows.h>

#include <shellapi.h>

#include <string>
#include <vector>

#include "core/platform/Platform.h"
#include "framework/Dialog.h"
#include "ui/model/ListSession.h"
#include "ui/win32/ProjectList.h"
#include "ui/win32/ProjectPane.h"

// Handles the buttons of the project list and of the extraction program, and files dropped on the window.
class CProjectCommands {
public:
    // Owns none of these objects. The controls are those of `dialog`.
    CProjectCommands(CDialog& dialog, const CPlatform& platform, CListSession& session, CProjectList& list,
                     CProjectPane& pane) noexcept
        : m_dialog(dialog), m_platform(platform), m_session(session), m_list(list), m_pane(pane) {}

    // True when `id` is one of these buttons.
    bool OnCommand(int id);
    // Also called for the Delete key.
    void OnDeleteProject();
    // Adds the dropped projects. `drop` is the handle that WM_DROPFILES carries; it is released.
    void OnDropFiles(HDROP drop);

private:
    void OnAddProject();
    void OnEditProject();
    void OnRunProject();
    void OnResetLastRun();
    void OnRunAtStartup();
    void OnBrowseProgram();
    void OnRunProgram();
    void AddAndSelect(const std::vector<std::wstring>& projects, bool registersFirst);

    CDialog& m_dialog;
    CPlatform m_platform;
    CListSession& m_session;
    CProjectList& m_list;
    CProjectPane& m_pane;
};
