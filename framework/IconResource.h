#pragma once

#include <windows.h>

#include "framework/GuiHandle.h"

// Loads icons of the program's resources in the sizes that a window needs, which depend on the screen's
// resolution. Empty when there is no such icon or no memory for it.

// Pixels.
[[nodiscard]] CIconHandle LoadIconOfSize(int id, int width, int height);
// The size of a title bar's icon, 16 pixels at 96 dpi: tray, title bar and buttons.
[[nodiscard]] CIconHandle LoadSmallIcon(int id);
// The size of the task switcher's, 32 pixels at 96 dpi.
[[nodiscard]] CIconHandle LoadLargeIcon(int id);
