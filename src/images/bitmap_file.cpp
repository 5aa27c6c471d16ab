#include "images/bitmap_file.h"

#include <cstdint>
#include <vector>

#include "platform/shell.h"
#include "support/handles.h"

namespace {

const size_t kFileHeaderSize = 14;
const size_t kCoreHeaderSize = 12;
const size_t kInfoHeaderSize = 40;
const size_t kLargestFile = size_t(64) * 1024 * 1024;

unsigned Read16(const unsigned char* p) { return p[0] | (p[1] << 8); }
unsigned long Read32(const unsigned char* p) {
    return static_cast<unsigned long>(p[0]) | (static_cast<unsigned long>(p[1]) << 8) |
           (static_cast<unsigned long>(p[2]) << 16) | (static_cast<unsigned long>(p[3]) << 24);
}
long ReadSigned32(const unsigned char* p) { return static_cast<long>(static_cast<int32_t>(Read32(p))); }

bool KnownBitDepth(unsigned bits) {
    return bits == 1 || bits == 4 || bits == 8 || bits == 16 || bits == 24 || bits == 32;
}

struct PictureShape {
    long width = 0, height = 0;
    unsigned bits = 0;
    size_t colourTableBytes = 0;
    size_t headerBytes = 0;
};

// The shape an info header (of either kind) describes, or false when it describes no picture this
// program draws.
bool ReadShape(const unsigned char* header, size_t available, PictureShape* shape) {
    if (available < 4) return false;
    size_t headerSize = Read32(header);
    if (headerSize != kCoreHeaderSize && headerSize < kInfoHeaderSize) return false;
    if (headerSize > available) return false;
    shape->headerBytes = headerSize;
    size_t colourEntry = 4;
    unsigned long compression = BI_RGB, coloursUsed = 0;
    if (headerSize == kCoreHeaderSize) {
        shape->width = Read16(header + 4);
        shape->height = Read16(header + 6);
        if (Read16(header + 8) != 1) return false;
        shape->bits = Read16(header + 10);
        colourEntry = 3;
    } else {
        shape->width = ReadSigned32(header + 4);
        shape->height = ReadSigned32(header + 8);
        if (Read16(header + 12) != 1) return false;
        shape->bits = Read16(header + 14);
        compression = Read32(header + 16);
        coloursUsed = Read32(header + 32);
    }
    if (!KnownBitDepth(shape->bits)) return false;
    if (compression != BI_RGB && compression != BI_BITFIELDS) return false;
    if (compression == BI_BITFIELDS && shape->bits != 16 && shape->bits != 32) return false;
    long height = shape->height < 0 ? -shape->height : shape->height;
    if (shape->width <= 0 || height <= 0 || shape->width > kLargestIconSide || height > kLargestIconSide) return false;
    shape->height = height;
    size_t colours = shape->bits <= 8 ? (coloursUsed ? coloursUsed : (size_t(1) << shape->bits)) : coloursUsed;
    if (colours > 256) return false;
    shape->colourTableBytes = colours * colourEntry;
    if (compression == BI_BITFIELDS && headerSize == kInfoHeaderSize) shape->colourTableBytes += 12;
    return true;
}

bool ReadWholeFile(const wchar_t* path, std::vector<unsigned char>* bytes) {
    FileHandle file(CreateFileW(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL,
                                nullptr));
    if (!file) return false;
    DWORD high = 0;
    DWORD low = GetFileSize(file.get(), &high);
    if (low == INVALID_FILE_SIZE || high != 0 || low > kLargestFile) return false;
    bytes->resize(low);
    DWORD got = 0;
    return low == 0 || (ReadFile(file.get(), bytes->data(), low, &got, nullptr) && got == low);
}

}  // namespace

bool IsWholeBitmapFile(const unsigned char* bytes, size_t size) {
    if (!bytes || size < kFileHeaderSize + kCoreHeaderSize) return false;
    if (bytes[0] != 'B' || bytes[1] != 'M') return false;
    PictureShape shape;
    if (!ReadShape(bytes + kFileHeaderSize, size - kFileHeaderSize, &shape)) return false;
    size_t pixelsAt = Read32(bytes + 10);
    if (pixelsAt < kFileHeaderSize + shape.headerBytes + shape.colourTableBytes) return false;
    size_t rowBytes = ((static_cast<size_t>(shape.width) * shape.bits + 31) / 32) * 4;
    size_t pixelBytes = rowBytes * static_cast<size_t>(shape.height);
    return pixelsAt <= size && pixelBytes <= size - pixelsAt;
}

HBITMAP LoadCheckedBitmap(const wchar_t* path) {
    if (!path || !*path) return nullptr;
    std::vector<unsigned char> bytes;
    if (!ReadWholeFile(path, &bytes) || !IsWholeBitmapFile(bytes.data(), bytes.size())) return nullptr;
    return SHLoadDIBitmap(path);
}
