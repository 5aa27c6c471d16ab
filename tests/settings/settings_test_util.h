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

// Values directly in a key, and in it and all its sub-keys (0 when the key is missing).
inline size_t RegValueCount(HKEY root, const std::wstring& path) { return Snapshot(root, path)[path].size(); }
inline size_t RegValueCountTree(HKEY root, const std::wstring& path) {
    size_t total = 0;
    for (const auto& key : Snapshot(root, path)) total += key.second.size();
    return total;
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
