#include "images/blend_buffer.h"

namespace {

const LONG kPixelsPerMetre = 3780;

}  // namespace

BlendBuffer::BlendBuffer(int width, int height)
    : width_(width), roundedWidth_(RoundedBufferWidth(width)), height_(height), bits_(nullptr) {
    if (width <= 0 || height <= 0) return;
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

bool BlendBuffer::capture(HDC dc, int x, int y) {
    if (!valid() || !BitBlt(dc_.get(), 0, 0, width_, height_, dc, x, y, SRCCOPY)) return false;
    GdiFlush();
    return true;
}

void BlendBuffer::putBack(HDC dc, int x, int y) const {
    if (valid()) BitBlt(dc, x, y, width_, height_, dc_.get(), 0, 0, SRCCOPY);
}
