#pragma once

#include <windows.h>

#include <vector>

#include "core/platform/Clock.h"
#include "framework/Dialog.h"
#include "ui/model/EditorMembers.h"
#include "ui/win32/ProjectList.h"

// The right half of the main dialog. It shows one task and writes every change at once into all selected
// tasks.
class CTaskEditor {
public:
    // Owns none of these objects. The controls are those of `dialog`.
    CTaskEditor(CDialog& dialog, CProjectList& list, const IClock& clock) noexcept
        : m_dialog(dialog), m_list(list), m_clock(clock) {}

    // Sets up the pickers and the list of units. Call it before the first data exchange.
    void Initialise() const;
    void DoDataExchange(CDataExchange* exchange);
    // Shows the row's task; the defaults of a new task when there is no such row.
    void Load(int row);
    // Enables or disables the controls that depend on a check box or on the selection. When the control with
    // the focus is disabled, moves the focus to the next one.
    void UpdateStates();
    // Calls UpdateStates when the first row was selected or the last selected row was deselected.
    void FollowSelection();
    // True when the notification `code` of control `id` is a change in the editor, or one of its buttons.
    bool OnCommand(int id, UINT code);
    bool OnNotify(const NMHDR& header);

private:
    bool OnButton(int id);
    void OnChange(int id);
    void OnSetCurrent();
    void ShowTimes(CDataExchange* exchange) const;
    // Shows the times of the focused row in the pickers again.
    void ShowTimesOfTask();
    // Opens the script editor on the script file's text and writes back the text that the user accepts.
    void EditScript();

    CDialog& m_dialog;
    CProjectList& m_list;
    const IClock& m_clock;
    stEditorMembers m_members;
    bool m_hadSelection = false;
};
