// TGA decoding: hand-made bytes for packets across row ends, row order, pixel sizes, size limits and
// refusals; the file, resource and memory paths; seeded malformed pictures against a plain reader.
#include <functional>
#include <random>

#include "images/image_test_support.h"

namespace {

const Rgba kA = {10, 20, 30, 40}, kB = {50, 60, 70, 80}, kC = {90, 100, 110, 120}, kX = {200, 201, 202, 203};

// The planes, top row first.
std::vector<Rgba> Pixels(const SkinImage& image) {
    std::vector<Rgba> pixels;
    for (int i = 0; i < image.width * image.height; ++i) pixels.push_back(PixelAt(image, i % image.width, i / image.width));
    return pixels;
}

TEST(TgaDecode, PacketsRunOnPastRowEndsAndStopAtTheEndOfThePlanes) {
    std::vector<Rgba> many(128, kB);
    many[0] = kX, many[1] = kC;
    const std::pair<std::string, std::vector<Rgba>> cases[] = {  // bytes, the planes top row first
        {TgaHeader(kRunLength, 3, 2, 32, 0) + RawPacket({kA, kB, kC}, 32) + RunPacket(5, kX, 32), {kX, kX, kX, kX, kX, kC}},
        {TgaHeader(kRunLength, 2, 2, 32, 0) + RunPacket(2, kA, 32) + RawPacket({kB, kC, kX}, 32), {kB, kC, kX, kA}},
        {TgaHeader(kRunLength, 2, 2, 32, 0x10) + RawPacket({kA, kB, kC}, 32) + RunPacket(1, kX, 32) + RunPacket(1, kA, 32),
         {kA, kB, kX, kA}},  // each row starts again at column 0
        {TgaHeader(kRunLength, 1, 2, 32, 0x10) + RunPacket(1, kA, 32) + RunPacket(128, kB, 32), {kA, kB}},
        {TgaHeader(kRunLength, 2, 1, 24, 0) + RawPacket(many, 24), {Opaque(kX), Opaque(kC)}},
    };
    for (const auto& c : cases) {
        SkinImage image;
        ASSERT_EQ(DecodeBytes(image, c.first), S_OK);
        EXPECT_EQ(Pixels(image), c.second) << &c - cases;
    }
}

TEST(TgaDecode, OnlyDescriptorBit4PutsTheTopRowFirstAndOnly32BitsCarryAlpha) {
    for (int descriptor : {0x00, 0x20, 0x08, 0xCF, 0x10, 0x30, 0xFF}) {
        for (int bits : {32, 24, 16, 0, 31, 33}) {
            int stored = bits == 32 ? 32 : 24;
            Rgba a = bits == 32 ? kA : Opaque(kA), b = bits == 32 ? kB : Opaque(kB);
            std::vector<Rgba> top = (descriptor & 0x10) ? std::vector<Rgba>{a, b} : std::vector<Rgba>{b, a};
            SkinImage image;
            ASSERT_EQ(DecodeBytes(image, TgaHeader(kTrueColor, 1, 2, bits, descriptor) + PixelBytes(kA, stored) +
                                             PixelBytes(kB, stored)), S_OK);
            EXPECT_EQ(Pixels(image), top) << "descriptor " << descriptor << ", " << bits << " bits";
            ASSERT_EQ(DecodeBytes(image, TgaHeader(kRunLength, 1, 2, bits, descriptor) + RunPacket(1, kA, stored) +
                                             RawPacket({kB}, stored)), S_OK);
            EXPECT_EQ(Pixels(image), top) << "run-length, descriptor " << descriptor << ", " << bits << " bits";
        }
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
    EXPECT_EQ(Pixels(image), std::vector<Rgba>{kB});
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
    std::vector<std::string> refused = {
        "", good.substr(0, 17), good.substr(0, good.size() - 1), TgaHeader(kTrueColor, 1, 1, 32, 0, 0, 1) + pixel,
        TgaHeader(kTrueColor, 0, 0, 32, 0, 10) + "abc", TgaHeader(kTrueColor, 1, 1, 32, 0, 4) + pixel,
        TgaHeader(kRunLength, 2, 3, 32, 0) + RunPacket(2, kA, 32) + RunPacket(2, kA, 32) + RunPacket(1, kA, 32),
        TgaHeader(kRunLength, 3, 1, 32, 0) + RawPacket({kA, kB, kC}, 32).substr(0, 10),
        TgaHeader(kRunLength, 1, 2, 24, 0) + RawPacket({kA, kB}, 24) + RunPacket(1, kC, 24).substr(0, 3),
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
    auto file = [&](const wchar_t* name) { return folder.file(name); };
    WriteBytes(file(L"packed.tga"), packed);
    WriteBytes(file(L"stored.tga"), stored);
    WriteBytes(file(L"short.tga"), stored.substr(0, stored.size() - 1));
    ASSERT_TRUE(WriteModuleWithResources(file(L"pictures.dll"), {{L"TARGA", L"PACKED", packed},
                                                                 {L"TARGA", L"BROKEN", packed.substr(0, 200)},
                                                                 {RT_RCDATA, L"WRONGTYPE", packed}}));
    Library module(LoadLibraryW(file(L"pictures.dll").c_str()));
    ASSERT_TRUE(module);
    using Load = std::function<HRESULT(SkinImage&)>;
    const Load loads[] = {[&](SkinImage& i) { return LoadTgaFile(i, file(L"packed.tga").c_str()); },
                          [&](SkinImage& i) { return LoadTgaFile(i, file(L"stored.tga").c_str()); },
                          [&](SkinImage& i) { return DecodeBytes(i, packed); },
                          [&](SkinImage& i) { return LoadTgaResource(i, module.get(), L"PACKED"); }};
    const Load failures[] = {[&](SkinImage& i) { return LoadTgaFile(i, file(L"short.tga").c_str()); },
                             [&](SkinImage& i) { return LoadTgaFile(i, file(L"missing.tga").c_str()); },
                             [&](SkinImage& i) { return LoadTgaFile(i, folder.path().c_str()); },
                             [&](SkinImage& i) { return LoadTgaFile(i, nullptr); },
                             [&](SkinImage& i) { return DecodeTga(i, nullptr, 0); },
                             [&](SkinImage& i) { return LoadTgaResource(i, module.get(), L"BROKEN"); },
                             [&](SkinImage& i) { return LoadTgaResource(i, module.get(), L"WRONGTYPE"); },
                             [&](SkinImage& i) { return LoadTgaResource(i, module.get(), L"MISSING"); },
                             [&](SkinImage& i) { return LoadTgaResource(i, module.get(), nullptr); }};
    for (const Load& load : loads) {
        SkinImage image;
        ASSERT_EQ(load(image), S_OK) << "load " << &load - loads;
        EXPECT_TRUE(image.width == 301 && Pixels(image) == pixels) << "load " << &load - loads;
        for (const Load& failure : failures) {
            ASSERT_EQ(load(image), S_OK);
            EXPECT_EQ(failure(image), E_FAIL) << "failure " << &failure - failures;
            EXPECT_TRUE(IsEmpty(image)) << "failure " << &failure - failures << " after load " << &load - loads;
        }
    }
}

// The format read pixel by pixel, every byte checked; fills `pixels` only when given, so that a
// huge header over too little data costs no memory.
bool ReferenceDecode(const std::string& data, std::vector<Rgba>* pixels) {
    auto byte = [&](size_t i) { return static_cast<BYTE>(data[i]); };
    if (data.size() < 18 || byte(1) != 0 || (byte(2) != 2 && byte(2) != 10)) return false;
    size_t width = byte(12) | byte(13) << 8, height = byte(14) | byte(15) << 8, pixelBytes = byte(16) == 32 ? 4 : 3;
    size_t pos = 18 + byte(0);
    if (width * height > kMaxTgaPixels || pos > data.size()) return false;
    for (size_t y = 0; y < height; ++y) {
        size_t row = ((byte(17) & 0x10) ? y : height - 1 - y) * width;
        for (size_t column = 0; column < width;) {
            if (byte(2) == 10 && pos >= data.size()) return false;
            size_t packet = byte(2) == 10 ? byte(pos++) : 0x80;  // uncompressed: one pixel at a time
            Rgba p;
            for (size_t k = 0; k <= (packet & 127); ++k, ++column) {
                if (k == 0 || !(packet & 0x80)) {
                    if (data.size() - pos < pixelBytes) return false;
                    p = {byte(pos + 2), byte(pos + 1), byte(pos), pixelBytes == 4 ? byte(pos + 3) : BYTE(255)};
                    pos += pixelBytes;
                }
                if (pixels && row + column < width * height) (*pixels)[row + column] = p;
            }
        }
    }
    return true;
}

// A well-formed picture (run-length packets may run past row ends), then often damaged.
std::string RandomPicture(std::mt19937& random, bool damaged) {
    auto below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    auto anyPixel = [&] { return Rgba{BYTE(random()), BYTE(random()), BYTE(random()), BYTE(random())}; };
    int width = below(5) == 0 ? below(300) : below(24), height = below(5) == 0 ? below(4) : below(24);
    int type = below(2) ? kRunLength : kTrueColor, bits = below(4) == 0 ? below(256) : below(2) ? 32 : 24;
    int pixelBits = bits == 32 ? 32 : 24, idLength = below(3) == 0 ? below(30) : 0;
    std::string bytes = TgaHeader(type, width, height, bits, below(256), idLength) + std::string(idLength, 'i');
    for (int n = 0, count = 1; n < width * height; n += count) {
        count = type == kTrueColor ? 1 : below(3) == 0 ? below(128) + 1 : below(8) + 1;
        std::vector<Rgba> raw(static_cast<size_t>(count));
        for (Rgba& p : raw) p = anyPixel();
        bytes += type == kTrueColor ? PixelBytes(raw[0], pixelBits) : below(2) ? RunPacket(count, raw[0], pixelBits)
                                                                              : RawPacket(raw, pixelBits);
        if ((n + count) / width != n / width) count = (n / width + 1) * width - n;  // the next row starts anew
    }
    for (int k = damaged ? below(3) : -1; k >= 0; --k) {
        size_t at = below(6) == 0 ? below(static_cast<int>(bytes.size()) + 1) : "\0\1\2\14\15\16\17\20"[below(8)];
        if (below(4) == 0) bytes.resize(std::min(bytes.size(), at));
        else if (below(3) == 0) bytes += RunPacket(128, anyPixel(), 32) + RunPacket(128, anyPixel(), 32);
        else if (at < bytes.size()) bytes[at] = below(2) ? char(below(256)) : "\0\2\12\30\40\377"[below(6)];
    }
    return bytes;
}

::testing::AssertionResult SameAsReference(HRESULT result, const SkinImage& image, const std::string& bytes) {
    if (!ReferenceDecode(bytes, nullptr)) {
        if (result == E_FAIL && IsEmpty(image)) return ::testing::AssertionSuccess();
        return ::testing::AssertionFailure() << "the reference refuses; result " << result;
    }
    int width = BYTE(bytes[12]) | BYTE(bytes[13]) << 8, height = BYTE(bytes[14]) | BYTE(bytes[15]) << 8;
    std::vector<Rgba> want(static_cast<size_t>(width) * height);
    ReferenceDecode(bytes, &want);
    if (result == S_OK && image.width == width && image.height == height && (want.empty() || Pixels(image) == want))
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "result " << result << ", size " << image.width << "x" << image.height;
}

// Memory input ends at an inaccessible page, so a read past the data stops the test.
TEST(TgaDecode, SeededMalformedPicturesFailCleanlyOrDecodeLikeAPlainReader) {
    const size_t capacity = 1 << 20;
    BYTE* base = static_cast<BYTE*>(VirtualAlloc(nullptr, capacity + 4096, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE));
    DWORD old;
    ASSERT_TRUE(base && VirtualProtect(base + capacity, 4096, PAGE_NOACCESS, &old));
    ScratchFolder folder(L"tga_robustness");
    std::mt19937 random(20240611);
    const int cases = 4000;
    int accepted = 0;
    for (int n = 0; n < cases; ++n) {
        std::string bytes = RandomPicture(random, n % 8 != 0);
        accepted += ReferenceDecode(bytes, nullptr);
        SkinImage image;
        BYTE* placed = base + capacity - bytes.size();
        memcpy(placed, bytes.data(), bytes.size());
        ASSERT_TRUE(SameAsReference(DecodeTga(image, placed, bytes.size()), image, bytes)) << "case " << n;
        if (n % 20 != 0) continue;
        WriteBytes(folder.file(L"case.tga"), bytes);
        ASSERT_TRUE(SameAsReference(LoadTgaFile(image, folder.file(L"case.tga").c_str()), image, bytes)) << "file " << n;
    }
    VirtualFree(base, 0, MEM_RELEASE);
    EXPECT_GT(accepted, cases / 5);
    EXPECT_LT(accepted, cases * 4 / 5);
}

}  // namespace
