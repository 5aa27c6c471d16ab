// Loading and saving the whole settings record, each beside the same number of raw registry
// calls on one open key.
#include <windows.h>

#include <cstdio>
#include <cwchar>
#include <string>

#include "bench_harness.h"
#include "settings/settings.h"
#include "support/app_state.h"

namespace {

const wchar_t kBaselinePath[] = L"Software\\Orvane\\QuilloryBenchBaseline";
const int kPlugInTabs = 2;

void RemoveBenchKeys() {
    RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Orvane");
    RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\WebIS");
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Developer One, Inc.");
}

void PutDword(HKEY key, const wchar_t* name, DWORD value) {
    RegSetValueExW(key, name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&value), sizeof value);
}

void PutString(HKEY key, const wchar_t* name, const wchar_t* text) {
    RegSetValueExW(key, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text),
                   static_cast<DWORD>((wcslen(text) + 1) * sizeof(wchar_t)));
}

// Stores a value for every setting (the Today item keeps only its installed ProgramFiles) and two
// plug-in tabs; returns how many RegQueryValueExW calls LoadSettings makes on that registry.
int PopulateRegistry() {
    RemoveBenchKeys();
    int queries = 0;
    for (SettingGroup* group : g_settings.groups) {
        if (group->keyIndex() == kKeyTodayItem) continue;
        RegKey key = OpenSettingKey(group->keyIndex());
        for (Setting* setting : group->settings()) {
            const wchar_t* name = setting->valueName.c_str();
            if (auto* number = dynamic_cast<IntSetting*>(setting)) {
                PutDword(key.get(), name, number->designDefault + 1);
                queries += 1;
            } else if (dynamic_cast<StringSetting*>(setting)) {
                PutString(key.get(), name, L"\\Storage Card\\Some Folder");
                queries += 2;  // size, then text
            } else if (auto* bits = dynamic_cast<BitSetSetting*>(setting)) {
                std::string bytes(bits->byteCount, '\x5A');
                RegSetValueExW(key.get(), name, 0, REG_BINARY, reinterpret_cast<const BYTE*>(bytes.data()),
                               bits->byteCount);
                queries += 2;  // type and size, then data
            } else if (dynamic_cast<FontSetting*>(setting)) {
                for (const wchar_t* suffix :
                     {L"lfWeight", L"lfItalic", L"lfUnderline", L"lfStrikeOut", L"lfHeight", L"lfColor"})
                    PutDword(key.get(), (std::wstring(name) + suffix).c_str(), 1);
                queries += 6;
            }
        }
    }
    queries += 2 + 1;  // ProgramFiles (stored), InstallPath (absent)
    RegKey tabs = OpenSettingKey(kKeyTabSettings);
    for (int i = 0; i < kPlugInTabs; ++i) {
        HKEY sub = nullptr;
        RegCreateKeyExW(tabs.get(), (L"PlugIn" + std::to_wstring(i)).c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                        &sub, nullptr);
        PutDword(sub, L"Order", 3);
        PutDword(sub, L"Type", 1);
        PutDword(sub, L"Enabled", 1);
        PutString(sub, L"DLL", L"plugin.dll");
        PutString(sub, L"InstallPath", L"\\Program Files\\PlugIn");
        PutString(sub, L"CustomIconName", L"icon.bmp");
        RegCloseKey(sub);
        queries += 3 + 3 * 2;
    }
    return queries;
}

// Every setting this program writes gets a value other than its default and is marked dirty;
// returns how many values SaveSettings writes or deletes.
int MakeEverythingDirty() {
    int writes = 0;
    for (SettingGroup* group : g_settings.groups) {
        for (Setting* setting : group->settings()) {
            if (auto* number = dynamic_cast<IntSetting*>(setting)) {
                number->value = number->defaultValue + 2;
            } else if (auto* text = dynamic_cast<StringSetting*>(setting)) {
                text->value.assign(L"\\Storage Card\\Changed");
            } else if (auto* font = dynamic_cast<FontSetting*>(setting)) {
                for (IntSetting* part : {&font->weight, &font->italic, &font->underline, &font->strikeOut,
                                         &font->height, &font->colour})
                    part->value = part->defaultValue + 2;
            }
            setting->markDirty();
            // A bit set is read, never written.
            if (group->keyIndex() <= kKeyAgendaFusion || setting->neverSaved() || dynamic_cast<BitSetSetting*>(setting))
                continue;
            writes += dynamic_cast<FontSetting*>(setting) ? 6 : 1;
        }
    }
    g_settings.general.dHeightLimitLandscape.value = 300;
    // The built-in tabs' settings are saved from the tab list.
    TabSettingsGroup& tabSettings = g_settings.tabSettings;
    for (TabEntry* entry = tabSettings.tabs.head(); entry; entry = entry->next) {
        if (!IsBuiltInTabKind(entry->kind)) writes += 6;
        for (const BuiltInTab& builtIn : kBuiltInTabs) {
            if (builtIn.kind != entry->kind) continue;
            entry->order = (tabSettings.*builtIn.order).defaultValue + 2;
            entry->enabled = (tabSettings.*builtIn.enabled).defaultValue ? 0 : 1;
        }
    }
    return writes;
}

int g_loadQueries = 0;
int g_saveWrites = 0;

const wchar_t kStoredText[] = L"\\Storage Card\\Some Folder";
const DWORD kUnread = 0xBADC0DE;

bool AllBytes(const BitSetSetting& bits, BYTE value) {
    for (DWORD i = 0; i < bits.byteCount; ++i)
        if (bits.bits[i] != value) return false;
    return true;
}

// How many settings hold what PopulateRegistry stored for them, and how many plug-in tabs.
int SettingsHoldingStoredValues() {
    int holding = 0;
    for (SettingGroup* group : g_settings.groups) {
        if (group->keyIndex() == kKeyTodayItem) continue;
        for (Setting* setting : group->settings()) {
            if (auto* number = dynamic_cast<IntSetting*>(setting))
                holding += number->value == number->designDefault + 1;
            else if (auto* text = dynamic_cast<StringSetting*>(setting))
                holding += wcscmp(text->c_str(), kStoredText) == 0;
            else if (auto* bits = dynamic_cast<BitSetSetting*>(setting))
                holding += AllBytes(*bits, 0x5A);
            else if (auto* font = dynamic_cast<FontSetting*>(setting))
                holding += font->weight.value == 1 && font->italic.value == 1 && font->colour.value == 1;
        }
    }
    for (const TabEntry* entry = g_settings.tabSettings.tabs.head(); entry; entry = entry->next)
        holding += !IsBuiltInTabKind(entry->kind) && wcscmp(entry->installPath.c_str(), L"\\Program Files\\PlugIn") == 0;
    return holding;
}

// How many settings PopulateRegistry stores a value for, plug-in tabs included.
int SettingsStored() {
    int stored = kPlugInTabs;
    for (SettingGroup* group : g_settings.groups) {
        if (group->keyIndex() == kKeyTodayItem) continue;
        for (Setting* setting : group->settings())
            stored += dynamic_cast<IntSetting*>(setting) || dynamic_cast<StringSetting*>(setting) ||
                      dynamic_cast<BitSetSetting*>(setting) || dynamic_cast<FontSetting*>(setting);
    }
    return stored;
}

// Overwrites every loaded value, so that the next load has to read them all again.
void ForgetLoadedValues() {
    for (SettingGroup* group : g_settings.groups) {
        for (Setting* setting : group->settings()) {
            if (auto* number = dynamic_cast<IntSetting*>(setting))
                number->value = kUnread;
            else if (auto* text = dynamic_cast<StringSetting*>(setting))
                text->value.assign(L"");
            else if (auto* bits = dynamic_cast<BitSetSetting*>(setting))
                for (DWORD i = 0; i < bits->byteCount; ++i) bits->bits[i] = 0;
            else if (auto* font = dynamic_cast<FontSetting*>(setting))
                font->weight.value = font->italic.value = font->colour.value = kUnread;
        }
    }
}

// Every value under a key and its sub-keys; with `remove`, deletes them (the keys stay).
int ValuesBelow(HKEY root, const std::wstring& path, bool remove) {
    RegKey key;
    if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ | KEY_WRITE, key.out()) != ERROR_SUCCESS) return 0;
    DWORD subKeys = 0, values = 0;
    RegQueryInfoKeyW(key.get(), nullptr, nullptr, nullptr, &subKeys, nullptr, nullptr, &values, nullptr, nullptr,
                     nullptr, nullptr);
    int count = static_cast<int>(values);
    wchar_t name[256];
    for (DWORD i = 0; i < subKeys; ++i) {
        DWORD length = 256;
        if (RegEnumKeyExW(key.get(), i, name, &length, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS)
            count += ValuesBelow(root, path + L"\\" + name, remove);
    }
    while (remove && values > 0) {
        DWORD length = 256;
        if (RegEnumValueW(key.get(), 0, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) break;
        RegDeleteValueW(key.get(), name);
        --values;
    }
    return count;
}

void CreateBaselineKey(int values) {
    RegKey key;
    RegCreateKeyExW(HKEY_CURRENT_USER, kBaselinePath, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, key.out(), nullptr);
    for (int i = 0; i < values; ++i) PutDword(key.get(), (L"Value" + std::to_wstring(i)).c_str(), i);
}

// Value<i> holds i + `offset` for every i below `calls`; returns how many do.
int BaselineValuesHolding(int calls, DWORD offset) {
    RegKey key;
    RegOpenKeyExW(HKEY_CURRENT_USER, kBaselinePath, 0, KEY_READ, key.out());
    wchar_t name[32];
    int holding = 0;
    for (int i = 0; i < calls; ++i) {
        swprintf(name, 32, L"Value%d", i);
        DWORD value = 0, size = sizeof value;
        holding += RegQueryValueExW(key.get(), name, nullptr, nullptr, reinterpret_cast<BYTE*>(&value), &size) ==
                       ERROR_SUCCESS && value == static_cast<DWORD>(i) + offset;
    }
    return holding;
}

void QueryBaseline(int calls) {
    RegKey key;
    RegOpenKeyExW(HKEY_CURRENT_USER, kBaselinePath, 0, KEY_READ, key.out());
    wchar_t name[32];
    long long sum = 0;
    int read = 0;
    for (int i = 0; i < calls; ++i) {
        swprintf(name, 32, L"Value%d", i);
        DWORD value = 0, size = sizeof value;
        read += RegQueryValueExW(key.get(), name, nullptr, nullptr, reinterpret_cast<BYTE*>(&value), &size) ==
                ERROR_SUCCESS;
        sum += value;
    }
    BenchCheckCount(read, calls, "baseline values read");
    BenchCheckCount(sum, static_cast<long long>(calls) * (calls - 1) / 2, "sum of the baseline values read");
}

void SetBaseline(int calls) {
    RegKey key;
    RegOpenKeyExW(HKEY_CURRENT_USER, kBaselinePath, 0, KEY_WRITE, key.out());
    wchar_t name[32];
    for (int i = 0; i < calls; ++i) {
        swprintf(name, 32, L"Value%d", i);
        DWORD value = static_cast<DWORD>(i) + 7;
        RegSetValueExW(key.get(), name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&value), sizeof value);
    }
}

// The values the baseline wrote are there; they are put back so that the next run writes again.
void CheckBaselineWrites() {
    BenchCheckCount(BaselineValuesHolding(g_saveWrites, 7), g_saveWrites, "baseline values written");
    CreateBaselineKey(g_saveWrites);
}

// Settings that hold what was stored, after a load into a record whose values were all forgotten.
int g_holdingAfterLoad = 0;

void CheckLoad() {
    BenchCheckCount(SettingsHoldingStoredValues(), g_holdingAfterLoad, "settings holding the stored values");
    ForgetLoadedValues();
}

const std::wstring kProductKey = L"Software\\Orvane\\Quillory";

// Every value SaveSettings claims to write is there; all are removed again so that the next save
// has the same work to do.
void CheckSave() {
    BenchCheckCount(ValuesBelow(HKEY_CURRENT_USER, kProductKey, true), g_saveWrites, "values written");
}

BenchRegistration g_load({
    "LoadSettings, every value stored", "as many RegQueryValueExW on one open key",
    [] {
        g_loadQueries = PopulateRegistry();
        CreateBaselineKey(g_loadQueries);
        // What a load leaves is taken from a first load: nearly every stored setting holds its
        // stored value (the loader repairs a few on purpose, such as orders that are no
        // permutation), and none did before it.
        ForgetLoadedValues();
        BenchCheckCount(SettingsHoldingStoredValues(), 0, "settings holding stored values before any load");
        LoadSettings();
        g_holdingAfterLoad = SettingsHoldingStoredValues();
        ForgetLoadedValues();
        int stored = SettingsStored();
        printf("  LoadSettings reads %d values; %d of the %d settings stored hold their stored value after it\n",
               g_loadQueries, g_holdingAfterLoad, stored);
        BenchCheck(g_holdingAfterLoad >= stored * 9 / 10, "the stored values are read back");
    },
    [] { LoadSettings(); },
    [] { QueryBaseline(g_loadQueries); },
    [] {
        RemoveBenchKeys();
        LoadSettings();
    },
    50, CheckLoad, nullptr});

BenchRegistration g_save({
    "SaveSettings, every setting dirty", "as many RegSetValueExW on one open key",
    [] {
        PopulateRegistry();
        LoadSettings();
        g_saveWrites = MakeEverythingDirty();
        CreateBaselineKey(g_saveWrites);
        printf("  SaveSettings writes %d values\n", g_saveWrites);
        ValuesBelow(HKEY_CURRENT_USER, kProductKey, true);  // the first save writes them all anew
    },
    [] { SaveSettings(); },
    [] { SetBaseline(g_saveWrites); },
    [] {
        RemoveBenchKeys();
        LoadSettings();
    },
    50, CheckSave, CheckBaselineWrites});

}  // namespace
