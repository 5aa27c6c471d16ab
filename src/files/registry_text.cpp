#include "files/registry_text.h"

#include <cstdint>
#include <cstdlib>
#include <cwchar>
#include <string>

#include "files/categories.h"
#include "files/filters.h"
#include "files/safe_format.h"
#include "settings/key_table.h"
#include "settings/registry_values.h"
#include "support/handles.h"

namespace {

// ---- writing --------------------------------------------------------------------------------

// One line of output, written whole however long its parts are: the reader takes lines whole too,
// so a long category name or filter title comes back exactly.
class LineBuilder {
public:
    LineBuilder& add(const wchar_t* text) {
        line_ += text;
        return *this;
    }
    LineBuilder& addNumber(int32_t value) {
        wchar_t digits[16];
        int n = 0;
        uint32_t magnitude = value < 0 ? 0u - static_cast<uint32_t>(value) : static_cast<uint32_t>(value);
        do {
            digits[n++] = static_cast<wchar_t>(L'0' + magnitude % 10);
            magnitude /= 10;
        } while (magnitude);
        if (value < 0) digits[n++] = L'-';
        while (n > 0) line_ += digits[--n];
        return *this;
    }
    void writeTo(Utf16TextWriter& out) const { out.write(line_.data(), static_cast<int>(line_.size())); }

private:
    std::wstring line_;
};

void WriteHeader(const wchar_t* name, Utf16TextWriter& out) {
    LineBuilder().add(L"\n[").add(name).add(L"]\n").writeTo(out);
}

void WriteStringLine(const wchar_t* name, const wchar_t* text, Utf16TextWriter& out) {
    LineBuilder().add(L"\"").add(name).add(L"\"=\"").add(text).add(L"\"\n").writeTo(out);
}

void WriteDwordLine(const wchar_t* name, int32_t value, Utf16TextWriter& out) {
    LineBuilder().add(L"\"").add(name).add(L"\"=dword:").addNumber(value).add(L"\n").writeTo(out);
}

const DWORD kNameRoom = 256;      // characters, terminator included
const DWORD kDataRoom = 256;      // bytes

void WriteKeyValues(HKEY key, Utf16TextWriter& out) {
    wchar_t name[kNameRoom];
    // Two spare zero bytes end a string that fills the whole data room.
    BYTE data[kDataRoom + 2];
    for (DWORD index = 0;; ++index) {
        DWORD nameLength = kNameRoom;
        DWORD size = kDataRoom;
        DWORD type = 0;
        memset(data, 0, sizeof data);
        if (RegEnumValueW(key, index, name, &nameLength, nullptr, &type, data, &size) != ERROR_SUCCESS) break;
        if (type == REG_SZ) {
            WriteStringLine(name, reinterpret_cast<const wchar_t*>(data), out);
        } else if (type == REG_DWORD) {
            int32_t value;
            memcpy(&value, data, sizeof value);
            WriteDwordLine(name, value, out);
        }
    }
}

void WriteSubKeys(HKEY key, const wchar_t* keyPath, Utf16TextWriter& out) {
    wchar_t name[kNameRoom];
    for (DWORD index = 0;; ++index) {
        DWORD length = kNameRoom;
        if (RegEnumKeyExW(key, index, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) break;
        // Below the root itself (an empty path) a child's path is its bare name.
        WString child(keyPath);
        if (*keyPath) child.append(L"\\");
        child.append(name);
        WriteRegistryTree(child.c_str(), out);
    }
}

// ---- reading --------------------------------------------------------------------------------

bool IsEmptyLine(const WString& line) { return line.length() == 1 && line.c_str()[0] == L'\n'; }

void AssignRange(WString& out, const wchar_t* begin, ptrdiff_t count) {
    if (count <= 0) {
        out.assign(L"");
        return;
    }
    out.assign(std::wstring(begin, static_cast<size_t>(count)).c_str());
}

// The lines of one special-section record; false when the text ended inside it.
bool ReadDwordRecordLine(Utf16TextReader& in, WString& line, WString& name, DWORD& value) {
    if (!in.readLine(line)) return false;
    ParseDwordLine(line.c_str(), name, value, 10);
    return true;
}

bool IsProductKey(const wchar_t* name) { return wcscmp(name, KeyPath(kKeyGeneral)) == 0; }

}  // namespace

// ---- writing --------------------------------------------------------------------------------

void WriteRegistryTree(const wchar_t* keyPath, Utf16TextWriter& out) {
    RegKey key;
    RegCreateKeyExW(HKEY_CURRENT_USER, keyPath, 0, nullptr, 0, KEY_READ, nullptr, key.out(), nullptr);
    WriteHeader(keyPath, out);
    if (!key) return;
    WriteKeyValues(key.get(), out);
    WriteSubKeys(key.get(), keyPath, out);
}

void WriteCategoriesSection(const CategoryList& categories, Utf16TextWriter& out) {
    WriteHeader(L"::Categories::", out);
    for (const CategoryRecord* r = categories.head; r; r = r->next) {
        WriteStringLine(L"Category", r->name.c_str(), out);
        WriteDwordLine(L"FiltersFlag", static_cast<int32_t>(r->filterMask), out);
        WriteDwordLine(L"Color", static_cast<int32_t>(r->colour), out);
    }
}

void WriteFiltersSection(const FilterList& filters, Utf16TextWriter& out) {
    WriteHeader(L"::Filters::", out);
    for (const FilterRecord* r = filters.head; r; r = r->next) {
        WriteStringLine(L"FilterName", r->title.c_str(), out);
        WriteDwordLine(L"Index", r->index, out);
        WriteDwordLine(L"VisibleState", r->visible ? 1 : 0, out);
        WriteDwordLine(L"IncludeUncategorized", r->includeUncategorized ? 1 : 0, out);
    }
}

void WriteBackupFile(const wchar_t* keyPath, const CategoryList& categories, const FilterList& filters,
                     Utf16TextWriter& out) {
    WriteRegistryTree(keyPath, out);
    WriteCategoriesSection(categories, out);
    WriteFiltersSection(filters, out);
}

// ---- reading --------------------------------------------------------------------------------

bool ReadRegistryTextFile(Utf16TextReader& in, CategoryList& categories, FilterList& filters) {
    if (!in.rewind()) return false;
    WString line;
    if (!in.readLine(line) || !IsEmptyLine(line)) return false;
    WString name;
    while (in.readLine(line)) {
        if (!ParseSectionHeader(line.c_str(), name)) continue;
        if (IsProductKey(name.c_str())) RegDeleteTreeW(HKEY_CURRENT_USER, name.c_str());
        switch (ClassifySection(name.c_str())) {
            case kCategoriesSection:
                ReadCategoriesSection(in, categories);
                break;
            case kFiltersSection:
                ReadFiltersSection(in, filters);
                break;
            case kKeySection:
                if (!ReadKeySection(name.c_str(), in)) return false;
                break;
        }
    }
    return true;
}

bool ParseSectionHeader(const wchar_t* line, WString& name) {
    size_t length = wcslen(line);
    if (length < 3 || line[0] != L'[' || line[length - 2] != L']') return false;
    AssignRange(name, line + 1, static_cast<ptrdiff_t>(length) - 3);
    return true;
}

SectionKind ClassifySection(const wchar_t* name) {
    if (wcscmp(name, L"::Categories::") == 0) return kCategoriesSection;
    if (wcscmp(name, L"::Filters::") == 0) return kFiltersSection;
    return kKeySection;
}

bool ReadKeySection(const wchar_t* keyPath, Utf16TextReader& in) {
    RegKey key;
    if (RegCreateKeyExW(HKEY_CURRENT_USER, keyPath, 0, nullptr, 0, KEY_SET_VALUE | KEY_QUERY_VALUE, nullptr,
                        key.out(), nullptr) != ERROR_SUCCESS)
        return false;
    WString line, name, text;
    while (in.readLine(line) && !IsEmptyLine(line)) {
        const wchar_t* l = line.c_str();
        if (wcsstr(l, L"\"=\"")) {
            ParseStringLine(l, name, text);
            // The default only makes the write unconditional, except for that very text.
            WriteStringOrDelete(key.get(), name.c_str(), text.c_str(), L"not_the_same");
        } else if (wcsstr(l, L"\"=dword:")) {
            DWORD value = 0;
            ParseDwordLine(l, name, value, 10);
            WriteDwordOrDelete(key.get(), name.c_str(), value, value + 1);
        }
    }
    return true;
}

void ReadCategoriesSection(Utf16TextReader& in, CategoryList& categories) {
    WString line, categoryName, ignored, dwordName;
    while (in.readLine(line) && !IsEmptyLine(line)) {
        ParseStringLine(line.c_str(), ignored, categoryName);
        DWORD mask = 0, colour = 0;
        if (!ReadDwordRecordLine(in, line, dwordName, mask)) return;
        if (!ReadDwordRecordLine(in, line, dwordName, colour)) return;
        // A record may carry one more line before its colour.
        if (_wcsicmp(dwordName.c_str(), L"Color") != 0 && !ReadDwordRecordLine(in, line, dwordName, colour)) return;
        if (CategoryRecord* record = FindCategory(categories, categoryName.c_str())) {
            record->filterMask = mask;
            record->colour = colour;
        }
    }
}

void ReadFiltersSection(Utf16TextReader& in, FilterList& filters) {
    WString line, title, ignored, dwordName;
    while (in.readLine(line) && !IsEmptyLine(line)) {
        ParseStringLine(line.c_str(), ignored, title);
        DWORD index = 0, visible = 0, uncategorized = 0;
        if (!ReadDwordRecordLine(in, line, dwordName, index)) return;
        if (!ReadDwordRecordLine(in, line, dwordName, visible)) return;
        if (!ReadDwordRecordLine(in, line, dwordName, uncategorized)) return;
        if (FilterRecord* record = FindFilter(filters, static_cast<int32_t>(index))) {
            record->title = title;
            record->visible = visible != 0;
            record->includeUncategorized = uncategorized != 0;
        }
    }
}

bool ParseStringLine(const wchar_t* line, WString& name, WString& text) {
    name.assign(L"");
    text.assign(L"");
    size_t length = wcslen(line);
    const wchar_t* separator = wcsstr(line, L"\"=\"");
    if (length < 8 || !separator || line[0] != L'"' || line[length - 2] != L'"') return false;
    AssignRange(name, line + 1, separator - (line + 1));
    const wchar_t* textStart = separator + 3;
    AssignRange(text, textStart, (line + length - 2) - textStart);
    return true;
}

bool ParseDwordLine(const wchar_t* line, WString& name, DWORD& value, int base) {
    name.assign(L"");
    value = 0;
    const wchar_t* equals = wcschr(line, L'=');
    if (!equals) return false;
    // The rest of the line is deliberately taken as a format; the cut is made in the output.
    const int kNameBufferChars = 128;
    wchar_t formatted[kNameBufferChars];
    int formattedLength = FormatWithoutArguments(line + 1, formatted, kNameBufferChars);
    ptrdiff_t cut = (equals - line) - 2;
    if (cut < 0) cut = 0;
    if (cut < formattedLength) formatted[cut] = 0;
    name.assign(formatted);

    const wchar_t* dword = wcsstr(line, L"=dword");
    if (!dword || wcslen(dword) < 8) return false;
    value = static_cast<DWORD>(wcstol(dword + 7, nullptr, base));
    return true;
}
