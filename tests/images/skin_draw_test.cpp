// Skin pictures drawn into a memory device context and read back; the search order of skin pictures.
#include <cmath>

#include "common/bitmap_bytes.h"
#include "images/image_test_support.h"

namespace {

// (source × alpha + destination × (255 − alpha)) / 255 rounded to nearest, in floating point.
Rgba Blended(Rgba source, Rgba destination) {
    auto blend = [&](int s, int d) { return BYTE(std::floor((s * source.a + d * (255.0 - source.a)) / 255.0 + 0.5)); };
    return {blend(source.r, destination.r), blend(source.g, destination.g), blend(source.b, destination.b), 255};
}

// Varied colours with every kind of alpha; rows of 700 are 300 pixels clear, 300 opaque, then mixed.
std::string Picture(int width, int height, int bits) {
    const BYTE alphas[] = {0, 255, 1, 128, 254, 77, 200};
    std::string bytes = TgaHeader(kTrueColor, width, height, bits, 0x10);
    for (int i = 0, column = 0; i < width * height; ++i, column = i % width) {
        BYTE alpha = width < 700 ? alphas[i % 7] : column < 300 ? 0 : column < 600 ? 255 : BYTE(column * 11);
        bytes += PixelBytes({BYTE(i * 37 + 5), BYTE(i * 91 + 17), BYTE(255 - i * 13), alpha}, bits);
    }
    return bytes;
}

TEST(SkinDraw, PlanesBlendOverTheDestinationFromTheChosenPlaneIndexes) {
    const int cases[][15] = {
        // picture w, h, bits; canvas w, h; x, y; width, height, source x, y, column and row limit; columns, rows drawn
        {5, 4, 32, 12, 9, 2, 1, 4, -1, 1, 1, 3, 2, 3, 2},
        {5, 4, 32, 12, 9, 2, 1, 3, 9, 0, 0, 9, -1, 3, 4},
        {5, 4, 32, 12, 9, 2, 1, 5, 4, 3, 0, -1, -1, 5, 4},    // columns run on into the next row; none past the last
        {5, 4, 32, 12, 9, 2, 1, 5, 4, -2, -1, -1, -1, 5, 4},  // so are indexes before the first
        {5, 4, 32, 12, 9, 2, 1, 5, 4, 0, 0, 5, 0, 0, 0},
        {5, 0, 32, 12, 9, 2, 1, 5, 4, 0, 0, -1, -1, 0, 0},  // the width of a picture but no planes
        {7, 3, 32, 9, 6, 4, 4, -1, -1, 0, 0, -1, -1, 7, 3},  // runs off the canvas
        {700, 3, 32, 710, 5, 4, 1, -1, -1, 0, 0, -1, -1, 700, 3},
        {700, 3, 32, 710, 5, 4, 1, -1, -1, 77, 0, -1, -1, 700, 3},
    };
    for (const auto& c : cases) {
        SkinImage image;
        ASSERT_EQ(DecodeBytes(image, Picture(c[0], c[1], c[2])), S_OK);
        Canvas canvas(c[3], c[4]);
        DrawSkinImage(image, canvas.dc.get(), c[5], c[6], c[7], c[8], c[9], c[10], c[11], c[12]);
        SCOPED_TRACE(testing::Message() << "case " << &c - cases);
        ExpectCanvas(canvas, [&](int x, int y, Rgba before) {
            int column = x - c[5], row = y - c[6], index = column + (row + c[10]) * c[0] + c[9];
            bool drawn = column >= 0 && column < c[13] && row >= 0 && row < c[14] && index >= 0 && index < c[0] * c[1];
            return drawn ? Blended(PixelAt(image, index % c[0], index / c[0]), before) : before;
        });
    }
}

TEST(SkinDraw, TranslucentFillsBlendAtTheOpacityClampedTo0To255) {
    for (int opacity : {0, 1, 77, 128, 254, 255, -5, 300}) {
        BYTE alpha = static_cast<BYTE>(std::min(std::max(opacity, 0), 255));
        Canvas canvas(10, 7);
        FillTranslucent(canvas.dc.get(), 2, 1, 5, 3, RGB(200, 100, 50), opacity);
        FillTranslucent(canvas.dc.get(), 8, 5, 1, 1, RGB(200, 100, 50), opacity);
        FillTranslucent(canvas.dc.get(), 0, 0, 0, 4, RGB(1, 2, 3), opacity);
        FillTranslucent(canvas.dc.get(), 0, 0, 4, -1, RGB(1, 2, 3), opacity);
        SCOPED_TRACE(testing::Message() << "opacity " << opacity);
        ExpectCanvas(canvas, [&](int x, int y, Rgba before) {
            bool filled = (x >= 2 && x < 7 && y >= 1 && y < 4) || (x == 8 && y == 5);
            return filled ? Blended({200, 100, 50, alpha}, before) : before;
        });
    }
}

const COLORREF kKey = RGB(255, 0, 255);

// What the image holds: "planes WxH ", "bitmap WxH ", both, or "".
std::string Found(const SkinImage& image) {
    auto size = [](int width, int height) { return std::to_string(width) + "x" + std::to_string(height) + " "; };
    std::string planes = image.red || image.width || image.height ? "planes " + size(image.width, image.height) : "";
    return planes + (image.bitmap || image.bitmapWidth ? "bitmap " + size(image.bitmapWidth, image.bitmapHeight) : "");
}

TEST(SkinLoad, SearchOrderFallbacksFailuresThatLeaveNothingAndKeyedBitmaps) {
    ScratchFolder scratch(L"skin_load");
    auto tga = [](int w, int h) { return TgaHeader(kTrueColor, w, h, 24, 0) + std::string(w * h * 3, 'T'); };
    auto keyed = [](int x, int y) { return (x + 2 * y) % 3 == 0 ? kKey : RGB(200, 10 + 50 * x, 10 + 60 * y); };
    WriteBytes(scratch.file(L"pic.tga"), tga(2, 2));
    WriteBytes(scratch.file(L"pic.bmp"), BitmapFileBytes(4, 3, keyed));
    WriteBytes(scratch.file(L"pic_high.bmp"), PlainBitmap(5, 4, RGB(40, 50, 60)));
    std::string bitmap = PlainBitmap(6, 3, 0).substr(14);  // a bitmap resource has no file header
    ASSERT_TRUE(WriteModuleWithResources(scratch.file(L"skin.dll"), {{L"TARGA", L"PIC", tga(4, 1)},
                                                                     {L"TARGA", MAKEINTRESOURCEW(7), tga(1, 3)},
                                                                     {RT_BITMAP, MAKEINTRESOURCEW(101), bitmap}}));
    Library module(LoadLibraryW(scratch.file(L"skin.dll").c_str()));
    ASSERT_TRUE(module);
    const wchar_t* folder = scratch.path().c_str();
    SkinImage image;
    auto load = [&](const wchar_t* in, const wchar_t* name, const wchar_t* resource, int bitmapId, bool allowHigh) {
        bool found = LoadSkinImage(image, in, name, module.get(), resource, bitmapId, kKey, allowHigh);
        return Found(image) + (found ? "found" : "");
    };
    EXPECT_EQ(load(folder, L"pic", L"PIC", 101, true), "planes 2x2 found") << "the folder's TGA first";
    WriteBytes(scratch.file(L"pic.tga"), TgaHeader(1, 2, 2, 32, 0));
    ASSERT_EQ(load(folder, L"pic", L"PIC", 101, true), "bitmap 4x3 found") << "a TGA that does not decode";
    Canvas canvas(9, 7);
    DrawSkinImage(image, canvas.dc.get(), 2, 1, 1, 1, 0, 0, 1, 1);  // drawn whole: sizes and limits are for planes
    ExpectCanvas(canvas, [&](int x, int y, Rgba before) {
        COLORREF c = x >= 2 && x < 6 && y >= 1 && y < 4 ? keyed(x - 2, y - 1) : kKey;
        return c == kKey ? before : Rgba{GetRValue(c), GetGValue(c), GetBValue(c), 255};
    });
    DeleteFileW(scratch.file(L"pic.bmp").c_str());
    EXPECT_EQ(load(folder, L"pic", L"PIC", 101, true), "bitmap 5x4 found") << "the high bitmap when allowed";
    EXPECT_EQ(load(folder, L"pic", L"PIC", 101, false), "planes 4x1 found") << "else the TARGA resource";
    EXPECT_EQ(load(folder, L"pic", MAKEINTRESOURCEW(7), 101, false), "planes 1x3 found") << "a numbered resource";
    EXPECT_EQ(load(nullptr, L"pic", nullptr, 101, true), "bitmap 6x3 found") << "no resource name: the bitmap";
    EXPECT_EQ(load(folder, L"other", L"OTHER", 101, true), "bitmap 6x3 found") << "nothing of that name";
    EXPECT_EQ(load(folder, L"other", L"OTHER", -1, true), "") << "the bitmap before is not kept";
    load(nullptr, nullptr, L"PIC", 101, false);
    EXPECT_EQ(load(folder, L"other", L"", 999, true), "") << "a missing bitmap id; the planes before are not kept";
}

}  // namespace
