#pragma once

#include <windows.h>

#include <functional>
#include <utility>
#include <vector>

// Answers the modal dialogs that this thread opens while it lives, one step for each in turn: called with the
// dialog's window when it has been made and filled and before it is shown. A step that closes its dialog
// keeps it from ever being seen.
class DialogSteps {
public:
    using Step = std::function<void(HWND dialog)>;

    explicit DialogSteps(std::vector<Step> steps)
        : m_steps(std::move(steps)),
          m_hook(SetWindowsHookExW(WH_CALLWNDPROCRET, &Procedure, nullptr, GetCurrentThreadId())) {
        s_current = this;
    }
    DialogSteps(const DialogSteps&) = delete;
    DialogSteps& operator=(const DialogSteps&) = delete;
    ~DialogSteps() { UnhookWindowsHookEx(m_hook); }

    // How many dialogs there were.
    std::size_t count = 0;

private:
    static LRESULT CALLBACK Procedure(int code, WPARAM wParam, LPARAM lParam) {
        const auto& message = *reinterpret_cast<const CWPRETSTRUCT*>(lParam);
        if (message.message == WM_INITDIALOG && s_current->count++ < s_current->m_steps.size()) {
            s_current->m_steps[s_current->count - 1](message.hwnd);
        }
        return CallNextHookEx(nullptr, code, wParam, lParam);
    }

    static inline DialogSteps* s_current = nullptr;
    std::vector<Step> m_steps;
    HHOOK m_hook;
};
