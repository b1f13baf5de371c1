// Whether the text of each control has room in it. That no control covers another one or is out of reach,
// tests/journeys/test_layout.py sees in the running program.
#include <windows.h>

#include <commctrl.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "script/ScriptGenerator.h"
#include "script/resource.h"
#include "script/win32/ResourceScriptTexts.h"
#include "ui/resource.h"

namespace {

// The longest text that a field with an arrow shows, by its control.
const std::map<int, std::wstring> kLongest{{IDC_START_DATE, L"30/12/2026"},
                                           {IDC_START_TIME, L"23:59"},
                                           {IDC_UNTIL_TIME, L"23:59"},
                                           {IDC_EVERY_UNIT, L"minutes"},
                                           {IDC_SCRIPT_LANGUAGE, L"VBScript"},
                                           {IDC_SCRIPT_CARET, L"Ln 32768, Col 32768"},
                                           {IDC_SCRIPT_TEMPLATES, L"Extract_Selected_Text_From_DropDownList"},
                                           {IDC_FUNCTION_NAME, L"Extract_Selected_Text_From_DropDownList"},
                                           {IDC_FUNCTION_PARAM_1, L"vbNewLine + vbNewLine"}};

// A dialog of the program, created hidden with the fonts of a resolution.
class DialogLayout : public testing::TestWithParam<std::tuple<int, int>> {
protected:
    DialogLayout() {
        const INITCOMMONCONTROLSEX classes = {sizeof classes, ICC_STANDARD_CLASSES | ICC_LISTVIEW_CLASSES |
                                                                  ICC_DATE_CLASSES | ICC_UPDOWN_CLASS};
        InitCommonControlsEx(&classes);
        // A copy of the template with another font size, which enlarges the dialog as a higher dpi does.
        const HRSRC resource = FindResourceW(nullptr, MAKEINTRESOURCEW(m_template), RT_DIALOG);
        const auto* bytes = static_cast<const WORD*>(LockResource(LoadResource(nullptr, resource)));
        std::vector<WORD> copy(bytes, bytes + SizeofResource(nullptr, resource) / sizeof(WORD));
        const auto afterMenuAndClass = copy.begin() + 13 + 2;  // neither is given: one zero each
        *(std::find(afterMenuAndClass, copy.end(), WORD{0}) + 1) = static_cast<WORD>(MulDiv(8, m_dpi, 96));
        m_dialog = CreateDialogIndirectParamW(
            nullptr, static_cast<const DLGTEMPLATE*>(static_cast<const void*>(copy.data())), nullptr, nullptr,
            0);
    }
    ~DialogLayout() override { DestroyWindow(m_dialog); }

    // The size of a text in the dialog's font: on one line, or wrapped at a width.
    [[nodiscard]] SIZE TextSize(const std::wstring& text, LONG wrapAt = 0) const {
        const HDC dc = GetDC(m_dialog);
        const HGDIOBJ old =
            SelectObject(dc, reinterpret_cast<HGDIOBJ>(SendMessageW(m_dialog, WM_GETFONT, 0, 0)));
        RECT rect = {0, 0, wrapAt, 0};
        DrawTextW(dc, text.c_str(), -1, &rect,
                  DT_CALCRECT | (wrapAt == 0 ? UINT{DT_SINGLELINE} : DT_WORDBREAK));
        SelectObject(dc, old);
        ReleaseDC(m_dialog, dc);
        return {rect.right, rect.bottom};
    }

    void ExpectRoom(HWND control, const std::wstring& text) const {
        const int id = GetDlgCtrlID(control);
        const auto style = static_cast<DWORD>(GetWindowLongPtrW(control, GWL_STYLE));
        wchar_t kind[64] = {};
        GetClassNameW(control, kind, 64);
        RECT rect;
        GetWindowRect(control, &rect);
        const LONG width = rect.right - rect.left;
        SIZE needed = {};
        int frame = 0;  // in pixels at 96 dpi
        if (const auto sample = kLongest.find(id); sample != kLongest.end()) {
            needed = TextSize(sample->second);
            frame = 17 + 6;  // an arrow and the frame
        } else if (kind == std::wstring(WC_BUTTONW) && (style & BS_ICON) != 0) {
            needed = {6, MulDiv(16, m_dpi, 96) + 6};
            frame = 16;
        } else if (kind == std::wstring(WC_BUTTONW)) {
            const DWORD type = style & BS_TYPEMASK;
            needed = TextSize(text);
            frame = type == BS_AUTOCHECKBOX ? 13 + 4 : type == BS_GROUPBOX ? 2 * 9 : 2 * 5;
        } else if (kind == std::wstring(WC_STATICW) && (style & WS_VISIBLE) != 0 && !text.empty()) {
            needed = TextSize(text, width);
        }
        EXPECT_LE(needed.cx + MulDiv(frame, m_dpi, 96), width) << id;
        EXPECT_LE(needed.cy, rect.bottom - rect.top) << id;
    }

    const int m_template = std::get<0>(GetParam());
    const int m_dpi = std::get<1>(GetParam());
    HWND m_dialog = nullptr;
};

INSTANTIATE_TEST_SUITE_P(Dpi, DialogLayout,
                         testing::Combine(testing::Values(IDD_MAIN, IDD_SCRIPT, IDD_SCRIPT_FUNCTION),
                                          testing::Values(96, 120, 144, 192)));

TEST_P(DialogLayout, CutsOffNothing) {
    ASSERT_NE(m_dialog, nullptr);
    for (HWND child = GetWindow(m_dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        wchar_t text[128] = {};
        GetWindowTextW(child, text, 128);
        ExpectRoom(child, text);
    }
    if (m_template != IDD_SCRIPT_FUNCTION) {
        return;
    }
    // What the program puts into the labels has room as well.
    const CResourceScriptTexts texts;
    const CScriptGenerator generator(texts);
    for (const wchar_t* language : {L"JScript", L"VBScript"}) {
        const auto numbers = CScriptGenerator::GetTemplateNumbers(language);
        for (std::int32_t number = numbers.first; number <= numbers.last; ++number) {
            ExpectRoom(GetDlgItem(m_dialog, IDC_FUNCTION_DESCRIPTION),
                       generator.GetTemplateDescription(number));
            for (const std::wstring& name : generator.GetTemplateParamNames(number, 1)) {
                ExpectRoom(GetDlgItem(m_dialog, IDC_FUNCTION_PARAM_1_LABEL), name + L':');
            }
        }
    }
}

}  // namespace
