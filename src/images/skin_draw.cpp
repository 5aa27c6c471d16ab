// Drawing skin pictures: alpha-blended planes, colour-keyed bitmaps and translucent fills.
#include <algorithm>

#include "images/blend_buffer.h"
#include "images/skin_image.h"
#include "platform/shell.h"

namespace {

int OrWhenUnset(int value, int fallback) { return value == -1 ? fallback : value; }

// Blends the planes into one buffer row. Plane indexes run on from `start`; only those inside
// the picture are drawn, so a row may draw part of the next picture row, never past the planes.
void BlendRow(const SkinImage& image, long long start, int columns, BYTE* pixels) {
    long long total = static_cast<long long>(image.width) * image.height;
    long long first = std::max(0LL, -start);
    long long last = std::min<long long>(columns, total - start);
    for (long long column = first; column < last; ++column) {
        size_t at = static_cast<size_t>(start + column);
        BYTE* pixel = pixels + column * 3;
        unsigned alpha = image.alpha[at];
        if (alpha == 0) continue;
        if (alpha == 255) {
            pixel[0] = image.blue[at];
            pixel[1] = image.green[at];
            pixel[2] = image.red[at];
            continue;
        }
        pixel[0] = BlendChannel(image.blue[at], pixel[0], alpha);
        pixel[1] = BlendChannel(image.green[at], pixel[1], alpha);
        pixel[2] = BlendChannel(image.red[at], pixel[2], alpha);
    }
}

void DrawPlanes(const SkinImage& image, HDC dc, int x, int y, int width, int height, int sourceX,
                int sourceY, int columnLimit, int rowLimit) {
    width = OrWhenUnset(width, image.width);
    height = OrWhenUnset(height, image.height);
    columnLimit = OrWhenUnset(columnLimit, image.width);
    rowLimit = OrWhenUnset(rowLimit, image.height);
    int columns = std::min(columnLimit, width);
    int rows = std::min(height, rowLimit);
    if (columns <= 0 || rows <= 0) return;

    BlendBuffer buffer(columns, rows);
    if (!buffer.capture(dc, x, y)) return;
    for (int row = 0; row < rows; ++row) {
        long long start = (static_cast<long long>(row) + sourceY) * image.width + sourceX;
        BlendRow(image, start, columns, buffer.row(row));
    }
    buffer.putBack(dc, x, y);
}

}  // namespace

void DrawSkinImage(const SkinImage& image, HDC dc, int x, int y, int width, int height, int sourceX,
                   int sourceY, int columnLimit, int rowLimit) {
    if (image.hasPlanes()) {
        DrawPlanes(image, dc, x, y, width, height, sourceX, sourceY, columnLimit, rowLimit);
        return;
    }
    if (!image.bitmap) return;
    TransparentImage(dc, x, y, image.bitmapWidth, image.bitmapHeight, image.bitmap, sourceX, sourceY,
                     image.bitmapWidth, image.bitmapHeight, image.keyColor);
}

void FillTranslucent(HDC dc, int x, int y, int width, int height, COLORREF color, int opacity) {
    if (width <= 0 || height <= 0) return;
    unsigned alpha = static_cast<unsigned>(std::clamp(opacity, 0, 255));
    // The colour is constant, so each channel's result depends only on the destination byte.
    BYTE blue[256], green[256], red[256];
    for (unsigned value = 0; value < 256; ++value) {
        blue[value] = BlendChannel(GetBValue(color), value, alpha);
        green[value] = BlendChannel(GetGValue(color), value, alpha);
        red[value] = BlendChannel(GetRValue(color), value, alpha);
    }
    BlendBuffer buffer(width, height);
    if (!buffer.capture(dc, x, y)) return;
    for (int row = 0; row < height; ++row) {
        BYTE* pixel = buffer.row(row);
        for (int column = 0; column < width; ++column, pixel += 3) {
            pixel[0] = blue[pixel[0]];
            pixel[1] = green[pixel[1]];
            pixel[2] = red[pixel[2]];
        }
    }
    buffer.putBack(dc, x, y);
}
