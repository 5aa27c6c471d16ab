// Finding a skin picture (folder TGA, folder bitmaps, TARGA resource, bitmap resource) and
// drawing a bitmap with its key colour transparent.
#include <string>
#include <vector>

#include "images/image_test_support.h"

namespace {

const COLORREF kKey = RGB(255, 0, 255);
const int kBitmapId = 101;

// A 24-bit bitmap, rows given top first; with the file header for a .bmp file, without it for
// a bitmap resource.
std::string BitmapBytes(int width, int height, const std::vector<COLORREF>& pixels, bool fileHeader) {
    int stride = (width * 3 + 3) & ~3;
    BITMAPINFOHEADER info = {};
    info.biSize = sizeof info;
    info.biWidth = width;
    info.biHeight = height;
    info.biPlanes = 1;
    info.biBitCount = 24;
    info.biSizeImage = static_cast<DWORD>(stride * height);
    std::string bits(static_cast<size_t>(stride) * height, '\0');
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            COLORREF c = pixels[static_cast<size_t>(y) * width + x];
            char* p = &bits[static_cast<size_t>(height - 1 - y) * stride + x * 3];
            p[0] = static_cast<char>(GetBValue(c));
            p[1] = static_cast<char>(GetGValue(c));
            p[2] = static_cast<char>(GetRValue(c));
        }
    }
    std::string bytes;
    if (fileHeader) {
        BITMAPFILEHEADER file = {};
        file.bfType = 0x4D42;
        file.bfOffBits = sizeof(BITMAPFILEHEADER) + sizeof(BITMAPINFOHEADER);
        file.bfSize = static_cast<DWORD>(file.bfOffBits + bits.size());
        bytes.append(reinterpret_cast<const char*>(&file), sizeof file);
    }
    bytes.append(reinterpret_cast<const char*>(&info), sizeof info);
    return bytes + bits;
}

std::string PlainBitmap(int width, int height, COLORREF color, bool fileHeader) {
    return BitmapBytes(width, height, std::vector<COLORREF>(static_cast<size_t>(width) * height, color), fileHeader);
}

std::string OpaqueTga(int width, int height) {
    std::string bytes = TgaHeader(kTrueColor, width, height, 32, 0x10);
    for (int i = 0; i < width * height; ++i) bytes += PixelBytes({1, 2, 3, 255}, 32);
    return bytes;
}

enum class Found { kNothing, kPlanes, kBitmap };

struct Outcome {
    Found found;
    int width;
    int height;
};

Outcome Describe(const SkinImage& image) {
    if (image.hasPlanes()) return {Found::kPlanes, image.width, image.height};
    if (image.bitmap) return {Found::kBitmap, image.bitmapWidth, image.bitmapHeight};
    return {Found::kNothing, 0, 0};
}

::testing::AssertionResult Loaded(const SkinImage& image, Found found, int width, int height) {
    Outcome got = Describe(image);
    if (got.found == found && got.width == width && got.height == height) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "found kind " << static_cast<int>(got.found) << " of " << got.width << "x"
                                         << got.height << ", expected kind " << static_cast<int>(found) << " of "
                                         << width << "x" << height;
}

class SkinLoad : public ::testing::Test {
protected:
    SkinLoad() : folder_(L"skin_load") {}

    void SetUp() override {
        WriteBytes(file(L"pic.tga"), OpaqueTga(2, 2));
        WriteBytes(file(L"pic.bmp"), PlainBitmap(3, 2, RGB(10, 20, 30), true));
        WriteBytes(file(L"pic_high.bmp"), PlainBitmap(5, 4, RGB(40, 50, 60), true));
        std::wstring modulePath = file(L"skin.dll");
        ASSERT_TRUE(WriteModuleWithResources(
            modulePath, {{L"TARGA", L"PIC", OpaqueTga(4, 1)},
                         {RT_BITMAP, MAKEINTRESOURCEW(kBitmapId), PlainBitmap(6, 3, RGB(70, 80, 90), false)}}));
        module_ = LoadLibraryW(modulePath.c_str());
        ASSERT_NE(module_, nullptr);
    }
    void TearDown() override {
        if (module_) FreeLibrary(module_);
    }

    std::wstring file(const wchar_t* name) const { return folder_.file(name); }
    const wchar_t* folder() const { return folder_.path().c_str(); }
    HMODULE module() const { return module_; }

private:
    ScratchFolder folder_;
    HMODULE module_ = nullptr;
};

TEST_F(SkinLoad, FolderFilesComeBeforeResourcesInTheirOrder) {
    SkinImage image;
    EXPECT_TRUE(LoadSkinImage(image, folder(), L"pic", module(), L"PIC", kBitmapId, kKey, true));
    EXPECT_TRUE(Loaded(image, Found::kPlanes, 2, 2)) << "the folder's TGA first";
    EXPECT_EQ(image.keyColor, kKey);

    WriteBytes(file(L"pic.tga"), TgaHeader(1, 2, 2, 32, 0));
    EXPECT_TRUE(LoadSkinImage(image, folder(), L"pic", module(), L"PIC", kBitmapId, RGB(1, 2, 3), true));
    EXPECT_TRUE(Loaded(image, Found::kBitmap, 3, 2)) << "a TGA that does not decode gives way to the bitmap";
    EXPECT_EQ(image.keyColor, RGB(1, 2, 3));

    DeleteFileW(file(L"pic.tga").c_str());
    DeleteFileW(file(L"pic.bmp").c_str());
    EXPECT_TRUE(LoadSkinImage(image, folder(), L"pic", module(), L"PIC", kBitmapId, kKey, true));
    EXPECT_TRUE(Loaded(image, Found::kBitmap, 5, 4)) << "the high-resolution bitmap when allowed";
    EXPECT_TRUE(LoadSkinImage(image, folder(), L"pic", module(), L"PIC", kBitmapId, kKey, false));
    EXPECT_TRUE(Loaded(image, Found::kPlanes, 4, 1)) << "not allowed: the TARGA resource";

    DeleteFileW(file(L"pic_high.bmp").c_str());
    EXPECT_TRUE(LoadSkinImage(image, folder(), L"pic", module(), L"PIC", kBitmapId, kKey, true));
    EXPECT_TRUE(Loaded(image, Found::kPlanes, 4, 1));
}

TEST_F(SkinLoad, EmptyFolderAndMissingResourcesFallThrough) {
    SkinImage image;
    EXPECT_TRUE(LoadSkinImage(image, L"", L"pic", module(), L"PIC", kBitmapId, kKey, true));
    EXPECT_TRUE(Loaded(image, Found::kPlanes, 4, 1)) << "an empty folder skips the files";
    EXPECT_TRUE(LoadSkinImage(image, nullptr, L"pic", module(), nullptr, kBitmapId, kKey, true));
    EXPECT_TRUE(Loaded(image, Found::kBitmap, 6, 3)) << "no resource name: the bitmap id";
    EXPECT_TRUE(LoadSkinImage(image, folder(), L"other", module(), L"OTHER", kBitmapId, kKey, true));
    EXPECT_TRUE(Loaded(image, Found::kBitmap, 6, 3)) << "nothing of that name: the bitmap id";

    EXPECT_FALSE(LoadSkinImage(image, folder(), L"other", module(), L"OTHER", -1, kKey, true));
    EXPECT_TRUE(Loaded(image, Found::kNothing, 0, 0)) << "the previous bitmap is gone";
    EXPECT_TRUE(IsEmpty(image));
    EXPECT_FALSE(LoadSkinImage(image, folder(), L"other", module(), L"", 999, kKey, true));
    EXPECT_TRUE(Loaded(image, Found::kNothing, 0, 0));
}

TEST_F(SkinLoad, LoadingAPictureReplacesTheOneBefore) {
    SkinImage image;
    ASSERT_TRUE(LoadSkinImage(image, nullptr, nullptr, module(), nullptr, kBitmapId, kKey, false));
    ASSERT_TRUE(LoadSkinImage(image, folder(), L"pic", module(), nullptr, -1, kKey, false));
    EXPECT_TRUE(Loaded(image, Found::kPlanes, 2, 2));
    EXPECT_EQ(image.bitmap, nullptr) << "the bitmap from before is released";
}

TEST_F(SkinLoad, BitmapIsDrawnAtItsOwnSizeWithTheKeyColourTransparent) {
    const COLORREF a = RGB(200, 10, 10), b = RGB(10, 200, 10);
    std::vector<COLORREF> pixels = {a, kKey, b, a,  //
                                    kKey, b, a, kKey,  //
                                    b, a, kKey, b};
    WriteBytes(file(L"keyed.bmp"), BitmapBytes(4, 3, pixels, true));
    SkinImage image;
    ASSERT_TRUE(LoadSkinImage(image, folder(), L"keyed", nullptr, nullptr, -1, kKey, false));
    ASSERT_TRUE(Loaded(image, Found::kBitmap, 4, 3));

    Canvas canvas(9, 7);
    DrawSkinImage(image, canvas.dc(), 2, 1, 1, 1, 0, 0, 1, 1);  // sizes and limits do not apply
    for (int y = 0; y < canvas.height(); ++y) {
        for (int x = 0; x < canvas.width(); ++x) {
            Rgba want = canvas.original(x, y);
            int bx = x - 2, by = y - 1;
            if (bx >= 0 && bx < 4 && by >= 0 && by < 3 && pixels[by * 4 + bx] != kKey) {
                COLORREF c = pixels[by * 4 + bx];
                want = {GetRValue(c), GetGValue(c), GetBValue(c), 255};
            }
            ASSERT_EQ(canvas.at(x, y), want) << x << "," << y;
        }
    }
}

}  // namespace
