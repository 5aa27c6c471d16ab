#include "pages/search_bar.h"

#include <cwchar>

#include "dialogs/alphabet_dialog.h"
#include "settings/settings.h"
#include "support/app_state.h"
#include "support/handles.h"
#include "string_ids.h"

namespace {

struct BuiltInEntry {
    DWORD languageFlag;
    UINT textId;
    SearchBarEntry entry;
};
const BuiltInEntry kBuiltInEntries[] = {
    {kLatinAlphabet, IDS_SEARCH_BAR_LATIN, kSearchBarLatin},
    {kCyrillicAlphabet, IDS_SEARCH_BAR_CYRILLIC, kSearchBarCyrillic},
    {kHebrewAlphabet, IDS_SEARCH_BAR_HEBREW, kSearchBarHebrew},
    {kGreekAlphabet, IDS_SEARCH_BAR_GREEK, kSearchBarGreek},
};
const DWORD kNameChars = 256;

int AddEntry(HWND combo, const wchar_t* text, DWORD data, bool selected) {
    int index = static_cast<int>(SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text)));
    if (index < 0) return index;
    SendMessageW(combo, CB_SETITEMDATA, index, data);
    if (selected) SendMessageW(combo, CB_SETCURSEL, index, 0);
    return index;
}

void AddLibraryEntry(HWND combo, UINT textId, DWORD data, bool selected) {
    WString text;
    text.load(g_app.languageLibrary, textId);
    AddEntry(combo, text.c_str(), data, selected);
}

bool IsInstalledFile(const wchar_t* path) {
    DWORD attributes = GetFileAttributesW(path);
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

// The active custom alphabets in registry order, each only while its file is installed. A name
// too long for the buffer is passed over.
void AddCustomEntries(HWND combo, const SearchBarSettings& settings) {
    RegKey active;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, kAlphabetsKeyPath, 0, KEY_READ, active.out()) != ERROR_SUCCESS) {
        active.release();
        return;
    }
    bool customChosen = settings.activeSearchBar->value == kSearchBarCustom;
    for (DWORD index = 0;; ++index) {
        wchar_t name[kNameChars + 1];
        DWORD length = kNameChars + 1;
        LONG status = RegEnumValueW(active.get(), index, name, &length, nullptr, nullptr, nullptr, nullptr);
        if (status == ERROR_MORE_DATA) continue;
        if (status != ERROR_SUCCESS) break;
        if (!IsInstalledFile(CustomAlphabetFile(name).c_str())) continue;
        bool selected = customChosen && wcscmp(name, settings.customSelected->c_str()) == 0;
        AddEntry(combo, name, kSearchBarCustom, selected);
    }
}

DWORD SelectedData(HWND combo, int* selection) {
    *selection = static_cast<int>(SendMessageW(combo, CB_GETCURSEL, 0, 0));
    if (*selection < 0) return CB_ERR;
    return static_cast<DWORD>(SendMessageW(combo, CB_GETITEMDATA, *selection, 0));
}

}  // namespace

void FillSearchBar(HWND combo, DWORD activeLanguages, const SearchBarSettings& settings) {
    if (!combo) return;
    DWORD current = settings.activeSearchBar->value;
    SendMessageW(combo, CB_RESETCONTENT, 0, 0);
    AddLibraryEntry(combo, IDS_SEARCH_BAR_NONE, kSearchBarNone, true);
    for (const BuiltInEntry& builtIn : kBuiltInEntries) {
        if (activeLanguages & builtIn.languageFlag)
            AddLibraryEntry(combo, builtIn.textId, builtIn.entry, current == builtIn.entry);
    }
    AddCustomEntries(combo, settings);
    if (activeLanguages != 0) AddLibraryEntry(combo, IDS_SEARCH_BAR_SWITCHABLE, kSearchBarAllActive, current == kSearchBarAllActive);
    AddLibraryEntry(combo, IDS_SEARCH_BAR_CHOOSE, kSearchBarChooseAlphabets, false);
}

void OnSearchBarChanged(HWND page, HWND combo, const SearchBarSettings& settings) {
    int selection;
    if (!combo || SelectedData(combo, &selection) != kSearchBarChooseAlphabets) return;
    IntSetting& languages = g_settings.contacts.CntctsActiveLanguages;
    INT_PTR chosen = RunAlphabetSelection(page, languages.value);
    if (chosen != kAlphabetSelectionCancelled) {
        SetInt(languages, static_cast<DWORD>(chosen));
        FillSearchBar(combo, languages.value, settings);
    }
    SendMessageW(combo, CB_SETCURSEL, 0, 0);
}

void StoreSearchBar(HWND combo, const SearchBarSettings& settings) {
    int selection;
    DWORD data = combo ? SelectedData(combo, &selection) : CB_ERR;
    if (data == static_cast<DWORD>(CB_ERR)) return;
    SetInt(*settings.activeSearchBar, data);
    if (data != kSearchBarCustom) return;
    LRESULT length = SendMessageW(combo, CB_GETLBTEXTLEN, selection, 0);
    if (length < 0 || length > static_cast<LRESULT>(kNameChars)) return;
    wchar_t name[kNameChars + 1] = {};
    SendMessageW(combo, CB_GETLBTEXT, selection, reinterpret_cast<LPARAM>(name));
    SetString(*settings.customSelected, name);
}
