// The filters file: its exact bytes, the byte-wise line reader, and the rule that anything but
// exactly 32 records in order gives the 32 defaults.
#include <windows.h>

#include <string>

#include "common/test_support.h"
#include "files/filters.h"
#include "files_test_support.h"

namespace {

std::wstring RecordText(int position, const std::wstring& title, int sensitivity, int visible, int uncategorized) {
    return L"[FILTER" + std::to_wstring(position) + L"]\r\n\"Title\"=\"" + title + L"\"\r\n\"Sensitivity\"=dword:" +
           std::to_wstring(sensitivity) + L"\r\n\"Visible\"=dword:" + std::to_wstring(visible) +
           L"\r\n\"Uncategorized\"=dword:" + std::to_wstring(uncategorized) + L"\r\n";
}

// `count` well-formed records numbered from 0, titled "T1", "T2", ...
std::wstring Records(int count) {
    std::wstring text;
    for (int i = 0; i < count; ++i) text += RecordText(i, L"T" + std::to_wstring(i + 1), i, i % 2, 1);
    return text;
}

void ExpectDefaults(const FilterList& filters) {
    ASSERT_EQ(filters.count, 32);
    int index = 0;
    for (const FilterRecord* r = filters.head; r; r = r->next, ++index) {
        EXPECT_EQ(r->index, index);
        EXPECT_STREQ(r->title.c_str(), (L"Filter " + std::to_wstring(index + 1)).c_str());
        EXPECT_EQ(r->sensitivity, 0);
        EXPECT_TRUE(r->visible);
        EXPECT_FALSE(r->includeUncategorized);
        if (r->next) EXPECT_EQ(r->next->previous, r);
    }
}

class FiltersTest : public ::testing::Test {
protected:
    ScratchFolder folder{L"filters"};
    std::wstring path = folder.file(L"QLFilters.txt");
    FilterList filters;
};

TEST_F(FiltersTest, TheFileHasTheExactBytes) {
    MakeDefaultFilters(filters);
    FindFilter(filters, 0)->title.assign(L"Work \"stuff\" 100%");
    FindFilter(filters, 0)->sensitivity = -3;
    FindFilter(filters, 0)->includeUncategorized = true;
    FindFilter(filters, 31)->visible = false;
    WriteBytes(path, "old content that is longer than nothing");
    WriteFiltersFile(filters, path.c_str());

    std::wstring expected = RecordText(0, L"Work \"stuff\" 100%", -3, 1, 1);
    for (int i = 1; i < 31; ++i) expected += RecordText(i, L"Filter " + std::to_wstring(i + 1), 0, 1, 0);
    expected += RecordText(31, L"Filter 32", 0, 0, 0);
    EXPECT_EQ(ReadBytes(path), Utf16Bytes(expected));
    EXPECT_EQ(FiltersFileBytes(filters), Utf16Bytes(expected));

    // Read back, the filters are numbered from 1, and the text survives.
    FilterList loaded;
    ASSERT_TRUE(LoadFiltersFile(loaded, path.c_str()));
    ASSERT_EQ(loaded.count, 32);
    EXPECT_EQ(loaded.head->index, 1);
    EXPECT_STREQ(loaded.head->title.c_str(), L"Work \"stuff\" 100%");
    EXPECT_EQ(loaded.head->sensitivity, -3);
    EXPECT_TRUE(loaded.head->includeUncategorized);
    EXPECT_STREQ(FindFilter(loaded, 32)->title.c_str(), L"Filter 32");
    EXPECT_FALSE(FindFilter(loaded, 32)->visible);
    EXPECT_EQ(FindFilter(loaded, 0), nullptr);
}

TEST_F(FiltersTest, AFileThatCannotBeCreatedIsSkippedSilently) {
    MakeDefaultFilters(filters);
    std::wstring missing = folder.file(L"no folder\\QLFilters.txt");
    WriteFiltersFile(filters, missing.c_str());
    EXPECT_EQ(GetFileAttributesW(missing.c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST_F(FiltersTest, OnlyExactlyThirtyTwoRecordsInOrderAreTaken) {
    WriteBytes(path, Utf16Bytes(Records(32)));
    EXPECT_TRUE(LoadFiltersFile(filters, path.c_str()));
    ASSERT_EQ(filters.count, 32);
    EXPECT_STREQ(FindFilter(filters, 32)->title.c_str(), L"T32");
    EXPECT_EQ(FindFilter(filters, 32)->sensitivity, 31);

    // Record 5 numbered 6: it is skipped, and "[FILTER5]" never comes.
    const std::wstring outOfTurn = Records(5) + RecordText(6, L"early", 0, 1, 0) + Records(32).substr(
        Records(6).size());
    const std::string wrong[] = {Utf16Bytes(Records(31)), Utf16Bytes(Records(33)), Utf16Bytes(outOfTurn),
                                 std::string(), std::string("\xFF\xFE", 2) + Utf16Bytes(Records(3))};
    for (const std::string& bytes : wrong) {
        WriteBytes(path, bytes);
        EXPECT_FALSE(LoadFiltersFile(filters, path.c_str()));
        ExpectDefaults(filters);
    }
    DeleteFileW(path.c_str());
    EXPECT_FALSE(LoadFiltersFile(filters, path.c_str()));
    ExpectDefaults(filters);
}

TEST_F(FiltersTest, RecordsAreFoundByTheirHeaderTextAndTakenByPosition) {
    // The header text may stand anywhere in its line; value names are not looked at; a byte-order
    // mark does not matter.
    std::wstring text = RecordText(0, L"first", 0, 1, 0);
    text += L"[FILTER10] [FILTER1]\r\n\"Anything\"=\"second\"\r\n\"x\"=dword:7\r\n\"y\"=dword:0\r\n\"z\"=dword:5\r\n";
    text += L"noise line\r\n";
    for (int i = 2; i < 32; ++i) text += L"  " + RecordText(i, L"t", 0, 1, 0);
    EXPECT_TRUE(LoadFiltersFromBytes(filters, Utf16Bytes(L"\xFEFF" + text)));
    FilterRecord* second = FindFilter(filters, 2);
    ASSERT_NE(second, nullptr);
    EXPECT_STREQ(second->title.c_str(), L"second");
    EXPECT_EQ(second->sensitivity, 7);
    EXPECT_FALSE(second->visible);
    EXPECT_TRUE(second->includeUncategorized);

    // A title beyond U+00FF comes back as its bytes.
    MakeDefaultFilters(filters);
    filters.head->title.assign(L"A\x0141z");
    EXPECT_TRUE(LoadFiltersFromBytes(filters, FiltersFileBytes(filters)));
    EXPECT_STREQ(filters.head->title.c_str(), L"AA\x01z");
}

TEST_F(FiltersTest, ByteLinesDropZerosAndRepeatAnUnterminatedLastByte) {
    std::string bytes("ab\r\n\0c\0\nlast", 12);
    ByteSource file(bytes);
    WString line;
    EXPECT_EQ(ReadByteLine(file, line), 1);
    EXPECT_STREQ(line.c_str(), L"ab\r");
    EXPECT_EQ(ReadByteLine(file, line), 1);
    EXPECT_STREQ(line.c_str(), L"c");
    EXPECT_EQ(ReadByteLine(file, line), 0);
    EXPECT_STREQ(line.c_str(), L"lastt");
    EXPECT_EQ(ReadByteLine(file, line), 0);
    EXPECT_STREQ(line.c_str(), L"");

    std::string wide = Utf16Bytes(L"x\ny");
    ByteSource wideFile(wide);
    EXPECT_EQ(ReadByteLine(wideFile, line), 1);
    EXPECT_STREQ(line.c_str(), L"x");
    EXPECT_EQ(ReadByteLine(wideFile, line), 0);
    EXPECT_STREQ(line.c_str(), L"y");  // the repeated last byte is a zero: nothing added
}

TEST_F(FiltersTest, SortedInsertionKeepsEqualIndexesInArrivalOrder) {
    AddFilter(filters, 5, L"a");
    AddFilter(filters, 1, L"b");
    AddFilter(filters, 5, L"c");
    AddFilter(filters, 3, L"d");
    AddFilter(filters, 9, L"e");
    EXPECT_EQ(InListOrder(filters, [](const FilterRecord& r) { return r.title.c_str(); }), L"bdace");
    EXPECT_EQ(filters.count, 5);
    EXPECT_STREQ(FindFilter(filters, 5)->title.c_str(), L"a");
}

}  // namespace
