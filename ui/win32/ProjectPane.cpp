#include "ui/win32/ProjectPane.h"

#include <commctrl.h>

#include "ui/model/RowSelection.h"

void CProjectPane::Fill() {
    m_list.Fill();
    m_dialog.Invalidate();
    m_editor.Load(-1);
    m_list.SortAgain();
}

void CProjectPane::ShowTasksAnew() {
    Fill();
    m_list.Select(0);
}

void CProjectPane::SelectOnly(int row) {
    m_list.ClearSelection();
    m_editor.Load(-1);
    m_list.Select(row);
}

void CProjectPane::SelectAfterDeletion(int lastDeleted) {
    const auto row = static_cast<int>(RowAfterDeletion(lastDeleted, m_list.RowCount()));
    if (row >= 0) {
        m_list.Select(row);
    } else {
        m_editor.UpdateStates();
    }
}

LRESULT CProjectPane::OnListNotify(NMHDR& header) {
    switch (header.code) {
        case LVN_GETDISPINFOW:
            m_list.OnGetDispInfo(reinterpret_cast<NMLVDISPINFOW&>(header));
            break;
        case LVN_ITEMCHANGED:
            OnItemChanged(reinterpret_cast<const NMLISTVIEW&>(header));
            break;
        case LVN_DELETEALLITEMS:
            m_rowTip.Hide();
            return TRUE;  // no notification for each row
        case LVN_COLUMNCLICK:
            m_list.TurnSortColumn(reinterpret_cast<const NMLISTVIEW&>(header).iSubItem);
            break;
        case NM_CLICK:
            if (m_list.RowAt(reinterpret_cast<const NMITEMACTIVATE&>(header).ptAction) < 0) {
                m_editor.Load(-1);
            }
            break;
        case NM_CUSTOMDRAW:
            return m_list.OnCustomDraw(reinterpret_cast<NMLVCUSTOMDRAW&>(header), m_session.Notice());
        default:
            break;
    }
    return 0;
}

void CProjectPane::OnItemChanged(const NMLISTVIEW& change) {
    if (m_list.IsFilling() || (change.uChanged & LVIF_STATE) == 0) {
        return;
    }
    m_rowTip.Hide();
    m_list.OnItemChanged(change);
    if ((change.uNewState & LVIS_FOCUSED) != 0) {
        m_editor.Load(change.iItem);
    }
    m_editor.FollowSelection();
}
