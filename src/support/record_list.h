#pragma once
// A doubly linked list of heap records that carry their own `next` and `previous` links. The
// list owns its records; where a record goes is decided by the caller's ordering rule.

template <typename Record>
struct RecordList;

// Deletes every record and empties the list.
template <typename Record>
void DeleteRecords(RecordList<Record>& list) {
    while (list.head) {
        Record* next = list.head->next;
        delete list.head;
        list.head = next;
    }
    list.count = 0;
}

template <typename Record>
struct RecordList {
    Record* head = nullptr;
    int count = 0;

    RecordList() = default;
    ~RecordList() { DeleteRecords(*this); }
    RecordList(const RecordList&) = delete;
    RecordList& operator=(const RecordList&) = delete;
};

// Takes ownership of `record` and links it in before the first record `r` for which
// `goesBefore(r)` holds, or last when there is none.
template <typename Record, typename GoesBefore>
void InsertRecord(RecordList<Record>& list, Record* record, GoesBefore goesBefore) {
    Record* previous = nullptr;
    Record* next = list.head;
    while (next && !goesBefore(*next)) {
        previous = next;
        next = next->next;
    }
    record->previous = previous;
    record->next = next;
    if (previous) previous->next = record;
    else list.head = record;
    if (next) next->previous = record;
    ++list.count;
}

// Unlinks `record` without deleting it; false, with nothing changed, when it is not linked into
// this list.
template <typename Record>
bool UnlinkRecord(RecordList<Record>& list, Record* record) {
    if (record->previous) record->previous->next = record->next;
    else if (list.head == record) list.head = record->next;
    else return false;
    if (record->next) record->next->previous = record->previous;
    record->previous = record->next = nullptr;
    --list.count;
    return true;
}

// The first record for which `matches(r)` holds, or null.
template <typename Record, typename Matches>
Record* FindRecord(const RecordList<Record>& list, Matches matches) {
    for (Record* r = list.head; r; r = r->next)
        if (matches(*r)) return r;
    return nullptr;
}
