#include "dialogs/alphabet_steps.h"
#include "shell/application.h"

namespace {

const wchar_t kAlphabets[] = L"Software\\Orvane\\Quillory\\Contacts\\Alphabets";
const Texts kBuiltIn = {L"Latin", L"Cyrillic", L"Hebrew", L"Greek"};

// Opens the selection on `flags`, ticks exactly `tick` and presses `command`; returns the result.
INT_PTR Choose(DWORD flags, const Texts& tick, int command, Texts* rows = nullptr, Texts* ticked = nullptr) {
    LoadSettings();
    INT_PTR result = 0;
    Texts shown = TickAlphabets([&] { result = RunAlphabetSelection(nullptr, flags); }, tick, command, ticked);
    if (rows) *rows = shown;
    return result;
}

TEST(AlphabetSelection, NamesPassByTheirFirstDotTOrXAndOkRewritesTheKeyWhileCancelDoesNot) {
    InitCommonControlsForProgram();
    RegRemoveTree(HKEY_CURRENT_USER, kAlphabets);
    RegPutDword(HKEY_CURRENT_USER, kAlphabets, L"Tamil", 1);
    Texts rows, ticked;
    EXPECT_EQ(Choose(5, kBuiltIn, IDCANCEL, &rows, &ticked), -1);  // no installation folder at all
    EXPECT_EQ(rows, kBuiltIn);
    EXPECT_EQ(ticked, (Texts{L"Latin", L"Hebrew"}));
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kAlphabets, L"Tamil", 1);

    const std::wstring longest(251, L'W');  // with ".txt", the longest name the file system takes
    AlphabetInstall install({L"Thai.txt", L"Tamil.txt", L"Latvian.txt", L"x.txt", L".txt", L"A.txt", L"Hindi.dat",
                             longest + L".txt"});
    CreateDirectoryW((install.folder + L"\\Folder.txt").c_str(), nullptr);
    RegPutDword(HKEY_CURRENT_USER, kAlphabets, L"Gone", 1);
    ticked.clear();
    EXPECT_EQ(Choose(kGreekAlphabet, {L"Thai", longest}, IDOK, &rows, &ticked), kCustomAlphabet);
    ASSERT_EQ(rows.size(), 9u);
    EXPECT_EQ(Texts(rows.begin(), rows.begin() + 4), kBuiltIn);
    std::sort(rows.begin() + 4, rows.end());  // the others in the file system's order
    EXPECT_EQ(Texts(rows.begin() + 4, rows.end()), (Texts{L"A", L"Hindi", L"Tamil", L"Thai", longest}));
    EXPECT_EQ(ticked, (Texts{L"Greek", L"Tamil"}));
    for (const std::wstring& name : {std::wstring(L"Thai"), longest})
        EXPECT_REG_DWORD(HKEY_CURRENT_USER, kAlphabets, name.c_str(), 1);
    EXPECT_EQ(RegValueCount(HKEY_CURRENT_USER, kAlphabets), 2u) << "Tamil and Gone are gone";

    EXPECT_EQ(Choose(0, {L"Cyrillic", L"Hebrew"}, IDOK), kCyrillicAlphabet | kHebrewAlphabet);
    EXPECT_FALSE(RegKeyExists(HKEY_CURRENT_USER, kAlphabets)) << "no custom alphabet ticked";
    RegRemoveTree(HKEY_CURRENT_USER, kAlphabets);
}

}  // namespace
