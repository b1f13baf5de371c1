#pragma once

#include <windows.h>

#include <functional>
#include <string>

// Shows a message box whose title is the application's name. Its owner window is the main window or its
// dialog. While that is hidden, the box has no owner and has a task bar button of its own. Returns the
// button's id.
int AfxMessageBox(const std::wstring& text, UINT style = MB_OK);

// Replaces the system's message box, so that a test can read the text instead of waiting for a click. An
// empty function restores the system's box. Returns the function set before.
using MessageBoxFunction = std::function<int(const std::wstring& text, UINT style)>;
MessageBoxFunction AfxSetMessageBox(MessageBoxFunction function);
