// The alphabet selection run for real: the built-in rows and the files of the CustomAlphabets
// folder, ticks from the flags and the Contacts\Alphabets key; OK rewrites the key, Cancel does not.
#include "dialogs/alphabet_steps.h"
#include "shell/application.h"
#include "support/app_state.h"

namespace {

const wchar_t kAlphabets[] = L"Software\\Orvane\\Quillory\\Contacts\\Alphabets";
const std::vector<std::wstring> kBuiltIn = {L"Latin", L"Cyrillic", L"Hebrew", L"Greek"};

class AlphabetSelection : public ::testing::Test {
protected:
    void SetUp() override {
        InitCommonControlsForProgram();
        RegRemoveTree(HKEY_CURRENT_USER, kAlphabets);
        g_app.instance = GetModuleHandleW(nullptr);
    }
    void TearDown() override { RegRemoveTree(HKEY_CURRENT_USER, kAlphabets); }
    AlphabetRows Run(DWORD flags, const std::vector<std::wstring>& tick, int command, INT_PTR* result) {
        LoadSettings();
        return TickAlphabets([&] { *result = RunAlphabetSelection(nullptr, flags); }, tick, command);
    }
};

TEST_F(AlphabetSelection, WithoutTheFolderOnlyTheBuiltInRowsAndCancelWritesNothing) {
    ScratchFolder empty(L"alphabets_none");
    RegPutString(HKEY_LOCAL_MACHINE, kTodayItemPath, L"InstallPath", empty.path().c_str());
    RegPutDword(HKEY_CURRENT_USER, kAlphabets, L"Thai", 1);
    INT_PTR result = 0;
    AlphabetRows seen = Run(5, kBuiltIn, IDCANCEL, &result);
    RegDeleteKeyValueW(HKEY_LOCAL_MACHINE, kTodayItemPath, L"InstallPath");
    EXPECT_EQ(seen.rows, kBuiltIn);
    EXPECT_EQ(seen.ticked, (std::vector<std::wstring>{L"Latin", L"Hebrew"}));
    EXPECT_EQ(result, -1);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kAlphabets, L"Thai", 1);
}

TEST_F(AlphabetSelection, NamesPassByTheirFirstDotTOrXAndOkRewritesTheKey) {
    const std::wstring longest(251, L'W');  // with ".txt", the longest name the file system takes
    AlphabetInstall install({L"Thai.txt", L"Tamil.txt", L"Latvian.txt", L"x.txt", L".txt", L"A.txt", L"Hindi.dat",
                             longest + L".txt"});
    CreateDirectoryW((install.folder() + L"\\Folder.txt").c_str(), nullptr);
    RegPutDword(HKEY_CURRENT_USER, kAlphabets, L"Tamil", 1);
    RegPutDword(HKEY_CURRENT_USER, kAlphabets, L"Gone", 1);
    INT_PTR result = 0;
    AlphabetRows seen = Run(kGreekAlphabet, {L"Thai", longest}, IDOK, &result);
    ASSERT_EQ(seen.rows.size(), 9u);
    EXPECT_TRUE(std::equal(kBuiltIn.begin(), kBuiltIn.end(), seen.rows.begin())) << "built-in rows come first";
    std::sort(seen.rows.begin() + 4, seen.rows.end());
    EXPECT_EQ(std::vector<std::wstring>(seen.rows.begin() + 4, seen.rows.end()),
              (std::vector<std::wstring>{L"A", L"Hindi", L"Tamil", L"Thai", longest}));
    EXPECT_EQ(seen.ticked, (std::vector<std::wstring>{L"Greek", L"Tamil"}));
    EXPECT_EQ(result, 16) << "Greek was unticked";
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kAlphabets, L"Thai", 1);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kAlphabets, longest.c_str(), 1);
    EXPECT_EQ(RegValueCount(HKEY_CURRENT_USER, kAlphabets), 2u) << "Tamil and Gone are gone";

    Run(0, {L"Cyrillic"}, IDOK, &result);
    EXPECT_EQ(result, kCyrillicAlphabet);
    EXPECT_FALSE(RegKeyExists(HKEY_CURRENT_USER, kAlphabets)) << "no custom alphabet ticked";
}

}  // namespace
