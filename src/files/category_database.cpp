#include "files/category_database.h"

#include "platform/object_store.h"

namespace {

const CEPROPID kNameProperty = 0x4001001F;    // id 0x4001, CEVT_LPWSTR
const CEPROPID kNumberProperty = 0x40020002;  // id 0x4002, CEVT_I2

class DatabaseHandle {
public:
    explicit DatabaseHandle(HANDLE handle) : handle_(handle) {}
    ~DatabaseHandle() {
        if (*this) CloseHandle(handle_);
    }
    DatabaseHandle(const DatabaseHandle&) = delete;
    DatabaseHandle& operator=(const DatabaseHandle&) = delete;
    explicit operator bool() const { return handle_ != INVALID_HANDLE_VALUE && handle_ != nullptr; }
    HANDLE get() const { return handle_; }

private:
    HANDLE handle_;
};

// The record buffer the read call allocates, freed with LocalFree.
class RecordBuffer {
public:
    RecordBuffer() = default;
    ~RecordBuffer() {
        if (bytes_) LocalFree(bytes_);
    }
    RecordBuffer(const RecordBuffer&) = delete;
    RecordBuffer& operator=(const RecordBuffer&) = delete;
    LPBYTE* out() { return &bytes_; }
    DWORD* size() { return &size_; }
    const CEPROPVAL* properties() const { return reinterpret_cast<const CEPROPVAL*>(bytes_); }

private:
    LPBYTE bytes_ = nullptr;
    DWORD size_ = 0;
};

bool IsPresent(const CEPROPVAL& property, CEPROPID id) {
    return property.propid == id && !(property.wFlags & CEDB_PROPNOTFOUND);
}

// Reads the current record; false when there is none left. `record` is null for a record that
// has no name, an empty name or no number.
bool ReadNextCategory(HANDLE database, CategoryRecord*& record) {
    record = nullptr;
    CEPROPID wanted[] = {kNameProperty, kNumberProperty};
    WORD count = 2;
    RecordBuffer buffer;
    if (!CeReadRecordPropsEx(database, CEDB_ALLOWREALLOC, &count, wanted, buffer.out(), buffer.size(), nullptr))
        return false;
    const wchar_t* name = nullptr;
    bool hasNumber = false;
    short number = 0;
    for (WORD i = 0; i < count; ++i) {
        const CEPROPVAL& property = buffer.properties()[i];
        if (IsPresent(property, kNameProperty)) name = property.val.lpwstr;
        if (IsPresent(property, kNumberProperty)) {
            hasNumber = true;
            number = property.val.iVal;
        }
    }
    if (name && *name && hasNumber) {
        record = new CategoryRecord;
        record->name.assign(name);
        record->number = number;
    }
    return true;
}

}  // namespace

void ReadCategoryDatabase(CategoryList& categories) {
    CEGUID volume;
    CREATE_SYSTEMGUID(&volume);
    CEOID oid = 0;
    wchar_t name[] = L"\\Categories Database";
    DatabaseHandle database(CeOpenDatabaseEx(&volume, &oid, name, 0, CEDB_AUTOINCREMENT, nullptr));
    if (!database) return;
    DWORD index = 0;
    if (!CeSeekDatabase(database.get(), CEDB_SEEK_BEGINNING, 0, &index)) return;
    CategoryRecord* record = nullptr;
    while (ReadNextCategory(database.get(), record))
        if (record) InsertCategory(categories, record);
}
