// Drawing skin pictures: alpha-blended planes, colour-keyed bitmaps and translucent fills.
#include <algorithm>
#include <cstdint>
#include <cstring>

#include "images/blend_buffer.h"
#include "images/skin_image.h"
#include "platform/shell.h"

namespace {

int OrWhenUnset(int value, int fallback) { return value == -1 ? fallback : value; }

// BlendChannel over a run of bytes, written so that the compiler can vectorise it: every
// intermediate value fits in 16 bits (at most 255 × 255 + 128 + 254).
void BlendBytes(BYTE* __restrict destination, const BYTE* __restrict source, const BYTE* __restrict alpha,
                size_t count) {
    for (size_t i = 0; i < count; ++i) {
        uint16_t a = alpha[i];
        uint16_t v = static_cast<uint16_t>(source[i] * a + destination[i] * static_cast<uint16_t>(255 - a) + 128);
        destination[i] = static_cast<BYTE>(static_cast<uint16_t>(v + (v >> 8)) >> 8);
    }
}

void Store32(BYTE* bytes, uint32_t value) { memcpy(bytes, &value, 4); }

// Pixels looked at together: stretches the picture leaves clear are skipped and opaque ones
// copied.
const size_t kStretch = 128;

// A stretch's source pixels and alpha laid out like the buffer's blue-green-red bytes, so that
// one byte loop blends them. Each pixel is stored as 4 bytes whose last one the next pixel
// overwrites, hence one spare byte.
struct StretchLayout {
    BYTE source[kStretch * 3 + 1];
    BYTE alpha[kStretch * 3 + 1];

    // Lays out `count` (at most kStretch) pixels from plane index `at`.
    void fill(const SkinImage& image, size_t at, size_t count) {
        for (size_t i = 0; i < count; ++i) {
            Store32(source + i * 3, image.blue[at + i] | image.green[at + i] << 8 | image.red[at + i] << 16);
            Store32(alpha + i * 3, image.alpha[at + i] * 0x010101u);
        }
    }
};

// How much of a stretch of pixels the picture covers.
enum class Coverage { kNone, kFull, kPartial };

Coverage CoverageOf(const BYTE* alpha, size_t count) {
    unsigned any = 0, all = 255;
    for (size_t i = 0; i < count; ++i) {
        any |= alpha[i];
        all &= alpha[i];
    }
    if (any == 0) return Coverage::kNone;
    return all == 255 ? Coverage::kFull : Coverage::kPartial;
}

// Blends the planes into one buffer row. Plane indexes run on from `start`; only those inside
// the picture are drawn, so a row may draw part of the next picture row, never past the planes.
void BlendRow(const SkinImage& image, long long start, int columns, BYTE* pixels) {
    long long total = static_cast<long long>(image.width) * image.height;
    long long first = std::max(0LL, -start);
    long long last = std::min<long long>(columns, total - start);
    StretchLayout layout;
    for (long long column = first; column < last; column += kStretch) {
        size_t count = static_cast<size_t>(std::min<long long>(kStretch, last - column));
        size_t at = static_cast<size_t>(start + column);
        Coverage coverage = CoverageOf(image.alpha + at, count);
        if (coverage == Coverage::kNone) continue;
        layout.fill(image, at, count);
        BYTE* destination = pixels + column * 3;
        if (coverage == Coverage::kFull) {
            memcpy(destination, layout.source, count * 3);
        } else {
            BlendBytes(destination, layout.source, layout.alpha, count * 3);
        }
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

    BlendOver(dc, x, y, columns, rows, [&](int row, BYTE* pixels) {
        long long start = (static_cast<long long>(row) + sourceY) * image.width + sourceX;
        BlendRow(image, start, columns, pixels);
    });
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
    BlendOver(dc, x, y, width, height, [&](int, BYTE* pixel) {
        for (int column = 0; column < width; ++column, pixel += 3) {
            pixel[0] = blue[pixel[0]];
            pixel[1] = green[pixel[1]];
            pixel[2] = red[pixel[2]];
        }
    });
}
