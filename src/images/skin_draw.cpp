// Drawing skin pictures: alpha-blended planes, colour-keyed bitmaps and translucent fills.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
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

// One row's source pixels and alpha laid out like the buffer's blue-green-red bytes, so that
// one byte loop blends them. Each pixel is stored as 4 bytes whose last one the next pixel
// overwrites, hence one spare byte.
class RowLayout {
public:
    explicit RowLayout(int columns)
        : source_(static_cast<BYTE*>(malloc(static_cast<size_t>(columns) * 3 + 1))),
          alpha_(static_cast<BYTE*>(malloc(static_cast<size_t>(columns) * 3 + 1))) {}
    ~RowLayout() {
        free(source_);
        free(alpha_);
    }
    RowLayout(const RowLayout&) = delete;
    RowLayout& operator=(const RowLayout&) = delete;

    bool valid() const { return source_ && alpha_; }
    const BYTE* source() const { return source_; }
    const BYTE* alpha() const { return alpha_; }

    // Lays out `count` pixels from plane index `at`.
    void fill(const SkinImage& image, size_t at, size_t count) {
        for (size_t i = 0; i < count; ++i) {
            Store32(source_ + i * 3, image.blue[at + i] | image.green[at + i] << 8 | image.red[at + i] << 16);
            Store32(alpha_ + i * 3, image.alpha[at + i] * 0x010101u);
        }
    }

private:
    BYTE* source_;
    BYTE* alpha_;
};

// Blends the planes into one buffer row. Plane indexes run on from `start`; only those inside
// the picture are drawn, so a row may draw part of the next picture row, never past the planes.
void BlendRow(const SkinImage& image, long long start, int columns, BYTE* pixels, RowLayout& layout) {
    long long total = static_cast<long long>(image.width) * image.height;
    long long first = std::max(0LL, -start);
    long long last = std::min<long long>(columns, total - start);
    if (first >= last) return;
    size_t count = static_cast<size_t>(last - first);
    layout.fill(image, static_cast<size_t>(start + first), count);
    BlendBytes(pixels + first * 3, layout.source(), layout.alpha(), count * 3);
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

    RowLayout layout(columns);
    if (!layout.valid()) return;
    BlendOver(dc, x, y, columns, rows, [&](int row, BYTE* pixels) {
        long long start = (static_cast<long long>(row) + sourceY) * image.width + sourceX;
        BlendRow(image, start, columns, pixels, layout);
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
