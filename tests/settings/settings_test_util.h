#pragma once
// Shared by the settings tests: the product's keys, cleaning them, counting values, and looking
// at a loaded record.
#include <windows.h>

#include <memory>
#include <string>
#include <vector>

#include "common/test_support.h"
#include "settings/settings.h"

const wchar_t kProductPath[] = L"Software\\Orvane\\Quillory";
const wchar_t kCalendarPath[] = L"Software\\Orvane\\Quillory\\Calendar";
const wchar_t kTasksPath[] = L"Software\\Orvane\\Quillory\\Tasks";
const wchar_t kFontsPath[] = L"Software\\Orvane\\Quillory\\Fonts";
const wchar_t kTabsPath[] = L"Software\\Orvane\\Quillory\\TabSettings";
const wchar_t kTodayItemPath[] = L"Software\\Microsoft\\today\\items\\Quillory";
const wchar_t kPocketInformantPath[] = L"Software\\WebIS\\PocketInformant";
const wchar_t kAgendaFusionPath[] = L"SOFTWARE\\Developer One, Inc.\\Agenda Fusion";

// Removes every key a load or save may touch, except the Today item (the test runner's install).
inline void RemoveProductKeys() {
    RegRemoveTree(HKEY_CURRENT_USER, L"Software\\Orvane");
    RegRemoveTree(HKEY_CURRENT_USER, L"Software\\WebIS");
    RegRemoveTree(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Developer One, Inc.");
}

// Values directly in a key (0 when the key is missing).
inline DWORD RegValueCount(HKEY root, const wchar_t* path) {
    HKEY key;
    if (RegOpenKeyExW(root, path, 0, KEY_READ, &key) != ERROR_SUCCESS) return 0;
    DWORD values = 0;
    RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &values, nullptr, nullptr, nullptr,
                     nullptr);
    RegCloseKey(key);
    return values;
}

// Values in a key and all its sub-keys.
inline DWORD RegValueCountTree(HKEY root, const std::wstring& path) {
    DWORD total = RegValueCount(root, path.c_str());
    HKEY key;
    if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return total;
    wchar_t child[256];
    for (DWORD index = 0;; ++index) {
        DWORD length = 256;
        if (RegEnumKeyExW(key, index, child, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) break;
        total += RegValueCountTree(root, path + L"\\" + child);
    }
    RegCloseKey(key);
    return total;
}

// A record of its own for each test, loaded with a language library slot of its own.
struct LoadedRecord {
    std::unique_ptr<SettingsRecord> record{new SettingsRecord};
    HMODULE library = nullptr;
    ~LoadedRecord() {
        if (library) FreeLibrary(library);
    }
    SettingsRecord* operator->() { return record.get(); }
    SettingsRecord& operator*() { return *record; }
    void load() { LoadSettings(*record, library); }
};

// Names of the settings (font parts included) whose dirty flag is set, as "key/name".
inline std::vector<std::wstring> DirtySettings(const SettingsRecord& record) {
    std::vector<std::wstring> names;
    auto note = [&](const Setting& setting) {
        if (setting.dirty) names.push_back(std::to_wstring(setting.keyIndex) + L"/" + setting.valueName.c_str());
    };
    for (SettingGroup* group : record.groups)
        for (Setting* setting : group->settings()) {
            note(*setting);
            if (auto* font = dynamic_cast<FontSetting*>(setting))
                for (const IntSetting* part :
                     {&font->weight, &font->italic, &font->underline, &font->strikeOut, &font->height, &font->colour})
                    note(*part);
        }
    return names;
}

// The tab list as "name:kind:order:enabled" entries, head first.
inline std::vector<std::wstring> TabSummary(const SettingsRecord& record) {
    std::vector<std::wstring> tabs;
    for (const TabEntry* entry = record.tabSettings.tabs.head(); entry; entry = entry->next)
        tabs.push_back(std::wstring(entry->name.c_str()) + L":" + std::to_wstring(entry->kind) + L":" +
                       std::to_wstring(entry->order) + L":" + std::to_wstring(entry->enabled));
    return tabs;
}

inline std::string Narrow(const std::wstring& text) {
    std::string out;
    for (wchar_t c : text) out.push_back(c < 128 ? static_cast<char>(c) : '?');
    return out;
}

inline std::string Join(const std::vector<std::wstring>& items) {
    std::string out;
    for (const std::wstring& item : items) out += (out.empty() ? "" : " ") + Narrow(item);
    return out;
}
