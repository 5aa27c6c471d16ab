#include "shell/item_icons.h"

#include "display/display_ids.h"
#include "support/app_state.h"
#include "support/display_scale.h"

namespace {

// The strip of item icons in the display library: square images of 16 design units side by side,
// on a mask colour.
const UINT kItemIconsBitmapId = IDB_ITEM_ICONS;
const COLORREF kItemIconsMask = QL_ITEM_ICON_MASK;

HIMAGELIST g_itemIcons = nullptr;

}  // namespace

void LoadItemIcons() {
    FreeItemIcons();
    if (!g_app.displayLibrary) return;
    g_itemIcons = ImageList_LoadImageW(g_app.displayLibrary, MAKEINTRESOURCEW(kItemIconsBitmapId), ScaleForDisplay(16),
                                       0, kItemIconsMask, IMAGE_BITMAP, LR_CREATEDIBSECTION);
}

void FreeItemIcons() {
    if (g_itemIcons) ImageList_Destroy(g_itemIcons);
    g_itemIcons = nullptr;
}

HIMAGELIST ItemIcons() { return g_itemIcons; }
