#pragma once
// Helpers shared by the settings-files tests: building lists, reading a registry tree back
// through the API, and decoding file bytes.
#include <windows.h>

#include <map>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "files/categories.h"
#include "files/filters.h"

inline CategoryRecord* AddCategory(CategoryList& list, const wchar_t* name, DWORD mask = 0,
                                   COLORREF colour = kNoCategoryColour, int number = 0) {
    CategoryRecord* record = new CategoryRecord;
    record->name.assign(name);
    record->filterMask = mask;
    record->colour = colour;
    record->number = number;
    InsertCategory(list, record);
    return record;
}

inline FilterRecord* AddFilter(FilterList& list, int index, const wchar_t* title, bool visible = true,
                               bool uncategorized = false, int sensitivity = 0) {
    FilterRecord* record = new FilterRecord;
    record->index = index;
    record->title.assign(title);
    record->visible = visible;
    record->includeUncategorized = uncategorized;
    record->sensitivity = sensitivity;
    InsertFilter(list, record);
    return record;
}

// Each record's `text(record)` followed by `separator`, in list order; every backward link is
// checked on the way.
template <typename Record, typename Text>
std::wstring InListOrder(const RecordList<Record>& list, Text text, const wchar_t* separator = L"") {
    std::wstring texts;
    const Record* last = nullptr;
    for (const Record* r = list.head; r; r = r->next) {
        EXPECT_EQ(r->previous, last);
        last = r;
        texts += text(*r);
        texts += separator;
    }
    return texts;
}

// A registry value as read back: its type and raw bytes.
using RegValueData = std::pair<DWORD, std::string>;
// Key path (relative to the root, as enumerated) -> value name -> value.
using RegSnapshot = std::map<std::wstring, std::map<std::wstring, RegValueData>>;

// Every key and value below root\path (path included); `onlyTextAndNumbers` keeps REG_SZ and
// REG_DWORD values only.
inline void SnapshotInto(HKEY root, const std::wstring& path, RegSnapshot& out, bool onlyTextAndNumbers) {
    HKEY key;
    if (RegOpenKeyExW(root, path.empty() ? nullptr : path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return;
    auto& values = out[path];
    std::wstring name(16384, L'\0');
    for (DWORD i = 0;; ++i) {
        DWORD nameLength = static_cast<DWORD>(name.size());
        DWORD type = 0, size = 0;
        if (RegEnumValueW(key, i, &name[0], &nameLength, nullptr, &type, nullptr, &size) != ERROR_SUCCESS) break;
        std::wstring valueName(name.c_str(), nameLength);
        std::string data(size, '\0');
        DWORD got = size;
        RegQueryValueExW(key, valueName.c_str(), nullptr, &type, reinterpret_cast<BYTE*>(&data[0]), &got);
        data.resize(got);
        if (onlyTextAndNumbers && type != REG_SZ && type != REG_DWORD) continue;
        values[valueName] = {type, data};
    }
    for (DWORD i = 0;; ++i) {
        wchar_t child[256];
        DWORD length = 256;
        if (RegEnumKeyExW(key, i, child, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) break;
        SnapshotInto(root, path.empty() ? std::wstring(child) : path + L"\\" + child, out, onlyTextAndNumbers);
    }
    RegCloseKey(key);
}

inline RegSnapshot Snapshot(HKEY root, const std::wstring& path, bool onlyTextAndNumbers = false) {
    RegSnapshot snapshot;
    SnapshotInto(root, path, snapshot, onlyTextAndNumbers);
    return snapshot;
}

// Keys without values are left out, so that empty keys created on the way do not count.
inline RegSnapshot WithoutEmptyKeys(RegSnapshot snapshot) {
    for (auto it = snapshot.begin(); it != snapshot.end();) it = it->second.empty() ? snapshot.erase(it) : ++it;
    return snapshot;
}

inline std::wstring WideFromUtf16(const std::string& bytes) {
    std::wstring text;
    for (size_t i = 0; i + 1 < bytes.size(); i += 2)
        text.push_back(static_cast<wchar_t>(static_cast<unsigned char>(bytes[i]) |
                                            (static_cast<unsigned char>(bytes[i + 1]) << 8)));
    return text;
}

inline std::string Printable(const std::wstring& text) {
    std::string out;
    for (wchar_t c : text) {
        if (c == L'\n') out += "\\n\n";
        else if (c == L'\r') out += "\\r";
        else out.push_back(c >= 32 && c < 127 ? static_cast<char>(c) : '?');
    }
    return out;
}
