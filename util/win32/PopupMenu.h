#pragma once

#include <windows.h>

// Shows the program's menu resource `menuId`, a flat list of items, at a screen point and returns once the
// user has chosen or dismissed it. The choice arrives at `owner` as WM_COMMAND. The item at
// `defaultPosition`, counted from 0, is drawn as the default. Neither brings the owner to the foreground nor
// posts a message after tracking. The result is that of destroying the menu, 0 also when there is no such
// menu.
BOOL ShowPopupMenu(WORD menuId, int x, int y, HWND owner, UINT defaultPosition);
