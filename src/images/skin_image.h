#pragma once
// Pictures of the skin: a TGA decoded into four colour planes and drawn with per-pixel alpha,
// or a plain bitmap drawn with a transparent key colour.
#include <windows.h>

#include <cstddef>

struct SkinImage {
    // The decoded TGA, one byte per pixel and plane, rows from top to bottom; null when the
    // picture is a bitmap or nothing was decoded.
    BYTE* red = nullptr;
    BYTE* green = nullptr;
    BYTE* blue = nullptr;
    BYTE* alpha = nullptr;
    int height = 0;
    int width = 0;
    // The fallback picture when no TGA was found, owned by the image.
    HBITMAP bitmap = nullptr;
    int bitmapWidth = 0;
    int bitmapHeight = 0;
    COLORREF keyColor = 0;

    SkinImage() = default;
    ~SkinImage();
    SkinImage(const SkinImage&) = delete;
    SkinImage& operator=(const SkinImage&) = delete;

    bool hasPlanes() const { return red != nullptr; }
};

// Frees the four planes and sets width and height to 0; the bitmap stays.
void ReleaseSkinImage(SkinImage& image);
// Deletes the bitmap and clears its size.
void ReleaseSkinBitmap(SkinImage& image);

// The largest picture decoded, in pixels (64 MB of planes); a larger header is refused
// before anything is allocated.
const size_t kMaxTgaPixels = size_t(16) * 1024 * 1024;

// TGA decoding: true colour (type 2) or run-length true colour (type 10), no colour map.
// S_OK, or E_FAIL with the planes freed. A picture of height 0 succeeds with no planes.
HRESULT LoadTgaFile(SkinImage& image, const wchar_t* path);
// Resource of type "TARGA" named `name` in `module`.
HRESULT LoadTgaResource(SkinImage& image, HMODULE module, const wchar_t* name);
// The same bytes held in memory (header included).
HRESULT DecodeTga(SkinImage& image, const BYTE* data, size_t size);

// Finds a picture: folder\name.tga, folder\name.bmp, folder\name_high.bmp (when `allowHigh`),
// the "TARGA" resource `resourceName` of `module`, then bitmap `bitmapId` of `module`
// (-1: none). An empty folder or a null resource name skips that step. Any previous content is
// released first. Returns true when a picture was found.
bool LoadSkinImage(SkinImage& image, const wchar_t* folder, const wchar_t* name, HMODULE module,
                   const wchar_t* resourceName, int bitmapId, COLORREF keyColor, bool allowHigh);

// Draws the picture at (x, y). Planes are blended over what `dc` holds: -1 for width, height or
// columnLimit means the picture's width or height, -1 for rowLimit its height; the first
// min(columnLimit, width) columns and min(height, rowLimit) rows are drawn, taken from the planes
// at (sourceX, sourceY). A bitmap is drawn at its own size from (sourceX, sourceY) with the key
// colour transparent. An empty image draws nothing.
void DrawSkinImage(const SkinImage& image, HDC dc, int x, int y, int width, int height, int sourceX,
                   int sourceY, int columnLimit, int rowLimit);

// Lays `color` over the rectangle at `opacity` (0 transparent to 255 opaque).
void FillTranslucent(HDC dc, int x, int y, int width, int height, COLORREF color, int opacity);
