#pragma once

#include <windows.h>

#include "framework/Dialog.h"
#include "ui/model/ListSession.h"
#include "ui/win32/ProjectList.h"
#include "ui/win32/RowTip.h"
#include "ui/win32/TaskEditor.h"

// Keeps the project list, the editor beside it and the tooltip about a row in step: the editor shows the row
// that gets the focus, and the tooltip is hidden when its row can have changed.
class CProjectPane {
public:
    // Owns none of these objects. The controls are those of `dialog`.
    CProjectPane(CDialog& dialog, const CListSession& session, CProjectList& list, CTaskEditor& editor,
                 CRowTip& rowTip) noexcept
        : m_dialog(dialog), m_session(session), m_list(list), m_editor(editor), m_rowTip(rowTip) {}

    // Fills the list again and sorts it. No row is selected then.
    void Fill();
    // Fills the list again and selects its first row.
    void ShowTasksAnew();
    // Selects this row and no other one.
    void SelectOnly(int row);
    // Selects the row that follows the deleted ones; `lastDeleted` is the last of these, -1 for none.
    void SelectAfterDeletion(int lastDeleted);

    // Handles a notification of the list. Returns the result for the list view.
    LRESULT OnListNotify(NMHDR& header);

private:
    void OnItemChanged(const NMLISTVIEW& change);

    CDialog& m_dialog;
    const CListSession& m_session;
    CProjectList& m_list;
    CTaskEditor& m_editor;
    CRowTip& m_rowTip;
};
