#include "images/blend_buffer.h"

#include <memory>
#include <new>

namespace {

const LONG kPixelsPerMetre = 3780;
// Far wider than any screen; keeps the rounding and the row arithmetic away from overflow.
const int kWidestBuffer = 1 << 20;

// One user-interface thread draws, so one kept buffer serves every draw.
std::unique_ptr<BlendBuffer> g_keptBuffer;

}  // namespace

BlendBuffer::BlendBuffer(int width, int height)
    : width_(width), roundedWidth_(0), height_(height), bits_(nullptr) {
    if (width <= 0 || height <= 0 || width > kWidestBuffer) return;
    roundedWidth_ = RoundedBufferWidth(width);
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    info.bmiHeader.biWidth = roundedWidth_;
    info.bmiHeader.biHeight = height_;  // positive: bottom-up
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 24;
    info.bmiHeader.biCompression = BI_RGB;
    info.bmiHeader.biXPelsPerMeter = kPixelsPerMetre;
    info.bmiHeader.biYPelsPerMeter = kPixelsPerMetre;
    void* bits = nullptr;
    bitmap_.reset(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    dc_.reset(CreateCompatibleDC(nullptr));
    if (!bitmap_ || !dc_ || !bits) return;
    SelectObject(dc_.get(), bitmap_.get());
    bits_ = static_cast<BYTE*>(bits);
}

bool BlendBuffer::capture(HDC dc, int x, int y, int firstRow, int rowCount) {
    if (!valid() || !BitBlt(dc_.get(), 0, firstRow, width_, rowCount, dc, x, y + firstRow, SRCCOPY)) return false;
    GdiFlush();
    return true;
}

void BlendBuffer::putBack(HDC dc, int x, int y, int firstRow, int rowCount) const {
    if (valid()) BitBlt(dc, x, y + firstRow, width_, rowCount, dc_.get(), 0, firstRow, SRCCOPY);
}

BlendBuffer* OffScreenBuffer(int width, int height) {
    BlendBuffer* kept = g_keptBuffer.get();
    if (kept && kept->width() == width && kept->height() == height) return kept;
    g_keptBuffer.reset();
    g_keptBuffer.reset(new (std::nothrow) BlendBuffer(width, height));
    if (g_keptBuffer && g_keptBuffer->valid()) return g_keptBuffer.get();
    g_keptBuffer.reset();
    return nullptr;
}
