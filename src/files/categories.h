#pragma once
// The PIM categories of the device with the product's own look for each: colour, icon and
// filter membership. Names come from the categories database; colours and filter masks live
// under the Categories settings key as "CatColor." + name and "CatFilter." + name.
#include <windows.h>

#include <cstdint>

#include "support/handles.h"
#include "support/record_list.h"
#include "support/wide_string.h"

struct FilterList;

const COLORREF kNoCategoryColour = 0xFFFFFFFF;

struct CategoryRecord {
    WString name;
    // Bit x set: the category belongs to filter number x.
    DWORD filterMask = 0;
    COLORREF colour = kNoCategoryColour;
    Bitmap icon;
    int32_t number = 0;
    CategoryRecord* next = nullptr;
    CategoryRecord* previous = nullptr;
};

// Sorted by name (case-insensitive, user locale); owns its records.
struct CategoryList : RecordList<CategoryRecord> {};

// The category list of the running program.
extern CategoryList g_categories;

// Deletes every record with its icon.
void ClearCategories(CategoryList& categories);
// Takes ownership; the record goes after every record whose name does not compare greater.
void InsertCategory(CategoryList& categories, CategoryRecord* record);
// The first record whose name equals `name` exactly (case-sensitive), or null.
CategoryRecord* FindCategory(const CategoryList& categories, const wchar_t* name);

// Builds the category list from the device's categories database (empty when it cannot be
// opened), loads each category's look, then the filter list from the filters file.
void LoadCategories(CategoryList& categories, FilterList& filters, const wchar_t* iconsFolder,
                    const wchar_t* filtersFilePath);
// The same for the running program: g_categories and g_filters, the icons folder and the filters
// file named by the settings record (QLIconsFolder, QLFiltersFileFolder).
void LoadCategories();

// Icon (iconsFolder\name.bmp), colour and filter mask of every record.
void LoadCategoryLook(CategoryList& categories, const wchar_t* iconsFolder);
// Writes colour and mask of every record; a colour of 0xFFFFFFFF or a mask of 0 deletes the value.
void SaveCategoryLook(const CategoryList& categories);

// The icon file of category `name`: iconsFolder\name.bmp. False, with `path` left empty, when the
// name holds a character a file name cannot have (\ / : * ? " < > | or a control character), so
// that no name can reach outside the icons folder.
bool CategoryIconPath(const wchar_t* iconsFolder, const wchar_t* name, WString* path);

// Gives the category the picture at `chosenPath` as its icon, at once: the picture is copied over
// the category's icon file (the icons folder is made when missing) and loaded; an empty path
// deletes the icon file. The record's icon is then whatever the icon file holds. Nothing happens
// when the chosen path is the icon file itself or the name cannot be a file name; returns whether
// the icon file was changed.
bool ChangeCategoryIcon(CategoryRecord& record, const wchar_t* iconsFolder, const wchar_t* chosenPath);
