#pragma once

#include <cstddef>

// The console of this process: UTF-8 output for its lifetime, input byte by byte, and Ctrl+C as a wish to
// end. One object a process.
class CConsole {
public:
    CConsole();
    CConsole(const CConsole&) = delete;
    CConsole& operator=(const CConsole&) = delete;
    ~CConsole();  // gives the code page back

    // Columns of the window; 80 when the output goes elsewhere.
    [[nodiscard]] static std::size_t Width();
    // From here on Ctrl+C, Ctrl+Break and closing the console no longer end the process but WaitForStop's
    // wait.
    static void CatchStop();
    // True as soon as the user wants to end, false after the time.
    [[nodiscard]] static bool WaitForStop(unsigned milliseconds);

private:
    unsigned m_codePage;
};
