#include "ui/win32/TaskEditor.h"

#include <commctrl.h>

#include <algorithm>
#include <iterator>
#include <stdexcept>

#include "core/platform/LocalTime.h"
#include "framework/FileDialog.h"
#include "framework/TextFile.h"
#include "script/win32/ScriptDlg.h"
#include "ui/model/EditorRules.h"
#include "ui/model/FileFilters.h"
#include "util/win32/FileTests.h"

namespace {

WORD ToWord(int number) {
    return static_cast<WORD>(number);
}

SYSTEMTIME ToPicker(std::int64_t instant) {
    const LocalTime local = ShownTime(instant);
    SYSTEMTIME time{};
    time.wYear = ToWord(local.year);
    time.wMonth = ToWord(local.month);
    time.wDay = ToWord(local.day);
    time.wDayOfWeek = ToWord(local.weekday);
    time.wHour = ToWord(local.hour);
    time.wMinute = ToWord(local.minute);
    time.wSecond = ToWord(local.second);
    return time;
}

LocalTime FromPicker(const SYSTEMTIME& time) {
    return {time.wYear, time.wMonth, time.wDay, time.wDayOfWeek, time.wHour, time.wMinute, time.wSecond};
}

// The notification that a control sends when the user has changed it.
UINT ChangeCode(int id) {
    const bool isText =
        id == IDC_EVERY_VALUE || std::any_of(std::begin(kTextControls), std::end(kTextControls),
                                             [=](const auto& control) { return control.id == id; });
    return isText ? EN_CHANGE : id == IDC_EVERY_UNIT ? CBN_SELCHANGE : BN_CLICKED;
}

bool IsCheckBox(int id) {
    return id == IDC_EXPORT_TO_NEW_FILE || std::any_of(std::begin(kFlagControls), std::end(kFlagControls),
                                                       [=](const auto& control) { return control.id == id; });
}

}  // namespace

void CTaskEditor::Initialise() const {
    const struct {
        int id;
        const wchar_t* format;
    } pickers[] = {{IDC_START_DATE, L"dd/MM/yyyy"}, {IDC_START_TIME, L"HH:mm"}, {IDC_UNTIL_TIME, L"HH:mm"}};
    for (const auto& picker : pickers) {
        SendDlgItemMessageW(m_dialog.m_hWnd, picker.id, DTM_SETFORMATW, 0,
                            reinterpret_cast<LPARAM>(picker.format));
    }
    for (const wchar_t* unit : {L"minutes", L"hours"}) {
        SendDlgItemMessageW(m_dialog.m_hWnd, IDC_EVERY_UNIT, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(unit));
    }
}

void CTaskEditor::DoDataExchange(CDataExchange* exchange) {
    for (const stFlagControl& control : kFlagControls) {
        DDX_Check(exchange, control.id, m_members.*control.field);
    }
    DDX_Check(exchange, IDC_EXPORT_TO_NEW_FILE, m_members.m_bExportIntoNewFile);
    for (const stTextControl& control : kTextControls) {
        DDX_Text(exchange, control.id, m_members.*control.field);
    }
    DDX_Text(exchange, IDC_EVERY_VALUE, m_members.m_nEveryValue);
    DDX_CBIndex(exchange, IDC_EVERY_UNIT, m_members.m_nEveryUnit);
    if (!exchange->m_bSaveAndValidate) {
        // The pickers are not read here. Their change notifications show which of date and time the user has
        // changed; see OnNotify.
        ShowTimes(exchange);
    }
}

void CTaskEditor::ShowTimes(CDataExchange* exchange) const {
    const struct {
        int id;
        std::int64_t instant;
    } pickers[] = {{IDC_START_DATE, m_members.m_tStartTime},
                   {IDC_START_TIME, m_members.m_tStartTime},
                   {IDC_UNTIL_TIME, m_members.m_tUntilTime}};
    for (const auto& picker : pickers) {
        SYSTEMTIME time = ToPicker(picker.instant);
        DDX_DateTimeCtrl(exchange, picker.id, time);
    }
}

void CTaskEditor::Load(int row) {
    m_members = EditorMembersOf(m_list.TaskOfRow(row), m_clock.Now());
    m_dialog.UpdateData(FALSE);
    UpdateStates();
}

void CTaskEditor::FollowSelection() {
    if (m_list.HasSelection() != m_hadSelection) {
        UpdateStates();
    }
}

void CTaskEditor::UpdateStates() {
    m_hadSelection = m_list.HasSelection();
    // Disabling a control may have moved the focus.
    const HWND focus = GetFocus();
    for (const stControlState& state : EditorStates(m_members, m_hadSelection)) {
        CWnd control(m_dialog.GetDlgItem(state.id));
        if ((control.IsWindowEnabled() != FALSE) != state.isEnabled) {
            control.EnableWindow(state.isEnabled);
        }
    }
    if (focus != nullptr && GetParent(focus) == m_dialog.m_hWnd && !::IsWindowEnabled(focus)) {
        m_dialog.SendMessage(
            WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(GetNextDlgTabItem(m_dialog.m_hWnd, focus, FALSE)), TRUE);
    }
}

bool CTaskEditor::OnCommand(int id, UINT code) {
    if (code != ChangeCode(id)) {
        return false;
    }
    if (code == BN_CLICKED && !IsCheckBox(id)) {
        return OnButton(id);
    }
    OnChange(id);
    return true;
}

void CTaskEditor::OnChange(int id) {
    m_dialog.UpdateData(TRUE);
    if (IsCheckBox(id)) {
        UpdateStates();
    }
    if (ApplyEditorChange(id, m_members, m_list.SelectedTasks())) {
        m_list.Invalidate();
    }
}

bool CTaskEditor::OnButton(int id) {
    if (id == IDC_SET_CURRENT) {
        OnSetCurrent();
        return true;
    }
    if (id == IDC_SCRIPT_FILE_BROWSE) {
        EditScript();
        return true;
    }
    for (const stSwitchControls& row : kSwitchControls) {
        if (row.filter != nullptr && row.browse == id) {
            CFileDialog dialog(true, row.extension, m_dialog.GetDlgItemText(row.edit), OFN_HIDEREADONLY,
                               row.filter, &m_dialog);
            if (dialog.DoModal() == IDOK) {
                m_dialog.SetDlgItemText(row.edit, dialog.GetPathName());
            }
            return true;
        }
    }
    return false;
}

void CTaskEditor::EditScript() {
    const std::wstring path = m_dialog.GetDlgItemText(IDC_SCRIPT_FILE);
    // Called before and after the script editor: the file may be deleted or created while the editor is open.
    const auto hasFile = [&] { return !path.empty() && FileExists(path) != 0; };
    const std::wstring script = hasFile() ? ReadTextFile(path) : std::wstring();
    // Exit is still possible while a box or the editor is open.
    if (m_dialog.m_hWnd == nullptr) {
        return;
    }
    CScriptDlg editor(&m_dialog);
    if (editor.DoModal(script) != IDOK || m_dialog.m_hWnd == nullptr) {
        return;
    }
    if (editor.m_strScript.empty()) {
        m_dialog.SetDlgItemText(IDC_SCRIPT_FILE, {});
        return;
    }
    if (hasFile()) {
        SaveTextFile(editor.m_strScript, path, false);
        return;
    }
    CFileDialog dialog(false, kScriptExtension, path, OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT, kScriptFilter,
                       &m_dialog);
    if (dialog.DoModal() == IDOK && SaveTextFile(editor.m_strScript, dialog.GetPathName(), false) != 0) {
        m_dialog.SetDlgItemText(IDC_SCRIPT_FILE, dialog.GetPathName());
    }
}

void CTaskEditor::OnSetCurrent() {
    const std::int64_t now = m_clock.Now();
    CDataExchange exchange(m_dialog, false);
    for (const int picker : {IDC_START_DATE, IDC_START_TIME}) {
        SYSTEMTIME time = ToPicker(now);
        DDX_DateTimeCtrl(&exchange, picker, time);
    }
    ApplyStartNow(now, m_list.SelectedTasks());
    m_list.Invalidate();
}

bool CTaskEditor::OnNotify(const NMHDR& header) {
    void (*apply)(const LocalTime&, SelectedTasks) = nullptr;
    switch (header.idFrom) {
        case IDC_START_DATE:
            apply = &ApplyStartDate;
            break;
        case IDC_START_TIME:
            apply = &ApplyStartTime;
            break;
        case IDC_UNTIL_TIME:
            apply = &ApplyUntilTime;
            break;
        default:
            return false;
    }
    if (header.code != DTN_DATETIMECHANGE) {
        return false;
    }
    SYSTEMTIME time{};
    CDataExchange exchange(m_dialog, true);
    DDX_DateTimeCtrl(&exchange, static_cast<int>(header.idFrom), time);
    try {
        apply(FromPicker(time), m_list.SelectedTasks());
    } catch (const std::invalid_argument&) {
        ShowTimesOfTask();
        throw;
    }
    m_list.Invalidate();
    return true;
}

void CTaskEditor::ShowTimesOfTask() {
    const auto row =
        static_cast<int>(m_list.SendMessage(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED));
    if (const CSCVShchedulerTask* task = m_list.TaskOfRow(row)) {
        m_members.m_tStartTime = task->m_tStartTime;
        m_members.m_tUntilTime = task->m_tUntilTime;
    }
    CDataExchange exchange(m_dialog, false);
    ShowTimes(&exchange);
}
