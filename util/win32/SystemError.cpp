#include "util/win32/SystemError.h"

#include <stdexcept>
#include <string_view>

#include "util/ExceptionText.h"
#include "util/WhiteSpace.h"

std::wstring SystemErrorText(DWORD code) {
    wchar_t text[512];
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                        code, 0, text, static_cast<DWORD>(std::size(text)), nullptr);
    const std::wstring_view trimmed = TrimRight({text, length});
    return trimmed.empty() ? L"Error " + std::to_wstring(static_cast<LONG>(code)) : std::wstring(trimmed);
}

void RaiseSystemError(DWORD code) {
    throw std::runtime_error(ToWhat(SystemErrorText(code)));
}
