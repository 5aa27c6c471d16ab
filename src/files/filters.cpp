#include "files/filters.h"

#include <cwchar>
#include <string>

#include "files/registry_text.h"
#include "settings/settings.h"
#include "support/handles.h"

FilterList g_filters;

namespace {

// The file's five lines per record, in order, each ending in CR LF.
void AppendUtf16(std::string& bytes, const wchar_t* text) {
    for (; *text; ++text) {
        unsigned unit = static_cast<unsigned>(*text) & 0xFFFF;
        bytes.push_back(static_cast<char>(unit & 0xFF));
        bytes.push_back(static_cast<char>(unit >> 8));
    }
}

void AppendDwordLine(std::string& bytes, const wchar_t* name, int32_t value) {
    wchar_t line[64];
    swprintf(line, 64, L"\"%ls\"=dword:%d\r\n", name, value);
    AppendUtf16(bytes, line);
}

void AppendRecord(std::string& bytes, const FilterRecord& record, int position) {
    wchar_t header[32];
    swprintf(header, 32, L"[FILTER%d]\r\n", position);
    AppendUtf16(bytes, header);
    AppendUtf16(bytes, L"\"Title\"=\"");
    AppendUtf16(bytes, record.title.c_str());
    AppendUtf16(bytes, L"\"\r\n");
    AppendDwordLine(bytes, L"Sensitivity", record.sensitivity);
    AppendDwordLine(bytes, L"Visible", record.visible ? 1 : 0);
    AppendDwordLine(bytes, L"Uncategorized", record.includeUncategorized ? 1 : 0);
}

FilterRecord* ReadRecord(ByteSource& file, int index) {
    FilterRecord* record = new FilterRecord;
    record->index = index;
    WString line, name;
    ReadByteLine(file, line);
    ParseStringLine(line.c_str(), name, record->title);
    DWORD value = 0;
    ReadByteLine(file, line);
    ParseDwordLine(line.c_str(), name, value, 10);
    record->sensitivity = static_cast<int32_t>(value);
    ReadByteLine(file, line);
    ParseDwordLine(line.c_str(), name, value, 10);
    record->visible = value != 0;
    ReadByteLine(file, line);
    ParseDwordLine(line.c_str(), name, value, 10);
    record->includeUncategorized = value != 0;
    return record;
}

bool ReadFileBytes(const wchar_t* path, std::string& bytes) {
    FileHandle file(CreateFileW(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                                FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) return false;
    char block[16 * 1024];
    DWORD got = 0;
    while (ReadFile(file.get(), block, sizeof block, &got, nullptr) && got > 0) bytes.append(block, got);
    return true;
}

}  // namespace

void ClearFilters(FilterList& filters) { DeleteRecords(filters); }

void InsertFilter(FilterList& filters, FilterRecord* record) {
    InsertRecord(filters, record, [&](const FilterRecord& r) { return r.index > record->index; });
}

FilterRecord* FindFilter(const FilterList& filters, int index) {
    return FindRecord(filters, [&](const FilterRecord& r) { return r.index == index; });
}

void MakeDefaultFilters(FilterList& filters) {
    ClearFilters(filters);
    for (int index = 0; index < kFilterCount; ++index) {
        FilterRecord* record = new FilterRecord;
        record->index = index;
        record->title.format(L"Filter %d", index + 1);
        InsertFilter(filters, record);
    }
}

std::string FiltersFileBytes(const FilterList& filters) {
    std::string bytes;
    int position = 0;
    for (const FilterRecord* r = filters.head; r; r = r->next) AppendRecord(bytes, *r, position++);
    return bytes;
}

void WriteFiltersFile(const FilterList& filters, const wchar_t* path) {
    DeleteFileW(path);
    FileHandle file(CreateFileW(path, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, CREATE_NEW,
                                FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) return;
    std::string bytes = FiltersFileBytes(filters);
    DWORD written = 0;
    WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

int ReadByteLine(ByteSource& file, WString& line) {
    std::wstring text;
    unsigned char byte = 0;
    bool readAny = false;
    unsigned char last = 0;
    for (;;) {
        if (!file.next(byte)) {
            if (readAny && last != 0) text.push_back(static_cast<wchar_t>(last));
            line.assign(text.c_str());
            return 0;
        }
        if (byte == 10) break;
        readAny = true;
        last = byte;
        if (byte != 0) text.push_back(static_cast<wchar_t>(byte));
    }
    line.assign(text.c_str());
    return 1;
}

WString FiltersFilePath() {
    WString path(g_settings.general.QLFiltersFileFolder.c_str());
    path.append(L"\\QLFilters.txt");
    return path;
}

bool LoadFiltersFromBytes(FilterList& filters, const std::string& bytes) {
    ClearFilters(filters);
    ByteSource file(bytes);
    WString line;
    int counter = 0;
    wchar_t expected[32];
    swprintf(expected, 32, L"[FILTER%d]", counter);
    while (ReadByteLine(file, line)) {
        if (!wcsstr(line.c_str(), expected)) continue;
        ++counter;
        InsertFilter(filters, ReadRecord(file, counter));
        swprintf(expected, 32, L"[FILTER%d]", counter);
    }
    if (counter != kFilterCount) {
        MakeDefaultFilters(filters);
        return false;
    }
    return true;
}

bool LoadFiltersFile(FilterList& filters, const wchar_t* path) {
    std::string bytes;
    if (!ReadFileBytes(path, bytes)) {
        MakeDefaultFilters(filters);
        return false;
    }
    return LoadFiltersFromBytes(filters, bytes);
}
