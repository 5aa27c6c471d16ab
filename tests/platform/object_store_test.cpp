#include <windows.h>

#include <cstdio>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "common/test_support.h"
#include "platform/object_store.h"
#include "platform/object_store_format.h"

namespace {

const wchar_t kCategories[] = L"\\Categories Database";

// Object-store folder of a test, with databases written as text.
struct Store {
    ScratchFolder folder{L"platform_store"};
    Store() { SetObjectStoreFolder((folder.path() + L"\\").c_str()); }
    ~Store() { SetObjectStoreFolder(nullptr); }
    void write(const wchar_t* name, const std::string& text) { WriteBytes(ObjectStoreFilePath(name).c_str(), text); }
};

HANDLE Open(const wchar_t* name) {
    CEGUID volume;
    CREATE_SYSTEMGUID(&volume);
    CEOID oid = 0;
    std::wstring copy(name);
    return CeOpenDatabaseEx(&volume, &oid, &copy[0], 0, CEDB_AUTOINCREMENT, nullptr);
}

// One read asking for `ids` (every property when empty), letting the call allocate.
struct Read {
    CEOID oid = 0;
    DWORD error = 0;
    LPBYTE buffer = nullptr;
    DWORD size = 0;
    WORD count = 0;
    Read(HANDLE database, std::vector<CEPROPID> ids) : count(static_cast<WORD>(ids.size())) {
        SetLastError(0);
        oid = CeReadRecordPropsEx(database, CEDB_ALLOWREALLOC, &count, ids.empty() ? nullptr : ids.data(), &buffer,
                                  &size, nullptr);
        error = GetLastError();
    }
    ~Read() { LocalFree(buffer); }
    const CEPROPVAL& operator[](int i) const { return reinterpret_cast<const CEPROPVAL*>(buffer)[i]; }
};

// A value as the tests write it: texts quoted (UTF-8), blobs as hex bytes, numbers in decimal
// (a FILETIME as one 64-bit number); "-" when the record lacks the property.
std::string ValueText(const CEPROPVAL& value) {
    char text[256] = "-";
    const CEVALUNION& v = value.val;
    if (value.wFlags & CEDB_PROPNOTFOUND) return text;
    switch (TypeFromPropID(value.propid)) {
    case CEVT_I2: return std::to_string(v.iVal);
    case CEVT_UI2: return std::to_string(v.uiVal);
    case CEVT_I4: return std::to_string(v.lVal);
    case CEVT_UI4: return std::to_string(v.ulVal);
    case CEVT_BOOL: return std::to_string(v.boolVal);
    case CEVT_R8: snprintf(text, sizeof text, "%g", v.dblVal); return text;
    case CEVT_FILETIME:
        return std::to_string(static_cast<ULONGLONG>(v.filetime.dwHighDateTime) << 32 | v.filetime.dwLowDateTime);
    case CEVT_LPWSTR:
        WideCharToMultiByte(CP_UTF8, 0, v.lpwstr, -1, text, sizeof text, nullptr, nullptr);
        return '"' + std::string(text) + '"';
    }
    // CEVT_BLOB
    for (DWORD i = 0; i < v.blob.dwCount; ++i) snprintf(text + 2 * i, sizeof text - 2 * i, "%02x", v.blob.lpb[i]);
    return v.blob.dwCount ? text : "";
}

// Reads on to the end of an auto-increment database: "n: ID=value ...;" per record, n its number.
std::string ReadAll(HANDLE database, std::vector<CEPROPID> ids = {}) {
    std::string out;
    for (int records = 0; records < 100; ++records) {
        Read read(database, ids);
        if (!read.oid) return read.error == ERROR_NO_MORE_ITEMS ? out : out + "error " + std::to_string(read.error);
        out += std::to_string(read.oid - kFirstRecordOid) + ":";
        for (int i = 0; i < read.count; ++i) {
            char id[16];
            snprintf(id, sizeof id, " %08lX=", static_cast<unsigned long>(read[i].propid));
            out += id + ValueText(read[i]);
        }
        out += ";";
    }
    return out + "no end";
}

TEST(ObjectStore, TextFieldsParseByTypeWithinTheirBoundsAndLinesByTheirForm) {
    struct Case {
        const char* text;
        const char* records;
    };
    const Case cases[] = {
        // Each type at both sides of its range: a field that does not fit is dropped, the record stays.
        {"00010002=-32768\t00020002=32767\t00030002=-32769\t00040002=32768\t00050002=0x7FFF",
         "1: 00010002=-32768 00020002=32767 00050002=32767;"},
        {"00010003=-2147483648\t00020003=2147483647\t00030003=-2147483649\t00040003=2147483648",
         "1: 00010003=-2147483648 00020003=2147483647;"},
        {"00010012=65535\t00020012=65536\t00030012=-1\t00040012=0x10", "1: 00010012=65535 00040012=16;"},
        {"00010013=0xFFFFFFFF\t00020013=4294967296\t00030013=0x100000000\t00040013=0",
         "1: 00010013=4294967295 00040013=0;"},
        {"0001000B=7\t0002000B=0\t0003000B=-1\t0004000B=2147483648", "1: 0001000B=1 0002000B=0 0003000B=1;"},
        {"00010005=2.5\t00020005= 1\t00030005=1e999\t00040005=-0.25\t00050005=1x\t00060005=",
         "1: 00010005=2.5 00040005=-0.25;"},
        {"00010040=18446744073709551615\t00020040=18446744073709551616\t00030040=0x01D0000012345678\t00040040=-1",
         "1: 00010040=18446744073709551615 00030040=130604389499164280;"},
        {"0001001F=a\\tb\\\\c\\n\\r\t0002001F=\t0003001F=end \\\t0004001F=\\x\t0005001F=Gesch\xC3\xA4"
         "ft",
         "1: 0001001F=\"a\tb\\c\n\r\" 0002001F=\"\" 0003001F=\"end \\\" 0004001F=\"\\x\" 0005001F=\"Gesch\xC3\xA4"
         "ft\";"},
        {"00010041=00ff10\t00020041=abc\t00030041=zz\t00040041=", "1: 00010041=00ff10 00040041=;"},
        // Ids of 1 to 8 hex digits, "0x" allowed; unknown types and a repeated id (of any type) are dropped.
        {"zz=1\t=2\t123456789=3\t0x123456789=3\t4001001F\t40020007=1\t40020000=1", ""},
        {"0x4001001F=First\t4001001F=Second\t40010003=5\t1F=x", "1: 4001001F=\"First\" 0000001F=\"x\";"},
        // Byte-order mark, CR LF, comments, blank lines, records numbered by records, no final line end.
        {"\xEF\xBB\xBF# c\r\n\r\n4001001F=A\r\nzz=1\n\t\n4001001F=B\n#4001001F=C\n\n4001001F=D",
         "1: 4001001F=\"A\";2: 4001001F=\"B\";3: 4001001F=\"D\";"},
    };
    Store store;
    for (const Case& c : cases) {
        store.write(L"\\Case", c.text);
        HANDLE database = Open(L"\\Case");
        EXPECT_EQ(ReadAll(database), c.records) << c.text;
        CloseHandle(database);
    }
}

TEST(ObjectStore, OpensByNameReadsTheAskedPropertiesInOrderAndRewinds) {
    Store store;
    EXPECT_TRUE(Open(kCategories) == INVALID_HANDLE_VALUE && GetLastError() == ERROR_FILE_NOT_FOUND);
    store.write(kCategories, "4001001F=Business\t40020002=1\n40020002=5\n40010003=12\n");
    HANDLE database = Open(kCategories);
    EXPECT_EQ(ReadAll(database, {0x40030013, 0x4001001F, 0x40020002}),
              "1: 40030013=- 4001001F=\"Business\" 40020002=1;2: 40030013=- 4001001F=- 40020002=5;"
              "3: 40030013=- 40010003=12 40020002=-;");
    DWORD index = 7;
    EXPECT_TRUE(CeSeekDatabase(database, CEDB_SEEK_BEGINNING, 0, &index) == kFirstRecordOid + 1 && index == 0);
    EXPECT_EQ(ReadAll(database, {0x40020002}), "1: 40020002=1;2: 40020002=5;3: 40020002=-;");
    CloseHandle(database);
}

// Whatever the text, reading gives as many records as the text has and keeps texts inside the buffer.
TEST(ObjectStore, SeededGarbageNeverBreaksReading) {
    const char* pieces[] = {"4001001F=", "40020002=", "00030041=", "00040005=", "\t", "\n", "\r\n", "=", "\\",
                            "-", "0x", "ff", "7", "Name", "\xC3", "\xA4", "\xFF", "#", " ", "\0"};
    std::mt19937 random(20240611);
    Store store;
    for (int round = 0; round < 200; ++round) {
        std::string text;
        for (int i = static_cast<int>(random() % 60); i > 0; --i) {
            const char* piece = pieces[random() % (sizeof pieces / sizeof pieces[0])];
            if (random() % 5 == 0) text.push_back(static_cast<char>(random() % 256));
            else text.append(piece, *piece ? strlen(piece) : 1);
        }
        size_t parsed = ParseObjectStoreText(text.data(), text.size()).size();
        store.write(L"\\Garbage", text);
        HANDLE database = Open(L"\\Garbage");
        ASSERT_NE(database, INVALID_HANDLE_VALUE) << "round " << round;
        size_t records = 0;
        for (; records <= parsed; ++records) {
            Read read(database, {});
            if (!read.oid) break;
            for (int p = 0; p < read.count; ++p) {
                const wchar_t* text = read[p].val.lpwstr;
                const BYTE* start = reinterpret_cast<const BYTE*>(text);
                EXPECT_TRUE(TypeFromPropID(read[p].propid) != CEVT_LPWSTR ||
                            (start >= read.buffer && start + (wcslen(text) + 1) * 2 <= read.buffer + read.size))
                    << "round " << round;
            }
        }
        EXPECT_EQ(records, parsed) << "round " << round;
        CloseHandle(database);
    }
}

}  // namespace
