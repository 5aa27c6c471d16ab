#pragma once
// The settings record: every option of the product as a setting object, grouped by registry key.
// Members are named after their registry values, so a page reads g_settings.calendar.dNumOfDays
// and changes it with SetInt(g_settings.calendar.dNumOfDays, 14). Each setting is declared once
// here with its value name, default and flags; loading and saving walk the groups.
#include <windows.h>

#include "settings/key_table.h"
#include "settings/setting_types.h"
#include "settings/tab_list.h"
#include "support/wide_string.h"

// The product's Today-screen item, key 0 (HKLM). Read, never written.
struct TodayItemSettings : SettingGroup {
    TodayItemSettings() : SettingGroup(kKeyTodayItem) {}
    StringSetting ProgramFiles{this, L"ProgramFiles", L"\\Program Files", kNeverSaved};
};

// Pocket Informant, key 1 (HKCU). Read, never written.
struct PocketInformantSettings : SettingGroup {
    PocketInformantSettings() : SettingGroup(kKeyPocketInformant) {}
    StringSetting IconPath{this, L"IconPath", L"My Documents\\WebIS\\Icons", kNeverSaved};
    StringSetting WebIS_Folder{this, L"WebIS_Folder", L"My Documents", kNeverSaved};
    StringSetting PIVOL{this, L"PIVOL", L"\\WebIS\\PocketInformant.vol", kNeverSaved, &WebIS_Folder.value};
};

// Agenda Fusion, key 2 (HKLM). Read, never written.
struct AgendaFusionSettings : SettingGroup {
    AgendaFusionSettings() : SettingGroup(kKeyAgendaFusion) {}
    StringSetting CoreCategories{this, L"Core.Categories", L"Program Files\\Agenda Fusion\\Icons", kNeverSaved};
};

// The general settings, key 3.
struct GeneralSettings : SettingGroup {
    explicit GeneralSettings(const WString* productFolder) : SettingGroup(kKeyGeneral), productFolder(productFolder) {}
    const WString* productFolder;  // declared first: the folder defaults read it
    IntSetting OnClick{this, L"OnClick", 0};
    IntSetting OnDoubleClick{this, L"OnDoubleClick", 0};
    StringSetting SelectedLangResFile{this, L"SelectedLangResFile", L"\\Program Files\\Orvane\\Quillory\\LangRes\\QLEngRc.dll"};
    StringSetting SkinPath{this, L"SkinPath", L""};
    IntSetting EnableSoundEffect{this, L"EnableSoundEffect", 1};
    IntSetting RemoveHighlight{this, L"RemoveHighlight", 0};
    IntSetting GoofyMode{this, L"GoofyMode", 0};
    IntSetting IndentItems{this, L"IndentItems", 0};
    IntSetting AutoHeight{this, L"AutoHeight", 1};
    IntSetting dHeightLimit{this, L"dHeightLimit", 160, kScaledDefault};
    IntSetting dHeightLimitLandscape{this, L"dHeightLimitLandscape", 0};
    IntSetting RemoveTabsBar{this, L"RemoveTabsBar", 0};
    IntSetting RemoveSettingsButton{this, L"RemoveSettingsButton", 0};
    IntSetting RemoveSeparatingLine{this, L"RemoveSeparatingLine", 1};
    IntSetting FilterTtlAlign{this, L"FilterTtlAlign", 0};
    IntSetting VerticalTabs{this, L"VerticalTabs", 1};
    IntSetting DPadEnabled{this, L"DPadEnabled", 1};
    IntSetting DPadMode{this, L"DPadMode", 0};
    IntSetting DPadCompleteAction{this, L"DPadCompleteAction", 2};
    IntSetting DPadDoubleClickTabSwitching{this, L"DPadDoubleClickTabSwitching", 0};
    IntSetting DPadScrollingAction{this, L"DPadScrollingAction", 0};
    IntSetting ExclusiveDPadNavig{this, L"ExclusiveDPadNavig", 0};
    IntSetting UseDoubleClickScroll{this, L"UseDoubleClickScroll", 1};
    IntSetting UseFullScrollings{this, L"UseFullScrollings", 1};
    IntSetting MyVgaMode{this, L"MyVgaMode", 0};
    IntSetting UseThinLines{this, L"UseThinLines", 0};
    IntSetting LoadingDelay{this, L"LoadingDelay", 0};
    StringSetting QLFiltersFileFolder{this, L"QLFiltersFileFolder", L"", kNeverSaved, productFolder};
    StringSetting QLIconsFolder{this, L"QLIconsFolder", L"\\CategoryIcons", kNeverSaved, productFolder};
    IntSetting FilterMethodToUse{this, L"FilterMethodToUse", 0};
    IntSetting NoteZoom{this, L"NoteZoom", 100, kNeverSaved};
    IntSetting ActiveTab{this, L"ActiveTab", 1, kNeverSaved};
    IntSetting LastMinimizeState{this, L"LastMinimizeState", 0, kNeverSaved};
    IntSetting FirstTimeSettingsMsg{this, L"FirstTimeSettingsMsg", 0};
};

// The calendar tab, key 4.
struct CalendarSettings : SettingGroup {
    CalendarSettings() : SettingGroup(kKeyCalendar) {}
    IntSetting dNumOfDays{this, L"dNumOfDays", 7};
    IntSetting HideEmptyGroups{this, L"HideEmptyGroups", 1};
    IntSetting HideEmptyGroupsItem{this, L"HideEmptyGroupsItem", 0};
    IntSetting SEventsOnClr{this, L"SEventsOnClr", 0};
    IntSetting FirstWeekInYear{this, L"FirstWeekInYear", 0};
    IntSetting ClrTextColor{this, L"ClrTextColor", 0};
    IntSetting ClrSortTsksWithAppts{this, L"ClrSortTsksWithAppts", 0};
    IntSetting dAppoPassedToday{this, L"dAppoPassedToday", 0};
    IntSetting IncludeYearlyCounters{this, L"IncludeYearlyCounters", 1};
    IntSetting LeadingRects{this, L"LeadingRects", 1};
    IntSetting Conflicting{this, L"Conflicting", 1};
    IntSetting IncldTasksInCR{this, L"IncldTasksInCR", 1};
    IntSetting IncldOverDueTsksInCR{this, L"IncldOverDueTsksInCR", 1};
    IntSetting IncldFutureTsksInCR{this, L"IncldFutureTsksInCR", 1};
    IntSetting IncldUndatedTsksInCR{this, L"IncldUndatedTsksInCR", 0};
    IntSetting DatesToIncldCmpltdTsksOnClr{this, L"DatesToIncldCmpltdTsksOnClr", 0};
    IntSetting IncldPastCmpltdTsksInClndr{this, L"IncldPastCmpltdTsksInClndr", 0};
    IntSetting FutureLimitTsksOnClr{this, L"FutureLimitTsksOnClr", 0};
    IntSetting TasksSubsortOnCal{this, L"TasksSubsortOnCal", 0};
    IntSetting SkipActiveTsksWeekends{this, L"SkipActiveTsksWeekends", 0};
    IntSetting DueDateTsksDateFrmt{this, L"DueDateTsksDateFrmt", 0};
    IntSetting ShowActiveTsksOnCal{this, L"ShowActiveTsksOnCal", 1};
    IntSetting PaintTsksBeforeAppts{this, L"PaintTsksBeforeAppts", 0};
    IntSetting ConfirmTaskComplete{this, L"ConfirmTaskComplete", 0};
    IntSetting DayTtlFrmt{this, L"DayTtlFrmt", 1};
    IntSetting dDayBreaker{this, L"dDayBreaker", 3};
    IntSetting TimeLines{this, L"TimeLines", 2};
    IntSetting ShowTomorrowTtl{this, L"ShowTomorrowTtl", 1};
    IntSetting IncldCounters{this, L"IncldCounters", 0};
    IntSetting UseSmartFolding{this, L"UseSmartFolding", 1};
    IntSetting FoldingType{this, L"FoldingType", 2};
    IntSetting FilterFreeApptsFromTL{this, L"FilterFreeApptsFromTL", 0};
    IntSetting ForceTodayTitleDsply{this, L"ForceTodayTitleDsply", 0};
    IntSetting AppendDateToTodayTtl{this, L"AppendDateToTodayTtl", 0};
    IntSetting AppendDaysCountTottl{this, L"AppendDaysCountTottl", 0};
    IntSetting AppendWeekNumTottl{this, L"AppendWeekNumTottl", 0};
    IntSetting TimelinesStart{this, L"TimelinesStart", 0};
    IntSetting TimelinesLength{this, L"TimelinesLength", 18};
    IntSetting TimelinesVertZ{this, L"TimelinesVertZ", 1};
    IntSetting TimelinesHorZ{this, L"TimelinesHorZ", 1};
    IntSetting ApptLeftAlignIcon1{this, L"ApptLeftAlignIcon1", 0};
    IntSetting ApptLeftAlignIcon2{this, L"ApptLeftAlignIcon2", 0};
    IntSetting TaskLeftAlignIcon1{this, L"TaskLeftAlignIcon1", 0};
    IntSetting TaskLeftAlignIcon2{this, L"TaskLeftAlignIcon2", 0};
    IntSetting ClrApptRightIcons{this, L"ClrApptRightIcons", 479};
    IntSetting ClrTaskRightIcons{this, L"ClrTaskRightIcons", 383};
    IntSetting ApptDisplayFormat{this, L"ApptDisplayFormat", 6};
    IntSetting OnPopupMonthCalClick{this, L"OnPopupMonthCalClick", 0};
    IntSetting MonthlyPopupCalDateFrmt{this, L"MonthlyPopupCalDateFrmt", 0};
    IntSetting MonthlyStartDay{this, L"MonthlyStartDay", 0, kFirstDayOfWeekDefault};
    IntSetting FirstWorkDay{this, L"FirstWorkDay", 0, kFirstDayOfWeekDefault};
    IntSetting MonthlyPopWithWeekNum{this, L"MonthlyPopWithWeekNum", 0};
    IntSetting MonthlyPopTimelines{this, L"MonthlyPopTimelines", 2};
    IntSetting MonthlyPopCatIcons{this, L"MonthlyPopCatIcons", 1};
    IntSetting MonthlyPopIconsSize{this, L"MonthlyPopIconsSize", 6, kScaledDefault};
    IntSetting PopupClrDPadNavigation{this, L"PopupClrDPadNavigation", 1};
    IntSetting PinnedMonthlyClr{this, L"PinnedMonthlyClr", 0};
    IntSetting IncludeMainOnCal{this, L"IncludeMainOnCal", 0};
    IntSetting MailHideWhenZeroMsgs{this, L"MailHideWhenZeroMsgs", 0};
    IntSetting MailTitleFormat{this, L"MailTitleFormat", 0};
    IntSetting MailSoftwareToUse{this, L"MailSoftwareToUse", 0};
    StringSetting MailCustomInboxStr{this, L"MailCustomInboxStr", L""};
    IntSetting HideMailTtlUnderToday{this, L"HideMailTtlUnderToday", 0};
    IntSetting ShowMailCounterOnTtl{this, L"ShowMailCounterOnTtl", 1};
    IntSetting Force2DigitsTImeFrmt{this, L"Force2DigitsTImeFrmt", 0};
    IntSetting SkinTodayWhenCollpsAll{this, L"SkinTodayWhenCollpsAll", 0};
    IntSetting HumanTime{this, L"HumanTime", 0};
    IntSetting HideOverDueTsksDayTtl{this, L"HideOverDueTsksDayTtl", 0};
    IntSetting HideUndatedTsksDayTtl{this, L"HideUndatedTsksDayTtl", 0};
    StringSetting CustomDayttlFrmtDefault{this, L"CustomDayttlFrmtDefault", L""};
    // Must form a permutation of 0..5; loading resets them otherwise.
    IntSetting CalTitlesOrder[6] = {{this, L"CalTitlesOrder0", 0}, {this, L"CalTitlesOrder1", 1},
                                    {this, L"CalTitlesOrder2", 2}, {this, L"CalTitlesOrder3", 3},
                                    {this, L"CalTitlesOrder4", 4}, {this, L"CalTitlesOrder5", 5}};
    StringSetting CalendarSelCategory{this, L"CalendarSelCategory", L"", kNeverSaved};
    IntSetting CalendarSelFilter{this, L"CalendarSelFilter", 0, kNeverSaved};
    BitSetSetting FoldState{this, L"FoldState", 125};
};

// The tasks tab, key 5.
struct TasksSettings : SettingGroup {
    TasksSettings() : SettingGroup(kKeyTasks) {}
    IntSetting TsksDateFrmt{this, L"TsksDateFrmt", 3};
    IntSetting TsksLimitFutureDate{this, L"TsksLimitFutureDate", 0};
    IntSetting HideCompletedTasks{this, L"HideCompletedTasks", 0};
    IntSetting HidePastCompletedTasks{this, L"HidePastCompletedTasks", 1};
    IntSetting ConfirmTaskCompleteTsks{this, L"ConfirmTaskCompleteTsks", 1};
    IntSetting RemoveUndatedLeadingStr{this, L"RemoveUndatedLeadingStr", 0};
    IntSetting RemoveUndatedTsks{this, L"RemoveUndatedTsks", 0};
    IntSetting TsksLineBreaker{this, L"TsksLineBreaker", 3};
    IntSetting TsksFoldingType{this, L"TsksFoldingType", 2};
    IntSetting TsksUseSmartFolding{this, L"TsksUseSmartFolding", 1};
    IntSetting IncludeCountersTsks{this, L"IncludeCountersTsks", 1};
    IntSetting TaskTabLeftAlignIcon1{this, L"TaskTabLeftAlignIcon1", 0};
    IntSetting TaskTabLeftAlignIcon2{this, L"TaskTabLeftAlignIcon2", 0};
    IntSetting TasksRightIcons{this, L"TasksRightIcons", 383};
    IntSetting UseCustomDateTsks{this, L"UseCustomDateTsks", 0};
    IntSetting TsksCustomDateStruct{this, L"TsksCustomDateStruct", 1};
    StringSetting CustomDateFrmtStart{this, L"CustomDateFrmtStart", L""};
    StringSetting CustomDateFrmtEnd{this, L"CustomDateFrmtEnd", L""};
    StringSetting TasksSelCategory{this, L"TasksSelCategory", L"", kNeverSaved};
    IntSetting TasksSelFilter{this, L"TasksSelFilter", 0, kNeverSaved};
    IntSetting TasksSlideoutOpen{this, L"TasksSlideoutOpen", 1, kNeverSaved};
    IntSetting TsksGrouping{this, L"TsksGrouping", 15, kNeverSaved};
    IntSetting TsksGroupingDirctn{this, L"TsksGroupingDirctn", 1, kNeverSaved};
    IntSetting TsksSrt1{this, L"TsksSrt1", 0, kNeverSaved};
    IntSetting TsksSrt1Dirctn{this, L"TsksSrt1Dirctn", 1, kNeverSaved};
    IntSetting TsksSrt2{this, L"TsksSrt2", 2, kNeverSaved};
    IntSetting TsksSrt2Dirctn{this, L"TsksSrt2Dirctn", 1, kNeverSaved};
    IntSetting TsksSrt3{this, L"TsksSrt3", 5, kNeverSaved};
    IntSetting TsksSrt3Dirctn{this, L"TsksSrt3Dirctn", 1, kNeverSaved};
    BitSetSetting FoldState{this, L"FoldState", 41};
    StringSetting FoldStateCategory{this, L"FoldStateCategory", L"", kNeverSaved};
};

// The notes tab, key 6.
struct NotesSettings : SettingGroup {
    NotesSettings() : SettingGroup(kKeyNotes) {}
    IntSetting NotesActiveSearchBar{this, L"NotesActiveSearchBar", 1};
    StringSetting NotesCustomSearchBarSelected{this, L"NotesCustomSearchBarSelected", L""};
    IntSetting NotesPreviewNotesState{this, L"NotesPreviewNotesState", 2};
    IntSetting NotesBreakLineStyle{this, L"NotesBreakLineStyle", 3};
    IntSetting NotesIncldFoldBttns{this, L"NotesIncldFoldBttns", 1};
    IntSetting NotesIncldCounters{this, L"NotesIncldCounters", 1};
    IntSetting NotesScannedFileTypes{this, L"NotesScannedFileTypes", 255};
    StringSetting NotesSelFolder{this, L"NotesSelFolder", L"", kNeverSaved};
    IntSetting NotesSlideoutOpen{this, L"NotesSlideoutOpen", 1, kNeverSaved};
    IntSetting NotesTabGrouping{this, L"NotesTabGrouping", 1, kNeverSaved};
    IntSetting NotesGroupingDirctn{this, L"NotesGroupingDirctn", 1, kNeverSaved};
    IntSetting DisplayOnNotesTab{this, L"DisplayOnNotesTab", 5, kNeverSaved};
    IntSetting NotesTab1Sort{this, L"NotesTab1Sort", 0, kNeverSaved};
    IntSetting NotesTab1SortDirect{this, L"NotesTab1SortDirect", 1, kNeverSaved};
    IntSetting NotesSearchMode{this, L"NotesSearchMode", 0, kNeverSaved};
    IntSetting FoldingStateNone{this, L"FoldingStateNone", 0, kNeverSaved};
    StringSetting FoldingStateFolder{this, L"FoldingStateFolder", L"", kNeverSaved};
    IntSetting FoldingStateProgress{this, L"FoldingStateProgress", 0, kNeverSaved};
    IntSetting FoldingStateType{this, L"FoldingStateType", 0, kNeverSaved};
};

// The contacts tab, key 7.
struct ContactsSettings : SettingGroup {
    ContactsSettings() : SettingGroup(kKeyContacts) {}
    IntSetting CntctsActiveLanguages{this, L"CntctsActiveLanguages", 1};
    IntSetting CntctsActiveSearchBar{this, L"CntctsActiveSearchBar", 1};
    StringSetting ContactsCustomSearchBarSelected{this, L"ContactsCustomSearchBarSelected", L""};
    IntSetting CntctsTitleStruct{this, L"CntctsTitleStruct", 0};
    IntSetting CntctsDPadActionOverride{this, L"CntctsDPadActionOverride", 1};
    IntSetting CntctsOnClickActionOpenItem{this, L"CntctsOnClickActionOpenItem", 0};
    IntSetting CntctsPrvwDlgUponOpenItem{this, L"CntctsPrvwDlgUponOpenItem", 0};
    IntSetting ContactsTxtByCategoryClr{this, L"ContactsTxtByCategoryClr", 0};
    IntSetting CntctsBreakLineStyle{this, L"CntctsBreakLineStyle", 3};
    IntSetting CntctsIncldFoldBttns{this, L"CntctsIncldFoldBttns", 1};
    IntSetting CntctsIncldCounters{this, L"CntctsIncldCounters", 1};
    IntSetting ContactsLayout{this, L"ContactsLayout", 0};
    IntSetting CntctsPhoneColumnWidth{this, L"CntctsPhoneColumnWidth", 90};
    IntSetting CntctsHideNoPicture{this, L"CntctsHideNoPicture", 0};
    StringSetting ContactsSelCategory{this, L"ContactsSelCategory", L"", kNeverSaved};
    IntSetting ContactsSelFilter{this, L"ContactsSelFilter", 0, kNeverSaved};
    IntSetting ContactsSlideoutOpen{this, L"ContactsSlideoutOpen", 1, kNeverSaved};
    IntSetting ContactsGrouping{this, L"ContactsGrouping", 0, kNeverSaved};
    IntSetting ContactsGroupingDirection{this, L"ContactsGroupingDirection", 1, kNeverSaved};
    IntSetting ContactsSortDirection{this, L"ContactsSortDirection", 1, kNeverSaved};
    IntSetting ContactsSearchMode{this, L"ContactsSearchMode", 0, kNeverSaved};
    IntSetting FoldingStateNone{this, L"FoldingStateNone", 0, kNeverSaved};
    StringSetting FoldingStateCategory{this, L"FoldingStateCategory", L"", kNeverSaved};
    StringSetting FoldingStateCompany{this, L"FoldingStateCompany", L"", kNeverSaved};
};

// The messages tab, key 8.
struct MessagesSettings : SettingGroup {
    MessagesSettings() : SettingGroup(kKeyMessages) {}
    IntSetting MsgsDPadActionOverride{this, L"MsgsDPadActionOverride", 1};
    IntSetting MsgsOpenOnClick{this, L"MsgsOpenOnClick", 0};
    IntSetting MsgsPreviewWhenOpen{this, L"MsgsPreviewWhenOpen", 0};
    IntSetting MsgsMrkReadOnPrev{this, L"MsgsMrkReadOnPrev", 1};
    IntSetting MsgsBreakLineStyle{this, L"MsgsBreakLineStyle", 3};
    IntSetting MsgsIncldCounters{this, L"MsgsIncldCounters", 1};
    IntSetting MsgsIncldFoldBttns{this, L"MsgsIncldFoldBttns", 1};
    StringSetting FoldingStateAcct{this, L"FoldingStateAcct", L"", kNeverSaved};
};

// The special events tab, key 9.
struct SEventsSettings : SettingGroup {
    SEventsSettings() : SettingGroup(kKeySEvents) {}
    IntSetting SEventDays{this, L"SEventDays", 2};
    IntSetting SEAlertBeforeDays{this, L"SEAlertBeforeDays", 0};
    IntSetting SEDateFormat{this, L"SEDateFormat", 0};
    IntSetting SEContactFormat{this, L"SEContactFormat", 0};
    IntSetting SEApptsDaySpan{this, L"SEApptsDaySpan", 30};
    IntSetting SEFilterAlertBeforeDays{this, L"SEFilterAlertBeforeDays", 0};
    StringSetting AdditionalFilterCat1{this, L"AdditionalFilterCat1", L""};
    StringSetting AdditionalFilterCat2{this, L"AdditionalFilterCat2", L""};
    StringSetting AdditionalFilterCat3{this, L"AdditionalFilterCat3", L""};
    StringSetting AdditionalFilterCat4{this, L"AdditionalFilterCat4", L""};
    IntSetting BreakLineStyle{this, L"BreakLineStyle", 3};
    IntSetting IncldFoldBttns{this, L"IncldFoldBttns", 1};
    IntSetting IncldCounters{this, L"IncldCounters", 1};
    StringSetting SEventsSelCategory{this, L"SEventsSelCategory", L"", kNeverSaved};
    IntSetting SEventsSelFilter{this, L"SEventsSelFilter", 0, kNeverSaved};
    IntSetting FoldingState{this, L"FoldingState", 0, kNeverSaved};
};

// The fonts, key 10.
struct FontsSettings : SettingGroup {
    FontsSettings() : SettingGroup(kKeyFonts) {}
    IntSetting FontGnrlSize{this, L"FontGnrlSize", 12, kScaledDefault};
    IntSetting FontGnrlTitlesSize{this, L"FontGnrlTitlesSize", 12, kScaledDefault};
    IntSetting FontGnrlUseAdvncd{this, L"FontGnrlUseAdvncd", 0};
    StringSetting FontFaceToUse{this, L"FontFaceToUse", L"Tahoma"};
    IntSetting UseShadowColor{this, L"UseShadowColor", 0};
    IntSetting ForceClearType{this, L"ForceClearType", 0};
    // The 33 font settings, in load order.
    FontSetting FontGeneral{this, L"FontGeneral", 100};
    FontSetting FontCalTasks{this, L"FontCalTasks", 100};
    FontSetting FontCalTasksOverdue{this, L"FontCalTasksOverdue", 100};
    FontSetting FontCalTasksFuture{this, L"FontCalTasksFuture", 100};
    FontSetting FontCalTasksCompleted{this, L"FontCalTasksCompleted", 100};
    FontSetting FontCalTasksUndated{this, L"FontCalTasksUndated", 100};
    FontSetting FontCalApptBusy{this, L"FontCalApptBusy", 100};
    FontSetting FontCalApptFree{this, L"FontCalApptFree", 100};
    FontSetting FontCalApptOutOfOffice{this, L"FontCalApptOutOfOffice", 100};
    FontSetting FontCalTentative{this, L"FontCalTentative", 100};
    FontSetting FontCalPast{this, L"FontCalPast", 100, true};
    FontSetting FontCalCompleted{this, L"FontCalCompleted", 100, true};
    FontSetting FontMailRead{this, L"FontMailRead", 100};
    FontSetting FontMailUnread{this, L"FontMailUnread", 700};
    FontSetting FontCalDayTitles{this, L"FontCalDayTitles", 700};
    FontSetting FontTskOverdue{this, L"FontTskOverdue", 100};
    FontSetting FontTskDueToday{this, L"FontTskDueToday", 100};
    FontSetting FontTskNoDue{this, L"FontTskNoDue", 100};
    FontSetting FontTskFutureDue{this, L"FontTskFutureDue", 100};
    FontSetting FontTskGroupingTtls{this, L"FontTskGroupingTtls", 700};
    FontSetting FontNoteItems{this, L"FontNoteItems", 100};
    FontSetting FontNoteTitles{this, L"FontNoteTitles", 700};
    FontSetting FontContactItems{this, L"FontContactItems", 100};
    FontSetting FontContactTitles{this, L"FontContactTitles", 700};
    FontSetting FontMsgsUnread{this, L"FontMsgsUnread", 700};
    FontSetting FontMsgsRead{this, L"FontMsgsRead", 100};
    FontSetting FontMsgsTitles{this, L"FontMsgsTitles", 700};
    FontSetting FontSEGeneral{this, L"FontSEGeneral", 100};
    FontSetting FontSEFilter1{this, L"FontSEFilter1", 100};
    FontSetting FontSEFilter2{this, L"FontSEFilter2", 100};
    FontSetting FontSEFilter3{this, L"FontSEFilter3", 100};
    FontSetting FontSEFilter4{this, L"FontSEFilter4", 100};
    FontSetting FontSEGroupingTtls{this, L"FontSEGroupingTtls", 700};
};

// The colours, key 11.
struct ColorsSettings : SettingGroup {
    ColorsSettings() : SettingGroup(kKeyColors) {}
    IntSetting SeperatorLineClr{this, L"SeperatorLineClr", 0xFFFFFFFF};
    IntSetting ShadowFontColor{this, L"ShadowFontColor", 0xFFFFFFFF};
    IntSetting GeneralFontColor{this, L"GeneralFontColor", 0xFFFFFFFF};
    IntSetting HighlightBgClr{this, L"HighlightBgClr", 0xFFFFFFFF};
    IntSetting HighlightTextClr{this, L"HighlightTextClr", 0xFFFFFFFF};
    IntSetting TimeLinesBgClr{this, L"TimeLinesBgClr", 0xFFFFFFFF};
    IntSetting TimeLinesDfltClr{this, L"TimeLinesDfltClr", 0xFFFFFFFF};
    IntSetting ClrBreakingLineClr{this, L"ClrBreakingLineClr", 0xFFFFFFFF};
    IntSetting ClrPopupClrBg{this, L"ClrPopupClrBg", 0xFFFFFFFF};
    IntSetting ClrPopupCurr{this, L"ClrPopupCurr", 0xFFFFFFFF};
    IntSetting ClrPopupHighlight{this, L"ClrPopupHighlight", 0xFFFFFFFF};
    IntSetting TskBreakingLineClr{this, L"TskBreakingLineClr", 0xFFFFFFFF};
    IntSetting ClrStatusFree{this, L"ClrStatusFree", 0xFFFFFFFF};
    IntSetting ClrStatusBusy{this, L"ClrStatusBusy", 0xFFFFFFFF};
    IntSetting ClrStatusTentative{this, L"ClrStatusTentative", 0xFFFFFFFF};
    IntSetting ClrStatusOutofoffice{this, L"ClrStatusOutofoffice", 0xFFFFFFFF};
};

// The choice of PIM software, key 12.
struct CustomPimSettings : SettingGroup {
    CustomPimSettings() : SettingGroup(kKeyCustomPim) {}
    IntSetting PimSw{this, L"PimSw", 0};
    IntSetting OverridePimCatIcons{this, L"OverridePimCatIcons", 0};
    IntSetting OverridePimCatColros{this, L"OverridePimCatColros", 0};
    IntSetting LeaveAFRunning{this, L"LeaveAFRunning", 0};
    IntSetting HideABCVals{this, L"HideABCVals", 1};
};

// The category options, key 14.
struct CategoriesSettings : SettingGroup {
    CategoriesSettings() : SettingGroup(kKeyCategories) {}
    StringSetting AdditionalIconsFolder{this, L"AdditionalIconsFolder", L""};
};
// Tab order, enabling and the default tab, key 13, with the list of tabs built from them and from
// the Today plug-in sub-keys.
struct TabSettingsGroup : SettingGroup {
    TabSettingsGroup() : SettingGroup(kKeyTabSettings) {}
    // Saved in member order: the six enabled values, then the six order values, then the default tab.
    IntSetting CalendarTabEnabled{this, L"CalendarTabEnabled", 1};
    IntSetting TasksTabEnabled{this, L"TasksTabEnabled", 1};
    IntSetting NotesTabEnabled{this, L"NotesTabEnabled", 1};
    IntSetting ContactsTabEnabled{this, L"ContactsTabEnabled", 1};
    IntSetting MailTabEnabled{this, L"MailTabEnabled", 1};
    IntSetting SEventsTabEnabled{this, L"SEventsTabEnabled", 1};
    IntSetting CalendarTabOrder{this, L"CalendarTabOrder", 1};
    IntSetting TasksTabOrder{this, L"TasksTabOrder", 2};
    IntSetting NotesTabOrder{this, L"NotesTabOrder", 3};
    IntSetting ContactsTabOrder{this, L"ContactsTabOrder", 4};
    IntSetting MailTabOrder{this, L"MailTabOrder", 5};
    IntSetting SEventsTabOrder{this, L"SEventsTabOrder", 6};
    IntSetting DfltTabTimeOut{this, L"DfltTabTimeOut", 0};
    IntSetting DfltTab{this, L"DfltTab", 0};
    IntSetting DfltTabOnStartup{this, L"DfltTabOnStartup", 0};

    TabList tabs;
};

// A built-in tab: its kind, the string id of its title and its two settings.
struct BuiltInTab {
    TabKind kind;
    UINT titleId;
    IntSetting TabSettingsGroup::*enabled;
    IntSetting TabSettingsGroup::*order;
};
const int kBuiltInTabCount = 6;
// In load order: Calendar, Tasks, Notes, Contacts, Mail, SEvents.
extern const BuiltInTab kBuiltInTabs[kBuiltInTabCount];

// The six system colours read at load time (never stored by this program).
enum SystemColour {
    kShellColour4,
    kShellColour6,
    kShellColour8,
    kShellColour9,
    kShellColour34,
    kShellColour35,
    kSystemColourCount
};

struct SettingsRecord {
    SettingsRecord() = default;
    SettingsRecord(const SettingsRecord&) = delete;
    SettingsRecord& operator=(const SettingsRecord&) = delete;

    // Foreign and install locations.
    AgendaFusionSettings agendaFusion;
    PocketInformantSettings pocketInformant;
    int twelveHourClock = 1;  // from the locale, not stored
    TodayItemSettings todayItem;
    WString productFolder;  // ProgramFiles + "\Orvane\Quillory"
    WString installFolder;  // InstallPath (default ProgramFiles) + "\Orvane\Quillory"
    COLORREF systemColours[kSystemColourCount] = {};

    GeneralSettings general{&productFolder};
    CalendarSettings calendar;
    TasksSettings tasks;
    NotesSettings notes;
    ContactsSettings contacts;
    MessagesSettings messages;
    SEventsSettings sevents;
    FontsSettings fonts;
    ColorsSettings colors;
    CustomPimSettings customPim;
    TabSettingsGroup tabSettings;
    CategoriesSettings categories;

    // Every group, in load order (keys 0 to 14).
    SettingGroup* const groups[kKeyCount] = {&todayItem, &pocketInformant, &agendaFusion, &general, &calendar,
                                             &tasks, &notes, &contacts, &messages, &sevents, &fonts, &colors,
                                             &customPim, &tabSettings, &categories};
    // The program-files folder of the device ("\Program Files" unless the Today item says otherwise).
    const wchar_t* programFilesFolder() const { return todayItem.ProgramFiles.c_str(); }
};

extern SettingsRecord g_settings;

// Fills the record from the registry, loads the language library into `languageLibrary` (freeing
// the one it held) and rebuilds the tab list. Writes nothing to the registry; creates keys 1 to 14
// when missing.
void LoadSettings(SettingsRecord& record, HMODULE& languageLibrary);
// The same for g_settings and g_app.languageLibrary.
void LoadSettings();

// Writes every dirty setting that belongs to this program (write-or-delete against its default)
// and rebuilds the Today plug-in tab sub-keys of TabSettings.
void SaveSettings(SettingsRecord& record);
// The same for g_settings.
void SaveSettings();

// The number of the "OrvaneQuillorySettingsChanged" message, registered on first use and kept in
// g_app.settingsChangedMessage.
UINT SettingsChangedMessage();
// Posts the change message to every top-level window, wParam 0 and lParam 0.
void PostSettingsChanged();

// 0 when the locale's LOCALE_ITIME text starts with "1" or with "49", else 1.
int TwelveHourClockFromTimeFormat(const wchar_t* localeTime);
