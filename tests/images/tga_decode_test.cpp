// TGA decoding: hand-made bytes for every encoding, row order, packets across row ends, size limits
// and refusals; the file, resource and memory paths; seeded random pictures, whole and cut short.
#include <functional>
#include <random>

#include "images/image_test_support.h"

namespace {

const Rgba kA = {10, 20, 30, 40}, kB = {50, 60, 70, 80}, kC = {90, 100, 110, 120}, kX = {200, 201, 202, 203};

TEST(TgaDecode, EncodingsRowOrderAndPacketsAcrossRowEnds) {
    std::vector<Rgba> many(128, kB);
    many[0] = kX, many[1] = kC;
    const std::pair<std::string, std::vector<Rgba>> cases[] = {  // bytes, the planes top row first
        {TgaHeader(kRunLength, 3, 2, 32, 0) + RawPacket({kA, kB, kC}, 32) + RunPacket(5, kX, 32),
         {kX, kX, kX, kX, kX, kC}},  // bottom row first; the run goes on into the row below
        {TgaHeader(kRunLength, 2, 2, 32, 0) + RunPacket(2, kA, 32) + RawPacket({kB, kC, kX}, 32), {kB, kC, kX, kA}},
        {TgaHeader(kRunLength, 2, 2, 32, 0x10) + RawPacket({kA, kB, kC}, 32) + RunPacket(1, kX, 32) +
             RunPacket(1, kA, 32), {kA, kB, kX, kA}},  // each row starts again at column 0
        {TgaHeader(kRunLength, 1, 2, 32, 0x10) + RunPacket(1, kA, 32) + RunPacket(128, kB, 32), {kA, kB}},
        {TgaHeader(kRunLength, 2, 1, 24, 0) + RawPacket(many, 24), {Opaque(kX), Opaque(kC)}},
        {TgaHeader(kRunLength, 1, 2, 24, 0x08) + RunPacket(1, kA, 24) + RawPacket({kB}, 24), {Opaque(kB), Opaque(kA)}},
        {TgaHeader(kTrueColor, 1, 2, 32, 0x20) + PixelBytes(kA, 32) + PixelBytes(kB, 32), {kB, kA}},  // bottom first
        {TgaHeader(kTrueColor, 1, 2, 32, 0x30) + PixelBytes(kA, 32) + PixelBytes(kB, 32), {kA, kB}},
        {TgaHeader(kTrueColor, 1, 2, 16, 0xCF) + PixelBytes(kA, 24) + PixelBytes(kB, 24), {Opaque(kB), Opaque(kA)}},
    };
    for (const auto& c : cases) {
        SkinImage image;
        ASSERT_EQ(DecodeBytes(image, c.first), S_OK) << "case " << &c - cases;
        EXPECT_TRUE(Pixels(image) == c.second) << "case " << &c - cases;
    }
}

// Runs of 128 filling every row: the fewest bytes that can hold a run-length picture.
std::string ShortestRunLength(int width, int height, int bits) {
    std::string bytes = TgaHeader(kRunLength, width, height, bits, 0);
    for (int y = 0; y < height; ++y)
        for (int left = width; left > 0; left -= 128) bytes += RunPacket(std::min(left, 128), kX, bits);
    return bytes;
}

TEST(TgaDecode, HeaderFieldsSizeLimitsAndRefusals) {
    SkinImage image;
    std::string header = TgaHeader(kTrueColor, 1, 1, 32, 0, 255);
    for (int i = 3; i < 12; ++i) header[i] = '\x7F';  // colour-map specification and origin are ignored
    ASSERT_EQ(DecodeBytes(image, header + std::string(255, '\xEE') + PixelBytes(kB, 32)), S_OK);
    EXPECT_TRUE(Pixels(image) == std::vector<Rgba>{kB});
    ASSERT_EQ(DecodeBytes(image, TgaHeader(kRunLength, 7, 0, 32, 0)), S_OK);
    EXPECT_TRUE(!image.hasPlanes() && image.width == 7 && image.height == 0) << "the earlier planes are freed";
    for (int bits : {24, 32}) {
        std::string shortest = ShortestRunLength(256, 2, bits);
        ASSERT_EQ(DecodeBytes(image, shortest), S_OK) << bits;
        EXPECT_EQ(PixelAt(image, 255, 1), bits == 32 ? kX : Opaque(kX));
        EXPECT_EQ(DecodeBytes(image, shortest.substr(0, shortest.size() - 1)), E_FAIL) << bits;
    }
    ASSERT_EQ(DecodeBytes(image, ShortestRunLength(4096, 4096, 32)), S_OK) << "exactly the pixel limit";
    EXPECT_EQ(PixelAt(image, 4095, 4095), kX);

    const std::string pixel = PixelBytes(kA, 32), good = TgaHeader(kTrueColor, 1, 1, 32, 0) + pixel;
    std::vector<std::string> refused = {  // data cut short: see the seeded random pictures below
        "", TgaHeader(kTrueColor, 1, 1, 32, 0, 0, 1) + pixel, TgaHeader(kTrueColor, 0, 0, 32, 0, 10) + "abc",
        TgaHeader(kRunLength, 65535, 65535, 32, 0) + RunPacket(128, kA, 32), ShortestRunLength(4097, 4096, 32)};
    for (int type : {0, 1, 3, 9, 11}) refused.push_back(TgaHeader(type, 1, 1, 32, 0) + pixel);
    for (const std::string& bytes : refused) {
        ASSERT_EQ(DecodeBytes(image, good), S_OK);
        EXPECT_EQ(DecodeBytes(image, bytes), E_FAIL) << "case " << &bytes - refused.data();
        EXPECT_TRUE(IsEmpty(image)) << "case " << &bytes - refused.data();
    }
}

TEST(TgaDecode, FileResourceAndMemoryGiveTheSamePictureAndEveryFailureEmptiesTheImage) {
    // 301 x 257 in raw packets of varying lengths, so that packets and pixels straddle file blocks.
    std::vector<Rgba> pixels;
    std::string packed = TgaHeader(kRunLength, 301, 257, 32, 0x10), stored = TgaHeader(kTrueColor, 301, 257, 32, 0x10);
    for (int n = 0, length = 1; n < 301 * 257; length = (length * 37 + 11) % 128 + 1) {
        std::vector<Rgba> packet;
        for (int end = std::min(n + length, (n / 301 + 1) * 301); n < end; ++n)
            packet.push_back({BYTE(n), BYTE(n >> 8), BYTE(n >> 16), BYTE(n * 7)});
        packed += RawPacket(packet, 32);
        pixels.insert(pixels.end(), packet.begin(), packet.end());
    }
    for (const Rgba& p : pixels) stored += PixelBytes(p, 32);
    ScratchFolder folder(L"tga_paths");
    WriteBytes(folder.file(L"packed.tga"), packed);
    WriteBytes(folder.file(L"stored.tga"), stored);
    WriteBytes(folder.file(L"short.tga"), stored.substr(0, stored.size() - 1));
    ASSERT_TRUE(WriteModuleWithResources(folder.file(L"pictures.dll"), {{L"TARGA", L"PACKED", packed},
                                                                        {L"TARGA", L"BROKEN", packed.substr(0, 200)},
                                                                        {RT_RCDATA, L"WRONGTYPE", packed}}));
    Library module(LoadLibraryW(folder.file(L"pictures.dll").c_str()));
    ASSERT_TRUE(module);
    using Load = std::function<HRESULT(SkinImage&)>;
    auto file = [&](const wchar_t* name) -> Load {
        return [&, name](SkinImage& i) { return LoadTgaFile(i, name ? folder.file(name).c_str() : nullptr); };
    };
    auto resource = [&](const wchar_t* name) -> Load {
        return [&, name](SkinImage& i) { return LoadTgaResource(i, module.get(), name); };
    };
    const Load loads[] = {file(L"packed.tga"), file(L"stored.tga"), resource(L"PACKED"),
                          [&](SkinImage& i) { return DecodeBytes(i, packed); }};
    const Load failures[] = {file(L"short.tga"), file(L"missing.tga"), file(L""), file(nullptr), resource(L"BROKEN"),
                             resource(L"WRONGTYPE"), resource(L"MISSING"), resource(nullptr),
                             [](SkinImage& i) { return DecodeTga(i, nullptr, 0); }};
    SkinImage image;
    for (const Load& load : loads) {
        ASSERT_EQ(load(image), S_OK) << "load " << &load - loads;
        EXPECT_TRUE(image.width == 301 && Pixels(image) == pixels) << "load " << &load - loads;
    }
    for (const Load& failure : failures) {
        EXPECT_EQ(failure(image), E_FAIL) << "failure " << &failure - failures;
        EXPECT_TRUE(IsEmpty(image)) << "failure " << &failure - failures << " leaves the picture before";
        ASSERT_EQ(loads[2](image), S_OK);
    }
}

// A well-formed picture; `planes` receives what it decodes to: run-length packets run on past row
// ends, and what runs past the last row is dropped.
std::string RandomPicture(std::mt19937& random, std::vector<Rgba>* planes) {
    auto below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    int width = below(5) == 0 ? below(300) : below(24), height = below(5) == 0 ? below(4) : below(24);
    int type = below(2) ? kRunLength : kTrueColor, bits = below(4) == 0 ? below(256) : below(2) ? 32 : 24;
    int descriptor = below(256), idLength = below(3) == 0 ? below(30) : 0, pixelBits = bits == 32 ? 32 : 24;
    std::string bytes = TgaHeader(type, width, height, bits, descriptor, idLength) + std::string(idLength, 'i');
    planes->assign(width * height, Rgba{});
    for (int n = 0, count = 1; n < width * height; n += count) {
        count = type == kTrueColor ? 1 : below(3) == 0 ? below(128) + 1 : below(8) + 1;
        bool run = type == kRunLength && below(2);
        std::vector<Rgba> p;
        for (int k = 0; k < count; ++k) {
            Rgba fresh = {BYTE(random()), BYTE(random()), BYTE(random()), BYTE(bits == 32 ? random() : 255)};
            p.push_back(run && k ? p[0] : fresh);
        }
        bytes += type == kTrueColor ? PixelBytes(p[0], pixelBits)
                 : run              ? RunPacket(count, p[0], pixelBits)
                                    : RawPacket(p, pixelBits);
        int y = n / width, at = ((descriptor & 0x10) ? y : height - 1 - y) * width + n % width;
        for (int k = 0; k < count && at + k < width * height; ++k) (*planes)[at + k] = p[k];
        if ((n + count) / width != y) count = (y + 1) * width - n;  // the next row starts anew
    }
    return bytes;
}

// Every other picture is cut short at a random length. Memory input ends at an inaccessible page,
// so a read past the data stops the test.
TEST(TgaDecode, SeededRandomPicturesDecodeExactlyAndCutOnesFailCleanly) {
    const size_t capacity = 1 << 20;
    BYTE* base = static_cast<BYTE*>(VirtualAlloc(nullptr, capacity + 4096, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE));
    DWORD old;
    ASSERT_TRUE(base && VirtualProtect(base + capacity, 4096, PAGE_NOACCESS, &old));
    ScratchFolder folder(L"tga_random");
    std::mt19937 random(20240611);
    for (int n = 0; n < 4000; ++n) {
        std::vector<Rgba> planes;
        std::string bytes = RandomPicture(random, &planes);
        bool whole = n % 2 == 0;
        if (!whole) bytes.resize(random() % bytes.size());
        BYTE* placed = static_cast<BYTE*>(memcpy(base + capacity - bytes.size(), bytes.data(), bytes.size()));
        if (n % 10 == 1 || n % 10 == 2) WriteBytes(folder.file(L"case.tga"), bytes);
        SkinImage image;
        HRESULT result = n % 10 == 1 || n % 10 == 2 ? LoadTgaFile(image, folder.file(L"case.tga").c_str())
                                                    : DecodeTga(image, placed, bytes.size());
        ASSERT_EQ(result, whole ? S_OK : E_FAIL) << "case " << n;
        ASSERT_TRUE(whole ? image.width == (BYTE(bytes[12]) | BYTE(bytes[13]) << 8) && Pixels(image) == planes
                          : IsEmpty(image)) << "case " << n;
    }
    VirtualFree(base, 0, MEM_RELEASE);
}

}  // namespace
