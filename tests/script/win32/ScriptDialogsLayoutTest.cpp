#include <windows.h>

#include <algorithm>

#include "layout/AnchorGeometry.h"
#include "script/resource.h"
#include "script/win32/ScriptDlg.h"
#include "tests/support/DialogLayoutTest.h"
#include "tests/support/TestApp.h"

namespace {

class ScriptDialogLayout : public DialogLayoutTest {
protected:
    ScriptDialogLayout() : DialogLayoutTest(IDD_SCRIPT) {}
};
class ScriptFunctionDialogLayout : public DialogLayoutTest {
protected:
    ScriptFunctionDialogLayout() : DialogLayoutTest(IDD_SCRIPT_FUNCTION) {}
};

INSTANTIATE_DIALOG_LAYOUT(ScriptDialogLayout);
INSTANTIATE_DIALOG_LAYOUT(ScriptFunctionDialogLayout);

struct CAnchors : CScriptDlg {
    using CScriptDlg::m_arrChildControls;
};

TEST_P(ScriptDialogLayout, IsWhole) {
    ExpectNothingCutOff({{IDC_SCRIPT_LANGUAGE, L"VBScript"},
                         {IDC_SCRIPT_CARET, L"Ln 32768, Col 32768"},
                         {IDC_SCRIPT_TEMPLATES, L"Extract_Selected_Text_From_DropDownList"}});
    const TestApp app;
    CAnchors dialog;
    ASSERT_TRUE(dialog.Create(IDD_SCRIPT));
    EXPECT_EQ(dialog.m_arrChildControls.size(), 17U);
    ExpectNoOverlap([&](int id) -> std::uint32_t {
        const auto own = std::ranges::find(dialog.m_arrChildControls, dialog.GetDlgItem(id),
                                           &CResizingDialog::stChildControl::hWnd);
        return own == dialog.m_arrChildControls.end() ? ANCHOR_LEFT | ANCHOR_TOP : own->nFlags;
    });
}

TEST_P(ScriptFunctionDialogLayout, IsWhole) {
    ExpectNothingCutOff({{IDC_FUNCTION_NAME, L"Extract_Selected_Text_From_DropDownList"},
                         {IDC_FUNCTION_PARAM_1, L"vbNewLine + vbNewLine"}});
    ExpectNoOverlap([](int) -> std::uint32_t { return ANCHOR_LEFT | ANCHOR_TOP; });

    // What is put into the labels later has room as well.
    const CResourceScriptTexts texts;
    const CScriptGenerator generator(texts);
    const auto find = [&](int id) {
        return *std::ranges::find_if(m_controls, [&](const auto& control) { return control.id == id; });
    };
    const LayoutControl description = find(IDC_FUNCTION_DESCRIPTION);
    const LayoutControl label = find(IDC_FUNCTION_PARAM_1_LABEL);
    for (const wchar_t* language : {L"JScript", L"VBScript"}) {
        const auto numbers = CScriptGenerator::GetTemplateNumbers(language);
        for (std::int32_t number = numbers.first; number <= numbers.last; ++number) {
            m_controls = {description, label};
            m_controls.front().text = generator.GetTemplateDescription(number);
            for (const std::wstring& name : generator.GetTemplateParamNames(number, 1)) {
                m_controls.back().text = name + L':';
                ExpectNothingCutOff({});
            }
        }
    }
}

}  // namespace
