// Seeded malformed TGAs: every one gives E_FAIL with an empty image, or the picture a plain
// reference decoder makes of the same bytes. Memory input ends at an inaccessible page, so a
// read past the data stops the test.
#include <random>
#include <string>
#include <vector>

#include "images/image_test_support.h"

namespace {

const int kCases = 10000;
const int kFileEvery = 20;

// Straightforward reading of the format: pixel by pixel, every byte checked.
struct Reference {
    bool ok = false;
    int width = 0;
    int height = 0;
    std::vector<Rgba> pixels;
};

// Reads the pixel data; stores it only when `pixels` is given, so that a huge header with
// too little data costs no memory.
bool ReferencePixels(const std::string& data, std::vector<Rgba>* pixels) {
    auto byte = [&](size_t i) { return static_cast<BYTE>(data[i]); };
    int width = byte(12) | byte(13) << 8;
    int height = byte(14) | byte(15) << 8;
    int type = byte(2);
    size_t pixelBytes = byte(16) == 32 ? 4 : 3;
    bool topFirst = (byte(17) & 0x10) != 0;
    size_t total = static_cast<size_t>(width) * height;
    size_t pos = 18 + byte(0);
    if (pos > data.size()) return false;
    auto readPixel = [&](Rgba& p) {
        if (data.size() - pos < pixelBytes) return false;
        p = {byte(pos + 2), byte(pos + 1), byte(pos), pixelBytes == 4 ? byte(pos + 3) : BYTE(255)};
        pos += pixelBytes;
        return true;
    };
    auto store = [&](size_t at, const Rgba& p) {
        if (pixels && at < total) (*pixels)[at] = p;
    };
    for (int y = 0; y < height; ++y) {
        size_t row = static_cast<size_t>(topFirst ? y : height - 1 - y) * width;
        for (int column = 0; column < width;) {
            Rgba p;
            if (type == 2) {
                if (!readPixel(p)) return false;
                store(row + column, p);
                ++column;
                continue;
            }
            if (pos >= data.size()) return false;
            int packet = byte(pos++);
            int count = (packet & 127) + 1;
            for (int k = 0; k < count; ++k) {
                if ((k == 0 || !(packet & 0x80)) && !readPixel(p)) return false;
                store(row + column + k, p);
            }
            column += count;
        }
    }
    return true;
}

Reference ReferenceDecode(const std::string& data) {
    Reference result;
    if (data.size() < 18) return result;
    int type = static_cast<BYTE>(data[2]);
    if (data[1] != 0 || (type != 2 && type != 10)) return result;
    int width = static_cast<BYTE>(data[12]) | static_cast<BYTE>(data[13]) << 8;
    int height = static_cast<BYTE>(data[14]) | static_cast<BYTE>(data[15]) << 8;
    if (static_cast<size_t>(width) * height > kMaxTgaPixels) return result;
    if (!ReferencePixels(data, nullptr)) return result;
    result.pixels.resize(static_cast<size_t>(width) * height);
    ReferencePixels(data, &result.pixels);
    result.ok = true;
    result.width = width;
    result.height = height;
    return result;
}

class Generator {
public:
    explicit Generator(unsigned seed) : random_(seed) {}

    int below(int n) { return static_cast<int>(random_() % static_cast<unsigned>(n)); }
    BYTE anyByte() { return static_cast<BYTE>(random_()); }
    Rgba anyPixel() { return {anyByte(), anyByte(), anyByte(), anyByte()}; }

    // A well-formed picture; run-length packets may run past row ends.
    std::string picture() {
        int width = below(5) == 0 ? below(300) : below(24);
        int height = below(5) == 0 ? below(4) : below(24);
        int type = below(2) ? kRunLength : kTrueColor;
        int bits = below(4) == 0 ? anyByte() : (below(2) ? 32 : 24);
        int pixelBits = bits == 32 ? 32 : 24;
        int idLength = below(3) == 0 ? below(30) : 0;
        std::string bytes = TgaHeader(type, width, height, bits, anyByte(), idLength);
        for (int i = 0; i < idLength; ++i) bytes += static_cast<char>(anyByte());
        for (int y = 0; y < height; ++y) {
            for (int column = 0; column < width;) {
                if (type == kTrueColor) {
                    bytes += PixelBytes(anyPixel(), pixelBits);
                    ++column;
                    continue;
                }
                int count = below(3) == 0 ? below(128) + 1 : below(8) + 1;
                if (below(2)) {
                    bytes += RunPacket(count, anyPixel(), pixelBits);
                } else {
                    std::vector<Rgba> raw(static_cast<size_t>(count));
                    for (Rgba& p : raw) p = anyPixel();
                    bytes += RawPacket(raw, pixelBits);
                }
                column += count;
            }
        }
        return bytes;
    }

    void damage(std::string& bytes) {
        int kinds = 1 + below(3);
        for (int k = 0; k < kinds; ++k) {
            switch (below(9)) {
                case 0: bytes.resize(bytes.empty() ? 0 : static_cast<size_t>(below(static_cast<int>(bytes.size())))); break;
                case 1:
                    for (int i = below(8) + 1; i > 0 && !bytes.empty(); --i) bytes[below(int(bytes.size()))] ^= char(anyByte() | 1);
                    break;
                case 2: setWord(bytes, 12 + 2 * below(2), below(2) ? 0xFFFF : below(65536)); break;
                case 3: setByte(bytes, 2, below(2) ? anyByte() : "\x00\x01\x02\x03\x09\x0A\x0B"[below(7)]); break;
                case 4: setByte(bytes, 1, anyByte() | 1); break;
                case 5:  // packets that run past the end
                    for (int i = below(4) + 1; i > 0; --i) bytes += RunPacket(128, anyPixel(), 32);
                    break;
                case 6: setByte(bytes, 0, anyByte()); break;
                case 7: setByte(bytes, 16, below(2) ? anyByte() : (below(2) ? 32 : 24)); break;
                default: bytes.resize(bytes.size() > 18 ? 18 + below(int(bytes.size()) - 18) : bytes.size()); break;
            }
        }
    }

private:
    void setByte(std::string& bytes, size_t at, int value) {
        if (at < bytes.size()) bytes[at] = static_cast<char>(value);
    }
    void setWord(std::string& bytes, size_t at, int value) {
        setByte(bytes, at, value & 0xFF);
        setByte(bytes, at + 1, value >> 8);
    }

    std::mt19937 random_;
};

// Memory whose end touches an inaccessible page.
class GuardedBuffer {
public:
    explicit GuardedBuffer(size_t capacity) : capacity_((capacity + 4095) & ~size_t(4095)) {
        base_ = static_cast<BYTE*>(VirtualAlloc(nullptr, capacity_ + 4096, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE));
        DWORD old;
        if (base_) VirtualProtect(base_ + capacity_, 4096, PAGE_NOACCESS, &old);
    }
    ~GuardedBuffer() { VirtualFree(base_, 0, MEM_RELEASE); }
    GuardedBuffer(const GuardedBuffer&) = delete;
    GuardedBuffer& operator=(const GuardedBuffer&) = delete;

    bool valid() const { return base_ != nullptr; }
    size_t capacity() const { return capacity_; }
    const BYTE* place(const std::string& bytes) {
        BYTE* start = base_ + capacity_ - bytes.size();
        memcpy(start, bytes.data(), bytes.size());
        return start;
    }

private:
    size_t capacity_;
    BYTE* base_;
};

::testing::AssertionResult SameAsReference(HRESULT result, const SkinImage& image, const Reference& reference) {
    if (!reference.ok) {
        if (result != E_FAIL) return ::testing::AssertionFailure() << "accepted, reference refuses";
        if (!IsEmpty(image)) return ::testing::AssertionFailure() << "refused but the image is not empty";
        return ::testing::AssertionSuccess();
    }
    if (result != S_OK) return ::testing::AssertionFailure() << "refused, reference accepts";
    if (image.width != reference.width || image.height != reference.height)
        return ::testing::AssertionFailure() << "size " << image.width << "x" << image.height;
    if (image.hasPlanes() != !reference.pixels.empty()) return ::testing::AssertionFailure() << "planes";
    for (size_t i = 0; i < reference.pixels.size(); ++i) {
        Rgba got = {image.red[i], image.green[i], image.blue[i], image.alpha[i]};
        if (!(got == reference.pixels[i]))
            return ::testing::AssertionFailure() << "pixel " << i << " " << got << " want " << reference.pixels[i];
    }
    return ::testing::AssertionSuccess();
}

TEST(TgaRobustness, MalformedPicturesFailCleanlyOrDecodeLikeTheReference) {
    GuardedBuffer buffer(1 << 20);
    ASSERT_TRUE(buffer.valid());
    ScratchFolder folder(L"tga_robustness");
    std::wstring path = folder.file(L"case.tga");
    Generator generator(20240611);
    int accepted = 0;
    for (int n = 0; n < kCases; ++n) {
        std::string bytes = generator.picture();
        if (n % 8 != 0) generator.damage(bytes);
        if (bytes.size() > buffer.capacity()) bytes.resize(buffer.capacity());
        Reference reference = ReferenceDecode(bytes);
        accepted += reference.ok;

        SkinImage image;
        HRESULT result = DecodeTga(image, buffer.place(bytes), bytes.size());
        ASSERT_TRUE(SameAsReference(result, image, reference)) << "case " << n << " from memory";
        if (n % kFileEvery == 0) {
            WriteBytes(path, bytes);
            result = LoadTgaFile(image, path.c_str());
            ASSERT_TRUE(SameAsReference(result, image, reference)) << "case " << n << " from a file";
        }
    }
    // Both outcomes are well represented.
    EXPECT_GT(accepted, kCases / 5);
    EXPECT_LT(accepted, kCases * 4 / 5);
}

}  // namespace
