#include "script/ScriptFunctionDlg.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "script/resource.h"
#include "tests/support/DialogSteps.h"
#include "tests/support/ScriptLibrary.h"

namespace {

using Texts = std::vector<std::wstring>;
using Record = CScriptGenerator::stTemplate;

Record MakeRecord(std::int32_t number, const Texts& params) {
    Record record;
    record.number = number;
    for (const std::wstring& param : params) {
        record.params.Add(param);
    }
    return record;
}

Texts Params(const Record& record) {
    return {record.params.begin(), record.params.end()};
}

std::wstring TextOf(HWND dialog, int id) {
    return CWnd(dialog).GetDlgItemText(id);
}

// The texts of the list, or of what is visible among these controls.
Texts Items(HWND dialog, int id) {
    const HWND combo = GetDlgItem(dialog, id);
    Texts items;
    for (int i = 0; i < CComboBox(combo).GetCount(); ++i) {
        wchar_t text[128] = {};
        SendMessageW(combo, CB_GETLBTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(text));
        items.emplace_back(text);
    }
    return items;
}
Texts Visible(HWND dialog) {
    Texts visible;
    for (const int id :
         {IDC_FUNCTION_PARAM_1_LABEL, IDC_FUNCTION_PARAM_1, IDC_FUNCTION_PARAM_2_LABEL, IDC_FUNCTION_PARAM_2,
          IDC_FUNCTION_PARAM_3_LABEL, IDC_FUNCTION_PARAM_3, IDC_FUNCTION_NO_PARAMS}) {
        const HWND control = GetDlgItem(dialog, id);
        if ((GetWindowLongPtrW(control, GWL_STYLE) & WS_VISIBLE) != 0) {
            visible.push_back(TextOf(dialog, id));
        }
    }
    return visible;
}

void Choose(HWND dialog, const wchar_t* name) {
    const HWND combo = GetDlgItem(dialog, IDC_FUNCTION_NAME);
    ASSERT_GE(SendMessageW(combo, CB_SELECTSTRING, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(name)),
              0);
    SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(IDC_FUNCTION_NAME, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(combo));
}

void Press(HWND dialog, int id) {
    SendDlgItemMessageW(dialog, id, BM_CLICK, 0, 0);
}

class ScriptFunctionDlg : public testing::Test {
protected:
    INT_PTR Run(const wchar_t* language, Record* record, const DialogSteps::Step& step) {
        const DialogSteps steps({step});
        return CScriptFunctionDlg(m_generator).DoModal(language, record);
    }
    CScriptGenerator m_generator{ScriptLibrary()};
};

TEST_F(ScriptFunctionDlg, ShowsTheTemplateAndItsParameters) {
    Record record = MakeRecord(61319, {L"a\r\nb", L"1"});
    EXPECT_EQ(
        Run(L"vbscript", &record,
            [&](HWND dialog) {
                EXPECT_EQ(TextOf(dialog, IDC_FUNCTION_NAME), L"Left_String");
                EXPECT_EQ(Visible(dialog), (Texts{L"searchFor:", L"a\\r\\nb", L"reverseSearch:", L"1"}));
                EXPECT_EQ(TextOf(dialog, IDC_FUNCTION_DESCRIPTION),
                          m_generator.GetTemplateDescription(61319));
                EXPECT_EQ(TextOf(dialog, IDC_FUNCTION_PARAM_3), L"");
                const Texts names = Items(dialog, IDC_FUNCTION_NAME);
                EXPECT_EQ(names.size(), 18U);
                EXPECT_EQ(names.front(), L"Download_URL");
                EXPECT_TRUE(std::ranges::is_sorted(names));
                const Texts breaks = {L"\\r\\n", L"\\r\\n\\r\\n", L"vbNewLine", L"vbNewLine + vbNewLine",
                                      L"vbTab"};
                EXPECT_EQ(Items(dialog, IDC_FUNCTION_PARAM_1), breaks);
                EXPECT_EQ(Items(dialog, IDC_FUNCTION_PARAM_2), breaks);
                EXPECT_EQ(Items(dialog, IDC_FUNCTION_PARAM_3), (Texts{L"0", L"1"}));

                Choose(dialog, L"Sub_String");
                EXPECT_EQ(Visible(dialog), (Texts{L"startSearchFor:", L"a\\r\\nb", L"endSearchFor:", L"1",
                                                  L"reverseSearch:", L""}));
                EXPECT_EQ(TextOf(dialog, IDC_FUNCTION_DESCRIPTION),
                          m_generator.GetTemplateDescription(61320));
                Choose(dialog, L"Trim_String");
                EXPECT_EQ(Visible(dialog), (Texts{L"searchFor:", L"a\\r\\nb"}));
                Choose(dialog, L"Strip_Html_Tags");
                EXPECT_EQ(Visible(dialog), Texts{L"This function has no parameters"});
                Press(dialog, IDCANCEL);
            }),
        IDCANCEL);
    EXPECT_EQ(record.number, 61319);
    EXPECT_EQ(Params(record), (Texts{L"a\r\nb", L"1"})) << "Cancel leaves it alone";
}

TEST_F(ScriptFunctionDlg, HandsBackAlwaysThreeValues) {
    const struct {
        const wchar_t* language;
        Record before;
        std::function<void(HWND)> fill;
        std::int32_t number;
        Texts params;
    } cases[] = {
        {L"VBScript", MakeRecord(61322, {}), [](HWND) {}, 61322, {L"", L"", L""}},
        {L"JScript",
         MakeRecord(62005, {}),
         [](HWND dialog) {
             SendDlgItemMessageW(dialog, IDC_FUNCTION_PARAM_1, CB_SETCURSEL, 1, 0);
             SetDlgItemTextW(dialog, IDC_FUNCTION_PARAM_2, L"x\\r\\ny");
         },
         62005,
         {L"\r\n\r\n", L"x\r\ny", L""}},
        {L"JScript",
         MakeRecord(62003, {L"1", L"2", L"3", L"4"}),
         [](HWND dialog) { Choose(dialog, L"Left_String"); },
         62002,
         {L"1", L"2", L"3"}},
        {L"JScript",
         MakeRecord(61319, {L"kept"}),
         [](HWND dialog) {
             EXPECT_EQ(TextOf(dialog, IDC_FUNCTION_NAME), L"") << "another language's template";
             EXPECT_EQ(Visible(dialog), Texts{L"This function has no parameters"});
         },
         -1,
         {L"kept", L"", L""}},
        {L"Perl",
         MakeRecord(61319, {}),
         [](HWND dialog) { EXPECT_TRUE(Items(dialog, IDC_FUNCTION_NAME).empty()); },
         -1,
         {L"", L"", L""}},
    };
    for (const auto& item : cases) {
        Record record = item.before;
        EXPECT_EQ(Run(item.language, &record,
                      [&](HWND dialog) {
                          item.fill(dialog);
                          Press(dialog, IDOK);
                      }),
                  IDOK);
        EXPECT_EQ(record.number, item.number);
        EXPECT_EQ(Params(record), item.params);
    }
    EXPECT_EQ(Run(L"JScript", nullptr, [](HWND) { ADD_FAILURE() << "opened"; }), -1);
}

}  // namespace
