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

namespace {

const int kFiles = 10000;
const wchar_t kProduct[] = L"Software\\Orvane\\Quillory";
const wchar_t kFuzzKey[] = L"Software\\QLFuzz";

class Generator {
public:
    explicit Generator(unsigned seed) : random_(seed) {}

    std::string file() {
        switch (pick(20)) {
            case 0: return randomBytes();
            case 1: return utf8(document());
            case 2: return bigEndian(document());
            default: break;
        }
        std::wstring text = document();
        int mutations = pick(4);
        for (int i = 0; i < mutations; ++i) mutate(text);
        if (pick(15) == 0) text = L"\xFEFF" + text;
        if (pick(15) == 0) text = crLf(text);
        std::string bytes = Utf16Bytes(text);
        if (pick(20) == 0 && !bytes.empty()) bytes.pop_back();
        return bytes;
    }

private:
    int pick(int n) { return static_cast<int>(random_() % static_cast<unsigned>(n)); }

    std::wstring headerName() {
        static const wchar_t* names[] = {L"Software\\QLFuzz\\A", L"Software\\QLFuzz\\B", L"Software\\QLFuzz\\A\\Sub",
                                         L"Software\\QLFuzz\\%s%n\\C", L"Software\\Orvane\\Quillory",
                                         L"Software\\Orvane\\Quillory\\Colors", L"::Categories::", L"::Filters::",
                                         L"Software\\QLFuzz\\" };
        return names[pick(9)];
    }

    std::wstring atom() {
        static const wchar_t* atoms[] = {L"Name", L"%d", L"%s", L"%n", L"%999999d", L"%.9999s", L"%ls%hs%c",
                                         L"%", L"\"=\"", L"\"", L"=", L"=dword:", L"dword:", L"[", L"]",
                                         L"\\", L"not_the_same", L"-1", L"4294967295", L"99999999999999",
                                         L"\x4E2D\x6587", L"\xD800", L"\xFFFF", L"Color", L"Category", L" "};
        int choice = pick(30);
        if (choice < 26) return atoms[choice];
        if (choice == 26) return std::wstring(100 + pick(200), L'n');
        if (choice == 27) return std::wstring(1000 + pick(3000), static_cast<wchar_t>(L'a' + pick(26)));
        if (choice == 28) return std::to_wstring(static_cast<int>(random_()));
        return std::wstring(1, static_cast<wchar_t>(1 + pick(0xFFFE)));
    }

    std::wstring word() {
        std::wstring text;
        int n = 1 + pick(3);
        for (int i = 0; i < n; ++i) text += atom();
        return text;
    }

    std::wstring valueLine() {
        switch (pick(8)) {
            case 0: case 1: return L"\"" + word() + L"\"=\"" + word() + L"\"\n";
            case 2: case 3: return L"\"" + word() + L"\"=dword:" + atom() + L"\n";
            case 4: return L"\"Category\"=\"" + word() + L"\"\n\"FiltersFlag\"=dword:" + atom() +
                           L"\n\"Color\"=dword:" + atom() + L"\n";
            case 5: return L"\"FilterName\"=\"" + word() + L"\"\n\"Index\"=dword:" + std::to_wstring(pick(40)) +
                           L"\n\"VisibleState\"=dword:" + atom() + L"\n\"IncludeUncategorized\"=dword:1\n";
            case 6: return word() + L"\n";
            default: return L"\n";
        }
    }

    std::wstring document() {
        std::wstring text = pick(10) ? L"\n" : L"";
        int sections = 1 + pick(4);
        for (int s = 0; s < sections; ++s) {
            text += L"[" + headerName() + L"]\n";
            int lines = pick(7);
            for (int i = 0; i < lines; ++i) text += valueLine();
            if (pick(8)) text += L"\n";
        }
        return text;
    }

    void mutate(std::wstring& text) {
        if (text.empty()) return;
        size_t at = random_() % text.size();
        switch (pick(5)) {
            case 0: text.erase(at, 1 + pick(20)); break;
            case 1: text.insert(at, atom()); break;
            case 2: text.resize(at); break;
            case 3: text.insert(at, text.substr(at, pick(200))); break;
            default: {
                static const wchar_t special[] = {L'[', L']', L'"', L'=', L'\n', L'%', L'\\', 0, 0xD800, L'\r'};
                text[at] = special[pick(10)];
                break;
            }
        }
    }

    std::string randomBytes() {
        std::string bytes(pick(3000), '\0');
        for (char& b : bytes) b = static_cast<char>(random_());
        if (pick(2)) bytes.insert(0, std::string("\n\0", 2));
        return bytes;
    }

    static std::string utf8(const std::wstring& text) {
        std::string out;
        for (wchar_t c : text) {
            if (c < 0x80) out.push_back(static_cast<char>(c));
            else out += "\xC3\xA9";
        }
        return out;
    }

    static std::string bigEndian(const std::wstring& text) {
        std::string bytes = Utf16Bytes(text);
        for (size_t i = 0; i + 1 < bytes.size(); i += 2) std::swap(bytes[i], bytes[i + 1]);
        return bytes;
    }

    static std::wstring crLf(const std::wstring& text) {
        std::wstring out;
        for (wchar_t c : text) {
            if (c == L'\n') out += L'\r';
            out += c;
        }
        return out;
    }

    std::mt19937 random_;
};

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
