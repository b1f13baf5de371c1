#pragma once

#include <windows.h>

#include <string>

#include "framework/Controls.h"
#include "framework/Dialog.h"
#include "script/ScriptGenerator.h"

// Lets the user choose a template's function and the values of its parameters.
class CScriptFunctionDlg : public CDialog {
public:
    // The generator outlives the dialog.
    explicit CScriptFunctionDlg(const CScriptGenerator& generator, CWnd* parent = nullptr) noexcept;

    // Shows the templates of the language (case does not count in its name), with the record's template and
    // values. After IDOK the record has the chosen template (-1 when none was selected) and always three
    // values, those of hidden fields too. Otherwise it is unchanged. Without a record returns -1 at once.
    INT_PTR DoModal(const std::wstring& language, CScriptGenerator::stTemplate* record);

protected:
    BOOL OnInitDialog() override;
    BOOL OnCommand(int id, UINT code, HWND control) override;
    void OnOK() override;
    void DoDataExchange(CDataExchange* exchange) override;

private:
    using CDialog::DoModal;
    // The selected template's number, `none` without one.
    [[nodiscard]] int SelectedNumber(int none) const;
    void ShowParameters();

    const CScriptGenerator& m_generator;
    std::wstring m_strLanguage;
    CScriptGenerator::stTemplate* m_record = nullptr;
    CComboBox m_functions;
};
