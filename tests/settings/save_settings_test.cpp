#include <string>
#include <vector>

#include "settings/settings.h"
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
    void saveAndReload() {
        SaveSettings(*loaded_);
        loaded_.load();
    }
    SettingsRecord& r() { return *loaded_; }
    LoadedRecord loaded_;
};

void MarkAllDirty(SettingsRecord& record) {
    for (SettingGroup* group : record.groups) group->markAllDirty();
}

TEST_F(SaveSettingsTest, EveryKindRoundTripsAndChangedSettingsOnlyAreWritten) {
    SetInt(r().calendar.dNumOfDays, 14);
    SetString(r().general.SkinPath, L"\\Storage\\Skins\\Blue");
    SetInt(r().sevents.IncldCounters, 0);
    LOGFONTW font = r().fonts.FontTskOverdue.font;
    font.lfHeight = -18;
    font.lfWeight = 700;
    font.lfItalic = 1;
    r().fonts.FontTskOverdue.apply(font, RGB(200, 0, 0));
    // Never touched, so never written, although the registry holds nothing for it.
    r().calendar.TimelinesLength.value = 20;

    saveAndReload();
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kCalendarPath, L"dNumOfDays", 14);
    EXPECT_REG_STRING(HKEY_CURRENT_USER, kProductPath, L"SkinPath", L"\\Storage\\Skins\\Blue");
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, L"Software\\Orvane\\Quillory\\SEvents", L"IncldCounters", 0);
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kCalendarPath, L"IncldCounters");
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kFontsPath, L"FontTskOverduelfHeight", static_cast<DWORD>(-18));
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kFontsPath, L"FontTskOverduelfWeight", 700);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kFontsPath, L"FontTskOverduelfItalic", 1);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kFontsPath, L"FontTskOverduelfColor", RGB(200, 0, 0));
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kFontsPath, L"FontTskOverduelfUnderline") << "equal to its default";
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kCalendarPath, L"TimelinesLength");
    EXPECT_EQ(r().fonts.FontTskOverdue.font.lfHeight, -18);
    EXPECT_EQ(r().calendar.TimelinesLength.value, 18u);

    // Back to the defaults: the values disappear.
    SetInt(r().calendar.dNumOfDays, 7);
    SetString(r().general.SkinPath, L"");
    saveAndReload();
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kCalendarPath, L"dNumOfDays");
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kProductPath, L"SkinPath");
}

TEST_F(SaveSettingsTest, SetterAndApplyFontMarkDirtyEvenWithoutChange) {
    SetInt(r().general.OnClick, r().general.OnClick.value);
    EXPECT_EQ(r().general.OnClick.dirty, 1);
    FontSetting& general = r().fonts.FontGeneral;
    general.apply(general.font, general.colour.value);
    EXPECT_EQ(general.colour.dirty, 1);
    EXPECT_EQ(general.height.dirty, 1);
    SaveSettings(r());
    EXPECT_EQ(general.colour.dirty, 1) << "saving leaves the flags set";
    EXPECT_EQ(RegValueCountTree(HKEY_CURRENT_USER, kFontsPath), 0u) << "unchanged values equal their defaults";
}

TEST_F(SaveSettingsTest, AllDirtyAtDefaultsLeavesNoValueAndNeverWritesTheReadOnlyList) {
    // Values the plug-in keeps for itself, and other programs' values, with non-default contents.
    RegPutDword(HKEY_CURRENT_USER, kProductPath, L"NoteZoom", 150);
    RegPutDword(HKEY_CURRENT_USER, kProductPath, L"LastMinimizeState", 1);
    RegPutDword(HKEY_CURRENT_USER, kCalendarPath, L"CalendarSelFilter", 3);
    RegPutDword(HKEY_CURRENT_USER, kTasksPath, L"TsksSrt1", 4);
    RegPutString(HKEY_CURRENT_USER, L"Software\\Orvane\\Quillory\\Messages", L"FoldingStateAcct", L"1;0");
    RegPutString(HKEY_CURRENT_USER, kPocketInformantPath, L"IconPath", L"\\PI\\Icons");
    BYTE fold[16] = {1, 2, 3};
    RegPutRaw(HKEY_CURRENT_USER, kCalendarPath, L"FoldState", REG_BINARY, fold, 16);
    loaded_.load();
    // Overwrite the record with defaults, dirty everywhere: read-only settings must still not be written.
    SetInt(r().general.NoteZoom, 100);
    SetInt(r().general.LastMinimizeState, 0);
    SetInt(r().calendar.CalendarSelFilter, 0);
    SetInt(r().tasks.TsksSrt1, 0);
    SetString(r().messages.FoldingStateAcct, L"");
    SetString(r().pocketInformant.IconPath, L"elsewhere");
    SetString(r().todayItem.ProgramFiles, L"\\Elsewhere");
    MarkAllDirty(r());

    SaveSettings(r());
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kProductPath, L"NoteZoom", 150);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kProductPath, L"LastMinimizeState", 1);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kCalendarPath, L"CalendarSelFilter", 3);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kTasksPath, L"TsksSrt1", 4);
    EXPECT_REG_STRING(HKEY_CURRENT_USER, L"Software\\Orvane\\Quillory\\Messages", L"FoldingStateAcct", L"1;0");
    EXPECT_REG_STRING(HKEY_CURRENT_USER, kPocketInformantPath, L"IconPath", L"\\PI\\Icons");
    EXPECT_REG_STRING(HKEY_LOCAL_MACHINE, kTodayItemPath, L"ProgramFiles", L"\\Program Files");
    EXPECT_TRUE(RegValueExists(HKEY_CURRENT_USER, kCalendarPath, L"FoldState"));
    // Everything else equals its default and is therefore absent.
    EXPECT_EQ(RegValueCountTree(HKEY_CURRENT_USER, L"Software\\Orvane"), 6u);
}

TEST_F(SaveSettingsTest, LandscapeHeightLimitOutside60To500IsStoredAsNone) {
    struct Case {
        DWORD value;
        bool kept;
    };
    for (Case c : {Case{59, false}, Case{60, true}, Case{500, true}, Case{501, false}, Case{0xFFFFFFFF, false}}) {
        RegPutDword(HKEY_CURRENT_USER, kProductPath, L"dHeightLimitLandscape", 300);
        loaded_.load();
        SetInt(r().general.dHeightLimitLandscape, c.value);
        SaveSettings(r());
        if (c.kept) {
            EXPECT_REG_DWORD(HKEY_CURRENT_USER, kProductPath, L"dHeightLimitLandscape", c.value);
        } else {
            EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kProductPath, L"dHeightLimitLandscape") << c.value;
            EXPECT_EQ(r().general.dHeightLimitLandscape.value, 0u);
        }
    }
}

TEST_F(SaveSettingsTest, PinnedMonthCalendarNeedsAHeightLimitOf200) {
    const DWORD limit200 = static_cast<DWORD>(ScaleForDisplay(200));
    SetInt(r().general.dHeightLimit, limit200 - 1);
    SetInt(r().calendar.PinnedMonthlyClr, 1);
    SaveSettings(r());
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kCalendarPath, L"PinnedMonthlyClr");
    EXPECT_EQ(r().calendar.PinnedMonthlyClr.value, 0u);

    SetInt(r().general.dHeightLimit, limit200);
    SetInt(r().calendar.PinnedMonthlyClr, 1);
    SaveSettings(r());
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kCalendarPath, L"PinnedMonthlyClr", 1);

    // The rule also applies to a pinned calendar that was not changed in this session.
    loaded_.load();
    SetInt(r().general.dHeightLimit, 100);
    SaveSettings(r());
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kCalendarPath, L"PinnedMonthlyClr");
}

TEST_F(SaveSettingsTest, TabSettingsAreWrittenEnabledValuesFirstThenOrdersThenTheDefaultTab) {
    const std::vector<std::wstring> expected = {
        L"CalendarTabEnabled", L"TasksTabEnabled",  L"NotesTabEnabled", L"ContactsTabEnabled", L"MailTabEnabled",
        L"SEventsTabEnabled",  L"CalendarTabOrder", L"TasksTabOrder",   L"NotesTabOrder",      L"ContactsTabOrder",
        L"MailTabOrder",       L"SEventsTabOrder",  L"DfltTabTimeOut",  L"DfltTab",            L"DfltTabOnStartup"};
    // Every tab disabled and numbered backwards: all fifteen values differ from their defaults.
    DWORD order = 6;
    for (TabEntry* e = r().tabSettings.tabs.head(); e; e = e->next) {
        e->enabled = 0;
        e->order = order--;
    }
    SetInt(r().tabSettings.DfltTabTimeOut, 30);
    SetInt(r().tabSettings.DfltTab, 2);
    SetInt(r().tabSettings.DfltTabOnStartup, 1);
    RegistryWriteRecorder recorder;
    ASSERT_TRUE(recorder.recording());
    SaveSettings(r());
    EXPECT_EQ(Join(recorder.written(expected)), Join(expected));
    EXPECT_EQ(RegValueCount(HKEY_CURRENT_USER, kTabsPath), 15u);
}

class TabSaving : public SaveSettingsTest {
protected:
    void SetUp() override {
        RemoveProductKeys();
        std::wstring contacts = std::wstring(kTabsPath) + L"\\Contacts";
        RegPutDword(HKEY_CURRENT_USER, contacts.c_str(), L"Order", 1);
        RegPutString(HKEY_CURRENT_USER, (contacts + L"\\Alphabets").c_str(), L"Custom", L"ABC");
        putPlugIn(L"Weather", 2, 1, 1);
        RegPutString(HKEY_CURRENT_USER, (std::wstring(kTabsPath) + L"\\Weather").c_str(), L"DLL", L"weather.dll");
        RegPutString(HKEY_CURRENT_USER, (std::wstring(kTabsPath) + L"\\Weather").c_str(), L"Extra", L"lost");
        putPlugIn(L"Battery", 8, 0, 0);
        RegPutString(HKEY_CURRENT_USER, (std::wstring(kTabsPath) + L"\\Battery\\Nested").c_str(), L"X", L"y");
        loaded_.load();
    }
    static void putPlugIn(const wchar_t* name, DWORD order, DWORD type, DWORD enabled) {
        std::wstring path = std::wstring(kTabsPath) + L"\\" + name;
        RegPutDword(HKEY_CURRENT_USER, path.c_str(), L"Order", order);
        RegPutDword(HKEY_CURRENT_USER, path.c_str(), L"Type", type);
        RegPutDword(HKEY_CURRENT_USER, path.c_str(), L"Enabled", enabled);
    }
    static std::wstring sub(const wchar_t* name) { return std::wstring(kTabsPath) + L"\\" + name; }
};

TEST_F(TabSaving, PlugInSubKeysAreRebuiltFromTheListAndContactsSurvives) {
    // Loaded: Calendar 1, Weather 2, Tasks 3, Notes 4, Contacts 5, Mail 6, SEvents 7, Battery 8.
    TabList& tabs = r().tabSettings.tabs;
    ASSERT_NE(tabs.findByKindAndName(kTabPlugInTyped, L"Weather"), nullptr);
    TabEntry* battery = tabs.findByKindAndName(kTabPlugIn, L"Battery");
    ASSERT_NE(battery, nullptr);
    EXPECT_EQ(battery->order, 8u);
    battery->order = 9;
    battery->enabled = 1;
    tabs.remove(tabs.findByKindAndName(kTabPlugInTyped, L"Weather"));
    tabs.add(kTabPlugInTyped, 9, 1, L"Clock", L"clock.dll", L"\\Clock", L"clock.bmp");

    SaveSettings(r());
    EXPECT_FALSE(RegKeyExists(HKEY_CURRENT_USER, sub(L"Weather").c_str())) << "removed from the list";
    EXPECT_FALSE(RegKeyExists(HKEY_CURRENT_USER, sub(L"Battery\\Nested").c_str())) << "rewritten from scratch";
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, sub(L"Battery").c_str(), L"Enabled", 1);
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, sub(L"Battery").c_str(), L"Order") << "9 is the default order";
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, sub(L"Battery").c_str(), L"Type");
    EXPECT_EQ(RegValueCount(HKEY_CURRENT_USER, sub(L"Battery").c_str()), 1u);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, sub(L"Clock").c_str(), L"Type", 1);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, sub(L"Clock").c_str(), L"Enabled", 1);
    EXPECT_REG_STRING(HKEY_CURRENT_USER, sub(L"Clock").c_str(), L"DLL", L"clock.dll");
    EXPECT_REG_STRING(HKEY_CURRENT_USER, sub(L"Clock").c_str(), L"InstallPath", L"\\Clock");
    EXPECT_REG_STRING(HKEY_CURRENT_USER, sub(L"Clock").c_str(), L"CustomIconName", L"clock.bmp");
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, sub(L"Contacts").c_str(), L"Order", 1);
    EXPECT_REG_STRING(HKEY_CURRENT_USER, sub(L"Contacts\\Alphabets").c_str(), L"Custom", L"ABC");

    // Built-in orders come from the entries: Tasks 3 .. SEvents 7 differ from 2 .. 6 and are written.
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kTabsPath, L"CalendarTabOrder");
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kTabsPath, L"TasksTabOrder", 3);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kTabsPath, L"SEventsTabOrder", 7);
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kTabsPath, L"TasksTabEnabled");
}

TEST_F(TabSaving, OrdersStoredByTheTabsPageComeBackInThatOrder) {
    // As the tabs page stores them: rows below the unlisted Calendar tab get orders 2, 3, ...
    const wchar_t* rows[] = {L"SEvents", L"Battery", L"Tasks", L"Weather", L"Notes", L"Contacts", L"Mail"};
    std::vector<TabEntry*> entries;
    for (TabEntry* e = r().tabSettings.tabs.head(); e; e = e->next) entries.push_back(e);
    auto entryFor = [&](const wchar_t* row) -> TabEntry* {
        static const std::pair<const wchar_t*, DWORD> kinds[] = {{L"SEvents", kTabSEvents}, {L"Tasks", kTabTasks},
                                                                 {L"Notes", kTabNotes},     {L"Contacts", kTabContacts},
                                                                 {L"Mail", kTabMail}};
        for (auto& k : kinds)
            if (std::wstring(k.first) == row) return r().tabSettings.tabs.findByKind(k.second);
        for (TabEntry* e : entries)
            if (std::wstring(e->name.c_str()) == row) return e;
        return nullptr;
    };
    DWORD order = 2;
    for (const wchar_t* row : rows) {
        TabEntry* entry = entryFor(row);
        ASSERT_NE(entry, nullptr) << Narrow(row);
        entry->order = order++;
        entry->enabled = std::wstring(row) != L"Mail";
    }
    saveAndReload();

    std::vector<std::wstring> names;
    for (const TabEntry* e = r().tabSettings.tabs.head(); e; e = e->next)
        names.push_back(std::to_wstring(e->kind) + (e->kind <= 2 ? std::wstring(L"-") + e->name.c_str() : L"") +
                        (e->enabled ? L"" : L"(off)"));
    EXPECT_EQ(Join(names), "4 16 1-Battery 8 2-Weather 32 128 64(off)");
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kTabsPath, L"MailTabEnabled", 0);
}

TEST(ChangeMessage, IsRegisteredOnceAndBroadcastWithZeroParameters) {
    static UINT received = 0;
    static WPARAM receivedW = 1;
    static LPARAM receivedL = 1;
    UINT message = SettingsChangedMessage();
    EXPECT_EQ(message, RegisterWindowMessageW(L"OrvaneQuillorySettingsChanged"));
    EXPECT_EQ(SettingsChangedMessage(), message);

    WNDPROC listen = [](HWND window, UINT msg, WPARAM wParam, LPARAM lParam) -> LRESULT {
        if (msg == g_app.settingsChangedMessage) {
            ++received;
            receivedW = wParam;
            receivedL = lParam;
            return 0;
        }
        return DefWindowProcW(window, msg, wParam, lParam);
    };
    const wchar_t* listenerClass = TestWindowClass(L"SettingsChangeListener", listen);
    ASSERT_NE(listenerClass, nullptr);
    HWND listener = CreateWindowExW(0, listenerClass, L"listener", WS_OVERLAPPED, 0, 0, 10, 10, nullptr, nullptr,
                                    GetModuleHandleW(nullptr), nullptr);
    ASSERT_NE(listener, nullptr);

    PostSettingsChanged();
    PumpMessages();
    EXPECT_EQ(received, 1u);
    EXPECT_EQ(receivedW, 0u);
    EXPECT_EQ(receivedL, 0);
    DestroyWindow(listener);
}

}  // namespace
