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
            }
            setting->markDirty();
            if (group->keyIndex() <= kKeyAgendaFusion || setting->neverSaved()) continue;
            writes += dynamic_cast<FontSetting*>(setting) ? 6 : 1;
        }
    }
    g_settings.general.dHeightLimitLandscape.value = 300;
    for (const TabEntry* entry = g_settings.tabSettings.tabs.head(); entry; entry = entry->next)
        if (!IsBuiltInTabKind(entry->kind)) writes += 6;
    return writes;
}

int g_loadQueries = 0;
int g_saveWrites = 0;

void CreateBaselineKey(int values) {
    RegKey key;
    RegCreateKeyExW(HKEY_CURRENT_USER, kBaselinePath, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, key.out(), nullptr);
    for (int i = 0; i < values; ++i) PutDword(key.get(), (L"Value" + std::to_wstring(i)).c_str(), i);
}

void QueryBaseline(int calls) {
    RegKey key;
    RegOpenKeyExW(HKEY_CURRENT_USER, kBaselinePath, 0, KEY_READ, key.out());
    wchar_t name[32];
    long long sum = 0;
    for (int i = 0; i < calls; ++i) {
        swprintf(name, 32, L"Value%d", i);
        DWORD value = 0, size = sizeof value;
        RegQueryValueExW(key.get(), name, nullptr, nullptr, reinterpret_cast<BYTE*>(&value), &size);
        sum += value;
    }
    BenchKeep(sum);
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

BenchRegistration g_load({
    "LoadSettings, every value stored", "as many RegQueryValueExW on one open key",
    [] {
        g_loadQueries = PopulateRegistry();
        CreateBaselineKey(g_loadQueries);
        printf("  LoadSettings reads %d values\n", g_loadQueries);
    },
    [] {
        LoadSettings();
        BenchKeep(g_settings.calendar.dNumOfDays.value);
    },
    [] { QueryBaseline(g_loadQueries); },
    [] { RemoveBenchKeys(); },
    50});

BenchRegistration g_save({
    "SaveSettings, every setting dirty", "as many RegSetValueExW on one open key",
    [] {
        PopulateRegistry();
        LoadSettings();
        g_saveWrites = MakeEverythingDirty();
        CreateBaselineKey(g_saveWrites);
        printf("  SaveSettings writes %d values\n", g_saveWrites);
    },
    [] { SaveSettings(); },
    [] { SetBaseline(g_saveWrites); },
    [] {
        RemoveBenchKeys();
        LoadSettings();
    },
    50});

}  // namespace
