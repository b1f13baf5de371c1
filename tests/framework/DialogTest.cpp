#include "framework/Dialog.h"

#include <gtest/gtest.h>

#include <commctrl.h>

#include <functional>
#include <memory>
#include <stdexcept>

#include "framework/ToolTipCtrl.h"
#include "framework/WinApp.h"
#include "tests/framework/TestDialogs.h"
#include "tests/support/MessageRecorder.h"

namespace {

class TestDialog : public CDialog {
public:
    TestDialog() : CDialog(IDD_TEST_CONTROLS) {}
    BOOL Create() { return CDialog::Create(IDD_TEST_CONTROLS); }

    std::function<void()> m_onInit;
    std::function<void(UINT)> m_onMessage;
    std::function<void()> m_onPreTranslate;
    int m_changes = 0;
    int m_notices = 0;
    std::wstring m_text;
    CWnd m_edit{nullptr};

    using CDialog::OnOK;

protected:
    BOOL OnInitDialog() override {
        CDialog::OnInitDialog();
        if (m_onInit) {
            m_onInit();
        }
        return TRUE;
    }
    BOOL OnCommand(int id, UINT code, HWND control) override {
        m_changes += id == IDC_TEST_EDIT && code == EN_CHANGE && control == m_edit.m_hWnd;
        return CDialog::OnCommand(id, code, control);
    }
    BOOL OnNotify(NMHDR* header, LRESULT* result) override {
        if (header->code != 4711) {
            return FALSE;
        }
        ++m_notices;
        *result = 99;
        return TRUE;
    }
    void DoDataExchange(CDataExchange* exchange) override {
        DDX_Control(exchange, IDC_TEST_EDIT, m_edit);
        DDX_Text(exchange, IDC_TEST_EDIT, m_text);
        if (m_inExchange) {
            m_inExchange();
        }
    }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        const LRESULT result = CDialog::WindowProc(message, wParam, lParam);
        if (m_onMessage) {
            m_onMessage(message);
        }
        return result;
    }
    BOOL PreTranslateMessage(MSG* message) override {
        if (m_onPreTranslate && message->message == WM_KEYDOWN) {
            m_onPreTranslate();
        }
        return CDialog::PreTranslateMessage(message);
    }

public:
    std::function<void()> m_inExchange;
};

TEST(Dialog, WindowAndObjectLiveIndependently) {
    auto dialog = std::make_unique<TestDialog>();
    EXPECT_FALSE(dialog->UpdateData(FALSE)) << "no window yet";
    for (int round = 0; round < 2; ++round) {
        ASSERT_TRUE(dialog->Create());
        EXPECT_FALSE(dialog->Create()) << "one window at a time";
        EXPECT_EQ(CDialog::FromHandle(dialog->m_hWnd), dialog.get());
        EXPECT_EQ(CDialog::FromHandle(dialog->m_edit.m_hWnd), nullptr) << "a control is no dialog";
        EXPECT_EQ(dialog->m_edit.GetDlgCtrlID(), IDC_TEST_EDIT);
        EXPECT_FALSE(dialog->IsWindowVisible());
        const HWND window = dialog->m_hWnd;
        dialog->DestroyWindow();
        EXPECT_FALSE(IsWindow(window));
        EXPECT_EQ(dialog->m_hWnd, nullptr);
        EXPECT_EQ(dialog->m_edit.m_hWnd, nullptr) << "a wrapper does not outlive its control";
    }
    ASSERT_TRUE(dialog->Create());
    const HWND window = dialog->m_hWnd;
    dialog.reset();
    EXPECT_FALSE(IsWindow(window));
    EXPECT_FALSE(CDialog(1).Create(1)) << "no such template";
}

TEST(Dialog, HandlersAnswerAndStayQuietDuringAnExchange) {
    TestDialog dialog;
    ASSERT_TRUE(dialog.Create());
    NMHDR notice{dialog.m_edit.m_hWnd, IDC_TEST_EDIT, 4711};
    const auto notify = [&] { return dialog.SendMessage(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notice)); };
    EXPECT_EQ(notify(), 99);
    dialog.m_edit.SetWindowText(L"typed");
    EXPECT_EQ(dialog.m_changes, 1);

    dialog.m_text = L"loaded";
    dialog.m_inExchange = [&] {
        dialog.SendMessage(WM_COMMAND, 4712);
        notify();
    };
    ASSERT_TRUE(dialog.UpdateData(FALSE));
    EXPECT_EQ(dialog.m_edit.GetWindowText(), L"loaded");
    EXPECT_EQ(dialog.m_changes, 1) << "writing a member to its control is not typing";
    EXPECT_EQ(dialog.m_notices, 1);

    dialog.m_inExchange = [] { throw std::runtime_error("stop"); };
    EXPECT_THROW(dialog.UpdateData(FALSE), std::runtime_error);
    EXPECT_EQ(notify(), 99) << "the failed exchange has let go";
}

TEST(Dialog, WhatAHandlerThrowsIsShownOnceAndTheProgramGoesOn) {
    MessageRecorder boxes;
    TestDialog dialog;
    dialog.m_onInit = [] { throw std::runtime_error("starting \xC3\xA4"); };
    ASSERT_TRUE(dialog.Create());
    EXPECT_EQ(boxes.texts, std::vector<std::wstring>{L"starting \u00E4"});

    dialog.m_onMessage = [&](UINT message) {
        if (message == WM_TIMER) {
            throw std::invalid_argument("tick");
        }
        if (message == WM_USER) {
            throw 42;
        }
    };
    boxes.whileOpen = [&] { dialog.SendMessage(WM_TIMER, 1); };
    dialog.SendMessage(WM_TIMER, 1);
    EXPECT_EQ(boxes.texts.size(), 2U) << "one box at a time, however often the timer fails meanwhile";
    dialog.SendMessage(WM_TIMER, 1);
    EXPECT_EQ(boxes.texts.size(), 3U) << "closed, the next failure is shown again";
    EXPECT_EQ(boxes.texts.back(), L"tick");
    dialog.SendMessage(WM_USER);
    ASSERT_EQ(boxes.texts.size(), 4U);
    EXPECT_FALSE(boxes.texts.back().empty());
    EXPECT_EQ(boxes.styles.back(), UINT{MB_OK | MB_ICONSTOP});

    boxes.whileOpen = nullptr;
    dialog.m_onPreTranslate = [] { throw std::runtime_error("key"); };
    PostMessageW(dialog.m_edit.m_hWnd, WM_KEYDOWN, VK_F1, 0);
    MSG message{};
    while (boxes.texts.size() < 5 && AfxPumpMessage(message)) {
    }
    EXPECT_EQ(boxes.texts.back(), L"key");

    dialog.m_onMessage = [](UINT gone) {
        if (gone == WM_NCDESTROY) {
            throw std::runtime_error("going");
        }
    };
    dialog.DestroyWindow();
    EXPECT_EQ(dialog.m_hWnd, nullptr) << "also when the last handler fails";
    EXPECT_EQ(boxes.texts.back(), L"going");
}

TEST(Dialog, ModalRunsUntilItIsAnswered) {
    TestDialog owner;
    ASSERT_TRUE(owner.Create());
    CWinApp app;
    app.m_pMainWnd = &owner;
    struct {
        const char* what;
        std::function<void(TestDialog&)> act;
        INT_PTR result;
        const wchar_t* text;
    } const cases[] = {
        {"OK", [](TestDialog& dialog) { dialog.PostMessage(WM_COMMAND, IDOK); }, IDOK, L"new"},
        {"Cancel", [](TestDialog& dialog) { dialog.PostMessage(WM_COMMAND, IDCANCEL); }, IDCANCEL, L"old"},
        {"the Enter key", [](TestDialog& dialog) { dialog.m_edit.PostMessage(WM_KEYDOWN, VK_RETURN); }, IDOK,
         L"new"},
        {"the Escape key", [](TestDialog& dialog) { dialog.m_edit.PostMessage(WM_KEYDOWN, VK_ESCAPE); },
         IDCANCEL, L"old"},
        {"the close box", [](TestDialog& dialog) { dialog.PostMessage(WM_CLOSE); }, IDCANCEL, L"old"},
        {"another result, at once", [](TestDialog& dialog) { dialog.EndDialog(7); }, 7, L"old"},
        {"a window that goes", [](TestDialog& dialog) { dialog.DestroyWindow(); }, IDCANCEL, L"old"},
    };
    for (const auto& item : cases) {
        SCOPED_TRACE(item.what);
        TestDialog dialog;
        dialog.m_text = L"old";
        BOOL ownerEnabled = TRUE;
        HWND above = nullptr;
        dialog.m_onInit = [&] {
            ownerEnabled = owner.IsWindowEnabled();
            above = GetWindow(dialog.m_hWnd, GW_OWNER);
            dialog.m_edit.SetWindowText(L"new");
            item.act(dialog);
        };
        EXPECT_EQ(dialog.DoModal(), item.result);
        EXPECT_EQ(dialog.m_text, item.text);
        EXPECT_EQ(dialog.m_hWnd, nullptr);
        EXPECT_FALSE(ownerEnabled);
        EXPECT_EQ(above, owner.m_hWnd);
        EXPECT_TRUE(owner.IsWindowEnabled());
    }
    TestDialog quitting;
    quitting.m_onInit = [] { PostQuitMessage(3); };
    EXPECT_EQ(quitting.DoModal(), IDCANCEL);
    MSG message{};
    EXPECT_FALSE(AfxPumpMessage(message)) << "the end of the program is not swallowed";
    EXPECT_EQ(message.wParam, 3U);
}

TEST(ToolTipCtrl, ShowsATextForEachControlAndGoesWithItsObject) {
    TestDialog dialog;
    ASSERT_TRUE(dialog.Create());
    HWND window = nullptr;
    {
        CToolTipCtrl tips;
        tips.RelayEvent(nullptr);
        ASSERT_TRUE(tips.Create(dialog));
        window = tips.m_hWnd;
        ASSERT_TRUE(tips.AddTool(dialog.GetDlgItem(IDC_TEST_BUTTON), L"&Add (Alt+A)"));
        wchar_t text[80]{};
        TTTOOLINFOW tool{};
        tool.cbSize = TTTOOLINFOW_V2_SIZE;
        tool.hwnd = dialog.m_hWnd;
        tool.uId = reinterpret_cast<UINT_PTR>(dialog.GetDlgItem(IDC_TEST_BUTTON));
        tool.lpszText = text;
        tips.SendMessage(TTM_GETTEXTW, 80, reinterpret_cast<LPARAM>(&tool));
        EXPECT_STREQ(text, L"&Add (Alt+A)");
        EXPECT_EQ(tips.SendMessage(TTM_GETTOOLCOUNT), 1);
    }
    EXPECT_FALSE(IsWindow(window));
}

}  // namespace
