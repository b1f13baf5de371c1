#include <windows.h>

#include <algorithm>

#include "layout/AnchorGeometry.h"
#include "script/ScriptGenerator.h"
#include "script/resource.h"
#include "tests/support/DialogLayoutTest.h"
#include "tests/support/ScriptLibrary.h"

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

TEST_P(ScriptDialogLayout, IsWhole) {
    ExpectControls({{2113, L""},
                    {2103, L""},
                    {2100, L"Ne&w Script..."},
                    {2119, L"A&dd To Script..."},
                    {2111, L""},
                    {2118, L"&Insert"},
                    {2104, L""},
                    {2105, L"Ln 1, Col 1"},
                    {2116, L"P&arse"},
                    {2102, L"&New"},
                    {2117, L"&Load..."},
                    {2115, L"&Save..."},
                    {1, L"&OK"},
                    {2, L"Cancel"},
                    {2106, L""},
                    {2109, L"Test"},
                    {2107, L"T&ext:"},
                    {2110, L""},
                    {2108, L"&Result:"},
                    {2112, L""},
                    {2114, L"Run &Test"}},
                   {L"Language:", L"Script Templates:", L"Functions:", L"&Script:"});
    ExpectNothingCutOff({{IDC_SCRIPT_LANGUAGE, L"VBScript"},
                         {IDC_SCRIPT_CARET, L"Ln 32768, Col 32768"},
                         {IDC_SCRIPT_TEMPLATES, L"Extract_Selected_Text_From_DropDownList"}});
    const std::map<int, std::uint32_t> anchors = {
        {2111, 11}, {2105, 6},  {2104, 16}, {2102, 9}, {2118, 9}, {2116, 9},  {2117, 9},  {2115, 9}, {1, 12},
        {2, 12},    {2106, 13}, {2109, 13}, {2107, 9}, {2108, 9}, {2110, 13}, {2112, 13}, {2114, 12}};
    ExpectNoOverlap([&](int id) -> std::uint32_t {
        const auto own = anchors.find(id);
        return own == anchors.end() ? ANCHOR_LEFT | ANCHOR_TOP : own->second;
    });
    ExpectEyeOrderAndLabels();
    EXPECT_EQ(SharedMnemonics(), (std::map<wchar_t, int>{{L's', 2}})) << "the script and Save";
}

TEST_P(ScriptFunctionDialogLayout, IsWhole) {
    ExpectControls({{2131, L""},
                    {2136, L"Param &1:"},
                    {2139, L""},
                    {2135, L"Param &2:"},
                    {2138, L""},
                    {2134, L"Param &3:"},
                    {2137, L""},
                    {2132, L"This function has no parameters"},
                    {2133, L"What the function does and what its parameters accept."},
                    {1, L"&OK"},
                    {2, L"&Cancel"}},
                   {L"&Function Name:", L"Parameters"});
    ExpectNothingCutOff({{IDC_FUNCTION_NAME, L"Extract_Selected_Text_From_DropDownList"},
                         {IDC_FUNCTION_PARAM_1, L"vbNewLine + vbNewLine"}});
    ExpectNoOverlap([](int) -> std::uint32_t { return ANCHOR_LEFT | ANCHOR_TOP; });
    ExpectEyeOrderAndLabels();
    EXPECT_TRUE(SharedMnemonics().empty());

    // What is put into the labels later has room as well.
    const CScriptGenerator generator(ScriptLibrary());
    const auto find = [&](int id) {
        return *std::ranges::find_if(m_controls, [&](const auto& control) { return control.id == id; });
    };
    const LayoutControl description = find(IDC_FUNCTION_DESCRIPTION);
    const LayoutControl label = find(IDC_FUNCTION_PARAM_1_LABEL);
    LayoutControl noParams = find(IDC_FUNCTION_NO_PARAMS);
    noParams.style |= WS_VISIBLE;
    m_controls = {noParams};
    ExpectNothingCutOff({});
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
