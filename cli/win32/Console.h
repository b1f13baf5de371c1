#pragma once

#include <cstddef>

// The console of this process: UTF-8 output during its lifetime, binary input, and Ctrl+C as a request to
// end. A process has one object.
class CConsole {
public:
    CConsole();
    CConsole(const CConsole&) = delete;
    CConsole& operator=(const CConsole&) = delete;
    ~CConsole();  // restores the code page

    // Columns of the window; 80 when the output is not a console.
    [[nodiscard]] static std::size_t Width();
    // After this call Ctrl+C, Ctrl+Break and closing the console do not end the process; they end the wait of
    // WaitForStop.
    static void CatchStop();
    // Waits. True as soon as the user wants to end, false after the time.
    [[nodiscard]] static bool WaitForStop(unsigned milliseconds);

private:
    unsigned m_codePage;
};
