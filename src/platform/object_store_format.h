#pragma once
// The text form of a desktop object-store database.
//
// UTF-8, an optional byte-order mark, lines ending in LF or CR LF. Empty lines and lines whose
// first character is '#' are skipped. Every other line is one record: fields separated by TAB,
// each "PROPID=value", PROPID 1 to 8 hexadecimal digits (optionally "0x"), e.g.
//     4001001F=Business<TAB>40020002=1
// Value by type (low word of PROPID):
//   CEVT_I2, CEVT_I4     decimal with optional '-', or 0x hexadecimal; must fit the type
//   CEVT_UI2, CEVT_UI4   decimal or 0x hexadecimal; must fit the type
//   CEVT_BOOL            as CEVT_I4; non-zero is TRUE
//   CEVT_R8              a decimal floating-point number
//   CEVT_FILETIME        the 64-bit FILETIME as one decimal or 0x hexadecimal number
//   CEVT_LPWSTR          the text, with \t \n \r \\ for TAB, LF, CR and backslash
//   CEVT_BLOB            hexadecimal bytes, two digits each (may be empty)
// A field that does not parse, has an unknown type, or repeats a property id of its record is
// ignored; a line left without properties is not a record. Records keep file order; the n-th
// record (from 1) has the identifier 0x10000 + n.
#include <windows.h>

#include <string>
#include <vector>

#include "platform/object_store.h"

struct StoredProperty {
    CEPROPID id = 0;
    long long integer = 0;  // integer types, BOOL and FILETIME
    double real = 0;        // CEVT_R8
    std::wstring text;      // CEVT_LPWSTR
    std::vector<BYTE> bytes;  // CEVT_BLOB
};

struct StoredRecord {
    CEOID oid = 0;
    std::vector<StoredProperty> properties;
};

const CEOID kFirstRecordOid = 0x10000;

std::vector<StoredRecord> ParseObjectStoreText(const char* bytes, size_t size);
