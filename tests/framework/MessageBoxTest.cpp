#include "framework/MessageBox.h"

#include <gtest/gtest.h>

#include "tests/support/TestApp.h"

namespace {

std::wstring g_text;

// Reads the box that is on the screen and presses its button.
void CALLBACK Answer(HWND, UINT, UINT_PTR timer, DWORD) {
    const HWND box = FindWindowW(L"#32770", AfxGetApp()->m_strAppName.c_str());
    if (box != nullptr) {
        KillTimer(nullptr, timer);
        wchar_t text[200]{};
        GetDlgItemTextW(box, 0xFFFF, text, 200);
        g_text = text;
        PostMessageW(box, WM_COMMAND, IDNO, 0);
    }
}

TEST(AfxMessageBox, IsTitledWithTheApplicationAndAnswersItsButton) {
    const TestApp app;
    SetTimer(nullptr, 0, 10, &Answer);
    EXPECT_EQ(AfxMessageBox(L"Really \u4fa1?", MB_YESNO), IDNO);
    EXPECT_EQ(g_text, L"Really \u4fa1?");
}

}  // namespace
