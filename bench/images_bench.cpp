// Skin pictures: decoding a large run-length TGA beside stb_image, and alpha-blending a large
// picture beside GDI's AlphaBlend of the same pixels.
#define STB_IMAGE_IMPLEMENTATION
#define STBI_ONLY_TGA
#include <stb_image.h>

#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "bench_harness.h"
#include "images/skin_image.h"
#include "support/handles.h"

namespace {

const int kDecodeSide = 2048;
const int kBlendSide = 1024;

struct Bgra {
    BYTE b, g, r, a;
    bool operator==(const Bgra& o) const { return b == o.b && g == o.g && r == o.r && a == o.a; }
};

// A skin-like picture: flat stretches of one colour beside gradients, alpha of every kind.
Bgra SkinPixel(int x, int y) {
    int band = (x / 96 + y / 80) % 4;
    if (band == 0) return {40, 90, 200, 255};
    if (band == 1) return {0, 0, 0, 0};
    BYTE alpha = band == 2 ? static_cast<BYTE>((x + y) & 0xFF) : 255;
    return {static_cast<BYTE>(x * 3 + y), static_cast<BYTE>(x ^ y), static_cast<BYTE>(y * 5), alpha};
}

void AppendPixel(std::string& out, const Bgra& p) { out.append(reinterpret_cast<const char*>(&p), 4); }

// Run-length encodes one row: runs of 2 or more equal pixels, raw packets for the rest.
void EncodeRow(std::string& out, const std::vector<Bgra>& row) {
    size_t x = 0;
    while (x < row.size()) {
        size_t run = 1;
        while (x + run < row.size() && run < 128 && row[x + run] == row[x]) ++run;
        if (run >= 2) {
            out += static_cast<char>(0x80 | (run - 1));
            AppendPixel(out, row[x]);
            x += run;
            continue;
        }
        size_t raw = 1;
        while (x + raw < row.size() && raw < 128 && !(x + raw + 1 < row.size() && row[x + raw + 1] == row[x + raw]))
            ++raw;
        out += static_cast<char>(raw - 1);
        for (size_t i = 0; i < raw; ++i) AppendPixel(out, row[x + i]);
        x += raw;
    }
}

// The 18-byte header of a square 32-bit TGA picture.
std::string TgaHeader(int side, char imageType, char descriptor) {
    std::string bytes(18, '\0');
    bytes[2] = imageType;
    bytes[12] = static_cast<char>(side & 0xFF);
    bytes[13] = static_cast<char>(side >> 8);
    bytes[14] = static_cast<char>(side & 0xFF);
    bytes[15] = static_cast<char>(side >> 8);
    bytes[16] = 32;
    bytes[17] = descriptor;
    return bytes;
}

std::string RunLengthPicture(int side) {
    std::string bytes = TgaHeader(side, 10, 8);  // run-length; bottom row first, 8 alpha bits
    std::vector<Bgra> row(static_cast<size_t>(side));
    for (int y = side - 1; y >= 0; --y) {
        for (int x = 0; x < side; ++x) row[x] = SkinPixel(x, y);
        EncodeRow(bytes, row);
    }
    return bytes;
}

std::wstring g_tgaPath;
std::string g_tgaBytes;
char g_tgaPathNarrow[MAX_PATH];

void SetUpDecode() {
    wchar_t temp[MAX_PATH];
    GetTempPathW(MAX_PATH, temp);
    g_tgaPath = std::wstring(temp) + L"ql_bench_skin.tga";
    WideCharToMultiByte(CP_ACP, 0, g_tgaPath.c_str(), -1, g_tgaPathNarrow, MAX_PATH, nullptr, nullptr);
    g_tgaBytes = RunLengthPicture(kDecodeSide);
    FILE* file = _wfopen(g_tgaPath.c_str(), L"wb");
    if (!file) return;
    fwrite(g_tgaBytes.data(), 1, g_tgaBytes.size(), file);
    fclose(file);
}

void TearDownDecode() { DeleteFileW(g_tgaPath.c_str()); }

// What each side decoded, compared with the picture made and freed after every run (untimed).
SkinImage g_decoded;
unsigned char* g_stbPixels = nullptr;
int g_stbWidth = 0;
int g_stbHeight = 0;

void CheckOurDecode() {
    BenchCheck(g_decoded.width == kDecodeSide && g_decoded.height == kDecodeSide && g_decoded.hasPlanes(),
               "decoded picture size");
    long long matching = 0;
    for (int y = 0; y < kDecodeSide; ++y) {
        for (int x = 0; x < kDecodeSide; ++x) {
            size_t i = static_cast<size_t>(y) * kDecodeSide + x;
            Bgra p = SkinPixel(x, y);
            matching += g_decoded.red[i] == p.r && g_decoded.green[i] == p.g && g_decoded.blue[i] == p.b &&
                        g_decoded.alpha[i] == p.a;
        }
    }
    BenchCheckCount(matching, static_cast<long long>(kDecodeSide) * kDecodeSide, "pixels decoded");
    ReleaseSkinImage(g_decoded);
}

void CheckStbDecode() {
    BenchCheck(g_stbPixels && g_stbWidth == kDecodeSide && g_stbHeight == kDecodeSide, "stb_image picture size");
    long long matching = 0;
    for (int y = 0; g_stbPixels && y < kDecodeSide; ++y) {
        for (int x = 0; x < kDecodeSide; ++x) {
            const unsigned char* rgba = g_stbPixels + 4 * (static_cast<size_t>(y) * kDecodeSide + x);
            Bgra p = SkinPixel(x, y);
            matching += rgba[0] == p.r && rgba[1] == p.g && rgba[2] == p.b && rgba[3] == p.a;
        }
    }
    BenchCheckCount(matching, static_cast<long long>(kDecodeSide) * kDecodeSide, "pixels decoded by stb_image");
    stbi_image_free(g_stbPixels);
    g_stbPixels = nullptr;
}

BenchRegistration g_decodeFile({
    "TGA file decode, 2048x2048 32-bit run-length", "stb_image stbi_load of the same file", SetUpDecode,
    [] { BenchCheck(LoadTgaFile(g_decoded, g_tgaPath.c_str()) == S_OK, "TGA file decoded"); },
    [] {
        int channels;
        g_stbPixels = stbi_load(g_tgaPathNarrow, &g_stbWidth, &g_stbHeight, &channels, 4);
    },
    TearDownDecode, 10, CheckOurDecode, CheckStbDecode});

BenchRegistration g_decodeMemory({
    "TGA memory decode, 2048x2048 32-bit run-length", "stb_image stbi_load_from_memory, same bytes", SetUpDecode,
    [] {
        HRESULT result = DecodeTga(g_decoded, reinterpret_cast<const BYTE*>(g_tgaBytes.data()), g_tgaBytes.size());
        BenchCheck(result == S_OK, "TGA bytes decoded");
    },
    [] {
        int channels;
        g_stbPixels = stbi_load_from_memory(reinterpret_cast<const stbi_uc*>(g_tgaBytes.data()),
                                            static_cast<int>(g_tgaBytes.size()), &g_stbWidth, &g_stbHeight, &channels, 4);
    },
    TearDownDecode, 10, CheckOurDecode, CheckStbDecode});

// ---- blending ------------------------------------------------------------------------------

// A 32-bit top-down DIB section selected into a memory DC.
struct Surface {
    Bitmap bitmap;
    MemoryDc dc;
    DWORD* bits = nullptr;
    HGDIOBJ previous = nullptr;

    void create(int side) {
        BITMAPINFO info = {};
        info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
        info.bmiHeader.biWidth = side;
        info.bmiHeader.biHeight = -side;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        void* pixels = nullptr;
        bitmap.reset(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pixels, nullptr, 0));
        dc.reset(CreateCompatibleDC(nullptr));
        bits = static_cast<DWORD*>(pixels);
        previous = SelectObject(dc.get(), bitmap.get());
    }
    void destroy() {
        if (dc) SelectObject(dc.get(), previous);
        dc.reset();
        bitmap.reset();
        bits = nullptr;
    }
};

Surface g_destination;
Surface g_premultiplied;  // AlphaBlend's source: the same pixels, premultiplied by alpha
SkinImage g_picture;

using PixelSource = Bgra (*)(int, int);

Bgra TranslucentPixel(int x, int y) {
    return {static_cast<BYTE>(x * 3 + y), static_cast<BYTE>(x ^ y), static_cast<BYTE>(y * 5),
            static_cast<BYTE>(1 + (x + 2 * y) % 254)};
}

// The destination before any blend, and what blending the picture over it gives, computed here
// as source * alpha + destination * (255 - alpha), over 255.
std::vector<DWORD> g_background;
std::vector<DWORD> g_expected;

DWORD BlendOver(Bgra p, DWORD under) {
    auto channel = [&](BYTE source, int shift) {
        DWORD below = (under >> shift) & 0xFF;
        return ((source * p.a + below * (255 - p.a) + 127) / 255) << shift;
    };
    return channel(p.r, 16) | channel(p.g, 8) | channel(p.b, 0);
}

bool Near(DWORD actual, DWORD expected) {
    for (int shift : {0, 8, 16}) {
        int difference = static_cast<int>((actual >> shift) & 0xFF) - static_cast<int>((expected >> shift) & 0xFF);
        if (difference < -2 || difference > 2) return false;
    }
    return true;
}

// Every pixel of the destination is the blend (within rounding); the destination is put back so
// that the next run blends over the same pixels.
void CheckBlend(const char* what) {
    long long blended = 0;
    for (size_t i = 0; i < g_expected.size(); ++i) blended += Near(g_destination.bits[i], g_expected[i]);
    BenchCheckCount(blended, static_cast<long long>(kBlendSide) * kBlendSide, what);
    std::copy(g_background.begin(), g_background.end(), g_destination.bits);
}

void SetUpBlend(PixelSource pixelAt) {
    std::string bytes = TgaHeader(kBlendSide, 2, 0x10);  // uncompressed; top row first
    g_premultiplied.create(kBlendSide);
    g_destination.create(kBlendSide);
    for (int y = 0; y < kBlendSide; ++y) {
        for (int x = 0; x < kBlendSide; ++x) {
            Bgra p = pixelAt(x, y);
            AppendPixel(bytes, p);
            DWORD premultiplied = static_cast<DWORD>(p.a) << 24 | static_cast<DWORD>(p.r * p.a / 255) << 16 |
                                  static_cast<DWORD>(p.g * p.a / 255) << 8 | static_cast<DWORD>(p.b * p.a / 255);
            g_premultiplied.bits[y * kBlendSide + x] = premultiplied;
            g_destination.bits[y * kBlendSide + x] = static_cast<DWORD>(x * 2654435761u ^ y * 40503u) & 0xFFFFFF;
        }
    }
    size_t pixels = static_cast<size_t>(kBlendSide) * kBlendSide;
    g_background.assign(g_destination.bits, g_destination.bits + pixels);
    g_expected.resize(pixels);
    for (int y = 0; y < kBlendSide; ++y)
        for (int x = 0; x < kBlendSide; ++x)
            g_expected[y * kBlendSide + x] = BlendOver(pixelAt(x, y), g_background[y * kBlendSide + x]);
    BenchCheck(DecodeTga(g_picture, reinterpret_cast<const BYTE*>(bytes.data()), bytes.size()) == S_OK,
               "picture to blend decoded");
}

void TearDownBlend() {
    g_destination.destroy();
    g_premultiplied.destroy();
    ReleaseSkinImage(g_picture);
}

void DrawPicture() {
    DrawSkinImage(g_picture, g_destination.dc.get(), 0, 0, -1, -1, 0, 0, -1, -1);
    GdiFlush();
}

void GdiAlphaBlend() {
    BLENDFUNCTION blend = {AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};
    BenchCheck(AlphaBlend(g_destination.dc.get(), 0, 0, kBlendSide, kBlendSide, g_premultiplied.dc.get(), 0, 0,
                          kBlendSide, kBlendSide, blend) != FALSE,
               "AlphaBlend");
    GdiFlush();
}

void CheckDrawn() { CheckBlend("pixels blended by DrawSkinImage"); }
void CheckAlphaBlended() { CheckBlend("pixels blended by AlphaBlend"); }

BenchRegistration g_blendSkin({
    "DrawSkinImage blend, 1024x1024 skin alpha", "GDI AlphaBlend of the same pixels",
    [] { SetUpBlend(SkinPixel); }, DrawPicture, GdiAlphaBlend, TearDownBlend, 20, CheckDrawn, CheckAlphaBlended});

BenchRegistration g_blendTranslucent({
    "DrawSkinImage blend, 1024x1024 all translucent", "GDI AlphaBlend of the same pixels",
    [] { SetUpBlend(TranslucentPixel); }, DrawPicture, GdiAlphaBlend, TearDownBlend, 20, CheckDrawn,
    CheckAlphaBlended});

}  // namespace
