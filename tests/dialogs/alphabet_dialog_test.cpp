#include "dialogs/alphabet_steps.h"
#include "shell/application.h"

namespace {

const wchar_t kAlphabets[] = L"Software\\Orvane\\Quillory\\Contacts\\Alphabets";

TEST(AlphabetSelection, NamesPassByTheirFirstDotTOrXAndOkRewritesTheKeyFromTheTickedRows) {
    InitCommonControlsForProgram();
    const std::wstring longest(251, L'W');  // with ".txt", the longest name the file system takes
    AlphabetInstall install({L"Thai.txt", L"Tamil.txt", L"Latvian.txt", L"x.txt", L".txt", L"A.txt", L"Hindi.dat",
                             longest + L".txt"});
    CreateDirectoryW((install.folder + L"\\Folder.txt").c_str(), nullptr);
    RegRemoveTree(HKEY_CURRENT_USER, kAlphabets);
    for (const wchar_t* name : {L"Tamil", L"Gone"}) RegPutDword(HKEY_CURRENT_USER, kAlphabets, name, 1);
    LoadSettings();
    INT_PTR result = 0;
    auto open = [&] { result = RunAlphabetSelection(nullptr, kGreekAlphabet | kLatinAlphabet); };
    Texts ticked, rows = TickAlphabets(open, {L"Thai", longest}, IDOK, &ticked);
    EXPECT_EQ(result, kCustomAlphabet);
    ASSERT_GE(rows.size(), 4u);
    std::sort(rows.begin() + 4, rows.end());  // the custom ones come in the file system's order
    EXPECT_EQ(rows, (Texts{L"Latin", L"Cyrillic", L"Hebrew", L"Greek", L"A", L"Hindi", L"Tamil", L"Thai", longest}));
    EXPECT_EQ(ticked, (Texts{L"Latin", L"Greek", L"Tamil"}));
    for (const std::wstring& name : {std::wstring(L"Thai"), longest})
        EXPECT_REG_DWORD(HKEY_CURRENT_USER, kAlphabets, name.c_str(), 1);
    EXPECT_EQ(RegValueCount(HKEY_CURRENT_USER, kAlphabets), 2u) << "Tamil and Gone are gone";
}

}  // namespace
