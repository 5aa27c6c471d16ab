// Bitmap files checked whole before loading: every cut of a good file, headers that describe no
// picture, and seeded random damage; none may crash, and only whole files load.
#include <cstring>
#include <random>

#include "common/bitmap_bytes.h"
#include "common/test_support.h"
#include "images/bitmap_file.h"

namespace {

bool Whole(const std::string& bytes) {
    return IsWholeBitmapFile(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
}

void Put32(std::string& bytes, size_t at, int32_t value) { memcpy(&bytes[at], &value, 4); }

// An 8-bit picture whose colour table has `colours` entries (0: the full 256).
std::string Paletted(int colours) {
    std::string bytes = PlainBitmap(4, 2, 0).substr(0, 54);
    bytes[28] = 8;
    Put32(bytes, 46, colours);
    bytes += std::string((colours ? colours : 256) * 4, '\x7F') + std::string(8, '\0');
    Put32(bytes, 10, static_cast<int32_t>(bytes.size() - 8));
    return bytes;
}

TEST(BitmapFile, OnlyWholePicturesPass) {
    std::string good = PlainBitmap(13, 5, RGB(1, 2, 3));
    ASSERT_TRUE(Whole(good));
    for (size_t length = 0; length < good.size(); ++length) EXPECT_FALSE(Whole(good.substr(0, length))) << length;
    EXPECT_TRUE(Whole(Paletted(0)) && Whole(Paletted(2)));
    EXPECT_FALSE(Whole(Paletted(300))) << "more colours than 8 bits can name";

    struct Damage {
        size_t at;
        int32_t value;
        bool whole;
    } damages[] = {{22, -5, true},       // top-down rows
                   {18, 0, false},       // no width
                   {18, 5000, false},    // wider than any icon
                   {30, BI_RLE8, false}, // compressed
                   {28, 7, false},       // no such bit depth
                   {14, 20, false},      // an info header of no known size
                   {10, 40, false}};     // pixels inside the headers
    for (const Damage& damage : damages) {
        std::string bytes = good;
        if (damage.at == 28) bytes[28] = static_cast<char>(damage.value), bytes[29] = 0;
        else Put32(bytes, damage.at, damage.value);
        EXPECT_EQ(Whole(bytes), damage.whole) << "offset " << damage.at;
    }
}

TEST(BitmapFile, DamagedFilesNeitherCrashNorLoad) {
    ScratchFolder folder(L"bitmap_file");
    std::string good = PlainBitmap(12, 12, RGB(0, 255, 0));
    std::mt19937 random(20240611);
    int loaded = 0;
    for (int round = 0; round < 400; ++round) {
        std::string bytes = round % 2 ? good.substr(0, random() % good.size()) : good;
        for (int hits = random() % 4; hits-- > 0 && !bytes.empty();) bytes[random() % bytes.size()] = random() % 256;
        std::wstring path = folder.file(L"damaged.bmp");
        WriteBytes(path, bytes);
        HBITMAP bitmap = LoadCheckedBitmap(path.c_str());
        EXPECT_EQ(bitmap != nullptr, Whole(bytes)) << round;
        loaded += bitmap != nullptr;
        if (bitmap) DeleteObject(bitmap);
    }
    EXPECT_GT(loaded, 0) << "some damage leaves a whole picture";
    EXPECT_EQ(LoadCheckedBitmap(folder.file(L"missing.bmp").c_str()), nullptr);
}

}  // namespace
