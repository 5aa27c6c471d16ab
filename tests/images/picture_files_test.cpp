// Picture files: TGA decoding from hand-made and seeded random bytes, and the whole-file check of bitmaps.
#include <cstring>
#include <random>

#include "common/bitmap_bytes.h"
#include "images/bitmap_file.h"
#include "images/image_test_support.h"

namespace {

const Rgba kA = {10, 20, 30, 40}, kB = {50, 60, 70, 80}, kC = {90, 100, 110, 120}, kX = {200, 201, 202, 203};

// Runs of 128 filling every row: the fewest bytes that can hold a run-length picture.
std::string ShortestRunLength(int width, int height, int bits) {
    std::string bytes = TgaHeader(kRunLength, width, height, bits, 0);
    for (int y = 0; y < height; ++y)
        for (int left = width; left > 0; left -= 128) bytes += RunPacket(std::min(left, 128), kX, bits);
    return bytes;
}

TEST(TgaDecode, HandMadeBytesSizeLimitsAndRefusals) {
    std::string idAndMap = TgaHeader(kTrueColor, 1, 1, 32, 0, 255);
    for (int i = 3; i < 12; ++i) idAndMap[i] = '\x7F';  // the colour-map fields and the origin are ignored
    const std::pair<std::string, std::vector<Rgba>> cases[] = {  // bytes, the planes top row first
        {TgaHeader(kRunLength, 3, 2, 32, 0) + RawPacket({kA, kB, kC}, 32) + RunPacket(5, kX, 32),
         {kX, kX, kX, kX, kX, kC}},  // bottom row first; the run goes on into the row below
        {TgaHeader(kRunLength, 2, 2, 32, 0) + RunPacket(2, kA, 32) + RawPacket({kB, kC, kX}, 32),
         {kB, kC, kX, kA}},  // a raw packet runs on in the planes, over the row written first
        {TgaHeader(kTrueColor, 1, 2, 16, 0xCF) + PixelBytes(kA, 24) + PixelBytes(kB, 24), {Opaque(kB), Opaque(kA)}},
        {idAndMap + std::string(255, '\xEE') + PixelBytes(kB, 32), {kB}},
    };
    SkinImage image;
    for (const auto& c : cases)
        EXPECT_TRUE(DecodeBytes(image, c.first) == S_OK && Pixels(image) == c.second) << "case " << &c - cases;
    EXPECT_TRUE(DecodeBytes(image, ShortestRunLength(4096, 4096, 32)) == S_OK && PixelAt(image, 4095, 4095) == kX);
    EXPECT_TRUE(DecodeBytes(image, TgaHeader(kRunLength, 7, 0, 32, 0)) == S_OK && !image.hasPlanes() &&
                image.width == 7 && image.height == 0) << "no rows: the earlier planes are freed";
    for (int bits : {24, 32}) {
        std::string shortest = ShortestRunLength(256, 2, bits);
        EXPECT_TRUE(DecodeBytes(image, shortest) == S_OK && PixelAt(image, 255, 1) == (bits == 32 ? kX : Opaque(kX)));
        EXPECT_EQ(DecodeBytes(image, shortest.substr(0, shortest.size() - 1)), E_FAIL) << bits;
    }

    const std::string pixel = PixelBytes(kA, 32), good = TgaHeader(kTrueColor, 1, 1, 32, 0) + pixel;
    std::vector<std::string> refused = {  // data cut short: see the seeded random pictures below
        "", TgaHeader(kTrueColor, 1, 1, 32, 0, 0, 1) + pixel, TgaHeader(kTrueColor, 0, 0, 32, 0, 10) + "abc",
        TgaHeader(kRunLength, 65535, 65535, 32, 0) + RunPacket(128, kA, 32), ShortestRunLength(4097, 4096, 32)};
    for (int type : {0, 1, 3, 9, 11}) refused.push_back(TgaHeader(type, 1, 1, 32, 0) + pixel);
    for (const std::string& bytes : refused)
        EXPECT_TRUE(DecodeBytes(image, good) == S_OK && DecodeBytes(image, bytes) == E_FAIL && IsEmpty(image))
            << "case " << &bytes - refused.data();
}

// A well-formed picture; `planes` receives what it decodes to (packets run on past row ends).
std::string RandomPicture(std::mt19937& random, std::vector<Rgba>* planes, int width = -1, int height = -1) {
    auto below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    if (width < 0) width = below(5) == 0 ? below(300) : below(24);
    if (height < 0) height = below(5) == 0 ? below(4) : below(24);
    int type = below(2) ? kRunLength : kTrueColor, bits = below(4) == 0 ? below(256) : below(2) ? 32 : 24;
    int descriptor = below(256), idLength = below(3) == 0 ? below(30) : 0, pixelBits = bits == 32 ? 32 : 24;
    std::string bytes = TgaHeader(type, width, height, bits, descriptor, idLength) + std::string(idLength, 'i');
    planes->assign(width * height, Rgba{});
    auto any = [&] { return Rgba{BYTE(random()), BYTE(random()), BYTE(random()), BYTE(bits == 32 ? random() : 255)}; };
    for (int n = 0, count = 1; n < width * height; n += count) {
        count = type == kTrueColor ? 1 : below(3) == 0 ? below(128) + 1 : below(8) + 1;
        bool run = type == kRunLength && below(2);
        std::vector<Rgba> p;
        for (int k = 0; k < count; ++k) p.push_back(run && k ? p[0] : any());
        bytes += type == kTrueColor ? PixelBytes(p[0], pixelBits)
                 : run              ? RunPacket(count, p[0], pixelBits)
                                    : RawPacket(p, pixelBits);
        int y = n / width, at = ((descriptor & 0x10) ? y : height - 1 - y) * width + n % width;
        for (int k = 0; k < count && at + k < width * height; ++k) (*planes)[at + k] = p[k];
        if ((n + count) / width != y) count = (y + 1) * width - n;  // the next row starts anew
    }
    return bytes;
}

TEST(TgaDecode, FilesResourcesAndSeededRandomPicturesDecodeExactlyAndEveryFailureEmptiesTheImage) {
    std::mt19937 random(20240611);
    std::vector<Rgba> pixels;
    std::string packed = RandomPicture(random, &pixels, 301, 257);  // over 180 kB: packets straddle file blocks
    ScratchFolder folder(L"tga_paths");
    WriteBytes(folder.file(L"packed.tga"), packed);
    WriteBytes(folder.file(L"short.tga"), packed.substr(0, packed.size() - 1));
    ASSERT_TRUE(WriteModuleWithResources(folder.file(L"pictures.dll"), {{L"TARGA", L"PACKED", packed},
                                                                        {L"TARGA", L"BROKEN", packed.substr(0, 200)},
                                                                        {RT_RCDATA, L"WRONGTYPE", packed}}));
    Library module(LoadLibraryW(folder.file(L"pictures.dll").c_str()));
    ASSERT_TRUE(module);
    SkinImage image;
    auto file = [&](const wchar_t* name) { return LoadTgaFile(image, name ? folder.file(name).c_str() : nullptr); };
    auto resource = [&](const wchar_t* name) { return LoadTgaResource(image, module.get(), name); };
    auto holdsPicture = [&](HRESULT result) { return result == S_OK && image.width == 301 && Pixels(image) == pixels; };
    auto emptied = [&](HRESULT result) { return result == E_FAIL && IsEmpty(image); };
    EXPECT_TRUE(holdsPicture(file(L"packed.tga")));
    // Each failure follows a good load: the picture before is not kept.
    for (const wchar_t* name : {L"short.tga", L"missing.tga", L"", static_cast<const wchar_t*>(nullptr)})
        EXPECT_TRUE(holdsPicture(resource(L"PACKED")) && emptied(file(name))) << (name ? name : L"null");
    for (const wchar_t* name : {L"BROKEN", L"WRONGTYPE", L"MISSING", static_cast<const wchar_t*>(nullptr)})
        EXPECT_TRUE(holdsPicture(resource(L"PACKED")) && emptied(resource(name))) << (name ? name : L"null");
    EXPECT_TRUE(holdsPicture(resource(L"PACKED")) && emptied(DecodeTga(image, nullptr, 0)));

    // Every other picture is cut short. Memory input ends at an inaccessible page: no read past the data.
    const size_t capacity = 1 << 20;
    BYTE* base = static_cast<BYTE*>(VirtualAlloc(nullptr, capacity + 4096, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE));
    DWORD old;
    ASSERT_TRUE(base && VirtualProtect(base + capacity, 4096, PAGE_NOACCESS, &old));
    for (int n = 0; n < 4000; ++n) {
        std::vector<Rgba> planes;
        std::string bytes = RandomPicture(random, &planes);
        bool whole = n % 2 == 0;
        if (!whole) bytes.resize(random() % bytes.size());
        BYTE* placed = static_cast<BYTE*>(memcpy(base + capacity - bytes.size(), bytes.data(), bytes.size()));
        SkinImage image;
        ASSERT_EQ(DecodeTga(image, placed, bytes.size()), whole ? S_OK : E_FAIL) << "case " << n;
        ASSERT_TRUE(whole ? image.width == (BYTE(bytes[12]) | BYTE(bytes[13]) << 8) && Pixels(image) == planes
                          : IsEmpty(image)) << "case " << n;
    }
    VirtualFree(base, 0, MEM_RELEASE);
}

bool Whole(const std::string& bytes) {
    return IsWholeBitmapFile(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
}

TEST(BitmapFile, OnlyWholePicturesPassAndDamageNeitherCrashesNorLoads) {
    std::string good = PlainBitmap(13, 5, RGB(1, 2, 3));
    for (size_t length = 0; length <= good.size(); ++length)
        EXPECT_EQ(Whole(good.substr(0, length)), length == good.size()) << length;
    // offset, bytes, value, still whole: top-down, 16 bits; no width, too wide, compression, bit fields at 24 bits,
    // no known header size, pixels inside the headers, two planes, an unknown depth, more than 256 colours
    const int damages[][4] = {{22, 4, -5, 1}, {28, 2, 16, 1}, {18, 4, 0, 0},  {18, 4, 5000, 0}, {30, 4, BI_RLE8, 0},
                              {30, 4, BI_BITFIELDS, 0},       {14, 4, 20, 0}, {10, 4, 40, 0},   {26, 2, 2, 0},
                              {28, 2, 12, 0},                 {46, 4, 257, 0}};
    for (const auto& damage : damages) {
        std::string bytes = good;
        memcpy(&bytes[damage[0]], &damage[2], damage[1]);
        EXPECT_EQ(Whole(bytes), damage[3] == 1) << "offset " << damage[0] << " value " << damage[2];
    }
    for (int side : {4096, 4097})
        EXPECT_EQ(Whole(PlainBitmap(side, 1, 0)) + Whole(PlainBitmap(1, side, 0)), side == 4096 ? 2 : 0) << side;
    // The 12-byte header of the oldest format, 2 x 2 pixels at 24 bits with rows of 8 bytes.
    std::string core = std::string("BM\x2A\0\0\0\0\0\0\0\x1A\0\0\0\x0C\0\0\0\x02\0\x02\0\x01\0\x18\0", 26) + "pppp";
    core += std::string(12, 'p');
    EXPECT_TRUE(Whole(core) && !Whole(core.substr(0, 41)));

    ScratchFolder folder(L"bitmap_file");
    std::mt19937 random(20240611);
    for (int round = 0; round < 400; ++round) {  // seeded damage: a file loads exactly when it is whole
        std::string bytes = round % 2 ? good.substr(0, random() % good.size()) : good;
        for (int hits = random() % 4; hits-- > 0 && !bytes.empty();) bytes[random() % bytes.size()] = random() % 256;
        WriteBytes(folder.file(L"damaged.bmp"), bytes);
        Bitmap loaded(LoadCheckedBitmap(folder.file(L"damaged.bmp").c_str()));
        EXPECT_EQ(loaded.get() != nullptr, Whole(bytes)) << round;
    }
}

}  // namespace
