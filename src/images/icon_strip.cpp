#include "images/icon_strip.h"

#include "platform/shell.h"
#include "support/handles.h"

namespace {

bool StripSide(HBITMAP strip, int count, int* side) {
    BITMAP info = {};
    if (!strip || count <= 0 || !GetObjectW(strip, sizeof info, &info)) return false;
    *side = info.bmHeight < 0 ? -info.bmHeight : info.bmHeight;
    return *side > 0 && info.bmWidth / *side >= count;
}

}  // namespace

HBITMAP CreateColourBitmap(int width, int height) {
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 24;
    void* bits = nullptr;
    return CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
}

bool IsIconStrip(HBITMAP strip, int count) {
    int side = 0;
    return StripSide(strip, count, &side);
}

HIMAGELIST ImageListFromStrip(HBITMAP strip, int count, int size, COLORREF mask) {
    int side = 0;
    if (size <= 0 || !StripSide(strip, count, &side)) return nullptr;
    Bitmap scaled(CreateColourBitmap(size * count, size));
    MemoryDc target(CreateCompatibleDC(nullptr));
    MemoryDc source(CreateCompatibleDC(nullptr));
    if (!scaled || !target || !source) return nullptr;
    {
        DcSelection into(target.get(), scaled.get());
        DcSelection from(source.get(), strip);
        SetStretchBltMode(target.get(), COLORONCOLOR);
        StretchBlt(target.get(), 0, 0, size * count, size, source.get(), 0, 0, side * count, side, SRCCOPY);
    }
    HIMAGELIST list = ImageList_Create(size, size, ILC_COLOR24 | ILC_MASK, count, 0);
    if (list && ImageList_AddMasked(list, scaled.get(), mask) < 0) {
        ImageList_Destroy(list);
        return nullptr;
    }
    return list;
}

void DrawStripImage(HDC dc, HBITMAP strip, int index, int x, int y, int size, COLORREF mask) {
    int side = 0;
    if (index < 0 || !StripSide(strip, index + 1, &side)) return;
    TransparentImage(dc, x, y, size, size, strip, side * index, 0, side, side, mask);
}
