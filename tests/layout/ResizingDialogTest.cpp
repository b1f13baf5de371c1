#include "layout/ResizingDialog.h"

#include <gtest/gtest.h>

#include "tests/framework/TestDialogs.h"
#include "tests/support/TestApp.h"

namespace {

class TestDialog : public CResizingDialog {
public:
    TestDialog() : CResizingDialog(IDD_TEST_RESIZING) { EXPECT_TRUE(Create(IDD_TEST_RESIZING)); }

    [[nodiscard]] Placement Place(int id) const {
        RECT rect{};
        ::GetWindowRect(GetDlgItem(id), &rect);
        MapWindowPoints(nullptr, m_hWnd, reinterpret_cast<POINT*>(&rect), 2);
        return {rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top};
    }
    void Grow(int width, int height) const {
        const RECT rect = GetWindowRect();
        SetWindowPos(m_hWnd, nullptr, 0, 0, rect.right - rect.left + width, rect.bottom - rect.top + height,
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
    using CResizingDialog::m_arrChildControls;
    using CResizingDialog::m_nMinTrackHeight;
    using CResizingDialog::m_nMinTrackWidth;
};

Placement Moved(Placement place, int x, int y, int width, int height) {
    return {place.x + x, place.y + y, place.width + width, place.height + height};
}

TEST(ResizingDialog, RegisteredControlsFollowTheWindow) {
    TestDialog dialog;
    const HWND list = dialog.GetDlgItem(IDC_TEST_LIST);
    const CWnd corner(dialog.GetDlgItem(IDC_TEST_CORNER));
    EXPECT_EQ(dialog.HasControl(list), 0);
    EXPECT_EQ(dialog.AddControl(list, ANCHOR_ALL), 1);
    EXPECT_EQ(dialog.AddControl(&corner, ANCHOR_RIGHT | ANCHOR_BOTTOM), 1);
    EXPECT_EQ(dialog.AddControl(dialog.GetDlgItem(IDC_TEST_LOOSE), ANCHOR_ALL | ANCHOR_LEFT), 1);
    EXPECT_EQ(dialog.HasControl(list), 1);
    EXPECT_EQ(dialog.HasControl(&corner), 1);
    const CWnd* none = nullptr;
    EXPECT_EQ(dialog.HasControl(none), 0);
    // A handle of nothing is registered as well, and hinders nobody.
    EXPECT_EQ(dialog.AddControl(none, ANCHOR_ALL), 1);
    EXPECT_EQ(dialog.HasControl(none), 1);
    const Placement listPlace = dialog.Place(IDC_TEST_LIST);
    const Placement cornerPlace = dialog.Place(IDC_TEST_CORNER);
    const Placement loosePlace = dialog.Place(IDC_TEST_LOOSE);
    const RECT client = dialog.GetClientRect();
    ASSERT_EQ(dialog.m_arrChildControls.size(), 4U);
    const auto& record = dialog.m_arrChildControls[1];
    EXPECT_EQ(record.nLeft, cornerPlace.x);
    EXPECT_EQ(record.nTop, cornerPlace.y);
    EXPECT_EQ(record.nRight, client.right - cornerPlace.x - cornerPlace.width);
    EXPECT_EQ(record.nBottom, client.bottom - cornerPlace.y - cornerPlace.height);

    dialog.Grow(60, 40);
    EXPECT_EQ(dialog.Place(IDC_TEST_LIST), Moved(listPlace, 0, 0, 60, 40));
    EXPECT_EQ(dialog.Place(IDC_TEST_CORNER), Moved(cornerPlace, 60, 40, 0, 0));
    EXPECT_EQ(dialog.Place(IDC_TEST_LOOSE), loosePlace) << "ANCHOR_ALL stands alone";
    dialog.Grow(-60, -40);
    EXPECT_EQ(dialog.Place(IDC_TEST_LIST), listPlace);
    EXPECT_EQ(dialog.Place(IDC_TEST_CORNER), cornerPlace);

    MoveWindow(corner.m_hWnd, 0, 0, cornerPlace.width, cornerPlace.height, FALSE);
    dialog.UpdateControlOffsets();
    dialog.Grow(7, 9);
    EXPECT_EQ(dialog.Place(IDC_TEST_CORNER), (Placement{7, 9, cornerPlace.width, cornerPlace.height}));
    EXPECT_EQ(dialog.m_arrChildControls[1].nFlags, UINT{ANCHOR_RIGHT | ANCHOR_BOTTOM});

    ::DestroyWindow(list);
    dialog.Grow(1, 1);
    EXPECT_EQ(dialog.Place(IDC_TEST_CORNER), (Placement{8, 10, cornerPlace.width, cornerPlace.height}))
        << "a control that is gone holds nobody up";
}

TEST(ResizingDialog, CannotBeDraggedBelowFourFifths) {
    TestDialog dialog;
    const RECT client = dialog.GetClientRect();
    EXPECT_EQ(dialog.m_nMinTrackWidth, MinTrackSize(client.right));
    EXPECT_EQ(dialog.m_nMinTrackHeight, MinTrackSize(client.bottom));
    MINMAXINFO info{};
    info.ptMaxTrackSize = {1, 2};
    dialog.SendMessage(WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&info));
    EXPECT_EQ(info.ptMinTrackSize.x, dialog.m_nMinTrackWidth);
    EXPECT_EQ(info.ptMinTrackSize.y, dialog.m_nMinTrackHeight);
    EXPECT_EQ(info.ptMaxTrackSize.x, 1);
}

TEST(ResizingDialog, PlaceIsKeptInTheSettings) {
    const TestApp app;
    const auto stored = [&](const wchar_t* name) {
        return static_cast<int>(app.GetProfileInt(L"CDlg", name, -7));
    };
    {
        TestDialog dialog;
        const RECT before = dialog.GetWindowRect();
        dialog.RestoreWindowPlacement(L"CDlg");
        const RECT after = dialog.GetWindowRect();
        EXPECT_TRUE(EqualRect(&before, &after)) << "nothing saved, nothing done";
        EXPECT_FALSE(dialog.IsWindowVisible());
        const RECT initial{50, 60, 550, 460};
        dialog.RestoreWindowPlacement(L"CDlg", &initial);
        const RECT placed = dialog.GetWindowRect();
        EXPECT_TRUE(EqualRect(&initial, &placed));
        EXPECT_TRUE(dialog.IsWindowVisible()) << "restoring shows the window";
        dialog.SaveWindowPlacement(L"CDlg");
        EXPECT_EQ(stored(L"WS_MAXIMIZE"), 0);
        EXPECT_EQ(stored(L"left"), 50);
        EXPECT_EQ(stored(L"top"), 60);
        EXPECT_EQ(stored(L"right"), 550);
        EXPECT_EQ(stored(L"bottom"), 460);
        dialog.ShowWindow(SW_MAXIMIZE);
        ASSERT_TRUE(IsZoomed(dialog.m_hWnd));
        dialog.SaveWindowPlacement(L"CDlg");
        EXPECT_EQ(stored(L"WS_MAXIMIZE"), 1);
        EXPECT_EQ(stored(L"right"), 550) << "the normal rectangle stays";
    }
    {
        TestDialog dialog;
        dialog.RestoreWindowPlacement(L"CDlg");
        EXPECT_TRUE(IsZoomed(dialog.m_hWnd));
        WINDOWPLACEMENT normal{};
        normal.length = sizeof(normal);
        GetWindowPlacement(dialog.m_hWnd, &normal);
        EXPECT_EQ(normal.rcNormalPosition.left, 50);
        EXPECT_EQ(normal.rcNormalPosition.bottom, 460);
    }
    TestDialog dialog;
    app.WriteProfileInt(L"CDlg", L"WS_MAXIMIZE", 0);
    for (const wchar_t* name : {L"left", L"top", L"right", L"bottom"}) {
        app.WriteProfileInt(L"CDlg", name, -32'000);
    }
    dialog.RestoreWindowPlacement(L"CDlg");
    const RECT corrected = dialog.GetWindowRect();
    const RECT expected{100, 100, GetSystemMetrics(SM_CXSCREEN) - 100, GetSystemMetrics(SM_CYSCREEN) - 100};
    EXPECT_TRUE(EqualRect(&corrected, &expected));
}

}  // namespace
