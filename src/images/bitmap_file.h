#pragma once
// Bitmap files from outside the program (icons the user copies onto the device): checked whole
// before they are loaded, so that a file that is no bitmap, or one cut short, gives no picture
// rather than a picture of whatever memory follows it.
#include <windows.h>

#include <cstddef>

// The largest side of a picture accepted; icons and icon strips are far smaller.
const int kLargestIconSide = 4096;

// True when `bytes` hold a whole uncompressed (or bit-field) bitmap file: file and info headers,
// the colour table its bit depth needs and every row of pixels.
bool IsWholeBitmapFile(const unsigned char* bytes, size_t size);

// The bitmap of the file at `path` when the file is whole (a DIB section), else null.
HBITMAP LoadCheckedBitmap(const wchar_t* path);
