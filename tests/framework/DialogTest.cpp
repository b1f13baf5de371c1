#include "framework/Dialog.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>

#include "framework/MessageLoop.h"
#include "framework/WinApp.h"
#include "tests/framework/TestDialogs.h"
#include "tests/support/MessageRecorder.h"

namespace {

class TestDialog : public CDialog {
public:
    TestDialog() : CDialog(IDD_TEST) {}
    BOOL PreTranslateMessage(MSG* message) override {
        onMessage(message->message);
        return CDialog::PreTranslateMessage(message);
    }

    std::function<void()> onInit = [] {};
    std::function<void(UINT)> onMessage = [](UINT) {};

protected:
    BOOL OnInitDialog() override {
        onInit();
        return CDialog::OnInitDialog();
    }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        const LRESULT result = CDialog::WindowProc(message, wParam, lParam);
        onMessage(message);
        return result;
    }
};

TEST(Dialog, WhatAHandlerThrowsIsShownOnce) {
    MessageRecorder boxes;
    TestDialog dialog;
    dialog.onInit = [] { throw std::runtime_error("starting \xC3\xA4"); };
    ASSERT_TRUE(dialog.Create(IDD_TEST));
    dialog.onMessage = [&](UINT message) {
        const bool fails = message == WM_TIMER || message == WM_KEYDOWN || message == WM_NCDESTROY;
        if (fails || message == WM_USER) {
            fails ? throw std::invalid_argument(std::to_string(message)) : throw 42;
        }
    };
    boxes.whileOpen = [&] { dialog.SendMessage(WM_TIMER, 1); };
    dialog.SendMessage(WM_TIMER, 1);
    EXPECT_EQ(boxes.texts, (std::vector<std::wstring>{L"starting \u00E4", std::to_wstring(WM_TIMER)}))
        << "one at a time, whatever fails meanwhile";
    dialog.SendMessage(WM_USER);
    EXPECT_EQ(boxes.texts.size(), 3U);
    dialog.PostMessage(WM_KEYDOWN, VK_F1);
    MSG message{};
    while (boxes.texts.size() < 4 && AfxPumpMessage(message)) {
    }
    EXPECT_EQ(boxes.texts.back(), std::to_wstring(WM_KEYDOWN));
    dialog.DestroyWindow();
    EXPECT_EQ(dialog.m_hWnd, nullptr) << "also when the last handler fails";
    EXPECT_EQ(boxes.texts.back(), std::to_wstring(WM_NCDESTROY));
}

TEST(Dialog, ModalRunsUntilItIsAnswered) {
    TestDialog owner;
    ASSERT_TRUE(owner.Create(IDD_TEST));
    CWinApp app;
    app.m_pMainWnd = &owner;
    const struct {
        const char* label;
        INT_PTR result;
        std::function<void(TestDialog& dialog)> act;
    } cases[] = {
        {"Escape", IDCANCEL, [](TestDialog& d) { d.PostMessage(WM_KEYDOWN, VK_ESCAPE); }},
        {"EndDialog", 7, [](TestDialog& d) { d.EndDialog(7); }},
        {"destroyed", IDCANCEL, [](TestDialog& d) { d.DestroyWindow(); }},
        {"end of the program", IDCANCEL, [](TestDialog&) { PostQuitMessage(3); }},
    };
    for (const auto& [label, result, act] : cases) {
        SCOPED_TRACE(label);
        TestDialog dialog;
        dialog.onInit = [&, &act = act] {
            EXPECT_FALSE(owner.IsWindowEnabled());
            act(dialog);
        };
        EXPECT_EQ(dialog.DoModal(), result);
        EXPECT_EQ(dialog.m_hWnd, nullptr);
        EXPECT_TRUE(owner.IsWindowEnabled());
    }
    MSG message{};
    EXPECT_FALSE(AfxPumpMessage(message)) << "the end of the program is not swallowed";
    EXPECT_EQ(message.wParam, 3U);
}

TEST(Dialog, FailedStartIsReportedAndUndone) {
    class FailingApp : public CWinApp {
    public:
        BOOL InitInstance() override { throw std::runtime_error("no start"); }
        int ExitInstance() override { return 7; }
    } app;
    const MessageRecorder boxes;
    EXPECT_EQ(AfxWinMain(app, L""), 7);
    EXPECT_EQ(boxes.texts, std::vector<std::wstring>{L"no start"});
}

}  // namespace
