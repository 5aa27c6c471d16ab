// Every setting of the record against the settings table of the product: value name, key index,
// type and default (with nothing stored, every loaded value is its default), and the 33 fonts with
// their six values each, loaded and saved through the registry.
#include <array>
#include <cwchar>
#include <map>
#include <string>
#include <vector>

#include "settings_test_util.h"

namespace {

// 'D' DWORD, 'S' string, 'B' bits (number = bytes, all zero), 'L' DWORD whose default is the
// locale's first day of the week, 'I' a string read into the install folder only. Scaled defaults
// (dHeightLimit, MonthlyPopIconsSize, FontGnrlSize, FontGnrlTitlesSize) are given at 96 dpi.
struct Expected {
    unsigned key;
    const wchar_t* name;
    char kind;
    DWORD number;
    const wchar_t* text;
};
const Expected kTable[] = {
    {0, L"ProgramFiles", 'S', 0, L"\\Program Files"}, {0, L"InstallPath", 'I', 0, L"\\Program Files"},
    {1, L"IconPath", 'S', 0, L"My Documents\\WebIS\\Icons"}, {1, L"WebIS_Folder", 'S', 0, L"My Documents"},
    {1, L"PIVOL", 'S', 0, L"My Documents\\WebIS\\PocketInformant.vol"},
    {2, L"Core.Categories", 'S', 0, L"Program Files\\Agenda Fusion\\Icons"},
    {3, L"OnClick", 'D', 0}, {3, L"OnDoubleClick", 'D', 0},
    {3, L"SelectedLangResFile", 'S', 0, L"\\Program Files\\Orvane\\Quillory\\LangRes\\QLEngRc.dll"},
    {3, L"SkinPath", 'S', 0, L""}, {3, L"EnableSoundEffect", 'D', 1}, {3, L"RemoveHighlight", 'D', 0},
    {3, L"GoofyMode", 'D', 0}, {3, L"IndentItems", 'D', 0}, {3, L"AutoHeight", 'D', 1},
    {3, L"dHeightLimit", 'D', 160}, {3, L"dHeightLimitLandscape", 'D', 0}, {3, L"RemoveTabsBar", 'D', 0},
    {3, L"RemoveSettingsButton", 'D', 0}, {3, L"RemoveSeparatingLine", 'D', 1}, {3, L"FilterTtlAlign", 'D', 0},
    {3, L"VerticalTabs", 'D', 1}, {3, L"DPadEnabled", 'D', 1}, {3, L"DPadMode", 'D', 0},
    {3, L"DPadCompleteAction", 'D', 2}, {3, L"DPadDoubleClickTabSwitching", 'D', 0},
    {3, L"DPadScrollingAction", 'D', 0}, {3, L"ExclusiveDPadNavig", 'D', 0}, {3, L"UseDoubleClickScroll", 'D', 1},
    {3, L"UseFullScrollings", 'D', 1}, {3, L"MyVgaMode", 'D', 0}, {3, L"UseThinLines", 'D', 0},
    {3, L"LoadingDelay", 'D', 0}, {3, L"QLFiltersFileFolder", 'S', 0, L"\\Program Files\\Orvane\\Quillory"},
    {3, L"QLIconsFolder", 'S', 0, L"\\Program Files\\Orvane\\Quillory\\CategoryIcons"}, {3, L"FilterMethodToUse", 'D', 0},
    {3, L"NoteZoom", 'D', 100}, {3, L"ActiveTab", 'D', 1}, {3, L"LastMinimizeState", 'D', 0},
    {3, L"FirstTimeSettingsMsg", 'D', 0},
    {4, L"dNumOfDays", 'D', 7}, {4, L"HideEmptyGroups", 'D', 1}, {4, L"HideEmptyGroupsItem", 'D', 0},
    {4, L"SEventsOnClr", 'D', 0}, {4, L"FirstWeekInYear", 'D', 0}, {4, L"ClrTextColor", 'D', 0},
    {4, L"ClrSortTsksWithAppts", 'D', 0}, {4, L"dAppoPassedToday", 'D', 0}, {4, L"IncludeYearlyCounters", 'D', 1},
    {4, L"LeadingRects", 'D', 1}, {4, L"Conflicting", 'D', 1}, {4, L"IncldTasksInCR", 'D', 1},
    {4, L"IncldOverDueTsksInCR", 'D', 1}, {4, L"IncldFutureTsksInCR", 'D', 1}, {4, L"IncldUndatedTsksInCR", 'D', 0},
    {4, L"DatesToIncldCmpltdTsksOnClr", 'D', 0}, {4, L"IncldPastCmpltdTsksInClndr", 'D', 0},
    {4, L"FutureLimitTsksOnClr", 'D', 0}, {4, L"TasksSubsortOnCal", 'D', 0}, {4, L"SkipActiveTsksWeekends", 'D', 0},
    {4, L"DueDateTsksDateFrmt", 'D', 0}, {4, L"ShowActiveTsksOnCal", 'D', 1}, {4, L"PaintTsksBeforeAppts", 'D', 0},
    {4, L"ConfirmTaskComplete", 'D', 0}, {4, L"DayTtlFrmt", 'D', 1}, {4, L"dDayBreaker", 'D', 3},
    {4, L"TimeLines", 'D', 2}, {4, L"ShowTomorrowTtl", 'D', 1}, {4, L"IncldCounters", 'D', 0},
    {4, L"UseSmartFolding", 'D', 1}, {4, L"FoldingType", 'D', 2}, {4, L"FilterFreeApptsFromTL", 'D', 0},
    {4, L"ForceTodayTitleDsply", 'D', 0}, {4, L"AppendDateToTodayTtl", 'D', 0}, {4, L"AppendDaysCountTottl", 'D', 0},
    {4, L"AppendWeekNumTottl", 'D', 0}, {4, L"TimelinesStart", 'D', 0}, {4, L"TimelinesLength", 'D', 18},
    {4, L"TimelinesVertZ", 'D', 1}, {4, L"TimelinesHorZ", 'D', 1}, {4, L"ApptLeftAlignIcon1", 'D', 0},
    {4, L"ApptLeftAlignIcon2", 'D', 0}, {4, L"TaskLeftAlignIcon1", 'D', 0}, {4, L"TaskLeftAlignIcon2", 'D', 0},
    {4, L"ClrApptRightIcons", 'D', 479}, {4, L"ClrTaskRightIcons", 'D', 383}, {4, L"ApptDisplayFormat", 'D', 6},
    {4, L"OnPopupMonthCalClick", 'D', 0}, {4, L"MonthlyPopupCalDateFrmt", 'D', 0}, {4, L"MonthlyStartDay", 'L', 0},
    {4, L"FirstWorkDay", 'L', 0}, {4, L"MonthlyPopWithWeekNum", 'D', 0}, {4, L"MonthlyPopTimelines", 'D', 2},
    {4, L"MonthlyPopCatIcons", 'D', 1}, {4, L"MonthlyPopIconsSize", 'D', 6}, {4, L"PopupClrDPadNavigation", 'D', 1},
    {4, L"PinnedMonthlyClr", 'D', 0}, {4, L"IncludeMainOnCal", 'D', 0}, {4, L"MailHideWhenZeroMsgs", 'D', 0},
    {4, L"MailTitleFormat", 'D', 0}, {4, L"MailSoftwareToUse", 'D', 0}, {4, L"MailCustomInboxStr", 'S', 0, L""},
    {4, L"HideMailTtlUnderToday", 'D', 0}, {4, L"ShowMailCounterOnTtl", 'D', 1}, {4, L"Force2DigitsTImeFrmt", 'D', 0},
    {4, L"SkinTodayWhenCollpsAll", 'D', 0}, {4, L"HumanTime", 'D', 0}, {4, L"HideOverDueTsksDayTtl", 'D', 0},
    {4, L"HideUndatedTsksDayTtl", 'D', 0}, {4, L"CustomDayttlFrmtDefault", 'S', 0, L""},
    {4, L"CalTitlesOrder0", 'D', 0}, {4, L"CalTitlesOrder1", 'D', 1}, {4, L"CalTitlesOrder2", 'D', 2},
    {4, L"CalTitlesOrder3", 'D', 3}, {4, L"CalTitlesOrder4", 'D', 4}, {4, L"CalTitlesOrder5", 'D', 5},
    {4, L"CalendarSelCategory", 'S', 0, L""}, {4, L"CalendarSelFilter", 'D', 0}, {4, L"FoldState", 'B', 16},
    {5, L"TsksDateFrmt", 'D', 3}, {5, L"TsksLimitFutureDate", 'D', 0}, {5, L"HideCompletedTasks", 'D', 0},
    {5, L"HidePastCompletedTasks", 'D', 1}, {5, L"ConfirmTaskCompleteTsks", 'D', 1},
    {5, L"RemoveUndatedLeadingStr", 'D', 0}, {5, L"RemoveUndatedTsks", 'D', 0}, {5, L"TsksLineBreaker", 'D', 3},
    {5, L"TsksFoldingType", 'D', 2}, {5, L"TsksUseSmartFolding", 'D', 1}, {5, L"IncludeCountersTsks", 'D', 1},
    {5, L"TaskTabLeftAlignIcon1", 'D', 0}, {5, L"TaskTabLeftAlignIcon2", 'D', 0}, {5, L"TasksRightIcons", 'D', 383},
    {5, L"UseCustomDateTsks", 'D', 0}, {5, L"TsksCustomDateStruct", 'D', 1}, {5, L"CustomDateFrmtStart", 'S', 0, L""},
    {5, L"CustomDateFrmtEnd", 'S', 0, L""}, {5, L"TasksSelCategory", 'S', 0, L""}, {5, L"TasksSelFilter", 'D', 0},
    {5, L"TasksSlideoutOpen", 'D', 1}, {5, L"TsksGrouping", 'D', 15}, {5, L"TsksGroupingDirctn", 'D', 1},
    {5, L"TsksSrt1", 'D', 0}, {5, L"TsksSrt1Dirctn", 'D', 1}, {5, L"TsksSrt2", 'D', 2},
    {5, L"TsksSrt2Dirctn", 'D', 1}, {5, L"TsksSrt3", 'D', 5}, {5, L"TsksSrt3Dirctn", 'D', 1},
    {5, L"FoldState", 'B', 6}, {5, L"FoldStateCategory", 'S', 0, L""},
    {6, L"NotesActiveSearchBar", 'D', 1}, {6, L"NotesCustomSearchBarSelected", 'S', 0, L""},
    {6, L"NotesPreviewNotesState", 'D', 2}, {6, L"NotesBreakLineStyle", 'D', 3}, {6, L"NotesIncldFoldBttns", 'D', 1},
    {6, L"NotesIncldCounters", 'D', 1}, {6, L"NotesScannedFileTypes", 'D', 255}, {6, L"NotesSelFolder", 'S', 0, L""},
    {6, L"NotesSlideoutOpen", 'D', 1}, {6, L"NotesTabGrouping", 'D', 1}, {6, L"NotesGroupingDirctn", 'D', 1},
    {6, L"DisplayOnNotesTab", 'D', 5}, {6, L"NotesTab1Sort", 'D', 0}, {6, L"NotesTab1SortDirect", 'D', 1},
    {6, L"NotesSearchMode", 'D', 0}, {6, L"FoldingStateNone", 'D', 0}, {6, L"FoldingStateFolder", 'S', 0, L""},
    {6, L"FoldingStateProgress", 'D', 0}, {6, L"FoldingStateType", 'D', 0},
    {7, L"CntctsActiveLanguages", 'D', 1}, {7, L"CntctsActiveSearchBar", 'D', 1},
    {7, L"ContactsCustomSearchBarSelected", 'S', 0, L""}, {7, L"CntctsTitleStruct", 'D', 0},
    {7, L"CntctsDPadActionOverride", 'D', 1}, {7, L"CntctsOnClickActionOpenItem", 'D', 0},
    {7, L"CntctsPrvwDlgUponOpenItem", 'D', 0}, {7, L"ContactsTxtByCategoryClr", 'D', 0},
    {7, L"CntctsBreakLineStyle", 'D', 3}, {7, L"CntctsIncldFoldBttns", 'D', 1}, {7, L"CntctsIncldCounters", 'D', 1},
    {7, L"ContactsLayout", 'D', 0}, {7, L"CntctsPhoneColumnWidth", 'D', 90}, {7, L"CntctsHideNoPicture", 'D', 0},
    {7, L"ContactsSelCategory", 'S', 0, L""}, {7, L"ContactsSelFilter", 'D', 0}, {7, L"ContactsSlideoutOpen", 'D', 1},
    {7, L"ContactsGrouping", 'D', 0}, {7, L"ContactsGroupingDirection", 'D', 1},
    {7, L"ContactsSortDirection", 'D', 1}, {7, L"ContactsSearchMode", 'D', 0}, {7, L"FoldingStateNone", 'D', 0},
    {7, L"FoldingStateCategory", 'S', 0, L""}, {7, L"FoldingStateCompany", 'S', 0, L""},
    {8, L"MsgsDPadActionOverride", 'D', 1}, {8, L"MsgsOpenOnClick", 'D', 0}, {8, L"MsgsPreviewWhenOpen", 'D', 0},
    {8, L"MsgsMrkReadOnPrev", 'D', 1}, {8, L"MsgsBreakLineStyle", 'D', 3}, {8, L"MsgsIncldCounters", 'D', 1},
    {8, L"MsgsIncldFoldBttns", 'D', 1}, {8, L"FoldingStateAcct", 'S', 0, L""},
    {9, L"SEventDays", 'D', 2}, {9, L"SEAlertBeforeDays", 'D', 0}, {9, L"SEDateFormat", 'D', 0},
    {9, L"SEContactFormat", 'D', 0}, {9, L"SEApptsDaySpan", 'D', 30}, {9, L"SEFilterAlertBeforeDays", 'D', 0},
    {9, L"AdditionalFilterCat1", 'S', 0, L""}, {9, L"AdditionalFilterCat2", 'S', 0, L""},
    {9, L"AdditionalFilterCat3", 'S', 0, L""}, {9, L"AdditionalFilterCat4", 'S', 0, L""},
    {9, L"BreakLineStyle", 'D', 3}, {9, L"IncldFoldBttns", 'D', 1}, {9, L"IncldCounters", 'D', 1},
    {9, L"SEventsSelCategory", 'S', 0, L""}, {9, L"SEventsSelFilter", 'D', 0}, {9, L"FoldingState", 'D', 0},
    {10, L"FontGnrlSize", 'D', 12}, {10, L"FontGnrlTitlesSize", 'D', 12}, {10, L"FontGnrlUseAdvncd", 'D', 0},
    {10, L"FontFaceToUse", 'S', 0, L"Tahoma"}, {10, L"UseShadowColor", 'D', 0}, {10, L"ForceClearType", 'D', 0},
    {11, L"SeperatorLineClr", 'D', 0xFFFFFFFF}, {11, L"ShadowFontColor", 'D', 0xFFFFFFFF},
    {11, L"GeneralFontColor", 'D', 0xFFFFFFFF}, {11, L"HighlightBgClr", 'D', 0xFFFFFFFF},
    {11, L"HighlightTextClr", 'D', 0xFFFFFFFF}, {11, L"TimeLinesBgClr", 'D', 0xFFFFFFFF},
    {11, L"TimeLinesDfltClr", 'D', 0xFFFFFFFF}, {11, L"ClrBreakingLineClr", 'D', 0xFFFFFFFF},
    {11, L"ClrPopupClrBg", 'D', 0xFFFFFFFF}, {11, L"ClrPopupCurr", 'D', 0xFFFFFFFF},
    {11, L"ClrPopupHighlight", 'D', 0xFFFFFFFF}, {11, L"TskBreakingLineClr", 'D', 0xFFFFFFFF},
    {11, L"ClrStatusFree", 'D', 0xFFFFFFFF}, {11, L"ClrStatusBusy", 'D', 0xFFFFFFFF},
    {11, L"ClrStatusTentative", 'D', 0xFFFFFFFF}, {11, L"ClrStatusOutofoffice", 'D', 0xFFFFFFFF},
    {12, L"PimSw", 'D', 0}, {12, L"OverridePimCatIcons", 'D', 0}, {12, L"OverridePimCatColros", 'D', 0},
    {12, L"LeaveAFRunning", 'D', 0}, {12, L"HideABCVals", 'D', 1},
    {13, L"CalendarTabEnabled", 'D', 1}, {13, L"CalendarTabOrder", 'D', 1}, {13, L"TasksTabEnabled", 'D', 1},
    {13, L"TasksTabOrder", 'D', 2}, {13, L"NotesTabEnabled", 'D', 1}, {13, L"NotesTabOrder", 'D', 3},
    {13, L"ContactsTabEnabled", 'D', 1}, {13, L"ContactsTabOrder", 'D', 4}, {13, L"MailTabEnabled", 'D', 1},
    {13, L"MailTabOrder", 'D', 5}, {13, L"SEventsTabEnabled", 'D', 1}, {13, L"SEventsTabOrder", 'D', 6},
    {13, L"DfltTabTimeOut", 'D', 0}, {13, L"DfltTab", 'D', 0}, {13, L"DfltTabOnStartup", 'D', 0},
    {14, L"AdditionalIconsFolder", 'S', 0, L""}
};

struct ExpectedFont {
    const wchar_t* name;
    DWORD weight, strikeOut;
};
const ExpectedFont kFonts[] = {
    {L"FontGeneral", 100, 0}, {L"FontCalTasks", 100, 0}, {L"FontCalTasksOverdue", 100, 0},
    {L"FontCalTasksFuture", 100, 0}, {L"FontCalTasksCompleted", 100, 0}, {L"FontCalTasksUndated", 100, 0},
    {L"FontCalApptBusy", 100, 0}, {L"FontCalApptFree", 100, 0}, {L"FontCalApptOutOfOffice", 100, 0},
    {L"FontCalTentative", 100, 0}, {L"FontCalPast", 100, 1}, {L"FontCalCompleted", 100, 1}, {L"FontMailRead", 100, 0},
    {L"FontMailUnread", 700, 0}, {L"FontCalDayTitles", 700, 0}, {L"FontTskOverdue", 100, 0},
    {L"FontTskDueToday", 100, 0}, {L"FontTskNoDue", 100, 0}, {L"FontTskFutureDue", 100, 0},
    {L"FontTskGroupingTtls", 700, 0}, {L"FontNoteItems", 100, 0}, {L"FontNoteTitles", 700, 0},
    {L"FontContactItems", 100, 0}, {L"FontContactTitles", 700, 0}, {L"FontMsgsUnread", 700, 0},
    {L"FontMsgsRead", 100, 0}, {L"FontMsgsTitles", 700, 0}, {L"FontSEGeneral", 100, 0}, {L"FontSEFilter1", 100, 0},
    {L"FontSEFilter2", 100, 0}, {L"FontSEFilter3", 100, 0}, {L"FontSEFilter4", 100, 0},
    {L"FontSEGroupingTtls", 700, 0}
};

const wchar_t* const kFontSuffixes[6] = {L"lfWeight", L"lfItalic", L"lfUnderline", L"lfStrikeOut", L"lfHeight",
                                         L"lfColor"};

Setting* Find(SettingsRecord& record, unsigned key, const std::wstring& name) {
    for (Setting* setting : record.groups[key]->settings())
        if (setting->keyIndex == key && name == setting->valueName.c_str()) return setting;
    return nullptr;
}

// In the order of the suffixes.
std::array<IntSetting*, 6> FontParts(FontSetting& font) {
    return {&font.weight, &font.italic, &font.underline, &font.strikeOut, &font.height, &font.colour};
}

DWORD LocaleFirstDay() {
    wchar_t text[5] = {};
    GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_IFIRSTDAYOFWEEK, text, 5);
    return static_cast<DWORD>(wcstol(text, nullptr, 10));
}

class SettingsTable : public ::testing::Test {
protected:
    void SetUp() override { RemoveProductKeys(); }
    void TearDown() override { RemoveProductKeys(); }
    LoadedRecord loaded_;
};

TEST_F(SettingsTable, EverySettingExistsUnderItsKeyWithItsTypeAndDefault) {
    loaded_.load();
    SettingsRecord& r = *loaded_;
    std::map<unsigned, size_t> perKey;
    for (const Expected& e : kTable) {
        SCOPED_TRACE(Narrow(e.name));
        if (e.kind == 'I') {
            EXPECT_EQ(std::wstring(r.installFolder.c_str()), std::wstring(e.text) + L"\\Orvane\\Quillory");
            continue;
        }
        ++perKey[e.key];
        Setting* setting = Find(r, e.key, e.name);
        ASSERT_NE(setting, nullptr) << "key " << e.key;
        if (e.kind == 'S') {
            auto* text = dynamic_cast<StringSetting*>(setting);
            ASSERT_NE(text, nullptr);
            EXPECT_STREQ(text->defaultValue.c_str(), e.text);
            EXPECT_STREQ(text->c_str(), e.text);
        } else if (e.kind == 'B') {
            auto* bits = dynamic_cast<BitSetSetting*>(setting);
            ASSERT_NE(bits, nullptr);
            ASSERT_EQ(bits->byteCount, e.number);
            for (DWORD i = 0; i < e.number; ++i) EXPECT_EQ(bits->bits[i], 0);
        } else {
            auto* number = dynamic_cast<IntSetting*>(setting);
            ASSERT_NE(number, nullptr);
            DWORD expected = e.kind == 'L' ? LocaleFirstDay() : e.number;
            EXPECT_EQ(number->defaultValue, expected);
            EXPECT_EQ(number->value, expected);
        }
    }
    perKey[kKeyFonts] += sizeof kFonts / sizeof kFonts[0];
    for (unsigned key = 0; key < kKeyCount; ++key)
        EXPECT_EQ(r.groups[key]->settings().size(), perKey[key]) << "settings beyond the table under key " << key;

    std::vector<std::wstring> fontOrder, expectedOrder;
    for (Setting* setting : r.groups[kKeyFonts]->settings())
        if (dynamic_cast<FontSetting*>(setting)) fontOrder.push_back(setting->valueName.c_str());
    for (const ExpectedFont& f : kFonts) {
        expectedOrder.push_back(f.name);
        auto* font = dynamic_cast<FontSetting*>(Find(r, kKeyFonts, f.name));
        ASSERT_NE(font, nullptr) << Narrow(f.name);
        const DWORD defaults[6] = {f.weight, 0, 0, f.strikeOut, 12, 0xFFFFFFFF};
        std::array<IntSetting*, 6> parts = FontParts(*font);
        for (int i = 0; i < 6; ++i) {
            EXPECT_EQ(std::wstring(parts[i]->valueName.c_str()), std::wstring(f.name) + kFontSuffixes[i]);
            EXPECT_EQ(parts[i]->keyIndex, static_cast<unsigned>(kKeyFonts));
            EXPECT_EQ(parts[i]->defaultValue, defaults[i]) << Narrow(parts[i]->valueName.c_str());
            EXPECT_EQ(parts[i]->value, defaults[i]) << Narrow(parts[i]->valueName.c_str());
        }
        EXPECT_EQ(font->font.lfWeight, static_cast<LONG>(f.weight));
        EXPECT_EQ(font->font.lfStrikeOut, f.strikeOut);
    }
    EXPECT_EQ(Join(fontOrder), Join(expectedOrder)) << "the fonts in load order";
}

TEST_F(SettingsTable, EveryFontLoadsAndSavesItsSixValues) {
    auto stored = [](size_t font, int part) { return static_cast<DWORD>(1000 + font * 10 + part); };
    for (size_t f = 0; f < sizeof kFonts / sizeof kFonts[0]; ++f)
        for (int i = 0; i < 6; ++i)
            RegPutDword(HKEY_CURRENT_USER, kFontsPath, (std::wstring(kFonts[f].name) + kFontSuffixes[i]).c_str(),
                        stored(f, i));
    loaded_.load();
    for (size_t f = 0; f < sizeof kFonts / sizeof kFonts[0]; ++f) {
        auto* font = dynamic_cast<FontSetting*>(Find(*loaded_, kKeyFonts, kFonts[f].name));
        ASSERT_NE(font, nullptr);
        std::array<IntSetting*, 6> parts = FontParts(*font);
        for (int i = 0; i < 6; ++i) {
            EXPECT_EQ(parts[i]->value, stored(f, i)) << Narrow(kFonts[f].name) << i;
            SetInt(*parts[i], stored(f, i) + 1);
        }
    }
    SaveSettings(*loaded_);
    for (size_t f = 0; f < sizeof kFonts / sizeof kFonts[0]; ++f)
        for (int i = 0; i < 6; ++i)
            EXPECT_REG_DWORD(HKEY_CURRENT_USER, kFontsPath, (std::wstring(kFonts[f].name) + kFontSuffixes[i]).c_str(),
                             stored(f, i) + 1);
}

}  // namespace
