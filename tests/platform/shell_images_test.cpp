#include <windows.h>

#include <string>
#include <vector>

#include "common/test_support.h"
#include "platform/shell.h"

namespace {

const COLORREF kKey = RGB(255, 0, 255);
const COLORREF kBackground = RGB(0, 0, 255);
const COLORREF kInk = RGB(200, 100, 50);

// A 32-bit top-down DIB section filled row by row from `pixels` (COLORREF values).
HBITMAP MakeBitmap(int width, int height, const std::vector<COLORREF>& pixels) {
    DWORD* out = nullptr;
    HBITMAP bitmap = CreateTopDownDib(width, height, &out);
    for (size_t i = 0; i < pixels.size(); ++i) out[i] = DibPixelOfColour(pixels[i]);
    return bitmap;
}

// A memory device context with its own bitmap, filled with one colour.
class Canvas {
public:
    Canvas(int width, int height, COLORREF fill) : dc_(CreateCompatibleDC(nullptr)) {
        bitmap_ = MakeBitmap(width, height, std::vector<COLORREF>(static_cast<size_t>(width * height), fill));
        previous_ = SelectObject(dc_, bitmap_);
    }
    ~Canvas() {
        SelectObject(dc_, previous_);
        DeleteObject(bitmap_);
        DeleteDC(dc_);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    HDC dc() const { return dc_; }
    COLORREF at(int x, int y) const { return GetPixel(dc_, x, y); }

private:
    HDC dc_;
    HBITMAP bitmap_;
    HGDIOBJ previous_;
};

TEST(TransparentImage, BitmapSourceSkipsTheKeyColourAndStaysUnselected) {
    // 2 x 2: key, ink / ink, key
    HBITMAP source = MakeBitmap(2, 2, {kKey, kInk, kInk, kKey});
    Canvas canvas(6, 6, kBackground);
    EXPECT_TRUE(TransparentImage(canvas.dc(), 1, 1, 2, 2, source, 0, 0, 2, 2, kKey));
    EXPECT_EQ(canvas.at(1, 1), kBackground);
    EXPECT_EQ(canvas.at(2, 1), kInk);
    EXPECT_EQ(canvas.at(1, 2), kInk);
    EXPECT_EQ(canvas.at(2, 2), kBackground);
    EXPECT_EQ(canvas.at(0, 0), kBackground) << "nothing outside the target";
    EXPECT_EQ(canvas.at(3, 3), kBackground);

    // The bitmap was put back: it can be selected elsewhere now.
    HDC other = CreateCompatibleDC(nullptr);
    HGDIOBJ previous = SelectObject(other, source);
    EXPECT_NE(previous, nullptr);
    // ... and while it is selected there, the call fails instead of drawing.
    EXPECT_FALSE(TransparentImage(canvas.dc(), 4, 4, 2, 2, source, 0, 0, 2, 2, kKey));
    EXPECT_EQ(canvas.at(5, 4), kBackground);
    // The selecting context itself is a valid source.
    EXPECT_TRUE(TransparentImage(canvas.dc(), 4, 4, 2, 2, other, 0, 0, 2, 2, kKey));
    EXPECT_EQ(canvas.at(5, 4), kInk);
    EXPECT_EQ(canvas.at(4, 4), kBackground);
    SelectObject(other, previous);
    DeleteDC(other);
    DeleteObject(source);
}

TEST(TransparentImage, StretchesWhenSizesDifferAndTakesPartOfTheSource) {
    HBITMAP source = MakeBitmap(2, 2, {kKey, kInk, kInk, kKey});
    Canvas canvas(8, 8, kBackground);
    EXPECT_TRUE(TransparentImage(canvas.dc(), 0, 0, 4, 4, source, 0, 0, 2, 2, kKey));
    // Each source pixel became 2 x 2.
    EXPECT_EQ(canvas.at(0, 0), kBackground);
    EXPECT_EQ(canvas.at(1, 1), kBackground);
    EXPECT_EQ(canvas.at(2, 0), kInk);
    EXPECT_EQ(canvas.at(3, 1), kInk);
    EXPECT_EQ(canvas.at(0, 3), kInk);
    EXPECT_EQ(canvas.at(3, 3), kBackground);

    // The source's right column only, widened to 3 x 2.
    EXPECT_TRUE(TransparentImage(canvas.dc(), 5, 5, 3, 2, source, 1, 0, 1, 2, kKey));
    EXPECT_EQ(canvas.at(5, 5), kInk);
    EXPECT_EQ(canvas.at(7, 5), kInk);
    EXPECT_EQ(canvas.at(6, 6), kBackground);
    DeleteObject(source);
}

TEST(TransparentImage, RefusesWhatItCannotDraw) {
    HBITMAP source = MakeBitmap(2, 2, {kInk, kInk, kInk, kInk});
    Canvas canvas(4, 4, kBackground);
    EXPECT_FALSE(TransparentImage(canvas.dc(), 0, 0, -2, 2, source, 0, 0, 2, 2, kKey));
    EXPECT_FALSE(TransparentImage(canvas.dc(), 0, 0, 2, 0, source, 0, 0, 2, 2, kKey));
    EXPECT_FALSE(TransparentImage(canvas.dc(), 0, 0, 2, 2, source, 0, 0, 2, -1, kKey));
    EXPECT_FALSE(TransparentImage(canvas.dc(), 0, 0, 2, 2, nullptr, 0, 0, 2, 2, kKey));
    EXPECT_FALSE(TransparentImage(nullptr, 0, 0, 2, 2, source, 0, 0, 2, 2, kKey));
    HBRUSH brush = CreateSolidBrush(kInk);
    EXPECT_FALSE(TransparentImage(canvas.dc(), 0, 0, 2, 2, brush, 0, 0, 2, 2, kKey)) << "neither bitmap nor context";
    DeleteObject(brush);
    EXPECT_EQ(canvas.at(0, 0), kBackground);
    DeleteObject(source);
}

// A 24-bit bottom-up BMP file of 3 x 2 pixels: bottom row blue, green, red; top row white, black, key.
std::string SmallBmp() {
    const unsigned char rows[2][12] = {
        {0xFF, 0, 0, 0, 0xFF, 0, 0, 0, 0xFF, 0, 0, 0},                // bottom row, padded to 12 bytes
        {0xFF, 0xFF, 0xFF, 0, 0, 0, 0xFF, 0, 0xFF, 0, 0, 0},          // top row
    };
    std::string bytes;
    auto put16 = [&bytes](unsigned v) { bytes.push_back(char(v & 0xFF)); bytes.push_back(char(v >> 8)); };
    auto put32 = [&put16](unsigned v) { put16(v & 0xFFFF); put16(v >> 16); };
    bytes += "BM";
    put32(14 + 40 + 24);
    put32(0);
    put32(14 + 40);
    put32(40);
    put32(3);
    put32(2);
    put16(1);
    put16(24);
    put32(0);
    put32(24);
    put32(2835);
    put32(2835);
    put32(0);
    put32(0);
    bytes.append(reinterpret_cast<const char*>(rows), sizeof rows);
    return bytes;
}

TEST(SHLoadDIBitmap, LoadsABitmapFileAsADibSection) {
    ScratchFolder folder(L"platform_images");
    std::wstring path = folder.file(L"icon.bmp");
    WriteBytes(path, SmallBmp());
    HBITMAP bitmap = SHLoadDIBitmap(path.c_str());
    ASSERT_NE(bitmap, nullptr);
    DIBSECTION section = {};
    ASSERT_EQ(GetObjectW(bitmap, sizeof section, &section), static_cast<int>(sizeof section)) << "a DIB section";
    EXPECT_EQ(section.dsBm.bmWidth, 3);
    EXPECT_EQ(section.dsBm.bmHeight, 2);
    EXPECT_NE(section.dsBm.bmBits, nullptr);

    // Drawn through TransparentImage with the key colour, as the program draws category icons.
    Canvas canvas(3, 2, kBackground);
    EXPECT_TRUE(TransparentImage(canvas.dc(), 0, 0, 3, 2, bitmap, 0, 0, 3, 2, kKey));
    EXPECT_EQ(canvas.at(0, 0), RGB(255, 255, 255));
    EXPECT_EQ(canvas.at(1, 0), RGB(0, 0, 0));
    EXPECT_EQ(canvas.at(2, 0), kBackground);
    EXPECT_EQ(canvas.at(0, 1), RGB(0, 0, 255));
    EXPECT_EQ(canvas.at(1, 1), RGB(0, 255, 0));
    EXPECT_EQ(canvas.at(2, 1), RGB(255, 0, 0));
    DeleteObject(bitmap);

    EXPECT_EQ(SHLoadDIBitmap(folder.file(L"missing.bmp").c_str()), nullptr);
    WriteBytes(folder.file(L"text.bmp"), "not a bitmap at all");
    EXPECT_EQ(SHLoadDIBitmap(folder.file(L"text.bmp").c_str()), nullptr);
    EXPECT_EQ(SHLoadDIBitmap(L""), nullptr);
    EXPECT_EQ(SHLoadDIBitmap(nullptr), nullptr);
}

}  // namespace
