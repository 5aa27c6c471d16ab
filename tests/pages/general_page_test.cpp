// The General page opened through the page framework, driven with real control messages, closed,
// and the settings record read afterwards.
#include <windows.h>
#include <commctrl.h>

#include <string>
#include <vector>

#include "common/test_support.h"
#include "pages/general_page.h"
#include "settings/settings.h"
#include "support/app_state.h"
#include "shell/application.h"
#include "shell/page_factory.h"

namespace {

enum {
    kOnClick = 1, kOnDoubleClick = 3, kAutoHeight = 4, kHeight = 6, kLandscapeHeight = 8, kSkinPath = 10,
    kSkinClear = 11, kLanguage = 14, kVerticalTabs = 15, kSoundEffects = 16, kGoofyMode = 17, kIndentItems = 18,
    kTitleAlign = 20, kRemoveTabsBar = 21, kRemoveSettingsButton = 22, kRemoveSeparatingLine = 23,
    kDPadEnabled = 24, kDPadMode = 26, kDPadCompleteLabel = 27, kDPadComplete = 28, kDPadScrollLabel = 29,
    kDPadScroll = 30, kDPadDoubleClickTabs = 31, kExclusiveDPad = 32, kDoubleClickScroll = 33, kFullScrollings = 34,
    kVgaMode = 35, kThinLines = 36, kRemoveHighlight = 37, kLoadingDelay = 39,
};

class GeneralPage : public ::testing::Test {
protected:
    void SetUp() override {
        InitCommonControlsForProgram();
        RegRemoveTree(HKEY_CURRENT_USER, L"Software\\Orvane\\Quillory");
        g_app = AppState();
        g_app.instance = GetModuleHandleW(nullptr);
        g_app.pixelsPerInchX = g_app.pixelsPerInchY = 96;
        LoadSettings();
        owner_ = CreateWindowExW(0, TestWindowClass(L"GeneralOwner", DefWindowProcW), L"QL Options",
                                 WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 260, 340, nullptr, nullptr, g_app.instance,
                                 nullptr);
    }
    void TearDown() override {
        Close();
        DestroyWindow(owner_);
        if (g_app.languageLibrary) FreeLibrary(g_app.languageLibrary);
        g_app.languageLibrary = nullptr;
        RegRemoveTree(HKEY_CURRENT_USER, L"Software\\Orvane\\Quillory");
    }
    GeneralSettingsWin* Open() {
        page_ = CreatePage(owner_, 0);
        EXPECT_NE(page_, nullptr);
        EXPECT_NE(page_->window(), nullptr);
        return static_cast<GeneralSettingsWin*>(page_);
    }
    void Close() {
        if (!page_) return;
        DestroyWindow(page_->window());  // the page stores its values here
        delete page_;
        page_ = nullptr;
    }
    HWND Control(int number) { return page_->control(number); }
    void Click(int number) { SendMessageW(Control(number), BM_CLICK, 0, 0); }
    void Choose(int combo, int index) {
        SendMessageW(Control(combo), CB_SETCURSEL, index, 0);
        SendMessageW(page_->window(), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(Control(combo)), CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(Control(combo)));
    }
    bool Enabled(int number) { return IsWindowEnabled(Control(number)) != FALSE; }
    std::wstring Text(int number) {
        wchar_t text[512] = {};
        GetWindowTextW(Control(number), text, 512);
        return text;
    }
    int Top(int number) {
        RECT r;
        GetWindowRect(Control(number), &r);
        return r.top;
    }
    HWND owner_ = nullptr;
    SettingsPage* page_ = nullptr;
};

TEST_F(GeneralPage, HeightsAreReadAsCNumbersEvenFromDisabledRows) {
    Open();
    EXPECT_EQ(SendMessageW(page_->sectionTabs(), TCM_GETITEMCOUNT, 0, 0), 5);
    EXPECT_EQ(SendMessageW(Control(kHeight), CB_GETCOUNT, 0, 0), 27) << "80 to 600 in steps of 20";
    EXPECT_EQ(SendMessageW(Control(kLandscapeHeight), CB_GETCOUNT, 0, 0), 28) << "with an extra 0";
    EXPECT_EQ(Text(kHeight), L"160") << "the current value is shown";
    EXPECT_TRUE(IsWindowVisible(Control(kHeight))) << "section 0 is shown first";
    EXPECT_FALSE(IsWindowVisible(Control(kVerticalTabs)));

    // AutoHeight starts checked: the height rows are greyed until it is cleared.
    EXPECT_FALSE(Enabled(kHeight));
    Click(kAutoHeight);
    EXPECT_TRUE(Enabled(kHeight));
    EXPECT_TRUE(Enabled(kLandscapeHeight));
    SetWindowTextW(Control(kHeight), L"0x100");
    SetWindowTextW(Control(kLandscapeHeight), L"0100");
    Click(kAutoHeight);
    EXPECT_FALSE(Enabled(kHeight));
    Close();

    GeneralSettings& general = g_settings.general;
    EXPECT_EQ(general.AutoHeight.value, 1u);
    EXPECT_EQ(general.dHeightLimit.value, 256u) << "0x prefix is hexadecimal";
    EXPECT_EQ(general.dHeightLimitLandscape.value, 64u) << "a leading 0 is octal";
    EXPECT_EQ(general.dHeightLimit.dirty, 1);

    Open();
    EXPECT_EQ(Text(kHeight), L"256");
    SetWindowTextW(Control(kHeight), L"abc");
    SendMessageW(Control(kLandscapeHeight), CB_SETCURSEL, 0, 0);
    Close();
    EXPECT_EQ(general.dHeightLimit.value, 0u) << "text that is no number gives 0";
    EXPECT_EQ(general.dHeightLimitLandscape.value, 0u) << "0 chosen from the landscape list";
}

TEST_F(GeneralPage, DirectionalPadRowsFollowTheModeAndTheSwitch) {
    Open();
    EXPECT_LT(Top(kDPadDoubleClickTabs), Top(kDPadScroll)) << "control 31 sits between the two action rows";
    EXPECT_GT(Top(kDPadDoubleClickTabs), Top(kDPadComplete));
    ASSERT_NE(Control(kExclusiveDPad), nullptr) << "this system is neither 3.x nor 4.20";

    EXPECT_TRUE(Enabled(kDPadComplete));
    EXPECT_FALSE(Enabled(kDPadScroll));
    Choose(kDPadMode, 1);
    EXPECT_FALSE(Enabled(kDPadCompleteLabel));
    EXPECT_FALSE(Enabled(kDPadComplete));
    EXPECT_FALSE(Enabled(kDPadDoubleClickTabs));
    EXPECT_TRUE(Enabled(kDPadScrollLabel));
    EXPECT_TRUE(Enabled(kDPadScroll));

    Click(kDPadEnabled);  // off: every directional-pad row is greyed
    for (int number : {kDPadMode, kDPadComplete, kDPadScroll, kExclusiveDPad}) EXPECT_FALSE(Enabled(number)) << number;
    Choose(kDPadScroll, 2);
    Choose(kTitleAlign, 1);
    Choose(kLoadingDelay, 5);
    Click(kVgaMode);
    Close();

    GeneralSettings& general = g_settings.general;
    EXPECT_EQ(general.DPadEnabled.value, 0u);
    EXPECT_EQ(general.DPadMode.value, 1u);
    EXPECT_EQ(general.DPadScrollingAction.value, 2u) << "disabled rows still give their value";
    EXPECT_EQ(general.FilterTtlAlign.value, 1u);
    EXPECT_EQ(general.LoadingDelay.value, 5u);
    EXPECT_EQ(general.MyVgaMode.value, 1u);
    EXPECT_EQ(general.ExclusiveDPadNavig.dirty, 1);
}

TEST_F(GeneralPage, EveryChangedRowIsSavedInTheGeneralKeysOrder) {
    g_settings.general.SkinPath.value.assign(L"\\Skins\\Red");
    Open();
    for (int box : {kAutoHeight, kVerticalTabs, kSoundEffects, kGoofyMode, kIndentItems, kRemoveTabsBar,
                    kRemoveSettingsButton, kRemoveSeparatingLine, kDPadEnabled, kDPadDoubleClickTabs, kExclusiveDPad,
                    kDoubleClickScroll, kFullScrollings, kVgaMode, kThinLines, kRemoveHighlight})
        Click(box);
    for (int combo : {kOnClick, kOnDoubleClick, kTitleAlign, kDPadMode, kDPadScroll}) Choose(combo, 1);
    Choose(kDPadComplete, 0);
    Choose(kLoadingDelay, 3);
    SetWindowTextW(Control(kHeight), L"200");
    SetWindowTextW(Control(kLandscapeHeight), L"300");
    Close();

    const std::vector<std::wstring> order = {
        L"OnClick", L"OnDoubleClick", L"SkinPath", L"EnableSoundEffect", L"RemoveHighlight", L"GoofyMode",
        L"IndentItems", L"AutoHeight", L"dHeightLimit", L"dHeightLimitLandscape", L"RemoveTabsBar",
        L"RemoveSettingsButton", L"RemoveSeparatingLine", L"FilterTtlAlign", L"VerticalTabs", L"DPadEnabled",
        L"DPadMode", L"DPadCompleteAction", L"DPadDoubleClickTabSwitching", L"DPadScrollingAction",
        L"ExclusiveDPadNavig", L"UseDoubleClickScroll", L"UseFullScrollings", L"MyVgaMode", L"UseThinLines",
        L"LoadingDelay"};
    RegistryWriteRecorder recorder;
    ASSERT_TRUE(recorder.recording());
    SaveSettings();
    EXPECT_EQ(recorder.written(order), order);
}

TEST_F(GeneralPage, SkinPathClearsAndLanguagesNeedString719) {
    ScratchFolder product(L"general_product");
    std::wstring langRes = product.path() + L"\\LangRes";
    CreateDirectoryW(langRes.c_str(), nullptr);
    std::wstring english = TestBinDir() + L"\\QLEngRc.dll";
    ASSERT_TRUE(CopyFileW(english.c_str(), (langRes + L"\\QLEngRc.dll").c_str(), FALSE));
    ASSERT_TRUE(CopyFileW(english.c_str(), (langRes + L"\\QLSecond.dll").c_str(), FALSE));
    // A real library without string 719, and a file that is no library at all.
    ASSERT_TRUE(CopyFileW((TestBinDir() + L"\\LowDpiRes.dll").c_str(), (langRes + L"\\QLNoName.dll").c_str(), FALSE));
    WriteBytes(langRes + L"\\QLBroken.dll", "not a library");

    g_settings.productFolder.assign(product.path().c_str());
    std::wstring second = langRes + L"\\QLSecond.dll";
    g_settings.general.SelectedLangResFile.value.assign(second.c_str());
    g_settings.general.SkinPath.value.assign(L"\\My Skins\\Blue");

    GeneralSettingsWin* page = Open();
    ASSERT_EQ(SendMessageW(Control(kLanguage), CB_GETCOUNT, 0, 0), 2) << "only libraries with string 719";
    int selected = static_cast<int>(SendMessageW(Control(kLanguage), CB_GETCURSEL, 0, 0));
    EXPECT_EQ(std::wstring(page->languagePath(selected).c_str()), second);
    EXPECT_EQ(Text(kSkinPath), L"\\My Skins\\Blue");
    Click(kSkinClear);
    EXPECT_EQ(Text(kSkinPath), L"");
    Choose(kLanguage, selected == 0 ? 1 : 0);
    Close();

    EXPECT_STREQ(g_settings.general.SkinPath.c_str(), L"");
    EXPECT_EQ(std::wstring(g_settings.general.SelectedLangResFile.c_str()), langRes + L"\\QLEngRc.dll");

    // An exact, case-sensitive match only: a path differing in case selects the first entry.
    std::wstring upper = product.path() + L"\\LANGRES\\QLSecond.dll";
    g_settings.general.SelectedLangResFile.value.assign(upper.c_str());
    Open();
    EXPECT_EQ(SendMessageW(Control(kLanguage), CB_GETCURSEL, 0, 0), 0);
    Close();
}

}  // namespace
