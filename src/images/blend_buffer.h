#pragma once
// Alpha blending over what a device context already shows: the rectangle is captured into an
// off-screen 24-bit bitmap, blended there and copied back.
#include <windows.h>

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

    // Copies width × height pixels of `dc` at (x, y) into the buffer.
    bool capture(HDC dc, int x, int y);
    // Copies the buffer back to `dc` at (x, y).
    void putBack(HDC dc, int x, int y) const;
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
