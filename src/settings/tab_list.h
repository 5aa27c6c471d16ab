#pragma once
// The tabs of the Today plug-in: a doubly linked list kept in `order` when entries are added.
#include <windows.h>

#include <memory>

#include "support/record_list.h"
#include "support/wide_string.h"

// Kinds of the built-in tabs; a Today plug-in shown as a tab has kind 1, or 2 when its
// TabSettings sub-key has a non-zero Type.
enum TabKind : DWORD {
    kTabPlugIn = 1,
    kTabPlugInTyped = 2,
    kTabCalendar = 4,
    kTabTasks = 8,
    kTabSEvents = 16,
    kTabNotes = 32,
    kTabMail = 64,
    kTabContacts = 128,
};

bool IsBuiltInTabKind(DWORD kind);

struct TabEntry {
    DWORD kind = 0;
    DWORD order = 0;
    DWORD enabled = 0;
    WString name;
    WString dll;
    WString installPath;
    WString customIconName;
    TabEntry* next = nullptr;
    TabEntry* previous = nullptr;
};

class TabList {
public:
    // Frees every entry.
    void clear();
    // Takes the entry and links it in before the first later entry whose order is not smaller,
    // except that an entry smaller than the head becomes the head and one equal to the head goes
    // right after it. Returns the entry.
    TabEntry* insertOrdered(std::unique_ptr<TabEntry> entry);
    // Makes an entry from its parts and inserts it in order.
    TabEntry* add(DWORD kind, DWORD order, DWORD enabled, const wchar_t* name, const wchar_t* dll = L"",
                  const wchar_t* installPath = L"", const wchar_t* customIconName = L"");
    // Unlinks the entry and frees it.
    void remove(TabEntry* entry);
    // Sets every entry's order to its position, 1 for the head.
    void renumber();

    TabEntry* head() const { return entries_.head; }
    int count() const { return entries_.count; }
    TabEntry* findByOrder(DWORD order) const;
    TabEntry* findByKind(DWORD kind) const;
    TabEntry* findByKindAndName(DWORD kind, const wchar_t* name) const;

private:
    RecordList<TabEntry> entries_;
};
