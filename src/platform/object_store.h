#pragma once
// The device's object-store database interface (read side), with the device's names, values and
// field order. On the desktop each database is a UTF-8 text file in the object-store folder
// (default "\Windows\", on the current drive): database "\Categories Database" is the file
// "\Windows\Categories Database.cedb". One line per record, properties separated by TAB, each
// written "PROPID=value" with PROPID the 32-bit property identifier in hexadecimal (id in the
// high word, type in the low word); the value's form follows the type. See object_store_format.h.
#include <windows.h>

#include "support/wide_string.h"

struct CEGUID {
    DWORD Data1;
    DWORD Data2;
    DWORD Data3;
    DWORD Data4;
};
typedef CEGUID* PCEGUID;

// The object store's own volume.
inline void CREATE_SYSTEMGUID(CEGUID* guid) { memset(guid, 0, sizeof *guid); }

typedef DWORD CEOID;
typedef CEOID* PCEOID;
typedef DWORD CEPROPID;

inline WORD TypeFromPropID(CEPROPID property) { return LOWORD(property); }

struct CEBLOB {
    DWORD dwCount;
    LPBYTE lpb;
};

union CEVALUNION {
    short iVal;
    USHORT uiVal;
    long lVal;
    ULONG ulVal;
    FILETIME filetime;
    LPWSTR lpwstr;
    CEBLOB blob;
    BOOL boolVal;
    double dblVal;
};

struct CEPROPVAL {
    CEPROPID propid;
    WORD wLenData;
    WORD wFlags;
    CEVALUNION val;
};

struct CENOTIFYREQUEST {
    DWORD dwSize;
    HWND hwnd;
    DWORD dwFlags;
    HANDLE hHeap;
    DWORD dwParam;
};

// Property types (low word of a CEPROPID).
const WORD CEVT_I2 = 2;
const WORD CEVT_I4 = 3;
const WORD CEVT_R8 = 5;
const WORD CEVT_BOOL = 11;
const WORD CEVT_UI2 = 18;
const WORD CEVT_UI4 = 19;
const WORD CEVT_LPWSTR = 31;
const WORD CEVT_FILETIME = 64;
const WORD CEVT_BLOB = 65;

// CeOpenDatabaseEx flags.
const DWORD CEDB_AUTOINCREMENT = 0x1;
// CeReadRecordPropsEx flags.
const DWORD CEDB_ALLOWREALLOC = 0x1;
// CEPROPVAL.wFlags.
const WORD CEDB_PROPNOTFOUND = 0x0100;
const WORD CEDB_PROPDELETE = 0x0200;

// CeSeekDatabase types.
const DWORD CEDB_SEEK_CEOID = 0x1;
const DWORD CEDB_SEEK_BEGINNING = 0x2;  // value: records to skip from the first
const DWORD CEDB_SEEK_END = 0x4;        // value: 0 or minus the records to go back from the last
const DWORD CEDB_SEEK_CURRENT = 0x8;    // value: signed record count from the current one

// Opens by name when *oid is 0 (and then stores the database's identifier there), else by an
// identifier returned before. The sort property, if not 0, orders the records by that property
// (records without it last). Returns INVALID_HANDLE_VALUE on failure; close with CloseHandle.
HANDLE CeOpenDatabaseEx(PCEGUID volume, PCEOID oid, LPWSTR name, CEPROPID sortProperty, DWORD flags,
                        CENOTIFYREQUEST* notify);
// Moves the current position; returns the record's identifier, or 0 (position unchanged).
CEOID CeSeekDatabase(HANDLE database, DWORD seekType, DWORD value, LPDWORD index);
// Reads the current record. With `propertyIds` each requested property (matched by its id, the
// high word) gives one CEPROPVAL in request order, carrying the stored type, or CEDB_PROPNOTFOUND;
// without, every property is returned and *propertyCount receives their number. The buffer holds
// the CEPROPVAL array followed by the strings and blobs they point into. With CEDB_ALLOWREALLOC a
// missing or small buffer is (re)allocated from `heap`, or with LocalAlloc when `heap` is 0;
// otherwise a small buffer fails with ERROR_INSUFFICIENT_BUFFER. Either way *bufferSize receives
// the bytes the record takes (a caller retrying must set it back to its buffer's real size). Returns the record's identifier, or 0
// (ERROR_NO_MORE_ITEMS past the last record). With CEDB_AUTOINCREMENT a successful read moves on.
CEOID CeReadRecordPropsEx(HANDLE database, DWORD flags, LPWORD propertyCount, CEPROPID* propertyIds, LPBYTE* buffer,
                          LPDWORD bufferSize, HANDLE heap);

// ---- desktop stand-in ----
// The folder holding the database files, ending with a backslash. nullptr restores "\Windows\".
void SetObjectStoreFolder(const wchar_t* folder);
// The file that plays database `name` (a leading backslash is dropped); empty for a name that
// cannot be a database name (empty, longer than 31 characters, or holding \ / : * ? " < > |).
WString ObjectStoreFilePath(const wchar_t* name);
