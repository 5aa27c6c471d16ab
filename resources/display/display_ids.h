#pragma once
// Bitmaps of the display libraries LowDpiRes.dll (96 dpi) and HighDpiRes.dll (192 dpi). Both hold
// the same ids with the same layout; the high-resolution images are twice as large. Images of a
// strip are side by side, left to right, all of one size. Transparent parts hold the bitmap's
// mask colour (a COLORREF, red in the low byte). Sizes below are those of the 96-dpi library;
// the 192-dpi library's are twice as large, which ScaleForDisplay gives at 192 dpi and in VGA mode.
// (Between 144 and 191 dpi the high-resolution library is loaded while ScaleForDisplay(16) is
// less than 32: code that splits a strip should then take the image size from the bitmap.)
// Load them with LR_CREATEDIBSECTION (ImageList_LoadImage, LoadImage): a desktop image list
// made from a device-dependent bitmap keeps only 16 colours.
// The bitmaps are drawn by make_bitmaps.py beside this header.

// Menu-bar buttons: image 0 Cancel (a cross), image 1 Done / OK (a tick); 16 x 16 each.
#define IDB_MENU_BUTTONS 114
#define QL_MENU_BUTTON_SIZE 16
#define QL_MENU_BUTTON_MASK 0x00C6CFDE

// Page icons, 32 x 32 each, in page order: General, Calendar, Tasks, Notes, Contacts, Messages,
// Special events, Fonts, Colors, PIM, Tabs, Categories.
#define IDB_PAGE_ICONS 116
#define QL_PAGE_ICON_SIZE 32
#define QL_PAGE_ICON_COUNT 12
#define QL_PAGE_ICON_MASK 0x0000FF00

// Up-folder icon of the file and folder browser: one image of 20 x 20.
#define IDB_UP_FOLDER 138
#define QL_UP_FOLDER_SIZE 20
#define QL_UP_FOLDER_MASK 0x0000FF00

// Item icons drawn beside items and offered by the icon marker strips: 16 x 16 each. Image i
// stands for the item flag 1 << i (see ItemIcon below).
#define IDB_ITEM_ICONS 140
#define QL_ITEM_ICON_SIZE 16
#define QL_ITEM_ICON_COUNT 9
#define QL_ITEM_ICON_MASK 0x00FF00FF

// Arrows of the Calendar page's icon preview: one bitmap of 20 x 12, the "previous layout"
// arrow in its left half (x 0..9), the "next layout" arrow in its right half (x 10..19).
#define IDB_PREVIEW_ARROWS 220
#define QL_PREVIEW_ARROWS_WIDTH 20
#define QL_PREVIEW_ARROWS_HEIGHT 12
#define QL_PREVIEW_ARROWS_MASK 0x000000FF

#ifndef RC_INVOKED
// Images of IDB_ITEM_ICONS. The value of an item flag is 1 << image.
enum ItemIcon {
    kItemIconNote = 0,           // flag 1
    kItemIconReminder = 1,       // flag 2
    kItemIconRecurring = 2,      // flag 4
    kItemIconPrivate = 3,        // flag 8
    kItemIconCategory = 4,       // flag 16
    kItemIconPriority = 5,       // flag 32, tasks only
    kItemIconRegenerated = 6,    // flag 64
    kItemIconMeeting = 7,        // flag 128, appointments only
    kItemIconCategoryColor = 8,  // flag 256
};

// Image of a single item flag, or -1 when the value is not exactly one known flag.
inline int ItemIconForFlag(unsigned flag) {
    for (int image = 0; image < QL_ITEM_ICON_COUNT; ++image) {
        if (flag == (1u << image)) return image;
    }
    return -1;
}
#endif
