#pragma once

#include <windows.h>

#include <commctrl.h>

#include "util/win32/Handle.h"

struct ImageListPolicy {
    using Type = HIMAGELIST;
    static HIMAGELIST None() noexcept { return nullptr; }
    static bool Close(HIMAGELIST list) noexcept { return ImageList_Destroy(list) != 0; }
};
using CImageListHandle = CUniqueHandle<ImageListPolicy>;

struct IconPolicy {
    using Type = HICON;
    static HICON None() noexcept { return nullptr; }
    static bool Close(HICON icon) noexcept { return DestroyIcon(icon) != 0; }
};
// An icon that was loaded without LR_SHARED.
using CIconHandle = CUniqueHandle<IconPolicy>;

struct DeviceContextPolicy {
    using Type = HDC;
    static HDC None() noexcept { return nullptr; }
    static bool Close(HDC context) noexcept { return DeleteDC(context) != 0; }
};
// A device context that was created, not one of a window.
using CDeviceContext = CUniqueHandle<DeviceContextPolicy>;

struct FontPolicy {
    using Type = HFONT;
    static HFONT None() noexcept { return nullptr; }
    static bool Close(HFONT font) noexcept { return DeleteObject(font) != 0; }
};
using CFontHandle = CUniqueHandle<FontPolicy>;
