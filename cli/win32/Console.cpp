#include "cli/win32/Console.h"

#include <windows.h>

#include <fcntl.h>
#include <io.h>

#include <cstdio>

namespace {

// Set by HandleStop, which runs on a thread of the system. Closed when the process ends.
HANDLE StopEvent() {
    static const HANDLE event = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    return event;
}

BOOL WINAPI HandleStop(DWORD /*signal*/) {
    SetEvent(StopEvent());
    return TRUE;
}

}  // namespace

CConsole::CConsole() : m_codePage(GetConsoleOutputCP()) {
    SetConsoleOutputCP(CP_UTF8);
    // Binary: the input may be UTF-16, where line breaks must not be converted and Ctrl+Z is no end.
    _setmode(_fileno(stdin), _O_BINARY);
}

CConsole::~CConsole() {
    if (m_codePage != 0) {
        SetConsoleOutputCP(m_codePage);
    }
}

std::size_t CConsole::Width() {
    constexpr std::size_t kUsual = 80;
    CONSOLE_SCREEN_BUFFER_INFO info{};
    if (GetConsoleScreenBufferInfo(GetStdHandle(STD_OUTPUT_HANDLE), &info) == FALSE) {
        return kUsual;
    }
    // One column less than the window, because a line as wide as the window would wrap.
    const int columns = info.srWindow.Right - info.srWindow.Left;
    return columns > 0 ? static_cast<std::size_t>(columns) : kUsual;
}

void CConsole::CatchStop() {
    StopEvent();
    SetConsoleCtrlHandler(HandleStop, TRUE);
}

bool CConsole::WaitForStop(unsigned milliseconds) {
    return WaitForSingleObject(StopEvent(), milliseconds) == WAIT_OBJECT_0;
}
