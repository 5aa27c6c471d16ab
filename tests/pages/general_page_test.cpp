#include "page_fixture.h"
#include "pages/general_page.h"

namespace {

enum {
    kOnClick = 1, kOnDoubleClick = 3, kAutoHeight = 4, kHeight = 6, kLandscapeHeight = 8,
    kSkinClear = 11, kLanguage = 14, kVerticalTabs = 15, kSoundEffects = 16, kGoofyMode = 17, kIndentItems = 18,
    kTitleAlign = 20, kRemoveTabsBar = 21, kRemoveSettingsButton = 22, kRemoveSeparatingLine = 23,
    kDPadEnabled = 24, kDPadMode = 26, kDPadCompleteLabel = 27, kDPadComplete = 28, kDPadScrollLabel = 29,
    kDPadScroll = 30, kDPadDoubleClickTabs = 31, kExclusiveDPad = 32, kDoubleClickScroll = 33, kFullScrollings = 34,
    kVgaMode = 35, kThinLines = 36, kRemoveHighlight = 37, kLoadingDelay = 39,
};

using GeneralPage = PageFixture;

TEST_F(GeneralPage, GreyedRowsStillStoreAndEveryChangedRowIsSaved) {
    Open(0);
    EXPECT_FALSE(Enabled(kHeight) || Enabled(kLandscapeHeight)) << "AutoHeight starts checked";
    Click(kAutoHeight);
    EXPECT_TRUE(Enabled(kHeight) && Enabled(kLandscapeHeight));
    SetWindowTextW(Control(kHeight), L"0x100");
    SetWindowTextW(Control(kLandscapeHeight), L"0100");
    Click(kAutoHeight);

    EXPECT_TRUE(Enabled(kDPadComplete) && Enabled(kDPadDoubleClickTabs) && !Enabled(kDPadScroll));
    Choose(kDPadMode, 1);
    EXPECT_FALSE(Enabled(kDPadCompleteLabel) || Enabled(kDPadComplete) || Enabled(kDPadDoubleClickTabs));
    EXPECT_TRUE(Enabled(kDPadScrollLabel) && Enabled(kDPadScroll) && Enabled(kExclusiveDPad));
    for (int box : {kVerticalTabs, kSoundEffects, kGoofyMode, kIndentItems, kRemoveTabsBar, kRemoveSettingsButton,
                    kRemoveSeparatingLine, kDPadDoubleClickTabs, kExclusiveDPad, kDoubleClickScroll, kFullScrollings,
                    kVgaMode, kThinLines, kRemoveHighlight, kDPadEnabled})
        Click(box);
    for (int number : {kDPadMode, kDPadComplete, kDPadScroll, kExclusiveDPad}) EXPECT_FALSE(Enabled(number)) << number;
    for (int combo : {kOnClick, kOnDoubleClick, kTitleAlign}) Choose(combo, 1);
    Choose(kDPadComplete, 0), Choose(kDPadScroll, 2), Choose(kLoadingDelay, 5);
    CloseAndSave();
    for (const auto& value : {std::make_pair(L"dHeightLimit", 256), {L"dHeightLimitLandscape", 64},
                              {L"DPadScrollingAction", 2}, {L"DPadEnabled", 0}, {L"DPadCompleteAction", 0},
                              {L"ExclusiveDPadNavig", 1}, {L"DPadMode", 1}, {L"OnClick", 1}, {L"LoadingDelay", 5}})
        EXPECT_REG_DWORD(HKEY_CURRENT_USER, kProductPath, value.first, value.second) << "0x: hex, 0: octal";
    EXPECT_EQ(RegValueCount(HKEY_CURRENT_USER, kProductPath), 24u) << "every row changed, nothing else";
}

TEST_F(GeneralPage, LanguagesNeedString719AndSeededValuesComeBackUnchanged) {
    ScratchFolder product(L"general_product");
    std::wstring langRes = product.path() + L"\\LangRes", english = TestBinDir() + L"\\QLEngRc.dll";
    CreateDirectoryW(langRes.c_str(), nullptr);
    for (const wchar_t* name : {L"\\QLEngRc.dll", L"\\QLSecond.dll"})
        ASSERT_TRUE(CopyFileW(english.c_str(), (langRes + name).c_str(), FALSE));
    ASSERT_TRUE(CopyFileW((TestBinDir() + L"\\LowDpiRes.dll").c_str(), (langRes + L"\\QLNoName.dll").c_str(), FALSE));
    WriteBytes(langRes + L"\\QLBroken.dll", "not a library");
    std::wstring second = langRes + L"\\QLSecond.dll";
    PutDwords(kProductPath, {{L"OnClick", 2}, {L"AutoHeight", 0}, {L"dHeightLimit", 1000}, {L"DPadMode", 1},
                             {L"dHeightLimitLandscape", 300}, {L"DPadEnabled", 0}, {L"LoadingDelay", 4}});
    RegPutString(HKEY_CURRENT_USER, kProductPath, L"SkinPath", L"\\My Skins\\Blue");
    RegPutString(HKEY_CURRENT_USER, kProductPath, L"SelectedLangResFile", second.c_str());
    EXPECT_TRUE(RoundTripKeeps(0, kProductPath, product.path()));

    Open(0, product.path());
    ASSERT_EQ(Entries(kLanguage).size(), 2u) << "only libraries with string 719";
    EXPECT_EQ(std::wstring(static_cast<GeneralSettingsWin*>(page_)->languagePath(Selected(kLanguage)).c_str()), second);
    Click(kSkinClear);
    Choose(kLanguage, 1 - Selected(kLanguage));
    Close();
    EXPECT_STREQ(g_settings.general.SkinPath.c_str(), L"");
    EXPECT_EQ(std::wstring(g_settings.general.SelectedLangResFile.c_str()), langRes + L"\\QLEngRc.dll");
}

}  // namespace
