#include "script/win32/ScriptDlg.h"

#include "framework/FileDialog.h"
#include "framework/IconResource.h"
#include "framework/MessageBox.h"
#include "framework/TextFile.h"
#include "script/EditorText.h"
#include "script/ScriptLanguages.h"
#include "script/ScriptTestRun.h"
#include "script/resource.h"
#include "script/win32/ScriptControllerFactory.h"
#include "script/win32/ScriptFunctionDlg.h"
#include "util/WhiteSpace.h"

namespace {

constexpr wchar_t kSection[] = L"CScriptDlg";
// Distance of the default place from the edges of the screen, in pixels.
constexpr int kScreenMargin = 100;

constexpr CResizingDialog::stAnchors kAnchors[] = {
    {IDC_SCRIPT_FUNCTIONS, ANCHOR_LEFT | ANCHOR_TOP | ANCHOR_BOTTOM},
    {IDC_SCRIPT_CARET, ANCHOR_TOP | ANCHOR_RIGHT},
    {IDC_SCRIPT_TEXT, ANCHOR_ALL},
    {IDC_SCRIPT_NEW, ANCHOR_LEFT | ANCHOR_BOTTOM},
    {IDC_SCRIPT_INSERT, ANCHOR_LEFT | ANCHOR_BOTTOM},
    {IDC_SCRIPT_PARSE, ANCHOR_LEFT | ANCHOR_BOTTOM},
    {IDC_SCRIPT_LOAD, ANCHOR_LEFT | ANCHOR_BOTTOM},
    {IDC_SCRIPT_SAVE, ANCHOR_LEFT | ANCHOR_BOTTOM},
    {IDOK, ANCHOR_RIGHT | ANCHOR_BOTTOM},
    {IDCANCEL, ANCHOR_RIGHT | ANCHOR_BOTTOM},
    {IDC_SCRIPT_SEPARATOR, ANCHOR_LEFT | ANCHOR_RIGHT | ANCHOR_BOTTOM},
    {IDC_SCRIPT_TEST_GROUP, ANCHOR_LEFT | ANCHOR_RIGHT | ANCHOR_BOTTOM},
    {IDC_SCRIPT_TEST_TEXT_LABEL, ANCHOR_LEFT | ANCHOR_BOTTOM},
    {IDC_SCRIPT_TEST_RESULT_LABEL, ANCHOR_LEFT | ANCHOR_BOTTOM},
    {IDC_SCRIPT_TEST_TEXT, ANCHOR_LEFT | ANCHOR_RIGHT | ANCHOR_BOTTOM},
    {IDC_SCRIPT_TEST_RESULT, ANCHOR_LEFT | ANCHOR_RIGHT | ANCHOR_BOTTOM},
    {IDC_SCRIPT_TEST_RUN, ANCHOR_RIGHT | ANCHOR_BOTTOM},
};

int AskToKeepChanges() {
    return AfxMessageBox(L"The script has been modified. Do you want to save the changes?",
                         MB_YESNOCANCEL | MB_ICONQUESTION);
}

}  // namespace

CScriptDlg::CScriptDlg(CWnd* parent) : CResizingDialog(IDD_SCRIPT, parent) {}

CScriptDlg::~CScriptDlg() {
    if (m_hWnd != nullptr) {
        DestroyWindow();
    }
}

INT_PTR CScriptDlg::DoModal(const std::wstring& scriptText, const std::wstring& languageName) {
    m_strScript = scriptText;
    m_strLanguage = languageName;
    return DoModal();
}

std::unique_ptr<IScriptController> CScriptDlg::CreateController() const {
    return CScriptControllerFactory::CreateController();
}

void CScriptDlg::DoDataExchange(CDataExchange* exchange) {
    DDX_Control(exchange, IDC_SCRIPT_LANGUAGE, m_languages);
    DDX_Control(exchange, IDC_SCRIPT_TEMPLATES, m_templates);
    DDX_Control(exchange, IDC_SCRIPT_FUNCTIONS, m_functions);
    DDX_Control(exchange, IDC_SCRIPT_TEXT, m_script);
    DDX_CBIndex(exchange, IDC_SCRIPT_LANGUAGE, m_nLanguage);
    DDX_Text(exchange, IDC_SCRIPT_TEST_TEXT, m_strTestText);
    DDX_Text(exchange, IDC_SCRIPT_TEXT, m_strScript);
    DDV_MaxChars(exchange, IDC_SCRIPT_TEXT, m_strScript, kMaxScriptLength);
}

BOOL CScriptDlg::OnInitDialog() {
    for (const wchar_t* language : {kJScript, kVBScript}) {
        CComboBox(GetDlgItem(IDC_SCRIPT_LANGUAGE)).AddString(language);
    }
    m_nLanguage = m_strLanguage == kVBScript ? 1 : 0;
    CResizingDialog::OnInitDialog();
    m_icon = LoadSmallIcon(IDI_SCRIPT);
    SetIcon(m_icon.Get(), false);
    AddControls(kAnchors);
    m_script.Initialise(reinterpret_cast<HFONT>(SendMessage(WM_GETFONT)));
    FillLists();
    for (const int id : {IDC_SCRIPT_TEST_TEXT, IDC_SCRIPT_TEST_RESULT}) {
        CEdit(GetDlgItem(id)).SetLimitText(0);
    }
    return TRUE;
}

LRESULT CScriptDlg::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_DESTROY) {
        SaveWindowPlacement(kSection);
    }
    const LRESULT result = CResizingDialog::WindowProc(message, wParam, lParam);
    if (message == WM_SHOWWINDOW && wParam != FALSE) {
        const RECT place{kScreenMargin, kScreenMargin, GetSystemMetrics(SM_CXSCREEN) - kScreenMargin,
                         GetSystemMetrics(SM_CYSCREEN) - kScreenMargin};
        RestoreWindowPlacement(kSection, &place);
    }
    return result;
}

BOOL CScriptDlg::OnCommand(int id, UINT code, HWND control) {
    static constexpr struct {
        int id;
        UINT code;
        void (CScriptDlg::*handle)();
    } kHandlers[] = {
        {IDC_SCRIPT_LANGUAGE, CBN_SELCHANGE, &CScriptDlg::FillLists},
        {IDC_SCRIPT_TEMPLATES, LBN_SELCHANGE, &CScriptDlg::UpdateButtons},
        {IDC_SCRIPT_TEMPLATES, LBN_DBLCLK, &CScriptDlg::OnTemplateDoubleClick},
        {IDC_SCRIPT_FUNCTIONS, LBN_SELCHANGE, &CScriptDlg::UpdateButtons},
        {IDC_SCRIPT_FUNCTIONS, LBN_DBLCLK, &CScriptDlg::OnInsert},
        {IDC_SCRIPT_TEXT, EN_CHANGE, &CScriptDlg::OnScriptChange},
        {IDC_SCRIPT_TEXT, EN_SETFOCUS, &CScriptDlg::UpdateCaret},
        {IDC_SCRIPT_NEW_FROM_TEMPLATE, BN_CLICKED, &CScriptDlg::OnNewFromTemplate},
        {IDC_SCRIPT_ADD_TEMPLATE, BN_CLICKED, &CScriptDlg::OnAddTemplate},
        {IDC_SCRIPT_INSERT, BN_CLICKED, &CScriptDlg::OnInsert},
        {IDC_SCRIPT_PARSE, BN_CLICKED, &CScriptDlg::OnParse},
        {IDC_SCRIPT_NEW, BN_CLICKED, &CScriptDlg::OnNew},
        {IDC_SCRIPT_LOAD, BN_CLICKED, &CScriptDlg::OnLoad},
        {IDC_SCRIPT_SAVE, BN_CLICKED, &CScriptDlg::OnSave},
        {IDC_SCRIPT_TEST_RUN, BN_CLICKED, &CScriptDlg::OnRunTest},
    };
    for (const auto& handler : kHandlers) {
        if (handler.id == id && handler.code == code) {
            (this->*handler.handle)();
            return TRUE;
        }
    }
    return CResizingDialog::OnCommand(id, code, control);
}

void CScriptDlg::FillLists() {
    m_functions.ResetContent();
    for (const std::wstring& entry : CatalogueEntries(m_texts.GetCatalogue(Language()))) {
        m_functions.AddString(entry);
    }
    m_functions.FitHorizontalExtent();
    m_templates.ResetContent();
    for (const stOfferedTemplate& offered : OfferedTemplates(m_generator, Language())) {
        m_templates.SetItemData(m_templates.AddString(offered.name), offered.number);
    }
    UpdateButtons();
}

// "Add To Script..." is always enabled on purpose; without a selected template it does nothing.
void CScriptDlg::UpdateButtons() {
    CWnd(GetDlgItem(IDC_SCRIPT_INSERT)).EnableWindow(m_functions.GetCurSel() >= 0);
    CWnd(GetDlgItem(IDC_SCRIPT_NEW_FROM_TEMPLATE)).EnableWindow(m_templates.GetCurSel() >= 0);
}

BOOL CScriptDlg::PreTranslateMessage(MSG* message) {
    if (m_script.OnKey(*message)) {
        UpdateCaret();
        return TRUE;
    }
    if (message->message == WM_KEYDOWN && OnKey(*message)) {
        return TRUE;
    }
    const bool mayMoveCaret = m_script.MayMoveCaret(*message);
    // This call also dispatches the message, so the caret has moved when it returns.
    const BOOL isTaken = CResizingDialog::PreTranslateMessage(message);
    if (mayMoveCaret && m_hWnd != nullptr) {
        UpdateCaret();
    }
    return isTaken;
}

// True when the key needs no further handling.
bool CScriptDlg::OnKey(const MSG& message) {
    switch (message.wParam) {
        case VK_ESCAPE:
            return OnEscape();
        case VK_RETURN:
            return OnEnter(message.hwnd);
        default:
            return false;
    }
}

bool CScriptDlg::OnEnter(HWND focus) const {
    const int command = focus == m_functions.m_hWnd   ? IDC_SCRIPT_INSERT
                        : focus == m_templates.m_hWnd ? ID_SCRIPT_TEMPLATE_ENTER
                                                      : 0;
    return command != 0 && PostMessage(WM_COMMAND, static_cast<WPARAM>(command));
}

// Only this way out asks about changes; the Cancel button and the close box do not.
bool CScriptDlg::OnEscape() {
    if (!m_bModified) {
        return false;
    }
    switch (AskToKeepChanges()) {
        case IDYES:
            OnOK();
            break;
        case IDNO:
            OnCancel();
            break;
        default:
            break;
    }
    return true;
}

void CScriptDlg::OnScriptChange() {
    m_bModified = true;
    UpdateCaret();
}

void CScriptDlg::UpdateCaret() {
    SetDlgItemText(IDC_SCRIPT_CARET, m_script.CaretPosition());
}

// After Yes the script may be replaced even when the user cancels saving it.
bool CScriptDlg::MayReplaceScript() {
    if (m_bModified) {
        switch (AskToKeepChanges()) {
            case IDYES:
                OnSave();
                break;
            case IDNO:
                m_bModified = false;
                break;
            default:
                return false;
        }
    }
    return true;
}

void CScriptDlg::SetScript(const std::wstring& script) {
    m_script.SetWindowText(script);
    // WM_SETTEXT sends no EN_CHANGE from a multi-line edit control.
    OnScriptChange();
}

void CScriptDlg::OnNew() {
    if (MayReplaceScript()) {
        CScriptGenerator::stTemplate record;
        record.number = CScriptGenerator::GetTemplateNumbers(Language()).first;
        SetScript(m_generator.InstantiateTemplate(Language(), &record, kMainFunction));
        m_bModified = false;
    }
}

void CScriptDlg::OnTemplateDoubleClick() {
    const std::wstring script = m_script.GetWindowText();
    Trim(script).empty() ? OnNewFromTemplate() : OnAddTemplate();
}

void CScriptDlg::OnNewFromTemplate() {
    if (MayReplaceScript()) {
        UseTemplate(true);
    }
}

void CScriptDlg::UseTemplate(bool replacesScript) {
    const int selected = m_templates.GetCurSel();
    if (selected < 0) {
        return;
    }
    CScriptGenerator::stTemplate record;
    record.number = static_cast<std::int32_t>(m_templates.GetItemData(selected));
    const std::wstring language = Language();
    CScriptFunctionDlg dialog(m_generator, this);
    if (dialog.DoModal(language, &record) != IDOK) {
        return;
    }
    SetScript(replacesScript ? m_generator.InstantiateTemplate(language, &record, kMainFunction)
                             : m_generator.AddToScript(language, m_script.GetWindowText(), &record));
    m_bModified = false;
    OnRunTest();
}

void CScriptDlg::OnInsert() {
    const int selected = m_functions.GetCurSel();
    if (selected < 0) {
        return;
    }
    m_script.Insert(m_functions.GetText(selected));
    OnScriptChange();
}

bool CScriptDlg::Parse(bool reportsSuccess) {
    const std::unique_ptr<IScriptController> controller = CreateController();
    if (controller == nullptr) {
        return false;
    }
    const bool isParsed = ParseScript(*controller, Language(), m_script.GetWindowText());
    if (isParsed && reportsSuccess) {
        AfxMessageBox(L"The script parsed successfully", MB_OK | MB_ICONINFORMATION);
    }
    m_script.SetFocus();
    return isParsed;
}

void CScriptDlg::OnRunTest() {
    const std::unique_ptr<IScriptController> controller = CreateController();
    if (controller != nullptr) {
        SetDlgItemText(IDC_SCRIPT_TEST_RESULT, TestScript(*controller, Language(), m_script.GetWindowText(),
                                                          GetDlgItemText(IDC_SCRIPT_TEST_TEXT)));
    }
}

// Asks nothing about changes, unlike New.
void CScriptDlg::OnLoad() {
    const stScriptFileType type = ScriptFileType(Language());
    CFileDialog dialog(true, type.extension, L"", OFN_FILEMUSTEXIST | OFN_HIDEREADONLY, type.filter, this);
    if (dialog.DoModal() == IDOK) {
        SetScript(ReadTextFile(dialog.GetPathName()));
        m_bModified = false;
    }
}

void CScriptDlg::OnSave() {
    const stScriptFileType type = ScriptFileType(Language());
    CFileDialog dialog(false, type.extension, L"", OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT, type.filter, this);
    if (dialog.DoModal() == IDOK &&
        SaveTextFile(m_script.GetWindowText(), dialog.GetPathName(), false) != 0) {
        m_bModified = false;
    }
}

void CScriptDlg::OnOK() {
    m_strLanguage = Language();
    const DWORD caret = m_script.GetSel().second;
    if (Parse(false)) {
        CResizingDialog::OnOK();
        // Fail has selected the whole text, and the next key would replace the script.
        if (IsWindow(m_script.m_hWnd) != FALSE) {
            m_script.SetSel(caret, caret);
        }
    }
}
