#include <string>

#include "common/test_support.h"
#include "support/wide_string.h"

namespace {

std::wstring Repeat(wchar_t c, int count) { return std::wstring(static_cast<size_t>(count), c); }

TEST(WString, AssignGrowsOnlyWhenHeadRoomWouldBeLost) {
    WString text;
    EXPECT_EQ(text.capacity(), 64);
    EXPECT_STREQ(text.c_str(), L"");

    text.assign(Repeat(L'a', 59).c_str());
    EXPECT_EQ(text.capacity(), 64) << "59 characters and the terminator keep 4 spare";
    text.assign(Repeat(L'b', 60).c_str());
    EXPECT_EQ(text.capacity(), 124) << "60 do not: grows to 60 + 64";
    EXPECT_EQ(text.length(), 60);
    EXPECT_EQ(text.c_str()[60], 0);

    text.assign(L"short");
    EXPECT_EQ(text.capacity(), 124) << "the buffer never shrinks";
    EXPECT_STREQ(text.c_str(), L"short");
}

TEST(WString, AppendKeepsHeadRoomAndOldText) {
    WString text;
    text.append(Repeat(L'x', 30).c_str());
    text.append(Repeat(L'y', 30).c_str());
    EXPECT_EQ(text.capacity(), 64) << "a total of capacity - 4 fits";
    const wchar_t* result = text.append(L"z");
    EXPECT_EQ(text.capacity(), 61 + 64);
    EXPECT_EQ(result, text.c_str());
    EXPECT_EQ(std::wstring(text.c_str()), Repeat(L'x', 30) + Repeat(L'y', 30) + L"z");

    // Appending the string to itself across a growth reads the old buffer before freeing it.
    WString self(Repeat(L'q', 40).c_str());
    self.append(self.c_str());
    EXPECT_EQ(std::wstring(self.c_str()), Repeat(L'q', 80));
    EXPECT_EQ(self.capacity(), 80 + 64);
}

TEST(WString, FormatIsBoundedByTheSharedBuffer) {
    WString text;
    text.format(L"%s=%d (%04X)", L"Height", -12, 0xBEEF);
    EXPECT_STREQ(text.c_str(), L"Height=-12 (BEEF)");

    std::wstring huge = Repeat(L'h', WString::kFormatBufferChars * 2);
    text.format(L"%s|%s", huge.c_str(), L"tail");
    EXPECT_EQ(text.length(), WString::kFormatBufferChars - 1) << "cut at the buffer, terminated";
    EXPECT_EQ(text.c_str()[text.length()], 0);

    text.format(L"%d", 7);
    EXPECT_STREQ(text.c_str(), L"7") << "the buffer is usable after a cut";
}

TEST(WString, LoadReturnsCountAndEmptiesOnMissingId) {
    HMODULE library = LoadLibraryW((TestBinDir() + L"\\QLEngRc.dll").c_str());
    ASSERT_NE(library, nullptr);
    WString text(L"previous");
    EXPECT_EQ(text.load(library, 719), 7);
    EXPECT_STREQ(text.c_str(), L"English");

    text.assign(L"previous");
    EXPECT_EQ(text.load(library, 65000), 0);
    EXPECT_STREQ(text.c_str(), L"") << "a missing id empties the string";

    text.assign(L"previous");
    EXPECT_EQ(text.load(nullptr, 719), 0) << "no library: empty, as with a missing id";
    EXPECT_STREQ(text.c_str(), L"");
    FreeLibrary(library);
}

TEST(SharedString, EmptyTextsShareOneUncountedRepresentation) {
    long before = SharedString::liveBlocks();
    SharedString fromNull, fromEmpty, fromZero, plain;
    EXPECT_EQ(fromNull.set(nullptr), 0);
    EXPECT_EQ(fromEmpty.set(L"", -1), 0);
    EXPECT_EQ(fromZero.set(L"ignored", 0), 0);
    for (SharedString* s : {&fromNull, &fromEmpty, &fromZero, &plain}) {
        EXPECT_TRUE(s->isSharedEmpty());
        EXPECT_EQ(s->c_str(), SharedEmptyText());
        EXPECT_EQ(s->referenceCount(), 0);
        s->release();  // releasing the shared empty text does nothing
        EXPECT_EQ(s->c_str(), SharedEmptyText());
    }
    SharedString copy(fromNull);
    EXPECT_EQ(copy.c_str(), SharedEmptyText());
    EXPECT_EQ(SharedString::liveBlocks(), before);
}

TEST(SharedString, CopiesShareOneBlockFreedOnce) {
    long before = SharedString::liveBlocks();
    {
        SharedString original;
        EXPECT_EQ(original.set(L"Select Color"), 12);
        EXPECT_EQ(SharedString::liveBlocks(), before + 1);
        SharedString a(original), b(original), c(original);
        EXPECT_EQ(a.c_str(), original.c_str()) << "copies share the characters";
        EXPECT_EQ(original.referenceCount(), 4);
        EXPECT_EQ(a.length(), 12);

        // The characters sit 8 bytes into the block, after the count and the length.
        const int32_t* header = reinterpret_cast<const int32_t*>(original.c_str()) - 2;
        EXPECT_EQ(header[0], 4);
        EXPECT_EQ(header[1], 12);

        a.release();
        b.release();
        c.release();
        EXPECT_TRUE(a.isSharedEmpty());
        EXPECT_EQ(original.referenceCount(), 1);
        EXPECT_EQ(SharedString::liveBlocks(), before + 1);
        original.release();
        EXPECT_EQ(SharedString::liveBlocks(), before) << "the last release frees the block";
        original.release();
        EXPECT_EQ(SharedString::liveBlocks(), before) << "releasing twice frees nothing more";
    }
    EXPECT_EQ(SharedString::liveBlocks(), before);
}

TEST(SharedString, SetTakesCountedPrefixAndReplacesOldBlock) {
    long before = SharedString::liveBlocks();
    SharedString label, keeper;
    label.set(L"Load File", 4);
    EXPECT_STREQ(label.c_str(), L"Load") << "terminated at the count";
    keeper = label;
    label.set(L"Save File");
    EXPECT_STREQ(keeper.c_str(), L"Load") << "the other holder keeps the old text";
    EXPECT_STREQ(label.c_str(), L"Save File");
    label.set(label.c_str() + 5);  // from its own characters
    EXPECT_STREQ(label.c_str(), L"File");
    keeper = keeper;
    EXPECT_EQ(keeper.referenceCount(), 1);
    label.release();
    keeper.release();
    EXPECT_EQ(SharedString::liveBlocks(), before);
}

}  // namespace
