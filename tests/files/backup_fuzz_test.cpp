// Seeded malformed backup files: every one is read without a crash, the in-memory lists keep
// their length, and the registry changes only in keys that the files' own header lines name.
#include <windows.h>

#include <algorithm>
#include <cwctype>
#include <random>
#include <set>
#include <string>

#include "common/test_support.h"
#include "files/registry_text.h"
#include "files/text_stream.h"
#include "files_test_support.h"
#include "registry_text_generator.h"

namespace {

const int kFiles = 10000;
const wchar_t kProduct[] = L"Software\\Orvane\\Quillory";
const wchar_t kFuzzKey[] = L"Software\\QLFuzz";

std::wstring Lower(const std::wstring& text) {
    std::wstring out = text;
    for (wchar_t& c : out) c = static_cast<wchar_t>(towlower(c));
    return out;
}

// A key path as the registry resolves it: case-insensitive, empty components dropped.
std::wstring NormalKey(const std::wstring& path) {
    std::wstring out, part;
    for (size_t i = 0; i <= path.size(); ++i) {
        if (i == path.size() || path[i] == L'\\') {
            if (!part.empty()) out += (out.empty() ? L"" : L"\\") + part;
            part.clear();
        } else {
            part += path[i];
        }
    }
    return Lower(out);
}

// Independent of the reader: the names of every line of the text that has the shape of a
// section header, lines taken whole.
void CollectHeaderNames(const std::string& bytes, std::set<std::wstring>& names) {
    std::wstring text = WideFromUtf16(bytes);
    size_t start = 0;
    while (start < text.size()) {
        size_t end = start;
        while (end < text.size() && (end == start || text[end - 1] != L'\n')) ++end;
        std::wstring line = text.substr(start, end - start);
        start = end;
        line = line.substr(0, line.find(L'\0'));
        if (line.size() >= 3 && line[0] == L'[' && line[line.size() - 2] == L']')
            names.insert(NormalKey(line.substr(1, line.size() - 3)));
    }
}

bool IsNamedOrAncestor(const std::wstring& key, const std::set<std::wstring>& names, bool mayBeAncestor) {
    std::wstring normal = NormalKey(key);
    if (names.count(normal)) return true;
    if (!mayBeAncestor) return false;
    auto it = names.lower_bound(normal + L"\\");
    return it != names.end() && it->compare(0, normal.size() + 1, normal + L"\\") == 0;
}

// Puts back every value of `before` under the changed key and removes values it did not have.
void Restore(HKEY root, const std::wstring& path, const std::map<std::wstring, RegValueData>& before,
             const std::map<std::wstring, RegValueData>& after) {
    HKEY key;
    if (RegOpenKeyExW(root, path.c_str(), 0, KEY_ALL_ACCESS, &key) != ERROR_SUCCESS) return;
    for (auto& value : after)
        if (!before.count(value.first)) RegDeleteValueW(key, value.first.c_str());
    for (auto& value : before)
        RegSetValueExW(key, value.first.c_str(), 0, value.second.first,
                       reinterpret_cast<const BYTE*>(value.second.second.data()),
                       static_cast<DWORD>(value.second.second.size()));
    RegCloseKey(key);
}

TEST(BackupFuzzTest, MalformedFilesAreReadSafelyAndWriteOnlyNamedKeys) {
    RegRemoveTree(HKEY_CURRENT_USER, kProduct);
    RegRemoveTree(HKEY_CURRENT_USER, kFuzzKey);
    RegSnapshot userBefore = Snapshot(HKEY_CURRENT_USER, L"");
    RegSnapshot todayBefore = Snapshot(HKEY_LOCAL_MACHINE, L"Software\\Microsoft\\today");

    CategoryList categories;
    AddCategory(categories, L"Name");
    AddCategory(categories, L"%d");
    AddCategory(categories, L"\x4E2D\x6587");
    FilterList filters;
    MakeDefaultFilters(filters);
    std::set<std::wstring> named;
    Generator generator(20240517);
    int accepted = 0;
    for (int i = 0; i < kFiles; ++i) {
        std::string bytes = generator.file();
        CollectHeaderNames(bytes, named);
        Utf16TextReader in(bytes);
        if (ReadRegistryTextFile(in, categories, filters)) ++accepted;
        ASSERT_EQ(categories.count, 3) << "file " << i;
        ASSERT_EQ(filters.count, 32) << "file " << i;
    }
    EXPECT_GT(accepted, kFiles / 4);
    EXPECT_LT(accepted, kFiles);

    RegSnapshot userAfter = Snapshot(HKEY_CURRENT_USER, L"");
    int changedKeys = 0;
    for (auto& key : userAfter) {
        auto old = userBefore.find(key.first);
        bool isNew = old == userBefore.end();
        if (!isNew && old->second == key.second) continue;
        ++changedKeys;
        EXPECT_TRUE(IsNamedOrAncestor(key.first, named, isNew && key.second.empty()))
            << "written without a header naming it: HKCU\\" << Printable(key.first);
        if (!isNew) Restore(HKEY_CURRENT_USER, key.first, old->second, key.second);
    }
    EXPECT_GT(changedKeys, 3);
    for (auto& key : userBefore)
        if (!userAfter.count(key.first))
            EXPECT_EQ(NormalKey(key.first).rfind(Lower(kProduct), 0), 0u) << "deleted: " << Printable(key.first);
    EXPECT_TRUE(todayBefore == Snapshot(HKEY_LOCAL_MACHINE, L"Software\\Microsoft\\today"));

    // Remove the keys the files created.
    for (auto it = userAfter.rbegin(); it != userAfter.rend(); ++it)
        if (!userBefore.count(it->first)) RegDeleteKeyW(HKEY_CURRENT_USER, it->first.c_str());
    EXPECT_TRUE(Snapshot(HKEY_CURRENT_USER, L"") == userBefore);
}

}  // namespace
