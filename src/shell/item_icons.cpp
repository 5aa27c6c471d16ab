#include "shell/item_icons.h"

#include "display/display_ids.h"
#include "files/icon_sets.h"
#include "images/bitmap_file.h"
#include "images/icon_strip.h"
#include "support/app_state.h"
#include "support/display_scale.h"
#include "support/handles.h"

namespace {

// The strip of item icons in the display library: square images of 16 design units side by side,
// on a mask colour.
const UINT kItemIconsBitmapId = IDB_ITEM_ICONS;
const COLORREF kItemIconsMask = QL_ITEM_ICON_MASK;

HIMAGELIST g_itemIcons = nullptr;

// The icons of the chosen icon set, or null when none is chosen or its file is no strip of them.
HIMAGELIST LoadChosenIconSet() {
    WString name = ChosenIconSet();
    if (name.empty()) return nullptr;
    Bitmap strip(LoadCheckedBitmap(IconSetPath(name.c_str()).c_str()));
    return ImageListFromStrip(strip.get(), QL_ITEM_ICON_COUNT, ScaleForDisplay(QL_ITEM_ICON_SIZE), kItemIconsMask);
}

}  // namespace

void LoadItemIcons() {
    FreeItemIcons();
    g_itemIcons = LoadChosenIconSet();
    if (g_itemIcons || !g_app.displayLibrary) return;
    g_itemIcons = ImageList_LoadImageW(g_app.displayLibrary, MAKEINTRESOURCEW(kItemIconsBitmapId), ScaleForDisplay(16),
                                       0, kItemIconsMask, IMAGE_BITMAP, LR_CREATEDIBSECTION);
}

void FreeItemIcons() {
    if (g_itemIcons) ImageList_Destroy(g_itemIcons);
    g_itemIcons = nullptr;
}

HIMAGELIST ItemIcons() { return g_itemIcons; }
