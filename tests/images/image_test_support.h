#pragma once
// Hand-made TGA bytes, resource modules and a drawing canvas for the image tests.
#include <windows.h>

#include <string>
#include <vector>

#include "common/test_support.h"
#include "images/skin_image.h"
#include "support/handles.h"

struct Rgba {
    BYTE r, g, b, a;
    bool operator==(const Rgba& o) const { return r == o.r && g == o.g && b == o.b && a == o.a; }
};
inline Rgba Opaque(Rgba p) { return {p.r, p.g, p.b, 255}; }

const int kTrueColor = 2;
const int kRunLength = 10;

inline std::string TgaHeader(int type, int width, int height, int bits, int descriptor, int idLength = 0,
                             int colorMapType = 0) {
    return {char(idLength), char(colorMapType), char(type), 0, 0, 0, 0, 0, 0, 0, 0, 0,
            char(width), char(width >> 8), char(height), char(height >> 8), char(bits), char(descriptor)};
}
// Blue, green, red, then alpha for 32 bits.
inline std::string PixelBytes(Rgba p, int bits) {
    return std::string{char(p.b), char(p.g), char(p.r), char(p.a)}.substr(0, bits == 32 ? 4 : 3);
}
inline std::string RunPacket(int count, Rgba p, int bits) { return char(0x80 | (count - 1)) + PixelBytes(p, bits); }
inline std::string RawPacket(const std::vector<Rgba>& pixels, int bits) {
    std::string bytes(1, char(pixels.size() - 1));
    for (const Rgba& p : pixels) bytes += PixelBytes(p, bits);
    return bytes;
}

inline Rgba PixelAt(const SkinImage& image, int x, int y) {
    size_t i = static_cast<size_t>(y) * image.width + x;
    return {image.red[i], image.green[i], image.blue[i], image.alpha[i]};
}
inline std::vector<Rgba> Pixels(const SkinImage& image) {
    std::vector<Rgba> pixels;
    for (int i = 0; i < image.width * image.height; ++i)
        pixels.push_back(PixelAt(image, i % image.width, i / image.width));
    return pixels;
}
inline bool IsEmpty(const SkinImage& image) {
    return !image.red && !image.green && !image.blue && !image.alpha && image.width == 0 && image.height == 0;
}
inline HRESULT DecodeBytes(SkinImage& image, const std::string& bytes) {
    return DecodeTga(image, reinterpret_cast<const BYTE*>(bytes.data()), bytes.size());
}

// A copy of a built resource library with resources {type, name, bytes} added, written to `path`.
struct TestResource {
    const wchar_t* type;
    const wchar_t* name;
    std::string data;
};
inline bool WriteModuleWithResources(const std::wstring& path, const std::vector<TestResource>& resources) {
    if (!CopyFileW((TestBinDir() + L"\\LowDpiRes.dll").c_str(), path.c_str(), FALSE)) return false;
    HANDLE update = BeginUpdateResourceW(path.c_str(), FALSE);
    for (const TestResource& r : resources)
        UpdateResourceW(update, r.type, r.name, 0, const_cast<char*>(r.data.data()), static_cast<DWORD>(r.data.size()));
    return update && EndUpdateResourceW(update, FALSE);
}

// A 32-bit top-down DIB section in a memory DC, of varied and white pixels (channel value 255 is blended too).
struct Canvas {
    Canvas(int w, int h) : width(w), height(h), bitmap(CreateTopDownDib(w, h, &bits)), dc(CreateCompatibleDC(nullptr)) {
        SelectObject(dc.get(), bitmap.get());
        for (int i = 0; i < w * h; ++i)
            bits[i] = i % 7 == 3 ? 0xFFFFFF : static_cast<DWORD>(i * 2654435761u) & 0xFFFFFF;
        original.assign(bits, bits + w * h);
    }
    int width, height;
    DWORD* bits;
    Bitmap bitmap;
    MemoryDc dc;
    std::vector<DWORD> original;
};

// Every canvas pixel equals want(x, y, the pixel it held before).
template <typename Want>
void ExpectCanvas(const Canvas& canvas, Want want) {
    auto rgba = [](DWORD v) { return Rgba{BYTE(v >> 16), BYTE(v >> 8), BYTE(v), 255}; };
    GdiFlush();
    for (int i = 0, x = 0, y = 0; i < canvas.width * canvas.height; ++i, x = i % canvas.width, y = i / canvas.width)
        ASSERT_EQ(rgba(canvas.bits[i]), want(x, y, rgba(canvas.original[i]))) << "canvas pixel " << x << "," << y;
}
