// The filters file: exact bytes, the byte-wise line reader, exactly 32 records in order or the defaults.
#include "common/test_support.h"
#include "files_test_support.h"

namespace {

std::wstring Record(int position, const std::wstring& title, int sensitivity = 0, int visible = 1, int uncategorized = 0) {
    return L"[FILTER" + std::to_wstring(position) + L"]\r\n\"Title\"=\"" + title + L"\"\r\n\"Sensitivity\"=dword:" +
           std::to_wstring(sensitivity) + L"\r\n\"Visible\"=dword:" + std::to_wstring(visible) +
           L"\r\n\"Uncategorized\"=dword:" + std::to_wstring(uncategorized) + L"\r\n";
}

std::wstring Records(int from, int to) {
    std::wstring text;
    for (int i = from; i < to; ++i) text += Record(i, L"T" + std::to_wstring(i));
    return text;
}

TEST(FiltersTest, TheFileHasTheExactBytesAndOnlyThirtyTwoRecordsInOrderAreTaken) {
    ScratchFolder folder(L"filters");
    const std::wstring path = folder.file(L"QLFilters.txt");
    FilterList filters, loaded;
    MakeDefaultFilters(filters);
    filters.head->title.assign(L"Work \"stuff\" 100%");
    filters.head->sensitivity = -39;
    filters.head->includeUncategorized = true;
    FindFilter(filters, 31)->visible = false;
    WriteBytes(path, "old content that is longer than nothing");
    WriteFiltersFile(filters, path.c_str());
    std::wstring expected = Record(0, L"Work \"stuff\" 100%", -39, 1, 1);
    for (int i = 1; i < 31; ++i) expected += Record(i, L"Filter " + std::to_wstring(i + 1));
    EXPECT_EQ(ReadBytes(path), Utf16Bytes(expected + Record(31, L"Filter 32", 0, 0)));
    ASSERT_TRUE(LoadFiltersFile(loaded, path.c_str()));
    EXPECT_TRUE(loaded.head->index == 1 && FiltersFileBytes(loaded) == ReadBytes(path)) << "numbered from 1, all read";

    // Record 5 numbered 6 is skipped, and then "[FILTER5]" never comes.
    for (const std::wstring& wrong : {Records(0, 31), Records(0, 33), Records(0, 5) + Records(6, 7) + Records(6, 32)}) {
        WriteBytes(path, Utf16Bytes(wrong));
        EXPECT_FALSE(LoadFiltersFile(loaded, path.c_str()));
        EXPECT_TRUE(AreDefaultFilters(loaded));
    }
    DeleteFileW(path.c_str());
    EXPECT_FALSE(LoadFiltersFile(loaded, path.c_str()) || !AreDefaultFilters(loaded));

    // A byte-order mark is noise, a header may stand anywhere in its line, value names are not
    // looked at, and a character beyond U+00FF comes back as two.
    EXPECT_TRUE(LoadFiltersFromBytes(loaded, Utf16Bytes(L"\xFEFF" + Record(0, L"A\x0141z") + L"x [FILTER1]\r\n\"A\"=\"2nd\"\r\n"
                                                        L"\"x\"=dword:79\r\n\"y\"=dword:9\r\n\"z\"=dword:9\r\n" + Records(2, 32))));
    EXPECT_STREQ(loaded.head->title.c_str(), L"AA\x01z");
    const FilterRecord* second = loaded.head->next;
    EXPECT_STREQ(second->title.c_str(), L"2nd");
    EXPECT_TRUE(second->sensitivity == 79 && second->visible && second->includeUncategorized) << "read in base 10";
    EXPECT_STREQ(FindFilter(loaded, 32)->title.c_str(), L"T31");
}

TEST(FiltersTest, ByteLinesDropZerosAndRepeatAnUnterminatedLastByte) {
    const std::string bytes("ab\r\n\0c\0\nlast", 12), wide = Utf16Bytes(L"x\ny");
    ByteSource file(bytes), wideFile(wide);
    WString line;
    const struct { ByteSource* source; int result; const wchar_t* line; } lines[] = {
        {&file, 1, L"ab\r"}, {&file, 1, L"c"}, {&file, 0, L"lastt"}, {&file, 0, L""}, {&wideFile, 1, L"x"}, {&wideFile, 0, L"y"}};
    for (const auto& expected : lines) {
        EXPECT_EQ(ReadByteLine(*expected.source, line), expected.result) << expected.line;
        EXPECT_STREQ(line.c_str(), expected.line);
    }
}

}  // namespace
