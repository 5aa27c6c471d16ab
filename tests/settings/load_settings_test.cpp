#include <cstdlib>
#include <cwchar>
#include <random>
#include <string>
#include <vector>

#include "settings/settings.h"
#include "settings_test_util.h"
#include "support/app_state.h"

namespace {

using Tabs = std::vector<std::wstring>;

class LoadSettingsTest : public ::testing::Test {
protected:
    void SetUp() override { RemoveProductKeys(); }
    void TearDown() override {
        RemoveProductKeys();
        // The runner's install: only ProgramFiles under the Today item.
        RegRemoveTree(HKEY_LOCAL_MACHINE, kTodayItemPath);
        RegPutString(HKEY_LOCAL_MACHINE, kTodayItemPath, L"ProgramFiles", L"\\Program Files");
    }
    LoadedRecord loaded_;
};

std::wstring LanguageText(HMODULE library, UINT id) {
    wchar_t text[1024] = {};
    LoadStringW(library, id, text, 1024);
    return text;
}

DWORD LocaleFirstDay() {
    wchar_t text[5] = {};
    GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_IFIRSTDAYOFWEEK, text, 5);
    return static_cast<DWORD>(wcstol(text, nullptr, 10));
}

TEST_F(LoadSettingsTest, EmptyRegistryGivesEveryDefaultCleanAndWritesNothing) {
    loaded_.load();
    SettingsRecord& r = *loaded_;

    EXPECT_STREQ(r.todayItem.ProgramFiles.c_str(), L"\\Program Files");
    EXPECT_STREQ(r.programFilesFolder(), L"\\Program Files");
    EXPECT_STREQ(r.productFolder.c_str(), L"\\Program Files\\Orvane\\Quillory");
    EXPECT_STREQ(r.installFolder.c_str(), L"\\Program Files\\Orvane\\Quillory") << "InstallPath defaults to ProgramFiles";
    EXPECT_STREQ(r.pocketInformant.PIVOL.c_str(), L"My Documents\\WebIS\\PocketInformant.vol");
    EXPECT_STREQ(r.agendaFusion.CoreCategories.c_str(), L"Program Files\\Agenda Fusion\\Icons");
    EXPECT_STREQ(r.general.QLFiltersFileFolder.c_str(), L"\\Program Files\\Orvane\\Quillory");
    EXPECT_STREQ(r.general.QLIconsFolder.c_str(), L"\\Program Files\\Orvane\\Quillory\\CategoryIcons");
    EXPECT_STREQ(r.general.SelectedLangResFile.c_str(), L"\\Program Files\\Orvane\\Quillory\\LangRes\\QLEngRc.dll");

    // Scaled defaults at the design resolution (nothing has set the screen's pixels per inch).
    EXPECT_EQ(r.general.dHeightLimit.value, 160u);
    EXPECT_EQ(r.calendar.MonthlyPopIconsSize.value, 6u);
    EXPECT_EQ(r.fonts.FontGnrlSize.value, 12u);
    EXPECT_EQ(r.calendar.MonthlyStartDay.value, LocaleFirstDay());
    EXPECT_EQ(r.calendar.FirstWorkDay.value, LocaleFirstDay());
    for (int i = 0; i < 6; ++i) EXPECT_EQ(r.calendar.CalTitlesOrder[i].value, static_cast<DWORD>(i));
    ASSERT_EQ(r.calendar.FoldState.byteCount, 16u);
    ASSERT_EQ(r.tasks.FoldState.byteCount, 6u);

    // The font record is built from its own values: face, size and the per-font default weight.
    EXPECT_STREQ(r.fonts.FontGeneral.font.lfFaceName, L"Tahoma");
    EXPECT_EQ(r.fonts.FontGeneral.font.lfHeight, 12);
    EXPECT_EQ(r.fonts.FontMailUnread.font.lfWeight, 700);
    EXPECT_EQ(r.fonts.FontCalPast.font.lfStrikeOut, 1);

    EXPECT_EQ(Join(DirtySettings(r)), "") << "nothing was repaired";
    EXPECT_EQ(RegValueCountTree(HKEY_CURRENT_USER, L"Software\\Orvane"), 0u) << "loading writes no value";
    EXPECT_EQ(RegValueCountTree(HKEY_CURRENT_USER, L"Software\\WebIS"), 0u);
    EXPECT_TRUE(RegKeyExists(HKEY_CURRENT_USER, kPocketInformantPath)) << "keys 1..14 are created";
    EXPECT_TRUE(RegKeyExists(HKEY_LOCAL_MACHINE, kAgendaFusionPath));
    EXPECT_TRUE(RegKeyExists(HKEY_CURRENT_USER, L"Software\\Orvane\\Quillory\\Categories"));
}

TEST_F(LoadSettingsTest, StoredValuesOfEveryKindAreRead) {
    RegPutDword(HKEY_CURRENT_USER, kProductPath, L"OnClick", 2);
    RegPutString(HKEY_CURRENT_USER, kProductPath, L"SkinPath", L"\\Storage\\Skin");
    RegPutDword(HKEY_CURRENT_USER, kCalendarPath, L"IncldCounters", 1);
    RegPutDword(HKEY_CURRENT_USER, L"Software\\Orvane\\Quillory\\SEvents", L"IncldCounters", 0);
    BYTE fold[16];
    for (int i = 0; i < 16; ++i) fold[i] = static_cast<BYTE>(0xF0 + i);
    RegPutRaw(HKEY_CURRENT_USER, kCalendarPath, L"FoldState", REG_BINARY, fold, 16);
    RegPutString(HKEY_CURRENT_USER, kFontsPath, L"FontFaceToUse", L"Courier New");
    RegPutDword(HKEY_CURRENT_USER, kFontsPath, L"ForceClearType", 1);
    RegPutDword(HKEY_CURRENT_USER, kFontsPath, L"FontNoteItemslfHeight", static_cast<DWORD>(-20));
    RegPutDword(HKEY_CURRENT_USER, kFontsPath, L"FontNoteItemslfItalic", 1);
    RegPutDword(HKEY_CURRENT_USER, kFontsPath, L"FontNoteItemslfColor", 0x0000FF);
    RegPutString(HKEY_CURRENT_USER, kPocketInformantPath, L"WebIS_Folder", L"\\Storage Card");
    RegPutString(HKEY_LOCAL_MACHINE, kTodayItemPath, L"InstallPath", L"\\Storage Card\\Program Files");

    loaded_.load();
    SettingsRecord& r = *loaded_;
    EXPECT_EQ(r.general.OnClick.value, 2u);
    EXPECT_STREQ(r.general.SkinPath.c_str(), L"\\Storage\\Skin");
    EXPECT_EQ(r.calendar.IncldCounters.value, 1u);
    EXPECT_EQ(r.sevents.IncldCounters.value, 0u) << "same name under another key is another setting";
    EXPECT_EQ(r.calendar.FoldState.bits[15], 0xFF);
    EXPECT_TRUE(r.calendar.FoldState.bit(4));
    EXPECT_FALSE(r.calendar.FoldState.bit(0));
    EXPECT_STREQ(r.fonts.FontNoteItems.font.lfFaceName, L"Courier New");
    EXPECT_EQ(r.fonts.FontNoteItems.font.lfQuality, 5) << "ClearType quality";
    EXPECT_EQ(r.fonts.FontNoteItems.font.lfHeight, -20);
    EXPECT_EQ(r.fonts.FontNoteItems.font.lfItalic, 1);
    EXPECT_EQ(r.fonts.FontNoteItems.colour.value, 0x0000FFu);
    EXPECT_EQ(r.fonts.FontGeneral.font.lfHeight, 12) << "other fonts keep their defaults";
    EXPECT_STREQ(r.pocketInformant.PIVOL.c_str(), L"\\Storage Card\\WebIS\\PocketInformant.vol");
    EXPECT_STREQ(r.productFolder.c_str(), L"\\Program Files\\Orvane\\Quillory");
    EXPECT_STREQ(r.installFolder.c_str(), L"\\Storage Card\\Program Files\\Orvane\\Quillory");
    EXPECT_EQ(Join(DirtySettings(r)), "");
}

TEST_F(LoadSettingsTest, WrongTypesAndSizesAreReadByEachKindsRule) {
    RegPutString(HKEY_CURRENT_USER, kCalendarPath, L"dNumOfDays", L"120 days");  // longer than four bytes
    const BYTE two[2] = {12, 0};
    RegPutRaw(HKEY_CURRENT_USER, kCalendarPath, L"TimelinesLength", REG_BINARY, two, 2);
    RegPutDword(HKEY_CURRENT_USER, kProductPath, L"SkinPath", 0x00420041);
    BYTE fold[16] = {0xFF, 0xFF};
    RegPutRaw(HKEY_CURRENT_USER, kCalendarPath, L"FoldState", REG_BINARY, fold, 15);
    RegPutRaw(HKEY_CURRENT_USER, kTasksPath, L"FoldState", REG_DWORD, fold, 6);
    RegPutRaw(HKEY_CURRENT_USER, kTasksPath, L"TsksDateFrmt", REG_BINARY, fold, 0);

    loaded_.load();
    SettingsRecord& r = *loaded_;
    EXPECT_EQ(r.calendar.dNumOfDays.value, 7u);
    EXPECT_FALSE(r.calendar.dNumOfDays.dirty);
    EXPECT_EQ(r.calendar.TimelinesLength.value, 12u) << "a two-byte value is read as far as it goes";
    EXPECT_STREQ(r.general.SkinPath.c_str(), L"AB") << "a DWORD reads as its bytes";
    for (DWORD i = 0; i < 16; ++i) EXPECT_EQ(r.calendar.FoldState.bits[i], 0) << "15 bytes are ignored whole";
    for (DWORD i = 0; i < 6; ++i) EXPECT_EQ(r.tasks.FoldState.bits[i], 0) << "only REG_BINARY is taken";
    EXPECT_EQ(r.tasks.TsksDateFrmt.value, 0u) << "an empty value reads as zero bytes";
}

TEST_F(LoadSettingsTest, DaysToShowOutsideOneTo120IsRepairedAndDirty) {
    struct Case {
        DWORD stored;
        DWORD loaded;
        int dirty;
    };
    for (Case c : {Case{0, 7, 1}, Case{121, 7, 1}, Case{0xFFFFFFFF, 7, 1}, Case{1, 1, 0}, Case{120, 120, 0}}) {
        RegPutDword(HKEY_CURRENT_USER, kCalendarPath, L"dNumOfDays", c.stored);
        loaded_.load();
        EXPECT_EQ(loaded_->calendar.dNumOfDays.value, c.loaded) << c.stored;
        EXPECT_EQ(loaded_->calendar.dNumOfDays.dirty, c.dirty) << c.stored;
    }
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kCalendarPath, L"dNumOfDays", 120) << "the repair is not written by loading";
}

TEST_F(LoadSettingsTest, CalendarTitleOrderMustBeAPermutation) {
    auto store = [](std::vector<DWORD> values) {
        for (int i = 0; i < 6; ++i)
            RegPutDword(HKEY_CURRENT_USER, kCalendarPath, (L"CalTitlesOrder" + std::to_wstring(i)).c_str(), values[i]);
    };
    auto orders = [this] {
        std::vector<DWORD> values;
        for (IntSetting& slot : loaded_->calendar.CalTitlesOrder) values.push_back(slot.value);
        return values;
    };
    const std::vector<DWORD> identity = {0, 1, 2, 3, 4, 5};

    store({5, 4, 3, 2, 1, 0});
    loaded_.load();
    EXPECT_EQ(orders(), (std::vector<DWORD>{5, 4, 3, 2, 1, 0}));
    EXPECT_EQ(Join(DirtySettings(*loaded_)), "");

    for (std::vector<DWORD> broken : {std::vector<DWORD>{0, 1, 2, 3, 4, 4}, std::vector<DWORD>{0, 1, 2, 3, 4, 6},
                                      std::vector<DWORD>{0xFFFFFFFF, 1, 2, 3, 4, 5}}) {
        store(broken);
        loaded_.load();
        EXPECT_EQ(orders(), identity);
        for (IntSetting& slot : loaded_->calendar.CalTitlesOrder) EXPECT_EQ(slot.dirty, 1);
    }
}

TEST_F(LoadSettingsTest, KeyZeroIsOnlyOpenedAndItsDefaultsApplyWhenMissing) {
    RegRemoveTree(HKEY_LOCAL_MACHINE, kTodayItemPath);
    loaded_.load();
    EXPECT_FALSE(RegKeyExists(HKEY_LOCAL_MACHINE, kTodayItemPath)) << "key 0 is never created";
    EXPECT_STREQ(loaded_->programFilesFolder(), L"\\Program Files");
    EXPECT_STREQ(loaded_->installFolder.c_str(), L"\\Program Files\\Orvane\\Quillory");

    RegPutString(HKEY_LOCAL_MACHINE, kTodayItemPath, L"ProgramFiles", L"\\Storage\\Programs");
    loaded_.load();
    EXPECT_STREQ(loaded_->productFolder.c_str(), L"\\Storage\\Programs\\Orvane\\Quillory");
    EXPECT_STREQ(loaded_->installFolder.c_str(), L"\\Storage\\Programs\\Orvane\\Quillory");
    EXPECT_STREQ(loaded_->general.QLIconsFolder.c_str(), L"\\Storage\\Programs\\Orvane\\Quillory\\CategoryIcons");
}

TEST_F(LoadSettingsTest, LanguageLibraryFallsBackAndTheOldHandleIsFreed) {
    loaded_.load();
    ASSERT_NE(loaded_.library, nullptr) << "the installed library under \\Program Files";
    EXPECT_NE(GetModuleHandleW(L"QLEngRc.dll"), nullptr);
    std::wstring calendarTitle = LanguageText(loaded_.library, 41180);
    Tabs builtIns;
    for (const TabEntry* e = loaded_->tabSettings.tabs.head(); e; e = e->next) builtIns.push_back(e->name.c_str());
    ASSERT_EQ(builtIns.size(), 6u);
    EXPECT_EQ(builtIns[0], calendarTitle);
    EXPECT_EQ(builtIns[1], LanguageText(loaded_.library, 41155));
    EXPECT_EQ(builtIns[5], LanguageText(loaded_.library, 41159));

    // A missing selected library falls back to the product's English one.
    RegPutString(HKEY_CURRENT_USER, kProductPath, L"SelectedLangResFile", L"\\Nowhere\\Lang.dll");
    loaded_.load();
    EXPECT_NE(loaded_.library, nullptr);

    // The selected library itself, given by its full build path.
    std::wstring built = TestBinDir() + L"\\QLEngRc.dll";
    RegPutString(HKEY_CURRENT_USER, kProductPath, L"SelectedLangResFile", built.c_str());
    loaded_.load();
    ASSERT_NE(loaded_.library, nullptr);
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(loaded_.library, path, MAX_PATH);
    EXPECT_EQ(_wcsicmp(path, built.c_str()), 0) << Narrow(path);

    // Neither name loads: the slot is empty, the earlier library is gone and titles are empty.
    RegPutString(HKEY_CURRENT_USER, kProductPath, L"SelectedLangResFile", L"\\Nowhere\\Lang.dll");
    RegPutString(HKEY_LOCAL_MACHINE, kTodayItemPath, L"ProgramFiles", L"\\Nowhere");
    loaded_.load();
    EXPECT_EQ(loaded_.library, nullptr);
    EXPECT_EQ(GetModuleHandleW(L"QLEngRc.dll"), nullptr);
    ASSERT_NE(loaded_->tabSettings.tabs.head(), nullptr);
    EXPECT_STREQ(loaded_->tabSettings.tabs.head()->name.c_str(), L"");
}

class TabLoading : public LoadSettingsTest {
protected:
    void SetUp() override {
        LoadSettingsTest::SetUp();
        // Titles are checked by kind below, so the library's texts do not matter here.
        RegPutString(HKEY_CURRENT_USER, kProductPath, L"SelectedLangResFile", L"\\Nowhere\\Lang.dll");
        RegPutString(HKEY_LOCAL_MACHINE, kTodayItemPath, L"ProgramFiles", L"\\Nowhere");
    }
    static void plugIn(const wchar_t* name, int order, DWORD type, DWORD enabled) {
        std::wstring path = std::wstring(kTabsPath) + L"\\" + name;
        if (order >= 0) RegPutDword(HKEY_CURRENT_USER, path.c_str(), L"Order", static_cast<DWORD>(order));
        RegPutDword(HKEY_CURRENT_USER, path.c_str(), L"Type", type);
        RegPutDword(HKEY_CURRENT_USER, path.c_str(), L"Enabled", enabled);
    }
};

TEST_F(TabLoading, PlugInSubKeysAreInsertedByOrderAndRenumbered) {
    plugIn(L"Zeta", 2, 0, 1);
    plugIn(L"Alpha", -1, 0, 1);  // no Order: 9
    plugIn(L"Beta", 2, 1, 0);
    plugIn(L"Contacts", 1, 0, 1);  // the contacts tab's own options, never a tab
    RegPutString(HKEY_CURRENT_USER, (std::wstring(kTabsPath) + L"\\Zeta").c_str(), L"DLL", L"\\Windows\\zeta.dll");
    RegPutDword(HKEY_CURRENT_USER, kTabsPath, L"SEventsTabOrder", 1);
    RegPutDword(HKEY_CURRENT_USER, kTabsPath, L"MailTabEnabled", 0);

    loaded_.load();
    // Built-ins first (orders 1,2,3,4,5,1), then Alpha (9), Beta (2), Zeta (2) as enumerated:
    // an equal order goes after the head, and in front of later equal entries.
    EXPECT_EQ(Join(TabSummary(*loaded_)),
              ":4:1:1 :16:2:1 Zeta:1:3:1 Beta:2:4:0 :8:5:1 :32:6:1 :128:7:1 :64:8:0 Alpha:1:9:1");
    EXPECT_EQ(loaded_->tabSettings.tabs.count(), 9);
    const TabEntry* zeta = loaded_->tabSettings.tabs.findByKindAndName(kTabPlugIn, L"Zeta");
    ASSERT_NE(zeta, nullptr);
    EXPECT_STREQ(zeta->dll.c_str(), L"\\Windows\\zeta.dll");
    EXPECT_STREQ(zeta->installPath.c_str(), L"");
    EXPECT_EQ(loaded_->tabSettings.SEventsTabOrder.value, 1u) << "the stored order stays in the setting";
    EXPECT_EQ(RegValueCountTree(HKEY_CURRENT_USER, kTabsPath), 14u) << "nothing written while loading";

    // The list links both ways.
    const TabEntry* last = loaded_->tabSettings.tabs.head();
    while (last->next) last = last->next;
    int backwards = 1;
    for (; last->previous; last = last->previous) ++backwards;
    EXPECT_EQ(backwards, 9);
}

TEST_F(TabLoading, ActiveTabMustNameAnEnabledBuiltInTab) {
    plugIn(L"Weather", 3, 1, 1);  // position 3 after renumbering (inserted after Tasks)
    RegPutDword(HKEY_CURRENT_USER, kTabsPath, L"NotesTabEnabled", 0);
    struct Case {
        DWORD stored;
        DWORD loaded;
        int dirty;
    };
    // Positions: Calendar 1, Tasks 2, Weather 3, Notes 4 (disabled), Contacts 5, Mail 6, SEvents 7.
    for (Case c : {Case{2, 2, 0}, Case{7, 7, 0}, Case{3, 1, 1}, Case{4, 1, 1}, Case{8, 1, 1}, Case{0, 1, 1}}) {
        RegPutDword(HKEY_CURRENT_USER, kProductPath, L"ActiveTab", c.stored);
        loaded_.load();
        EXPECT_EQ(loaded_->general.ActiveTab.value, c.loaded) << c.stored;
        EXPECT_EQ(loaded_->general.ActiveTab.dirty, c.dirty) << c.stored;
    }
}

TEST_F(TabLoading, StartupTabOverridesActiveTabByKind) {
    // Notes first: positions Notes 1, Calendar 2, Tasks 3, Contacts 4, Mail 5, SEvents 6.
    RegPutDword(HKEY_CURRENT_USER, kTabsPath, L"NotesTabOrder", 0);
    RegPutDword(HKEY_CURRENT_USER, kTabsPath, L"DfltTabOnStartup", 1);
    RegPutDword(HKEY_CURRENT_USER, kProductPath, L"ActiveTab", 3);
    struct Case {
        DWORD dfltTab;
        DWORD activeTab;
    };
    for (Case c : {Case{2, 1}, Case{0, 2}, Case{4, 5}, Case{5, 6}, Case{6, 3}, Case{0xFFFFFFFF, 3}}) {
        RegPutDword(HKEY_CURRENT_USER, kTabsPath, L"DfltTab", c.dfltTab);
        loaded_.load();
        EXPECT_EQ(loaded_->general.ActiveTab.value, c.activeTab) << "DfltTab " << static_cast<int>(c.dfltTab);
    }
    RegPutDword(HKEY_CURRENT_USER, kTabsPath, L"DfltTabOnStartup", 2);
    RegPutDword(HKEY_CURRENT_USER, kTabsPath, L"DfltTab", 2);
    loaded_.load();
    EXPECT_EQ(loaded_->general.ActiveTab.value, 3u) << "only DfltTabOnStartup = 1 applies the start-up tab";
}

TEST(TwelveHourClock, LocaleTimeOneOrFortyNineClearsIt) {
    EXPECT_EQ(TwelveHourClockFromTimeFormat(L"1"), 0);
    EXPECT_EQ(TwelveHourClockFromTimeFormat(L"0"), 1);
    EXPECT_EQ(TwelveHourClockFromTimeFormat(L"49"), 0);
    EXPECT_EQ(TwelveHourClockFromTimeFormat(L"4"), 1);
    EXPECT_EQ(TwelveHourClockFromTimeFormat(L""), 1);
    EXPECT_EQ(TwelveHourClockFromTimeFormat(nullptr), 1);
}

// Random values of random types and sizes under every value name the record reads.
TEST_F(LoadSettingsTest, SeededGarbageNeverBreaksTheInvariants) {
    std::vector<std::pair<unsigned, std::wstring>> names;
    {
        SettingsRecord names_source;
        for (SettingGroup* group : names_source.groups)
            for (Setting* setting : group->settings()) {
                if (group->keyIndex() == kKeyTodayItem) continue;
                if (dynamic_cast<FontSetting*>(setting)) {
                    for (const wchar_t* suffix : {L"lfWeight", L"lfHeight", L"lfColor", L"lfStrikeOut"})
                        names.push_back({group->keyIndex(), std::wstring(setting->valueName.c_str()) + suffix});
                } else {
                    names.push_back({group->keyIndex(), setting->valueName.c_str()});
                }
            }
    }
    const DWORD types[] = {REG_DWORD, REG_SZ, REG_BINARY, REG_MULTI_SZ, REG_EXPAND_SZ, REG_NONE, REG_QWORD};
    for (unsigned seed = 1; seed <= 6; ++seed) {
        RemoveProductKeys();
        std::mt19937 random(seed);
        for (const auto& name : names) {
            if (random() % 3 == 0) continue;
            BYTE data[40];
            for (BYTE& b : data) b = static_cast<BYTE>(random());
            DWORD size = random() % 3 == 0 ? 4 : random() % 40;
            RegPutRaw(KeyRoot(name.first), KeyPath(name.first), name.second.c_str(), types[random() % 7], data, size);
        }
        for (int i = 0; i < 5; ++i) {
            std::wstring sub = std::wstring(kTabsPath) + L"\\PlugIn" + std::to_wstring(random() % 100);
            RegPutDword(HKEY_CURRENT_USER, sub.c_str(), L"Order", random() % 12);
            RegPutDword(HKEY_CURRENT_USER, sub.c_str(), L"Type", random() % 3);
        }
        DWORD valuesBefore = RegValueCountTree(HKEY_CURRENT_USER, L"Software\\Orvane");

        loaded_.load();
        SettingsRecord& r = *loaded_;
        int days = r.calendar.dNumOfDays.asInt();
        EXPECT_TRUE(days >= 1 && days <= 120) << "seed " << seed;
        bool used[6] = {};
        for (IntSetting& slot : r.calendar.CalTitlesOrder) {
            ASSERT_LE(slot.value, 5u) << "seed " << seed;
            used[slot.value] = true;
        }
        for (bool u : used) EXPECT_TRUE(u) << "seed " << seed;
        const TabEntry* active = r.tabSettings.tabs.findByOrder(r.general.ActiveTab.value);
        ASSERT_NE(active, nullptr) << "seed " << seed;
        // The repair falls back to 1 whatever that is; the start-up tab is taken as configured.
        if (r.general.ActiveTab.value != 1 && r.tabSettings.DfltTabOnStartup.value != 1) {
            EXPECT_EQ(active->enabled, 1u);
            EXPECT_TRUE(IsBuiltInTabKind(active->kind));
        }
        DWORD position = 1;
        for (const TabEntry* e = r.tabSettings.tabs.head(); e; e = e->next) EXPECT_EQ(e->order, position++);
        EXPECT_EQ(r.calendar.FoldState.byteCount, 16u);
        EXPECT_EQ(RegValueCountTree(HKEY_CURRENT_USER, L"Software\\Orvane"), valuesBefore) << "seed " << seed;
    }
}

}  // namespace
