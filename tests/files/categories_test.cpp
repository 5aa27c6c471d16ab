// Categories: the list built from the device's categories database (desktop stand-in file), its
// case-insensitive order, icons from the icons folder, colours and masks in the registry.
#include <windows.h>

#include <string>

#include "common/test_support.h"
#include "files/categories.h"
#include "files/filters.h"
#include "files_test_support.h"
#include "platform/object_store.h"

namespace {

const wchar_t kCategoriesKey[] = L"Software\\Orvane\\Quillory\\Categories";

// A 1x1 24-bit bitmap file.
std::string TinyBitmap() {
    const unsigned char bytes[] = {'B', 'M', 58, 0, 0, 0, 0, 0, 0, 0, 54, 0, 0, 0,  // file header
                                   40, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 24, 0, 0, 0, 0, 0, 4, 0, 0, 0,
                                   0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,  // info header
                                   0x10, 0x20, 0x30, 0};                             // one pixel, padded
    return std::string(reinterpret_cast<const char*>(bytes), sizeof bytes);
}

std::wstring Names(const CategoryList& list) {
    return InListOrder(list, [](const CategoryRecord& r) { return r.name.c_str(); }, L",");
}

class CategoriesTest : public ::testing::Test {
protected:
    void SetUp() override {
        RegRemoveTree(HKEY_CURRENT_USER, kCategoriesKey);
        CreateDirectoryW(icons.c_str(), nullptr);
        SetObjectStoreFolder((folder.path() + L"\\").c_str());
    }
    void TearDown() override {
        SetObjectStoreFolder(nullptr);
        RegRemoveTree(HKEY_CURRENT_USER, kCategoriesKey);
    }
    void WriteDatabase(const std::string& utf8) { WriteBytes(folder.file(L"Categories Database.cedb"), utf8); }
    void Load() { LoadCategories(categories, filters, icons.c_str(), folder.file(L"QLFilters.txt").c_str()); }

    ScratchFolder folder{L"categories"};
    std::wstring icons = folder.file(L"CategoryIcons");
    CategoryList categories;
    FilterList filters;
};

TEST_F(CategoriesTest, DatabaseRecordsAreListedInCaseInsensitiveOrder) {
    WriteDatabase("4001001F=work\t40020002=1\n"
                  "40020002=2\t4001001F=Home\n"
                  "4001001F=home\t40020002=3\n"
                  "4001001F=\t40020002=4\n"            // empty name
                  "40020002=5\n"                       // no name
                  "4001001F=No number\n"
                  "4001001F=Wrong type\t40020003=6\n"  // number stored as a 32-bit integer
                  "40010002=7\t40020002=7\n"           // name stored as a number
                  "4001001F=Zebra\\tstripes\t40020002=-8\n"
                  "4001001F=apple\t40020002=9\n");
    Load();
    EXPECT_EQ(Names(categories), L"apple,Home,home,work,Zebra\tstripes,");
    EXPECT_EQ(categories.count, 5);
    EXPECT_EQ(FindCategory(categories, L"Home")->number, 2);
    EXPECT_EQ(FindCategory(categories, L"home")->number, 3);
    EXPECT_EQ(FindCategory(categories, L"Zebra\tstripes")->number, -8);
    EXPECT_EQ(FindCategory(categories, L"HOME"), nullptr);
    EXPECT_EQ(FindCategory(categories, L"work")->colour, kNoCategoryColour);
    EXPECT_EQ(FindCategory(categories, L"work")->filterMask, 0u);
    // The filter list is built too: the defaults, as there is no filters file.
    EXPECT_EQ(filters.count, 32);
    EXPECT_EQ(filters.head->index, 0);

    // Reloading starts from empty lists.
    WriteDatabase("4001001F=Only\t40020002=1\n");
    Load();
    EXPECT_EQ(Names(categories), L"Only,");
}

TEST_F(CategoriesTest, AMissingDatabaseGivesAnEmptyListAndStillTheFilters) {
    AddCategory(categories, L"stale");
    MakeDefaultFilters(filters);
    filters.head->title.assign(L"changed");
    WriteBytes(folder.file(L"QLFilters.txt"), Utf16Bytes(L"[FILTER0]\r\n"));
    Load();
    EXPECT_EQ(categories.count, 0);
    EXPECT_EQ(categories.head, nullptr);
    ASSERT_EQ(filters.count, 32);
    EXPECT_STREQ(filters.head->title.c_str(), L"Filter 1");
}

TEST_F(CategoriesTest, LookComesFromTheIconsFolderAndTheRegistry) {
    WriteBytes(icons + L"\\work.bmp", TinyBitmap());
    WriteBytes(icons + L"\\Broken.bmp", "BM not really");
    RegPutDword(HKEY_CURRENT_USER, kCategoriesKey, L"CatColor.work", 0x00123456);
    RegPutDword(HKEY_CURRENT_USER, kCategoriesKey, L"CatFilter.work", 0x80000001);
    RegPutDword(HKEY_CURRENT_USER, kCategoriesKey, L"CatColor.HOME", 0x00ABCDEF);  // names ignore case
    RegPutString(HKEY_CURRENT_USER, kCategoriesKey, L"CatFilter.Home", L"A");     // 4 bytes, any type
    const BYTE eight[8] = {1, 2, 3, 4, 5, 6, 7, 8};
    RegPutRaw(HKEY_CURRENT_USER, kCategoriesKey, L"CatColor.Broken", REG_BINARY, eight, sizeof eight);
    WriteDatabase("4001001F=work\t40020002=1\n4001001F=Home\t40020002=2\n4001001F=home\t40020002=3\n"
                  "4001001F=Broken\t40020002=4\n");
    Load();
    CategoryRecord* work = FindCategory(categories, L"work");
    CategoryRecord* home = FindCategory(categories, L"Home");
    CategoryRecord* broken = FindCategory(categories, L"Broken");
    ASSERT_TRUE(work && home && broken);
    EXPECT_TRUE(work->icon);
    EXPECT_FALSE(home->icon);
    EXPECT_FALSE(broken->icon);
    BITMAP info = {};
    ASSERT_EQ(GetObjectW(work->icon.get(), sizeof info, &info), static_cast<int>(sizeof info));
    EXPECT_EQ(info.bmWidth, 1);
    EXPECT_EQ(work->colour, 0x00123456u);
    EXPECT_EQ(work->filterMask, 0x80000001u);
    EXPECT_EQ(home->colour, 0x00ABCDEFu);
    EXPECT_EQ(FindCategory(categories, L"home")->colour, 0x00ABCDEFu);
    EXPECT_EQ(home->filterMask, 0x00000041u);  // L"A": 'A', 0, then the terminator's two zero bytes
    EXPECT_EQ(broken->colour, kNoCategoryColour);  // too long: the query fails
}

TEST_F(CategoriesTest, SavingWritesOrDeletesEachRecordsValues) {
    RegPutDword(HKEY_CURRENT_USER, kCategoriesKey, L"CatColor.Home", 5);
    RegPutDword(HKEY_CURRENT_USER, kCategoriesKey, L"CatFilter.Home", 5);
    RegPutDword(HKEY_CURRENT_USER, kCategoriesKey, L"CatColor.Gone", 9);
    AddCategory(categories, L"Home", 0, kNoCategoryColour);
    AddCategory(categories, L"work", 0x80000000, 0);
    SaveCategoryLook(categories);
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kCategoriesKey, L"CatColor.Home");
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kCategoriesKey, L"CatFilter.Home");
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kCategoriesKey, L"CatColor.work", 0);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kCategoriesKey, L"CatFilter.work", 0x80000000);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kCategoriesKey, L"CatColor.Gone", 9);

    // Saved values load back into a fresh list.
    CategoryList again;
    AddCategory(again, L"work");
    LoadCategoryLook(again, icons.c_str());
    EXPECT_EQ(again.head->colour, 0u);
    EXPECT_EQ(again.head->filterMask, 0x80000000u);
}

TEST_F(CategoriesTest, InsertionIsStableAmongEqualNames) {
    const wchar_t* arrivals[] = {L"b", L"A", L"a", L"B", L"c", L"a", L"Ä", L""};
    for (const wchar_t* name : arrivals) AddCategory(categories, name, 0, kNoCategoryColour, categories.count);
    std::wstring order;
    for (const CategoryRecord* r = categories.head; r; r = r->next) order += std::to_wstring(r->number) + L" ";
    // "" first; then A a a (arrival order), Ä, b B, c.
    EXPECT_EQ(order, L"7 1 2 5 6 0 3 4 ");
    ClearCategories(categories);
    EXPECT_EQ(categories.count, 0);
    EXPECT_EQ(categories.head, nullptr);
}

}  // namespace
