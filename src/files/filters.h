#pragma once
// The 32 category filters: the filter record, the list sorted by index, the defaults and the
// filters file "QLFilters.txt" (UTF-16LE without mark, CR LF line ends, five lines per filter).
#include <windows.h>

#include <cstdint>
#include <string>

#include "support/record_list.h"
#include "support/wide_string.h"

struct FilterRecord {
    WString title;
    int32_t sensitivity = 0;
    bool visible = true;
    bool includeUncategorized = false;
    // 1 to 32 for filters read from the file, 0 to 31 for the defaults.
    int32_t index = 0;
    FilterRecord* next = nullptr;
    FilterRecord* previous = nullptr;
};

// Sorted by index ascending; owns its records.
struct FilterList : RecordList<FilterRecord> {};

// The filter list of the running program.
extern FilterList g_filters;

const int kFilterCount = 32;

void ClearFilters(FilterList& filters);
// Takes ownership; a record goes after every record whose index is not greater than its own.
void InsertFilter(FilterList& filters, FilterRecord* record);
// The first record with this index, or null.
FilterRecord* FindFilter(const FilterList& filters, int index);
// Clears the list and creates filters 0..31 titled "Filter 1".."Filter 32".
void MakeDefaultFilters(FilterList& filters);

// The file's exact bytes for a list.
std::string FiltersFileBytes(const FilterList& filters);
// Deletes the file and creates it anew from the list; stops silently when it cannot be created.
void WriteFiltersFile(const FilterList& filters, const wchar_t* path);

// Bytes read one at a time, the way the filters file is read.
class ByteSource {
public:
    explicit ByteSource(const std::string& bytes) : bytes_(bytes) {}
    // False when no byte is left.
    bool next(unsigned char& byte) {
        if (position_ >= bytes_.size()) return false;
        byte = static_cast<unsigned char>(bytes_[position_++]);
        return true;
    }

private:
    const std::string& bytes_;
    size_t position_ = 0;
};

// One line of the filters file: byte 10 ends it (not stored), byte 0 adds nothing, every other
// byte becomes the character of that code. Returns 0 at the end of the file; the last byte of an
// unterminated last line is then appended a second time.
int ReadByteLine(ByteSource& file, WString& line);

// The running program's filters file: setting QLFiltersFileFolder + "\QLFilters.txt".
WString FiltersFilePath();

// Builds the list from the file's bytes; true when they held exactly 32 records in order, else
// the list holds the 32 defaults.
bool LoadFiltersFromBytes(FilterList& filters, const std::string& bytes);
// The same from the file; a missing or unreadable file gives the defaults.
bool LoadFiltersFile(FilterList& filters, const wchar_t* path);
