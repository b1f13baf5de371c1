#include "script/win32/ScriptFunctionDlg.h"

#include <initializer_list>

#include "script/EditorText.h"
#include "script/resource.h"

namespace {

// The parameters in their order.
constexpr struct {
    int label;
    int field;
} kParameters[] = {
    {IDC_FUNCTION_PARAM_1_LABEL, IDC_FUNCTION_PARAM_1},
    {IDC_FUNCTION_PARAM_2_LABEL, IDC_FUNCTION_PARAM_2},
    {IDC_FUNCTION_PARAM_3_LABEL, IDC_FUNCTION_PARAM_3},
};

int ShowIf(bool isShown) {
    return isShown ? SW_SHOW : SW_HIDE;
}

}  // namespace

CScriptFunctionDlg::CScriptFunctionDlg(const CScriptGenerator& generator, CWnd* parent) noexcept
    : CDialog(IDD_SCRIPT_FUNCTION, parent), m_generator(generator) {}

INT_PTR CScriptFunctionDlg::DoModal(const std::wstring& language, CScriptGenerator::stTemplate* record) {
    if (record == nullptr) {
        return -1;
    }
    m_strLanguage = language;
    m_record = record;
    return DoModal();
}

void CScriptFunctionDlg::DoDataExchange(CDataExchange* exchange) {
    DDX_Control(exchange, IDC_FUNCTION_NAME, m_functions);
}

BOOL CScriptFunctionDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    for (const int id : {IDC_FUNCTION_PARAM_1, IDC_FUNCTION_PARAM_2}) {
        for (const wchar_t* text :
             {L"\\r\\n", L"\\r\\n\\r\\n", L"vbNewLine", L"vbNewLine + vbNewLine", L"vbTab"}) {
            CComboBox(GetDlgItem(id)).AddString(text);
        }
    }
    for (const wchar_t* text : {L"0", L"1"}) {
        CComboBox(GetDlgItem(IDC_FUNCTION_PARAM_3)).AddString(text);
    }
    for (const stOfferedTemplate& offered : OfferedTemplates(m_generator, m_strLanguage)) {
        m_functions.SetItemData(m_functions.AddString(offered.name), offered.number);
    }
    // Search it by its number, because the list is sorted by name.
    for (int index = 0; index < m_functions.GetCount(); ++index) {
        if (m_functions.GetItemData(index) == m_record->number) {
            m_functions.SetCurSel(index);
        }
    }
    ShowParameters();
    std::ptrdiff_t param = 0;
    for (const auto& parameter : kParameters) {
        if (param < m_record->params.GetSize()) {
            SetDlgItemText(parameter.field, ToParameterField(m_record->params[param]));
        }
        ++param;
    }
    return TRUE;
}

BOOL CScriptFunctionDlg::OnCommand(int id, UINT code, HWND control) {
    if (id == IDC_FUNCTION_NAME && code == CBN_SELCHANGE) {
        ShowParameters();
        return TRUE;
    }
    return CDialog::OnCommand(id, code, control);
}

int CScriptFunctionDlg::SelectedNumber(int none) const {
    const int index = m_functions.GetCurSel();
    return index < 0 ? none : static_cast<int>(m_functions.GetItemData(index));
}

void CScriptFunctionDlg::ShowParameters() {
    const int number = SelectedNumber(0);
    const CStringArray names = m_generator.GetTemplateParamNames(number, 1);
    std::ptrdiff_t index = 0;
    for (const auto& parameter : kParameters) {
        const bool isShown = index < names.GetSize();
        if (isShown) {
            SetDlgItemText(parameter.label, names[index] + L':');
        }
        CWnd(GetDlgItem(parameter.label)).ShowWindow(ShowIf(isShown));
        CWnd(GetDlgItem(parameter.field)).ShowWindow(ShowIf(isShown));
        ++index;
    }
    CWnd(GetDlgItem(IDC_FUNCTION_NO_PARAMS)).ShowWindow(ShowIf(names.IsEmpty()));
    SetDlgItemText(IDC_FUNCTION_DESCRIPTION, m_generator.GetTemplateDescription(number));
    Invalidate();
}

void CScriptFunctionDlg::OnOK() {
    m_record->number = SelectedNumber(-1);
    m_record->params.RemoveAll();
    for (const auto& parameter : kParameters) {
        m_record->params.Add(FromParameterField(GetDlgItemText(parameter.field)));
    }
    EndDialog(IDOK);
}
