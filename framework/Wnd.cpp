#include "framework/Wnd.h"

#include <utility>

HWND CWnd::Detach() noexcept {
    return std::exchange(m_hWnd, nullptr);
}

std::wstring CWnd::GetWindowText() const {
    std::wstring text(static_cast<std::size_t>(::GetWindowTextLengthW(m_hWnd)), L'\0');
    // The system counts the terminator, for which a string has room.
    const int length = ::GetWindowTextW(m_hWnd, text.data(), static_cast<int>(text.size()) + 1);
    text.resize(static_cast<std::size_t>(length));
    return text;
}

void CWnd::SetIcon(HICON icon, bool large) const {
    SendMessage(WM_SETICON, large ? ICON_BIG : ICON_SMALL, reinterpret_cast<LPARAM>(icon));
}

RECT CWnd::GetClientRect() const {
    RECT rect{};
    ::GetClientRect(m_hWnd, &rect);
    return rect;
}

RECT CWnd::GetWindowRect() const {
    RECT rect{};
    ::GetWindowRect(m_hWnd, &rect);
    return rect;
}
