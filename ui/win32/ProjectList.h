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

// The list view of the projects: one row for each task. Rows refer to tasks and own nothing; texts are worked
// out when the list view draws, so that a repaint shows the tasks as they are now. After every change of the
// array's members, and before the next message, the list has to be filled again.
class CProjectList : public CWnd {
public:
    // Neither is owned.
    CProjectList(const CSCVShchedulerTaskArray& tasks, const IClock& clock) noexcept
        : m_tasks(tasks), m_clock(clock) {}

    // Sets up styles and columns; the control is bound by then.
    void Initialise();
    // How wide the control has to be to show the columns up to this one beside a scroll bar, in pixels. To be
    // called while it has no rows.
    [[nodiscard]] int WidthFor(int lastColumn) const;
    // One unselected row for each task, in array order. True while that goes on: what the list view reports
    // meanwhile is no change by the user.
    void Fill();
    [[nodiscard]] bool IsFilling() const noexcept { return m_bFilling; }
    // Sorts by the column, marks its header and takes the mark from the one sorted by before. -1 is no
    // column.
    void SetSortColumn(int column, bool ascending);
    // By the column sorted by last, for a list that was filled anew.
    void SortAgain() { SetSortColumn(m_nSortColumn, m_bAscending); }
    // As after a click on the column's header: the direction turns with every click, also on another column.
    void TurnSortColumn(int column) { SetSortColumn(column, !m_bAscending); }
    [[nodiscard]] int SortColumn() const noexcept { return m_nSortColumn; }
    [[nodiscard]] bool IsAscending() const noexcept { return m_bAscending; }

    // Null for a row that does not exist.
    [[nodiscard]] CSCVShchedulerTask* TaskOfRow(int row) const;
    [[nodiscard]] int RowCount() const;
    // -1 when there is none.
    [[nodiscard]] int FindRowByPath(std::wstring_view projectPath) const;
    [[nodiscard]] int FindRowOf(const CSCVShchedulerTask& task) const;
    // The row under a point of the list's client area, -1 for none.
    [[nodiscard]] int RowAt(POINT point) const;

    [[nodiscard]] bool HasSelection() const;
    // In row order.
    [[nodiscard]] std::vector<int> SelectedRows() const;
    [[nodiscard]] std::vector<CSCVShchedulerTask*> SelectedTasks() const;
    // Of the first selected row, null without a selection.
    [[nodiscard]] CSCVShchedulerTask* FirstSelectedTask() const;
    // Selects and focuses the row and scrolls to it; what is selected stays so. Nothing for a row that there
    // is not.
    void Select(int row) const;
    void ClearSelection() const;
    void SelectAll() const;

    // Answers the list view's request for what a row shows.
    void OnGetDispInfo(NMLVDISPINFOW& request) const;
    // Draws rows of failed runs in their colour and, while there is no row, the notice. Returns what the list
    // view wants to know.
    [[nodiscard]] LRESULT OnCustomDraw(NMLVCUSTOMDRAW& draw, const std::wstring& notice) const;
    // Takes a change of a row's check box over into its task.
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
