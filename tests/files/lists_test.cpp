// The filters file, the categories database with their look, and scheme files.
#include "common/bitmap_bytes.h"
#include "common/test_support.h"
#include "files/colour_schemes.h"
#include "files_test_support.h"
#include "platform/object_store.h"
#include "settings/settings_test_util.h"

namespace {

std::wstring Record(int position, const std::wstring& title, int sensitivity = 0, int visible = 1,
                    int uncategorized = 0) {
    return L"[FILTER" + std::to_wstring(position) + L"]\r\n\"Title\"=\"" + title + L"\"\r\n\"Sensitivity\"=dword:" +
           std::to_wstring(sensitivity) + L"\r\n\"Visible\"=dword:" + std::to_wstring(visible) +
           L"\r\n\"Uncategorized\"=dword:" + std::to_wstring(uncategorized) + L"\r\n";
}

std::wstring Records(int from, int to) {
    std::wstring text;
    for (int i = from; i < to; ++i) text += Record(i, L"T" + std::to_wstring(i));
    return text;
}

TEST(FiltersTest, TheFileHasTheExactBytesOnlyThirtyTwoRecordsInOrderAreTakenAndLinesAreReadByteWise) {
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
    for (const std::wstring& wrong : {Records(0, 31), Records(0, 33), Records(0, 5) + Records(6, 7) + Records(6, 32)})
        EXPECT_TRUE(!LoadFiltersFromBytes(loaded, Utf16Bytes(wrong)) && AreDefaultFilters(loaded));
    DeleteFileW(path.c_str());
    EXPECT_FALSE(LoadFiltersFile(loaded, path.c_str()) || !AreDefaultFilters(loaded));

    // A byte-order mark is noise, a header may stand anywhere in its line, value names are not
    // looked at, and a character beyond U+00FF comes back as two.
    EXPECT_TRUE(LoadFiltersFromBytes(loaded, Utf16Bytes(L"\xFEFF" + Record(0, L"A\x0141z") +
                                                        L"x [FILTER1]\r\n\"A\"=\"2nd\"\r\n"
                                                        L"\"x\"=dword:79\r\n\"y\"=dword:9\r\n\"z\"=dword:9\r\n" +
                                                        Records(2, 32))));
    EXPECT_STREQ(loaded.head->title.c_str(), L"AA\x01z");
    const FilterRecord* second = loaded.head->next;
    EXPECT_STREQ(second->title.c_str(), L"2nd");
    EXPECT_TRUE(second->sensitivity == 79 && second->visible && second->includeUncategorized) << "read in base 10";
    EXPECT_STREQ(FindFilter(loaded, 32)->title.c_str(), L"T31");

    // The byte-wise line reader drops zeros and repeats an unterminated last byte.
    const std::string bytes("ab\r\n\0c\0\nlast", 12), wide = Utf16Bytes(L"x\ny");
    ByteSource file(bytes), wideFile(wide);
    WString line;
    const struct {
        ByteSource* source;
        int result;
        const wchar_t* line;
    } lines[] = {{&file, 1, L"ab\r"}, {&file, 1, L"c"},     {&file, 0, L"lastt"},
                 {&file, 0, L""},     {&wideFile, 1, L"x"}, {&wideFile, 0, L"y"}};
    for (const auto& expected : lines) {
        EXPECT_EQ(ReadByteLine(*expected.source, line), expected.result) << expected.line;
        EXPECT_STREQ(line.c_str(), expected.line);
    }
}

const wchar_t kCategoriesKey[] = L"Software\\Orvane\\Quillory\\Categories";

TEST(CategoriesTest, ListedFromTheDatabaseWithTheirLookReadAndSavedBack) {
    ScratchFolder folder(L"categories");
    const std::wstring icons = folder.file(L"CategoryIcons"), database = folder.file(L"Categories Database.cedb");
    RegRemoveTree(HKEY_CURRENT_USER, kCategoriesKey);
    CreateDirectoryW(icons.c_str(), nullptr);
    SetObjectStoreFolder((folder.path() + L"\\").c_str());
    WriteBytes(folder.file(L"QLFilters.txt"), Utf16Bytes(L"[FILTER0]\r\n"));
    WriteBytes(database, "4001001F=work\t40020002=1\n40020002=2\t4001001F=Home\n4001001F=home\t40020002=3\n4001001F=\t"
                         "40020002=4\n40020002=5\n4001001F=No number\n4001001F=Wrong type\t40020003=6\n40010002=7\t"
                         "40020002=7\n4001001F=apple\t40020002=-8\n4001001F=\xC3\x84pfel\t40020002=9\n");
    WriteBytes(icons + L"\\work.bmp", PlainBitmap(3, 2, RGB(1, 2, 3)));
    WriteBytes(icons + L"\\home.bmp", "BM not really");
    RegPutDword(HKEY_CURRENT_USER, kCategoriesKey, L"CatColor.work", 0x00123456);
    RegPutDword(HKEY_CURRENT_USER, kCategoriesKey, L"CatFilter.work", 0x80000001);
    RegPutDword(HKEY_CURRENT_USER, kCategoriesKey, L"CatColor.HOME", 0x00ABCDEF);
    RegPutString(HKEY_CURRENT_USER, kCategoriesKey, L"CatFilter.Home", L"A");  // four bytes of any type
    RegPutRaw(HKEY_CURRENT_USER, kCategoriesKey, L"CatColor.apple", REG_BINARY, "12345678", 8);
    CategoryList categories;
    FilterList filters;
    LoadCategories(categories, filters, icons.c_str(), folder.file(L"QLFilters.txt").c_str());
    std::wstring listed;
    for (const CategoryRecord* r = categories.head; r; r = r->next)
        listed += r->name.c_str() + std::to_wstring(r->number) + L",";
    EXPECT_EQ(listed, L"\xC4pfel9,apple-8,Home2,home3,work1,");
    EXPECT_TRUE(categories.count == 5 && FindCategory(categories, L"HOME") == nullptr);
    EXPECT_TRUE(AreDefaultFilters(filters)) << "an incomplete filters file gives the defaults";
    CategoryRecord* apple = categories.head->next;
    CategoryRecord* home = apple->next;
    CategoryRecord* work = home->next->next;
    BITMAP info = {};
    ASSERT_EQ(GetObjectW(work->icon.get(), sizeof info, &info), static_cast<int>(sizeof info));
    EXPECT_TRUE(info.bmWidth == 3 && !home->icon && !home->next->icon);
    EXPECT_TRUE(work->colour == 0x00123456 && work->filterMask == 0x80000001);
    EXPECT_TRUE(home->colour == 0x00ABCDEF && home->filterMask == 0x41 && home->next->colour == 0x00ABCDEF);
    EXPECT_TRUE(apple->colour == kNoCategoryColour && apple->filterMask == 0) << "eight bytes do not fit";

    work->colour = work->filterMask = 0;
    home->colour = kNoCategoryColour;
    SaveCategoryLook(categories);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kCategoriesKey, L"CatColor.work", 0);
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kCategoriesKey, L"CatFilter.work");
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kCategoriesKey, L"CatFilter.Home", 0x41);
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kCategoriesKey, L"CatColor.apple");
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kCategoriesKey, L"CatColor.Home", 0x00ABCDEF) << "home's, written after Home's";
    DeleteFileW(database.c_str());
    LoadCategories(categories, filters, icons.c_str(), folder.file(L"QLFilters.txt").c_str());
    EXPECT_TRUE(categories.count == 0 && categories.head == nullptr && AreDefaultFilters(filters));
    SetObjectStoreFolder(nullptr);
}

const wchar_t kColours[] = L"Software\\Orvane\\Quillory\\Colors";

TEST(ColourSchemesTest, SaveWritesTheLookOnceAndLoadReplacesColoursAndFontsWholly) {
    ScratchFolder product(L"schemes_product");
    RemoveProductKeys();
    LoadSettings();
    g_settings.productFolder.assign(product.path().c_str());
    MakeDefaultFilters(g_filters);
    AddCategory(g_categories, L"Home", 5, 0xFF);
    RegPutDword(HKEY_CURRENT_USER, kColours, L"ShadowFontColor", 0x123456);
    RegPutDword(HKEY_CURRENT_USER, kFontsPath, L"FontCalTaskslfHeight", 20);
    RegPutDword(HKEY_CURRENT_USER, kCalendarPath, L"dNumOfDays", 3);
    EXPECT_TRUE(ListSchemeFiles().empty()) << "no folder yet";
    ASSERT_EQ(SaveSchemeFile(L"Mine"), SchemeSaveResult::kSaved);
    EXPECT_EQ(ReadBytes(SchemeFilePath(L"Mine.scm").c_str()),
              Utf16Bytes(L"\n[Software\\Orvane\\Quillory\\Colors]\n\"ShadowFontColor\"=dword:1193046\n"
                         L"\n[Software\\Orvane\\Quillory\\Fonts]\n\"FontCalTaskslfHeight\"=dword:20\n"
                         L"\n[::Categories::]\n\"Category\"=\"Home\"\n\"FiltersFlag\"=dword:5\n\"Color\"=dword:255\n"));
    EXPECT_TRUE(SaveSchemeFile(L"Mine") == SchemeSaveResult::kExists &&
                SaveSchemeFile(L"") == SchemeSaveResult::kNoName);
    EXPECT_TRUE(ListSchemeFiles().size() == 1 && ListSchemeFiles()[0].c_str() == std::wstring(L"Mine.scm"));

    WriteBytes(
        SchemeFilePath(L"Look.scm").c_str(),
        Utf16Bytes(
            L"\n[Software\\Orvane\\Quillory\\Colors]\n\"SeperatorLineClr\"=dword:255\n\n[Software\\Orvane\\Quillory]\n"
            L"\n[Software\\Orvane\\Quillory\\ColorsX]\n\"X\"=dword:1\n\n[Software\\Orvane\\Quillory\\Fonts\\Sub]"
            L"\n\"Y\"=dword:2\n"
            L"\n[Software\\Orvane\\Quillory\\Calendar]\n\"dNumOfDays\"=dword:9\n\n[::Filters::]\n"
            L"\"FilterName\"=\"X\"\n\"Index\"=dword:0\n\"VisibleState\"=dword:0\n\"IncludeUncategorized\"=dword:1\n"
            L"\n[::Categories::]\n\"Category\"=\"Home\"\n\"FiltersFlag\"=dword:2\n\"Color\"=dword:-1\n"));
    ASSERT_EQ(LoadSchemeFile(L"Look.scm"), SchemeLoadResult::kLoaded);
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kFontsPath, L"FontCalTaskslfHeight");
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, (kFontsPath + std::wstring(L"\\Sub")).c_str(), L"Y", 2);
    EXPECT_FALSE(RegKeyExists(HKEY_CURRENT_USER, (kColours + std::wstring(L"X")).c_str()));
    EXPECT_EQ(g_settings.fonts.FontCalTasks.height.value, g_settings.fonts.FontCalTasks.height.defaultValue);
    EXPECT_TRUE(g_settings.colors.SeperatorLineClr.value == 255 &&
                g_settings.colors.ShadowFontColor.value == 0xFFFFFFFF);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kCalendarPath, L"dNumOfDays", 3);  // other keys are not read
    EXPECT_TRUE(AreDefaultFilters(g_filters)) << "a scheme carries no filters";
    EXPECT_TRUE(g_categories.head->filterMask == 2 && g_categories.head->colour == 0xFFFFFFFF);

    g_settings.productFolder.assign(product.path().c_str());
    RegPutDword(HKEY_CURRENT_USER, kFontsPath, L"FontCalTaskslfHeight", 20);
    WriteBytes(SchemeFilePath(L"Bad.scm").c_str(), Utf16Bytes(L"[Software\\Orvane\\Quillory\\Colors]\n"));
    EXPECT_TRUE(LoadSchemeFile(L"Missing.scm") == SchemeLoadResult::kCannotOpen &&
                LoadSchemeFile(L"Bad.scm") == SchemeLoadResult::kRejected);
    EXPECT_FALSE(RegKeyExists(HKEY_CURRENT_USER, kFontsPath) || RegKeyExists(HKEY_CURRENT_USER, kColours));
    EXPECT_EQ(g_settings.colors.SeperatorLineClr.value, 255u) << "the record is not reloaded";
    ClearCategories(g_categories);
    RemoveProductKeys();
}

}  // namespace
