#pragma once

#include <windows.h>

#include "framework/GuiHandle.h"

// Icons of the program's resources at the sizes that its window needs, which grow with the screen's
// resolution. Empty when the system has no room for one.

// The size of a title bar's icon, 16 pixels at 96 dpi: tray, title bar and buttons.
[[nodiscard]] CIconHandle LoadSmallIcon(int id);
// The size of the task switcher's, 32 pixels at 96 dpi.
[[nodiscard]] CIconHandle LoadLargeIcon(int id);
// The marks of a sorted column, half as wide as a small icon: ascending, then descending. Empty when either
// is missing.
[[nodiscard]] CImageListHandle LoadSortMarks();
