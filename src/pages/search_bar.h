#pragma once
// The search-bar combo the Contacts and Notes pages share: "no search bar", the built-in
// alphabets that are active, the custom alphabets that are active and still installed, "all
// active alphabets" and the entry that opens the alphabet selection. Each entry carries the
// number stored for it as item data.
#include <windows.h>

#include "settings/setting_types.h"

// Item data of the entries.
enum SearchBarEntry : DWORD {
    kSearchBarNone = 0,
    kSearchBarLatin = 1,
    kSearchBarCyrillic = 2,
    kSearchBarHebrew = 3,
    kSearchBarGreek = 4,
    kSearchBarCustom = 5,
    kSearchBarAllActive = 6,
    kSearchBarChooseAlphabets = 7,
};

// The page's own search-bar settings: the entry's number and, for a custom alphabet, its name.
struct SearchBarSettings {
    IntSetting* activeSearchBar;
    StringSetting* customSelected;
};

// Empties `combo` and fills it for `activeLanguages` (the shared CntctsActiveLanguages), selecting
// the entry the settings name, else the first.
void FillSearchBar(HWND combo, DWORD activeLanguages, const SearchBarSettings& settings);

// Call on every selection change of the combo. Choosing the last entry opens the alphabet
// selection over `page`; unless it is cancelled, its result is stored into CntctsActiveLanguages at
// once and the combo is rebuilt. Either way the first entry is selected afterwards.
void OnSearchBarChanged(HWND page, HWND combo, const SearchBarSettings& settings);

// Stores the selected entry's number and, for a custom alphabet, its name.
void StoreSearchBar(HWND combo, const SearchBarSettings& settings);
