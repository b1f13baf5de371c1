#include "script/win32/ScriptFunctionDlg.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "script/resource.h"
#include "script/win32/ResourceScriptTexts.h"
#include "tests/support/DialogSteps.h"

namespace {

using Texts = std::vector<std::wstring>;

// The dialog on a record with these values, which `step` fills in and closes.
struct ScriptFunctionDlg : testing::Test {
    INT_PTR Run(const wchar_t* language, std::int32_t number, const Texts& params,
                const std::function<void()>& step) {
        record = {number, {}};
        for (const std::wstring& param : params) {
            record.params.Add(param);
        }
        const DialogSteps steps({[&](HWND window) {
            dialog.Attach(window);
            step();
        }});
        return CScriptFunctionDlg(generator).DoModal(language, &record);
    }
    [[nodiscard]] Texts Visible() const {
        Texts visible;
        for (const int id : {IDC_FUNCTION_PARAM_1_LABEL, IDC_FUNCTION_PARAM_1, IDC_FUNCTION_PARAM_2_LABEL,
                             IDC_FUNCTION_PARAM_2, IDC_FUNCTION_PARAM_3_LABEL, IDC_FUNCTION_PARAM_3,
                             IDC_FUNCTION_NO_PARAMS}) {
            if ((GetWindowLongPtrW(dialog.GetDlgItem(id), GWL_STYLE) & WS_VISIBLE) != 0) {
                visible.push_back(dialog.GetDlgItemText(id));
            }
        }
        return visible;
    }
    void Choose(const wchar_t* name) const {
        const HWND combo = dialog.GetDlgItem(IDC_FUNCTION_NAME);
        SendMessageW(combo, CB_SELECTSTRING, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(name));
        dialog.SendMessage(WM_COMMAND, MAKEWPARAM(IDC_FUNCTION_NAME, CBN_SELCHANGE),
                           reinterpret_cast<LPARAM>(combo));
    }
    void Press(int id) const { SendMessageW(dialog.GetDlgItem(id), BM_CLICK, 0, 0); }

    CResourceScriptTexts texts;
    CScriptGenerator generator{texts};
    CScriptGenerator::stTemplate record;
    CWnd dialog;
};

TEST_F(ScriptFunctionDlg, ShowsTheTemplateAndItsParameters) {
    const auto look = [&] {
        EXPECT_EQ(Visible(), (Texts{L"searchFor:", L"a\\r\\nb", L"reverseSearch:", L"1"}));
        EXPECT_EQ(dialog.GetDlgItemText(IDC_FUNCTION_DESCRIPTION), generator.GetTemplateDescription(61319));
        Choose(L"Strip_Html_Tags");
        EXPECT_EQ(Visible(), Texts{L"This function has no parameters"});
        Press(IDCANCEL);
    };
    EXPECT_EQ(Run(L"vbscript", 61319, {L"a\r\nb", L"1"}, look), IDCANCEL);
    EXPECT_EQ(record.params[0], L"a\r\nb") << "Cancel leaves it alone";
}

TEST_F(ScriptFunctionDlg, ReturnsAlwaysThreeValues) {
    const auto type = [&] {
        SendMessageW(dialog.GetDlgItem(IDC_FUNCTION_PARAM_1), CB_SETCURSEL, 1, 0);
        dialog.SetDlgItemText(IDC_FUNCTION_PARAM_2, L"x\\r\\ny");
        Press(IDOK);
    };
    EXPECT_EQ(Run(L"JScript", 62005, {}, type), IDOK);
    EXPECT_EQ(Texts(record.params.begin(), record.params.end()), (Texts{L"\r\n\r\n", L"x\r\ny", L""}));
    const auto choose = [&] {
        Choose(L"Left_String");
        Press(IDOK);
    };
    EXPECT_EQ(Run(L"JScript", 62003, {L"1", L"2", L"3", L"4"}, choose), IDOK);
    EXPECT_EQ(record.number, 62002);
    EXPECT_EQ(Texts(record.params.begin(), record.params.end()), (Texts{L"1", L"2", L"3"}));
}

}  // namespace
