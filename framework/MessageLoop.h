#pragma once

#include <windows.h>

class CWinApp;

// What wWinMain does: start, run and end the application. Returns the process's exit code. An exception that
// leaves InitInstance is shown and ends the program.
int AfxWinMain(CWinApp& app, const wchar_t* commandLine);

// Waits for the next message of this thread and dispatches it, unless PreTranslateMessage of the window that
// it is for, or of one above that, takes it. False when the message was WM_QUIT.
bool AfxPumpMessage(MSG& message);
