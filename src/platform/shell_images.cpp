// Desktop stand-ins of the shell's bitmap loading and transparent drawing.
#include "platform/shell.h"

#include "support/handles.h"

HBITMAP SHLoadDIBitmap(LPCWSTR path) {
    if (!path || !*path) return nullptr;
    return static_cast<HBITMAP>(
        LoadImageW(nullptr, path, IMAGE_BITMAP, 0, 0, LR_LOADFROMFILE | LR_CREATEDIBSECTION));
}

BOOL TransparentImage(HDC destination, LONG x, LONG y, LONG width, LONG height, HANDLE source, LONG sourceX,
                      LONG sourceY, LONG sourceWidth, LONG sourceHeight, COLORREF key) {
    if (!destination || !source || width <= 0 || height <= 0 || sourceWidth <= 0 || sourceHeight <= 0) return FALSE;
    DWORD type = GetObjectType(source);
    if (type == OBJ_DC || type == OBJ_MEMDC) {
        return TransparentBlt(destination, x, y, width, height, static_cast<HDC>(source), sourceX, sourceY,
                              sourceWidth, sourceHeight, key);
    }
    if (type != OBJ_BITMAP) return FALSE;
    // The desktop call takes only a device context: the bitmap goes into one for the copy.
    MemoryDc dc(CreateCompatibleDC(destination));
    if (!dc) return FALSE;
    HGDIOBJ previous = SelectObject(dc.get(), source);
    if (!previous) return FALSE;  // selected into another device context
    BOOL copied = TransparentBlt(destination, x, y, width, height, dc.get(), sourceX, sourceY, sourceWidth,
                                 sourceHeight, key);
    SelectObject(dc.get(), previous);
    return copied;
}
