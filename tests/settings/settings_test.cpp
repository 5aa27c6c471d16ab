#include <cwchar>
#include <random>

#include "settings/key_table.h"
#include "settings/registry_values.h"
#include "settings_test_util.h"
#include "support/app_state.h"
#include "support/display_scale.h"

namespace {

const wchar_t kScratchPath[] = L"Software\\Orvane\\Quillory\\RegistryValuesTest";
const wchar_t kColorPath[] = L"SOFTWARE\\Microsoft\\Color";

class SettingsTest : public ::testing::Test {
protected:
    void SetUp() override {
        RemoveProductKeys();
        RegRemoveTree(HKEY_LOCAL_MACHINE, kColorPath);
        RegCreateKeyExW(HKEY_CURRENT_USER, kScratchPath, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key_, nullptr);
    }
    void TearDown() override {
        RegCloseKey(key_);
        RemoveProductKeys();
        RegRemoveTree(HKEY_LOCAL_MACHINE, kColorPath);
        RegRemoveTree(HKEY_LOCAL_MACHINE, kTodayItemPath);
        RegPutString(HKEY_LOCAL_MACHINE, kTodayItemPath, L"ProgramFiles", L"\\Program Files");
        if (library_) FreeLibrary(library_);
    }
    SettingsRecord& load() {
        LoadSettings(*record_, library_);
        return *record_;
    }
    HKEY key_ = nullptr;
    HMODULE library_ = nullptr;  // the language library slot of this test's own record
    std::unique_ptr<SettingsRecord> record_{new SettingsRecord};
};

TEST_F(SettingsTest, ReadStringTakesTheStoredBytesOfAnyTypeAsTextEndedInsideItsBuffer) {
    auto read = [&](const wchar_t* name, DWORD type, const void* bytes, DWORD size) {
        RegPutRaw(HKEY_CURRENT_USER, kScratchPath, name, type, bytes, size);
        WString out(L"old");
        return std::wstring(ReadString(key_, name, out, L"default") == 1 ? out.c_str() : L"(not read)");
    };
    EXPECT_EQ(read(L"NoEnd", REG_BINARY, "H\0i\0", 4), L"Hi");
    EXPECT_EQ(read(L"Odd", REG_BINARY, "x\0y\0z", 5), L"xy");
    EXPECT_EQ(read(L"Multi", REG_MULTI_SZ, L"ab\0cd\0", 14), L"ab");
    const std::wstring longText(3000, L'w');  // beyond any small buffer, stored without terminator
    EXPECT_EQ(read(L"Long", REG_SZ, longText.data(), 6000), longText);
    EXPECT_EQ(read(L"LongOdd", REG_BINARY, longText.data(), 5999), longText.substr(1));
    WString out;
    EXPECT_TRUE(ReadString(HKEY_CURRENT_USER, kScratchPath, L"Missing", out, L"d") == 0 &&
                wcscmp(out.c_str(), L"d") == 0);
}

TEST_F(SettingsTest, StringsAreWrittenWithTheirTerminatorUnlessExactlyTheDefaultThenDeleted) {
    WriteStringOrDelete(key_, L"Face", L"tahoma", L"Tahoma");
    DWORD type = 0, size = 0;
    EXPECT_TRUE(RegQueryValueExW(key_, L"Face", nullptr, &type, nullptr, &size) == ERROR_SUCCESS && type == REG_SZ &&
                size == 14) << "six characters and the terminator";
    WriteStringOrDelete(key_, L"Face", L"Tahoma", L"Tahoma");
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kScratchPath, L"Face");
    WriteStringOrDelete(key_, L"Skin", L"", nullptr);
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kScratchPath, L"Skin") << "null and empty are the same default";
}

TEST_F(SettingsTest, KeyIndexesBeyondTheTableNameNoKey) {
    for (unsigned index : {15u, 0xFFFFFFFFu})
        EXPECT_FALSE(KeyRoot(index) || KeyPath(index) || OpenSettingKey(index) || OpenExistingSettingKey(index));
}

TEST_F(SettingsTest, SystemColourPrefersTheDecimalValueThenAStrictlyLongerArrayThenTheDefault) {
    EXPECT_EQ(ReadSystemColour(6, 0xFFEF8E73), 0x00EF8E73u) << "no key: the default without its top byte";
    BYTE array[40];
    for (int i = 0; i < 40; ++i) array[i] = static_cast<BYTE>(i);
    RegPutRaw(HKEY_LOCAL_MACHINE, kColorPath, L"SHColor", REG_BINARY, array, 8 * 4 + 4);
    EXPECT_EQ(ReadSystemColour(8, 0xFF9C4D2C), 0x009C4D2Cu) << "exactly index * 4 + 4 bytes: the default";
    RegPutRaw(HKEY_LOCAL_MACHINE, kColorPath, L"SHColor", REG_BINARY, array, 8 * 4 + 5);
    EXPECT_EQ(ReadSystemColour(8, 0x9C4D2C), RGB(32, 33, 34));
    EXPECT_EQ(ReadSystemColour(0, 0x9C4D2C), RGB(0, 1, 2));
    EXPECT_EQ(ReadSystemColour(-1, 0x123456), 0x123456u);
    RegPutDword(HKEY_LOCAL_MACHINE, kColorPath, L"8", 0xAA112233);
    EXPECT_EQ(ReadSystemColour(8, 0), 0x00112233u);
}

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

TEST_F(SettingsTest, EmptyRegistryGivesTheDefaultsCleanAndWritesNothing) {
    RegRemoveTree(HKEY_LOCAL_MACHINE, kTodayItemPath);
    SettingsRecord& r = load();
    EXPECT_FALSE(RegKeyExists(HKEY_LOCAL_MACHINE, kTodayItemPath)) << "the Today item's key is never created";
    EXPECT_TRUE(RegKeyExists(HKEY_LOCAL_MACHINE, kAgendaFusionPath)) << "keys 1 to 14 are";
    EXPECT_TRUE(RegKeyExists(HKEY_CURRENT_USER, L"Software\\Orvane\\Quillory\\Categories"));
    EXPECT_STREQ(r.installFolder.c_str(), L"\\Program Files\\Orvane\\Quillory");
    wchar_t firstDay[5] = {};
    GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_IFIRSTDAYOFWEEK, firstDay, 5);
    EXPECT_EQ(r.calendar.MonthlyStartDay.value, static_cast<DWORD>(wcstol(firstDay, nullptr, 10)));
    const LOGFONTW& general = r.fonts.FontGeneral.font;
    EXPECT_STREQ(general.lfFaceName, L"Tahoma");
    EXPECT_TRUE(general.lfHeight == 12 && general.lfWeight == 100);
    EXPECT_EQ(general.lfItalic + general.lfUnderline + general.lfStrikeOut + general.lfQuality, 0);
    EXPECT_EQ(r.fonts.FontGeneral.colour.value, 0xFFFFFFFFu) << "no colour of its own";
    EXPECT_TRUE(r.fonts.FontMailUnread.font.lfWeight == 700 && r.fonts.FontCalPast.font.lfStrikeOut == 1);
    EXPECT_EQ(DirtySettings(r), "");
    EXPECT_EQ(RegValueCountTree(HKEY_CURRENT_USER, L"Software\\Orvane"), 0u) << "loading writes no value";
}

TEST_F(SettingsTest, StoredValuesAreReadUnderTheirExactNamesKeysAndTypeRules) {
    RegPutString(HKEY_LOCAL_MACHINE, kTodayItemPath, L"ProgramFiles", L"\\Programs");
    RegPutString(HKEY_LOCAL_MACHINE, kTodayItemPath, L"InstallPath", L"\\Card");
    RegPutString(HKEY_CURRENT_USER, kPocketInformantPath, L"WebIS_Folder", L"\\Card");
    RegPutDword(HKEY_CURRENT_USER, L"Software\\Orvane\\Quillory\\SEvents", L"IncldCounters", 0);
    RegPutDword(HKEY_CURRENT_USER, L"Software\\Orvane\\Quillory\\CustomPIM", L"OverridePimCatColros", 1);
    RegPutDword(HKEY_CURRENT_USER, L"Software\\Orvane\\Quillory\\Colors", L"SeperatorLineClr", 0x123456);
    RegPutDword(HKEY_CURRENT_USER, kCalendarPath, L"Force2DigitsTImeFrmt", 1);
    RegPutString(HKEY_CURRENT_USER, kCalendarPath, L"dNumOfDays", L"120 days");  // more than four bytes
    RegPutRaw(HKEY_CURRENT_USER, kCalendarPath, L"TimelinesLength", REG_BINARY, "\x0C", 1);
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
    EXPECT_EQ(r.calendar.Force2DigitsTImeFrmt.value, 1u);
    EXPECT_EQ(r.calendar.dNumOfDays.value, 7u);
    EXPECT_EQ(r.calendar.TimelinesLength.value, 12u);
    const LOGFONTW& notes = r.fonts.FontNoteItems.font;
    EXPECT_STREQ(notes.lfFaceName, L"Courier New");
    EXPECT_TRUE(notes.lfQuality == 5 && notes.lfHeight == -20) << "ClearType quality";
    EXPECT_EQ(r.fonts.FontNoteItems.colour.value, 0x0000FFu);
    EXPECT_EQ(DirtySettings(r), "");
}

TEST_F(SettingsTest, EachFoldStateBitIsReadApartFromItsNeighboursAndItsByteUpToTheLastBit) {
    // Alternating bits set each bit against both neighbours, across byte edges; then two full bytes among empty ones.
    for (int layout = 0; layout < 3; ++layout) {
        auto set = [&](int n) { return layout == 2 ? n / 8 == 4 || n / 8 == 9 : n % 2 == layout; };
        BYTE bytes[16] = {};
        for (int n = 0; n < 128; ++n) bytes[n / 8] |= set(n) ? 1 << (n % 8) : 0;
        RegPutRaw(HKEY_CURRENT_USER, kCalendarPath, L"FoldState", REG_BINARY, bytes, 16);
        RegPutRaw(HKEY_CURRENT_USER, kTasksPath, L"FoldState", REG_BINARY, bytes, 6);
        SettingsRecord& r = load();
        for (int n = 0; n < 125; ++n)
            ASSERT_TRUE(r.calendar.FoldState.bit(n) == set(n) && (n >= 41 || r.tasks.FoldState.bit(n) == set(n))) << n;
        EXPECT_FALSE(r.calendar.FoldState.bit(125) || r.tasks.FoldState.bit(41) || r.tasks.FoldState.bit(-1))
            << "bits past the count read as clear although the last byte holds them";
    }
    const BYTE ones[16] = {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF};
    RegPutRaw(HKEY_CURRENT_USER, kCalendarPath, L"FoldState", REG_BINARY, ones, 15);
    RegPutRaw(HKEY_CURRENT_USER, kTasksPath, L"FoldState", REG_DWORD, ones, 6);
    EXPECT_FALSE(load().calendar.FoldState.bit(0) || record_->tasks.FoldState.bit(0))
        << "15 bytes are ignored whole, and only REG_BINARY is taken";
}

TEST_F(SettingsTest, DaysToShowOutsideOneTo120AndABrokenTitleOrderAreRepairedAndDirty) {
    for (DWORD days : {0u, 1u, 120u, 121u}) {
        RegPutDword(HKEY_CURRENT_USER, kCalendarPath, L"dNumOfDays", days);
        const bool valid = days == 1 || days == 120;
        const IntSetting& shown = load().calendar.dNumOfDays;
        EXPECT_TRUE(shown.value == (valid ? days : 7u) && shown.dirty == !valid) << days;
    }
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kCalendarPath, L"dNumOfDays", 121) << "the repair is not written";

    const std::vector<std::vector<DWORD>> orders = {{5, 4, 3, 2, 1, 0}, {0, 1, 2, 3, 4, 4}, {0, 1, 2, 3, 4, 6}};
    for (const std::vector<DWORD>& stored : orders) {
        for (int i = 0; i < 6; ++i)
            RegPutDword(HKEY_CURRENT_USER, kCalendarPath, (L"CalTitlesOrder" + std::to_wstring(i)).c_str(), stored[i]);
        const bool permutation = stored == orders[0];
        IntSetting* slots = load().calendar.CalTitlesOrder;
        for (int i = 0; i < 6; ++i)
            EXPECT_TRUE(slots[i].value == (permutation ? stored[i] : i) && slots[i].dirty == !permutation) << stored[5];
    }
}

TEST_F(SettingsTest, LanguageLibraryFallsBackAndTheOldHandleIsFreed) {
    RegPutString(HKEY_CURRENT_USER, kProductPath, L"SelectedLangResFile", L"\\Nowhere\\Lang.dll");
    load();
    wchar_t title[64] = {};
    EXPECT_GT(LoadStringW(library_, 41180, title, 64), 0) << "the product's English library under \\Program Files";
    EXPECT_STREQ(record_->tabSettings.tabs.head()->name.c_str(), title);
    RegPutString(HKEY_LOCAL_MACHINE, kTodayItemPath, L"ProgramFiles", L"\\Nowhere");
    EXPECT_STREQ(load().tabSettings.tabs.head()->name.c_str(), L"");
    EXPECT_EQ(library_, nullptr);
    EXPECT_EQ(GetModuleHandleW(L"QLEngRc.dll"), nullptr) << "the earlier library was freed";
}

TEST(TwelveHourClock, LocaleTimeOneOrFortyNineClearsIt) {
    const std::pair<const wchar_t*, int> cases[] = {{L"1", 0}, {L"0", 1}, {L"49", 0},
                                                    {L"4", 1}, {L"", 1},  {nullptr, 1}};
    for (const auto& c : cases) EXPECT_EQ(TwelveHourClockFromTimeFormat(c.first), c.second) << (c.first ? 1 : 0);
}

TEST_F(SettingsTest, TabsAreInsertedByOrderFromTheBuiltInsThenThePlugInSubKeysAndRenumbered) {
    const std::pair<const wchar_t*, DWORD> values[] = {{L"NotesTabOrder", 1}, {L"ContactsTabOrder", 8},
        {L"SEventsTabOrder", 9}, {L"MailTabOrder", 10}, {L"MailTabEnabled", 0}};
    for (const auto& value : values) PutTabValue(value.first, value.second);
    PutPlugIn(L"Alpha", -1);
    PutPlugIn(L"Beta", 2, 1, 0);
    PutPlugIn(L"Contacts", 1);  // the contacts tab's own options, never a tab
    PutPlugIn(L"Zeta", 2);
    RegPutString(HKEY_CURRENT_USER, TabKey(L"Zeta").c_str(), L"DLL", L"\\Windows\\zeta.dll");
    // An order equal to the head's goes right after it; among later equal orders a new entry goes
    // in front; a plug-in without an order has order 9. Sub-keys come in name order.
    EXPECT_EQ(Tabs(load()), ":4:1:1 :32:2:1 Zeta:1:3:1 Beta:2:4:0 :8:5:1 :128:6:1 Alpha:1:7:1 :16:8:1 :64:9:0 ");
    EXPECT_STREQ(record_->tabSettings.tabs.findByOrder(3)->dll.c_str(), L"\\Windows\\zeta.dll");
    SaveSettings(*record_);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, TabKey(L"Alpha").c_str(), L"Order", 7);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kTabsPath, L"SEventsTabOrder", 8);
}

TEST_F(SettingsTest, ActiveTabMustNameAnEnabledBuiltInTabAndTheStartupTabOverridesIt) {
    PutPlugIn(L"Weather", 3, 1);
    PutTabValue(L"NotesTabEnabled", 0);
    // Positions: Calendar 1, Tasks 2, Weather 3, Notes 4 (disabled), Contacts 5, Mail 6, SEvents 7.
    for (DWORD stored : {2u, 7u, 3u, 4u, 8u, 0u}) {
        RegPutDword(HKEY_CURRENT_USER, kProductPath, L"ActiveTab", stored);
        const bool kept = stored == 2 || stored == 7;
        const IntSetting& active = load().general.ActiveTab;
        EXPECT_TRUE(active.value == (kept ? stored : 1u) && active.dirty == !kept) << stored;
    }
    // DfltTab counts Calendar, Tasks, Notes, Contacts, Mail, SEvents wherever they stand; only start-up = 1 uses it.
    RegPutDword(HKEY_CURRENT_USER, kProductPath, L"ActiveTab", 2);
    const DWORD cases[][3] = {{1, 0, 1}, {1, 2, 4}, {1, 3, 5}, {1, 4, 6},
                              {1, 5, 7}, {1, 6, 2}, {1, 0xFFFFFFFF, 2}, {2, 3, 2}};
    for (const auto& c : cases) {
        PutTabValue(L"DfltTabOnStartup", c[0]);
        PutTabValue(L"DfltTab", c[1]);
        EXPECT_EQ(load().general.ActiveTab.value, c[2]) << "DfltTab " << static_cast<int>(c[1]) << " start-up " << c[0];
    }
}

TEST_F(SettingsTest, SeededGarbageNeverBreaksTheInvariantsNorWrites) {
    for (unsigned seed = 1; seed <= 4; ++seed) {
        RemoveProductKeys();
        std::mt19937 random(seed);
        DWORD data[16];
        for (DWORD& word : data) word = random();
        for (SettingGroup* group : load().groups)
            for (Setting* setting : group->settings())
                if (group->keyIndex() != kKeyTodayItem && random() % 3 != 0)
                    RegPutRaw(KeyRoot(group->keyIndex()), KeyPath(group->keyIndex()), setting->valueName.c_str(),
                              random() % 8, data + random() % 6, random() % 3 == 0 ? 4 : random() % 40);
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

TEST_F(SettingsTest, ChangedSettingsOnlyAreWrittenAtTheirDefaultsDeletedAndTheReadOnlyListNever) {
    SettingsRecord& r = load();
    FontSetting& general = r.fonts.FontGeneral;
    general.apply(general.font, general.colour.value);  // unchanged, yet every part is marked
    EXPECT_EQ(DirtySettings(r), "10/FontGenerallfWeight 10/FontGenerallfItalic 10/FontGenerallfUnderline "
                                "10/FontGenerallfStrikeOut 10/FontGenerallfHeight 10/FontGenerallfColor ");
    SetInt(r.calendar.dNumOfDays, 14);
    SetString(r.general.SkinPath, L"\\Skins\\Blue");
    LOGFONTW font = r.fonts.FontTskOverdue.font;
    font.lfHeight = -18;
    r.fonts.FontTskOverdue.apply(font, RGB(200, 0, 0));
    r.calendar.TimelinesLength.value = 20;  // changed without the setter: never written
    SaveSettings(r);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kCalendarPath, L"dNumOfDays", 14);
    EXPECT_REG_STRING(HKEY_CURRENT_USER, kProductPath, L"SkinPath", L"\\Skins\\Blue");
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kFontsPath, L"FontTskOverduelfHeight", static_cast<DWORD>(-18));
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kFontsPath, L"FontTskOverduelfColor", RGB(200, 0, 0));
    EXPECT_EQ(RegValueCountTree(HKEY_CURRENT_USER, L"Software\\Orvane"), 4u) << "nothing else";
    SetInt(r.calendar.dNumOfDays, 7);
    SetString(r.general.SkinPath, L"");
    SaveSettings(r);
    EXPECT_EQ(RegValueCountTree(HKEY_CURRENT_USER, L"Software\\Orvane"), 2u) << "the two back at their defaults gone";
    RegPutDword(HKEY_CURRENT_USER, kProductPath, L"NoteZoom", 150);
    RegPutString(HKEY_CURRENT_USER, kPocketInformantPath, L"IconPath", L"\\PI\\Icons");
    load();
    SetInt(r.general.NoteZoom, 100);
    SetString(r.pocketInformant.IconPath, L"elsewhere");
    SetString(r.todayItem.ProgramFiles, L"\\Elsewhere");
    for (SettingGroup* group : r.groups) group->markAllDirty();
    SaveSettings(r);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kProductPath, L"NoteZoom", 150);
    EXPECT_REG_STRING(HKEY_CURRENT_USER, kPocketInformantPath, L"IconPath", L"\\PI\\Icons");
    EXPECT_REG_STRING(HKEY_LOCAL_MACHINE, kTodayItemPath, L"ProgramFiles", L"\\Program Files");
    EXPECT_EQ(RegValueCountTree(HKEY_CURRENT_USER, L"Software\\Orvane"), 3u)
        << "all marked: the two font values and NoteZoom as stored, nothing at its default";
}

TEST_F(SettingsTest, LandscapeLimitOutside60To500IsNoneAndAPinnedMonthNeedsALimitOf200) {
    SettingsRecord& r = load();
    for (DWORD limit : {59u, 60u, 500u, 501u}) {
        SetInt(r.general.dHeightLimitLandscape, limit);
        SaveSettings(r);
        const bool kept = limit == 60 || limit == 500;
        EXPECT_TRUE(r.general.dHeightLimitLandscape.value == (kept ? limit : 0u) &&
                    RegValueExists(HKEY_CURRENT_USER, kProductPath, L"dHeightLimitLandscape") == kept) << limit;
    }
    const DWORD limit200 = static_cast<DWORD>(ScaleForDisplay(200));
    for (DWORD limit : {limit200, limit200 - 1}) {
        SetInt(r.general.dHeightLimit, limit);
        SetInt(r.calendar.PinnedMonthlyClr, 1);
        SaveSettings(r);
        EXPECT_EQ(RegValueExists(HKEY_CURRENT_USER, kCalendarPath, L"PinnedMonthlyClr"), limit == limit200) << limit;
    }
}

TEST_F(SettingsTest, PlugInSubKeysAreRebuiltFromTheListBeforeTheTabValuesAndContactsSurvives) {
    const std::wstring tabs = std::wstring(kTabsPath) + L"\\";
    RegPutString(HKEY_CURRENT_USER, (tabs + L"Contacts\\Alphabets").c_str(), L"Custom", L"ABC");
    RegPutDword(HKEY_CURRENT_USER, (tabs + L"Weather").c_str(), L"Order", 2);
    RegPutString(HKEY_CURRENT_USER, (tabs + L"Battery").c_str(), L"Extra", L"lost");
    RegPutString(HKEY_CURRENT_USER, (tabs + L"Battery\\Nested").c_str(), L"X", L"y");
    SettingsRecord& r = load();
    // Loaded: Calendar 1, Weather 2, Tasks 3, Notes 4, Contacts 5, Mail 6, SEvents 7, Battery 8.
    TabList& list = r.tabSettings.tabs;
    list.findByOrder(8)->order = 9;
    list.findByOrder(9)->enabled = 1;
    list.findByOrder(6)->enabled = 0;
    list.remove(list.findByKindAndName(kTabPlugIn, L"Weather"));
    list.add(kTabPlugInTyped, 3, 1, L"Clock", L"clock.dll", L"\\Clock", L"clock.bmp");
    SetInt(r.tabSettings.DfltTab, 2);
    RegistryWriteRecorder recorder;
    SaveSettings(r);
    // The built-in values come from the entries: enabled values, then orders, then the default tab.
    const std::vector<std::wstring> tabValues = {L"CalendarTabOrder", L"TasksTabEnabled", L"MailTabEnabled",
        L"TasksTabOrder", L"NotesTabOrder", L"ContactsTabOrder", L"MailTabOrder", L"SEventsTabOrder", L"DfltTab"};
    EXPECT_EQ(recorder.written(tabValues), (std::vector<std::wstring>(tabValues.begin() + 2, tabValues.end())));
    EXPECT_FALSE(RegKeyExists(HKEY_CURRENT_USER, (tabs + L"Weather").c_str())) << "removed from the list";
    EXPECT_FALSE(RegKeyExists(HKEY_CURRENT_USER, (tabs + L"Battery\\Nested").c_str())) << "rewritten from scratch";
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, (tabs + L"Battery").c_str(), L"Enabled", 1);
    EXPECT_EQ(RegValueCount(HKEY_CURRENT_USER, tabs + L"Battery"), 1u) << "Order 9 and Type 0 are the defaults";
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, (tabs + L"Clock").c_str(), L"Type", 1);
    EXPECT_REG_STRING(HKEY_CURRENT_USER, (tabs + L"Clock").c_str(), L"DLL", L"clock.dll");
    EXPECT_REG_STRING(HKEY_CURRENT_USER, (tabs + L"Clock").c_str(), L"InstallPath", L"\\Clock");
    EXPECT_REG_STRING(HKEY_CURRENT_USER, (tabs + L"Clock").c_str(), L"CustomIconName", L"clock.bmp");
    EXPECT_REG_STRING(HKEY_CURRENT_USER, (tabs + L"Contacts\\Alphabets").c_str(), L"Custom", L"ABC");
}

TEST(ChangeMessage, IsRegisteredOnceAndBroadcastWithZeroParameters) {
    static std::vector<std::pair<WPARAM, LPARAM>> received;
    EXPECT_EQ(SettingsChangedMessage(), RegisterWindowMessageW(L"OrvaneQuillorySettingsChanged"));
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
