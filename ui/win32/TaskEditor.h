#pragma once

#include <windows.h>

#include <vector>

#include "core/platform/Clock.h"
#include "framework/Dialog.h"
#include "ui/model/EditorMembers.h"
#include "ui/win32/ProjectList.h"

// The right half of the main dialog: it shows one task and writes every change at once into all selected
// ones.
class CTaskEditor {
public:
    // None is owned. The controls are those of `dialog`.
    CTaskEditor(CDialog& dialog, CProjectList& list, const IClock& clock) noexcept
        : m_dialog(dialog), m_list(list), m_clock(clock) {}

    // Sets up pickers and the unit's choices. To be called before the first exchange.
    void Initialise() const;
    void DoDataExchange(CDataExchange* exchange);
    // Shows the row's task; a new task's defaults for a row that there is not.
    void Load(int row);
    // Enables what depends on a check box or on the selection. The keyboard focus leaves a control that is
    // disabled.
    void UpdateStates();
    // UpdateStates when the list has got its first selected row or lost its last one.
    void FollowSelection();
    // True when the notification `code` of control `id` is a change in the editor, or one of its buttons.
    bool OnCommand(int id, UINT code);
    bool OnNotify(const NMHDR& header);

private:
    bool OnButton(int id);
    void OnChange(int id);
    void OnSetCurrent();
    void ShowTimes(CDataExchange* exchange) const;
    // Puts the focused row's times back into the pickers.
    void ShowTimesOfTask();
    // Opens the script editor on the script file's text and writes back what it accepts.
    void EditScript();

    CDialog& m_dialog;
    CProjectList& m_list;
    const IClock& m_clock;
    stEditorMembers m_members;
    bool m_hadSelection = false;
};
