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

using Texts = std::vector<std::wstring>;

class TestDialog : public CDialog {
public:
    TestDialog() : CDialog(IDD_TEST_CONTROLS) {}
    BOOL Create() { return CDialog::Create(IDD_TEST_CONTROLS); }

    std::function<void()> m_onInit = [] {};
    std::function<void()> m_inExchange = [] {};
    std::function<void(UINT)> m_afterMessage = [](UINT) {};
    std::function<void(UINT)> m_beforeTranslation = [](UINT) {};
    int m_changes = 0;
    int m_commands = 0;
    int m_notices = 0;
    std::wstring m_text;
    CWnd m_edit{nullptr};

protected:
    BOOL OnInitDialog() override {
        CDialog::OnInitDialog();
        m_onInit();
        return TRUE;
    }
    BOOL OnCommand(int id, UINT code, HWND control) override {
        m_commands += id == IDC_TEST_BUTTON;
        m_changes += id == IDC_TEST_EDIT && code == EN_CHANGE && control == m_edit.m_hWnd;
        return CDialog::OnCommand(id, code, control);
    }
    BOOL OnNotify(NMHDR*, LRESULT* result) override {
        ++m_notices;
        *result = 99;
        return TRUE;
    }
    void DoDataExchange(CDataExchange* exchange) override {
        DDX_Control(exchange, IDC_TEST_EDIT, m_edit);
        DDX_Text(exchange, IDC_TEST_EDIT, m_text);
        m_inExchange();
    }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        const LRESULT result = CDialog::WindowProc(message, wParam, lParam);
        m_afterMessage(message);
        return result;
    }
    BOOL PreTranslateMessage(MSG* message) override {
        m_beforeTranslation(message->message);
        return CDialog::PreTranslateMessage(message);
    }
};

TEST(Dialog, WindowAndObjectLiveIndependently) {
    auto dialog = std::make_unique<TestDialog>();
    EXPECT_FALSE(dialog->UpdateData(FALSE)) << "no window yet";
    HWND window = nullptr;
    for (int round = 0; round < 2; ++round) {
        ASSERT_TRUE(dialog->Create());
        EXPECT_FALSE(dialog->Create()) << "one window at a time";
        EXPECT_EQ(CDialog::FromHandle(dialog->m_hWnd), dialog.get());
        EXPECT_EQ(CDialog::FromHandle(dialog->m_edit.m_hWnd), nullptr) << "a control is no dialog";
        EXPECT_EQ(dialog->m_edit.GetDlgCtrlID(), IDC_TEST_EDIT);
        EXPECT_FALSE(dialog->IsWindowVisible());
        window = dialog->m_hWnd;
        round == 0 ? static_cast<void>(dialog->DestroyWindow()) : dialog.reset();
        EXPECT_FALSE(IsWindow(window));
        EXPECT_TRUE(round == 1 || dialog->m_hWnd == nullptr);
        EXPECT_TRUE(round == 1 || dialog->m_edit.m_hWnd == nullptr)
            << "a wrapper does not outlive its control";
    }
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
    dialog.m_inExchange = [&] {
        dialog.SendMessage(WM_COMMAND, IDC_TEST_BUTTON);
        notify();
        throw std::runtime_error("stop");
    };
    dialog.m_text = L"loaded";
    EXPECT_THROW(dialog.UpdateData(FALSE), std::runtime_error);
    EXPECT_EQ(dialog.m_edit.GetWindowText(), L"loaded");
    EXPECT_EQ(dialog.m_changes, 1) << "writing a member to its control is not typing";
    EXPECT_EQ(dialog.m_commands, 1) << "a menu's command is heard all the same";
    EXPECT_EQ(dialog.m_notices, 1);
    EXPECT_EQ(notify(), 99) << "the failed exchange has let go";
}

TEST(Dialog, WhatAHandlerThrowsIsShownOnceAndTheProgramGoesOn) {
    MessageRecorder boxes;
    TestDialog dialog;
    dialog.m_onInit = [] { throw std::runtime_error("starting \xC3\xA4"); };
    ASSERT_TRUE(dialog.Create());
    dialog.m_afterMessage = [&](UINT message) {
        if (message == WM_TIMER || message == WM_NCDESTROY) {
            throw std::invalid_argument(message == WM_TIMER ? "tick" : "going");
        }
        if (message == WM_USER) {
            throw 42;
        }
    };
    boxes.whileOpen = [&] { dialog.SendMessage(WM_TIMER, 1); };
    dialog.SendMessage(WM_TIMER, 1);
    EXPECT_EQ(boxes.texts, (Texts{L"starting \u00E4", L"tick"})) << "one at a time, whatever fails meanwhile";
    dialog.SendMessage(WM_TIMER, 1);
    EXPECT_EQ(boxes.texts.size(), 3U) << "closed, the next failure is shown again";
    dialog.SendMessage(WM_USER);
    ASSERT_EQ(boxes.texts.size(), 4U);
    EXPECT_FALSE(boxes.texts.back().empty());
    EXPECT_EQ(boxes.styles.back(), UINT{MB_OK | MB_ICONSTOP});

    boxes.whileOpen = nullptr;
    dialog.m_beforeTranslation = [](UINT message) {
        if (message == WM_KEYDOWN) {
            throw std::runtime_error("key");
        }
    };
    PostMessageW(dialog.m_edit.m_hWnd, WM_KEYDOWN, VK_F1, 0);
    MSG message{};
    while (boxes.texts.size() < 5 && AfxPumpMessage(message)) {
    }
    EXPECT_EQ(boxes.texts.back(), L"key");
    dialog.DestroyWindow();
    EXPECT_EQ(dialog.m_hWnd, nullptr) << "also when the last handler fails";
    EXPECT_EQ(boxes.texts.back(), L"going");
}

TEST(Dialog, ModalRunsUntilItIsAnswered) {
    TestDialog owner;
    ASSERT_TRUE(owner.Create());
    CWinApp app;
    app.m_pMainWnd = &owner;
    const struct {
        const char* what;
        void (*act)(TestDialog& dialog);
        INT_PTR result;
    } cases[] = {
        {"OK", [](TestDialog& d) { d.PostMessage(WM_COMMAND, IDOK); }, IDOK},
        {"Cancel", [](TestDialog& d) { d.PostMessage(WM_COMMAND, IDCANCEL); }, IDCANCEL},
        {"Enter", [](TestDialog& d) { d.m_edit.PostMessage(WM_KEYDOWN, VK_RETURN); }, IDOK},
        {"Escape", [](TestDialog& d) { d.m_edit.PostMessage(WM_KEYDOWN, VK_ESCAPE); }, IDCANCEL},
        {"close box", [](TestDialog& d) { d.PostMessage(WM_CLOSE); }, IDCANCEL},
        {"at once", [](TestDialog& d) { d.EndDialog(7); }, 7},
        {"a window that goes", [](TestDialog& d) { d.DestroyWindow(); }, IDCANCEL},
        {"the program's end", [](TestDialog&) { PostQuitMessage(3); }, IDCANCEL},
    };
    for (const auto& item : cases) {
        SCOPED_TRACE(item.what);
        TestDialog dialog;
        dialog.m_text = L"old";
        dialog.m_onInit = [&] {
            EXPECT_FALSE(owner.IsWindowEnabled());
            EXPECT_EQ(GetWindow(dialog.m_hWnd, GW_OWNER), owner.m_hWnd);
            dialog.m_edit.SetWindowText(L"new");
            item.act(dialog);
        };
        EXPECT_EQ(dialog.DoModal(), item.result);
        EXPECT_EQ(dialog.m_text, item.result == IDOK ? L"new" : L"old");
        EXPECT_EQ(dialog.m_hWnd, nullptr);
        EXPECT_TRUE(owner.IsWindowEnabled());
    }
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
        ASSERT_TRUE(tips.AddTool(dialog.m_edit.m_hWnd, L"&Add (Alt+A)"));
        wchar_t text[80]{};
        TTTOOLINFOW tool{};
        tool.cbSize = TTTOOLINFOW_V2_SIZE;
        tool.hwnd = dialog.m_hWnd;
        tool.uId = reinterpret_cast<UINT_PTR>(dialog.m_edit.m_hWnd);
        tool.lpszText = text;
        tips.SendMessage(TTM_GETTEXTW, 80, reinterpret_cast<LPARAM>(&tool));
        EXPECT_STREQ(text, L"&Add (Alt+A)");
    }
    EXPECT_FALSE(IsWindow(window));
}

}  // namespace
