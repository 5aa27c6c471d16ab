#pragma once
// Helpers of the settings-files tests, also used by page tests: categories and filters.
#include <windows.h>

#include <string>

#include "common/test_support.h"
#include "files/categories.h"
#include "files/filters.h"

inline CategoryRecord* AddCategory(CategoryList& list, const wchar_t* name, DWORD mask = 0,
                                   COLORREF colour = kNoCategoryColour, int number = 0) {
    CategoryRecord* record = new CategoryRecord{WString(name), mask, colour, {}, number};
    InsertCategory(list, record);
    return record;
}

// Numbered 0 to 31, titled "Filter 1" to "Filter 32", visible, nothing else set, linked both ways.
inline bool AreDefaultFilters(const FilterList& filters) {
    int index = 0;
    for (const FilterRecord* r = filters.head; r; r = r->next, ++index)
        if (r->index != index || r->title.c_str() != L"Filter " + std::to_wstring(index + 1) || r->sensitivity ||
            !r->visible || r->includeUncategorized || (r->next && r->next->previous != r))
            return false;
    return index == 32 && filters.count == 32;
}

