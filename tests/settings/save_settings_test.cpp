#include "settings_test_util.h"
#include "support/app_state.h"
#include "support/display_scale.h"

namespace {

class SaveSettingsTest : public ::testing::Test {
protected:
    void SetUp() override {
        RemoveProductKeys();
        loaded_.load();
    }
    void TearDown() override { RemoveProductKeys(); }
    SettingsRecord& r() { return *loaded_.record; }
    LoadedRecord loaded_;
};

TEST_F(SaveSettingsTest, ChangedSettingsOnlyAreWrittenAndBackAtTheirDefaultTheyAreDeleted) {
    FontSetting& general = r().fonts.FontGeneral;
    general.apply(general.font, general.colour.value);  // unchanged, yet every part is marked
    EXPECT_EQ(DirtySettings(r()), "10/FontGenerallfWeight 10/FontGenerallfItalic 10/FontGenerallfUnderline "
                                  "10/FontGenerallfStrikeOut 10/FontGenerallfHeight 10/FontGenerallfColor ");
    SetInt(r().calendar.dNumOfDays, 14);
    SetString(r().general.SkinPath, L"\\Skins\\Blue");
    LOGFONTW font = r().fonts.FontTskOverdue.font;
    font.lfHeight = -18;
    r().fonts.FontTskOverdue.apply(font, RGB(200, 0, 0));
    r().calendar.TimelinesLength.value = 20;  // changed without the setter: never written
    SaveSettings(r());
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kCalendarPath, L"dNumOfDays", 14);
    EXPECT_REG_STRING(HKEY_CURRENT_USER, kProductPath, L"SkinPath", L"\\Skins\\Blue");
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kFontsPath, L"FontTskOverduelfHeight", static_cast<DWORD>(-18));
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kFontsPath, L"FontTskOverduelfColor", RGB(200, 0, 0));
    EXPECT_EQ(RegValueCountTree(HKEY_CURRENT_USER, L"Software\\Orvane"), 4u) << "nothing else";
    SetInt(r().calendar.dNumOfDays, 7);
    SetString(r().general.SkinPath, L"");
    SaveSettings(r());
    EXPECT_EQ(RegValueCountTree(HKEY_CURRENT_USER, L"Software\\Orvane"), 2u) << "the two back at their defaults gone";
}

TEST_F(SaveSettingsTest, AllDirtyAtDefaultsLeavesNoValueAndNeverWritesTheReadOnlyList) {
    RegPutDword(HKEY_CURRENT_USER, kProductPath, L"NoteZoom", 150);
    RegPutString(HKEY_CURRENT_USER, kPocketInformantPath, L"IconPath", L"\\PI\\Icons");
    loaded_.load();
    SetInt(r().general.NoteZoom, 100);
    SetString(r().pocketInformant.IconPath, L"elsewhere");
    SetString(r().todayItem.ProgramFiles, L"\\Elsewhere");
    for (SettingGroup* group : r().groups) group->markAllDirty();
    SaveSettings(r());
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kProductPath, L"NoteZoom", 150);
    EXPECT_REG_STRING(HKEY_CURRENT_USER, kPocketInformantPath, L"IconPath", L"\\PI\\Icons");
    EXPECT_REG_STRING(HKEY_LOCAL_MACHINE, kTodayItemPath, L"ProgramFiles", L"\\Program Files");
    EXPECT_EQ(RegValueCountTree(HKEY_CURRENT_USER, L"Software\\Orvane"), 1u) << "NoteZoom as stored, nothing else";
}

TEST_F(SaveSettingsTest, LandscapeLimitOutside60To500IsNoneAndAPinnedMonthNeedsALimitOf200) {
    for (DWORD limit : {59u, 60u, 500u, 501u}) {
        SetInt(r().general.dHeightLimitLandscape, limit);
        SaveSettings(r());
        const bool kept = limit == 60 || limit == 500;
        EXPECT_EQ(r().general.dHeightLimitLandscape.value, kept ? limit : 0u) << limit;
        EXPECT_EQ(RegValueExists(HKEY_CURRENT_USER, kProductPath, L"dHeightLimitLandscape"), kept) << limit;
    }
    const DWORD limit200 = static_cast<DWORD>(ScaleForDisplay(200));
    for (DWORD limit : {limit200, limit200 - 1}) {
        SetInt(r().general.dHeightLimit, limit);
        SetInt(r().calendar.PinnedMonthlyClr, 1);
        SaveSettings(r());
        EXPECT_EQ(RegValueExists(HKEY_CURRENT_USER, kCalendarPath, L"PinnedMonthlyClr"), limit == limit200) << limit;
    }
}

TEST_F(SaveSettingsTest, PlugInSubKeysAreRebuiltFromTheListBeforeTheTabValuesAndContactsSurvives) {
    const std::wstring tabs = std::wstring(kTabsPath) + L"\\";
    RegPutString(HKEY_CURRENT_USER, (tabs + L"Contacts\\Alphabets").c_str(), L"Custom", L"ABC");
    RegPutDword(HKEY_CURRENT_USER, (tabs + L"Weather").c_str(), L"Order", 2);
    RegPutString(HKEY_CURRENT_USER, (tabs + L"Battery").c_str(), L"Extra", L"lost");
    RegPutString(HKEY_CURRENT_USER, (tabs + L"Battery\\Nested").c_str(), L"X", L"y");
    loaded_.load();
    // Loaded: Calendar 1, Weather 2, Tasks 3, Notes 4, Contacts 5, Mail 6, SEvents 7, Battery 8.
    TabList& list = r().tabSettings.tabs;
    list.findByOrder(8)->order = 9;
    list.findByOrder(9)->enabled = 1;
    list.findByOrder(6)->enabled = 0;
    list.remove(list.findByKindAndName(kTabPlugIn, L"Weather"));
    list.add(kTabPlugInTyped, 3, 1, L"Clock", L"clock.dll", L"\\Clock", L"clock.bmp");
    SetInt(r().tabSettings.DfltTab, 2);
    RegistryWriteRecorder recorder;
    SaveSettings(r());
    // The built-in values come from the entries: enabled values, then orders, then the default tab.
    const std::vector<std::wstring> tabValues = {L"CalendarTabOrder", L"TasksTabEnabled", L"MailTabEnabled",
        L"TasksTabOrder", L"NotesTabOrder", L"ContactsTabOrder", L"MailTabOrder", L"SEventsTabOrder", L"DfltTab"};
    EXPECT_EQ(recorder.written(tabValues), (std::vector<std::wstring>(tabValues.begin() + 2, tabValues.end())));
    EXPECT_FALSE(RegKeyExists(HKEY_CURRENT_USER, (tabs + L"Weather").c_str())) << "removed from the list";
    EXPECT_FALSE(RegKeyExists(HKEY_CURRENT_USER, (tabs + L"Battery\\Nested").c_str())) << "rewritten from scratch";
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, (tabs + L"Battery").c_str(), L"Enabled", 1);
    EXPECT_EQ(RegValueCount(HKEY_CURRENT_USER, tabs + L"Battery"), 1u) << "Order 9 and Type 0 are the defaults";
    const std::wstring clock = tabs + L"Clock";
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, clock.c_str(), L"Type", 1);
    EXPECT_REG_STRING(HKEY_CURRENT_USER, clock.c_str(), L"DLL", L"clock.dll");
    EXPECT_REG_STRING(HKEY_CURRENT_USER, clock.c_str(), L"InstallPath", L"\\Clock");
    EXPECT_REG_STRING(HKEY_CURRENT_USER, clock.c_str(), L"CustomIconName", L"clock.bmp");
    EXPECT_REG_STRING(HKEY_CURRENT_USER, (tabs + L"Contacts\\Alphabets").c_str(), L"Custom", L"ABC");
}

TEST(ChangeMessage, IsRegisteredOnceAndBroadcastWithZeroParameters) {
    static std::vector<std::pair<WPARAM, LPARAM>> received;
    EXPECT_EQ(SettingsChangedMessage(), RegisterWindowMessageW(L"OrvaneQuillorySettingsChanged"));
    EXPECT_EQ(g_app.settingsChangedMessage, SettingsChangedMessage());
    WNDPROC listen = [](HWND window, UINT msg, WPARAM wParam, LPARAM lParam) -> LRESULT {
        if (msg == g_app.settingsChangedMessage) received.push_back({wParam, lParam});
        return DefWindowProcW(window, msg, wParam, lParam);
    };
    HWND listener = CreateWindowExW(0, TestWindowClass(L"SettingsChangeListener", listen), L"listener", WS_OVERLAPPED,
                                    0, 0, 10, 10, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    PostSettingsChanged();
    PumpMessages();
    EXPECT_EQ(received, (std::vector<std::pair<WPARAM, LPARAM>>{{0, 0}})) << "once, wParam and lParam 0";
    DestroyWindow(listener);
}

}  // namespace
