#pragma once
#include <windows.h>

// Pictures go to <folder>\<label>_<picture>.bmp.
struct ShotTarget {
    const wchar_t *folder, *label;
    // The window and the pop-ups it owns (menu bars, an open page) as drawn, as a 24-bit BMP.
    void save(HWND window, const wchar_t* picture) const;
};
inline int g_failures = 0;  // pictures not saved
