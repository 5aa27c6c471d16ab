#pragma once
// Helpers of the settings-files tests, also used by page tests: lists, registry read-back, UTF-16.
#include <windows.h>

#include <map>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "files/categories.h"
#include "files/filters.h"

inline CategoryRecord* AddCategory(CategoryList& list, const wchar_t* name, DWORD mask = 0,
                                   COLORREF colour = kNoCategoryColour, int number = 0) {
    CategoryRecord* record = new CategoryRecord{WString(name), mask, colour, {}, number};
    InsertCategory(list, record);
    return record;
}

// Numbered 0 to 31, titled "Filter 1" to "Filter 32", visible, nothing else set, linked both ways.
inline bool AreDefaultFilters(const FilterList& filters) {
    int index = 0;
    for (const FilterRecord* r = filters.head; r; r = r->next, ++index)
        if (r->index != index || r->title.c_str() != L"Filter " + std::to_wstring(index + 1) || r->sensitivity ||
            !r->visible || r->includeUncategorized || (r->next && r->next->previous != r))
            return false;
    return index == 32 && filters.count == 32;
}

// Key path (relative to the root, as enumerated) -> value name -> (type, raw bytes).
using RegValueData = std::pair<DWORD, std::string>;
using RegSnapshot = std::map<std::wstring, std::map<std::wstring, RegValueData>>;

// Every key and value below root\path, path included.
inline void SnapshotInto(HKEY root, const std::wstring& path, RegSnapshot& out) {
    HKEY key;
    if (RegOpenKeyExW(root, path.empty() ? nullptr : path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return;
    auto& values = out[path];
    std::wstring name(16384, L'\0');
    for (DWORD i = 0, length = 16384, type, size = 0;
         RegEnumValueW(key, i, &name[0], &length, nullptr, &type, nullptr, &size) == ERROR_SUCCESS;
         ++i, length = 16384, size = 0) {
        std::string data(size, '\0');
        RegQueryValueExW(key, name.c_str(), nullptr, &type, reinterpret_cast<BYTE*>(&data[0]), &size);
        values[name.substr(0, length)] = {type, data.substr(0, size)};
    }
    wchar_t child[256];
    for (DWORD i = 0, length = 256;
         RegEnumKeyExW(key, i, child, &length, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS; ++i, length = 256)
        SnapshotInto(root, path.empty() ? std::wstring(child) : path + L"\\" + child, out);
    RegCloseKey(key);
}

inline RegSnapshot Snapshot(HKEY root, const std::wstring& path) {
    RegSnapshot snapshot;
    SnapshotInto(root, path, snapshot);
    return snapshot;
}

// Keys without values are left out, so that empty keys created on the way do not count.
inline RegSnapshot WithoutEmptyKeys(RegSnapshot snapshot) {
    for (auto it = snapshot.begin(); it != snapshot.end();) it = it->second.empty() ? snapshot.erase(it) : ++it;
    return snapshot;
}

inline std::wstring WideFromUtf16(const std::string& bytes) {
    std::wstring text;
    for (size_t i = 0; i + 1 < bytes.size(); i += 2) text.push_back(wchar_t(BYTE(bytes[i]) | BYTE(bytes[i + 1]) << 8));
    return text;
}
