#include "framework/DataExchange.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "framework/Dialog.h"
#include "tests/framework/TestDialogs.h"

namespace {

class ControlsDialog : public CDialog {
public:
    ControlsDialog() : CDialog(IDD_TEST_CONTROLS) { EXPECT_TRUE(Create(IDD_TEST_CONTROLS)); }
    CDataExchange m_save{*this, true};
    CDataExchange m_load{*this, false};
};

TEST(DataExchange, TextsAndNumbers) {
    ControlsDialog dialog;
    const std::wstring longText(5000, L'\u4fa1');
    for (std::wstring text : {std::wstring(L"plain"), std::wstring(), longText}) {
        DDX_Text(&dialog.m_load, IDC_TEST_EDIT, text);
        std::wstring back = L"before";
        DDX_Text(&dialog.m_save, IDC_TEST_EDIT, back);
        EXPECT_EQ(back, text);
    }
    struct {
        const wchar_t* typed;
        std::int32_t number;
    } const cases[] = {{L"12", 12},
                       {L"12abc", 12},
                       {L"  -7 8", -7},
                       {L"+3", 3},
                       {L"abc", 0},
                       {L"", 0},
                       {L"99999999999", 2'147'483'647},
                       {L"-99999999999", -2'147'483'647 - 1}};
    for (const auto& item : cases) {
        dialog.SetDlgItemText(IDC_TEST_NUMBER, item.typed);
        std::int32_t number = 1;
        DDX_Text(&dialog.m_save, IDC_TEST_NUMBER, number);
        EXPECT_EQ(number, item.number) << std::string(item.typed, item.typed + wcslen(item.typed));
    }
    std::int32_t number = -40;
    DDX_Text(&dialog.m_load, IDC_TEST_NUMBER, number);
    EXPECT_EQ(dialog.GetDlgItemText(IDC_TEST_NUMBER), L"-40");

    SendMessageW(dialog.GetDlgItem(IDC_TEST_EDIT), EM_SETSEL, 3, 3);
    std::wstring same = longText;
    DDX_Text(&dialog.m_load, IDC_TEST_EDIT, same);
    DWORD caret = 0;
    SendMessageW(dialog.GetDlgItem(IDC_TEST_EDIT), EM_GETSEL, reinterpret_cast<WPARAM>(&caret), 0);
    EXPECT_EQ(caret, 3U) << "the same text again does not move the caret";
}

TEST(DataExchange, TicksChoicesAndTimes) {
    ControlsDialog dialog;
    for (const std::int32_t stored : {0, 1, 2, -5}) {
        std::int32_t flag = stored;
        DDX_Check(&dialog.m_load, IDC_TEST_CHECK, flag);
        EXPECT_EQ(dialog.IsDlgButtonChecked(IDC_TEST_CHECK), stored != 0) << stored;
        DDX_Check(&dialog.m_save, IDC_TEST_CHECK, flag);
        EXPECT_EQ(flag, stored != 0) << stored;
    }
    const HWND combo = dialog.GetDlgItem(IDC_TEST_COMBO);
    for (const wchar_t* item : {L"minutes", L"hours"}) {
        SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item));
    }
    for (const std::int32_t stored : {1, 0, -1, 9}) {
        std::int32_t index = stored;
        DDX_CBIndex(&dialog.m_load, IDC_TEST_COMBO, index);
        DDX_CBIndex(&dialog.m_save, IDC_TEST_COMBO, index);
        EXPECT_EQ(index, stored == 9 ? -1 : stored) << "an index that there is not selects nothing";
    }
    SYSTEMTIME time{2024, 3, 0, 5, 8, 15, 42, 0};
    DDX_DateTimeCtrl(&dialog.m_load, IDC_TEST_PICKER, time);
    SYSTEMTIME back{};
    DDX_DateTimeCtrl(&dialog.m_save, IDC_TEST_PICKER, back);
    EXPECT_EQ(back.wYear, 2024);
    EXPECT_EQ(back.wMonth, 3);
    EXPECT_EQ(back.wDay, 5);
    EXPECT_EQ(back.wHour, 8);
    EXPECT_EQ(back.wMinute, 15);
    EXPECT_EQ(back.wSecond, 42) << "a picker keeps what its format does not show";

    std::int32_t unused = 0;
    EXPECT_THROW(DDX_Check(&dialog.m_save, 4711, unused), std::invalid_argument);
}

}  // namespace
