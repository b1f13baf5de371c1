#pragma once

#include <windows.h>

#include "framework/GuiHandle.h"

// Icons of the program's resources at the sizes that a window needs, which grow with the screen's resolution.
// Empty when there is no such icon or no room for one.

// Pixels.
[[nodiscard]] CIconHandle LoadIconOfSize(int id, int width, int height);
// The size of a title bar's icon, 16 pixels at 96 dpi: tray, title bar and buttons.
[[nodiscard]] CIconHandle LoadSmallIcon(int id);
// The size of the task switcher's, 32 pixels at 96 dpi.
[[nodiscard]] CIconHandle LoadLargeIcon(int id);
