#pragma once

#include "framework/GuiHandle.h"

// The marks of a sorted column, half as wide as a small icon: ascending, then descending. Empty when either
// is missing or the system has no room for them.
[[nodiscard]] CImageListHandle LoadSortMarks();
