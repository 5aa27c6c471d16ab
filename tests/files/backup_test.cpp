// Settings backups: export bytes, import effects read back from the registry, refused and failed imports.
#include <tuple>

#include "common/test_support.h"
#include "files/registry_text.h"
#include "files/safe_format.h"
#include "files/settings_backup.h"
#include "files_test_support.h"
#include "settings/settings.h"

namespace {

const wchar_t kProduct[] = L"Software\\Orvane\\Quillory";

std::wstring Sub(const wchar_t* child) { return kProduct + (L"\\" + std::wstring(child)); }

class BackupTest : public ::testing::Test {
protected:
    void SetUp() override { TearDown(); }
    void TearDown() override {
        RegRemoveTree(HKEY_CURRENT_USER, kProduct);
        ClearCategories(g_categories);
        ClearFilters(g_filters);
    }
    ScratchFolder folder{L"backup"};
};

TEST_F(BackupTest, ExportWritesTheExactBytesAndImportingThemRestoresTheTree) {
    RegPutDword(HKEY_CURRENT_USER, kProduct, L"Alpha", 0xFFFFFFFF);
    RegPutString(HKEY_CURRENT_USER, kProduct, L"Beta", L"C:\\path \"quoted\" 100% = x");
    RegPutString(HKEY_CURRENT_USER, kProduct, L"QLFiltersFileFolder", folder.path().c_str());
    RegPutDword(HKEY_CURRENT_USER, kProduct, L"Zeta", 0x80000000);
    RegPutRaw(HKEY_CURRENT_USER, Sub(L"Calendar").c_str(), L"Bin", REG_EXPAND_SZ, L"%T%", 8);
    // 127 characters fill the 256 bytes of value data; 128 end the key's values there.
    RegPutString(HKEY_CURRENT_USER, Sub(L"Colors").c_str(), L"C1", std::wstring(127, L'x').c_str());
    RegPutString(HKEY_CURRENT_USER, Sub(L"Colors").c_str(), L"C2", std::wstring(128, L'y').c_str());
    RegPutDword(HKEY_CURRENT_USER, Sub(L"Colors").c_str(), L"C3", 1);
    RegPutString(HKEY_CURRENT_USER, Sub(L"Colors\\Sub").c_str(), L"Dee", L"");
    AddCategory(g_categories, L"work", 0, kNoCategoryColour);
    AddCategory(g_categories, L"Home", 5, 0x00FF0000);
    AddFilter(g_filters, 2, L"Other", false, false, 9);
    AddFilter(g_filters, 1, L"Mine %d \x4E2D", true, true);
    AddFilter(g_filters, 3, std::wstring(1000, L'f').c_str());
    const std::wstring path = folder.file(L"out.qlsb");
    ASSERT_TRUE(ExportSettings(path.c_str()));
    const std::wstring expected =
        L"\n[Software\\Orvane\\Quillory]\n\"Alpha\"=dword:-1\n\"Beta\"=\"C:\\path \"quoted\" 100% = x\"\n"
        L"\"QLFiltersFileFolder\"=\"" + folder.path() + L"\"\n\"Zeta\"=dword:-2147483648\n"
        L"\n[Software\\Orvane\\Quillory\\Calendar]\n\n[Software\\Orvane\\Quillory\\Colors]\n"
        L"\"C1\"=\"" + std::wstring(127, L'x') + L"\"\n\n[Software\\Orvane\\Quillory\\Colors\\Sub]\n\"Dee\"=\"\"\n"
        L"\n[::Categories::]\n\"Category\"=\"Home\"\n\"FiltersFlag\"=dword:5\n\"Color\"=dword:16711680\n"
        L"\"Category\"=\"work\"\n\"FiltersFlag\"=dword:0\n\"Color\"=dword:-1\n\n[::Filters::]\n"
        L"\"FilterName\"=\"Mine %d \x4E2D\"\n\"Index\"=dword:1\n\"VisibleState\"=dword:1\n\"IncludeUncategorized\"=dword:1\n"
        L"\"FilterName\"=\"Other\"\n\"Index\"=dword:2\n\"VisibleState\"=dword:0\n\"IncludeUncategorized\"=dword:0\n"
        L"\"FilterName\"=\"" + std::wstring(1000, L'f') + L"\"\n\"Index\"=dword:3\n\"VisibleState\"=dword:1\n"
        L"\"IncludeUncategorized\"=dword:0\n";
    const std::string bytes = ReadBytes(path);
    EXPECT_EQ(WideFromUtf16(bytes), expected);
    EXPECT_EQ(bytes.size(), 2 * expected.size());
    EXPECT_FALSE(ExportSettings(folder.file(L"missing\\out.qlsb").c_str()));
    EXPECT_EQ(GetFileAttributesW(folder.file(L"missing").c_str()), INVALID_FILE_ATTRIBUTES);

    RegRemoveTree(HKEY_CURRENT_USER, kProduct);
    RegPutDword(HKEY_CURRENT_USER, Sub(L"Calendar").c_str(), L"Stray", 5);
    const std::string filtersFile = FiltersFileBytes(g_filters);
    for (FilterRecord* r = g_filters.head; r; r = r->next) {
        r->title.assign(L"x");
        r->visible = r->includeUncategorized = false;
    }
    for (CategoryRecord* r = g_categories.head; r; r = r->next) r->colour = r->filterMask = 0;
    ASSERT_TRUE(ImportSettings(path.c_str()));
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kProduct, L"Zeta", 0x80000000);
    EXPECT_REG_STRING(HKEY_CURRENT_USER, Sub(L"Colors").c_str(), L"C1", std::wstring(127, L'x').c_str());
    EXPECT_REG_STRING(HKEY_CURRENT_USER, Sub(L"Colors\\Sub").c_str(), L"Dee", L"");
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, Sub(L"Calendar").c_str(), L"Stray");
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, Sub(L"Categories").c_str(), L"CatColor.Home", 0x00FF0000);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, Sub(L"Categories").c_str(), L"CatFilter.Home", 5);
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, Sub(L"Categories").c_str(), L"CatColor.work");
    EXPECT_STREQ(g_settings.general.QLFiltersFileFolder.c_str(), folder.path().c_str()) << "record reloaded";
    EXPECT_EQ(ReadBytes(folder.file(L"QLFilters.txt")), filtersFile) << "titles and flags came back";
}

TEST_F(BackupTest, ValueLinesAreWrittenWithTheirQuirksUpToTheEmptyLine) {
    const std::wstring q = Sub(L"Q"), c = Sub(L"C");
    RegPutString(HKEY_CURRENT_USER, q.c_str(), L"Same", L"old");
    RegPutString(HKEY_CURRENT_USER, q.c_str(), L"", L"old default");
    Utf16TextReader in(Utf16Bytes(
        L"\n[Software\\Orvane\\Quillory\\Q]\n\"Same\"=\"not_the_same\"\n\"Over\"=dword:4294967295\n"
        L"\"Split\"=\"a\"=\"b\"\n\"abc\"=\"\n\"a\"=\"\"\n\"Unclosed\"=\"text\nplain\n\"O\"=hex:01\n"
        L"\"a%db\"=dword:1\n\"a%%b\"=dword:3\n\"" + std::wstring(300, L'%') +
        L"\"=dword:5\n[Software\\Orvane\\Quillory\\B]\n\"FromB\"=dword:6\n\n[]\n\"QLFilesTestAtRoot\"=dword:7\n"
        L"\n[::Categories::]\n\"Category\"=\"Garden\"\n\"FiltersFlag\"=dword:1\n\"color\"=dword:1\n\"Category\"=\"work\"\n"
        L"\"FiltersFlag\"=dword:16\n\"Extra\"=dword:1\n\"Colour\"=dword:-1\n\"Category\"=\"WORK\"\n\"FiltersFlag\"=dword:7\n"
        L"\"Color\"=dword:7\n\n[Software\\Orvane\\Quillory\\C]\n\"z\"=\"last\"\n\"n\"=dword:8"));
    const CategoryRecord* work = AddCategory(g_categories, L"work", 1, 100);
    ASSERT_TRUE(ReadRegistryTextFile(in, g_categories, g_filters));
    EXPECT_TRUE(work->filterMask == 16 && work->colour == 0xFFFFFFFF) << "the name matched exactly, the fourth line";
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, q.c_str(), L"Same");
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, q.c_str(), L"Over", 0x7FFFFFFF);  // wcstol saturates
    EXPECT_REG_STRING(HKEY_CURRENT_USER, q.c_str(), L"Split", L"a\"=\"b");
    EXPECT_REG_STRING(HKEY_CURRENT_USER, q.c_str(), L"abc", L"");  // eight characters: the quote is shared
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, q.c_str(), L"a");          // seven: the wrong shape, like "Unclosed"
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, q.c_str(), L"Unclosed");
    EXPECT_REG_STRING(HKEY_CURRENT_USER, q.c_str(), L"", L"");
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, q.c_str(), L"O");
    // A dword line's name is the rest of the line formatted without arguments into 128
    // characters, cut where the name ends in the line.
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, q.c_str(), L"a0b\"", 1);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, q.c_str(), L"a%b\"", 3);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, q.c_str(), std::wstring(127, L'%').c_str(), 5);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, q.c_str(), L"FromB", 6);  // a header without an empty line before it
    EXPECT_FALSE(RegKeyExists(HKEY_CURRENT_USER, Sub(L"B").c_str()));
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, L"", L"QLFilesTestAtRoot", 7);
    RegDeleteValueW(HKEY_CURRENT_USER, L"QLFilesTestAtRoot");
    EXPECT_REG_STRING(HKEY_CURRENT_USER, c.c_str(), L"z", L"last");
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, c.c_str(), L"n", 8);  // eight characters from "=dword"
}

TEST(SafeFormatTest, DirectivesGetZeroOrNothingAndAnUnfinishedOneEndsTheText) {
    const std::tuple<const wchar_t*, int, const wchar_t*> cases[] = {
        {L"%5d|%-5d|%05d|%.3d|%x", 64, L"    0|0    |00000|000|0"}, {L"%-3s|%2S|%c%n", 64, L"   |  |"},
        {L"%ld%hd%I64d%#x", 64, L"0000"}, {L"abc%", 64, L"abc"}, {L"ab%-5", 64, L"ab"}, {L"ab%.", 64, L"ab"},
        {L"abcdef", 4, L"abc"}, {L"abc", 1, L""}, {L"%99999999999d", 6, L"     "}};
    for (const auto& [format, capacity, expected] : cases) {
        wchar_t out[64];
        wmemset(out, L'#', 64);
        EXPECT_EQ(FormatWithoutArguments(format, out, capacity), static_cast<int>(wcslen(expected))) << format;
        EXPECT_STREQ(out, expected) << format;
    }
}

TEST_F(BackupTest, ARefusedOrFailedImportKeepsWhatWasWrittenAndDoesNotReload) {
    const std::wstring section = L"[Software\\Orvane\\Quillory]\n\"A\"=dword:1\n\n";
    for (const std::string& bytes : {Utf16Bytes(section), std::string(), Utf16Bytes(L"\xFEFF\n" + section),
                                     Utf16Bytes(L"\r\n" + section), std::string("\n[Software\\Orvane\\Quillory]\n")}) {
        RegPutDword(HKEY_CURRENT_USER, kProduct, L"Kept", 3);
        WriteBytes(folder.file(L"bad.qlsb"), bytes);
        EXPECT_FALSE(ImportSettings(folder.file(L"bad.qlsb").c_str()));
        EXPECT_REG_DWORD(HKEY_CURRENT_USER, kProduct, L"Kept", 3);
        EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kProduct, L"A");
    }
    EXPECT_FALSE(ImportSettings(folder.file(L"no such file.qlsb").c_str()));
    LoadSettings();
    SetInt(g_settings.general.OnClick, 4321);
    WriteBytes(folder.file(L"bad.qlsb"), Utf16Bytes(L"\n[Software\\Orvane\\Quillory]\n\"OnClick\"=dword:2\n"
                                                    L"\n[Software\\Orvane\\Quillory\\Before]\n\"B\"=dword:2\n"
                                                    L"\n[Software\\Orvane\\Quillory\\" + std::wstring(300, L'k') + L"]\n"
                                                    L"\n[Software\\Orvane\\Quillory\\After]\n\"D\"=dword:4\n"));
    EXPECT_FALSE(ImportSettings(folder.file(L"bad.qlsb").c_str())) << "a key name too long for the registry";
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kProduct, L"Kept");
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kProduct, L"OnClick", 2);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, Sub(L"Before").c_str(), L"B", 2);
    EXPECT_FALSE(RegKeyExists(HKEY_CURRENT_USER, Sub(L"After").c_str()));
    EXPECT_EQ(g_settings.general.OnClick.value, 4321);
}

TEST(BackupFileNameTest, IsTheDateWithUnderscores) {
    EXPECT_STREQ(BackupFileName(SYSTEMTIME{2024, 3, 0, 5}).c_str(), L"QL_Backup_2024_03_05");
    EXPECT_EQ(BackupFileName().length(), 20);
}

}  // namespace
