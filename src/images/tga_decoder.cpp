// TGA decoding into the four planes of a SkinImage, from a file, a resource or memory.
#include <io.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "images/skin_image.h"
#include "support/handles.h"

namespace {

const size_t kHeaderSize = 18;
const BYTE kTypeTrueColor = 2;
const BYTE kTypeRunLength = 10;
const BYTE kTopRowsFirst = 0x10;
const BYTE kRunPacket = 0x80;
const size_t kLongestPacket = 1 + 128 * 4;
const size_t kFileBlock = 64 * 1024;

struct TgaHeader {
    BYTE idLength;
    BYTE colorMapType;
    BYTE imageType;
    int width;
    int height;
    int pixelBytes;  // 4 when every pixel carries alpha, otherwise 3
    bool topRowsFirst;
};

int ReadLittle16(const BYTE* bytes) { return bytes[0] | (bytes[1] << 8); }

TgaHeader ParseHeader(const BYTE* bytes) {
    TgaHeader header;
    header.idLength = bytes[0];
    header.colorMapType = bytes[1];
    header.imageType = bytes[2];
    header.width = ReadLittle16(bytes + 12);
    header.height = ReadLittle16(bytes + 14);
    header.pixelBytes = bytes[16] == 32 ? 4 : 3;
    header.topRowsFirst = (bytes[17] & kTopRowsFirst) != 0;
    return header;
}

// The fewest pixel-data bytes that can fill the picture: every pixel stored, or for run-length
// data one shortest packet (header and one pixel) per 128 columns of every row, since each row
// starts a new packet.
unsigned long long MinimumPixelData(const TgaHeader& header) {
    unsigned long long width = static_cast<unsigned>(header.width);
    unsigned long long height = static_cast<unsigned>(header.height);
    if (header.imageType == kTypeTrueColor) return width * height * header.pixelBytes;
    return height * ((width + 127) / 128) * (1 + header.pixelBytes);
}

bool HeaderAcceptable(const TgaHeader& header, unsigned long long totalSize) {
    if (header.colorMapType != 0) return false;
    if (header.imageType != kTypeTrueColor && header.imageType != kTypeRunLength) return false;
    if (static_cast<unsigned long long>(header.width) * header.height > kMaxTgaPixels) return false;
    return totalSize >= kHeaderSize + header.idLength + MinimumPixelData(header);
}

// The bytes of a TGA: a block of memory, or a file read a block at a time.
class TgaBytes {
public:
    TgaBytes(const BYTE* data, size_t size) : next_(data), end_(data + size), file_(nullptr) {}
    explicit TgaBytes(FILE* file) : next_(block_), end_(block_), file_(file) {}
    TgaBytes(const TgaBytes&) = delete;
    TgaBytes& operator=(const TgaBytes&) = delete;

    const BYTE* next() const { return next_; }
    size_t available() const { return static_cast<size_t>(end_ - next_); }
    void consume(size_t count) { next_ += count; }
    // Makes `count` bytes (at most kLongestPacket) readable at next(); false when the data end
    // first.
    bool ensure(size_t count) { return available() >= count || refill(count); }

private:
    bool refill(size_t count) {
        if (!file_) return false;
        size_t left = available();
        memmove(block_, next_, left);
        size_t got = fread(block_ + left, 1, kFileBlock - left, file_);
        next_ = block_;
        end_ = block_ + left + got;
        return available() >= count;
    }

    const BYTE* next_;
    const BYTE* end_;
    FILE* file_;
    BYTE block_[kFileBlock];
};

struct Planes {
    BYTE* red;
    BYTE* green;
    BYTE* blue;
    BYTE* alpha;
    size_t total;
};

// Copies `count` stored pixels (blue, green, red[, alpha]) to the planes from index `at`.
void StorePixels(const Planes& planes, size_t at, const BYTE* source, size_t count, int pixelBytes) {
    BYTE* red = planes.red + at;
    BYTE* green = planes.green + at;
    BYTE* blue = planes.blue + at;
    if (pixelBytes == 4) {
        BYTE* alpha = planes.alpha + at;
        for (size_t i = 0; i < count; ++i, source += 4) {
            blue[i] = source[0];
            green[i] = source[1];
            red[i] = source[2];
            alpha[i] = source[3];
        }
    } else {
        for (size_t i = 0; i < count; ++i, source += 3) {
            blue[i] = source[0];
            green[i] = source[1];
            red[i] = source[2];
        }
    }
}

void StoreRun(const Planes& planes, size_t at, const BYTE* pixel, size_t count, int pixelBytes) {
    memset(planes.blue + at, pixel[0], count);
    memset(planes.green + at, pixel[1], count);
    memset(planes.red + at, pixel[2], count);
    if (pixelBytes == 4) memset(planes.alpha + at, pixel[3], count);
}

bool ReadStoredRow(TgaBytes& bytes, const Planes& planes, size_t rowStart, int width, int pixelBytes) {
    size_t column = 0;
    size_t columns = static_cast<size_t>(width);
    while (column < columns) {
        size_t whole = bytes.available() / pixelBytes;
        if (whole == 0) {
            if (!bytes.ensure(pixelBytes)) return false;
            continue;
        }
        size_t count = columns - column < whole ? columns - column : whole;
        StorePixels(planes, rowStart + column, bytes.next(), count, pixelBytes);
        bytes.consume(count * pixelBytes);
        column += count;
    }
    return true;
}

// A packet that runs past the row's end is completed into the bytes after the row; the last
// row's surplus is cut at the end of the planes.
bool ReadRunLengthRow(TgaBytes& bytes, const Planes& planes, size_t rowStart, int width,
                      int pixelBytes) {
    size_t column = 0;
    size_t columns = static_cast<size_t>(width);
    while (column < columns) {
        if (!bytes.ensure(1)) return false;
        BYTE packet = *bytes.next();
        bytes.consume(1);
        size_t count = (packet & 127u) + 1;
        size_t at = rowStart + column;
        size_t kept = planes.total - at < count ? planes.total - at : count;
        if (packet & kRunPacket) {
            if (!bytes.ensure(pixelBytes)) return false;
            StoreRun(planes, at, bytes.next(), kept, pixelBytes);
            bytes.consume(pixelBytes);
        } else {
            if (!bytes.ensure(count * pixelBytes)) return false;
            StorePixels(planes, at, bytes.next(), kept, pixelBytes);
            bytes.consume(count * pixelBytes);
        }
        column += count;
    }
    return true;
}

bool AllocatePlanes(SkinImage& image, size_t pixels) {
    image.red = static_cast<BYTE*>(malloc(pixels));
    image.green = static_cast<BYTE*>(malloc(pixels));
    image.blue = static_cast<BYTE*>(malloc(pixels));
    image.alpha = static_cast<BYTE*>(malloc(pixels));
    if (image.red && image.green && image.blue && image.alpha) return true;
    ReleaseSkinImage(image);
    return false;
}

bool DecodePixels(TgaBytes& bytes, const TgaHeader& header, const Planes& planes) {
    for (int y = 0; y < header.height; ++y) {
        int target = header.topRowsFirst ? y : header.height - 1 - y;
        size_t rowStart = static_cast<size_t>(target) * static_cast<size_t>(header.width);
        bool read = header.imageType == kTypeRunLength
                        ? ReadRunLengthRow(bytes, planes, rowStart, header.width, header.pixelBytes)
                        : ReadStoredRow(bytes, planes, rowStart, header.width, header.pixelBytes);
        if (!read) return false;
    }
    return true;
}

// `totalSize` is the length of the whole TGA, header included; the planes are freed already.
HRESULT Decode(SkinImage& image, TgaBytes& bytes, unsigned long long totalSize) {
    if (!bytes.ensure(kHeaderSize)) return E_FAIL;
    TgaHeader header = ParseHeader(bytes.next());
    bytes.consume(kHeaderSize);
    if (!HeaderAcceptable(header, totalSize)) return E_FAIL;
    if (!bytes.ensure(header.idLength)) return E_FAIL;
    bytes.consume(header.idLength);

    size_t pixels = static_cast<size_t>(header.width) * static_cast<size_t>(header.height);
    if (pixels > 0 && !AllocatePlanes(image, pixels)) return E_FAIL;
    image.width = header.width;
    image.height = header.height;
    if (pixels == 0) return S_OK;

    if (header.pixelBytes == 3) memset(image.alpha, 255, pixels);
    Planes planes = {image.red, image.green, image.blue, image.alpha, pixels};
    if (!DecodePixels(bytes, header, planes)) {
        ReleaseSkinImage(image);
        return E_FAIL;
    }
    return S_OK;
}

}  // namespace

HRESULT DecodeTga(SkinImage& image, const BYTE* data, size_t size) {
    ReleaseSkinImage(image);
    if (!data) return E_FAIL;
    TgaBytes bytes(data, size);
    return Decode(image, bytes, size);
}

HRESULT LoadTgaFile(SkinImage& image, const wchar_t* path) {
    ReleaseSkinImage(image);
    if (!path) return E_FAIL;
    File file(_wfopen(path, L"rb"));
    if (!file) return E_FAIL;
    long long size = _filelengthi64(_fileno(file.get()));
    if (size < 0) return E_FAIL;
    TgaBytes bytes(file.get());
    return Decode(image, bytes, static_cast<unsigned long long>(size));
}

HRESULT LoadTgaResource(SkinImage& image, HMODULE module, const wchar_t* name) {
    ReleaseSkinImage(image);
    if (!name) return E_FAIL;
    HRSRC resource = FindResourceW(module, name, L"TARGA");
    if (!resource) return E_FAIL;
    HGLOBAL loaded = LoadResource(module, resource);
    const BYTE* data = loaded ? static_cast<const BYTE*>(LockResource(loaded)) : nullptr;
    if (!data) return E_FAIL;
    return DecodeTga(image, data, SizeofResource(module, resource));
}
