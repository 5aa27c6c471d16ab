// Bitmap files checked whole before loading: every cut of a good file, header fields that describe
// no picture, side limits, and seeded random damage; none may crash, and only whole files load.
#include <cstring>
#include <random>

#include "common/bitmap_bytes.h"
#include "common/test_support.h"
#include "images/bitmap_file.h"

namespace {

bool Whole(const std::string& bytes) {
    return IsWholeBitmapFile(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
}

TEST(BitmapFile, OnlyWholePicturesPassAndDamageNeitherCrashesNorLoads) {
    std::string good = PlainBitmap(13, 5, RGB(1, 2, 3));
    for (size_t length = 0; length <= good.size(); ++length)
        EXPECT_EQ(Whole(good.substr(0, length)), length == good.size()) << length;
    // offset, bytes, value, still whole: top-down rows, 16 bits (shorter rows); no width, too wide, compression,
    // bit fields at 24 bits, a header of no known size, pixels inside the headers, two planes, an unknown depth,
    // more than 256 colours
    const int damages[][4] = {{22, 4, -5, 1}, {28, 2, 16, 1}, {18, 4, 0, 0},  {18, 4, 5000, 0}, {30, 4, BI_RLE8, 0},
                              {30, 4, BI_BITFIELDS, 0},       {14, 4, 20, 0}, {10, 4, 40, 0},   {26, 2, 2, 0},
                              {28, 2, 12, 0},                 {46, 4, 257, 0}};
    for (const auto& damage : damages) {
        std::string bytes = good;
        memcpy(&bytes[damage[0]], &damage[2], damage[1]);
        EXPECT_EQ(Whole(bytes), damage[3] == 1) << "offset " << damage[0] << " value " << damage[2];
    }
    for (int side : {4096, 4097}) {
        EXPECT_EQ(Whole(PlainBitmap(side, 1, 0)), side == 4096) << side;
        EXPECT_EQ(Whole(PlainBitmap(1, side, 0)), side == 4096) << side;
    }
    // The 12-byte header of the oldest format, 2 x 2 pixels at 24 bits with rows of 8 bytes.
    std::string core = std::string("BM\x2A\0\0\0\0\0\0\0\x1A\0\0\0\x0C\0\0\0\x02\0\x02\0\x01\0\x18\0", 26);
    core += std::string(16, 'p');
    EXPECT_TRUE(Whole(core));
    EXPECT_FALSE(Whole(core.substr(0, 41)));

    ScratchFolder folder(L"bitmap_file");
    std::mt19937 random(20240611);
    int loaded = 0;
    for (int round = 0; round < 400; ++round) {
        std::string bytes = round % 2 ? good.substr(0, random() % good.size()) : good;
        for (int hits = random() % 4; hits-- > 0 && !bytes.empty();) bytes[random() % bytes.size()] = random() % 256;
        WriteBytes(folder.file(L"damaged.bmp"), bytes);
        HBITMAP bitmap = LoadCheckedBitmap(folder.file(L"damaged.bmp").c_str());
        EXPECT_EQ(bitmap != nullptr, Whole(bytes)) << round;
        loaded += bitmap != nullptr;
        if (bitmap) DeleteObject(bitmap);
    }
    EXPECT_GT(loaded, 0) << "some damage leaves a whole picture";
}

}  // namespace
