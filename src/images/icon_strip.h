#pragma once
// Strips of square icons side by side in one bitmap, the side being the bitmap's height.
#include <windows.h>
#include <commctrl.h>

// A 24-bit DIB section of that size (an image list made from a device-dependent bitmap keeps only
// 16 colours on the desktop); null on failure.
HBITMAP CreateColourBitmap(int width, int height);

// True when `strip` is a bitmap holding at least `count` square images side by side.
bool IsIconStrip(HBITMAP strip, int count);

// An image list of the strip's first `count` images, each scaled to `size` square, `mask` being
// the transparent colour; null when `strip` is no such strip.
HIMAGELIST ImageListFromStrip(HBITMAP strip, int count, int size, COLORREF mask);

// Draws image `index` of the strip into the square at (x, y) of side `size`, `mask` transparent.
void DrawStripImage(HDC dc, HBITMAP strip, int index, int x, int y, int size, COLORREF mask);
