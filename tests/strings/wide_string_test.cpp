#include "common/test_support.h"
#include "support/wide_string.h"

namespace {

std::wstring Repeat(wchar_t c, int count) { return std::wstring(static_cast<size_t>(count), c); }

TEST(WString, GrowsOnlyWhenFourCharactersOfHeadRoomWouldBeLostAndNeverShrinks) {
    WString text(Repeat(L'a', 59).c_str());
    EXPECT_EQ(text.capacity(), 64);
    text.assign(Repeat(L'b', 60).c_str());
    text.assign(L"short");
    EXPECT_EQ(text.capacity(), 124);

    WString joined(Repeat(L'x', 30).c_str());
    EXPECT_EQ(joined.append(Repeat(L'y', 30).c_str()), joined.c_str());
    EXPECT_EQ(joined.capacity(), 64) << "a total of capacity - 4 fits";
    joined.append(joined.c_str());  // its own text, read before the old buffer is freed
    EXPECT_EQ(std::wstring(joined.c_str()), Repeat(L'x', 30) + Repeat(L'y', 30) + Repeat(L'x', 30) + Repeat(L'y', 30));
    EXPECT_EQ(joined.capacity(), 120 + 64);
}

TEST(WString, FormatIsCutAtItsBufferAndLoadEmptiesOnAMissingText) {
    WString text;
    text.format(L"%s=%d (%04X)", L"Height", -12, 0xBEEF);
    EXPECT_STREQ(text.c_str(), L"Height=-12 (BEEF)");
    text.format(L"%s|", Repeat(L'h', WString::kFormatBufferChars * 2).c_str());
    EXPECT_EQ(text.length(), WString::kFormatBufferChars - 1);
    HMODULE library = LoadLibraryW((TestBinDir() + L"\\QLEngRc.dll").c_str());
    EXPECT_EQ(text.load(library, 719), 7);
    EXPECT_STREQ(text.c_str(), L"English");
    EXPECT_EQ(text.load(library, 65000), 0);
    EXPECT_STREQ(text.c_str(), L"");
    FreeLibrary(library);
}

TEST(SharedString, EmptyTextsShareOneUncountedTextAndCopiesShareOneBlockFreedOnce) {
    long before = SharedString::liveBlocks();
    SharedString empty, original;
    EXPECT_EQ(empty.set(L"ignored", 0), 0);
    EXPECT_EQ(empty.c_str(), SharedEmptyText());
    EXPECT_EQ(SharedString(empty).referenceCount(), 0);
    EXPECT_EQ(original.set(L"Select Color Dialog", 12), 12);
    SharedString a(original), b(original), c;
    c = original;
    c = c;
    // Reference count and length sit in the 8 bytes before the characters.
    const int32_t* header = reinterpret_cast<const int32_t*>(c.c_str()) - 2;
    EXPECT_EQ(header[0], 4);
    EXPECT_EQ(header[1], 12);
    a.release();
    b.release();
    c.release();
    EXPECT_EQ(original.referenceCount(), 1);
    original.set(original.c_str() + 7);  // from its own characters; the old block is freed
    EXPECT_STREQ(original.c_str(), L"Color");
    EXPECT_EQ(SharedString::liveBlocks(), before + 1);
    original.release();
    original.release();
    EXPECT_EQ(SharedString::liveBlocks(), before);
}

}  // namespace
