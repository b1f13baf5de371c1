#include "cli/win32/Console.h"

#include <windows.h>

#include <fcntl.h>
#include <io.h>

#include <cstdio>

namespace {

// Set by the handler, which runs on a thread of the system's own; lives as long as the process.
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
    // Bytes of UTF-16 are no lines of text, and a Ctrl+Z is no end.
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
    // A line as wide as the window would wrap by itself.
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
