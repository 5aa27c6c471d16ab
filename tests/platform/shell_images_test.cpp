#include <windows.h>

#include <string>
#include <vector>

#include "common/bitmap_bytes.h"
#include "common/test_support.h"
#include "platform/shell.h"

namespace {

const COLORREF kKey = RGB(255, 0, 255);
const COLORREF kBackground = RGB(0, 0, 255);
const COLORREF kInk = RGB(200, 100, 50);

HBITMAP MakeBitmap(int width, int height, const std::vector<COLORREF>& pixels) {
    DWORD* out = nullptr;
    HBITMAP bitmap = CreateTopDownDib(width, height, &out);
    for (size_t i = 0; i < pixels.size(); ++i) out[i] = DibPixelOfColour(pixels[i]);
    return bitmap;
}

// What a 4 x 4 canvas of the background colour shows after `draw`: rows of '.' background,
// 'x' ink, '?' anything else.
template <typename Draw>
std::string Drawn(Draw draw) {
    HDC dc = CreateCompatibleDC(nullptr);
    HBITMAP canvas = MakeBitmap(4, 4, std::vector<COLORREF>(16, kBackground));
    HGDIOBJ previous = SelectObject(dc, canvas);
    draw(dc);
    std::string rows;
    for (int i = 0; i < 16; ++i) {
        COLORREF pixel = GetPixel(dc, i % 4, i / 4);
        rows += std::string(i && i % 4 == 0 ? "|" : "") + (pixel == kBackground ? '.' : pixel == kInk ? 'x' : '?');
    }
    SelectObject(dc, previous);
    DeleteObject(canvas);
    DeleteDC(dc);
    return rows;
}

TEST(TransparentImage, DrawsABitmapStretchedWithoutTheKeyColourAndRefusesEmptyShapes) {
    HBITMAP source = MakeBitmap(2, 2, {kKey, kInk, kInk, kKey});
    EXPECT_EQ(Drawn([&](HDC dc) { EXPECT_TRUE(TransparentImage(dc, 0, 0, 4, 4, source, 0, 0, 2, 2, kKey)); }),
              "..xx|..xx|xx..|xx..");
    EXPECT_EQ(Drawn([&](HDC dc) {
                  EXPECT_FALSE(TransparentImage(dc, 0, 0, -2, 2, source, 0, 0, 2, 2, kKey));
                  EXPECT_FALSE(TransparentImage(dc, 0, 0, 2, 2, source, 0, 0, 2, 0, kKey));
                  EXPECT_FALSE(TransparentImage(dc, 0, 0, 2, 2, nullptr, 0, 0, 2, 2, kKey));
                  EXPECT_TRUE(TransparentImage(dc, 1, 2, 3, 2, source, 1, 0, 1, 2, kKey)) << "drawn again: put back";
              }),
              "....|....|.xxx|....");
    DeleteObject(source);
}

TEST(SHLoadDIBitmap, LoadsABitmapFileAsADibSectionAndRefusesTheRest) {
    ScratchFolder folder(L"platform_images");
    WriteBytes(folder.file(L"icon.bmp"), PlainBitmap(3, 2, kInk));
    HBITMAP bitmap = SHLoadDIBitmap(folder.file(L"icon.bmp").c_str());
    DIBSECTION section = {};
    ASSERT_EQ(GetObjectW(bitmap, sizeof section, &section), static_cast<int>(sizeof section)) << "a DIB section";
    EXPECT_TRUE(section.dsBm.bmWidth == 3 && section.dsBm.bmHeight == 2);
    DeleteObject(bitmap);
    WriteBytes(folder.file(L"text.bmp"), "not a bitmap at all");
    EXPECT_EQ(SHLoadDIBitmap(folder.file(L"missing.bmp").c_str()), nullptr);
    EXPECT_EQ(SHLoadDIBitmap(folder.file(L"text.bmp").c_str()), nullptr);
    EXPECT_EQ(SHLoadDIBitmap(nullptr), nullptr);
}

}  // namespace
