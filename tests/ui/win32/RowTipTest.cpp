#include "ui/win32/RowTip.h"

#include <functional>
#include <utility>

#include "tests/support/MainDialog.h"

namespace {

class RowTip : public MainDialogTest {
protected:
    void SetUp() override {
        Open({L"C:\\p\\a.scvpr", L"C:\\p\\b & c.scvpr"});
        dialog->ShowWindow(SW_SHOW);
    }
    // The dialog's own tooltip control; null when there is none.
    [[nodiscard]] HWND ToolTip() const {
        HWND window = nullptr;
        while ((window = FindWindowExW(nullptr, window, TOOLTIPS_CLASSW, nullptr)) != nullptr &&
               GetWindow(window, GW_OWNER) != dialog->m_hWnd) {
        }
        return window;
    }
    void Post(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        MSG record{};
        record.hwnd = Item(IDC_PROJECT_LIST);
        record.message = message;
        record.wParam = wParam;
        record.lParam = lParam;
        dialog->PreTranslateMessage(&record);
    }
    // Moves the mouse to the middle of a row, or to the empty space where such a row would be.
    void MoveTo(int row) {
        RECT first{LVIR_BOUNDS, 0, 0, 0};
        List(LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&first));
        const LONG height = first.bottom - first.top;
        Post(WM_MOUSEMOVE, 0, MAKELPARAM(first.left + 60, first.top + row * height + height / 2));
    }
    // Whether the list is one of the tooltip control's tools.
    [[nodiscard]] bool IsOffered() const {
        TTTOOLINFOW tool{};
        tool.cbSize = TTTOOLINFOW_V2_SIZE;
        tool.hwnd = dialog->m_hWnd;
        tool.uId = reinterpret_cast<UINT_PTR>(Item(IDC_PROJECT_LIST));
        return SendMessageW(ToolTip(), TTM_GETTOOLINFOW, 0, reinterpret_cast<LPARAM>(&tool)) != 0;
    }
    [[nodiscard]] std::wstring Text() const {
        NMTTDISPINFOW request{};
        request.hdr = {ToolTip(), reinterpret_cast<UINT_PTR>(Item(IDC_PROJECT_LIST)), TTN_GETDISPINFOW};
        dialog->SendMessage(WM_NOTIFY, request.hdr.idFrom, reinterpret_cast<LPARAM>(&request));
        return request.lpszText != nullptr ? request.lpszText : L"";
    }
};

TEST_F(RowTip, IsAboutTheRowBelowTheMouse) {
    ASSERT_NE(ToolTip(), nullptr);
    EXPECT_FALSE(IsOffered());
    const std::pair<int, const wchar_t*> rows[] = {{1, L"C:\\p\\b && c.scvpr"}, {0, L"C:\\p\\a.scvpr"}};
    for (const auto& [row, path] : rows) {
        MoveTo(row);
        EXPECT_TRUE(IsOffered()) << row;
        EXPECT_EQ(Text().substr(0, Text().find(L"\r\n")), path) << row;
    }
    MoveTo(5);
    EXPECT_FALSE(IsOffered()) << "below the last row";
}

TEST_F(RowTip, LooksForNoFileOfAnotherMachine) {
    Task(1).m_strProjectPath = L"\\\\server\\share\\b.scvpr";
    shell.missing = {Task(0).m_strProjectPath, Task(1).m_strProjectPath};
    for (const auto& [row, isFound] : {std::pair{0, true}, std::pair{1, false}}) {
        MoveTo(row);
        const bool isToldMissing =
            Text().find(L"Check: the project file does not exist") != std::wstring::npos;
        EXPECT_EQ(isToldMissing, isFound) << row;
    }
}

TEST_F(RowTip, IsHiddenWhenTheRowMayChange) {
    const std::pair<const char*, std::function<void()>> changes[] = {
        {"a key", [&] { Post(WM_KEYDOWN, VK_DOWN); }},
        {"a refill", [&] { dialog->SendMessage(WM_COMMAND, IDCANCEL); }},
        {"a run",
         [&] {
             clock.now += 300;
             Tick();
         }},
    };
    for (const auto& [label, change] : changes) {
        MoveTo(0);
        EXPECT_TRUE(IsOffered()) << label << ": before";
        change();
        EXPECT_FALSE(IsOffered()) << label;
    }
}

}  // namespace
