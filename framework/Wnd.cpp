#include "framework/Wnd.h"

#include <utility>

namespace {

constexpr wchar_t kOwner[] = L"CWnd";

}  // namespace

HWND CWnd::Detach() noexcept {
    return std::exchange(m_hWnd, nullptr);
}

CWnd* CWnd::FromHandle(HWND window) noexcept {
    // Windows of other processes of this program have the same property, with pointers of their own.
    return GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId()
               ? static_cast<CWnd*>(GetPropW(window, kOwner))
               : nullptr;
}

void CWnd::SetOwner(CWnd* owner) const {
    if (owner != nullptr) {
        SetPropW(m_hWnd, kOwner, owner);
    } else {
        RemovePropW(m_hWnd, kOwner);
    }
}

std::wstring CWnd::GetWindowText() const {
    std::wstring text(static_cast<std::size_t>(::GetWindowTextLengthW(m_hWnd)), L'\0');
    // The buffer's size includes the terminator, for which a string has room.
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
