#pragma once

// Whether Windows starts the program at log-on: a value of the current user's Run key. Failures are not
// reported.

// True when there is a command at all; it is not compared with this program's path. A command that is longer
// than a short registry text may be counts as none.
[[nodiscard]] bool IsStartedWithWindows();

// Registers the running executable, hidden in the tray, or removes the registration.
void StartWithWindows(bool start);
