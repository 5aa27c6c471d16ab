// TGA decoding rules on hand-made files: row order, run-length packets across row ends, pixel
// sizes, refusals, and the file, resource and memory paths.
#include <string>
#include <vector>

#include "images/image_test_support.h"

namespace {

const Rgba kA = {10, 20, 30, 40};
const Rgba kB = {50, 60, 70, 80};
const Rgba kC = {90, 100, 110, 120};
const Rgba kX = {200, 201, 202, 203};
const Rgba kY = {1, 2, 3, 4};
const Rgba kZ = {250, 0, 128, 255};

TEST(TgaDecode, RunPacketPastTheRowEndIsWrittenIntoTheFollowingBytes) {
    // Bottom row first, 3 x 2: the file's first row lands in the last picture row, the second
    // row's run of 5 fills picture row 0 and carries 2 pixels on into the start of row 1.
    SkinImage image;
    std::string bytes = TgaHeader(kRunLength, 3, 2, 32, 0) + RawPacket({kA, kB, kC}, 32) + RunPacket(5, kX, 32);
    ASSERT_EQ(DecodeBytes(image, bytes), S_OK);
    EXPECT_EQ(PixelAt(image, 0, 0), kX);
    EXPECT_EQ(PixelAt(image, 2, 0), kX);
    EXPECT_EQ(PixelAt(image, 0, 1), kX) << "surplus of the run";
    EXPECT_EQ(PixelAt(image, 1, 1), kX) << "surplus of the run";
    EXPECT_EQ(PixelAt(image, 2, 1), kC);

    // A raw packet does the same.
    bytes = TgaHeader(kRunLength, 2, 2, 32, 0) + RunPacket(2, kA, 32) + RawPacket({kB, kC, kY}, 32);
    ASSERT_EQ(DecodeBytes(image, bytes), S_OK);
    EXPECT_EQ(PixelAt(image, 0, 0), kB);
    EXPECT_EQ(PixelAt(image, 1, 0), kC);
    EXPECT_EQ(PixelAt(image, 0, 1), kY) << "third pixel of the raw packet";
    EXPECT_EQ(PixelAt(image, 1, 1), kA);
}

TEST(TgaDecode, EveryRowStartsAtColumnZeroAfterACompletedPacket) {
    // Top row first, 2 x 2: the raw packet of 3 consumes all its pixels; row 1 then starts again
    // at column 0 with the next packet, overwriting the carried pixel.
    SkinImage image;
    std::string bytes = TgaHeader(kRunLength, 2, 2, 32, 0x10) + RawPacket({kA, kB, kC}, 32) +
                        RunPacket(1, kY, 32) + RunPacket(1, kZ, 32);
    ASSERT_EQ(DecodeBytes(image, bytes), S_OK);
    EXPECT_EQ(PixelAt(image, 0, 0), kA);
    EXPECT_EQ(PixelAt(image, 1, 0), kB);
    EXPECT_EQ(PixelAt(image, 0, 1), kY);
    EXPECT_EQ(PixelAt(image, 1, 1), kZ);
}

TEST(TgaDecode, PacketsPastTheLastRowStopAtTheEndOfThePlanes) {
    SkinImage image;
    // The last row of a top-first picture: runs and raw packets of 128 into a 1-pixel row.
    std::string bytes = TgaHeader(kRunLength, 1, 2, 32, 0x10) + RunPacket(1, kA, 32) + RunPacket(128, kB, 32);
    ASSERT_EQ(DecodeBytes(image, bytes), S_OK);
    EXPECT_EQ(PixelAt(image, 0, 0), kA);
    EXPECT_EQ(PixelAt(image, 0, 1), kB);

    std::vector<Rgba> many(128, kC);
    many[0] = kX;
    bytes = TgaHeader(kRunLength, 3, 1, 24, 0) + RawPacket(many, 24);
    ASSERT_EQ(DecodeBytes(image, bytes), S_OK);
    EXPECT_EQ(PixelAt(image, 0, 0), (Rgba{kX.r, kX.g, kX.b, 255}));
    EXPECT_EQ(PixelAt(image, 2, 0), (Rgba{kC.r, kC.g, kC.b, 255}));
}

TEST(TgaDecode, OnlyDescriptorBit4PutsTheTopRowFirst) {
    // Rows stored A then B.
    struct Case {
        int descriptor;
        Rgba top;
    };
    const Case cases[] = {{0x00, kB}, {0x20, kB}, {0x08, kB}, {0x28, kB}, {0xCF, kB},
                          {0x10, kA}, {0x30, kA}, {0x18, kA}, {0xFF, kA}};
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << "descriptor " << c.descriptor);
        SkinImage image;
        std::string stored = TgaHeader(kTrueColor, 1, 2, 32, c.descriptor) + PixelBytes(kA, 32) + PixelBytes(kB, 32);
        ASSERT_EQ(DecodeBytes(image, stored), S_OK);
        EXPECT_EQ(PixelAt(image, 0, 0), c.top);
        std::string packed = TgaHeader(kRunLength, 1, 2, 32, c.descriptor) + RunPacket(1, kA, 32) + RunPacket(1, kB, 32);
        ASSERT_EQ(DecodeBytes(image, packed), S_OK);
        EXPECT_EQ(PixelAt(image, 0, 0), c.top);
    }
}

TEST(TgaDecode, AnyDepthBut32IsReadAsOpaque24Bit) {
    for (int bits : {24, 16, 15, 8, 0, 33}) {
        SCOPED_TRACE(testing::Message() << bits << " bits");
        SkinImage image;
        std::string bytes = TgaHeader(kTrueColor, 2, 1, bits, 0x10) + PixelBytes(kA, 24) + PixelBytes(kX, 24);
        ASSERT_EQ(DecodeBytes(image, bytes), S_OK);
        EXPECT_EQ(PixelAt(image, 0, 0), (Rgba{kA.r, kA.g, kA.b, 255}));
        EXPECT_EQ(PixelAt(image, 1, 0), (Rgba{kX.r, kX.g, kX.b, 255}));
        bytes = TgaHeader(kRunLength, 2, 1, bits, 0x10) + RunPacket(1, kA, 24) + RawPacket({kX}, 24);
        ASSERT_EQ(DecodeBytes(image, bytes), S_OK);
        EXPECT_EQ(PixelAt(image, 0, 0), (Rgba{kA.r, kA.g, kA.b, 255}));
        EXPECT_EQ(PixelAt(image, 1, 0), (Rgba{kX.r, kX.g, kX.b, 255}));
    }
}

TEST(TgaDecode, IdFieldIsSkippedAndColourMapFieldsIgnored) {
    std::string header = TgaHeader(kTrueColor, 1, 1, 32, 0, 255);
    for (int i = 3; i < 12; ++i) header[i] = '\x7F';  // colour-map fields and origin
    SkinImage image;
    ASSERT_EQ(DecodeBytes(image, header + std::string(255, '\xEE') + PixelBytes(kB, 32)), S_OK);
    EXPECT_EQ(PixelAt(image, 0, 0), kB);
}

TEST(TgaDecode, EmptySizesSucceedWithoutPlanes) {
    SkinImage image;
    ASSERT_EQ(DecodeBytes(image, TgaHeader(kTrueColor, 1, 1, 32, 0) + PixelBytes(kA, 32)), S_OK);
    ASSERT_EQ(DecodeBytes(image, TgaHeader(kRunLength, 7, 0, 32, 0)), S_OK);
    EXPECT_FALSE(image.hasPlanes()) << "the earlier planes are freed";
    EXPECT_EQ(image.width, 7);
    EXPECT_EQ(image.height, 0);
    ASSERT_EQ(DecodeBytes(image, TgaHeader(kTrueColor, 0, 5, 24, 0)), S_OK);
    EXPECT_FALSE(image.hasPlanes());
}

TEST(TgaDecode, RefusalsLeaveAnEmptyImage) {
    const std::string pixel = PixelBytes(kA, 32);
    const std::string good = TgaHeader(kTrueColor, 1, 1, 32, 0) + pixel;
    struct Case {
        const char* what;
        std::string bytes;
    };
    std::vector<Case> cases = {
        {"no bytes", ""},
        {"header cut short", good.substr(0, 17)},
        {"colour map present", TgaHeader(kTrueColor, 1, 1, 32, 0, 0, 1) + pixel},
        {"colour-mapped type", TgaHeader(1, 1, 1, 32, 0) + pixel},
        {"grey type", TgaHeader(3, 1, 1, 32, 0) + pixel},
        {"run-length colour-mapped type", TgaHeader(9, 1, 1, 32, 0) + pixel},
        {"run-length grey type", TgaHeader(11, 1, 1, 32, 0) + pixel},
        {"no image type", TgaHeader(0, 1, 1, 32, 0) + pixel},
        {"last pixel byte missing", good.substr(0, good.size() - 1)},
        {"ID field longer than the file", TgaHeader(kTrueColor, 0, 0, 32, 0, 10) + "abc"},
        {"pixels cut by the ID field", TgaHeader(kTrueColor, 1, 1, 32, 0, 4) + pixel},
        {"run-length data ends before the last row", TgaHeader(kRunLength, 2, 3, 32, 0) + RunPacket(2, kA, 32) +
                                                          RunPacket(2, kA, 32) + RunPacket(1, kA, 32)},
        {"raw packet cut short", TgaHeader(kRunLength, 3, 1, 32, 0) + RawPacket({kA, kB, kC}, 32).substr(0, 10)},
        {"run pixel cut short", TgaHeader(kRunLength, 1, 2, 24, 0) + RawPacket({kA, kB}, 24) +
                                    RunPacket(1, kC, 24).substr(0, 3)},
        {"largest size with a tiny file", TgaHeader(kRunLength, 65535, 65535, 32, 0) + RunPacket(128, kA, 32)},
        {"largest size uncompressed", TgaHeader(kTrueColor, 65535, 65535, 24, 0) + std::string(4096, '\0')},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        SkinImage image;
        ASSERT_EQ(DecodeBytes(image, good), S_OK);
        EXPECT_EQ(DecodeBytes(image, c.bytes), E_FAIL);
        EXPECT_TRUE(IsEmpty(image));
    }
}

// 4097 x 4097 is over the pixel limit although the file holds enough packets for it.
TEST(TgaDecode, PictureOverThePixelLimitIsRefusedBeforeAllocating) {
    const int side = 4097;
    ASSERT_GT(static_cast<size_t>(side) * side, kMaxTgaPixels);
    std::string row;
    for (int left = side; left > 0; left -= 128) row += RunPacket(left < 128 ? left : 128, kA, 32);
    std::string body;
    body.reserve(row.size() * side);
    for (int y = 0; y < side; ++y) body += row;
    SkinImage image;
    EXPECT_EQ(DecodeBytes(image, TgaHeader(kRunLength, side, side, 32, 0) + body), E_FAIL);
    EXPECT_TRUE(IsEmpty(image));

    // 4096 x 4096 is exactly at the limit.
    body.clear();
    row.clear();
    for (int left = 4096; left > 0; left -= 128) row += RunPacket(128, kB, 32);
    for (int y = 0; y < 4096; ++y) body += row;
    ASSERT_EQ(DecodeBytes(image, TgaHeader(kRunLength, 4096, 4096, 32, 0) + body), S_OK);
    EXPECT_EQ(PixelAt(image, 4095, 4095), kB);
}

// Pixels with an index-derived colour, written as raw packets of varying lengths so that
// packets and pixels straddle the file reader's block boundaries.
std::string LargeRunLengthPicture(int width, int height, std::vector<Rgba>& pixels) {
    std::string bytes = TgaHeader(kRunLength, width, height, 32, 0x10);
    pixels.clear();
    int length = 1;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width;) {
            std::vector<Rgba> packet;
            for (int i = 0; i < length && x < width; ++i, ++x) {
                int n = y * width + x;
                packet.push_back({BYTE(n), BYTE(n >> 8), BYTE(n >> 16), BYTE(n * 7)});
            }
            bytes += RawPacket(packet, 32);
            pixels.insert(pixels.end(), packet.begin(), packet.end());
            length = (length * 37 + 11) % 128 + 1;
        }
    }
    return bytes;
}

TEST(TgaDecode, FileAndResourceGiveTheSamePicturesAsMemory) {
    ScratchFolder folder(L"tga_paths");
    std::vector<Rgba> pixels;
    std::string packed = LargeRunLengthPicture(301, 257, pixels);
    std::string stored = TgaHeader(kTrueColor, 301, 257, 32, 0x10);
    for (const Rgba& p : pixels) stored += PixelBytes(p, 32);
    ASSERT_GT(packed.size(), 4u * 65536);

    WriteBytes(folder.file(L"packed.tga"), packed);
    WriteBytes(folder.file(L"stored.tga"), stored);
    WriteBytes(folder.file(L"short.tga"), stored.substr(0, stored.size() - 1));
    std::wstring modulePath = folder.file(L"pictures.dll");
    ASSERT_TRUE(WriteModuleWithResources(modulePath, {{L"TARGA", L"PACKED", packed},
                                                      {L"TARGA", L"BROKEN", packed.substr(0, 200)},
                                                      {RT_RCDATA, L"WRONGTYPE", packed}}));
    HMODULE module = LoadLibraryW(modulePath.c_str());
    ASSERT_NE(module, nullptr);

    SkinImage image;
    auto expectPixels = [&](const char* what) {
        SCOPED_TRACE(what);
        ASSERT_EQ(image.width, 301);
        ASSERT_EQ(image.height, 257);
        for (size_t i = 0; i < pixels.size(); ++i) {
            if (!(PixelAt(image, int(i % 301), int(i / 301)) == pixels[i])) {
                FAIL() << "first difference at pixel " << i;
            }
        }
    };
    ASSERT_EQ(LoadTgaFile(image, folder.file(L"packed.tga").c_str()), S_OK);
    expectPixels("run-length file");
    ASSERT_EQ(LoadTgaFile(image, folder.file(L"stored.tga").c_str()), S_OK);
    expectPixels("uncompressed file");
    ASSERT_EQ(DecodeBytes(image, packed), S_OK);
    expectPixels("memory");
    ASSERT_EQ(LoadTgaResource(image, module, L"PACKED"), S_OK);
    expectPixels("resource");

    EXPECT_EQ(LoadTgaFile(image, folder.file(L"short.tga").c_str()), E_FAIL);
    EXPECT_TRUE(IsEmpty(image));
    EXPECT_EQ(LoadTgaFile(image, folder.file(L"missing.tga").c_str()), E_FAIL);
    EXPECT_EQ(LoadTgaFile(image, folder.path().c_str()), E_FAIL) << "a folder";
    EXPECT_EQ(LoadTgaResource(image, module, L"BROKEN"), E_FAIL);
    EXPECT_EQ(LoadTgaResource(image, module, L"WRONGTYPE"), E_FAIL);
    EXPECT_EQ(LoadTgaResource(image, module, L"MISSING"), E_FAIL);
    EXPECT_TRUE(IsEmpty(image));
    FreeLibrary(module);
}

}  // namespace
