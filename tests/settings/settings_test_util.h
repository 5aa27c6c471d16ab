#pragma once
// The product's keys, cleaning them, counting values, and looking at a loaded record.
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

// Values directly in a key (0 when the key is missing), and with `tree` in all its sub-keys too.
inline DWORD RegValueCount(HKEY root, const std::wstring& path, bool tree = false) {
    HKEY key;
    if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return 0;
    DWORD total = 0;
    RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &total, nullptr, nullptr, nullptr,
                     nullptr);
    wchar_t child[256];
    for (DWORD index = 0, length = 256; tree && RegEnumKeyExW(key, index, child, &length, nullptr, nullptr, nullptr,
                                                              nullptr) == ERROR_SUCCESS;
         ++index, length = 256)
        total += RegValueCount(root, path + L"\\" + child, true);
    RegCloseKey(key);
    return total;
}
inline DWORD RegValueCountTree(HKEY root, const std::wstring& path) { return RegValueCount(root, path, true); }

inline std::string Narrow(const std::wstring& text) {
    std::string out;
    for (wchar_t c : text) out.push_back(c < 128 ? static_cast<char>(c) : '?');
    return out;
}

// Names of the settings (font parts included) whose dirty flag is set, as "key/name", space-separated.
inline std::string DirtySettings(const SettingsRecord& record) {
    std::string names;
    auto note = [&](const Setting& setting) {
        if (setting.dirty) names += std::to_string(setting.keyIndex) + "/" + Narrow(setting.valueName.c_str()) + " ";
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
