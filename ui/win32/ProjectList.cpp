#include "ui/win32/ProjectList.h"

#include <algorithm>

#include "core/launch/LaunchResult.h"
#include "core/task/SCVShchedulerTask.h"
#include "framework/IconResource.h"
#include "ui/model/FailureColour.h"
#include "ui/model/ProjectColumns.h"
#include "ui/model/RowOrder.h"
#include "ui/model/RowSelection.h"
#include "ui/resource.h"

namespace {

constexpr UINT kUnchecked = INDEXTOSTATEIMAGEMASK(1);
constexpr UINT kChecked = INDEXTOSTATEIMAGEMASK(2);

int CALLBACK CompareRows(LPARAM left, LPARAM right, LPARAM order) {
    return reinterpret_cast<const CRowOrder*>(order)->Compare(
        reinterpret_cast<const CSCVShchedulerTask*>(left),
        reinterpret_cast<const CSCVShchedulerTask*>(right));
}

// The sort marks of a column header, half as wide as a small icon: ascending, then descending. Empty when an
// icon cannot be loaded; the headers then show text only.
CImageListHandle LoadSortMarks() {
    const int size = GetSystemMetrics(SM_CXSMICON) / 2;
    CImageListHandle list(ImageList_Create(size, size, ILC_COLOR32 | ILC_MASK, 2, 0));
    for (const int id : {IDI_SORT_ASCENDING, IDI_SORT_DESCENDING}) {
        const CIconHandle icon = LoadIconOfSize(id, size, size);
        if (!list || !icon || ImageList_AddIcon(list.Get(), icon.Get()) < 0) {
            return {};
        }
    }
    return list;
}

bool IsHighContrast() {
    HIGHCONTRASTW settings{};
    settings.cbSize = sizeof(settings);
    return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof(settings), &settings, 0) != FALSE &&
           (settings.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

int ScreenResolution() {
    const HDC screen = GetDC(nullptr);
    const int resolution = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return resolution;
}

}  // namespace

void CProjectList::Initialise() {
    SendMessage(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT);
    const int resolution = ScreenResolution();
    int index = 0;
    for (const stProjectColumn& column : kProjectColumns) {
        std::wstring header = column.header;
        LVCOLUMNW record{};
        record.mask = LVCF_FMT | LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
        record.fmt = LVCFMT_LEFT;
        record.cx = MulDiv(column.width, resolution, USER_DEFAULT_SCREEN_DPI);
        record.pszText = header.data();
        record.iSubItem = index;
        SendMessage(LVM_INSERTCOLUMNW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&record));
        ++index;
    }
    m_sortMarks = LoadSortMarks();
    if (m_sortMarks) {
        ::SendMessageW(Header(), HDM_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(m_sortMarks.Get()));
    }
}

int CProjectList::WidthFor(int lastColumn) const {
    const RECT outer = GetWindowRect();
    LRESULT width = outer.right - outer.left - GetClientRect().right + GetSystemMetrics(SM_CXVSCROLL);
    for (int column = 0; column <= lastColumn; ++column) {
        width += SendMessage(LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column));
    }
    return static_cast<int>(width);
}

void CProjectList::Fill() {
    m_bFilling = true;
    SendMessage(WM_SETREDRAW, FALSE);
    SendMessage(LVM_DELETEALLITEMS);
    const auto count = static_cast<int>(m_tasks.GetSize());
    SendMessage(LVM_SETITEMCOUNT, static_cast<WPARAM>(count));
    for (int row = 0; row < count; ++row) {
        const CSCVShchedulerTask* task = m_tasks[row];
        LVITEMW item{};
        item.mask = LVIF_TEXT | LVIF_PARAM;
        item.iItem = row;
        item.pszText = LPSTR_TEXTCALLBACKW;
        item.lParam = reinterpret_cast<LPARAM>(task);
        SendMessage(LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
        for (int column = 1; column < static_cast<int>(kProjectColumns.size()); ++column) {
            LVITEMW cell{};
            cell.iSubItem = column;
            cell.pszText = LPSTR_TEXTCALLBACKW;
            SendMessage(LVM_SETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&cell));
        }
        // Not on insertion: a list view with check boxes then sets the check mark itself.
        if (task->m_bEnable != 0) {
            SetItemState(row, kChecked, LVIS_STATEIMAGEMASK);
        }
    }
    SendMessage(WM_SETREDRAW, TRUE);
    m_bFilling = false;
}

void CProjectList::SetSortColumn(int column, bool ascending) {
    if (m_nSortColumn != column) {
        SetMark(m_nSortColumn, false, false);
    }
    m_nSortColumn = column;
    m_bAscending = ascending;
    SetMark(column, true, ascending);
    const CRowOrder order(m_tasks, column, ascending, m_clock.Now());
    SendMessage(LVM_SORTITEMS, reinterpret_cast<WPARAM>(&order), reinterpret_cast<LPARAM>(&CompareRows));
}

void CProjectList::SetMark(int column, bool show, bool ascending) const {
    if (column < 0) {
        return;
    }
    HDITEMW item{};
    item.mask = HDI_FORMAT;
    item.fmt = HDF_LEFT | HDF_STRING;
    if (show && m_sortMarks) {
        item.mask |= HDI_IMAGE;
        item.fmt |= HDF_IMAGE | HDF_BITMAP_ON_RIGHT;
        item.iImage = ascending ? 0 : 1;
    }
    ::SendMessageW(Header(), HDM_SETITEMW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&item));
}

HWND CProjectList::Header() const {
    return reinterpret_cast<HWND>(SendMessage(LVM_GETHEADER));
}

CSCVShchedulerTask* CProjectList::TaskOfRow(int row) const {
    LVITEMW item{};
    item.mask = LVIF_PARAM;
    item.iItem = row;
    return row >= 0 && SendMessage(LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item)) != 0
               ? reinterpret_cast<CSCVShchedulerTask*>(item.lParam)
               : nullptr;
}

int CProjectList::RowCount() const {
    return static_cast<int>(SendMessage(LVM_GETITEMCOUNT));
}

int CProjectList::FindRowByPath(std::wstring_view projectPath) const {
    return static_cast<int>(::FindRowByPath(
        RowCount(), [this](std::ptrdiff_t row) { return TaskOfRow(static_cast<int>(row)); }, projectPath));
}

int CProjectList::FindRowOf(const CSCVShchedulerTask& task) const {
    LVFINDINFOW what{};
    what.flags = LVFI_PARAM;
    what.lParam = reinterpret_cast<LPARAM>(&task);
    return static_cast<int>(
        SendMessage(LVM_FINDITEMW, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&what)));
}

int CProjectList::RowAt(POINT point) const {
    LVHITTESTINFO test{};
    test.pt = point;
    return static_cast<int>(SendMessage(LVM_HITTEST, 0, reinterpret_cast<LPARAM>(&test)));
}

bool CProjectList::HasSelection() const {
    return SendMessage(LVM_GETSELECTEDCOUNT) != 0;
}

int CProjectList::NextSelected(int row) const {
    return static_cast<int>(SendMessage(LVM_GETNEXTITEM, static_cast<WPARAM>(row), LVNI_SELECTED));
}

std::vector<int> CProjectList::SelectedRows() const {
    std::vector<int> rows;
    for (int row = NextSelected(-1); row >= 0; row = NextSelected(row)) {
        rows.push_back(row);
    }
    return rows;
}

std::vector<CSCVShchedulerTask*> CProjectList::SelectedTasks() const {
    std::vector<CSCVShchedulerTask*> tasks;
    for (const int row : SelectedRows()) {
        tasks.push_back(TaskOfRow(row));
    }
    return tasks;
}

CSCVShchedulerTask* CProjectList::FirstSelectedTask() const {
    return TaskOfRow(NextSelected(-1));
}

void CProjectList::Select(int row) const {
    if (row >= 0) {
        SetItemState(row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
        SendMessage(LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
    }
}

void CProjectList::ClearSelection() const {
    SetItemState(-1, 0, LVIS_SELECTED | LVIS_FOCUSED);
}

void CProjectList::SelectAll() const {
    SendMessage(WM_SETREDRAW, FALSE);
    SetItemState(-1, LVIS_SELECTED, LVIS_SELECTED);
    SendMessage(WM_SETREDRAW, TRUE);
    Invalidate();
}

void CProjectList::SetItemState(int row, UINT state, UINT mask) const {
    LVITEMW item{};
    item.state = state;
    item.stateMask = mask;
    SendMessage(LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

void CProjectList::OnGetDispInfo(NMLVDISPINFOW& request) const {
    LVITEMW& item = request.item;
    const auto* task = reinterpret_cast<const CSCVShchedulerTask*>(item.lParam);
    if ((item.mask & LVIF_TEXT) == 0 || task == nullptr || item.cchTextMax <= 0) {
        return;
    }
    const std::wstring text = CellText(*task, item.iSubItem, m_clock.Now());
    const std::size_t length = std::min(text.size(), static_cast<std::size_t>(item.cchTextMax - 1));
    *std::copy_n(text.begin(), length, item.pszText) = L'\0';
}

LRESULT CProjectList::OnCustomDraw(NMLVCUSTOMDRAW& draw, const std::wstring& notice) const {
    switch (draw.nmcd.dwDrawStage) {
        case CDDS_PREPAINT:
            return RowCount() > 0 ? CDRF_NOTIFYITEMDRAW : CDRF_NOTIFYPOSTPAINT;
        case CDDS_ITEMPREPAINT: {
            const auto* task = reinterpret_cast<const CSCVShchedulerTask*>(draw.nmcd.lItemlParam);
            if (task != nullptr && HasFailed(*task)) {
                // The list view ignores this for a selected row, which it draws in the selection's colours.
                draw.clrText =
                    FailureColour(IsHighContrast(), GetSysColor(COLOR_HOTLIGHT), GetSysColor(COLOR_WINDOW));
            }
            return CDRF_DODEFAULT;
        }
        case CDDS_POSTPAINT:
            DrawNotice(draw.nmcd.hdc, notice);
            return CDRF_DODEFAULT;
        default:
            return CDRF_DODEFAULT;
    }
}

// At the place of the first row, indented like its text.
void CProjectList::DrawNotice(HDC context, const std::wstring& notice) const {
    RECT place = GetClientRect();
    place.top = CWnd(Header()).GetClientRect().bottom + 2 * GetSystemMetrics(SM_CYEDGE);
    place.left += 3 * GetSystemMetrics(SM_CXEDGE);
    const HGDIOBJ before = SelectObject(context, reinterpret_cast<HGDIOBJ>(SendMessage(WM_GETFONT)));
    SetBkMode(context, TRANSPARENT);
    SetTextColor(context, GetSysColor(COLOR_WINDOWTEXT));
    DrawTextW(context, notice.c_str(), -1, &place, DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
    SelectObject(context, before);
}

void CProjectList::OnItemChanged(const NMLISTVIEW& change) const {
    const UINT before = change.uOldState & LVIS_STATEIMAGEMASK;
    const UINT after = change.uNewState & LVIS_STATEIMAGEMASK;
    const bool checks = before == kUnchecked && after == kChecked;
    if (!checks && (before != kChecked || after != kUnchecked)) {
        return;
    }
    CSCVShchedulerTask* task = TaskOfRow(change.iItem);
    if (task == nullptr) {
        return;
    }
    // A value other than 0 and 1 from the file stays unless the user changes the box.
    if (checks != (task->m_bEnable != 0)) {
        task->m_bEnable = checks ? 1 : 0;
    }
    Invalidate();
}
