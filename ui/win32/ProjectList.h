#pragma once

#include <windows.h>

#include <commctrl.h>

#include <string>
#include <string_view>
#include <vector>

#include "core/platform/Clock.h"
#include "core/task/SCVShchedulerTaskArray.h"
#include "framework/GuiHandle.h"
#include "framework/Wnd.h"

// The list view of the projects, with one row for each task. Rows refer to tasks and own nothing. Texts are
// computed when the list view draws, so a repaint shows the tasks as they are now. After tasks were added or
// removed, fill the list again before the next message.
class CProjectList : public CWnd {
public:
    // Owns neither object.
    CProjectList(const CSCVShchedulerTaskArray& tasks, const IClock& clock) noexcept
        : m_tasks(tasks), m_clock(clock) {}

    // Sets up styles and columns; the control is bound by then.
    void Initialise();
    // The width in pixels that shows the columns up to this one and a scroll bar. Call it while there are no
    // rows.
    [[nodiscard]] int WidthFor(int lastColumn) const;
    // Fills the list with one unselected row for each task, in array order. IsFilling() is true meanwhile:
    // ignore the list view's notifications then.
    void Fill();
    [[nodiscard]] bool IsFilling() const noexcept { return m_bFilling; }
    // Sorts by the column and moves the sort mark to its header. -1 means no column.
    void SetSortColumn(int column, bool ascending);
    // Sorts a list that was filled again by the column used last.
    void SortAgain() { SetSortColumn(m_nSortColumn, m_bAscending); }
    // Handles a click on a column's header: every click reverses the direction, also one on another column.
    void TurnSortColumn(int column) { SetSortColumn(column, !m_bAscending); }
    [[nodiscard]] int SortColumn() const noexcept { return m_nSortColumn; }
    [[nodiscard]] bool IsAscending() const noexcept { return m_bAscending; }

    // Null for a row that does not exist.
    [[nodiscard]] CSCVShchedulerTask* TaskOfRow(int row) const;
    [[nodiscard]] int RowCount() const;
    // The index of a row, -1 when there is none.
    [[nodiscard]] int FindRowByPath(std::wstring_view projectPath) const;
    [[nodiscard]] int FindRowOf(const CSCVShchedulerTask& task) const;
    // The row under a point of the list's client area, -1 for none.
    [[nodiscard]] int RowAt(POINT point) const;

    [[nodiscard]] bool HasSelection() const;
    // In row order.
    [[nodiscard]] std::vector<int> SelectedRows() const;
    [[nodiscard]] std::vector<CSCVShchedulerTask*> SelectedTasks() const;
    // The task of the first selected row, null without a selection.
    [[nodiscard]] CSCVShchedulerTask* FirstSelectedTask() const;
    // Selects and focuses the row and scrolls to it; other rows stay selected. Does nothing when there is no
    // such row.
    void Select(int row) const;
    void ClearSelection() const;
    void SelectAll() const;

    // Handles the list view's request for the text of a cell.
    void OnGetDispInfo(NMLVDISPINFOW& request) const;
    // Draws rows of failed runs in their colour and, while there is no row, the notice. Returns the result
    // for the list view's NM_CUSTOMDRAW.
    [[nodiscard]] LRESULT OnCustomDraw(NMLVCUSTOMDRAW& draw, const std::wstring& notice) const;
    // Copies a changed check box of a row into its task.
    void OnItemChanged(const NMLISTVIEW& change) const;

private:
    [[nodiscard]] int NextSelected(int row) const;
    void SetItemState(int row, UINT state, UINT mask) const;
    void SetMark(int column, bool show, bool ascending) const;
    [[nodiscard]] HWND Header() const;
    void DrawNotice(HDC context, const std::wstring& notice) const;

    const CSCVShchedulerTaskArray& m_tasks;
    const IClock& m_clock;
    CImageListHandle m_sortMarks;
    bool m_bFilling = false;
    int m_nSortColumn = -1;
    bool m_bAscending = true;
};
