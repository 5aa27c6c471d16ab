// Desktop stand-in of the object-store database calls over text files (object_store_format.h).
// A database handle is the real file handle of its file, so CloseHandle closes it; the records
// are read once when the database is opened. A handle is recognised by the identity of its file,
// so a closed handle whose value is reused by another file is not mistaken for the database.
#include "platform/object_store.h"

#include <algorithm>
#include <map>
#include <memory>

#include "platform/object_store_format.h"
#include "support/handles.h"

namespace {

const wchar_t kDefaultFolder[] = L"\\Windows\\";
const wchar_t kFileExtension[] = L".cedb";
const wchar_t kIllegalNameCharacters[] = L"\\/:*?\"<>|";
const int kMaxNameLength = 31;
const DWORD kMaxFileSize = 16 * 1024 * 1024;

struct OpenDatabase {
    std::vector<StoredRecord> records;
    size_t position = 0;
    bool autoIncrement = false;
    DWORD volumeSerial = 0;
    DWORD indexHigh = 0;
    DWORD indexLow = 0;
};

WString g_folder(kDefaultFolder);
std::map<HANDLE, std::unique_ptr<OpenDatabase>> g_open;
std::map<CEOID, std::wstring> g_databaseNames;

bool SameFile(HANDLE handle, const OpenDatabase& database) {
    BY_HANDLE_FILE_INFORMATION info;
    if (!GetFileInformationByHandle(handle, &info)) return false;
    return info.dwVolumeSerialNumber == database.volumeSerial && info.nFileIndexHigh == database.indexHigh &&
           info.nFileIndexLow == database.indexLow;
}

// The open database behind a handle; forgets handles that were closed in the meantime.
OpenDatabase* Lookup(HANDLE handle) {
    auto found = g_open.find(handle);
    if (found == g_open.end()) return nullptr;
    if (SameFile(handle, *found->second)) return found->second.get();
    g_open.erase(found);
    return nullptr;
}

void ForgetClosedHandles() {
    for (auto it = g_open.begin(); it != g_open.end();) {
        it = SameFile(it->first, *it->second) ? std::next(it) : g_open.erase(it);
    }
}

// Drops one leading backslash; empty when the rest cannot be a database name.
std::wstring BareName(const wchar_t* name) {
    if (!name) return std::wstring();
    if (*name == L'\\') ++name;
    std::wstring bare(name);
    if (bare.empty() || bare.size() > static_cast<size_t>(kMaxNameLength)) return std::wstring();
    for (wchar_t c : bare) {
        if (c < L' ' || wcschr(kIllegalNameCharacters, c)) return std::wstring();
    }
    return bare;
}

// A stable identifier per name (names compare without regard to case).
CEOID DatabaseOid(const std::wstring& bare) {
    std::wstring upper = bare;
    CharUpperBuffW(&upper[0], static_cast<DWORD>(upper.size()));
    DWORD hash = 2166136261u;
    for (wchar_t c : upper) hash = (hash ^ c) * 16777619u;
    return hash | 0x80000000u;
}

bool ReadWholeFile(HANDLE file, std::vector<char>* bytes) {
    LARGE_INTEGER size;
    if (!GetFileSizeEx(file, &size) || size.QuadPart > kMaxFileSize) return false;
    bytes->resize(static_cast<size_t>(size.QuadPart));
    DWORD read = 0;
    if (bytes->empty()) return true;
    return ReadFile(file, bytes->data(), static_cast<DWORD>(bytes->size()), &read, nullptr) && read == bytes->size();
}

const StoredProperty* FindProperty(const StoredRecord& record, CEPROPID id) {
    for (const StoredProperty& property : record.properties) {
        if (HIWORD(property.id) == HIWORD(id)) return &property;
    }
    return nullptr;
}

int CompareForSort(const StoredProperty& a, const StoredProperty& b) {
    if (TypeFromPropID(a.id) != TypeFromPropID(b.id)) return TypeFromPropID(a.id) < TypeFromPropID(b.id) ? -1 : 1;
    switch (TypeFromPropID(a.id)) {
    case CEVT_LPWSTR:
        return lstrcmpiW(a.text.c_str(), b.text.c_str());
    case CEVT_R8:
        return a.real < b.real ? -1 : a.real > b.real ? 1 : 0;
    case CEVT_BLOB:
        return a.bytes < b.bytes ? -1 : a.bytes > b.bytes ? 1 : 0;
    case CEVT_FILETIME:
        return static_cast<unsigned long long>(a.integer) < static_cast<unsigned long long>(b.integer)   ? -1
               : static_cast<unsigned long long>(a.integer) > static_cast<unsigned long long>(b.integer) ? 1
                                                                                                         : 0;
    }
    return a.integer < b.integer ? -1 : a.integer > b.integer ? 1 : 0;
}

void SortRecords(std::vector<StoredRecord>* records, CEPROPID sortProperty) {
    std::stable_sort(records->begin(), records->end(), [sortProperty](const StoredRecord& a, const StoredRecord& b) {
        const StoredProperty* left = FindProperty(a, sortProperty);
        const StoredProperty* right = FindProperty(b, sortProperty);
        if (!left || !right) return left && !right;
        return CompareForSort(*left, *right) < 0;
    });
}

HANDLE Fail(DWORD error) {
    SetLastError(error);
    return INVALID_HANDLE_VALUE;
}

CEOID FailRead(DWORD error) {
    SetLastError(error);
    return 0;
}

// ---- record buffer ----

size_t AlignUp(size_t value, size_t alignment) { return (value + alignment - 1) / alignment * alignment; }

// Bytes the value data of `property` takes after the CEPROPVAL array.
size_t DataSize(const StoredProperty* property) {
    if (!property) return 0;
    if (TypeFromPropID(property->id) == CEVT_LPWSTR) return AlignUp((property->text.size() + 1) * sizeof(wchar_t), 8);
    if (TypeFromPropID(property->id) == CEVT_BLOB) return AlignUp(property->bytes.size(), 8);
    return 0;
}

// Fills one CEPROPVAL; string and blob data go to `data`, which moves on past them.
void FillValue(CEPROPVAL* value, CEPROPID requested, const StoredProperty* property, BYTE** data) {
    memset(value, 0, sizeof *value);
    if (!property) {
        value->propid = requested;
        value->wFlags = CEDB_PROPNOTFOUND;
        return;
    }
    value->propid = property->id;
    switch (TypeFromPropID(property->id)) {
    case CEVT_I2:
        value->val.iVal = static_cast<short>(property->integer);
        break;
    case CEVT_UI2:
        value->val.uiVal = static_cast<USHORT>(property->integer);
        break;
    case CEVT_I4:
        value->val.lVal = static_cast<long>(property->integer);
        break;
    case CEVT_UI4:
        value->val.ulVal = static_cast<ULONG>(property->integer);
        break;
    case CEVT_BOOL:
        value->val.boolVal = static_cast<BOOL>(property->integer);
        break;
    case CEVT_R8:
        value->val.dblVal = property->real;
        break;
    case CEVT_FILETIME:
        value->val.filetime.dwLowDateTime = static_cast<DWORD>(property->integer);
        value->val.filetime.dwHighDateTime = static_cast<DWORD>(static_cast<unsigned long long>(property->integer) >> 32);
        break;
    case CEVT_LPWSTR: {
        size_t bytes = (property->text.size() + 1) * sizeof(wchar_t);
        memcpy(*data, property->text.c_str(), bytes);
        value->val.lpwstr = reinterpret_cast<LPWSTR>(*data);
        break;
    }
    case CEVT_BLOB:
        if (!property->bytes.empty()) memcpy(*data, property->bytes.data(), property->bytes.size());
        value->val.blob.dwCount = static_cast<DWORD>(property->bytes.size());
        value->val.blob.lpb = *data;
        value->wLenData = static_cast<WORD>(std::min<size_t>(property->bytes.size(), 0xFFFF));
        break;
    }
    *data += DataSize(property);
}

LPBYTE Allocate(HANDLE heap, LPBYTE previous, size_t size) {
    if (heap) {
        return static_cast<LPBYTE>(previous ? HeapReAlloc(heap, 0, previous, size) : HeapAlloc(heap, 0, size));
    }
    return static_cast<LPBYTE>(previous ? LocalReAlloc(previous, size, LMEM_MOVEABLE) : LocalAlloc(LMEM_FIXED, size));
}

}  // namespace

void SetObjectStoreFolder(const wchar_t* folder) { g_folder.assign(folder ? folder : kDefaultFolder); }

WString ObjectStoreFilePath(const wchar_t* name) {
    WString path;
    std::wstring bare = BareName(name);
    if (bare.empty()) return path;
    path.assign(g_folder.c_str());
    path.append(bare.c_str());
    path.append(kFileExtension);
    return path;
}

HANDLE CeOpenDatabaseEx(PCEGUID volume, PCEOID oid, LPWSTR name, CEPROPID sortProperty, DWORD flags,
                        CENOTIFYREQUEST* notify) {
    CEGUID systemVolume;
    CREATE_SYSTEMGUID(&systemVolume);
    if (!oid || (volume && memcmp(volume, &systemVolume, sizeof systemVolume) != 0)) {
        return Fail(ERROR_INVALID_PARAMETER);
    }
    std::wstring bare;
    if (*oid == 0) {
        bare = BareName(name);
    } else {
        auto known = g_databaseNames.find(*oid);
        if (known != g_databaseNames.end()) bare = known->second;
    }
    if (bare.empty()) return Fail(ERROR_INVALID_PARAMETER);

    WString path = ObjectStoreFilePath(bare.c_str());
    FileHandle file(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) return Fail(ERROR_FILE_NOT_FOUND);
    std::vector<char> bytes;
    BY_HANDLE_FILE_INFORMATION info;
    if (!ReadWholeFile(file.get(), &bytes) || !GetFileInformationByHandle(file.get(), &info)) {
        return Fail(ERROR_INVALID_DATA);
    }

    auto database = std::make_unique<OpenDatabase>();
    database->records = ParseObjectStoreText(bytes.data(), bytes.size());
    if (sortProperty) SortRecords(&database->records, sortProperty);
    database->autoIncrement = (flags & CEDB_AUTOINCREMENT) != 0;
    database->volumeSerial = info.dwVolumeSerialNumber;
    database->indexHigh = info.nFileIndexHigh;
    database->indexLow = info.nFileIndexLow;

    ForgetClosedHandles();
    CEOID databaseOid = DatabaseOid(bare);
    g_databaseNames[databaseOid] = bare;
    *oid = databaseOid;
    HANDLE handle = file.release();
    g_open[handle] = std::move(database);
    return handle;
}

CEOID CeSeekDatabase(HANDLE database, DWORD seekType, DWORD value, LPDWORD index) {
    OpenDatabase* open = Lookup(database);
    if (!open) return FailRead(ERROR_INVALID_HANDLE);
    long long count = static_cast<long long>(open->records.size());
    long long target = -1;
    switch (seekType) {
    case CEDB_SEEK_CEOID:
        for (long long i = 0; i < count; ++i) {
            if (open->records[i].oid == value) target = i;
        }
        break;
    case CEDB_SEEK_BEGINNING:
        target = value;
        break;
    case CEDB_SEEK_END:
        target = count - 1 + static_cast<LONG>(value);
        break;
    case CEDB_SEEK_CURRENT:
        target = static_cast<long long>(open->position) + static_cast<LONG>(value);
        break;
    default:
        return FailRead(ERROR_NOT_SUPPORTED);
    }
    if (target < 0 || target >= count) return FailRead(ERROR_SEEK);
    open->position = static_cast<size_t>(target);
    if (index) *index = static_cast<DWORD>(target);
    return open->records[open->position].oid;
}

CEOID CeReadRecordPropsEx(HANDLE database, DWORD flags, LPWORD propertyCount, CEPROPID* propertyIds, LPBYTE* buffer,
                          LPDWORD bufferSize, HANDLE heap) {
    OpenDatabase* open = Lookup(database);
    if (!open) return FailRead(ERROR_INVALID_HANDLE);
    if (!propertyCount || !buffer || !bufferSize) return FailRead(ERROR_INVALID_PARAMETER);
    if (open->position >= open->records.size()) return FailRead(ERROR_NO_MORE_ITEMS);
    const StoredRecord& record = open->records[open->position];

    std::vector<CEPROPID> ids;
    std::vector<const StoredProperty*> chosen;
    if (propertyIds) {
        for (WORD i = 0; i < *propertyCount; ++i) {
            ids.push_back(propertyIds[i]);
            chosen.push_back(FindProperty(record, propertyIds[i]));
        }
    } else {
        for (const StoredProperty& property : record.properties) {
            ids.push_back(property.id);
            chosen.push_back(&property);
        }
    }
    size_t size = chosen.size() * sizeof(CEPROPVAL);
    for (const StoredProperty* property : chosen) size += DataSize(property);
    if (size > MAXDWORD) return FailRead(ERROR_NOT_ENOUGH_MEMORY);

    if (!*buffer || *bufferSize < size) {
        if (!(flags & CEDB_ALLOWREALLOC)) {
            *bufferSize = static_cast<DWORD>(size);
            return FailRead(ERROR_INSUFFICIENT_BUFFER);
        }
        LPBYTE grown = Allocate(heap, *buffer, std::max<size_t>(size, 1));
        if (!grown) return FailRead(ERROR_NOT_ENOUGH_MEMORY);
        *buffer = grown;
    }
    *bufferSize = static_cast<DWORD>(size);
    CEPROPVAL* values = reinterpret_cast<CEPROPVAL*>(*buffer);
    BYTE* data = *buffer + chosen.size() * sizeof(CEPROPVAL);
    for (size_t i = 0; i < chosen.size(); ++i) FillValue(&values[i], ids[i], chosen[i], &data);
    *propertyCount = static_cast<WORD>(chosen.size());
    if (open->autoIncrement) ++open->position;
    return record.oid;
}
