#include <cwchar>
#include <random>
#include <string>
#include <vector>

#include "settings_test_util.h"

namespace {

class LoadSettingsTest : public ::testing::Test {
protected:
    void SetUp() override { RemoveProductKeys(); }
    void TearDown() override {
        RemoveProductKeys();
        RegRemoveTree(HKEY_LOCAL_MACHINE, kTodayItemPath);
        RegPutString(HKEY_LOCAL_MACHINE, kTodayItemPath, L"ProgramFiles", L"\\Program Files");
    }
    SettingsRecord& load() {
        loaded_.load();
        return *loaded_.record;
    }
    LoadedRecord loaded_;
};

// The tab list, head first, as "name:kind:order:enabled " entries.
std::string Tabs(const SettingsRecord& record) {
    std::string tabs;
    for (const TabEntry* e = record.tabSettings.tabs.head(); e; e = e->next)
        tabs += Narrow(e->name.c_str()) + ":" + std::to_string(e->kind) + ":" + std::to_string(e->order) + ":" +
                std::to_string(e->enabled) + " ";
    return tabs;
}

TEST_F(LoadSettingsTest, EmptyRegistryGivesTheDefaultsCleanAndWritesNothing) {
    RegRemoveTree(HKEY_LOCAL_MACHINE, kTodayItemPath);
    SettingsRecord& r = load();
    EXPECT_FALSE(RegKeyExists(HKEY_LOCAL_MACHINE, kTodayItemPath)) << "the Today item's key is never created";
    EXPECT_TRUE(RegKeyExists(HKEY_LOCAL_MACHINE, kAgendaFusionPath)) << "keys 1 to 14 are";
    EXPECT_TRUE(RegKeyExists(HKEY_CURRENT_USER, L"Software\\Orvane\\Quillory\\Categories"));
    EXPECT_STREQ(r.installFolder.c_str(), L"\\Program Files\\Orvane\\Quillory");
    EXPECT_STREQ(r.general.QLIconsFolder.c_str(), L"\\Program Files\\Orvane\\Quillory\\CategoryIcons");
    wchar_t firstDay[5] = {};
    GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_IFIRSTDAYOFWEEK, firstDay, 5);
    EXPECT_EQ(r.calendar.MonthlyStartDay.value, static_cast<DWORD>(wcstol(firstDay, nullptr, 10)));
    const FontSetting& general = r.fonts.FontGeneral;
    EXPECT_STREQ(general.font.lfFaceName, L"Tahoma");
    EXPECT_EQ(general.font.lfHeight, 12);
    EXPECT_EQ(general.font.lfWeight, 100);
    EXPECT_EQ(general.font.lfItalic + general.font.lfUnderline + general.font.lfStrikeOut + general.font.lfQuality, 0);
    EXPECT_EQ(general.colour.value, 0xFFFFFFFFu) << "no colour of its own";
    EXPECT_EQ(general.colour.defaultValue, 0xFFFFFFFFu);
    EXPECT_EQ(r.fonts.FontMailUnread.font.lfWeight, 700);
    EXPECT_EQ(r.fonts.FontCalPast.font.lfStrikeOut, 1);
    EXPECT_EQ(DirtySettings(r), "");
    EXPECT_EQ(RegValueCountTree(HKEY_CURRENT_USER, L"Software\\Orvane"), 0u) << "loading writes no value";
}

TEST_F(LoadSettingsTest, StoredValuesAreReadUnderTheirExactNamesKeysAndTypeRules) {
    const std::wstring product = kProductPath;
    RegPutString(HKEY_LOCAL_MACHINE, kTodayItemPath, L"ProgramFiles", L"\\Programs");
    RegPutString(HKEY_LOCAL_MACHINE, kTodayItemPath, L"InstallPath", L"\\Card");
    RegPutString(HKEY_CURRENT_USER, kPocketInformantPath, L"WebIS_Folder", L"\\Card");
    RegPutDword(HKEY_CURRENT_USER, (product + L"\\SEvents").c_str(), L"IncldCounters", 0);
    RegPutDword(HKEY_CURRENT_USER, (product + L"\\CustomPIM").c_str(), L"OverridePimCatColros", 1);
    RegPutDword(HKEY_CURRENT_USER, (product + L"\\Colors").c_str(), L"SeperatorLineClr", 0x123456);
    RegPutString(HKEY_CURRENT_USER, (product + L"\\Categories").c_str(), L"AdditionalIconsFolder", L"\\Icons");
    RegPutDword(HKEY_CURRENT_USER, kCalendarPath, L"Force2DigitsTImeFrmt", 1);
    RegPutString(HKEY_CURRENT_USER, kCalendarPath, L"dNumOfDays", L"120 days");  // more than four bytes
    RegPutRaw(HKEY_CURRENT_USER, kCalendarPath, L"TimelinesLength", REG_BINARY, "\x0C", 1);
    RegPutDword(HKEY_CURRENT_USER, kProductPath, L"SkinPath", 0x00420041);
    RegPutString(HKEY_CURRENT_USER, kFontsPath, L"FontFaceToUse", L"Courier New");
    RegPutDword(HKEY_CURRENT_USER, kFontsPath, L"ForceClearType", 1);
    RegPutDword(HKEY_CURRENT_USER, kFontsPath, L"FontNoteItemslfHeight", static_cast<DWORD>(-20));
    RegPutDword(HKEY_CURRENT_USER, kFontsPath, L"FontNoteItemslfColor", 0x0000FF);

    SettingsRecord& r = load();
    EXPECT_STREQ(r.general.QLIconsFolder.c_str(), L"\\Programs\\Orvane\\Quillory\\CategoryIcons");
    EXPECT_STREQ(r.installFolder.c_str(), L"\\Card\\Orvane\\Quillory");
    EXPECT_STREQ(r.pocketInformant.PIVOL.c_str(), L"\\Card\\WebIS\\PocketInformant.vol");
    EXPECT_EQ(r.sevents.IncldCounters.value, 0u);
    EXPECT_EQ(r.calendar.IncldCounters.value, 0u) << "same name under another key is another setting";
    EXPECT_EQ(r.customPim.OverridePimCatColros.value, 1u);
    EXPECT_EQ(r.colors.SeperatorLineClr.value, 0x123456u);
    EXPECT_STREQ(r.categories.AdditionalIconsFolder.c_str(), L"\\Icons");
    EXPECT_EQ(r.calendar.Force2DigitsTImeFrmt.value, 1u);
    EXPECT_EQ(r.calendar.dNumOfDays.value, 7u);
    EXPECT_EQ(r.calendar.TimelinesLength.value, 12u);
    EXPECT_STREQ(r.general.SkinPath.c_str(), L"AB");
    const LOGFONTW& notes = r.fonts.FontNoteItems.font;
    EXPECT_STREQ(notes.lfFaceName, L"Courier New");
    EXPECT_EQ(notes.lfQuality, 5) << "ClearType quality";
    EXPECT_EQ(notes.lfHeight, -20);
    EXPECT_EQ(r.fonts.FontNoteItems.colour.value, 0x0000FFu);
    EXPECT_EQ(r.fonts.FontGeneral.font.lfHeight, 12) << "other fonts keep their defaults";
    EXPECT_EQ(DirtySettings(r), "");
}

TEST_F(LoadSettingsTest, EachFoldStateBitIsReadApartFromItsNeighboursUpToTheLastBit) {
    BYTE bytes[16];
    for (BYTE pattern : {0x55, 0xAA}) {  // every bit the opposite of both neighbours, across byte edges
        memset(bytes, pattern, 16);
        RegPutRaw(HKEY_CURRENT_USER, kCalendarPath, L"FoldState", REG_BINARY, bytes, 16);
        RegPutRaw(HKEY_CURRENT_USER, kTasksPath, L"FoldState", REG_BINARY, bytes, 6);
        SettingsRecord& r = load();
        for (int n = 0; n < 125; ++n) ASSERT_EQ(r.calendar.FoldState.bit(n), (n % 2 == 0) == (pattern == 0x55)) << n;
        for (int n = 0; n < 41; ++n) ASSERT_EQ(r.tasks.FoldState.bit(n), (n % 2 == 0) == (pattern == 0x55)) << n;
        EXPECT_FALSE(r.calendar.FoldState.bit(125) || r.tasks.FoldState.bit(41) || r.tasks.FoldState.bit(-1))
            << "bits past the count read as clear although the last byte holds them";
    }
    RegPutRaw(HKEY_CURRENT_USER, kCalendarPath, L"FoldState", REG_BINARY, bytes, 15);
    RegPutRaw(HKEY_CURRENT_USER, kTasksPath, L"FoldState", REG_DWORD, bytes, 6);
    EXPECT_FALSE(load().calendar.FoldState.bit(1)) << "15 bytes are ignored whole";
    EXPECT_FALSE(loaded_->tasks.FoldState.bit(1)) << "only REG_BINARY is taken";
}

TEST_F(LoadSettingsTest, DaysToShowOutsideOneTo120AndABrokenTitleOrderAreRepairedAndDirty) {
    for (DWORD days : {0u, 1u, 120u, 121u}) {
        RegPutDword(HKEY_CURRENT_USER, kCalendarPath, L"dNumOfDays", days);
        const bool valid = days == 1 || days == 120;
        EXPECT_EQ(load().calendar.dNumOfDays.value, valid ? days : 7u) << days;
        EXPECT_EQ(loaded_->calendar.dNumOfDays.dirty, valid ? 0 : 1) << days;
    }
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kCalendarPath, L"dNumOfDays", 121) << "the repair is not written";

    const std::vector<std::vector<DWORD>> orders = {{5, 4, 3, 2, 1, 0}, {0, 1, 2, 3, 4, 4}, {0, 1, 2, 3, 4, 6}};
    for (const std::vector<DWORD>& stored : orders) {
        for (int i = 0; i < 6; ++i)
            RegPutDword(HKEY_CURRENT_USER, kCalendarPath, (L"CalTitlesOrder" + std::to_wstring(i)).c_str(), stored[i]);
        const bool permutation = stored == orders[0];
        IntSetting* slots = load().calendar.CalTitlesOrder;
        for (int i = 0; i < 6; ++i) {
            EXPECT_EQ(slots[i].value, permutation ? stored[i] : static_cast<DWORD>(i)) << stored[5];
            EXPECT_EQ(slots[i].dirty, permutation ? 0 : 1) << stored[5];
        }
    }
}

TEST_F(LoadSettingsTest, LanguageLibraryFallsBackAndTheOldHandleIsFreed) {
    RegPutString(HKEY_CURRENT_USER, kProductPath, L"SelectedLangResFile", L"\\Nowhere\\Lang.dll");
    load();
    wchar_t title[64] = {};
    LoadStringW(loaded_.library, 41180, title, 64);
    EXPECT_STRNE(title, L"") << "the product's English library under \\Program Files";
    EXPECT_STREQ(loaded_->tabSettings.tabs.head()->name.c_str(), title);
    RegPutString(HKEY_LOCAL_MACHINE, kTodayItemPath, L"ProgramFiles", L"\\Nowhere");
    EXPECT_STREQ(load().tabSettings.tabs.head()->name.c_str(), L"");
    EXPECT_EQ(loaded_.library, nullptr);
    EXPECT_EQ(GetModuleHandleW(L"QLEngRc.dll"), nullptr) << "the earlier library was freed";
}

TEST(TwelveHourClock, LocaleTimeOneOrFortyNineClearsIt) {
    const std::pair<const wchar_t*, int> cases[] = {{L"1", 0}, {L"0", 1}, {L"49", 0}, {L"4", 1}, {L"", 1}, {nullptr, 1}};
    for (const auto& c : cases) EXPECT_EQ(TwelveHourClockFromTimeFormat(c.first), c.second) << (c.first ? 1 : 0);
}

class TabLoading : public LoadSettingsTest {
protected:
    void SetUp() override {
        LoadSettingsTest::SetUp();
        // No language library: built-in tabs have empty titles and are told apart by kind.
        RegPutString(HKEY_CURRENT_USER, kProductPath, L"SelectedLangResFile", L"\\Nowhere\\Lang.dll");
        RegPutString(HKEY_LOCAL_MACHINE, kTodayItemPath, L"ProgramFiles", L"\\Nowhere");
    }
    static std::wstring sub(const wchar_t* name) { return std::wstring(kTabsPath) + L"\\" + name; }
    static void plugIn(const wchar_t* name, int order, DWORD type = 0, DWORD enabled = 1) {
        if (order >= 0) RegPutDword(HKEY_CURRENT_USER, sub(name).c_str(), L"Order", static_cast<DWORD>(order));
        RegPutDword(HKEY_CURRENT_USER, sub(name).c_str(), L"Type", type);
        RegPutDword(HKEY_CURRENT_USER, sub(name).c_str(), L"Enabled", enabled);
    }
    static void putTab(const wchar_t* name, DWORD value) { RegPutDword(HKEY_CURRENT_USER, kTabsPath, name, value); }
};

TEST_F(TabLoading, PlugInSubKeysAreInsertedByOrderAndRenumbered) {
    plugIn(L"Zeta", 2);
    plugIn(L"Alpha", -1);
    plugIn(L"Beta", 2, 1, 0);
    plugIn(L"Contacts", 1);  // the contacts tab's own options, never a tab
    RegPutString(HKEY_CURRENT_USER, sub(L"Zeta").c_str(), L"DLL", L"\\Windows\\zeta.dll");
    putTab(L"SEventsTabOrder", 1);
    putTab(L"MailTabEnabled", 0);
    // Built-ins first (orders 1,2,3,4,5,1), then Alpha (9), Beta (2), Zeta (2) as enumerated:
    // an equal order goes after the head, and in front of later equal entries.
    EXPECT_EQ(Tabs(load()), ":4:1:1 :16:2:1 Zeta:1:3:1 Beta:2:4:0 :8:5:1 :32:6:1 :128:7:1 :64:8:0 Alpha:1:9:1 ");
    EXPECT_STREQ(loaded_->tabSettings.tabs.findByOrder(3)->dll.c_str(), L"\\Windows\\zeta.dll");
    EXPECT_EQ(RegValueCountTree(HKEY_CURRENT_USER, kTabsPath), 14u) << "nothing written while loading";
}

TEST_F(TabLoading, PlugInWithoutOrderGoesInFrontOfTheTabOrderedNineAndKeepsItsPositionWhenSaved) {
    putTab(L"ContactsTabOrder", 8);
    putTab(L"SEventsTabOrder", 9);
    putTab(L"MailTabOrder", 10);
    plugIn(L"Clock", -1);
    EXPECT_EQ(Tabs(load()), ":4:1:1 :8:2:1 :32:3:1 :128:4:1 Clock:1:5:1 :16:6:1 :64:7:1 ");
    SaveSettings(*loaded_.record);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, sub(L"Clock").c_str(), L"Order", 5);
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kTabsPath, L"SEventsTabOrder") << "6 is its default";
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kTabsPath, L"MailTabOrder", 7);
}

TEST_F(TabLoading, ActiveTabMustNameAnEnabledBuiltInTabAndTheStartupTabOverridesIt) {
    plugIn(L"Weather", 3, 1, 1);
    putTab(L"NotesTabEnabled", 0);
    // Positions: Calendar 1, Tasks 2, Weather 3, Notes 4 (disabled), Contacts 5, Mail 6, SEvents 7.
    for (DWORD stored : {2u, 7u, 3u, 4u, 8u, 0u}) {
        RegPutDword(HKEY_CURRENT_USER, kProductPath, L"ActiveTab", stored);
        const bool kept = stored == 2 || stored == 7;
        EXPECT_EQ(load().general.ActiveTab.value, kept ? stored : 1u) << stored;
        EXPECT_EQ(loaded_->general.ActiveTab.dirty, kept ? 0 : 1) << stored;
    }
    // DfltTab counts Calendar, Tasks, Notes, Contacts, Mail, SEvents, whatever their positions.
    putTab(L"DfltTabOnStartup", 1);
    RegPutDword(HKEY_CURRENT_USER, kProductPath, L"ActiveTab", 2);
    const std::pair<DWORD, DWORD> cases[] = {{0, 1}, {2, 4}, {3, 5}, {4, 6}, {5, 7}, {6, 2}, {0xFFFFFFFF, 2}};
    for (const auto& c : cases) {
        putTab(L"DfltTab", c.first);
        EXPECT_EQ(load().general.ActiveTab.value, c.second) << "DfltTab " << static_cast<int>(c.first);
    }
    putTab(L"DfltTabOnStartup", 2);
    putTab(L"DfltTab", 3);
    EXPECT_EQ(load().general.ActiveTab.value, 2u) << "only DfltTabOnStartup = 1 applies the start-up tab";
}

// Random values of random types and sizes under the value names the record reads.
TEST_F(LoadSettingsTest, SeededGarbageNeverBreaksTheInvariantsNorWrites) {
    const DWORD types[] = {REG_DWORD, REG_SZ, REG_BINARY, REG_MULTI_SZ, REG_NONE, REG_QWORD};
    for (unsigned seed = 1; seed <= 4; ++seed) {
        RemoveProductKeys();
        std::mt19937 random(seed);
        for (SettingGroup* group : load().groups)
            for (Setting* setting : group->settings()) {
                std::wstring name = setting->valueName.c_str();
                if (group->keyIndex() == kKeyTodayItem || random() % 3 == 0) continue;
                if (dynamic_cast<FontSetting*>(setting)) name += random() % 2 ? L"lfHeight" : L"lfColor";
                BYTE data[40];
                for (BYTE& b : data) b = static_cast<BYTE>(random());
                RegPutRaw(KeyRoot(group->keyIndex()), KeyPath(group->keyIndex()), name.c_str(), types[random() % 6],
                          data, random() % 3 == 0 ? 4 : random() % 40);
            }
        for (int i = 0; i < 5; ++i)
            RegPutDword(HKEY_CURRENT_USER, (std::wstring(kTabsPath) + L"\\P" + std::to_wstring(random() % 9)).c_str(),
                        random() % 2 ? L"Order" : L"Type", random() % 12);
        DWORD valuesBefore = RegValueCountTree(HKEY_CURRENT_USER, L"Software\\Orvane");

        SettingsRecord& r = load();
        EXPECT_LE(r.calendar.dNumOfDays.value - 1, 119u) << "seed " << seed;
        unsigned used = 0;
        for (IntSetting& slot : r.calendar.CalTitlesOrder) used |= slot.value < 6 ? 1u << slot.value : 0x40u;
        EXPECT_EQ(used, 0x3Fu) << "seed " << seed;
        ASSERT_NE(r.tabSettings.tabs.findByOrder(r.general.ActiveTab.value), nullptr) << "seed " << seed;
        DWORD position = 1;
        for (const TabEntry* e = r.tabSettings.tabs.head(); e; e = e->next) EXPECT_EQ(e->order, position++);
        EXPECT_EQ(RegValueCountTree(HKEY_CURRENT_USER, L"Software\\Orvane"), valuesBefore) << "seed " << seed;
    }
}

}  // namespace
