#include "layout/win32/ResizingDialog.h"

#include <gtest/gtest.h>

#include "tests/framework/TestDialogs.h"
#include "tests/support/TestApp.h"

namespace {

constexpr wchar_t kSection[] = L"Test";

class ResizingDialog : public testing::Test {
protected:
    void Store(bool isMaximized, const Edges& place) const {
        app.WriteProfileInt(kSection, L"WS_MAXIMIZE", isMaximized ? 1 : 0);
        app.WriteProfileInt(kSection, L"left", place.left);
        app.WriteProfileInt(kSection, L"top", place.top);
        app.WriteProfileInt(kSection, L"right", place.right);
        app.WriteProfileInt(kSection, L"bottom", place.bottom);
    }

    TestApp app;
    CResizingDialog dialog{IDD_LARGE};
};

TEST_F(ResizingDialog, StaysMaximisedWhenShownAgain) {
    ASSERT_TRUE(dialog.Create(IDD_LARGE));
    Store(true, {0, 0, 1250, 850});
    dialog.RestoreWindowPlacement(kSection);
    const RECT maximised = dialog.GetWindowRect();
    Store(false, {0, 0, 1250, 850});
    dialog.ShowWindow(SW_HIDE);
    dialog.ShowWindow(SW_SHOW);
    dialog.RestoreWindowPlacement(kSection);
    EXPECT_TRUE(IsZoomed(dialog.m_hWnd));
    const RECT again = dialog.GetWindowRect();
    EXPECT_TRUE(EqualRect(&again, &maximised)) << again.right << " x " << again.bottom;
}

}  // namespace
