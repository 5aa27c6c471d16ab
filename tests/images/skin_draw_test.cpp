// Drawing skin pictures into a memory device context and reading the pixels back: alpha
// blending of the planes, limits and source offsets, translucent fills.
#include <cmath>
#include <vector>

#include "images/blend_buffer.h"
#include "images/image_test_support.h"

namespace {

// Rounded (source × alpha + destination × (255 − alpha)) / 255, computed in floating point.
int ExpectedBlend(int source, int destination, int alpha) {
    return static_cast<int>(std::floor((source * alpha + destination * (255.0 - alpha)) / 255.0 + 0.5));
}

TEST(SkinBlend, ChannelBlendIsTheRoundedDivisionBy255) {
    int mismatches = 0;
    for (int alpha = 0; alpha < 256; ++alpha)
        for (int source = 0; source < 256; ++source)
            for (int destination = 0; destination < 256; ++destination)
                if (BlendChannel(source, destination, alpha) != ExpectedBlend(source, destination, alpha) &&
                    ++mismatches < 5)
                    ADD_FAILURE() << source << " over " << destination << " at " << alpha;
    EXPECT_EQ(mismatches, 0);
}

TEST(SkinBlend, OffScreenBufferIsBottomUpWithWidthRoundedToFour) {
    const int widths[][2] = {{1, 4}, {3, 4}, {4, 4}, {5, 8}, {7, 8}, {8, 8}, {1021, 1024}, {1024, 1024}};
    for (const auto& w : widths) {
        EXPECT_EQ(RoundedBufferWidth(w[0]), w[1]) << w[0];
        BlendBuffer buffer(w[0], 3);
        ASSERT_TRUE(buffer.valid());
        EXPECT_EQ(buffer.width(), w[0]);
        EXPECT_EQ(buffer.roundedWidth(), w[1]);
        EXPECT_EQ(buffer.height(), 3);
        EXPECT_EQ(buffer.row(0) - buffer.row(1), w[1] * 3) << "row 0 is stored last";
    }
    EXPECT_FALSE(BlendBuffer(0, 3).valid());
    EXPECT_FALSE(BlendBuffer(3, 0).valid());
    EXPECT_FALSE(BlendBuffer(0x7FFFFFFF, 1).valid());
}

Rgba Blended(Rgba source, Rgba destination) {
    return {BYTE(ExpectedBlend(source.r, destination.r, source.a)),
            BYTE(ExpectedBlend(source.g, destination.g, source.a)),
            BYTE(ExpectedBlend(source.b, destination.b, source.a)), 255};
}

// A 32-bit picture of varied colours and every kind of alpha.
void MakePicture(SkinImage& image, int width, int height, int bits = 32) {
    std::string bytes = TgaHeader(kTrueColor, width, height, bits, 0x10);
    const BYTE alphas[] = {0, 255, 1, 128, 254, 77, 200};
    for (int i = 0; i < width * height; ++i)
        bytes += PixelBytes({BYTE(i * 37 + 5), BYTE(i * 91 + 17), BYTE(255 - i * 13), alphas[i % 7]}, bits);
    ASSERT_EQ(DecodeBytes(image, bytes), S_OK);
}

// Every canvas pixel: inside the drawn rectangle the blend of plane index `indexOf(column,
// row)` when it lies in the picture, otherwise untouched.
template <typename IndexOf>
void ExpectDrawn(const Canvas& canvas, const SkinImage& image, int x, int y, int columns, int rows, IndexOf indexOf) {
    long long total = static_cast<long long>(image.width) * image.height;
    for (int cy = 0; cy < canvas.height(); ++cy) {
        for (int cx = 0; cx < canvas.width(); ++cx) {
            Rgba want = canvas.original(cx, cy);
            int column = cx - x, row = cy - y;
            if (column >= 0 && column < columns && row >= 0 && row < rows) {
                long long index = indexOf(column, row);
                if (index >= 0 && index < total) {
                    want = Blended(PixelAt(image, int(index % image.width), int(index / image.width)), want);
                }
            }
            ASSERT_EQ(canvas.at(cx, cy), want) << "canvas pixel " << cx << "," << cy;
        }
    }
}

TEST(SkinDraw, PlanesAreBlendedOverTheDestination) {
    SkinImage image;
    MakePicture(image, 5, 4);
    Canvas canvas(16, 12);
    DrawSkinImage(image, canvas.dc(), 3, 2, -1, -1, 0, 0, -1, -1);
    ExpectDrawn(canvas, image, 3, 2, 5, 4, [&](int c, int r) { return r * 5LL + c; });
}

TEST(SkinDraw, LongClearAndOpaqueStretchesDrawLikeAnyOther) {
    // Rows of 700: 300 clear pixels, 300 opaque ones, then mixed alpha; drawn from an offset
    // too, so that the stretches also fall across row ends.
    const int width = 700, height = 3;
    std::string bytes = TgaHeader(kTrueColor, width, height, 32, 0x10);
    for (int i = 0; i < width * height; ++i) {
        int column = i % width;
        BYTE alpha = column < 300 ? 0 : column < 600 ? 255 : BYTE(column * 11);
        bytes += PixelBytes({BYTE(i), BYTE(i / 3), BYTE(i * 7), alpha}, 32);
    }
    SkinImage image;
    ASSERT_EQ(DecodeBytes(image, bytes), S_OK);
    for (int sourceX : {0, 77}) {
        SCOPED_TRACE(testing::Message() << "source x " << sourceX);
        Canvas canvas(710, 5);
        DrawSkinImage(image, canvas.dc(), 4, 1, -1, -1, sourceX, 0, -1, -1);
        ExpectDrawn(canvas, image, 4, 1, width, height,
                    [&](int c, int r) { return r * static_cast<long long>(width) + c + sourceX; });
    }
}

TEST(SkinDraw, LimitsAndSourceOffsetsChooseThePlaneIndexes) {
    struct Case {
        int width, height, sourceX, sourceY, columnLimit, rowLimit;
        int columns, rows;  // what is drawn
    };
    const Case cases[] = {
        {4, -1, 1, 1, 3, 2, 3, 2},    // the smaller of width and column limit, of height and row limit
        {-1, 2, 0, 0, -1, -1, 5, 2},  // -1 width and limits: the picture's size
        {3, 9, 0, 0, 9, -1, 3, 4},    // -1 row limit: the picture's height
        {5, 4, 3, 0, -1, -1, 5, 4},   // columns past the right edge read on into the next row
        {5, 4, 0, 3, -1, -1, 5, 4},   // rows past the last one are left alone
        {5, 4, -2, 0, -1, -1, 5, 4},  // negative offsets: indexes before the picture left alone
        {5, 4, 0, -1, -1, -1, 5, 4},
        {0, 4, 0, 0, -1, -1, 0, 4},   // nothing to draw
        {5, 4, 0, 0, 5, 0, 5, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << "width " << c.width << " height " << c.height << " source " << c.sourceX
                                        << "," << c.sourceY << " limits " << c.columnLimit << "," << c.rowLimit);
        SkinImage image;
        MakePicture(image, 5, 4);
        Canvas canvas(12, 9);
        DrawSkinImage(image, canvas.dc(), 2, 1, c.width, c.height, c.sourceX, c.sourceY, c.columnLimit, c.rowLimit);
        ExpectDrawn(canvas, image, 2, 1, c.columns, c.rows,
                    [&](int column, int row) { return column + (row + c.sourceY) * 5LL + c.sourceX; });
    }
}

TEST(SkinDraw, ClippedAndOddSizedDrawsStayInPlace) {
    SkinImage image;
    MakePicture(image, 7, 3);
    Canvas canvas(9, 6);
    DrawSkinImage(image, canvas.dc(), 4, 4, -1, -1, 0, 0, -1, -1);  // runs off the canvas
    ExpectDrawn(canvas, image, 4, 4, 7, 3, [&](int c, int r) { return r * 7LL + c; });
}

TEST(SkinDraw, A24BitPictureCoversTheDestination) {
    SkinImage image;
    MakePicture(image, 3, 2, 24);
    Canvas canvas(5, 4);
    DrawSkinImage(image, canvas.dc(), 1, 1, -1, -1, 0, 0, -1, -1);
    for (int y = 0; y < 2; ++y)
        for (int x = 0; x < 3; ++x) EXPECT_EQ(canvas.at(1 + x, 1 + y), PixelAt(image, x, y));
    EXPECT_EQ(canvas.at(0, 0), canvas.original(0, 0));
}

TEST(SkinDraw, EmptyPicturesDrawNothing) {
    Canvas canvas(6, 6);
    SkinImage never;
    DrawSkinImage(never, canvas.dc(), 0, 0, -1, -1, 0, 0, -1, -1);
    DrawSkinImage(never, canvas.dc(), 0, 0, 4, 4, 0, 0, 4, 4);
    SkinImage failed;
    MakePicture(failed, 2, 2);
    EXPECT_EQ(DecodeBytes(failed, TgaHeader(kTrueColor, 2, 2, 32, 0)), E_FAIL);
    DrawSkinImage(failed, canvas.dc(), 0, 0, -1, -1, 0, 0, -1, -1);
    SkinImage noRows;
    ASSERT_EQ(DecodeBytes(noRows, TgaHeader(kRunLength, 4, 0, 32, 0)), S_OK);
    DrawSkinImage(noRows, canvas.dc(), 0, 0, -1, -1, 0, 0, -1, -1);
    EXPECT_TRUE(canvas.unchanged());
}

TEST(SkinDraw, TranslucentFillBlendsTheColourAtTheOpacity) {
    const COLORREF color = RGB(200, 100, 50);
    for (int opacity : {0, 1, 77, 128, 254, 255}) {
        SCOPED_TRACE(testing::Message() << "opacity " << opacity);
        Canvas canvas(10, 7);
        FillTranslucent(canvas.dc(), 2, 1, 5, 3, color, opacity);
        for (int y = 0; y < canvas.height(); ++y) {
            for (int x = 0; x < canvas.width(); ++x) {
                Rgba want = canvas.original(x, y);
                if (x >= 2 && x < 7 && y >= 1 && y < 4) want = Blended({200, 100, 50, BYTE(opacity)}, want);
                ASSERT_EQ(canvas.at(x, y), want) << x << "," << y;
            }
        }
    }
    Canvas canvas(4, 4);
    FillTranslucent(canvas.dc(), 0, 0, 0, 4, color, 255);
    FillTranslucent(canvas.dc(), 0, 0, 4, -1, color, 255);
    EXPECT_TRUE(canvas.unchanged());
}

}  // namespace
