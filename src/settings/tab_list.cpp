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

void TabList::clear() {
    while (head_) {
        TabEntry* next = head_->next;
        delete head_;
        head_ = next;
    }
    count_ = 0;
}

TabEntry* TabList::insertOrdered(std::unique_ptr<TabEntry> owned) {
    TabEntry* entry = owned.release();
    ++count_;
    if (!head_ || entry->order < head_->order) {
        entry->prev = nullptr;
        entry->next = head_;
        if (head_) head_->prev = entry;
        head_ = entry;
        return entry;
    }
    TabEntry* after = head_;
    while (after->next && after->next->order < entry->order) after = after->next;
    entry->prev = after;
    entry->next = after->next;
    if (after->next) after->next->prev = entry;
    after->next = entry;
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
    if (!entry) return;
    if (entry->prev)
        entry->prev->next = entry->next;
    else if (head_ == entry)
        head_ = entry->next;
    else
        return;  // not in this list
    if (entry->next) entry->next->prev = entry->prev;
    delete entry;
    --count_;
}

void TabList::renumber() {
    DWORD position = 1;
    for (TabEntry* entry = head_; entry; entry = entry->next) entry->order = position++;
}

TabEntry* TabList::findByOrder(DWORD order) const {
    for (TabEntry* entry = head_; entry; entry = entry->next)
        if (entry->order == order) return entry;
    return nullptr;
}

TabEntry* TabList::findByKind(DWORD kind) const {
    for (TabEntry* entry = head_; entry; entry = entry->next)
        if (entry->kind == kind) return entry;
    return nullptr;
}

TabEntry* TabList::findByKindAndName(DWORD kind, const wchar_t* name) const {
    for (TabEntry* entry = head_; entry; entry = entry->next)
        if (entry->kind == kind && wcscmp(entry->name.c_str(), name ? name : L"") == 0) return entry;
    return nullptr;
}
