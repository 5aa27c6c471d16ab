// Settings backups: export bytes, import effects in the registry, refusals; seeded malformed texts and files.
#include <algorithm>
#include <cwctype>
#include <memory>
#include <random>
#include <set>
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
    InsertFilter(g_filters, new FilterRecord{WString(L"Other"), 9, false, false, 2});
    InsertFilter(g_filters, new FilterRecord{WString(L"Mine %d \x4E2D"), 0, true, true, 1});
    InsertFilter(g_filters, new FilterRecord{WString(std::wstring(1000, L'f').c_str()), 0, true, false, 3});
    const std::wstring path = folder.file(L"out.qlsb");
    ASSERT_TRUE(ExportSettings(path.c_str()));
    const std::wstring expected =
        L"\n[Software\\Orvane\\Quillory]\n\"Alpha\"=dword:-1\n\"Beta\"=\"C:\\path \"quoted\" 100% = x\"\n"
        L"\"QLFiltersFileFolder\"=\"" +
        folder.path() +
        L"\"\n\"Zeta\"=dword:-2147483648\n"
        L"\n[Software\\Orvane\\Quillory\\Calendar]\n\n[Software\\Orvane\\Quillory\\Colors]\n"
        L"\"C1\"=\"" +
        std::wstring(127, L'x') +
        L"\"\n\n[Software\\Orvane\\Quillory\\Colors\\Sub]\n\"Dee\"=\"\"\n"
        L"\n[::Categories::]\n\"Category\"=\"Home\"\n\"FiltersFlag\"=dword:5\n\"Color\"=dword:16711680\n"
        L"\"Category\"=\"work\"\n\"FiltersFlag\"=dword:0\n\"Color\"=dword:-1\n\n[::Filters::]\n"
        L"\"FilterName\"=\"Mine %d "
        L"\x4E2D\"\n\"Index\"=dword:1\n\"VisibleState\"=dword:1\n\"IncludeUncategorized\"=dword:1\n"
        L"\"FilterName\"=\"Other\"\n\"Index\"=dword:2\n\"VisibleState\"=dword:0\n\"IncludeUncategorized\"=dword:0\n"
        L"\"FilterName\"=\"" +
        std::wstring(1000, L'f') +
        L"\"\n\"Index\"=dword:3\n\"VisibleState\"=dword:1\n"
        L"\"IncludeUncategorized\"=dword:0\n";
    EXPECT_EQ(ReadBytes(path), Utf16Bytes(expected));
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
        L"\"a%db\"=dword:1\n\"a%%b\"=dword:3\n\"" +
        std::wstring(300, L'%') +
        L"\"=dword:5\n[Software\\Orvane\\Quillory\\B]\n\"FromB\"=dword:6\n\n[]\n\"QLFilesTestAtRoot\"=dword:7\n"
        L"\n[::Categories::]\n\"Category\"=\"Garden\"\n\"FiltersFlag\"=dword:1\n\"color\"=dword:1\n\"Category\"="
        L"\"work\"\n"
        L"\"FiltersFlag\"=dword:16\n\"Extra\"=dword:1\n\"Colour\"=dword:-1\n\"Category\"=\"WORK\"\n\"FiltersFlag\"="
        L"dword:7\n"
        L"\"Color\"=dword:7\n\n[Software\\Orvane\\Quillory\\C]\n\"z\"=\"last\"\n\"n\"=dword:8"));
    const CategoryRecord* work = AddCategory(g_categories, L"work", 1, 100);
    ASSERT_TRUE(ReadRegistryTextFile(in, g_categories, g_filters));
    EXPECT_TRUE(work->filterMask == 16 && work->colour == 0xFFFFFFFF) << "the name matched exactly, the fourth line";
    auto sz = [](const std::wstring& text) {
        return RegValueData{REG_SZ, std::string(reinterpret_cast<const char*>(text.c_str()), 2 * text.size() + 2)};
    };
    auto dword = [](DWORD value) { return RegValueData{REG_DWORD, std::string(reinterpret_cast<char*>(&value), 4)}; };
    // A dword name is the rest of the line formatted without arguments into 128 characters, cut where the name ends;
    // a string line takes eight characters ("abc" shares its quote; "a" and "Unclosed" have the wrong shape).
    const RegSnapshot expected = {
        {kProduct, {}},
        {q, {{L"", sz(L"")}, {L"Over", dword(0x7FFFFFFF)}, {L"Split", sz(L"a\"=\"b")}, {L"abc", sz(L"")},
             {L"a0b\"", dword(1)}, {L"a%b\"", dword(3)}, {std::wstring(127, L'%'), dword(5)}, {L"FromB", dword(6)}}},
        {c, {{L"z", sz(L"last")}, {L"n", dword(8)}}}};
    EXPECT_EQ(Snapshot(HKEY_CURRENT_USER, kProduct), expected);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, L"", L"QLFilesTestAtRoot", 7);
    RegDeleteValueW(HKEY_CURRENT_USER, L"QLFilesTestAtRoot");
}

TEST(FormattingTest, DirectivesGetZeroOrNothingAnUnfinishedOneEndsTheTextAndBackupNamesAreDates) {
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
    EXPECT_STREQ(BackupFileName(SYSTEMTIME{2024, 3, 0, 5}).c_str(), L"QL_Backup_2024_03_05");
}

TEST_F(BackupTest, ARefusedOrFailedImportKeepsWhatWasWrittenAndDoesNotReload) {
    const std::wstring section = L"[Software\\Orvane\\Quillory]\n\"A\"=dword:1\n\n";
    for (const std::string& bytes : {Utf16Bytes(section), std::string(), Utf16Bytes(L"\xFEFF\n" + section),
                                     Utf16Bytes(L"\r\n" + section), std::string("\n[Software\\Orvane\\Quillory]\n")}) {
        RegPutDword(HKEY_CURRENT_USER, kProduct, L"Kept", 3);
        WriteBytes(folder.file(L"bad.qlsb"), bytes);
        EXPECT_TRUE(!ImportSettings(folder.file(L"bad.qlsb").c_str()) &&
                    RegHasDword(HKEY_CURRENT_USER, kProduct, L"Kept", 3) &&
                    RegHasNoValue(HKEY_CURRENT_USER, kProduct, L"A"));
    }
    EXPECT_FALSE(ImportSettings(folder.file(L"no such file.qlsb").c_str()));
    LoadSettings();
    SetInt(g_settings.general.OnClick, 4321);
    WriteBytes(folder.file(L"bad.qlsb"), Utf16Bytes(L"\n[Software\\Orvane\\Quillory]\n\"OnClick\"=dword:2\n"
                                                    L"\n[Software\\Orvane\\Quillory\\Before]\n\"B\"=dword:2\n"
                                                    L"\n[Software\\Orvane\\Quillory\\" +
                                                    std::wstring(300, L'k') +
                                                    L"]\n"
                                                    L"\n[Software\\Orvane\\Quillory\\After]\n\"D\"=dword:4\n"));
    EXPECT_FALSE(ImportSettings(folder.file(L"bad.qlsb").c_str())) << "a key name too long for the registry";
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kProduct, L"Kept");
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kProduct, L"OnClick", 2);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, Sub(L"Before").c_str(), L"B", 2);
    EXPECT_FALSE(RegKeyExists(HKEY_CURRENT_USER, Sub(L"After").c_str()));
    EXPECT_EQ(g_settings.general.OnClick.value, 4321);
}


const wchar_t* const kAtoms[] = {
    L"\n[Software\\QLFuzz\\%s%n]\n", L"\n[]\n", L"\n[::Filters::]\n", L"%d", L"%999999d", L"%.9999s%c", L"%", L"%-5",
    L"\"=\"", L"\"=dword:", L"[FILTER3]", L"\n\"Color\"=dword:", L"not_the_same", L"-1", L"4294967295",
    L"\x4E2D\xD800"};

// Random cuts, copies, insertions and characters; now and then a byte-order mark, an odd byte, or narrowed bytes.
struct Mutator {
    explicit Mutator(unsigned seed) : random_(seed) {}

    std::string mutated(std::wstring text, int most) {
        for (int n = pick(most + 1); n > 0 && !text.empty(); --n) {
            const size_t at = random_() % text.size();
            switch (pick(6)) {
                case 0: text.erase(at, 1 + pick(40)); break;
                case 1: text.resize(at); break;
                case 2: text.insert(at, text.substr(at, pick(400))); break;
                case 3: text.insert(at, pick(17) ? kAtoms[pick(16)] : std::wstring(100 + pick(3000), L'n')); break;
                case 4: text[at] = L"[]\"=\n%\\\r\0"[pick(9)]; break;
                default: text[at] = static_cast<wchar_t>(random_()); break;
            }
        }
        std::string bytes = Utf16Bytes(pick(15) ? text : L"\xFEFF" + text);
        if (pick(20) == 0 && !bytes.empty()) bytes.pop_back();
        return pick(20) ? bytes : std::string(text.begin(), text.end());
    }
    int pick(int n) { return static_cast<int>(random_() % static_cast<unsigned>(n)); }

    std::mt19937 random_;
};

const wchar_t kBackupText[] =
    L"\n[Software\\QLFuzz\\A]\n\"Name\"=\"text\"\n\"Number\"=dword:-1\n[Software\\QLFuzz\\B]\n\n["
    L"Software\\Orvane\\Quillory]\n"
    L"\"Text\"=\"100%\"\n\n[Software\\Orvane\\Quillory\\Colors]\n\"%d\"=dword:5\n\n[::Categories::]\n\"Category\"="
    L"\"Name\"\n"
    L"\"FiltersFlag\"=dword:3\n\"Extra\"=dword:1\n\"Color\"=dword:255\n\"Category\"=\"%d\"\n\"FiltersFlag\"=dword:1\n"
    L"\"Color\"=dword:1\n\n[::Filters::]\n\"FilterName\"=\"F\"\n\"Index\"=dword:3\n\"VisibleState\"=dword:0\n"
    L"\"IncludeUncategorized\"=dword:1\n\n[Software\\QLFuzz\\A\\Sub]\n\"Same\"=\"not_the_same\"\n";

// A key path as the registry resolves it: case-insensitive, empty components dropped.
std::wstring NormalKey(const std::wstring& path) {
    std::wstring out;
    for (size_t start = 0, end; start <= path.size(); start = end + 1) {
        end = std::min(path.find(L'\\', start), path.size());
        if (end > start) out += (out.empty() ? L"" : L"\\") + path.substr(start, end - start);
    }
    for (wchar_t& c : out) c = static_cast<wchar_t>(towlower(c));
    return out;
}

// Independent of the reader: the names of the lines that have the shape of a header.
void CollectHeaderNames(const std::string& bytes, std::set<std::wstring>& names) {
    const std::wstring text = WideFromUtf16(bytes);
    for (size_t start = 0, end; start < text.size(); start = end) {
        end = std::min(text.find(L'\n', start), text.size() - 1) + 1;
        const std::wstring line = text.substr(start, std::min(end, text.find(L'\0', start)) - start);
        if (line.size() < 3 || line[0] != L'[' || line[line.size() - 2] != L']') continue;
        names.insert(NormalKey(line.substr(1, line.size() - 3)));
    }
}

TEST(RegistryTextFuzzTest, MalformedTextsKeepTheListsAndWriteOnlyTheKeysTheyName) {
    // The user root becomes an empty key of the real one: what the texts write is seen whole and thrown away.
    static const wchar_t kSandbox[] = L"Software\\QLFuzzUserRoot";
    RegRemoveTree(HKEY_CURRENT_USER, kSandbox);
    HKEY sandbox = nullptr;
    RegCreateKeyExW(HKEY_CURRENT_USER, kSandbox, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &sandbox, nullptr);
    RegOverridePredefKey(HKEY_CURRENT_USER, sandbox);
    std::unique_ptr<HKEY__, void (*)(HKEY)> restore(sandbox, [](HKEY key) {
        RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
        RegCloseKey(key);
        RegRemoveTree(HKEY_CURRENT_USER, kSandbox);
    });
    ASSERT_EQ(Snapshot(HKEY_CURRENT_USER, L"").size(), 1u) << "the user root is not replaced";
    CategoryList categories;
    for (const wchar_t* name : {L"Name", L"%d", L"\x4E2D"}) AddCategory(categories, name);
    FilterList filters;
    MakeDefaultFilters(filters);
    std::set<std::wstring> named;
    Mutator mutator(20240517);
    int accepted = 0;
    for (int i = 0; i < 5000; ++i) {
        const std::string bytes = mutator.mutated(kBackupText, 8);
        CollectHeaderNames(bytes, named);
        Utf16TextReader in(bytes);
        accepted += ReadRegistryTextFile(in, categories, filters);
        ASSERT_TRUE(categories.count == 3 && filters.count == 32) << "file " << i;
    }
    EXPECT_TRUE(accepted > 1000 && accepted < 5000) << accepted;
    const RegSnapshot written = Snapshot(HKEY_CURRENT_USER, L"");
    EXPECT_GT(written.size(), 3u);
    for (auto& key : written) {
        const std::wstring normal = NormalKey(key.first), below = normal.empty() ? L"" : normal + L"\\";
        auto next = named.lower_bound(below);
        const bool onTheWayToANamedKey = key.second.empty() && next != named.end() && next->rfind(below, 0) == 0;
        EXPECT_TRUE(named.count(normal) || onTheWayToANamedKey) << "written without a header naming it: " << key.first;
    }
}

TEST(FiltersFuzzTest, MalformedFilesGiveTheirRecordsOrTheDefaults) {
    Mutator mutator(77031);
    FilterList filters;
    MakeDefaultFilters(filters);
    const std::wstring defaults = WideFromUtf16(FiltersFileBytes(filters));
    int loaded = 0;
    for (int i = 0; i < 4000; ++i) {
        const std::string bytes = mutator.mutated(defaults, 4);
        const bool ok = LoadFiltersFromBytes(filters, bytes);
        loaded += ok;
        int index = 1;
        for (const FilterRecord* r = filters.head; r && ok && r->index == index; r = r->next) ++index;
        ASSERT_TRUE(ok ? index == 33 && filters.count == 32 : AreDefaultFilters(filters)) << "file " << i;
    }
    EXPECT_TRUE(loaded > 400 && loaded < 3600) << loaded;
}

}  // namespace
