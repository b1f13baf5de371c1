#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>
#include <string>

#include "framework/Controls.h"
#include "framework/GuiHandle.h"
#include "layout/win32/ResizingDialog.h"
#include "script/IScriptController.h"
#include "script/ScriptGenerator.h"
#include "script/win32/ResourceScriptTexts.h"
#include "script/win32/ScriptEdit.h"

// The script editor: a script is written, composed from templates, parsed and tested in it.
class CScriptDlg : public CResizingDialog {
public:
    // The longest script that OK accepts, in UTF-16 units.
    static constexpr int kMaxScriptLength = 32'768;

    explicit CScriptDlg(CWnd* parent = nullptr);
    ~CScriptDlg() override;

    // Edits a script in this language: JScript, unless the name is exactly "VBScript". After IDOK the members
    // below have script and language.
    INT_PTR DoModal(const std::wstring& scriptText, const std::wstring& languageName = {});

    std::wstring m_strScript;
    std::wstring m_strLanguage;

protected:
    // Creates the engine for one action, in any language; the caller then sets the language. Null when the
    // machine has none.
    [[nodiscard]] virtual std::unique_ptr<IScriptController> CreateController() const;

    BOOL PreTranslateMessage(MSG* message) override;
    BOOL OnInitDialog() override;
    BOOL OnCommand(int id, UINT code, HWND control) override;
    void OnOK() override;
    void DoDataExchange(CDataExchange* exchange) override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    using CResizingDialog::DoModal;
    [[nodiscard]] std::wstring Language() const { return m_languages.GetWindowText(); }
    void FillLists();
    void UpdateButtons();
    void UpdateCaret();
    bool OnKey(const MSG& message);
    bool OnEnter(HWND focus) const;
    bool OnEscape();

    // Asks about unsaved changes. False when the user wants to keep the script.
    bool MayReplaceScript();
    // Replaces the text and marks it as modified.
    void SetScript(const std::wstring& script);
    bool Parse(bool reportsSuccess);
    void UseTemplate(bool replacesScript);

    void OnTemplateDoubleClick();
    void OnScriptChange();
    void OnNewFromTemplate();
    void OnAddTemplate() { UseTemplate(false); }
    void OnInsert();
    void OnParse() { Parse(true); }
    void OnNew();
    void OnLoad();
    void OnSave();
    void OnRunTest();

    CResourceScriptTexts m_texts;
    CScriptGenerator m_generator{m_texts};
    CComboBox m_languages;
    CListBox m_templates;
    CListBox m_functions;
    CScriptEdit m_script;
    CIconHandle m_icon;
    std::int32_t m_nLanguage = -1;
    std::wstring m_strTestText;
    bool m_bModified = false;
};
