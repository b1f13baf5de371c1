#pragma once

#include <windows.h>

class CWinApp;

// Starts, runs and ends the application, for wWinMain. Returns the process's exit code. An exception of
// InitInstance is shown and ends the program.
int AfxWinMain(CWinApp& app, const wchar_t* commandLine);

// Waits for the next message of this thread and dispatches it, unless PreTranslateMessage of its window or of
// a parent handles it. False when the message was WM_QUIT.
bool AfxPumpMessage(MSG& message);
