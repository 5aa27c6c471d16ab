#include <windows.h>

#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "common/test_support.h"
#include "platform/object_store.h"
#include "platform/object_store_format.h"

namespace {

const CEPROPID kName = 0x4001001F;
const CEPROPID kNumber = 0x40020002;
const CEPROPID kMissing = 0x40030013;

// Object-store folder of a test, with databases written as text.
class Store {
public:
    Store() : folder_(L"platform_store") { SetObjectStoreFolder((folder_.path() + L"\\").c_str()); }
    ~Store() { SetObjectStoreFolder(nullptr); }
    Store(const Store&) = delete;
    Store& operator=(const Store&) = delete;
    void write(const wchar_t* name, const std::string& text) { WriteBytes(std::wstring(ObjectStoreFilePath(name).c_str()), text); }

private:
    ScratchFolder folder_;
};

HANDLE Open(const wchar_t* name, DWORD flags = CEDB_AUTOINCREMENT, CEPROPID sort = 0, CEOID* oidOut = nullptr) {
    CEGUID volume;
    CREATE_SYSTEMGUID(&volume);
    CEOID oid = 0;
    std::wstring copy(name);
    HANDLE database = CeOpenDatabaseEx(&volume, &oid, &copy[0], sort, flags, nullptr);
    if (oidOut) *oidOut = oid;
    return database;
}

// One read asking for `ids`, letting the call allocate; the buffer is freed by the caller's guard.
struct Read {
    CEOID oid = 0;
    DWORD error = 0;
    LPBYTE buffer = nullptr;
    DWORD size = 0;
    WORD count = 0;
    ~Read() {
        if (buffer) LocalFree(buffer);
    }
    const CEPROPVAL& operator[](int i) const { return reinterpret_cast<const CEPROPVAL*>(buffer)[i]; }
};

void ReadRecord(HANDLE database, std::vector<CEPROPID> ids, Read* read) {
    read->count = static_cast<WORD>(ids.size());
    SetLastError(0);
    read->oid = CeReadRecordPropsEx(database, CEDB_ALLOWREALLOC, &read->count, ids.empty() ? nullptr : ids.data(),
                                    &read->buffer, &read->size, nullptr);
    read->error = GetLastError();
}

std::wstring NameOf(HANDLE database) {
    Read read;
    ReadRecord(database, {kName}, &read);
    return read.oid && read[0].propid == kName ? read[0].val.lpwstr : L"<none>";
}

const char kThreeCategories[] = "4001001F=Business\t40020002=1\n4001001F=Personal\t40020002=2\n4001001F=Holiday\t40020002=3\n";

TEST(ObjectStore, OpeningFailsWithoutFileOrForBadNamesAndVolumes) {
    Store store;
    SetLastError(0);
    EXPECT_EQ(Open(L"\\Categories Database"), INVALID_HANDLE_VALUE) << "no file yet";
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_FILE_NOT_FOUND));
    store.write(L"\\Categories Database", kThreeCategories);
    for (const wchar_t* bad : {L"", L"\\", L"\\a\\b", L"bad:name", L"what?", L"\\0123456789012345678901234567890123"}) {
        EXPECT_EQ(Open(bad), INVALID_HANDLE_VALUE) << "name \"" << std::string(bad, bad + wcslen(bad)) << "\"";
    }
    CEGUID other = {1, 0, 0, 0};
    CEOID oid = 0;
    wchar_t name[] = L"\\Categories Database";
    EXPECT_EQ(CeOpenDatabaseEx(&other, &oid, name, 0, 0, nullptr), INVALID_HANDLE_VALUE) << "another volume";
    EXPECT_EQ(CeOpenDatabaseEx(nullptr, nullptr, name, 0, 0, nullptr), INVALID_HANDLE_VALUE) << "no identifier";

    // By name (the leading backslash is optional), then by the identifier it returned.
    CEOID first = 0;
    HANDLE database = Open(L"Categories Database", 0, 0, &first);
    ASSERT_NE(database, INVALID_HANDLE_VALUE);
    EXPECT_NE(first, 0u);
    CloseHandle(database);
    CEOID again = first;
    database = CeOpenDatabaseEx(nullptr, &again, nullptr, 0, 0, nullptr);
    ASSERT_NE(database, INVALID_HANDLE_VALUE);
    EXPECT_EQ(NameOf(database), L"Business");
    CloseHandle(database);
    CEOID unknown = 0x1234;
    EXPECT_EQ(CeOpenDatabaseEx(nullptr, &unknown, name, 0, 0, nullptr), INVALID_HANDLE_VALUE);
}

TEST(ObjectStore, AutoIncrementReadsEachRecordOnceThenReportsTheEnd) {
    Store store;
    store.write(L"\\Categories Database", kThreeCategories);
    HANDLE database = Open(L"\\Categories Database");
    ASSERT_NE(database, INVALID_HANDLE_VALUE);
    DWORD index = 99;
    EXPECT_EQ(CeSeekDatabase(database, CEDB_SEEK_BEGINNING, 0, &index), kFirstRecordOid + 1);
    EXPECT_EQ(index, 0u);
    const wchar_t* names[] = {L"Business", L"Personal", L"Holiday"};
    for (int i = 0; i < 3; ++i) {
        Read read;
        ReadRecord(database, {kName, kNumber}, &read);
        EXPECT_EQ(read.oid, kFirstRecordOid + 1 + i);
        ASSERT_EQ(read.count, 2);
        EXPECT_EQ(read[0].propid, kName);
        EXPECT_STREQ(read[0].val.lpwstr, names[i]);
        EXPECT_EQ(read[1].propid, kNumber);
        EXPECT_EQ(read[1].val.iVal, i + 1);
    }
    Read end;
    ReadRecord(database, {kName}, &end);
    EXPECT_EQ(end.oid, 0u);
    EXPECT_EQ(end.error, static_cast<DWORD>(ERROR_NO_MORE_ITEMS));
    EXPECT_EQ(end.buffer, nullptr) << "nothing allocated for a failed read";
    CloseHandle(database);

    database = Open(L"\\Categories Database", 0);
    EXPECT_EQ(NameOf(database), L"Business");
    EXPECT_EQ(NameOf(database), L"Business") << "without auto-increment the position stays";
    CloseHandle(database);
}

TEST(ObjectStore, MissingPropertiesAreFlaggedAndStoredTypesAreReported) {
    Store store;
    store.write(L"\\Categories Database",
                "4001001F=No number\n"
                "40020002=5\n"
                "40010003=12\t40020002=6\n");
    HANDLE database = Open(L"\\Categories Database");
    Read first;
    ReadRecord(database, {kName, kNumber, kMissing}, &first);
    ASSERT_EQ(first.count, 3);
    EXPECT_EQ(first[0].wFlags, 0);
    EXPECT_EQ(first[1].wFlags, CEDB_PROPNOTFOUND);
    EXPECT_EQ(first[2].wFlags, CEDB_PROPNOTFOUND);

    Read second;
    ReadRecord(database, {kName, kNumber}, &second);
    EXPECT_EQ(second[0].wFlags, CEDB_PROPNOTFOUND);

    // The name stored as a 32-bit integer: same id, the stored type comes back.
    Read third;
    ReadRecord(database, {kName}, &third);
    EXPECT_EQ(third[0].propid, 0x40010003u);
    EXPECT_EQ(third[0].wFlags, 0);
    EXPECT_EQ(third[0].val.lVal, 12);
    CloseHandle(database);
}

TEST(ObjectStore, BuffersAreGrownOnlyWhenAllowedAndAFailedReadDoesNotMoveOn) {
    Store store;
    store.write(L"\\Categories Database", kThreeCategories);
    HANDLE database = Open(L"\\Categories Database");
    CEPROPID ids[] = {kName, kNumber};
    WORD count = 2;

    LPBYTE small = static_cast<LPBYTE>(LocalAlloc(LMEM_FIXED, 8));
    DWORD size = 8;
    SetLastError(0);
    EXPECT_EQ(CeReadRecordPropsEx(database, 0, &count, ids, &small, &size, nullptr), 0u);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INSUFFICIENT_BUFFER));
    DWORD needed = size;
    EXPECT_EQ(needed, 2 * sizeof(CEPROPVAL) + 24) << "values, then \"Business\" padded to 8 bytes";

    size = 8;  // the buffer is still that small
    EXPECT_EQ(CeReadRecordPropsEx(database, CEDB_ALLOWREALLOC, &count, ids, &small, &size, nullptr), kFirstRecordOid + 1)
        << "still the first record";
    EXPECT_EQ(size, needed);
    EXPECT_STREQ(reinterpret_cast<CEPROPVAL*>(small)[0].val.lpwstr, L"Business");
    LocalFree(small);

    LPBYTE roomy = static_cast<LPBYTE>(LocalAlloc(LMEM_FIXED, 4096));
    LPBYTE original = roomy;
    size = 4096;
    EXPECT_EQ(CeReadRecordPropsEx(database, 0, &count, ids, &roomy, &size, nullptr), kFirstRecordOid + 2);
    EXPECT_EQ(roomy, original);
    EXPECT_EQ(size, 2 * sizeof(CEPROPVAL) + 24) << "the bytes used";
    LocalFree(roomy);

    LPBYTE none = nullptr;
    EXPECT_EQ(CeReadRecordPropsEx(database, CEDB_ALLOWREALLOC, nullptr, ids, &none, &size, nullptr), 0u);
    EXPECT_EQ(CeReadRecordPropsEx(database, CEDB_ALLOWREALLOC, &count, ids, nullptr, &size, nullptr), 0u);
    CloseHandle(database);
}

// All properties come back when none are named, in one LocalAlloc block that also holds the texts
// and blobs: one LocalFree releases it.
TEST(ObjectStore, EveryTypeReadsBackInOneBlockWithAllPropertiesWhenNoneAreNamed) {
    Store store;
    store.write(L"\\All Types",
                "00010002=-5\t00020012=65535\t00030003=-2147483648\t00040013=0xFFFFFFFF\t0005000B=7\t"
                "00060005=2.5\t00070040=0x01D0000012345678\t00080041=00ff10\t0009001F=a\\tb\\\\c\\n\n");
    HANDLE database = Open(L"\\All Types");
    Read read;
    ReadRecord(database, {}, &read);
    ASSERT_EQ(read.count, 9);
    EXPECT_EQ(read[0].val.iVal, -5);
    EXPECT_EQ(read[1].val.uiVal, 65535);
    EXPECT_EQ(read[2].val.lVal, -2147483647L - 1);
    EXPECT_EQ(read[3].val.ulVal, 0xFFFFFFFFu);
    EXPECT_EQ(read[4].val.boolVal, TRUE);
    EXPECT_EQ(read[5].val.dblVal, 2.5);
    EXPECT_EQ(read[6].val.filetime.dwHighDateTime, 0x01D00000u);
    EXPECT_EQ(read[6].val.filetime.dwLowDateTime, 0x12345678u);
    ASSERT_EQ(read[7].val.blob.dwCount, 3u);
    EXPECT_EQ(memcmp(read[7].val.blob.lpb, "\x00\xFF\x10", 3), 0);
    EXPECT_GE(read[7].val.blob.lpb, read.buffer + 9 * sizeof(CEPROPVAL)) << "after the value array";
    EXPECT_STREQ(read[8].val.lpwstr, L"a\tb\\c\n");
    const BYTE* text = reinterpret_cast<const BYTE*>(read[8].val.lpwstr);
    EXPECT_TRUE(text >= read.buffer + 9 * sizeof(CEPROPVAL) && text + 14 <= read.buffer + read.size);
    EXPECT_GE(LocalSize(read.buffer), read.size);
    EXPECT_EQ(LocalFree(read.buffer), nullptr);
    read.buffer = nullptr;
    CloseHandle(database);
}

TEST(ObjectStore, SeekingByIdentifierFromBothEndsAndRelatively) {
    Store store;
    store.write(L"\\Categories Database", kThreeCategories);
    HANDLE database = Open(L"\\Categories Database", 0);
    DWORD index = 0;
    EXPECT_EQ(CeSeekDatabase(database, CEDB_SEEK_CEOID, kFirstRecordOid + 3, &index), kFirstRecordOid + 3);
    EXPECT_EQ(index, 2u);
    EXPECT_EQ(NameOf(database), L"Holiday");
    EXPECT_EQ(CeSeekDatabase(database, CEDB_SEEK_BEGINNING, 1, nullptr), kFirstRecordOid + 2);
    EXPECT_EQ(NameOf(database), L"Personal");
    EXPECT_EQ(CeSeekDatabase(database, CEDB_SEEK_END, static_cast<DWORD>(-2), &index), kFirstRecordOid + 1);
    EXPECT_EQ(index, 0u);
    EXPECT_EQ(CeSeekDatabase(database, CEDB_SEEK_CURRENT, 2, &index), kFirstRecordOid + 3);
    EXPECT_EQ(CeSeekDatabase(database, CEDB_SEEK_CURRENT, static_cast<DWORD>(-1), &index), kFirstRecordOid + 2);

    // Failed seeks leave the position where it was.
    EXPECT_EQ(CeSeekDatabase(database, CEDB_SEEK_BEGINNING, 3, &index), 0u);
    EXPECT_EQ(CeSeekDatabase(database, CEDB_SEEK_END, 1, &index), 0u);
    EXPECT_EQ(CeSeekDatabase(database, CEDB_SEEK_CEOID, 0x4242, &index), 0u);
    EXPECT_EQ(CeSeekDatabase(database, 0x10, 0, &index), 0u) << "value seeks are not supported";
    EXPECT_EQ(index, 1u);
    EXPECT_EQ(NameOf(database), L"Personal");
    CloseHandle(database);

    store.write(L"\\Empty", "# nothing here\n");
    HANDLE empty = Open(L"\\Empty");
    ASSERT_NE(empty, INVALID_HANDLE_VALUE);
    EXPECT_EQ(CeSeekDatabase(empty, CEDB_SEEK_BEGINNING, 0, &index), 0u);
    Read read;
    ReadRecord(empty, {kName}, &read);
    EXPECT_EQ(read.error, static_cast<DWORD>(ERROR_NO_MORE_ITEMS));
    CloseHandle(empty);
}

TEST(ObjectStore, ClosedAndForeignHandlesAreRefused) {
    Store store;
    store.write(L"\\Categories Database", kThreeCategories);
    HANDLE database = Open(L"\\Categories Database");
    EXPECT_TRUE(CloseHandle(database));
    Read read;
    ReadRecord(database, {kName}, &read);
    EXPECT_EQ(read.oid, 0u);
    EXPECT_EQ(read.error, static_cast<DWORD>(ERROR_INVALID_HANDLE));
    EXPECT_EQ(CeSeekDatabase(database, CEDB_SEEK_BEGINNING, 0, nullptr), 0u);

    // A new file handle that happens to get the same value is not the database.
    std::wstring other = std::wstring(ObjectStoreFilePath(L"Other").c_str());
    WriteBytes(other, "x");
    HANDLE file = CreateFileW(other.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_EQ(CeSeekDatabase(file, CEDB_SEEK_BEGINNING, 0, nullptr), 0u);
    CloseHandle(file);
    EXPECT_EQ(CeSeekDatabase(INVALID_HANDLE_VALUE, CEDB_SEEK_BEGINNING, 0, nullptr), 0u);

    // Two open at once keep their own positions.
    HANDLE one = Open(L"\\Categories Database");
    HANDLE two = Open(L"\\Categories Database");
    EXPECT_EQ(NameOf(one), L"Business");
    EXPECT_EQ(NameOf(one), L"Personal");
    EXPECT_EQ(NameOf(two), L"Business");
    CloseHandle(one);
    EXPECT_EQ(NameOf(two), L"Personal");
    CloseHandle(two);
}

TEST(ObjectStore, SortPropertyOrdersTheRecordsWithoutRenumberingThem) {
    Store store;
    store.write(L"\\Categories Database", "4001001F=work\t40020002=1\n40020002=9\n4001001F=Home\n4001001F=gifts\n");
    HANDLE database = Open(L"\\Categories Database", CEDB_AUTOINCREMENT, kName);
    std::vector<std::wstring> names;
    std::vector<CEOID> oids;
    for (;;) {
        Read read;
        ReadRecord(database, {kName}, &read);
        if (!read.oid) break;
        oids.push_back(read.oid);
        names.push_back(read[0].wFlags ? L"-" : read[0].val.lpwstr);
    }
    EXPECT_EQ(names, (std::vector<std::wstring>{L"gifts", L"Home", L"work", L"-"}));
    EXPECT_EQ(oids, (std::vector<CEOID>{kFirstRecordOid + 4, kFirstRecordOid + 3, kFirstRecordOid + 1,
                                        kFirstRecordOid + 2}));
    CloseHandle(database);
}

// ---- the text form ----

std::vector<StoredRecord> Parse(const std::string& text) { return ParseObjectStoreText(text.data(), text.size()); }

TEST(ObjectStoreText, SkipsCommentsBlankLinesAndFieldsThatDoNotParse) {
    std::vector<StoredRecord> records = Parse(
        "\xEF\xBB\xBF# categories\r\n"
        "\r\n"
        "4001001F=Gesch\xC3\xA4" "ft\t40020002=32768\t40020002=-32768\r\n"  // out of range, then fine
        "zz=1\t=2\t123456789=3\t4001001F\t40020007=1\n"                      // nothing usable
        "0x4001001F=First\t4001001F=Second\t40020002=12abc\t40030041=abc\n"  // duplicate id, bad number, odd blob
        "4001001F=last line without end");
    ASSERT_EQ(records.size(), 3u);
    ASSERT_EQ(records[0].properties.size(), 2u);
    EXPECT_EQ(records[0].oid, kFirstRecordOid + 1);
    EXPECT_EQ(records[0].properties[0].text, L"Gesch\u00E4ft");
    EXPECT_EQ(records[0].properties[1].integer, -32768);
    ASSERT_EQ(records[1].properties.size(), 1u);
    EXPECT_EQ(records[1].oid, kFirstRecordOid + 2) << "numbered by records, not lines";
    EXPECT_EQ(records[1].properties[0].text, L"First");
    EXPECT_EQ(records[2].properties[0].text, L"last line without end");

    EXPECT_TRUE(Parse("").empty());
    EXPECT_TRUE(Parse("\n\n\t\n").empty());
    EXPECT_EQ(Parse("0001001F=\n")[0].properties[0].text, L"") << "an empty text is a value";
    EXPECT_EQ(Parse("00010013=4294967296\n").size(), 0u);
    EXPECT_EQ(Parse("00010005= 1\n").size(), 0u);
    EXPECT_EQ(Parse("0001001F=trailing \\\n")[0].properties[0].text, L"trailing \\");
}

TEST(ObjectStoreText, SeededGarbageNeverBreaksReading) {
    const char* pieces[] = {"4001001F=", "40020002=", "0002001F=", "00030041=", "00040005=", "\t", "\n", "\r\n", "=",
                            "\\", "\\t", "-", "0x", "ff", "7", "Name", "\xC3", "\xA4", "\xFF", "#", " ", "\0"};
    std::mt19937 random(20240611);
    Store store;
    for (int round = 0; round < 400; ++round) {
        std::string text;
        int length = static_cast<int>(random() % 60);
        for (int i = 0; i < length; ++i) {
            if (random() % 5 == 0) {
                text.push_back(static_cast<char>(random() % 256));
            } else {
                const char* piece = pieces[random() % (sizeof pieces / sizeof pieces[0])];
                text.append(piece, *piece ? strlen(piece) : 1);
            }
        }
        std::vector<StoredRecord> parsed = Parse(text);
        store.write(L"\\Garbage", text);
        HANDLE database = Open(L"\\Garbage");
        ASSERT_NE(database, INVALID_HANDLE_VALUE) << "round " << round;
        size_t records = 0;
        for (;;) {
            Read read;
            ReadRecord(database, {}, &read);
            if (!read.oid) {
                EXPECT_EQ(read.error, static_cast<DWORD>(ERROR_NO_MORE_ITEMS));
                break;
            }
            ASSERT_LT(records, parsed.size());
            EXPECT_EQ(read.count, parsed[records].properties.size());
            for (int p = 0; p < read.count; ++p) {
                WORD type = TypeFromPropID(read[p].propid);
                if (type == CEVT_LPWSTR) {
                    const BYTE* start = reinterpret_cast<const BYTE*>(read[p].val.lpwstr);
                    size_t bytes = (wcslen(read[p].val.lpwstr) + 1) * sizeof(wchar_t);
                    EXPECT_TRUE(start >= read.buffer && start + bytes <= read.buffer + read.size) << "round " << round;
                }
                if (type == CEVT_BLOB) {
                    const BYTE* start = read[p].val.blob.lpb;
                    EXPECT_TRUE(start >= read.buffer && start + read[p].val.blob.dwCount <= read.buffer + read.size);
                }
            }
            ++records;
        }
        EXPECT_EQ(records, parsed.size()) << "round " << round;
        CloseHandle(database);
    }
}

}  // namespace
