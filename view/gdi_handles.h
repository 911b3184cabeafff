// Owners of what the viewer makes: fonts, brushes, menus, image lists.
//
// What is borrowed for the length of a block is a scope instead: see paint_scope.h.
#pragma once

#include <windows.h>
// Needs the types above.
#include <commctrl.h>

#include "load/files/unique_handle.h"

namespace rl {

template <typename Object>
struct GdiTraits {
    using Handle = Object;
    static Handle Empty() noexcept { return nullptr; }
    static void Close(Handle object) noexcept { DeleteObject(object); }
};

struct MenuTraits {
    using Handle = HMENU;
    static Handle Empty() noexcept { return nullptr; }
    static void Close(Handle menu) noexcept { DestroyMenu(menu); }
};

struct ImageListTraits {
    using Handle = HIMAGELIST;
    static Handle Empty() noexcept { return nullptr; }
    static void Close(Handle images) noexcept { ImageList_Destroy(images); }
};

using UniqueFont = UniqueHandle<GdiTraits<HFONT>>;
using UniqueBrush = UniqueHandle<GdiTraits<HBRUSH>>;
using UniquePen = UniqueHandle<GdiTraits<HPEN>>;
using UniqueBitmap = UniqueHandle<GdiTraits<HBITMAP>>;
using UniqueRegion = UniqueHandle<GdiTraits<HRGN>>;
using UniqueMenu = UniqueHandle<MenuTraits>;
using UniqueImageList = UniqueHandle<ImageListTraits>;

}  // namespace rl
