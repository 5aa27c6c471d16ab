// Decodes the TGA files written by ImageMagick (tests/images/make_reference.sh) and compares
// every pixel with the RGBA that ImageMagick gives for the same picture.
#include <string>

#include "common/test_support.h"
#include "images/skin_image.h"

namespace {

// The data folder beside this source file, as a path the Windows side can open.
std::wstring DataFolder() {
    std::string unixPath = __FILE__;
    unixPath = unixPath.substr(0, unixPath.find_last_of('/')) + "/data";
    typedef wchar_t*(CDECL * ToDosName)(const char*);
    auto toDos = reinterpret_cast<ToDosName>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "wine_get_dos_file_name")));
    if (toDos) {
        if (wchar_t* dos = toDos(unixPath.c_str())) {
            std::wstring path = dos;
            HeapFree(GetProcessHeap(), 0, dos);
            return path;
        }
    }
    std::wstring path = L"Z:";
    for (char c : unixPath) path += c == '/' ? L'\\' : static_cast<wchar_t>(c);
    return path;
}

struct ReferenceCase {
    const wchar_t* name;
    int width;
    int height;
};

const ReferenceCase kCases[] = {
    {L"rgb24_bottom_13x7", 13, 7},          // uncompressed, 24 bits, bottom row first
    {L"rgba32_bottom_13x7", 13, 7},         // uncompressed, 32 bits
    {L"rgba32_rle_bottom_37x9", 37, 9},     // run-length, 32 bits
    {L"rgb24_rle_bottom_150x3", 150, 3},    // run-length, 24 bits, runs longer than one packet
    {L"rgba32_rle_topright_21x5", 21, 5},   // descriptor 0x38: bit 4 set, top row first
    {L"rgba32_topleft_9x6", 9, 6},          // descriptor 0x28: bit 4 clear, read upside down
    {L"rgb24_rle_topleft_11x4", 11, 4},     // descriptor 0x20, run-length, 24 bits
    {L"rgba32_rle_id_7x4", 7, 4},           // a 12-byte ID field before the pixels
    {L"rgba32_1x1", 1, 1},
    {L"rgba32_rle_wide_300x2", 300, 2},
};

TEST(TgaReference, EveryPixelMatchesTheIndependentEncoder) {
    std::wstring folder = DataFolder();
    for (const ReferenceCase& reference : kCases) {
        SCOPED_TRACE(testing::Message() << "case " << std::string(reference.name, reference.name + wcslen(reference.name)));
        std::wstring stem = folder + L"\\" + reference.name;
        std::string expected = ReadBytes(stem + L".rgba");
        ASSERT_EQ(expected.size(), static_cast<size_t>(reference.width * reference.height * 4))
            << "reference pixels missing in " << std::string(stem.begin(), stem.end());

        SkinImage image;
        ASSERT_EQ(LoadTgaFile(image, (stem + L".tga").c_str()), S_OK);
        ASSERT_EQ(image.width, reference.width);
        ASSERT_EQ(image.height, reference.height);
        int mismatches = 0;
        for (int i = 0; i < reference.width * reference.height && mismatches < 5; ++i) {
            const unsigned char* want = reinterpret_cast<const unsigned char*>(expected.data()) + i * 4;
            BYTE got[4] = {image.red[i], image.green[i], image.blue[i], image.alpha[i]};
            if (memcmp(got, want, 4) != 0) {
                ++mismatches;
                ADD_FAILURE() << "pixel " << i % reference.width << "," << i / reference.width << ": got "
                              << int(got[0]) << " " << int(got[1]) << " " << int(got[2]) << " " << int(got[3])
                              << ", want " << int(want[0]) << " " << int(want[1]) << " " << int(want[2]) << " "
                              << int(want[3]);
            }
        }

        // The same bytes decoded from memory give the same planes.
        std::string file = ReadBytes(stem + L".tga");
        SkinImage fromMemory;
        ASSERT_EQ(DecodeTga(fromMemory, reinterpret_cast<const BYTE*>(file.data()), file.size()), S_OK);
        size_t pixels = static_cast<size_t>(reference.width) * reference.height;
        EXPECT_EQ(memcmp(fromMemory.red, image.red, pixels), 0);
        EXPECT_EQ(memcmp(fromMemory.alpha, image.alpha, pixels), 0);
    }
}

}  // namespace
