// The General page: heights read as C numbers, greying that follows the switches, every row
// stored in the key's order, the language list and a values round trip.
#include "page_fixture.h"
#include "pages/general_page.h"

namespace {

enum {
    kOnClick = 1, kOnDoubleClick = 3, kAutoHeight = 4, kHeight = 6, kLandscapeHeight = 8, kSkinPath = 10,
    kSkinClear = 11, kLanguage = 14, kVerticalTabs = 15, kSoundEffects = 16, kGoofyMode = 17, kIndentItems = 18,
    kTitleAlign = 20, kRemoveTabsBar = 21, kRemoveSettingsButton = 22, kRemoveSeparatingLine = 23,
    kDPadEnabled = 24, kDPadMode = 26, kDPadCompleteLabel = 27, kDPadComplete = 28, kDPadScrollLabel = 29,
    kDPadScroll = 30, kDPadDoubleClickTabs = 31, kExclusiveDPad = 32, kDoubleClickScroll = 33, kFullScrollings = 34,
    kVgaMode = 35, kThinLines = 36, kRemoveHighlight = 37, kLoadingDelay = 39,
};

using GeneralPage = PageFixture;

TEST_F(GeneralPage, GreyedRowsStillStoreAndEveryRowIsSavedInTheKeysOrder) {
    Open(0);
    EXPECT_EQ(Entries(kLandscapeHeight).front() + L" " + Entries(kLandscapeHeight).back(), L"0 600");
    EXPECT_FALSE(Enabled(kHeight) || Enabled(kLandscapeHeight)) << "AutoHeight starts checked";
    Click(kAutoHeight);
    EXPECT_TRUE(Enabled(kHeight) && Enabled(kLandscapeHeight));
    SetWindowTextW(Control(kHeight), L"0x100");
    SetWindowTextW(Control(kLandscapeHeight), L"0100");
    Click(kAutoHeight);
    EXPECT_FALSE(Enabled(kHeight));

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
    Close();
    GeneralSettings& general = g_settings.general;
    EXPECT_EQ(general.dHeightLimit.value, 256u) << "0x: hexadecimal";
    EXPECT_EQ(general.dHeightLimitLandscape.value, 64u) << "a leading 0: octal";
    EXPECT_EQ(general.DPadScrollingAction.value, 2u) << "a greyed row gives its value";

    const Texts order = {
        L"OnClick", L"OnDoubleClick", L"EnableSoundEffect", L"RemoveHighlight", L"GoofyMode", L"IndentItems",
        L"dHeightLimit", L"dHeightLimitLandscape", L"RemoveTabsBar", L"RemoveSettingsButton", L"RemoveSeparatingLine",
        L"FilterTtlAlign", L"VerticalTabs", L"DPadEnabled", L"DPadMode", L"DPadCompleteAction",
        L"DPadDoubleClickTabSwitching", L"DPadScrollingAction", L"ExclusiveDPadNavig", L"UseDoubleClickScroll",
        L"UseFullScrollings", L"MyVgaMode", L"UseThinLines", L"LoadingDelay"};
    RegistryWriteRecorder recorder;
    ASSERT_TRUE(recorder.recording());
    SaveSettings();
    EXPECT_EQ(recorder.written(order), order);
    const wchar_t* const zero[] = {L"DPadEnabled", L"DPadCompleteAction", L"VerticalTabs"};
    for (const wchar_t* name : zero) EXPECT_REG_DWORD(HKEY_CURRENT_USER, kProductPath, name, 0);
    const wchar_t* const one[] = {L"DPadDoubleClickTabSwitching", L"ExclusiveDPadNavig", L"MyVgaMode", L"DPadMode",
                                  L"OnClick"};
    for (const wchar_t* name : one)
        EXPECT_REG_DWORD(HKEY_CURRENT_USER, kProductPath, name, 1);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kProductPath, L"LoadingDelay", 5);

    Open(0);
    SetWindowTextW(Control(kHeight), L"abc");
    SendMessageW(Control(kLandscapeHeight), CB_SETCURSEL, 0, 0);
    Close();
    EXPECT_EQ(general.dHeightLimit.value, 0u) << "no number gives 0";
    EXPECT_EQ(general.dHeightLimitLandscape.value, 0u) << "0 chosen from the landscape list";
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
                             {L"dHeightLimitLandscape", 300}, {L"VerticalTabs", 0}, {L"FilterTtlAlign", 2},
                             {L"DPadEnabled", 0}, {L"UseThinLines", 1}, {L"LoadingDelay", 4}});
    RegPutString(HKEY_CURRENT_USER, kProductPath, L"SkinPath", L"\\My Skins\\Blue");
    RegPutString(HKEY_CURRENT_USER, kProductPath, L"SelectedLangResFile", second.c_str());
    EXPECT_TRUE(RoundTripKeeps(0, kProductPath, product.path()));

    Open(0, product.path());
    ASSERT_EQ(Entries(kLanguage).size(), 2u) << "only libraries with string 719";
    EXPECT_EQ(std::wstring(static_cast<GeneralSettingsWin*>(page_)->languagePath(Selected(kLanguage)).c_str()), second);
    EXPECT_EQ(Text(kHeight), L"1000") << "shown as it is";
    Click(kSkinClear);
    EXPECT_EQ(Text(kSkinPath), L"");
    Choose(kLanguage, 1 - Selected(kLanguage));
    Close();
    EXPECT_STREQ(g_settings.general.SkinPath.c_str(), L"");
    EXPECT_EQ(std::wstring(g_settings.general.SelectedLangResFile.c_str()), langRes + L"\\QLEngRc.dll");

    std::wstring upper = product.path() + L"\\LANGRES\\QLSecond.dll";  // compared case-sensitively
    RegPutString(HKEY_CURRENT_USER, kProductPath, L"SelectedLangResFile", upper.c_str());
    Open(0, product.path());
    EXPECT_EQ(Selected(kLanguage), 0);
}

}  // namespace
