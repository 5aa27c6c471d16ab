// The alphabet selection run for real: the built-in rows and the files of the CustomAlphabets
// folder, ticks from the flags and the Contacts\Alphabets key; OK rewrites the key, Cancel does not.
#include "dialogs/alphabet_steps.h"
#include "shell/application.h"

namespace {

const wchar_t kAlphabets[] = L"Software\\Orvane\\Quillory\\Contacts\\Alphabets";
const Texts kBuiltIn = {L"Latin", L"Cyrillic", L"Hebrew", L"Greek"};

class AlphabetSelection : public ::testing::Test {
protected:
    void SetUp() override { InitCommonControlsForProgram(), RegRemoveTree(HKEY_CURRENT_USER, kAlphabets); }
    void TearDown() override { RegRemoveTree(HKEY_CURRENT_USER, kAlphabets); }
    Texts Run(DWORD flags, const Texts& tick, int command, INT_PTR* result, Texts* ticked = nullptr) {
        LoadSettings();
        return TickAlphabets([&] { *result = RunAlphabetSelection(nullptr, flags); }, tick, command, ticked);
    }
    INT_PTR result_ = 0;
    Texts ticked_;
};

TEST_F(AlphabetSelection, WithoutTheFolderOnlyTheBuiltInRowsAndCancelWritesNothing) {
    RegPutDword(HKEY_CURRENT_USER, kAlphabets, L"Thai", 1);
    EXPECT_EQ(Run(5, kBuiltIn, IDCANCEL, &result_, &ticked_), kBuiltIn);  // no installation folder at all
    EXPECT_EQ(ticked_, (Texts{L"Latin", L"Hebrew"}));
    EXPECT_EQ(result_, -1);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kAlphabets, L"Thai", 1);
}

TEST_F(AlphabetSelection, NamesPassByTheirFirstDotTOrXAndOkRewritesTheKey) {
    const std::wstring longest(251, L'W');  // with ".txt", the longest name the file system takes
    AlphabetInstall install({L"Thai.txt", L"Tamil.txt", L"Latvian.txt", L"x.txt", L".txt", L"A.txt", L"Hindi.dat",
                             longest + L".txt"});
    CreateDirectoryW((install.folder + L"\\Folder.txt").c_str(), nullptr);
    RegPutDword(HKEY_CURRENT_USER, kAlphabets, L"Tamil", 1);
    RegPutDword(HKEY_CURRENT_USER, kAlphabets, L"Gone", 1);
    Texts rows = Run(kGreekAlphabet, {L"Thai", longest}, IDOK, &result_, &ticked_);
    ASSERT_EQ(rows.size(), 9u);
    EXPECT_EQ(Texts(rows.begin(), rows.begin() + 4), kBuiltIn);
    std::sort(rows.begin() + 4, rows.end());  // the others in the file system's order
    EXPECT_EQ(Texts(rows.begin() + 4, rows.end()), (Texts{L"A", L"Hindi", L"Tamil", L"Thai", longest}));
    EXPECT_EQ(ticked_, (Texts{L"Greek", L"Tamil"}));
    EXPECT_EQ(result_, 16);
    for (const std::wstring& name : {std::wstring(L"Thai"), longest})
        EXPECT_REG_DWORD(HKEY_CURRENT_USER, kAlphabets, name.c_str(), 1);
    EXPECT_EQ(RegValueCount(HKEY_CURRENT_USER, kAlphabets), 2u) << "Tamil and Gone are gone";

    Run(0, {L"Cyrillic"}, IDOK, &result_);
    EXPECT_EQ(result_, kCyrillicAlphabet);
    EXPECT_FALSE(RegKeyExists(HKEY_CURRENT_USER, kAlphabets)) << "no custom alphabet ticked";
}

}  // namespace
