#pragma once
// The fifteen registry keys that settings live under: each index names a root key and a path.
#include <windows.h>

#include "support/handles.h"

// Key indexes of the table, named by the area they hold.
enum SettingKey : unsigned {
    kKeyTodayItem = 0,      // HKLM Software\Microsoft\today\items\Quillory
    kKeyPocketInformant = 1,
    kKeyAgendaFusion = 2,
    kKeyGeneral = 3,        // HKCU Software\Orvane\Quillory
    kKeyCalendar = 4,
    kKeyTasks = 5,
    kKeyNotes = 6,
    kKeyContacts = 7,
    kKeyMessages = 8,
    kKeySEvents = 9,
    kKeyFonts = 10,
    kKeyColors = 11,
    kKeyCustomPim = 12,
    kKeyTabSettings = 13,
    kKeyCategories = 14,
};

const unsigned kKeyCount = 15;

// Root key of an index; null for an index of 15 or more.
HKEY KeyRoot(unsigned index);
// Sub-key path of an index; null for an index of 15 or more.
const wchar_t* KeyPath(unsigned index);

// The key of an index, created when missing (RegCreateKeyExW). Empty when the index is out of
// range or the key cannot be created.
RegKey OpenSettingKey(unsigned index);
// The key of an index opened only if it exists (RegOpenKeyExW). Empty on failure.
RegKey OpenExistingSettingKey(unsigned index);
