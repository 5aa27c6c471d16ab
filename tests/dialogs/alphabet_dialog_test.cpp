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
    INT_PTR result = 0;
    auto choose = [&](DWORD flags, const Texts& tick, Texts* ticked) {
        LoadSettings();
        return TickAlphabets([&] { result = RunAlphabetSelection(nullptr, flags); }, tick, IDOK, ticked);
    };
    Texts ticked, rows = choose(kGreekAlphabet | kLatinAlphabet, {L"Thai", longest}, &ticked);
    EXPECT_EQ(result, kCustomAlphabet);
    ASSERT_EQ(rows.size(), 9u);
    EXPECT_EQ(Texts(rows.begin(), rows.begin() + 4), (Texts{L"Latin", L"Cyrillic", L"Hebrew", L"Greek"}));
    std::sort(rows.begin() + 4, rows.end());  // the others in the file system's order
    EXPECT_EQ(Texts(rows.begin() + 4, rows.end()), (Texts{L"A", L"Hindi", L"Tamil", L"Thai", longest}));
    EXPECT_EQ(ticked, (Texts{L"Latin", L"Greek", L"Tamil"}));
    for (const std::wstring& name : {std::wstring(L"Thai"), longest})
        EXPECT_REG_DWORD(HKEY_CURRENT_USER, kAlphabets, name.c_str(), 1);
    EXPECT_EQ(RegValueCount(HKEY_CURRENT_USER, kAlphabets), 2u) << "Tamil and Gone are gone";

    choose(0, {L"Cyrillic", L"Hebrew"}, nullptr);
    EXPECT_EQ(result, kCyrillicAlphabet | kHebrewAlphabet);
    EXPECT_FALSE(RegKeyExists(HKEY_CURRENT_USER, kAlphabets)) << "no custom alphabet ticked";
}

}  // namespace
