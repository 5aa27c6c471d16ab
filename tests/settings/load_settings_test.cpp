#include <cwchar>
#include <functional>
#include <random>

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

// The tab list, head first, as "name:kind:order:enabled " entries (built-in tabs without their titles).
std::string Tabs(const SettingsRecord& record) {
    std::string tabs;
    for (const TabEntry* e = record.tabSettings.tabs.head(); e; e = e->next)
        tabs += (IsBuiltInTabKind(e->kind) ? "" : Narrow(e->name.c_str())) + ":" + std::to_string(e->kind) + ":" +
                std::to_string(e->order) + ":" + std::to_string(e->enabled) + " ";
    return tabs;
}

std::wstring TabKey(const wchar_t* name) { return std::wstring(kTabsPath) + L"\\" + name; }
void PutPlugIn(const wchar_t* name, int order, DWORD type = 0, DWORD enabled = 1) {
    if (order >= 0) RegPutDword(HKEY_CURRENT_USER, TabKey(name).c_str(), L"Order", static_cast<DWORD>(order));
    RegPutDword(HKEY_CURRENT_USER, TabKey(name).c_str(), L"Type", type);
    RegPutDword(HKEY_CURRENT_USER, TabKey(name).c_str(), L"Enabled", enabled);
}
void PutTabValue(const wchar_t* name, DWORD value) { RegPutDword(HKEY_CURRENT_USER, kTabsPath, name, value); }

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
    EXPECT_EQ(DirtySettings(r), "");
}

TEST_F(LoadSettingsTest, EachFoldStateBitIsReadApartFromItsNeighboursAndItsByteUpToTheLastBit) {
    // Alternating bits set each bit against both neighbours, across byte edges; two full bytes
    // among empty ones place the bits by byte.
    const std::function<bool(int)> layouts[] = {[](int n) { return n % 2 == 0; }, [](int n) { return n % 2 == 1; },
                                                [](int n) { return n / 8 == 4 || n / 8 == 9; }};
    for (const auto& set : layouts) {
        BYTE bytes[16] = {};
        for (int n = 0; n < 128; ++n) bytes[n / 8] |= set(n) ? 1 << (n % 8) : 0;
        RegPutRaw(HKEY_CURRENT_USER, kCalendarPath, L"FoldState", REG_BINARY, bytes, 16);
        RegPutRaw(HKEY_CURRENT_USER, kTasksPath, L"FoldState", REG_BINARY, bytes, 6);
        SettingsRecord& r = load();
        for (int n = 0; n < 125; ++n) ASSERT_EQ(r.calendar.FoldState.bit(n), set(n)) << n;
        for (int n = 0; n < 41; ++n) ASSERT_EQ(r.tasks.FoldState.bit(n), set(n)) << n;
        EXPECT_FALSE(r.calendar.FoldState.bit(125) || r.tasks.FoldState.bit(41) || r.tasks.FoldState.bit(-1))
            << "bits past the count read as clear although the last byte holds them";
    }
    const BYTE ones[16] = {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF};
    RegPutRaw(HKEY_CURRENT_USER, kCalendarPath, L"FoldState", REG_BINARY, ones, 15);
    RegPutRaw(HKEY_CURRENT_USER, kTasksPath, L"FoldState", REG_DWORD, ones, 6);
    EXPECT_FALSE(load().calendar.FoldState.bit(0)) << "15 bytes are ignored whole";
    EXPECT_FALSE(loaded_->tasks.FoldState.bit(0)) << "only REG_BINARY is taken";
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

TEST_F(LoadSettingsTest, TabsAreInsertedByOrderFromTheBuiltInsThenThePlugInSubKeysAndRenumbered) {
    PutTabValue(L"NotesTabOrder", 1);
    PutTabValue(L"ContactsTabOrder", 8);
    PutTabValue(L"SEventsTabOrder", 9);
    PutTabValue(L"MailTabOrder", 10);
    PutTabValue(L"MailTabEnabled", 0);
    PutPlugIn(L"Alpha", -1);
    PutPlugIn(L"Beta", 2, 1, 0);
    PutPlugIn(L"Contacts", 1);  // the contacts tab's own options, never a tab
    PutPlugIn(L"Zeta", 2);
    RegPutString(HKEY_CURRENT_USER, TabKey(L"Zeta").c_str(), L"DLL", L"\\Windows\\zeta.dll");
    // An order equal to the head's goes right after it; among later equal orders a new entry goes
    // in front; a plug-in without an order has order 9. Sub-keys come in name order.
    EXPECT_EQ(Tabs(load()), ":4:1:1 :32:2:1 Zeta:1:3:1 Beta:2:4:0 :8:5:1 :128:6:1 Alpha:1:7:1 :16:8:1 :64:9:0 ");
    EXPECT_STREQ(loaded_->tabSettings.tabs.findByOrder(3)->dll.c_str(), L"\\Windows\\zeta.dll");
    SaveSettings(*loaded_.record);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, TabKey(L"Alpha").c_str(), L"Order", 7);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kTabsPath, L"SEventsTabOrder", 8);
}

TEST_F(LoadSettingsTest, ActiveTabMustNameAnEnabledBuiltInTabAndTheStartupTabOverridesIt) {
    PutPlugIn(L"Weather", 3, 1);
    PutTabValue(L"NotesTabEnabled", 0);
    // Positions: Calendar 1, Tasks 2, Weather 3, Notes 4 (disabled), Contacts 5, Mail 6, SEvents 7.
    for (DWORD stored : {2u, 7u, 3u, 4u, 8u, 0u}) {
        RegPutDword(HKEY_CURRENT_USER, kProductPath, L"ActiveTab", stored);
        const bool kept = stored == 2 || stored == 7;
        EXPECT_EQ(load().general.ActiveTab.value, kept ? stored : 1u) << stored;
        EXPECT_EQ(loaded_->general.ActiveTab.dirty, kept ? 0 : 1) << stored;
    }
    // DfltTab counts Calendar, Tasks, Notes, Contacts, Mail, SEvents, whatever their positions.
    PutTabValue(L"DfltTabOnStartup", 1);
    RegPutDword(HKEY_CURRENT_USER, kProductPath, L"ActiveTab", 2);
    const std::pair<DWORD, DWORD> cases[] = {{0, 1}, {2, 4}, {3, 5}, {4, 6}, {5, 7}, {6, 2}, {0xFFFFFFFF, 2}};
    for (const auto& c : cases) {
        PutTabValue(L"DfltTab", c.first);
        EXPECT_EQ(load().general.ActiveTab.value, c.second) << "DfltTab " << static_cast<int>(c.first);
    }
    PutTabValue(L"DfltTabOnStartup", 2);
    PutTabValue(L"DfltTab", 3);
    EXPECT_EQ(load().general.ActiveTab.value, 2u) << "only DfltTabOnStartup = 1 applies the start-up tab";
}

// Random values of random types and sizes under the value names the record reads.
TEST_F(LoadSettingsTest, SeededGarbageNeverBreaksTheInvariantsNorWrites) {
    for (unsigned seed = 1; seed <= 4; ++seed) {
        RemoveProductKeys();
        std::mt19937 random(seed);
        for (SettingGroup* group : load().groups)
            for (Setting* setting : group->settings()) {
                DWORD data[10];
                for (DWORD& word : data) word = random();
                if (group->keyIndex() != kKeyTodayItem && random() % 3 != 0)
                    RegPutRaw(KeyRoot(group->keyIndex()), KeyPath(group->keyIndex()), setting->valueName.c_str(),
                              random() % 8, data, random() % 3 == 0 ? 4 : random() % 40);
            }
        for (int i = 0; i < 5; ++i)
            RegPutDword(HKEY_CURRENT_USER, TabKey((L"P" + std::to_wstring(random() % 9)).c_str()).c_str(),
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
