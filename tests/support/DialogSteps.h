#pragma once

#include <windows.h>

#include <functional>
#include <utility>
#include <vector>

// While it exists, runs a step for each modal dialog that this thread opens, in turn. A step gets the
// dialog's window after its initialisation and before it is shown. A dialog that its step closes is never
// shown.
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
    ~DialogSteps() {
        UnhookWindowsHookEx(m_hook);
        s_current = nullptr;
    }

    // The number of dialogs so far.
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
