#pragma once
// Hand-made TGA bytes and resource modules for the image tests.
#include <windows.h>

#include <algorithm>
#include <string>
#include <vector>

#include "common/test_support.h"
#include "images/skin_image.h"
#include "support/handles.h"

struct Rgba {
    BYTE r, g, b, a;
    bool operator==(const Rgba& o) const { return r == o.r && g == o.g && b == o.b && a == o.a; }
};

inline std::ostream& operator<<(std::ostream& out, const Rgba& p) {
    return out << "(" << int(p.r) << "," << int(p.g) << "," << int(p.b) << "," << int(p.a) << ")";
}

const BYTE kTrueColor = 2;
const BYTE kRunLength = 10;

inline std::string TgaHeader(int type, int width, int height, int bits, int descriptor, int idLength = 0,
                             int colorMapType = 0) {
    std::string h(18, '\0');
    h[0] = static_cast<char>(idLength);
    h[1] = static_cast<char>(colorMapType);
    h[2] = static_cast<char>(type);
    h[12] = static_cast<char>(width & 0xFF);
    h[13] = static_cast<char>(width >> 8);
    h[14] = static_cast<char>(height & 0xFF);
    h[15] = static_cast<char>(height >> 8);
    h[16] = static_cast<char>(bits);
    h[17] = static_cast<char>(descriptor);
    return h;
}

// Blue, green, red, then alpha for 32 bits.
inline std::string PixelBytes(Rgba p, int bits) {
    std::string bytes = {static_cast<char>(p.b), static_cast<char>(p.g), static_cast<char>(p.r)};
    if (bits == 32) bytes += static_cast<char>(p.a);
    return bytes;
}

inline std::string RunPacket(int count, Rgba p, int bits) {
    return std::string(1, static_cast<char>(0x80 | (count - 1))) + PixelBytes(p, bits);
}

inline std::string RawPacket(const std::vector<Rgba>& pixels, int bits) {
    std::string bytes(1, static_cast<char>(pixels.size() - 1));
    for (const Rgba& p : pixels) bytes += PixelBytes(p, bits);
    return bytes;
}

inline Rgba PixelAt(const SkinImage& image, int x, int y) {
    size_t i = static_cast<size_t>(y) * image.width + x;
    return {image.red[i], image.green[i], image.blue[i], image.alpha[i]};
}

inline HRESULT DecodeBytes(SkinImage& image, const std::string& bytes) {
    return DecodeTga(image, reinterpret_cast<const BYTE*>(bytes.data()), bytes.size());
}

inline bool IsEmpty(const SkinImage& image) {
    return !image.red && !image.green && !image.blue && !image.alpha && image.width == 0 && image.height == 0;
}

struct TestResource {
    const wchar_t* type;
    const wchar_t* name;
    std::string data;
};

// A copy of a built resource library with `resources` added, written to `path`.
inline bool WriteModuleWithResources(const std::wstring& path, const std::vector<TestResource>& resources) {
    if (!CopyFileW((TestBinDir() + L"\\LowDpiRes.dll").c_str(), path.c_str(), FALSE)) return false;
    HANDLE update = BeginUpdateResourceW(path.c_str(), FALSE);
    if (!update) return false;
    for (const TestResource& resource : resources) {
        UpdateResourceW(update, resource.type, resource.name, MAKELANGID(LANG_NEUTRAL, SUBLANG_NEUTRAL),
                        const_cast<char*>(resource.data.data()), static_cast<DWORD>(resource.data.size()));
    }
    return EndUpdateResourceW(update, FALSE) != FALSE;
}

// A 32-bit top-down DIB section selected into a memory DC, filled with a varied pattern.
class Canvas {
public:
    Canvas(int width, int height) : width_(width), height_(height), dc_(CreateCompatibleDC(nullptr)) {
        bitmap_.reset(CreateTopDownDib(width, height, &bits_));
        previous_ = SelectObject(dc_.get(), bitmap_.get());
        for (int i = 0; i < width * height; ++i) bits_[i] = static_cast<DWORD>(i * 2654435761u) & 0xFFFFFF;
        original_.assign(bits_, bits_ + width * height);
    }
    ~Canvas() { SelectObject(dc_.get(), previous_); }

    HDC dc() const { return dc_.get(); }
    Rgba at(int x, int y) const {
        GdiFlush();
        DWORD v = bits_[y * width_ + x];
        return {BYTE(v >> 16), BYTE(v >> 8), BYTE(v), 255};
    }
    Rgba original(int x, int y) const {
        DWORD v = original_[y * width_ + x];
        return {BYTE(v >> 16), BYTE(v >> 8), BYTE(v), 255};
    }
    bool unchanged() const {
        GdiFlush();
        return std::equal(original_.begin(), original_.end(), bits_);
    }
    int width() const { return width_; }
    int height() const { return height_; }

private:
    int width_;
    int height_;
    Bitmap bitmap_;
    MemoryDc dc_;
    DWORD* bits_;
    HGDIOBJ previous_;
    std::vector<DWORD> original_;
};
