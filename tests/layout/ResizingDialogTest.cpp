#include "layout/ResizingDialog.h"

#include <gtest/gtest.h>

#include "tests/framework/TestDialogs.h"
#include "tests/support/TestApp.h"

namespace {

class TestDialog : public CResizingDialog {
public:
    TestDialog() : CResizingDialog(IDD_TEST_RESIZING) { EXPECT_TRUE(Create(IDD_TEST_RESIZING)); }

    // With its far edges instead of its size.
    [[nodiscard]] Placement Place(int id) const {
        RECT rect{};
        ::GetWindowRect(GetDlgItem(id), &rect);
        MapWindowPoints(nullptr, m_hWnd, reinterpret_cast<POINT*>(&rect), 2);
        return {rect.left, rect.top, rect.right, rect.bottom};
    }
    void Grow(int width, int height) const {
        const RECT rect = GetWindowRect();
        SetWindowPos(m_hWnd, nullptr, 0, 0, rect.right - rect.left + width, rect.bottom - rect.top + height,
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
};

TEST(ResizingDialog, RegisteredControlsFollowTheWindowDownToFourFifthsOfIt) {
    TestDialog dialog;
    const HWND list = dialog.GetDlgItem(IDC_TEST_LIST);
    const CWnd corner(dialog.GetDlgItem(IDC_TEST_CORNER));
    EXPECT_EQ(dialog.HasControl(list), 0);
    EXPECT_EQ(dialog.AddControl(list, ANCHOR_ALL), 1);
    EXPECT_EQ(dialog.AddControl(&corner, ANCHOR_RIGHT | ANCHOR_BOTTOM), 1);
    EXPECT_EQ(dialog.AddControl(dialog.GetDlgItem(IDC_TEST_LOOSE), ANCHOR_ALL | ANCHOR_LEFT), 1);
    EXPECT_EQ(dialog.HasControl(&corner), 1);
    // A handle of nothing is registered as well, and hinders nobody.
    const CWnd* none = nullptr;
    EXPECT_EQ(dialog.AddControl(none, ANCHOR_ALL), 1);
    EXPECT_EQ(dialog.HasControl(none), 1);
    const Placement a = dialog.Place(IDC_TEST_LIST);
    const Placement b = dialog.Place(IDC_TEST_CORNER);
    const Placement loose = dialog.Place(IDC_TEST_LOOSE);

    MINMAXINFO info{};
    info.ptMaxTrackSize = {1, 2};
    dialog.SendMessage(WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&info));
    EXPECT_EQ(info.ptMinTrackSize.x, MinTrackSize(dialog.GetClientRect().right));
    EXPECT_EQ(info.ptMinTrackSize.y, MinTrackSize(dialog.GetClientRect().bottom));
    EXPECT_EQ(info.ptMaxTrackSize.x, 1);

    for (const int grown : {60, 0}) {
        dialog.Grow(grown == 0 ? -60 : 60, grown == 0 ? -60 : 60);
        EXPECT_EQ(dialog.Place(IDC_TEST_LIST), (Placement{a.x, a.y, a.width + grown, a.height + grown}));
        EXPECT_EQ(dialog.Place(IDC_TEST_CORNER),
                  (Placement{b.x + grown, b.y + grown, b.width + grown, b.height + grown}));
        EXPECT_EQ(dialog.Place(IDC_TEST_LOOSE), loose) << "ANCHOR_ALL stands alone";
    }
    MoveWindow(corner.m_hWnd, 0, 0, 40, 30, FALSE);
    dialog.UpdateControlOffsets();
    ::DestroyWindow(list);
    dialog.Grow(7, 9);
    EXPECT_EQ(dialog.Place(IDC_TEST_CORNER), (Placement{7, 9, 47, 39}))
        << "a control that is gone holds nobody up";
}

TEST(ResizingDialog, PlaceIsKeptInTheSettings) {
    const TestApp app;
    const auto stored = [&](const wchar_t* name) {
        return static_cast<int>(app.GetProfileInt(L"CDlg", name, -7));
    };
    const auto isAt = [](const CDialog& dialog, const RECT& expected) {
        const RECT rect = dialog.GetWindowRect();
        return EqualRect(&rect, &expected) != FALSE;
    };
    const RECT initial{50, 60, 550, 460};
    {
        TestDialog dialog;
        const RECT before = dialog.GetWindowRect();
        dialog.RestoreWindowPlacement(L"CDlg");
        EXPECT_TRUE(isAt(dialog, before) && !dialog.IsWindowVisible()) << "nothing saved, nothing done";
        dialog.RestoreWindowPlacement(L"CDlg", &initial);
        EXPECT_TRUE(isAt(dialog, initial) && dialog.IsWindowVisible());
        dialog.SaveWindowPlacement(L"CDlg");
        EXPECT_EQ(stored(L"WS_MAXIMIZE"), 0);
        EXPECT_EQ(stored(L"left") * 1000 + stored(L"top"), 50'060);
        EXPECT_EQ(stored(L"right") * 1000 + stored(L"bottom"), 550'460);
        dialog.ShowWindow(SW_MAXIMIZE);
        dialog.SaveWindowPlacement(L"CDlg");
        EXPECT_EQ(stored(L"WS_MAXIMIZE"), 1);
    }
    TestDialog dialog;
    dialog.RestoreWindowPlacement(L"CDlg");
    EXPECT_TRUE(IsZoomed(dialog.m_hWnd));
    WINDOWPLACEMENT normal{};
    normal.length = sizeof(normal);
    GetWindowPlacement(dialog.m_hWnd, &normal);
    EXPECT_TRUE(EqualRect(&normal.rcNormalPosition, &initial)) << "the normal rectangle stays";

    TestDialog lost;
    for (const wchar_t* name : {L"WS_MAXIMIZE", L"left", L"top", L"right", L"bottom"}) {
        app.WriteProfileInt(L"CDlg", name, name[0] == L'W' ? 0 : -32'000);
    }
    lost.RestoreWindowPlacement(L"CDlg");
    EXPECT_TRUE(
        isAt(lost, {100, 100, GetSystemMetrics(SM_CXSCREEN) - 100, GetSystemMetrics(SM_CYSCREEN) - 100}));
}

}  // namespace
