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

    // Starts with the record's template and values; offers the language's templates, case not counting in its
    // name. After IDOK the record holds what was chosen: always three values, those of hidden fields too, and
    // the number -1 when no function was selected. Otherwise it is untouched. -1 at once without a record.
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
