#include "util/win32/PopupMenu.h"

#include "util/win32/Handle.h"

namespace {

struct MenuHandlePolicy {
    using Type = HMENU;
    static HMENU None() noexcept { return nullptr; }
    static bool Close(HMENU menu) noexcept { return DestroyMenu(menu) != 0; }
};
using CMenuHandle = CUniqueHandle<MenuHandlePolicy>;

}  // namespace

BOOL ShowPopupMenu(WORD menuId, int x, int y, HWND owner, UINT defaultPosition) {
    CMenuHandle menu(LoadMenuW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(menuId)));
    const CMenuHandle wrapper(CreateMenu());
    if (!menu || !wrapper) {
        return FALSE;
    }
    SetMenuDefaultItem(menu.Get(), defaultPosition, TRUE);
    // A menu resource is a menu bar, but only a submenu of a bar can pop up. So add it to another bar.
    if (!AppendMenuW(wrapper.Get(), MF_POPUP, reinterpret_cast<UINT_PTR>(menu.Get()), L"")) {
        return FALSE;
    }
    TrackPopupMenu(GetSubMenu(wrapper.Get(), 0), TPM_RIGHTBUTTON | TPM_LEFTALIGN, x, y, 0, owner, nullptr);
    // Remove it again, so that each of the two menus is destroyed once.
    RemoveMenu(wrapper.Get(), 0, MF_BYPOSITION);
    return menu.Close() ? TRUE : FALSE;
}
