// Seeded malformed registry texts and filters files, read without harm and only as the design says.
#include <algorithm>
#include <cwctype>
#include <memory>
#include <random>
#include <set>

#include "common/test_support.h"
#include "files/registry_text.h"
#include "files_test_support.h"

namespace {

// Copies of a text with random cuts, copies, inserted pieces and replaced characters; now and
// again also a byte-order mark, an odd last byte, or every character narrowed to a byte.
class Mutator {
public:
    explicit Mutator(unsigned seed) : random_(seed) {}

    std::string mutated(std::wstring text, int most) {
        for (int n = pick(most + 1); n > 0 && !text.empty(); --n) {
            const size_t at = random_() % text.size();
            switch (pick(6)) {
                case 0: text.erase(at, 1 + pick(40)); break;
                case 1: text.resize(at); break;
                case 2: text.insert(at, text.substr(at, pick(400))); break;
                case 3: text.insert(at, atom()); break;
                case 4: text[at] = L"[]\"=\n%\\\r\0"[pick(9)]; break;
                default: text[at] = static_cast<wchar_t>(random_()); break;
            }
        }
        std::string bytes = Utf16Bytes(pick(15) ? text : L"\xFEFF" + text);
        if (pick(20) == 0 && !bytes.empty()) bytes.pop_back();
        return pick(20) ? bytes : std::string(text.begin(), text.end());
    }

private:
    int pick(int n) { return static_cast<int>(random_() % static_cast<unsigned>(n)); }

    std::wstring atom() {
        static const wchar_t* atoms[] = {L"\n[Software\\QLFuzz\\%s%n]\n", L"\n[]\n", L"\n[::Filters::]\n", L"%d",
                                         L"%999999d", L"%.9999s%c", L"%", L"%-5", L"\"=\"", L"\"=dword:", L"[FILTER3]",
                                         L"\n\"Color\"=dword:", L"not_the_same", L"-1", L"4294967295", L"\x4E2D\xD800"};
        const int choice = pick(18);
        if (choice < 16) return atoms[choice];
        return choice == 16 ? std::wstring(100 + pick(3000), L'n') : std::wstring(1, static_cast<wchar_t>(1 + pick(0xFFFE)));
    }

    std::mt19937 random_;
};

const wchar_t kBackupText[] =
    L"\n[Software\\QLFuzz\\A]\n\"Name\"=\"text\"\n\"Number\"=dword:-1\n[Software\\QLFuzz\\B]\n\n[Software\\Orvane\\Quillory]\n"
    L"\"Text\"=\"100%\"\n\n[Software\\Orvane\\Quillory\\Colors]\n\"%d\"=dword:5\n\n[::Categories::]\n\"Category\"=\"Name\"\n"
    L"\"FiltersFlag\"=dword:3\n\"Extra\"=dword:1\n\"Color\"=dword:255\n\"Category\"=\"%d\"\n\"FiltersFlag\"=dword:1\n"
    L"\"Color\"=dword:1\n\n[::Filters::]\n\"FilterName\"=\"F\"\n\"Index\"=dword:3\n\"VisibleState\"=dword:0\n"
    L"\"IncludeUncategorized\"=dword:1\n\n[Software\\QLFuzz\\A\\Sub]\n\"Same\"=\"not_the_same\"\n";

// A key path as the registry resolves it: case-insensitive, empty components dropped.
std::wstring NormalKey(const std::wstring& path) {
    std::wstring out;
    for (size_t start = 0, end; start <= path.size(); start = end + 1) {
        end = std::min(path.find(L'\\', start), path.size());
        if (end > start) out += (out.empty() ? L"" : L"\\") + path.substr(start, end - start);
    }
    for (wchar_t& c : out) c = static_cast<wchar_t>(towlower(c));
    return out;
}

// Independent of the reader: the names of the lines that have the shape of a header.
void CollectHeaderNames(const std::string& bytes, std::set<std::wstring>& names) {
    const std::wstring text = WideFromUtf16(bytes);
    for (size_t start = 0, end; start < text.size(); start = end) {
        end = std::min(text.find(L'\n', start), text.size() - 1) + 1;
        const std::wstring line = text.substr(start, std::min(end, text.find(L'\0', start)) - start);
        if (line.size() < 3 || line[0] != L'[' || line[line.size() - 2] != L']') continue;
        names.insert(NormalKey(line.substr(1, line.size() - 3)));
    }
}

TEST(RegistryTextFuzzTest, MalformedTextsKeepTheListsAndWriteOnlyTheKeysTheyName) {
    // The process's user root becomes an empty key of the real one, so what the texts write can be
    // seen whole and thrown away.
    static const wchar_t kSandbox[] = L"Software\\QLFuzzUserRoot";
    RegRemoveTree(HKEY_CURRENT_USER, kSandbox);
    HKEY sandbox = nullptr;
    RegCreateKeyExW(HKEY_CURRENT_USER, kSandbox, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &sandbox, nullptr);
    RegOverridePredefKey(HKEY_CURRENT_USER, sandbox);
    std::unique_ptr<HKEY__, void (*)(HKEY)> restore(sandbox, [](HKEY key) {
        RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
        RegCloseKey(key);
        RegRemoveTree(HKEY_CURRENT_USER, kSandbox);
    });
    ASSERT_EQ(Snapshot(HKEY_CURRENT_USER, L"").size(), 1u) << "the user root is not replaced";
    CategoryList categories;
    for (const wchar_t* name : {L"Name", L"%d", L"\x4E2D"}) AddCategory(categories, name);
    FilterList filters;
    MakeDefaultFilters(filters);
    std::set<std::wstring> named;
    Mutator mutator(20240517);
    int accepted = 0;
    for (int i = 0; i < 5000; ++i) {
        const std::string bytes = mutator.mutated(kBackupText, 8);
        CollectHeaderNames(bytes, named);
        Utf16TextReader in(bytes);
        accepted += ReadRegistryTextFile(in, categories, filters);
        ASSERT_TRUE(categories.count == 3 && filters.count == 32) << "file " << i;
    }
    EXPECT_TRUE(accepted > 1000 && accepted < 5000) << accepted;
    const RegSnapshot written = Snapshot(HKEY_CURRENT_USER, L"");
    EXPECT_GT(written.size(), 3u);
    for (auto& key : written) {
        const std::wstring normal = NormalKey(key.first), below = normal.empty() ? L"" : normal + L"\\";
        auto next = named.lower_bound(below);
        const bool onTheWayToANamedKey = key.second.empty() && next != named.end() && next->rfind(below, 0) == 0;
        EXPECT_TRUE(named.count(normal) || onTheWayToANamedKey)
            << "written without a header naming it: " << key.first;
    }
}

TEST(FiltersFuzzTest, MalformedFilesGiveTheirRecordsOrTheDefaults) {
    Mutator mutator(77031);
    FilterList filters;
    MakeDefaultFilters(filters);
    const std::wstring defaults = WideFromUtf16(FiltersFileBytes(filters));
    int loaded = 0;
    for (int i = 0; i < 4000; ++i) {
        const std::string bytes = mutator.mutated(defaults, 4);
        const bool ok = LoadFiltersFromBytes(filters, bytes);
        loaded += ok;
        int index = 1;
        for (const FilterRecord* r = filters.head; r && ok; r = r->next, ++index) ASSERT_EQ(r->index, index) << "file " << i;
        ASSERT_TRUE(ok ? index == 33 && filters.count == 32 : AreDefaultFilters(filters)) << "file " << i;
    }
    EXPECT_TRUE(loaded > 400 && loaded < 3600) << loaded;
}

}  // namespace
