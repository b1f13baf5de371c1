#pragma once

#include <windows.h>

// Shows the program's menu resource `menuId`, a flat list of items, at a screen point. Returns once the user
// has chosen an item or dismissed the menu; the choice is posted to `owner` as WM_COMMAND. The item at
// `defaultPosition`, counted from 0, is drawn as the default. The caller brings the owner to the foreground
// and posts a message afterwards, if it needs that. Returns whether destroying the menu succeeded, 0 also
// when there is no such menu.
BOOL ShowPopupMenu(WORD menuId, int x, int y, HWND owner, UINT defaultPosition);
