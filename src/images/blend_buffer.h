#pragma once
// Alpha blending over what a device context already shows: the rectangle is captured into an
// off-screen 24-bit bitmap, blended there and copied back.
#include <windows.h>

#include <algorithm>

#include "support/handles.h"

// (source × alpha + destination × (255 − alpha)) / 255, rounded to nearest, without a division.
inline BYTE BlendChannel(unsigned source, unsigned destination, unsigned alpha) {
    unsigned v = source * alpha + destination * (255 - alpha) + 128;
    return static_cast<BYTE>((v + (v >> 8)) >> 8);
}

// Width of the off-screen bitmap: `width` rounded up to a multiple of 4 pixels.
inline int RoundedBufferWidth(int width) { return (width + 3) & ~3; }

// A bottom-up 24-bit DIB section, 3780 pixels per metre, rows of RoundedBufferWidth pixels.
class BlendBuffer {
public:
    BlendBuffer(int width, int height);
    BlendBuffer(const BlendBuffer&) = delete;
    BlendBuffer& operator=(const BlendBuffer&) = delete;

    bool valid() const { return bits_ != nullptr; }
    int width() const { return width_; }
    int roundedWidth() const { return roundedWidth_; }
    int height() const { return height_; }

    // Copies rows firstRow to firstRow + rowCount - 1 of the rectangle of `dc` at (x, y) into
    // the buffer.
    bool capture(HDC dc, int x, int y, int firstRow, int rowCount);
    // Copies those buffer rows back to the rectangle at (x, y).
    void putBack(HDC dc, int x, int y, int firstRow, int rowCount) const;
    // Blue, green, red bytes of the row `row` counted from the top.
    BYTE* row(int row) const {
        return bits_ + static_cast<size_t>(height_ - 1 - row) * static_cast<size_t>(roundedWidth_) * 3;
    }

private:
    int width_;
    int roundedWidth_;
    int height_;
    Bitmap bitmap_;
    MemoryDc dc_;  // declared after the bitmap: deleted first, which lets the bitmap go
    BYTE* bits_;
};

// The buffer for a draw of width × height. The last one is kept and handed out again for the
// same size, which spares creating and mapping a bitmap on every paint of the same picture.
// Null when it cannot be created.
BlendBuffer* OffScreenBuffer(int width, int height);

// Pixels blended per band: small enough for the band's rows to stay in the processor's cache
// from capture through blending to the copy back.
const int kBandPixels = 32 * 1024;

// Captures the width × height rectangle of `dc` at (x, y), lets blendRow(row, pixels) change
// every row (blue, green, red bytes), and copies the result back, one band of rows at a time.
template <typename BlendRow>
void BlendOver(HDC dc, int x, int y, int width, int height, BlendRow blendRow) {
    BlendBuffer* buffer = OffScreenBuffer(width, height);
    if (!buffer) return;
    int band = std::max(1, kBandPixels / width);
    for (int first = 0; first < height; first += band) {
        int rows = std::min(band, height - first);
        if (!buffer->capture(dc, x, y, first, rows)) return;
        for (int row = first; row < first + rows; ++row) blendRow(row, buffer->row(row));
        buffer->putBack(dc, x, y, first, rows);
    }
}
