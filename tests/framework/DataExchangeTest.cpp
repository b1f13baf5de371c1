#include "framework/DataExchange.h"

#include <gtest/gtest.h>

#include <cstring>
#include <stdexcept>

#include "framework/Dialog.h"
#include "tests/framework/TestDialogs.h"

namespace {

class DataExchange : public testing::Test, protected CDialog {
protected:
    DataExchange() : CDialog(IDD_TEST_CONTROLS) { EXPECT_TRUE(Create(IDD_TEST_CONTROLS)); }

    CDataExchange m_save{*this, true};
    CDataExchange m_load{*this, false};
};

TEST_F(DataExchange, TextsAndNumbers) {
    const std::wstring longText(5000, L'\u4fa1');
    for (const std::wstring& shown : {std::wstring(), longText}) {
        std::wstring text = shown;
        DDX_Text(&m_load, IDC_TEST_EDIT, text);
        text = L"before";
        DDX_Text(&m_save, IDC_TEST_EDIT, text);
        EXPECT_EQ(text, shown);
    }
    SendDlgItemMessageW(m_hWnd, IDC_TEST_EDIT, EM_SETSEL, 3, 3);
    std::wstring same = longText;
    DDX_Text(&m_load, IDC_TEST_EDIT, same);
    EXPECT_EQ(LOWORD(SendDlgItemMessageW(m_hWnd, IDC_TEST_EDIT, EM_GETSEL, 0, 0)), 3)
        << "the caret has not moved";

    const struct {
        const wchar_t* typed;
        std::int32_t number;
    } cases[] = {{L"12abc", 12},
                 {L"  -7 8", -7},
                 {L"+3", 3},
                 {L"abc", 0},
                 {L"", 0},
                 {L"99999999999", 2147483647},
                 {L"-99999999999", -2147483647 - 1}};
    std::int32_t number = -40;
    DDX_Text(&m_load, IDC_TEST_NUMBER, number);
    EXPECT_EQ(GetDlgItemText(IDC_TEST_NUMBER), L"-40");
    for (const auto& item : cases) {
        SetDlgItemText(IDC_TEST_NUMBER, item.typed);
        DDX_Text(&m_save, IDC_TEST_NUMBER, number);
        EXPECT_EQ(number, item.number);
    }
}

TEST_F(DataExchange, TicksChoicesAndTimes) {
    for (const wchar_t* item : {L"minutes", L"hours"}) {
        SendDlgItemMessageW(m_hWnd, IDC_TEST_COMBO, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item));
    }
    for (const std::int32_t stored : {1, 0, -1, 9}) {
        std::int32_t flag = stored;
        DDX_Check(&m_load, IDC_TEST_CHECK, flag);
        DDX_Check(&m_save, IDC_TEST_CHECK, flag);
        EXPECT_EQ(flag, stored != 0);
        std::int32_t index = stored;
        DDX_CBIndex(&m_load, IDC_TEST_COMBO, index);
        DDX_CBIndex(&m_save, IDC_TEST_COMBO, index);
        EXPECT_EQ(index, stored == 9 ? -1 : stored) << "an index that there is not selects nothing";
    }
    SYSTEMTIME time{2024, 3, 2, 5, 8, 15, 42, 0};  // a Tuesday
    const SYSTEMTIME before = time;
    DDX_DateTimeCtrl(&m_load, IDC_TEST_PICKER, time);
    time = {};
    DDX_DateTimeCtrl(&m_save, IDC_TEST_PICKER, time);
    EXPECT_EQ(std::memcmp(&time, &before, sizeof time), 0) << "a picker keeps what its format does not show";
    std::int32_t unused = 0;
    EXPECT_THROW(DDX_Check(&m_save, 4711, unused), std::invalid_argument);
}

}  // namespace
