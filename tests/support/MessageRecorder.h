#pragma once

#include <utility>
#include <vector>

#include "framework/MessageBox.h"

// While it exists, closes every message box at once and records its text.
class MessageRecorder {
public:
    explicit MessageRecorder(int answer = IDOK)
        : m_before(AfxSetMessageBox([this, answer](const std::wstring& text, UINT style) {
              texts.push_back(text);
              styles.push_back(style);
              whileOpen();
              return answer;
          })) {}
    MessageRecorder(const MessageRecorder&) = delete;
    MessageRecorder& operator=(const MessageRecorder&) = delete;
    ~MessageRecorder() { AfxSetMessageBox(std::move(m_before)); }

    std::vector<std::wstring> texts;
    std::vector<UINT> styles;
    // Called while a box would be on the screen.
    std::function<void()> whileOpen = [] {};

private:
    MessageBoxFunction m_before;
};
