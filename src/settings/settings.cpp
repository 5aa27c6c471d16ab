#include "settings/settings.h"

#include "support/app_state.h"

SettingsRecord g_settings;

const BuiltInTab kBuiltInTabs[kBuiltInTabCount] = {
    {kTabCalendar, 41180, &TabSettingsGroup::CalendarTabEnabled, &TabSettingsGroup::CalendarTabOrder},
    {kTabTasks, 41155, &TabSettingsGroup::TasksTabEnabled, &TabSettingsGroup::TasksTabOrder},
    {kTabNotes, 41156, &TabSettingsGroup::NotesTabEnabled, &TabSettingsGroup::NotesTabOrder},
    {kTabContacts, 41157, &TabSettingsGroup::ContactsTabEnabled, &TabSettingsGroup::ContactsTabOrder},
    {kTabMail, 41158, &TabSettingsGroup::MailTabEnabled, &TabSettingsGroup::MailTabOrder},
    {kTabSEvents, 41159, &TabSettingsGroup::SEventsTabEnabled, &TabSettingsGroup::SEventsTabOrder},
};

UINT SettingsChangedMessage() {
    if (g_app.settingsChangedMessage == 0)
        g_app.settingsChangedMessage = RegisterWindowMessageW(L"OrvaneQuillorySettingsChanged");
    return g_app.settingsChangedMessage;
}

void PostSettingsChanged() { PostMessageW(HWND_BROADCAST, SettingsChangedMessage(), 0, 0); }

int TwelveHourClockFromTimeFormat(const wchar_t* localeTime) {
    if (!localeTime) return 1;
    if (localeTime[0] == L'1') return 0;
    if (localeTime[0] == L'4' && localeTime[1] == L'9') return 0;
    return 1;
}
