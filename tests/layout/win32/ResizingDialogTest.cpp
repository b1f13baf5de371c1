#include "layout/win32/ResizingDialog.h"

#include <gtest/gtest.h>

#include "tests/framework/TestDialogs.h"
#include "tests/support/TestApp.h"

namespace {

constexpr wchar_t kSection[] = L"Test";

// Larger than the screen, with OK in its corner and Cancel all over it.
class CLargeDialog : public CResizingDialog {
public:
    CLargeDialog() : CResizingDialog(IDD_LARGE) { Create(IDD_LARGE); }
    using CResizingDialog::m_nMinTrackHeight;
    using CResizingDialog::m_nMinTrackWidth;
    using CResizingDialog::OpenWith;
    using CResizingDialog::TemplateClientSize;

protected:
    BOOL OnInitDialog() override {
        CResizingDialog::OnInitDialog();
        AddControl(GetDlgItem(IDOK), ANCHOR_RIGHT | ANCHOR_BOTTOM);
        AddControl(GetDlgItem(IDCANCEL), ANCHOR_ALL);
        return TRUE;
    }
};

class ResizingDialog : public testing::Test {
protected:
    void Store(bool isMaximized, const Edges& place) const {
        app.WriteProfileInt(kSection, L"WS_MAXIMIZE", isMaximized ? 1 : 0);
        app.WriteProfileInt(kSection, L"left", place.left);
        app.WriteProfileInt(kSection, L"top", place.top);
        app.WriteProfileInt(kSection, L"right", place.right);
        app.WriteProfileInt(kSection, L"bottom", place.bottom);
    }
    static bool IsInside(const RECT& around, const RECT& rect) {
        RECT both{};
        UnionRect(&both, &around, &rect);
        return EqualRect(&both, &around) != FALSE;
    }
    void ExpectWithinReach(const char* when) const {
        RECT area{};
        SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
        EXPECT_TRUE(IsInside(area, dialog.GetWindowRect())) << when;
        RECT client = dialog.GetClientRect();
        MapWindowPoints(dialog.m_hWnd, nullptr, reinterpret_cast<POINT*>(&client), 2);
        EXPECT_TRUE(IsInside(client, CWnd(dialog.GetDlgItem(IDOK)).GetWindowRect())) << when << ": OK";
        EXPECT_TRUE(IsInside(client, CWnd(dialog.GetDlgItem(IDCANCEL)).GetWindowRect()))
            << when << ": Cancel";
    }

    TestApp app;
    CLargeDialog dialog;
};

TEST_F(ResizingDialog, LayoutLargerThanTheScreenStays) {
    const SIZE wanted = dialog.TemplateClientSize();
    ASSERT_GT(wanted.cx, GetSystemMetrics(SM_CXSCREEN)) << "the screen is too large for this test";
    EXPECT_EQ(dialog.GetClientRect().right, wanted.cx);
    EXPECT_EQ(dialog.GetClientRect().bottom, wanted.cy);
    EXPECT_EQ(dialog.m_nMinTrackWidth, static_cast<int>(wanted.cx * 0.8));
    EXPECT_EQ(dialog.m_nMinTrackHeight, static_cast<int>(wanted.cy * 0.8));
    dialog.OpenWith(wanted);
    ExpectWithinReach("opened");
}

TEST_F(ResizingDialog, PlaceOfAnotherScreenIsFitted) {
    const LONG width = GetSystemMetrics(SM_CXSCREEN);
    const LONG height = GetSystemMetrics(SM_CYSCREEN);
    const std::pair<const char*, Edges> cases[] = {
        {"smaller than the smallest", {width - 100, height - 100, width - 1, height - 1}},
        {"from a larger screen", {200, 150, 2 * width, 2 * height}},
        {"minimised", {-32000, -32000, -31840, -31972}},
    };
    for (const auto& [when, place] : cases) {
        Store(false, place);
        dialog.RestoreWindowPlacement(kSection);
        ExpectWithinReach(when);
    }
}

TEST_F(ResizingDialog, StaysMaximisedWhenShownAgain) {
    Store(true, {0, 0, 1250, 850});
    dialog.RestoreWindowPlacement(kSection);
    const RECT maximised = dialog.GetWindowRect();
    for (const bool isStored : {true, false}) {
        Store(isStored, {0, 0, 1250, 850});
        dialog.ShowWindow(SW_HIDE);
        dialog.ShowWindow(SW_SHOW);
        dialog.RestoreWindowPlacement(kSection);
        EXPECT_TRUE(IsZoomed(dialog.m_hWnd)) << isStored;
        const RECT again = dialog.GetWindowRect();
        EXPECT_TRUE(EqualRect(&again, &maximised))
            << isStored << ": " << again.right << " x " << again.bottom;
    }
}

}  // namespace
