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

TEST(BitmapFile, OnlyWholePicturesPassAndDamageNeitherCrashesNorLoads) {
    std::string good = PlainBitmap(13, 5, RGB(1, 2, 3));
    ASSERT_TRUE(Whole(good));
    for (size_t length = 0; length < good.size(); ++length) EXPECT_FALSE(Whole(good.substr(0, length))) << length;
    // top-down rows pass; no width, a huge width, compression, a header of no known size, pixels
    // inside the headers do not
    const std::pair<size_t, int32_t> damages[] = {{22, -5}, {18, 0}, {18, 5000}, {30, BI_RLE8}, {14, 20}, {10, 40}};
    for (const auto& damage : damages) {
        std::string bytes = good;
        memcpy(&bytes[damage.first], &damage.second, 4);
        EXPECT_EQ(Whole(bytes), damage.second == -5) << "offset " << damage.first;
    }

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
