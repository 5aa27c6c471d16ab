#include "settings/tab_list.h"

#include <cwchar>

bool IsBuiltInTabKind(DWORD kind) {
    switch (kind) {
    case kTabCalendar:
    case kTabTasks:
    case kTabSEvents:
    case kTabNotes:
    case kTabMail:
    case kTabContacts:
        return true;
    default:
        return false;
    }
}

void TabList::clear() { DeleteRecords(entries_); }

TabEntry* TabList::insertOrdered(std::unique_ptr<TabEntry> owned) {
    TabEntry* entry = owned.release();
    const TabEntry* head = entries_.head;
    InsertRecord(entries_, entry, [&](const TabEntry& r) {
        return &r == head ? entry->order < r.order : r.order >= entry->order;
    });
    return entry;
}

TabEntry* TabList::add(DWORD kind, DWORD order, DWORD enabled, const wchar_t* name, const wchar_t* dll,
                       const wchar_t* installPath, const wchar_t* customIconName) {
    std::unique_ptr<TabEntry> entry(new TabEntry);
    entry->kind = kind;
    entry->order = order;
    entry->enabled = enabled;
    entry->name.assign(name);
    entry->dll.assign(dll);
    entry->installPath.assign(installPath);
    entry->customIconName.assign(customIconName);
    return insertOrdered(std::move(entry));
}

void TabList::remove(TabEntry* entry) {
    if (entry && UnlinkRecord(entries_, entry)) delete entry;
}

void TabList::renumber() {
    DWORD position = 1;
    for (TabEntry* entry = entries_.head; entry; entry = entry->next) entry->order = position++;
}

TabEntry* TabList::findByOrder(DWORD order) const {
    return FindRecord(entries_, [&](const TabEntry& entry) { return entry.order == order; });
}

TabEntry* TabList::findByKind(DWORD kind) const {
    return FindRecord(entries_, [&](const TabEntry& entry) { return entry.kind == kind; });
}

TabEntry* TabList::findByKindAndName(DWORD kind, const wchar_t* name) const {
    const wchar_t* wanted = name ? name : L"";
    return FindRecord(entries_, [&](const TabEntry& entry) {
        return entry.kind == kind && wcscmp(entry.name.c_str(), wanted) == 0;
    });
}
