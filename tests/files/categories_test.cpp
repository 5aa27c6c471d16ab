// Categories from the device's database (a desktop stand-in file), their icons, colours and masks.
#include "common/bitmap_bytes.h"
#include "common/test_support.h"
#include "files_test_support.h"
#include "platform/object_store.h"

namespace {

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

}  // namespace
