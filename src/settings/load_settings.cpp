// Filling the settings record from the registry, with the environment's defaults and the repairs
// of values that would break the program's invariants.
#include <cwchar>
#include <cwctype>

#include "settings/registry_values.h"
#include "settings/settings.h"
#include "support/app_state.h"
#include "support/handles.h"

namespace {

const wchar_t kProductSubFolder[] = L"\\Orvane\\Quillory";
const wchar_t kFallbackLanguageLibrary[] = L"\\Orvane\\Quillory\\LangRes\\QLEngRc.dll";
const DWORD kPlugInDefaultOrder = 9;

int ReadTwelveHourClock() {
    wchar_t localeTime[4] = {};
    if (GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_ITIME, localeTime, 4) == 0) localeTime[0] = 0;
    return TwelveHourClockFromTimeFormat(localeTime);
}

DWORD ReadFirstDayOfWeek() {
    wchar_t text[5] = {};
    if (GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_IFIRSTDAYOFWEEK, text, 5) == 0) text[0] = 0;
    return static_cast<DWORD>(wcstol(text, nullptr, 10));
}

// Keys 1 to 14 are created when missing; a key that cannot be made leaves the defaults.
void LoadGroup(SettingGroup& group, const LoadContext& context) {
    RegKey key = OpenSettingKey(group.keyIndex());
    group.loadAll(key.get(), context);
}

// Key 0 belongs to the Today item's installer: it is only opened, never created.
void LoadTodayItem(SettingsRecord& record, const LoadContext& context) {
    RegKey key = OpenExistingSettingKey(kKeyTodayItem);
    record.todayItem.loadAll(key.get(), context);
    const wchar_t* programFiles = record.todayItem.ProgramFiles.c_str();
    record.productFolder.assign(programFiles);
    record.productFolder.append(kProductSubFolder);
    ReadString(key.get(), L"InstallPath", record.installFolder, programFiles);
    record.installFolder.append(kProductSubFolder);
}

void LoadSystemColours(SettingsRecord& record) {
    COLORREF* colours = record.systemColours;
    colours[kShellColour4] = ReadSystemColour(4, 0);
    colours[kShellColour6] = ReadSystemColour(6, 0xEF8E73);
    colours[kShellColour8] = ReadSystemColour(8, 0x9C4D2C);
    colours[kShellColour9] = ReadSystemColour(9, 0xFFFFFF);
    OSVERSIONINFOW version = {};
    version.dwOSVersionInfoSize = sizeof version;
    GetVersionExW(&version);
    bool fixedColours = version.dwMajorVersion == 3 || (version.dwMajorVersion == 4 && version.dwMinorVersion == 20);
    colours[kShellColour34] = fixedColours ? 0x9C4D2C : ReadSystemColour(34, 0x9C4D2C);
    colours[kShellColour35] = fixedColours ? 0xFFFFFF : ReadSystemColour(35, 0xFFFFFF);
}

// The previous library is released only after the new one is loaded: reloading the same file then
// only moves its reference count instead of unmapping and mapping it again.
void LoadLanguageLibrary(const SettingsRecord& record, HMODULE& languageLibrary) {
    HMODULE previous = languageLibrary;
    languageLibrary = nullptr;
    HMODULE loaded = LoadLibraryW(record.general.SelectedLangResFile.c_str());
    if (!loaded) {
        WString fallback(record.todayItem.ProgramFiles.c_str());
        fallback.append(kFallbackLanguageLibrary);
        loaded = LoadLibraryW(fallback.c_str());
    }
    if (previous) FreeLibrary(previous);
    languageLibrary = loaded;
}

void RepairCalendar(CalendarSettings& calendar) {
    int days = calendar.dNumOfDays.asInt();
    if (days < 1 || days > 120) SetInt(calendar.dNumOfDays, 7);

    bool used[6] = {};
    for (IntSetting& slot : calendar.CalTitlesOrder)
        if (slot.value <= 5) used[slot.value] = true;
    for (bool slotUsed : used)
        if (!slotUsed) {
            for (DWORD i = 0; i < 6; ++i) SetInt(calendar.CalTitlesOrder[i], i);
            return;
        }
}

void LoadPlugInTab(HKEY tabSettings, const wchar_t* name, TabList& tabs) {
    RegKey sub;
    if (RegOpenKeyExW(tabSettings, name, 0, KEY_READ, sub.out()) != ERROR_SUCCESS) {
        sub.release();
        return;
    }
    DWORD order = ReadDword(sub.get(), L"Order", kPlugInDefaultOrder);
    DWORD type = ReadDword(sub.get(), L"Type", 0);
    DWORD enabled = ReadDword(sub.get(), L"Enabled", 0);
    WString dll, installPath, customIconName;
    ReadString(sub.get(), L"DLL", dll, L"");
    ReadString(sub.get(), L"InstallPath", installPath, L"");
    ReadString(sub.get(), L"CustomIconName", customIconName, L"");
    tabs.add(type != 0 ? kTabPlugInTyped : kTabPlugIn, order, enabled, name, dll.c_str(), installPath.c_str(),
             customIconName.c_str());
}

// Every sub-key but "Contacts" (the contacts tab's own options) is a Today plug-in shown as a tab.
void LoadPlugInTabs(HKEY tabSettings, TabList& tabs) {
    if (!tabSettings) return;
    wchar_t name[256];
    for (DWORD index = 0;; ++index) {
        DWORD length = 256;
        if (RegEnumKeyExW(tabSettings, index, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
            break;
        if (wcscmp(name, L"Contacts") == 0) continue;
        LoadPlugInTab(tabSettings, name, tabs);
    }
}

// The remembered active tab must be an enabled built-in tab.
void RepairActiveTab(IntSetting& activeTab, const TabList& tabs) {
    const TabEntry* entry = tabs.findByOrder(activeTab.value);
    if (!entry || entry->enabled != 1 || !IsBuiltInTabKind(entry->kind)) SetInt(activeTab, 1);
}

// DfltTab counts the built-in tabs in the order of the page's list, not by kind.
void ApplyStartupTab(const TabSettingsGroup& tabSettings, IntSetting& activeTab) {
    static const TabKind kDefaultTabKinds[] = {kTabCalendar, kTabTasks, kTabNotes, kTabContacts, kTabMail, kTabSEvents};
    int defaultTab = tabSettings.DfltTab.asInt();
    if (tabSettings.DfltTabOnStartup.value != 1 || defaultTab >= 6 || defaultTab < 0) return;
    const TabEntry* entry = tabSettings.tabs.findByKind(kDefaultTabKinds[defaultTab]);
    if (entry) SetInt(activeTab, entry->order);
}

void LoadTabSettings(SettingsRecord& record, HMODULE languageLibrary, const LoadContext& context) {
    TabSettingsGroup& tabSettings = record.tabSettings;
    tabSettings.tabs.clear();
    RegKey key = OpenSettingKey(kKeyTabSettings);
    tabSettings.loadAll(key.get(), context);
    for (const BuiltInTab& builtIn : kBuiltInTabs) {
        WString title;
        title.load(languageLibrary, builtIn.titleId);
        tabSettings.tabs.add(builtIn.kind, (tabSettings.*builtIn.order).value, (tabSettings.*builtIn.enabled).value,
                             title.c_str());
    }
    LoadPlugInTabs(key.get(), tabSettings.tabs);
    tabSettings.tabs.renumber();
    RepairActiveTab(record.general.ActiveTab, tabSettings.tabs);
    ApplyStartupTab(tabSettings, record.general.ActiveTab);
}

}  // namespace

void LoadSettings(SettingsRecord& record, HMODULE& languageLibrary) {
    LoadContext context;
    record.twelveHourClock = ReadTwelveHourClock();
    LoadTodayItem(record, context);
    LoadGroup(record.pocketInformant, context);
    LoadGroup(record.agendaFusion, context);
    LoadSystemColours(record);
    LoadGroup(record.general, context);
    LoadLanguageLibrary(record, languageLibrary);

    context.firstDayOfWeek = ReadFirstDayOfWeek();
    LoadGroup(record.calendar, context);
    RepairCalendar(record.calendar);
    for (unsigned index = kKeyTasks; index <= kKeySEvents; ++index) LoadGroup(*record.groups[index], context);

    context.fontFace = &record.fonts.FontFaceToUse;
    context.forceClearType = &record.fonts.ForceClearType;
    LoadGroup(record.fonts, context);
    LoadGroup(record.colors, context);
    LoadGroup(record.customPim, context);
    LoadTabSettings(record, languageLibrary, context);
    LoadGroup(record.categories, context);
}

void LoadSettings() { LoadSettings(g_settings, g_app.languageLibrary); }
