// Settings backups: the exact bytes of an export, a full export-wipe-import round trip, the
// reader's deliberate quirks and what a failed import leaves behind.
#include <windows.h>

#include <random>
#include <string>

#include "common/test_support.h"
#include "files/registry_text.h"
#include "files/settings_backup.h"
#include "files/text_stream.h"
#include "files_test_support.h"
#include "settings/settings.h"

namespace {

const wchar_t kProduct[] = L"Software\\Orvane\\Quillory";
const wchar_t kScratchKey[] = L"Software\\QLFilesTest";

class BackupTest : public ::testing::Test {
protected:
    void SetUp() override {
        RegRemoveTree(HKEY_CURRENT_USER, kProduct);
        RegRemoveTree(HKEY_CURRENT_USER, kScratchKey);
        ClearCategories(g_categories);
        ClearFilters(g_filters);
    }
    void TearDown() override {
        RegRemoveTree(HKEY_CURRENT_USER, kProduct);
        RegRemoveTree(HKEY_CURRENT_USER, kScratchKey);
        ClearCategories(g_categories);
        ClearFilters(g_filters);
    }

    // Reads `text` (as UTF-16LE bytes) through the file entry point.
    bool Import(const std::wstring& text) {
        WriteBytes(folder.file(L"in.qlsb"), Utf16Bytes(text));
        return ImportSettings(folder.file(L"in.qlsb").c_str());
    }
    bool ReadText(const std::wstring& text) {
        Utf16TextReader in(Utf16Bytes(text));
        return ReadRegistryTextFile(in, g_categories, g_filters);
    }

    ScratchFolder folder{L"backup"};
};

std::wstring Key(const wchar_t* sub) { return std::wstring(kScratchKey) + L"\\" + sub; }

TEST_F(BackupTest, ExportWritesTheExactBytes) {
    const std::wstring q = kProduct;
    const std::wstring text127(127, L'x'), text128(128, L'y');
    RegPutDword(HKEY_CURRENT_USER, kProduct, L"Alpha", 0xFFFFFFFF);
    RegPutString(HKEY_CURRENT_USER, kProduct, L"Beta", L"C:\\path \"quoted\" 100% = x");
    const BYTE binary[] = {1, 2, 3};
    RegPutRaw(HKEY_CURRENT_USER, kProduct, L"Gamma", REG_BINARY, binary, sizeof binary);
    RegPutDword(HKEY_CURRENT_USER, kProduct, L"Zeta", 7);
    RegPutString(HKEY_CURRENT_USER, (q + L"\\Calendar").c_str(), L"A1", L"");
    RegPutDword(HKEY_CURRENT_USER, (q + L"\\Calendar").c_str(), L"A2", 0x80000000);
    RegPutRaw(HKEY_CURRENT_USER, (q + L"\\Calendar").c_str(), L"A3", REG_EXPAND_SZ, L"%TEMP%", 14);
    RegPutDword(HKEY_CURRENT_USER, (q + L"\\Calendar\\Nested").c_str(), L"Gone", 1);
    RegPutRaw(HKEY_CURRENT_USER, (q + L"\\Calendar\\Nested").c_str(), L"Gone", REG_BINARY, binary, 0);
    RegPutString(HKEY_CURRENT_USER, (q + L"\\Colors").c_str(), L"C1", text127.c_str());
    RegPutString(HKEY_CURRENT_USER, (q + L"\\Colors").c_str(), L"C2", text128.c_str());
    RegPutDword(HKEY_CURRENT_USER, (q + L"\\Colors").c_str(), L"C3", 1);
    RegPutDword(HKEY_CURRENT_USER, (q + L"\\Colors\\Sub").c_str(), L"D", 2);
    AddCategory(g_categories, L"work", 0x80000000, kNoCategoryColour);
    AddCategory(g_categories, L"Home", 5, 0x00FF0000);
    AddFilter(g_filters, 2, L"Other", false, false, 9);
    AddFilter(g_filters, 1, L"Mine %d", true, true);

    ASSERT_TRUE(ExportSettings(folder.file(L"out.qlsb").c_str()));

    const std::wstring expected =
        L"\n[Software\\Orvane\\Quillory]\n"
        L"\"Alpha\"=dword:-1\n"
        L"\"Beta\"=\"C:\\path \"quoted\" 100% = x\"\n"
        L"\"Zeta\"=dword:7\n"
        L"\n[Software\\Orvane\\Quillory\\Calendar]\n"
        L"\"A1\"=\"\"\n"
        L"\"A2\"=dword:-2147483648\n"
        L"\n[Software\\Orvane\\Quillory\\Calendar\\Nested]\n"
        L"\n[Software\\Orvane\\Quillory\\Colors]\n"
        L"\"C1\"=\"" + text127 + L"\"\n"
        L"\n[Software\\Orvane\\Quillory\\Colors\\Sub]\n"
        L"\"D\"=dword:2\n"
        L"\n[::Categories::]\n"
        L"\"Category\"=\"Home\"\n\"FiltersFlag\"=dword:5\n\"Color\"=dword:16711680\n"
        L"\"Category\"=\"work\"\n\"FiltersFlag\"=dword:-2147483648\n\"Color\"=dword:-1\n"
        L"\n[::Filters::]\n"
        L"\"FilterName\"=\"Mine %d\"\n\"Index\"=dword:1\n\"VisibleState\"=dword:1\n\"IncludeUncategorized\"=dword:1\n"
        L"\"FilterName\"=\"Other\"\n\"Index\"=dword:2\n\"VisibleState\"=dword:0\n\"IncludeUncategorized\"=dword:0\n";
    std::string bytes = ReadBytes(folder.file(L"out.qlsb"));
    EXPECT_EQ(bytes, Utf16Bytes(expected)) << Printable(WideFromUtf16(bytes));
}

TEST_F(BackupTest, ExportToAFileThatCannotBeCreatedFailsAndWritesNothing) {
    RegPutDword(HKEY_CURRENT_USER, kProduct, L"Alpha", 1);
    std::wstring path = folder.file(L"missing\\out.qlsb");
    EXPECT_FALSE(ExportSettings(path.c_str()));
    EXPECT_EQ(GetFileAttributesW(path.c_str()), INVALID_FILE_ATTRIBUTES);
}

// A product tree like the real one: a dozen sub-keys, about 400 text and number values.
void PopulateProductTree(std::mt19937& random) {
    const wchar_t* subKeys[] = {L"", L"\\Calendar", L"\\Tasks", L"\\Notes", L"\\Notes\\Folders", L"\\Contacts",
                                L"\\Contacts\\Alphabets", L"\\Messages", L"\\SEvents", L"\\Fonts", L"\\Colors",
                                L"\\CustomPIM", L"\\TabSettings", L"\\TabSettings\\Contacts",
                                L"\\TabSettings\\Some Plugin", L"\\Categories"};
    const DWORD numbers[] = {0, 1, 2, 100, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF, 0xFFFFFFFE, 12345678};
    const wchar_t* texts[] = {L"", L"Tahoma", L"\\Program Files\\Orvane\\Quillory\\LangRes\\QLEngRc.dll",
                              L"100% \"quoted\" = text", L"dddd, MMMM d", L"[not a header]", L"=dword:5",
                              L"not_the_sam"};
    int n = 0;
    for (const wchar_t* sub : subKeys) {
        std::wstring path = std::wstring(kProduct) + sub;
        int count = 10 + static_cast<int>(random() % 40);
        for (int i = 0; i < count; ++i, ++n) {
            wchar_t name[64];
            bool number = random() % 2;
            // A '=' in a number's name would cut the name on reading; texts may have one.
            swprintf(name, 64, L"Value%03d_%ls", n, i % 7 == 0 ? (number ? L"with spaces" : L"with = sign") : L"x");
            if (number) {
                RegPutDword(HKEY_CURRENT_USER, path.c_str(), name, numbers[random() % 9]);
            } else {
                std::wstring text = texts[random() % 8];
                if (random() % 5 == 0) text = std::wstring(127, static_cast<wchar_t>(L'a' + random() % 26));
                RegPutString(HKEY_CURRENT_USER, path.c_str(), name, text.c_str());
            }
        }
    }
    RegPutString(HKEY_CURRENT_USER, kProduct, L"", L"the default value");
    RegPutDword(HKEY_CURRENT_USER, (std::wstring(kProduct) + L"\\Fonts").c_str(), std::wstring(120, L'n').c_str(), 3);
}

TEST_F(BackupTest, ExportWipeImportRestoresEveryTextAndNumberValue) {
    std::mt19937 random(1234);
    PopulateProductTree(random);
    RegPutString(HKEY_CURRENT_USER, kProduct, L"QLFiltersFileFolder", folder.path().c_str());
    const BYTE binary[] = {9, 9};
    RegPutRaw(HKEY_CURRENT_USER, kProduct, L"FoldState", REG_BINARY, binary, sizeof binary);
    RegSnapshot before = WithoutEmptyKeys(Snapshot(HKEY_CURRENT_USER, kProduct, true));
    ASSERT_GE(before.size(), 15u);
    MakeDefaultFilters(g_filters);

    std::wstring path = folder.file(L"QL_Backup.qlsb");
    ASSERT_TRUE(ExportSettings(path.c_str()));
    RegRemoveTree(HKEY_CURRENT_USER, kProduct);
    RegPutDword(HKEY_CURRENT_USER, kProduct, L"Stray", 5);
    ASSERT_TRUE(ImportSettings(path.c_str()));

    RegSnapshot after = WithoutEmptyKeys(Snapshot(HKEY_CURRENT_USER, kProduct, true));
    EXPECT_TRUE(before == after);
    for (auto& key : before) {
        auto found = after.find(key.first);
        if (found == after.end()) {
            ADD_FAILURE() << "key lost: " << Printable(key.first);
            continue;
        }
        for (auto& value : key.second)
            EXPECT_TRUE(found->second.count(value.first) && found->second[value.first] == value.second)
                << Printable(key.first + L" \\ " + value.first);
    }
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kProduct, L"Stray");
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kProduct, L"FoldState");
    // The settings were reloaded from the imported tree, and the filters file written where it says.
    EXPECT_STREQ(g_settings.general.QLFiltersFileFolder.c_str(), folder.path().c_str());
    EXPECT_EQ(ReadBytes(folder.file(L"QLFilters.txt")), FiltersFileBytes(g_filters));
}

TEST_F(BackupTest, AFileThatDoesNotStartWithAnEmptyLineIsRefusedUntouched) {
    const std::wstring section = L"[Software\\Orvane\\Quillory]\n\"A\"=dword:1\n\n";
    const std::string refused[] = {
        Utf16Bytes(section),                              // header on the first line
        std::string(),                                    // empty file
        Utf16Bytes(L"\xFEFF\n" + section),                // byte-order mark
        Utf16Bytes(L"\r\n[Software\\Orvane\\Quillory]\r\n\"A\"=dword:1\r\n"),  // CR LF lines
        std::string("\0\n\0[", 4),                        // UTF-16 big-endian
        std::string("\n[Software\\Orvane\\Quillory]\n\"A\"=dword:1\n"),  // 8-bit text
    };
    for (const std::string& bytes : refused) {
        RegPutDword(HKEY_CURRENT_USER, kProduct, L"Kept", 3);
        WriteBytes(folder.file(L"bad.qlsb"), bytes);
        EXPECT_FALSE(ImportSettings(folder.file(L"bad.qlsb").c_str()));
        EXPECT_REG_DWORD(HKEY_CURRENT_USER, kProduct, L"Kept", 3);
        EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kProduct, L"A");
    }
    EXPECT_FALSE(ImportSettings(folder.file(L"no such file.qlsb").c_str()));
}

TEST_F(BackupTest, SectionsWithoutAnEmptyLineMergeIntoTheFirstKey) {
    ASSERT_TRUE(ReadText(L"\n[Software\\QLFilesTest\\A]\n\"x\"=dword:1\n[Software\\QLFilesTest\\B]\n\"y\"=dword:2\n"
                         L"\n[Software\\QLFilesTest\\C]\n\"z\"=\"last\"\n"));
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, Key(L"A").c_str(), L"x", 1);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, Key(L"A").c_str(), L"y", 2);
    EXPECT_FALSE(RegKeyExists(HKEY_CURRENT_USER, Key(L"B").c_str()));
    EXPECT_REG_STRING(HKEY_CURRENT_USER, Key(L"C").c_str(), L"z", L"last");
    // A header on the last line, without its line feed, is no header.
    ASSERT_TRUE(ReadText(L"\n[Software\\QLFilesTest\\D]"));
    EXPECT_FALSE(RegKeyExists(HKEY_CURRENT_USER, Key(L"D").c_str()));
}

TEST_F(BackupTest, ValueLinesAreWrittenWithTheirQuirks) {
    RegPutString(HKEY_CURRENT_USER, Key(L"Q").c_str(), L"Same", L"old");
    RegPutString(HKEY_CURRENT_USER, Key(L"Q").c_str(), L"", L"old default");
    ASSERT_TRUE(ReadText(L"\n[Software\\QLFilesTest\\Q]\n"
                         L"\"Same\"=\"not_the_same\"\n"          // deleted, not written
                         L"\"Minus\"=dword:-1\n"
                         L"\"Max\"=dword:2147483647\n"
                         L"\"Wrapped\"=dword:4294967295\n"      // beyond a signed number: clamped
                         L"\"Zero\"=dword:0\n"
                         L"\"Split\"=\"a\"=\"b\"\n"              // split at the first "="
                         L"\"Text\"=\"100% %s %n\"\n"           // texts are never formatted
                         L"\"Unclosed\"=\"text\n"               // wrong shape: empty default value
                         L"plain line\n"
                         L"\"Other\"=hex:01,02\n"));
    const std::wstring q = Key(L"Q");
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, q.c_str(), L"Same");
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, q.c_str(), L"Minus", 0xFFFFFFFF);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, q.c_str(), L"Max", 0x7FFFFFFF);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, q.c_str(), L"Wrapped", 0x7FFFFFFF);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, q.c_str(), L"Zero", 0);
    EXPECT_REG_STRING(HKEY_CURRENT_USER, q.c_str(), L"Split", L"a\"=\"b");
    EXPECT_REG_STRING(HKEY_CURRENT_USER, q.c_str(), L"Text", L"100% %s %n");
    EXPECT_REG_STRING(HKEY_CURRENT_USER, q.c_str(), L"", L"");
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, q.c_str(), L"Unclosed");
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, q.c_str(), L"Other");
}

TEST_F(BackupTest, PercentInADwordNameIsFormattedSafely) {
    ASSERT_TRUE(ReadText(L"\n[Software\\QLFilesTest\\P]\n"
                         L"\"a%db\"=dword:1\n"
                         L"\"a%sb\"=dword:2\n"
                         L"\"a%nb\"=dword:3\n"
                         L"\"a%%b\"=dword:4\n"
                         L"\"%999999d\"=dword:5\n"
                         L"\"%.99999s%ls%hs%I64d%c%*d%\"=dword:6\n"
                         L"\"plain\"=dword:7\n"));
    const std::wstring p = Key(L"P");
    // The format's output is cut at the position of the name's end in the line.
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, p.c_str(), L"a0b\"", 1);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, p.c_str(), L"ab\"=", 3);  // %s and %n both print nothing
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, p.c_str(), L"a%b\"", 4);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, p.c_str(), L"        ", 5);  // all padding up to the cut
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, p.c_str(), L"plain", 7);
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, p.c_str(), L"a%db");

    WString name;
    DWORD value = 99;
    EXPECT_TRUE(ParseDwordLine(L"\"%s%s%s%s%s%s%s%s%s%s%s%s%s%s%s%s%s%s%s%s\"=dword:8\n", name, value, 10));
    EXPECT_EQ(value, 8u);
    std::wstring longName(300, L'%');
    EXPECT_TRUE(ParseDwordLine((L"\"" + longName + L"\"=dword:9\n").c_str(), name, value, 10));
    EXPECT_EQ(name.length(), 127);
    EXPECT_FALSE(ParseDwordLine(L"\"x\"=dword:", name, value, 10));
    EXPECT_EQ(value, 0u);
    EXPECT_FALSE(ParseDwordLine(L"no equals sign", name, value, 10));
    EXPECT_FALSE(ParseDwordLine(L"", name, value, 10));
}

TEST_F(BackupTest, LinePartsAreSplitByPosition) {
    WString name, text;
    EXPECT_TRUE(ParseSectionHeader(L"[a]\n", name));
    EXPECT_STREQ(name.c_str(), L"a");
    EXPECT_TRUE(ParseSectionHeader(L"[]\n", name));
    EXPECT_STREQ(name.c_str(), L"");
    EXPECT_FALSE(ParseSectionHeader(L"[a]", name));
    EXPECT_FALSE(ParseSectionHeader(L" [a]\n", name));
    EXPECT_FALSE(ParseSectionHeader(L"[\n", name));
    EXPECT_EQ(ClassifySection(L"::Categories::"), kCategoriesSection);
    EXPECT_EQ(ClassifySection(L"::Filters::"), kFiltersSection);
    EXPECT_EQ(ClassifySection(L"::filters::"), kKeySection);

    EXPECT_TRUE(ParseStringLine(L"\"a\"=\"b\"\n", name, text));
    EXPECT_STREQ(name.c_str(), L"a");
    EXPECT_STREQ(text.c_str(), L"b");
    EXPECT_TRUE(ParseStringLine(L"\"Title\"=\"Filter 1\"\r", name, text));  // the filters file's lines
    EXPECT_STREQ(text.c_str(), L"Filter 1");
    EXPECT_TRUE(ParseStringLine(L"\"abcd\"=\"\n", name, text));  // the closing quote is the separator's
    EXPECT_STREQ(name.c_str(), L"abcd");
    EXPECT_STREQ(text.c_str(), L"");
    EXPECT_FALSE(ParseStringLine(L"\"a\"=\"\"\n", name, text));   // 7 characters
    EXPECT_FALSE(ParseStringLine(L"\"a\"=\"bc\"", name, text));   // no line feed after the quote
    EXPECT_FALSE(ParseStringLine(L"a\"=\"bcde\"\n", name, text));
    EXPECT_STREQ(name.c_str(), L"");
}

TEST_F(BackupTest, SpecialSectionsUpdateOnlyListedRecords) {
    AddCategory(g_categories, L"work", 1, 100);
    AddCategory(g_categories, L"Home", 2, 200);
    AddCategory(g_categories, L"home", 3, 300);
    MakeDefaultFilters(g_filters);
    ASSERT_TRUE(ReadText(
        L"\n[::Categories::]\n"
        L"\"Category\"=\"home\"\n\"FiltersFlag\"=dword:-1\n\"Color\"=dword:255\n"
        L"\"Category\"=\"HOME\"\n\"FiltersFlag\"=dword:7\n\"Color\"=dword:7\n"              // no such name
        L"\"Category\"=\"work\"\n\"FiltersFlag\"=dword:16\n\"Extra\"=dword:1\n\"Colour\"=dword:-1\n"  // four lines
        L"\"Category\"=\"Garden\"\n\"FiltersFlag\"=dword:1\n\"color\"=dword:1\n"
        L"\n[::Filters::]\n"
        L"\"FilterName\"=\"Renamed\"\n\"Index\"=dword:3\n\"VisibleState\"=dword:0\n\"IncludeUncategorized\"=dword:5\n"
        L"\"FilterName\"=\"Nowhere\"\n\"Index\"=dword:77\n\"VisibleState\"=dword:0\n\"IncludeUncategorized\"=dword:0\n"
        L"\n"));
    ASSERT_EQ(g_categories.count, 3);
    CategoryRecord* home = g_categories.head;
    EXPECT_STREQ(home->name.c_str(), L"Home");
    EXPECT_EQ(home->filterMask, 2u);
    EXPECT_EQ(home->colour, 200u);
    EXPECT_EQ(home->next->filterMask, 0xFFFFFFFFu);
    EXPECT_EQ(home->next->colour, 255u);
    EXPECT_EQ(home->next->next->filterMask, 16u);
    EXPECT_EQ(home->next->next->colour, 0xFFFFFFFFu);
    ASSERT_EQ(g_filters.count, 32);
    FilterRecord* renamed = FindFilter(g_filters, 3);
    EXPECT_STREQ(renamed->title.c_str(), L"Renamed");
    EXPECT_FALSE(renamed->visible);
    EXPECT_TRUE(renamed->includeUncategorized);
    EXPECT_STREQ(FindFilter(g_filters, 2)->title.c_str(), L"Filter 3");
    EXPECT_TRUE(FindFilter(g_filters, 2)->visible);
}

TEST_F(BackupTest, AFailurePartWayKeepsWhatWasWrittenAndDoesNotReload) {
    RegPutDword(HKEY_CURRENT_USER, kProduct, L"Old", 1);
    LoadSettings();
    SetInt(g_settings.general.OnClick, 4321);
    const std::wstring tooLong(300, L'k');
    EXPECT_FALSE(Import(L"\n[Software\\Orvane\\Quillory]\n\"OnClick\"=dword:2\n"
                        L"\n[Software\\QLFilesTest\\Before]\n\"B\"=dword:2\n"
                        L"\n[Software\\QLFilesTest\\" + tooLong + L"]\n\"C\"=dword:3\n"
                        L"\n[Software\\QLFilesTest\\After]\n\"D\"=dword:4\n"));
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kProduct, L"Old");
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kProduct, L"OnClick", 2);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, Key(L"Before").c_str(), L"B", 2);
    EXPECT_FALSE(RegKeyExists(HKEY_CURRENT_USER, Key(L"After").c_str()));
    EXPECT_EQ(g_settings.general.OnClick.value, 4321);

    ASSERT_TRUE(Import(L"\n[Software\\Orvane\\Quillory]\n\"OnClick\"=dword:2\n"
                       L"\"QLFiltersFileFolder\"=\"" + folder.path() + L"\"\n"));
    EXPECT_EQ(g_settings.general.OnClick.value, 2);
}

TEST_F(BackupTest, TheRootSectionRoundTripsAtTheUserRootAndTheImportGoesOn) {
    const wchar_t* kNumber = L"QLBackupTestRootNumber";
    const wchar_t* kText = L"QLBackupTestRootText";
    RegPutDword(HKEY_CURRENT_USER, L"", kNumber, 0xFFFFFFFF);
    RegPutString(HKEY_CURRENT_USER, L"", kText, L"at the root");
    Utf16TextWriter out;
    WriteRegistryTree(L"", out);
    RegDeleteValueW(HKEY_CURRENT_USER, kNumber);
    RegDeleteValueW(HKEY_CURRENT_USER, kText);

    // The root's own section comes first; its children are named without a leading backslash.
    std::wstring text = WideFromUtf16(out.bytes());
    ASSERT_EQ(text.rfind(L"\n[]\n", 0), 0u);
    EXPECT_NE(text.find(L"\n[Software]\n"), std::wstring::npos);
    EXPECT_EQ(text.find(L"\n[\\"), std::wstring::npos);
    std::wstring rootSection = text.substr(0, text.find(L"\n\n[", 1) + 1);
    EXPECT_NE(rootSection.find(L"\n\"QLBackupTestRootNumber\"=dword:-1\n"), std::wstring::npos);
    bool imported = Import(rootSection + L"\n[Software\\QLFilesTest\\After]\n\"D\"=dword:4\n"
                                         L"\n[Software\\Orvane\\Quillory]\n\"QLFiltersFileFolder\"=\"" +
                           folder.path() + L"\"\n");
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, L"", kNumber, 0xFFFFFFFF);
    EXPECT_REG_STRING(HKEY_CURRENT_USER, L"", kText, L"at the root");
    RegDeleteValueW(HKEY_CURRENT_USER, kNumber);
    RegDeleteValueW(HKEY_CURRENT_USER, kText);
    EXPECT_TRUE(imported);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, Key(L"After").c_str(), L"D", 4);
}

// A text of `length` characters that starts with `first` and whose every position differs from
// its neighbours, so that a lost or repeated piece shows.
std::wstring LongText(wchar_t first, size_t length) {
    std::wstring text(1, first);
    for (size_t i = 1; i < length; ++i) text += static_cast<wchar_t>(L'a' + i % 26);
    return text;
}

TEST_F(BackupTest, CategoryNamesAndFilterTitlesOfAnyLengthComeBackWhole) {
    RegPutString(HKEY_CURRENT_USER, kProduct, L"QLFiltersFileFolder", folder.path().c_str());
    const std::wstring names[] = {LongText(L'A', 790), LongText(L'B', 5000), L"Normal"};
    for (int i = 0; i < 3; ++i) AddCategory(g_categories, names[i].c_str(), 0x100u + i, 0x010203u * (i + 1));
    MakeDefaultFilters(g_filters);
    for (int i = 0; i < 3; ++i) {
        FilterRecord* filter = FindFilter(g_filters, i);
        filter->title.assign(names[i].c_str());
        filter->visible = i != 2;
        filter->includeUncategorized = i == 2;
    }
    const std::wstring path = folder.file(L"long.qlsb");
    ASSERT_TRUE(ExportSettings(path.c_str()));
    EXPECT_NE(WideFromUtf16(ReadBytes(path)).find(L"\n\"Category\"=\"" + names[1] + L"\"\n\"FiltersFlag\"=dword:257\n"),
              std::wstring::npos);

    for (CategoryRecord* r = g_categories.head; r; r = r->next) r->filterMask = r->colour = 0;
    for (FilterRecord* r = g_filters.head; r; r = r->next) {
        r->title.assign(L"x");
        r->visible = r->includeUncategorized = false;
    }
    ASSERT_TRUE(ImportSettings(path.c_str()));
    for (int i = 0; i < 3; ++i) {
        CategoryRecord* category = FindCategory(g_categories, names[i].c_str());
        ASSERT_NE(category, nullptr);
        EXPECT_EQ(category->filterMask, 0x100u + i) << i;
        EXPECT_EQ(category->colour, 0x010203u * (i + 1)) << i;
        FilterRecord* filter = FindFilter(g_filters, i);
        EXPECT_EQ(std::wstring(filter->title.c_str()), names[i]) << i;
        EXPECT_EQ(filter->visible, i != 2) << i;
        EXPECT_EQ(filter->includeUncategorized, i == 2) << i;
    }
    EXPECT_STREQ(FindFilter(g_filters, 3)->title.c_str(), L"Filter 4");
}

TEST(BackupFileNameTest, IsTheDateWithUnderscores) {
    SYSTEMTIME date = {};
    date.wYear = 2024;
    date.wMonth = 3;
    date.wDay = 5;
    EXPECT_STREQ(BackupFileName(date).c_str(), L"QL_Backup_2024_03_05");
    EXPECT_EQ(BackupFileName().length(), 20);
}

}  // namespace
