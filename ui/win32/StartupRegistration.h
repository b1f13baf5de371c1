#pragma once

// Whether Windows starts the program at log-on: a value of the current user's Run key. Failures are not
// reported.

// True when the value has any command; it is not compared with this program's path. A command of more than
// 126 characters cannot be read and counts as none.
[[nodiscard]] bool IsStartedWithWindows();

// Registers the running executable, hidden in the tray, or removes the registration.
void StartWithWindows(bool start);
