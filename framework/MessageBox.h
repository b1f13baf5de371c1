#pragma once

#include <windows.h>

#include <functional>
#include <string>

// Shows a message box titled with the application's name above the main window; while that is hidden, the box
// stands alone and has its own task bar button. Returns the button's id.
int AfxMessageBox(const std::wstring& text, UINT style = MB_OK);

// What answers in place of the system: a test reads the text instead of waiting for a click. An empty
// function is the system's own box. Returns the function that stood before.
using MessageBoxFunction = std::function<int(const std::wstring& text, UINT style)>;
MessageBoxFunction AfxSetMessageBox(MessageBoxFunction function);
