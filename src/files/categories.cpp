#include "files/categories.h"

#include <cwchar>

#include "files/category_database.h"
#include "files/filters.h"
#include "images/bitmap_file.h"
#include "platform/shell.h"
#include "settings/key_table.h"
#include "settings/registry_values.h"
#include "settings/settings.h"

CategoryList g_categories;

namespace {

// Whether `a` sorts after `b`. A failed comparison counts as not after, so the new record goes
// after the ones it cannot be compared with.
bool SortsAfter(const wchar_t* a, const wchar_t* b) {
    return CompareStringW(LOCALE_USER_DEFAULT, NORM_IGNORECASE, a, -1, b, -1) == CSTR_GREATER_THAN;
}

WString ValueName(const wchar_t* prefix, const CategoryRecord& record) {
    WString name(prefix);
    name.append(record.name.c_str());
    return name;
}

const wchar_t kColourPrefix[] = L"CatColor.";
const wchar_t kFilterPrefix[] = L"CatFilter.";

// Reads four bytes, whatever the value's type, over `field`; a failed query leaves it alone.
void QueryInto(HKEY key, const WString& name, DWORD& field) {
    DWORD value = field;
    DWORD size = sizeof value;
    if (RegQueryValueExW(key, name.c_str(), nullptr, nullptr, reinterpret_cast<BYTE*>(&value), &size) ==
        ERROR_SUCCESS)
        field = value;
}

// One pass over the list, with the key opened for it: prefix + name read over each record's `field`.
void QueryEach(CategoryList& categories, const wchar_t* prefix, DWORD CategoryRecord::*field) {
    RegKey key = OpenSettingKey(kKeyCategories);
    if (!key) return;
    for (CategoryRecord* r = categories.head; r; r = r->next) QueryInto(key.get(), ValueName(prefix, *r), r->*field);
}

// A missing, unreadable or broken picture leaves the record without an icon.
void LoadIcon(CategoryRecord& record, const wchar_t* iconsFolder) {
    WString path;
    record.icon.reset(CategoryIconPath(iconsFolder, record.name.c_str(), &path) ? LoadCheckedBitmap(path.c_str())
                                                                                : nullptr);
}

void LoadIcons(CategoryList& categories, const wchar_t* iconsFolder) {
    for (CategoryRecord* r = categories.head; r; r = r->next) LoadIcon(*r, iconsFolder);
}

bool CanBeFileName(const wchar_t* name) {
    if (!*name) return false;
    for (const wchar_t* c = name; *c; ++c)
        if (*c < 32 || wcschr(L"\\/:*?\"<>|", *c)) return false;
    return true;
}

}  // namespace

void ClearCategories(CategoryList& categories) { DeleteRecords(categories); }

void InsertCategory(CategoryList& categories, CategoryRecord* record) {
    InsertRecord(categories, record,
                 [&](const CategoryRecord& r) { return SortsAfter(r.name.c_str(), record->name.c_str()); });
}

CategoryRecord* FindCategory(const CategoryList& categories, const wchar_t* name) {
    return FindRecord(categories, [&](const CategoryRecord& r) { return wcscmp(r.name.c_str(), name) == 0; });
}

void LoadCategories(CategoryList& categories, FilterList& filters, const wchar_t* iconsFolder,
                    const wchar_t* filtersFilePath) {
    ClearCategories(categories);
    ClearFilters(filters);
    ReadCategoryDatabase(categories);
    LoadCategoryLook(categories, iconsFolder);
    LoadFiltersFile(filters, filtersFilePath);
}

void LoadCategories() {
    LoadCategories(g_categories, g_filters, g_settings.general.QLIconsFolder.c_str(), FiltersFilePath().c_str());
}

void LoadCategoryLook(CategoryList& categories, const wchar_t* iconsFolder) {
    LoadIcons(categories, iconsFolder);
    QueryEach(categories, kColourPrefix, &CategoryRecord::colour);
    QueryEach(categories, kFilterPrefix, &CategoryRecord::filterMask);
}

void SaveCategoryLook(const CategoryList& categories) {
    RegKey key = OpenSettingKey(kKeyCategories);
    if (!key) return;
    for (const CategoryRecord* r = categories.head; r; r = r->next) {
        WriteDwordOrDelete(key.get(), ValueName(kColourPrefix, *r).c_str(), r->colour, kNoCategoryColour);
        WriteDwordOrDelete(key.get(), ValueName(kFilterPrefix, *r).c_str(), r->filterMask, 0);
    }
}

bool CategoryIconPath(const wchar_t* iconsFolder, const wchar_t* name, WString* path) {
    path->assign(L"");
    if (!CanBeFileName(name)) return false;
    path->assign(iconsFolder);
    path->append(L"\\");
    path->append(name);
    path->append(L".bmp");
    return true;
}

bool ChangeCategoryIcon(CategoryRecord& record, const wchar_t* iconsFolder, const wchar_t* chosenPath) {
    WString iconPath;
    if (!CategoryIconPath(iconsFolder, record.name.c_str(), &iconPath)) return false;
    if (_wcsicmp(chosenPath, iconPath.c_str()) == 0) return false;
    record.icon.reset();
    if (*chosenPath) {
        CreateDirectoryW(iconsFolder, nullptr);
        // Copied over the old file rather than after deleting it: a copy that fails keeps the old icon.
        CopyFileW(chosenPath, iconPath.c_str(), FALSE);
    } else {
        DeleteFileW(iconPath.c_str());
    }
    LoadIcon(record, iconsFolder);
    return true;
}
