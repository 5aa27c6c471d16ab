// Seeded malformed filters files: every one loads without a crash into either exactly the 32
// records it holds (numbered 1 to 32, in order) or exactly the 32 defaults.
#include <windows.h>

#include <random>
#include <string>

#include "common/test_support.h"
#include "files/filters.h"
#include "files_test_support.h"

namespace {

const int kFiles = 10000;

class Generator {
public:
    explicit Generator(unsigned seed) : random_(seed) {}

    std::string file() {
        int kind = pick(20);
        if (kind == 0) return randomBytes();
        if (kind == 1) return std::string(100000 + pick(100000), static_cast<char>('A' + pick(26)));  // one huge line
        std::string bytes = FiltersFileBytes(randomList());
        if (kind == 2) return eightBit(bytes);
        int mutations = pick(5);
        for (int i = 0; i < mutations; ++i) mutate(bytes);
        return bytes;
    }

private:
    int pick(int n) { return static_cast<int>(random_() % static_cast<unsigned>(n)); }

    std::wstring title() {
        static const wchar_t* pieces[] = {L"Work", L"%d", L"%s%n", L"\"", L"\"=\"", L"=dword:", L"[FILTER3]",
                                          L"\x0141\x4E2D", L"\r", L"", L"%999999d"};
        std::wstring text;
        int n = pick(4);
        for (int i = 0; i < n; ++i) text += pieces[pick(11)];
        if (pick(50) == 0) text += std::wstring(5000, L'x');
        return text;
    }

    FilterList& randomList() {
        ClearFilters(list_);
        int count = pick(10) == 0 ? 30 + pick(5) : 32;
        for (int i = 0; i < count; ++i) {
            FilterRecord* r = new FilterRecord;
            r->index = i;
            r->title.assign(title().c_str());
            r->sensitivity = static_cast<int32_t>(random_());
            r->visible = pick(2);
            r->includeUncategorized = pick(2);
            InsertFilter(list_, r);
        }
        return list_;
    }

    void mutate(std::string& bytes) {
        if (bytes.empty()) return;
        size_t at = random_() % bytes.size();
        static const char special[] = {'\n', '\r', '\0', '"', '=', '[', ']', '%', '\xFF'};
        switch (pick(6)) {
            case 0: bytes.erase(at, 1 + pick(40)); break;
            case 1: bytes.resize(at); break;
            case 2: bytes[at] = special[pick(9)]; break;
            case 3: bytes.insert(at, std::string(pick(3000), static_cast<char>(random_()))); break;
            case 4: bytes.insert(at, bytes.substr(at, pick(400))); break;
            default: bytes[at] = static_cast<char>(random_()); break;
        }
    }

    std::string randomBytes() {
        std::string bytes(pick(4000), '\0');
        for (char& b : bytes) b = static_cast<char>(random_());
        return bytes;
    }

    static std::string eightBit(const std::string& utf16) {
        std::string out;
        for (size_t i = 0; i < utf16.size(); i += 2) out.push_back(utf16[i]);
        return out;
    }

    std::mt19937 random_;
    FilterList list_;
};

::testing::AssertionResult WellFormed(const FilterList& filters, bool loaded) {
    if (filters.count != 32) return ::testing::AssertionFailure() << "count " << filters.count;
    int expected = loaded ? 1 : 0;
    const FilterRecord* previous = nullptr;
    for (const FilterRecord* r = filters.head; r; r = r->next, ++expected) {
        if (r->index != expected) return ::testing::AssertionFailure() << "index " << r->index;
        if (r->previous != previous) return ::testing::AssertionFailure() << "broken link at " << expected;
        if (!loaded) {
            std::wstring title = L"Filter " + std::to_wstring(expected + 1);
            if (title != r->title.c_str() || r->sensitivity || !r->visible || r->includeUncategorized)
                return ::testing::AssertionFailure() << "not the default filter " << expected;
        }
        previous = r;
    }
    if (expected != (loaded ? 33 : 32)) return ::testing::AssertionFailure() << "list ends early";
    return ::testing::AssertionSuccess();
}

TEST(FiltersFuzzTest, MalformedFilesGiveTheirRecordsOrTheDefaults) {
    ScratchFolder folder(L"filters_fuzz");
    std::wstring path = folder.file(L"QLFilters.txt");
    Generator generator(77031);
    FilterList filters;
    int loaded = 0;
    for (int i = 0; i < kFiles; ++i) {
        std::string bytes = generator.file();
        bool ok;
        if (i % 50 == 0) {
            WriteBytes(path, bytes);
            ok = LoadFiltersFile(filters, path.c_str());
        } else {
            ok = LoadFiltersFromBytes(filters, bytes);
        }
        ASSERT_TRUE(WellFormed(filters, ok)) << "file " << i;
        loaded += ok;
    }
    EXPECT_GT(loaded, kFiles / 10);
    EXPECT_LT(loaded, kFiles - kFiles / 10);
}

}  // namespace
