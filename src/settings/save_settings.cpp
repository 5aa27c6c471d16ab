// Writing the changed settings back: write-or-delete against each default, the two rules that
// keep stored values sane, and the rebuild of the Today plug-in tab sub-keys.
#include <cwchar>

#include "settings/registry_values.h"
#include "settings/settings.h"
#include "support/display_scale.h"
#include "support/handles.h"

namespace {

const DWORD kPlugInDefaultOrder = 9;

void SaveGroup(SettingGroup& group) {
    RegKey key = OpenSettingKey(group.keyIndex());
    group.saveAll(key.get());
}

// A landscape height limit outside 60..500 means "none".
void LimitLandscapeHeight(GeneralSettings& general) {
    int limit = general.dHeightLimitLandscape.asInt();
    if (limit < 60 || limit > 500) SetInt(general.dHeightLimitLandscape, 0);
}

// The pinned month calendar needs room: it is turned off below a height limit of 200 design pixels.
void UnpinMonthlyCalendarIfTooLow(const GeneralSettings& general, CalendarSettings& calendar) {
    if (general.dHeightLimit.asInt() < ScaleForDisplay(200) && calendar.PinnedMonthlyClr.value == 1)
        SetInt(calendar.PinnedMonthlyClr, 0);
}

// Deletes a key with everything below it; false when the key could not be deleted.
bool DeleteKeyTree(HKEY root, const wchar_t* path) {
    {
        RegKey key;
        if (RegOpenKeyExW(root, path, 0, KEY_READ | KEY_WRITE, key.out()) == ERROR_SUCCESS) {
            wchar_t child[256];
            for (;;) {
                DWORD length = 256;
                if (RegEnumKeyExW(key.get(), 0, child, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
                    break;
                WString childPath;
                childPath.format(L"%s\\%s", path, child);
                if (!DeleteKeyTree(root, childPath.c_str())) break;
            }
        } else {
            key.release();
        }
    }
    return RegDeleteKeyW(root, path) == ERROR_SUCCESS;
}

// Every sub-key but "Contacts" is a plug-in tab written anew from the tab list.
void DeletePlugInTabKeys() {
    RegKey key = OpenSettingKey(kKeyTabSettings);
    if (!key) return;
    wchar_t name[256];
    DWORD index = 0;
    for (;;) {
        DWORD length = 256;
        if (RegEnumKeyExW(key.get(), index, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
            break;
        if (wcscmp(name, L"Contacts") == 0) {
            ++index;
            continue;
        }
        WString path;
        path.format(L"%s\\%s", KeyPath(kKeyTabSettings), name);
        // A key that resists deletion is stepped over so that the walk still ends.
        if (!DeleteKeyTree(KeyRoot(kKeyTabSettings), path.c_str())) ++index;
    }
}

void CopyTabListToBuiltInSettings(TabSettingsGroup& tabSettings) {
    for (const TabEntry* entry = tabSettings.tabs.head(); entry; entry = entry->next)
        for (const BuiltInTab& builtIn : kBuiltInTabs)
            if (builtIn.kind == entry->kind) {
                SetInt(tabSettings.*builtIn.enabled, entry->enabled);
                SetInt(tabSettings.*builtIn.order, entry->order);
            }
}

void WritePlugInTab(HKEY tabSettings, const TabEntry& entry) {
    RegKey sub;
    if (RegCreateKeyExW(tabSettings, entry.name.c_str(), 0, nullptr, 0, KEY_READ | KEY_WRITE, nullptr, sub.out(),
                        nullptr) != ERROR_SUCCESS) {
        sub.release();
        return;
    }
    WriteDwordOrDelete(sub.get(), L"Enabled", entry.enabled, 0);
    WriteDwordOrDelete(sub.get(), L"Order", entry.order, kPlugInDefaultOrder);
    WriteDwordOrDelete(sub.get(), L"Type", entry.kind != kTabPlugIn ? 1 : 0, 0);
    WriteStringOrDelete(sub.get(), L"DLL", entry.dll.c_str(), L"");
    WriteStringOrDelete(sub.get(), L"InstallPath", entry.installPath.c_str(), L"");
    WriteStringOrDelete(sub.get(), L"CustomIconName", entry.customIconName.c_str(), L"");
}

void SaveTabSettings(TabSettingsGroup& tabSettings) {
    DeletePlugInTabKeys();
    RegKey key = OpenSettingKey(kKeyTabSettings);
    CopyTabListToBuiltInSettings(tabSettings);
    tabSettings.saveAll(key.get());
    if (!key) return;
    for (const TabEntry* entry = tabSettings.tabs.head(); entry; entry = entry->next)
        if (entry->kind == kTabPlugIn || entry->kind == kTabPlugInTyped) WritePlugInTab(key.get(), *entry);
}

}  // namespace

void SaveSettings(SettingsRecord& record) {
    LimitLandscapeHeight(record.general);
    SaveGroup(record.general);
    UnpinMonthlyCalendarIfTooLow(record.general, record.calendar);
    for (unsigned index = kKeyCalendar; index <= kKeyCustomPim; ++index) SaveGroup(*record.groups[index]);
    SaveTabSettings(record.tabSettings);
    SaveGroup(record.categories);
}

void SaveSettings() { SaveSettings(g_settings); }
