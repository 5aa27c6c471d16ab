#include "pages/calendar_page.h"

#include <commctrl.h>

#include <utility>

#include "dialogs/file_browser.h"
#include "dialogs/font_preview.h"
#include "display/display_ids.h"
#include "pages/item_icon_choices.h"
#include "pages/page_texts.h"
#include "pages/today_item_painter.h"
#include "string_ids.h"
#include "support/app_state.h"
#include "support/display_scale.h"
#include "support/handles.h"
#include "support/language_text.h"

namespace {

// ---- controls and sections ------------------------------------------------------------------

enum Control {
    kDaysLabel, kDays, kFirstWeekLabel, kFirstWeek, kTextColourLabel, kTextColour, kHideEmptyDays,
    kHideEmptyDayLine, kSpecialEvents, kSortTasksWithAppts,
    kAppointmentsList, kTasksList, kDayTitlesList, kMonthList, kMailList, kOtherList,
    kTip, kDetailLabel, kDetailCombo, kDetailCheck, kMailProgram, kMailProgramClear, kMailProgramBrowse,
    kDayTitleText, kDayTitleClear, kTitleOrder, kTitleUp, kTitleDown,
    kApptLeft1Label, kApptLeft2Label, kTaskLeft1Label, kTaskLeft2Label, kApptRightLabel, kTaskRightLabel,
    kApptLeft1, kApptLeft2, kTaskLeft1, kTaskLeft2, kApptRight, kTaskRight,
    kControlCount
};

const int kSectionCount = 8;
const int kIconSection = 4;
const int kFirstDetail = kTip, kLastDetail = kDayTitleClear;

// ---- options of the six list sections --------------------------------------------------------

enum OptionKind {
    kCheck,       // the detail check box; 1 when ticked
    kPinned,      // a check whose tick needs a tall enough Today item
    kChoice,      // the detail combo; how it is filled and read is the option's ChoiceFill
    kMailText,    // edit 20 with its clear and browse buttons
    kTitleText,   // edit 23 with its clear button
    kPartOrder,   // the day-title order list and its two buttons
};

enum ChoiceFill {
    kIdChoices,       // string ids; the index is stored
    kOneBased,        // "1", "2"; shows value - 1, stores index + 1
    kLengths,         // "6" to "24"; the index is stored
    kDueDateForms,    // today's date in five forms
    kDayTitleForms,   // today's date in seven forms
    kPopupDateForms,  // today's date in two forms
    kStartHours,      // the locale's times of 0:00 to 18:00; the index is the hour
    kWeekDays,        // the locale's day names, Monday first
    kIconSizes,       // scaled sizes 6 to 14; the size itself is stored
    kDayEndHours,     // "0:00" to "8:00", with " AM" on a twelve-hour clock
};

using Cal = CalendarSettings;

}  // namespace

struct CalendarSettingsWin::Option {
    OptionKind kind;
    IntSetting Cal::*setting;
    UINT titleId, tipId;
    ChoiceFill fill;
    const UINT* choices;
    int choiceCount;
};

struct CalendarSettingsWin::OptionList {
    int section;
    int control;
    const UINT* rowIds;
    int rowCount;
    const CalendarSettingsWin::Option* options;
};

namespace {

using Option = CalendarSettingsWin::Option;
using OptionList = CalendarSettingsWin::OptionList;

#define ITEMS(list) list, static_cast<int>(sizeof list / sizeof list[0])
#define CHECK(setting, title, tip) {kCheck, &Cal::setting, title, tip, kIdChoices, nullptr, 0}
#define CHOICE(setting, title, tip, items) {kChoice, &Cal::setting, title, tip, kIdChoices, ITEMS(items)}
#define FILLED(setting, title, tip, fill) {kChoice, &Cal::setting, title, tip, fill, nullptr, 0}

const UINT kPassedChoices[] = {IDS_CAL_PASSED_SHOW, IDS_CAL_PASSED_HIDE};
const UINT kLeadingRectChoices[] = {IDS_CAL_LEADING_RECTS_NONE, IDS_CAL_LEADING_RECTS_STATUS,
                                    IDS_CAL_LEADING_RECTS_CATEGORY};
const UINT kConflictChoices[] = {IDS_CAL_CONFLICTS_IGNORE, IDS_CAL_CONFLICTS_MARK, IDS_CAL_CONFLICTS_RED};
const UINT kAppointmentRows[] = {IDS_CAL_ROW_PASSED_TODAY, IDS_CAL_ROW_YEARLY_COUNTERS, IDS_CAL_ROW_LEADING_RECTS,
                                 IDS_CAL_ROW_CONFLICTS};
const Option kAppointmentOptions[] = {
    CHOICE(dAppoPassedToday, IDS_CAL_PASSED_TODAY_TITLE, IDS_CAL_PASSED_TODAY_TIP, kPassedChoices),
    CHECK(IncludeYearlyCounters, IDS_CAL_YEARLY_COUNTERS_TITLE, IDS_CAL_YEARLY_COUNTERS_TIP),
    CHOICE(LeadingRects, IDS_CAL_LEADING_RECTS_TITLE, IDS_CAL_LEADING_RECTS_TIP, kLeadingRectChoices),
    CHOICE(Conflicting, IDS_CAL_CONFLICTS_TITLE, IDS_CAL_CONFLICTS_TIP, kConflictChoices),
};

const UINT kCompletedDateChoices[] = {IDS_CAL_COMPLETED_ON_COMPLETION, IDS_CAL_COMPLETED_ON_DUE,
                                      IDS_CAL_COMPLETED_ON_START, IDS_CAL_COMPLETED_HIDDEN};
const UINT kFutureLimitChoices[] = {IDS_FUTURE_LIMIT_NONE,    IDS_FUTURE_LIMIT_TOMORROW, IDS_FUTURE_LIMIT_3_DAYS,
                                    IDS_FUTURE_LIMIT_1_WEEK,  IDS_FUTURE_LIMIT_2_WEEKS,  IDS_FUTURE_LIMIT_1_MONTH,
                                    IDS_FUTURE_LIMIT_3_MONTHS, IDS_FUTURE_LIMIT_1_YEAR};
const UINT kTaskSortChoices[] = {IDS_CAL_TASK_SORT_NONE,     IDS_CAL_TASK_SORT_SUBJECT, IDS_CAL_TASK_SORT_PRIORITY,
                                 IDS_CAL_TASK_SORT_DUE,      IDS_CAL_TASK_SORT_START,   IDS_CAL_TASK_SORT_CATEGORY,
                                 IDS_CAL_TASK_SORT_PRIORITY_DUE};
const UINT kWeekendChoices[] = {IDS_CAL_WEEKENDS_SHOW, IDS_CAL_WEEKENDS_SKIP_SATURDAY, IDS_CAL_WEEKENDS_SKIP_SUNDAY,
                                IDS_CAL_WEEKENDS_SKIP_BOTH};
const UINT kTaskRows[] = {IDS_CAL_ROW_TASKS_IN_CAL,    IDS_CAL_ROW_OVERDUE_TASKS,   IDS_CAL_ROW_FUTURE_TASKS,
                          IDS_CAL_ROW_UNDATED_TASKS,   IDS_CAL_ROW_COMPLETED_DATES, IDS_CAL_ROW_PAST_COMPLETED,
                          IDS_CAL_ROW_FUTURE_LIMIT,    IDS_CAL_ROW_TASK_SORT,       IDS_CAL_ROW_WEEKENDS,
                          IDS_CAL_ROW_DUE_DATE_FORMAT, IDS_CAL_ROW_ACTIVE_TASKS,    IDS_CAL_ROW_TASKS_FIRST,
                          IDS_CAL_ROW_CONFIRM_COMPLETE};
const Option kTaskOptions[] = {
    CHECK(IncldTasksInCR, IDS_CAL_TASKS_IN_CAL_TITLE, IDS_CAL_TASKS_IN_CAL_TIP),
    CHECK(IncldOverDueTsksInCR, IDS_CAL_OVERDUE_TASKS_TITLE, IDS_CAL_OVERDUE_TASKS_TIP),
    CHECK(IncldFutureTsksInCR, IDS_CAL_FUTURE_TASKS_TITLE, IDS_CAL_FUTURE_TASKS_TIP),
    CHECK(IncldUndatedTsksInCR, IDS_CAL_UNDATED_TASKS_TITLE, IDS_CAL_UNDATED_TASKS_TIP),
    CHOICE(DatesToIncldCmpltdTsksOnClr, IDS_CAL_COMPLETED_DATES_TITLE, IDS_CAL_COMPLETED_DATES_TIP,
           kCompletedDateChoices),
    CHECK(IncldPastCmpltdTsksInClndr, IDS_CAL_PAST_COMPLETED_TITLE, IDS_CAL_PAST_COMPLETED_TIP),
    CHOICE(FutureLimitTsksOnClr, IDS_CAL_FUTURE_LIMIT_TITLE, IDS_CAL_FUTURE_LIMIT_TIP, kFutureLimitChoices),
    CHOICE(TasksSubsortOnCal, IDS_CAL_TASK_SORT_TITLE, IDS_CAL_TASK_SORT_TIP, kTaskSortChoices),
    CHOICE(SkipActiveTsksWeekends, IDS_CAL_WEEKENDS_TITLE, IDS_CAL_WEEKENDS_TIP, kWeekendChoices),
    FILLED(DueDateTsksDateFrmt, IDS_CAL_DUE_DATE_FORMAT_TITLE, IDS_CAL_DUE_DATE_FORMAT_TIP, kDueDateForms),
    CHECK(ShowActiveTsksOnCal, IDS_CAL_ACTIVE_TASKS_TITLE, IDS_CAL_ACTIVE_TASKS_TIP),
    CHECK(PaintTsksBeforeAppts, IDS_CAL_TASKS_FIRST_TITLE, IDS_CAL_TASKS_FIRST_TIP),
    CHECK(ConfirmTaskComplete, IDS_CAL_CONFIRM_COMPLETE_TITLE, IDS_CAL_CONFIRM_COMPLETE_TIP),
};

const UINT kDaySeparatorChoices[] = {IDS_LINE_STYLE_NONE, IDS_LINE_STYLE_SOLID, IDS_LINE_STYLE_DOTTED,
                                     IDS_LINE_STYLE_BAR};
const UINT kTimeLineChoices[] = {IDS_CAL_TIME_LINES_OFF, IDS_CAL_TIME_LINES_TODAY, IDS_CAL_TIME_LINES_ALL_DAYS};
const UINT kFoldingChoices[] = {IDS_FOLDING_TITLE_TAP, IDS_FOLDING_BUTTON, IDS_FOLDING_BOTH};
const UINT kDayTitleRows[] = {IDS_CAL_ROW_DAY_TITLE_FORMAT, IDS_CAL_ROW_DAY_SEPARATOR,  IDS_CAL_ROW_TIME_LINES,
                              IDS_CAL_ROW_TOMORROW_TITLE,   IDS_CAL_ROW_COUNTERS,       IDS_CAL_ROW_SMART_FOLDING,
                              IDS_CAL_ROW_FOLDING_TYPE,     IDS_CAL_ROW_FREE_TIME,      IDS_CAL_ROW_FORCE_TODAY,
                              IDS_CAL_ROW_DATE_IN_TODAY,    IDS_CAL_ROW_DAYS_COUNT,     IDS_CAL_ROW_WEEK_NUMBER,
                              IDS_CAL_ROW_TIME_LINES_START, IDS_CAL_ROW_TIME_LINES_LENGTH, IDS_CAL_ROW_TIME_LINES_VZOOM,
                              IDS_CAL_ROW_TIME_LINES_HZOOM};
const Option kDayTitleOptions[] = {
    FILLED(DayTtlFrmt, IDS_CAL_DAY_TITLE_FORMAT_TITLE, IDS_CAL_DAY_TITLE_FORMAT_TIP, kDayTitleForms),
    CHOICE(dDayBreaker, IDS_CAL_DAY_SEPARATOR_TITLE, IDS_CAL_DAY_SEPARATOR_TIP, kDaySeparatorChoices),
    CHOICE(TimeLines, IDS_CAL_TIME_LINES_TITLE, IDS_CAL_TIME_LINES_TIP, kTimeLineChoices),
    CHECK(ShowTomorrowTtl, IDS_CAL_TOMORROW_TITLE_TITLE, IDS_CAL_TOMORROW_TITLE_TIP),
    CHECK(IncldCounters, IDS_CAL_COUNTERS_TITLE, IDS_CAL_COUNTERS_TIP),
    CHECK(UseSmartFolding, IDS_CAL_SMART_FOLDING_TITLE, IDS_CAL_SMART_FOLDING_TIP),
    CHOICE(FoldingType, IDS_CAL_FOLDING_TYPE_TITLE, IDS_CAL_FOLDING_TYPE_TIP, kFoldingChoices),
    CHECK(FilterFreeApptsFromTL, IDS_CAL_FREE_TIME_TITLE, IDS_CAL_FREE_TIME_TIP),
    CHECK(ForceTodayTitleDsply, IDS_CAL_FORCE_TODAY_TITLE, IDS_CAL_FORCE_TODAY_TIP),
    CHECK(AppendDateToTodayTtl, IDS_CAL_DATE_IN_TODAY_TITLE, IDS_CAL_DATE_IN_TODAY_TIP),
    CHECK(AppendDaysCountTottl, IDS_CAL_DAYS_COUNT_TITLE, IDS_CAL_DAYS_COUNT_TIP),
    CHECK(AppendWeekNumTottl, IDS_CAL_WEEK_NUMBER_TITLE, IDS_CAL_WEEK_NUMBER_TIP),
    FILLED(TimelinesStart, IDS_CAL_TIME_LINES_START_TITLE, IDS_CAL_TIME_LINES_START_TIP, kStartHours),
    FILLED(TimelinesLength, IDS_CAL_TIME_LINES_LENGTH_TITLE, IDS_CAL_TIME_LINES_LENGTH_TIP, kLengths),
    FILLED(TimelinesVertZ, IDS_CAL_TIME_LINES_VZOOM_TITLE, IDS_CAL_TIME_LINES_VZOOM_TIP, kOneBased),
    FILLED(TimelinesHorZ, IDS_CAL_TIME_LINES_HZOOM_TITLE, IDS_CAL_TIME_LINES_HZOOM_TIP, kOneBased),
};

const UINT kDayTapChoices[] = {IDS_CAL_DAY_TAP_SHOW_DAY, IDS_CAL_DAY_TAP_OPEN_CALENDAR, IDS_CAL_DAY_TAP_NEW_APPT,
                               IDS_CAL_DAY_TAP_NOTHING};
const UINT kPopupTimeLineChoices[] = {IDS_CAL_POPUP_TIME_LINES_OFF, IDS_CAL_POPUP_TIME_LINES_BUSY,
                                      IDS_CAL_POPUP_TIME_LINES_ALL};
const UINT kDPadChoices[] = {IDS_CAL_DPAD_NAVIGATION_DAYS, IDS_CAL_DPAD_NAVIGATION_WEEKS, IDS_CAL_DPAD_NAVIGATION_OFF};
const UINT kMonthRows[] = {IDS_CAL_ROW_DAY_TAP,         IDS_CAL_ROW_POPUP_DATE_FORMAT, IDS_CAL_ROW_WEEK_START,
                           IDS_CAL_ROW_FIRST_WORK_DAY,  IDS_CAL_ROW_WEEK_NUMBERS,      IDS_CAL_ROW_POPUP_TIME_LINES,
                           IDS_CAL_ROW_CATEGORY_ICONS,  IDS_CAL_ROW_ICON_SIZE,         IDS_CAL_DPAD_NAVIGATION_TITLE,
                           IDS_CAL_ROW_PINNED};
const Option kMonthOptions[] = {
    CHOICE(OnPopupMonthCalClick, IDS_CAL_DAY_TAP_TITLE, IDS_CAL_DAY_TAP_TIP, kDayTapChoices),
    FILLED(MonthlyPopupCalDateFrmt, IDS_CAL_POPUP_DATE_FORMAT_TITLE, IDS_CAL_POPUP_DATE_FORMAT_TIP, kPopupDateForms),
    FILLED(MonthlyStartDay, IDS_CAL_WEEK_START_TITLE, IDS_CAL_WEEK_START_TIP, kWeekDays),
    FILLED(FirstWorkDay, IDS_CAL_FIRST_WORK_DAY_TITLE, IDS_CAL_FIRST_WORK_DAY_TIP, kWeekDays),
    CHECK(MonthlyPopWithWeekNum, IDS_CAL_WEEK_NUMBERS_TITLE, IDS_CAL_WEEK_NUMBERS_TIP),
    CHOICE(MonthlyPopTimelines, IDS_CAL_POPUP_TIME_LINES_TITLE, IDS_CAL_POPUP_TIME_LINES_TIP, kPopupTimeLineChoices),
    CHECK(MonthlyPopCatIcons, IDS_CAL_CATEGORY_ICONS_TITLE, IDS_CAL_CATEGORY_ICONS_TIP),
    FILLED(MonthlyPopIconsSize, IDS_CAL_ICON_SIZE_TITLE, IDS_CAL_ICON_SIZE_TIP, kIconSizes),
    CHOICE(PopupClrDPadNavigation, IDS_CAL_DPAD_NAVIGATION_TITLE, IDS_CAL_DPAD_NAVIGATION_TIP, kDPadChoices),
    {kPinned, &Cal::PinnedMonthlyClr, IDS_CAL_PINNED_TITLE, IDS_CAL_PINNED_TIP, kIdChoices, nullptr, 0},
};

const UINT kMailFormatChoices[] = {IDS_CAL_MAIL_FORMAT_UNREAD, IDS_CAL_MAIL_FORMAT_UNREAD_TOTAL,
                                   IDS_CAL_MAIL_FORMAT_UNREAD_OF_TOTAL, IDS_CAL_MAIL_FORMAT_INBOX};
const UINT kMailProgramChoices[] = {IDS_CAL_MAIL_PROGRAM_MESSAGING, IDS_CAL_MAIL_PROGRAM_CUSTOM};
const UINT kMailRows[] = {IDS_CAL_ROW_MAIL_LINE,          IDS_CAL_ROW_MAIL_HIDE_EMPTY,
                          IDS_CAL_ROW_MAIL_TITLE_FORMAT,  IDS_CAL_ROW_MAIL_PROGRAM,
                          IDS_CAL_ROW_MAIL_CUSTOM_PROGRAM, IDS_CAL_ROW_MAIL_UNDER_TODAY,
                          IDS_CAL_ROW_MAIL_COUNTER};
const Option kMailOptions[] = {
    CHECK(IncludeMainOnCal, IDS_CAL_MAIL_LINE_TITLE, IDS_CAL_MAIL_LINE_TIP),
    CHECK(MailHideWhenZeroMsgs, IDS_CAL_MAIL_HIDE_EMPTY_TITLE, IDS_CAL_MAIL_HIDE_EMPTY_TIP),
    CHOICE(MailTitleFormat, IDS_CAL_MAIL_TITLE_FORMAT_TITLE, IDS_CAL_MAIL_TITLE_FORMAT_TIP, kMailFormatChoices),
    CHOICE(MailSoftwareToUse, IDS_CAL_MAIL_PROGRAM_TITLE, IDS_CAL_MAIL_PROGRAM_TIP, kMailProgramChoices),
    {kMailText, nullptr, 0, IDS_CAL_MAIL_CUSTOM_PROGRAM_TIP, kIdChoices, nullptr, 0},
    CHECK(HideMailTtlUnderToday, IDS_CAL_MAIL_UNDER_TODAY_TITLE, IDS_CAL_MAIL_UNDER_TODAY_TIP),
    CHECK(ShowMailCounterOnTtl, IDS_CAL_MAIL_COUNTER_TITLE, IDS_CAL_MAIL_COUNTER_TIP),
};

const UINT kOtherRows[] = {IDS_CAL_ROW_TWO_DIGIT_HOURS, IDS_CAL_ROW_SKIN_COLLAPSED,   IDS_CAL_ROW_HUMAN_TIME,
                           IDS_CAL_ROW_OVERDUE_TITLE,   IDS_CAL_ROW_UNDATED_TITLE,    IDS_CAL_ROW_CUSTOM_DAY_TITLE,
                           IDS_CAL_ROW_TITLE_ORDER};
const Option kOtherOptions[] = {
    CHECK(Force2DigitsTImeFrmt, IDS_CAL_TWO_DIGIT_HOURS_TITLE, IDS_CAL_TWO_DIGIT_HOURS_TIP),
    CHECK(SkinTodayWhenCollpsAll, IDS_CAL_SKIN_COLLAPSED_TITLE, IDS_CAL_SKIN_COLLAPSED_TIP),
    FILLED(HumanTime, IDS_CAL_HUMAN_TIME_TITLE, IDS_CAL_HUMAN_TIME_TIP, kDayEndHours),
    CHECK(HideOverDueTsksDayTtl, IDS_CAL_OVERDUE_TITLE_TITLE, IDS_CAL_OVERDUE_TITLE_TIP),
    CHECK(HideUndatedTsksDayTtl, IDS_CAL_UNDATED_TITLE_TITLE, IDS_CAL_UNDATED_TITLE_TIP),
    {kTitleText, nullptr, 0, IDS_CAL_CUSTOM_DAY_TITLE_TIP, kIdChoices, nullptr, 0},
    {kPartOrder, nullptr, 0, 0, kIdChoices, nullptr, 0},
};

#define LIST(section, control, rows, options) {section, control, ITEMS(rows), options}
const OptionList kOptionLists[] = {
    LIST(1, kAppointmentsList, kAppointmentRows, kAppointmentOptions),
    LIST(2, kTasksList, kTaskRows, kTaskOptions),
    LIST(3, kDayTitlesList, kDayTitleRows, kDayTitleOptions),
    LIST(5, kMonthList, kMonthRows, kMonthOptions),
    LIST(6, kMailList, kMailRows, kMailOptions),
    LIST(7, kOtherList, kOtherRows, kOtherOptions),
};
#undef LIST
#undef CHECK
#undef CHOICE
#undef FILLED

// ---- section 0 -------------------------------------------------------------------------------

const UINT kFirstWeekChoices[] = {IDS_CAL_FIRST_WEEK_JAN1, IDS_CAL_FIRST_WEEK_FOUR_DAYS, IDS_CAL_FIRST_WEEK_FULL,
                                  IDS_CAL_FIRST_WEEK_SYSTEM};
const UINT kTextColourChoices[] = {IDS_CAL_TEXT_COLOR_NORMAL, IDS_CAL_TEXT_COLOR_CATEGORY, IDS_CAL_TEXT_COLOR_STATUS};
const int kMostDays = 30;

// Check boxes of section 0, in creation and storing order.
struct GeneralCheck {
    int control;
    UINT textId;
    IntSetting Cal::*setting;
};
const GeneralCheck kGeneralChecks[] = {
    {kHideEmptyDays, IDS_CAL_HIDE_EMPTY_DAYS, &Cal::HideEmptyGroups},
    {kHideEmptyDayLine, IDS_CAL_HIDE_EMPTY_DAY_LINE, &Cal::HideEmptyGroupsItem},
    {kSpecialEvents, IDS_CAL_SPECIAL_EVENTS, &Cal::SEventsOnClr},
    {kSortTasksWithAppts, IDS_CAL_SORT_TASKS_WITH_APPTS, &Cal::ClrSortTsksWithAppts},
};

// ---- section 4: icons ------------------------------------------------------------------------

// One kind of item (appointments, tasks): its choices, its two left icons, its right-icon set and
// the strips that edit them.
struct IconKind {
    const ItemIconChoice* choices;
    IntSetting Cal::*left[2];
    IntSetting Cal::*right;
    int leftStrips[2];
    int rightStrip;
};
const IconKind kIconKinds[2] = {
    {kAppointmentIconChoices, {&Cal::ApptLeftAlignIcon1, &Cal::ApptLeftAlignIcon2}, &Cal::ClrApptRightIcons,
     {1, 2}, 5},
    {kTaskIconChoices, {&Cal::TaskLeftAlignIcon1, &Cal::TaskLeftAlignIcon2}, &Cal::ClrTaskRightIcons, {3, 4}, 6},
};
const int kStripControls[6] = {kApptLeft1, kApptLeft2, kTaskLeft1, kTaskLeft2, kApptRight, kTaskRight};

// ---- preview ---------------------------------------------------------------------------------

const int kFirstDisplayFormat = 1, kLastDisplayFormat = 12, kLastTimedFormat = 6;
const COLORREF kArrowsMask = RGB(255, 0, 0);
const wchar_t kMailProgramTitle[] = L"Custom Mail App.";
const wchar_t kProgramExtension[] = L"exe";
const wchar_t kProgramDescription[] = L"Programs (exe)";

CalendarSettings& Calendar() { return g_settings.calendar; }

WString DateText(const SYSTEMTIME& date, const wchar_t* picture, DWORD flags = 0) {
    wchar_t text[128] = {};
    GetDateFormatW(LOCALE_USER_DEFAULT, flags, &date, picture, text, 128);
    return WString(text);
}

bool LocaleHasTwelveHourClock() {
    wchar_t marker[4] = {};
    GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_ITIME, marker, 4);
    return marker[0] == L'0';
}

}  // namespace

// ---- framework slots ---------------------------------------------------------------------------

int CalendarSettingsWin::GetSectionCount() { return kSectionCount; }

UINT CalendarSettingsWin::GetSectionTitleId(int index) { return IDS_SECTION_GENERAL + index; }

int CalendarSettingsWin::GetControlCount() { return kControlCount; }

void CalendarSettingsWin::CreateControls(HWND) {
    CreateGeneralRows();
    CreateOptionLists();
    CreateDetailControls();
    CreateTitleOrderList();
    CreateIconRows();
    EnableControl(kHideEmptyDayLine, !IsChecked(kHideEmptyDays));
}

void CalendarSettingsWin::CreateGeneralRows() {
    CalendarSettings& calendar = Calendar();
    int top = ScaleForDisplayY(8);
    int days = static_cast<int>(calendar.dNumOfDays.value) - 1;
    top += CreateComboRow(kDaysLabel, kDays, IDS_CAL_DAYS_LABEL, nullptr, 0, 0, top, false);
    WString number;
    for (int day = 1; day <= kMostDays; ++day) {
        number.format(L"%d", day);
        SendMessageW(control(kDays), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(number.c_str()));
    }
    SendMessageW(control(kDays), CB_SETCURSEL, days, 0);
    top += CreateComboRow(kFirstWeekLabel, kFirstWeek, IDS_CAL_FIRST_WEEK_LABEL, ITEMS(kFirstWeekChoices),
                          static_cast<int>(calendar.FirstWeekInYear.value), top, false);
    top += CreateComboRow(kTextColourLabel, kTextColour, IDS_CAL_TEXT_COLOR_LABEL, ITEMS(kTextColourChoices),
                          static_cast<int>(calendar.ClrTextColor.value), top, false);
    for (const GeneralCheck& check : kGeneralChecks)
        top += CreateCheckBox(check.control, check.textId, (calendar.*check.setting).value != 0, top) -
               ScaleForDisplayY(3);
}

void CalendarSettingsWin::CreateOptionLists() {
    for (const OptionList& list : kOptionLists) {
        CreateList(list.control, list.rowIds, list.rowCount, ScaleForDisplayY(8));
        FitColumn(control(list.control));
    }
}

// The column takes the list's width less its scroll bar, so no horizontal scroll bar appears.
void CalendarSettingsWin::FitColumn(HWND list) {
    RECT client = {};
    if (list && GetClientRect(list, &client)) SendMessageW(list, LVM_SETCOLUMNWIDTH, 0, client.right);
}

void CalendarSettingsWin::CreateDetailControls() {
    const DWORD kTipStyle = WS_CHILD | SS_LEFT;
    const DWORD kDetailComboStyle = WS_CHILD | WS_VSCROLL | CBS_DROPDOWNLIST;
    const DWORD kDetailCheckStyle = WS_CHILD | BS_AUTOCHECKBOX | BS_LEFTTEXT | BS_RIGHT;
    const DWORD kEditStyle = WS_CHILD | WS_BORDER | ES_AUTOHSCROLL;
    auto s = ScaleForDisplay;
    int width = ClientWidth();
    int top = ScaleForDisplayY(8);
    int row = top + s(42);
    CreateChild(kTip, L"static", L"Tip text", kTipStyle, s(10), top, width - s(20), s(38));
    CreateChild(kDetailLabel, L"static", L"Static combo :", WS_CHILD | SS_RIGHT, 0, top + s(45), s(105), s(20));
    CreateChild(kDetailCombo, L"combobox", L"", kDetailComboStyle, s(108), row, width - s(118), s(100));
    CreateChild(kDetailCheck, L"button", L"Calendar static checkbox", kDetailCheckStyle, s(10), row, width - s(20),
                s(20));
    CreateChild(kMailProgram, L"edit", L"", kEditStyle | ES_READONLY, s(10), row, width - s(115), s(20));
    CreateButton(kMailProgramClear, IDS_BUTTON_CLEAR, width - s(95), row, s(40), s(20));
    CreateButton(kMailProgramBrowse, IDS_BUTTON_BROWSE, width - s(50), row, s(40), s(20));
    CreateChild(kDayTitleText, L"edit", L"", kEditStyle, s(10), row, width - s(70), s(20));
    CreateButton(kDayTitleClear, IDS_BUTTON_CLEAR, width - s(50), row, s(40), s(20));
}

void CalendarSettingsWin::CreateTitleOrderList() {
    const DWORD kOrderStyle =
        WS_CHILD | WS_BORDER | LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_NOCOLUMNHEADER;
    auto s = ScaleForDisplay;
    int top = ScaleForDisplayY(8);
    HWND list = CreateChild(kTitleOrder, WC_LISTVIEWW, L"", kOrderStyle, s(10), top, s(160), s(62));
    CreateButton(kTitleUp, IDS_BUTTON_UP, s(175), top, s(55), s(20));
    CreateButton(kTitleDown, IDS_BUTTON_DOWN, s(175), top + s(25), s(55), s(20));
    if (!list) return;
    SendMessageW(list, LVM_SETEXTENDEDLISTVIEWSTYLE, 0, 0x10000020);
    LVCOLUMNW column = {};
    column.mask = LVCF_TEXT | LVCF_WIDTH;
    column.cx = 300;  // narrowed to the list below: the desktop list has no "no horizontal scroll" style
    column.pszText = const_cast<wchar_t*>(L"Column");
    SendMessageW(list, LVM_INSERTCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
    SendMessageW(list, LVM_DELETEALLITEMS, 0, 0);
    for (int row = 0; row < 6; ++row) {
        DWORD part = Calendar().CalTitlesOrder[row].value;
        if (part > 5) part = row;
        WString text = LanguageText(IDS_CAL_TITLE_PART_DAY_NAME + part);
        LVITEMW item = {};
        item.mask = LVIF_TEXT | LVIF_PARAM;
        item.iItem = row;
        item.pszText = const_cast<wchar_t*>(text.c_str());
        item.lParam = static_cast<LPARAM>(part);
        SendMessageW(list, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
    }
    FitColumn(list);
}

HWND CalendarSettingsWin::CreateStripFor(SettingsPage* page, int stripNumber, HWND parent, int x, int y) {
    auto* calendar = static_cast<CalendarSettingsWin*>(page);
    int number = 0;
    for (int i = 0; i < 6; ++i)
        if (kStripControls[i] == stripNumber) number = i + 1;
    bool dropDown = number <= 4;
    int width = ScaleForDisplay(dropDown ? 22 : 16 * kItemIconChoiceCount);
    return calendar->strip(number).Create(parent, number, x, y, width, dropDown);
}

void CalendarSettingsWin::CreateIconRows() {
    const MarkerRow appointmentRows[3] = {
        {kApptLeft1Label, kApptLeft1, IDS_CAL_APPT_ICON_LEFT1_LABEL},
        {kApptLeft2Label, kApptLeft2, IDS_CAL_APPT_ICON_LEFT2_LABEL},
        {kApptRightLabel, kApptRight, IDS_CAL_APPT_ICON_RIGHT_LABEL},
    };
    const MarkerRow taskRows[3] = {
        {kTaskLeft1Label, kTaskLeft1, IDS_TASK_ICON_LEFT1_LABEL},
        {kTaskLeft2Label, kTaskLeft2, IDS_TASK_ICON_LEFT2_LABEL},
        {kTaskRightLabel, kTaskRight, IDS_TASK_ICON_RIGHT_LABEL},
    };
    int top = ScaleForDisplayY(8);
    top += CreateMarkerRows(appointmentRows, CreateStripFor, top);
    top += CreateMarkerRows(taskRows, CreateStripFor, top);
    previewTop_ = top + ScaleForDisplayY(8);

    for (int kind = 0; kind < 2; ++kind) {
        const IconKind& icons = kIconKinds[kind];
        for (int slot = 0; slot < 2; ++slot)
            FillLeftIconChoices(strip(icons.leftStrips[slot]), icons.choices, (Calendar().*icons.left[slot]).value);
        FillRightIcons(kind);
    }
    ShowControls(kApptLeft1Label, kTaskRight, SW_HIDE);
}

void CalendarSettingsWin::FillRightIcons(int kind) {
    const IconKind& icons = kIconKinds[kind];
    FillRightIconChoices(strip(icons.rightStrip), icons.choices, (Calendar().*icons.left[0]).value,
                         (Calendar().*icons.left[1]).value, (Calendar().*icons.right).value);
}

// ---- sections ----------------------------------------------------------------------------------

void CalendarSettingsWin::ShowSection(HWND window, int showCommand) {
    int section = CurrentSection();
    if (section == 0) {
        ShowControls(kDaysLabel, kSortTasksWithAppts, showCommand);
    } else if (section == kIconSection) {
        ShowControls(kApptLeft1Label, kTaskRight, showCommand);
        ForgetTimeColumnWidth();
    } else if (const OptionList* list = ListOfSection(section)) {
        if (showCommand == SW_HIDE) LeaveOptionList(*list);
        ShowControls(list->control, list->control, showCommand);
    }
    ShowControls(kFirstDetail, kLastDetail, SW_HIDE);
    InvalidateRect(window, nullptr, TRUE);
}

// Stores the option of the selected row, then leaves no row selected or focused.
void CalendarSettingsWin::LeaveOptionList(const OptionList& list) {
    HWND listView = control(list.control);
    if (!listView) return;
    int row = static_cast<int>(SendMessageW(listView, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
    if (row >= 0 && row < list.rowCount) StoreOption(list.options[row]);
    LVITEMW clear = {};
    clear.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    quietLists_ = true;
    SendMessageW(listView, LVM_SETITEMSTATE, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&clear));
    SendMessageW(listView, LVM_SETSELECTIONMARK, 0, -1);
    quietLists_ = false;
}

const OptionList* CalendarSettingsWin::ListOfControl(int number) const {
    for (const OptionList& list : kOptionLists)
        if (list.control == number) return &list;
    return nullptr;
}

const OptionList* CalendarSettingsWin::ListOfSection(int section) const {
    for (const OptionList& list : kOptionLists)
        if (list.section == section) return &list;
    return nullptr;
}

LRESULT CalendarSettingsWin::OnMove(HWND) {
    int top = ScaleForDisplay(68) + ScaleForDisplayY(8);
    int width = ClientWidth() - ScaleForDisplay(20);
    int height = ClientHeight() - ScaleForDisplay(96) - ScaleForDisplayY(8);
    for (const OptionList& list : kOptionLists)
        if (HWND listView = control(list.control)) {
            MoveWindow(listView, ScaleForDisplay(10), top, width, height, TRUE);
            FitColumn(listView);
        }
    return 0;
}

// A row that loses the selection stores its option; a row that gains it shows its option.
LRESULT CalendarSettingsWin::OnNotify(HWND, int, NMHDR* header) {
    if (header->code != LVN_ITEMCHANGED || quietLists_) return 0;
    const OptionList* list = ListOfControl(ControlNumberOf(header->hwndFrom));
    if (!list) return 0;
    auto* change = reinterpret_cast<NMLISTVIEW*>(header);
    if (!(change->uChanged & LVIF_STATE) || change->iItem < 0 || change->iItem >= list->rowCount) return 0;
    bool was = (change->uOldState & LVIS_SELECTED) != 0;
    bool is = (change->uNewState & LVIS_SELECTED) != 0;
    if (was && !is) StoreOption(list->options[change->iItem]);
    if (is && !was) ShowOption(list->options[change->iItem]);
    return 0;
}

// ---- showing and storing an option ---------------------------------------------------------------

void CalendarSettingsWin::ShowOption(const Option& option) {
    ShowControls(kFirstDetail, kLastDetail, SW_HIDE);
    SendMessageW(control(kDetailCombo), CB_RESETCONTENT, 0, 0);
    SetWindowTextW(control(kTip), LanguageText(option.tipId).c_str());
    switch (option.kind) {
    case kChoice:
        FillChoices(option);
        SelectStoredChoice(option);
        SetWindowTextW(control(kDetailLabel), LanguageText(option.titleId).c_str());
        ShowControls(kTip, kDetailCombo, SW_SHOW);
        break;
    case kCheck:
    case kPinned: {
        SetWindowTextW(control(kDetailCheck), LanguageText(option.titleId).c_str());
        bool ticked = (Calendar().*option.setting).value != 0;
        SendMessageW(control(kDetailCheck), BM_SETCHECK, ticked ? BST_CHECKED : BST_UNCHECKED, 0);
        if (option.kind == kPinned) {
            WString tip;
            tip.format(LanguageText(option.tipId).c_str(), ScaleForDisplayY(200));
            SetWindowTextW(control(kTip), tip.c_str());
        }
        ShowControls(kTip, kTip, SW_SHOW);
        ShowControls(kDetailCheck, kDetailCheck, SW_SHOW);
        break;
    }
    case kMailText:
        SetWindowTextW(control(kMailProgram), Calendar().MailCustomInboxStr.c_str());
        ShowControls(kMailProgram, kMailProgramBrowse, SW_SHOW);
        ShowControls(kTip, kTip, SW_SHOW);
        break;
    case kTitleText:
        SetWindowTextW(control(kDayTitleText), Calendar().CustomDayttlFrmtDefault.c_str());
        ShowControls(kTip, kTip, SW_SHOW);
        ShowControls(kDayTitleText, kDayTitleClear, SW_SHOW);
        break;
    case kPartOrder:
        for (int number = kTitleOrder; number <= kTitleDown; ++number) {
            ShowControls(number, number, SW_SHOW);
            SetWindowPos(control(number), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
        }
        break;
    }
}

void CalendarSettingsWin::StoreOption(const Option& option) {
    switch (option.kind) {
    case kChoice:
        StoreChoice(option);
        break;
    case kCheck:
        SetInt(Calendar().*option.setting, IsChecked(kDetailCheck) ? 1 : 0);
        break;
    case kPinned:
        StorePinned();
        break;
    case kMailText:
        SetString(Calendar().MailCustomInboxStr, ControlText(control(kMailProgram)).c_str());
        break;
    case kTitleText:
        SetString(Calendar().CustomDayttlFrmtDefault, ControlText(control(kDayTitleText)).c_str());
        break;
    case kPartOrder:
        ShowControls(kTitleOrder, kTitleDown, SW_HIDE);
        break;
    }
}

// A pinned month calendar needs the Today item to be at least 200 (scaled) high.
void CalendarSettingsWin::StorePinned() {
    bool ticked = IsChecked(kDetailCheck);
    int leastHeight = ScaleForDisplay(200);
    if (ticked && static_cast<int>(g_settings.general.dHeightLimit.value) < leastHeight) {
        WString text;
        text.format(LanguageText(IDS_CAL_PINNED_TOO_LOW_TEXT).c_str(), leastHeight);
        MessageBoxW(pageWindow_, text.c_str(), LanguageText(IDS_CAL_PINNED_TOO_LOW_CAPTION).c_str(), MB_OK);
        ticked = false;
    }
    SetInt(Calendar().PinnedMonthlyClr, ticked ? 1 : 0);
}

void CalendarSettingsWin::FillChoices(const Option& option) {
    HWND combo = control(kDetailCombo);
    auto add = [combo](const wchar_t* text, LPARAM data) {
        LRESULT index = SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
        SendMessageW(combo, CB_SETITEMDATA, index, data);
    };
    SYSTEMTIME today = TodayDate();
    WString text;
    switch (option.fill) {
    case kIdChoices:
        for (int i = 0; i < option.choiceCount; ++i) add(LanguageText(option.choices[i]).c_str(), i);
        break;
    case kOneBased:
        add(L"1", 1);
        add(L"2", 2);
        break;
    case kLengths:
        for (int hours = 6; hours <= 24; ++hours) {
            text.format(L"%d", hours);
            add(text.c_str(), hours);
        }
        break;
    case kDueDateForms:
        add(DateText(today, nullptr, DATE_SHORTDATE).c_str(), 0);
        for (const wchar_t* picture : {L"M'/'d'/'yy", L"d'/'M'/'yy", L"M'/'d", L"d'/'M"})
            add(DateText(today, picture).c_str(), 0);
        break;
    case kDayTitleForms:
        for (const wchar_t* picture :
             {L"dddd',' MMM dd yyyy", L"dddd',' MMM dd", L"ddd',' MMM dd yyyy", L"ddd',' MMM dd"})
            add(DateText(today, picture).c_str(), 0);
        add(DateText(today, nullptr, DATE_SHORTDATE).c_str(), 0);
        add(DateText(today, nullptr, DATE_LONGDATE).c_str(), 0);
        add(DateText(today, L"ddd',' dd MMM yyyy").c_str(), 0);
        break;
    case kPopupDateForms:
        add(DateText(today, L"MM'/'dd").c_str(), 0);
        add(DateText(today, L"dd'/'MM").c_str(), 0);
        break;
    case kStartHours:
        for (WORD hour = 0; hour <= 18; ++hour) {
            SYSTEMTIME time = today;
            time.wHour = hour;
            time.wMinute = time.wSecond = time.wMilliseconds = 0;
            wchar_t shown[64] = {};
            GetTimeFormatW(LOCALE_USER_DEFAULT, TIME_NOSECONDS, &time, nullptr, shown, 64);
            add(shown, hour);
        }
        break;
    case kWeekDays:
        for (LCTYPE day = LOCALE_SDAYNAME1; day <= LOCALE_SDAYNAME7; ++day) {
            wchar_t name[80] = {};
            GetLocaleInfoW(LOCALE_USER_DEFAULT, day, name, 80);
            add(name, 0);
        }
        break;
    case kIconSizes:
        for (int size = 6; size <= 14; ++size) {
            text.format(L"%d", ScaleForDisplay(size));
            add(text.c_str(), ScaleForDisplay(size));
        }
        break;
    case kDayEndHours: {
        bool twelveHour = LocaleHasTwelveHourClock();
        for (int hour = 0; hour <= 8; ++hour) {
            text.format(twelveHour ? L"%d:00 AM" : L"%d:00", hour);
            add(text.c_str(), hour);
        }
        break;
    }
    }
}

// A stored value outside the list leaves the combo without a selection.
void CalendarSettingsWin::SelectStoredChoice(const Option& option) {
    HWND combo = control(kDetailCombo);
    DWORD value = (Calendar().*option.setting).value;
    int selection = static_cast<int>(value);
    if (option.fill == kOneBased) selection = static_cast<int>(value) - 1;
    if (option.fill == kIconSizes) {
        selection = -1;
        int count = static_cast<int>(SendMessageW(combo, CB_GETCOUNT, 0, 0));
        for (int i = 0; i < count; ++i)
            if (static_cast<DWORD>(SendMessageW(combo, CB_GETITEMDATA, i, 0)) == value) selection = i;
    }
    if (selection != -1) SendMessageW(combo, CB_SETCURSEL, selection, 0);
}

void CalendarSettingsWin::StoreChoice(const Option& option) {
    HWND combo = control(kDetailCombo);
    int selection = static_cast<int>(SendMessageW(combo, CB_GETCURSEL, 0, 0));
    DWORD value = static_cast<DWORD>(selection);
    if (option.fill == kOneBased) value = static_cast<DWORD>(selection + 1);
    if (option.fill == kIconSizes) value = static_cast<DWORD>(SendMessageW(combo, CB_GETITEMDATA, selection, 0));
    SetInt(Calendar().*option.setting, value);
}

// ---- commands ------------------------------------------------------------------------------------

LRESULT CalendarSettingsWin::OnCommand(HWND window, UINT, WPARAM wParam, LPARAM lParam) {
    if (HIWORD(wParam) != 0) return 0;
    switch (ControlNumberOf(reinterpret_cast<HWND>(lParam))) {
    case kHideEmptyDays:
        EnableControl(kHideEmptyDayLine, !IsChecked(kHideEmptyDays));
        break;
    case kTitleUp:
        MoveTitleRow(-1);
        break;
    case kTitleDown:
        MoveTitleRow(1);
        break;
    case kMailProgramClear:
        SetWindowTextW(control(kMailProgram), L"");
        break;
    case kDayTitleClear:
        SetWindowTextW(control(kDayTitleText), L"");
        break;
    case kMailProgramBrowse:
        ChooseMailProgram(window);
        break;
    default:
        break;
    }
    return 0;
}

// Swaps the selected day-title part with its neighbour; the selection follows the part.
void CalendarSettingsWin::MoveTitleRow(int step) {
    HWND list = control(kTitleOrder);
    if (!list) return;
    int row = static_cast<int>(SendMessageW(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
    int other = row + step;
    int count = static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
    if (row < 0 || other < 0 || other >= count) return;
    wchar_t texts[2][128] = {};
    LVITEMW items[2] = {};
    for (int i = 0; i < 2; ++i) {
        items[i].mask = LVIF_TEXT | LVIF_PARAM;
        items[i].iItem = i == 0 ? row : other;
        items[i].pszText = texts[i];
        items[i].cchTextMax = 128;
        SendMessageW(list, LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&items[i]));
    }
    std::swap(items[0].iItem, items[1].iItem);
    for (LVITEMW& item : items) SendMessageW(list, LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    LVITEMW state = {};
    state.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    state.state = LVIS_SELECTED | LVIS_FOCUSED;
    SendMessageW(list, LVM_SETITEMSTATE, other, reinterpret_cast<LPARAM>(&state));
    SendMessageW(list, LVM_ENSUREVISIBLE, other, FALSE);
}

void CalendarSettingsWin::ChooseMailProgram(HWND window) {
    BrowserRequest request;
    request.kind = BrowserKind::LoadFile;
    request.owner = window;
    request.title.assign(kMailProgramTitle);
    request.extension.assign(kProgramExtension);
    request.description.assign(kProgramDescription);
    LoadBrowserTexts(g_app.languageLibrary, &request);
    if (RunFileBrowser(&request)) SetWindowTextW(control(kMailProgram), request.result.c_str());
}

// ---- icons ---------------------------------------------------------------------------------------

LRESULT CalendarSettingsWin::OnMarkerSelected(HWND, UINT, WPARAM wParam, LPARAM lParam) {
    int dropDown = static_cast<int>(lParam);
    if (dropDown >= 1 && dropDown <= 4) ChangeLeftIcon(dropDown, FlagOfMarker(static_cast<int>(wParam)));
    return 0;
}

// An icon is never both a left icon and in its kind's right-icon set. The old icon goes back to
// the check-list unless the other left icon still holds it; the new one leaves the set at once.
void CalendarSettingsWin::ChangeLeftIcon(int dropDown, DWORD flag) {
    int kind = (dropDown - 1) / 2;
    const IconKind& icons = kIconKinds[kind];
    ChooseLeftIcon(Calendar().*icons.left[(dropDown - 1) % 2], Calendar().*icons.right, flag);
    FillRightIcons(kind);
    ForgetTimeColumnWidth();
    InvalidateRect(pageWindow_, nullptr, TRUE);
}

LRESULT CalendarSettingsWin::OnMarkerToggled(HWND window, UINT, WPARAM wParam, LPARAM) {
    int number = static_cast<int>(wParam);
    for (const IconKind& icons : kIconKinds)
        if (icons.rightStrip == number) SetInt(Calendar().*icons.right, strip(number).OnSet());
    InvalidateRect(window, nullptr, TRUE);
    return 0;
}

// ---- preview -------------------------------------------------------------------------------------

LRESULT CalendarSettingsWin::OnLButtonDown(HWND, UINT, WPARAM, LPARAM lParam) {
    if (CurrentSection() != kIconSection) return 0;
    int x = static_cast<short>(LOWORD(lParam));
    int y = static_cast<short>(HIWORD(lParam));
    if (y <= previewTop_ || y >= previewTop_ + ScaleForDisplay(12)) return 0;
    if (x >= ScaleForDisplay(6) && x < ScaleForDisplay(16)) StepDisplayFormat(-1);
    if (x >= ScaleForDisplay(16) && x < ScaleForDisplay(26)) StepDisplayFormat(1);
    return 0;
}

// Steps through the twelve layouts, wrapping from 1 to 12 and from 12 to 1.
void CalendarSettingsWin::StepDisplayFormat(int step) {
    int format = static_cast<int>(Calendar().ApptDisplayFormat.value) + step;
    if (step < 0 && format < kFirstDisplayFormat) format = kLastDisplayFormat;
    if (step > 0 && format > kLastDisplayFormat) format = kFirstDisplayFormat;
    SetInt(Calendar().ApptDisplayFormat, static_cast<DWORD>(format));
    ForgetTimeColumnWidth();
    InvalidateRect(pageWindow_, nullptr, TRUE);
}

LRESULT CalendarSettingsWin::OnPaint(HWND window, UINT, WPARAM, LPARAM) {
    PAINTSTRUCT paint;
    HDC dc = BeginPaint(window, &paint);
    if (CurrentSection() == kIconSection) PaintPreview(dc);
    EndPaint(window, &paint);
    return 0;
}

void CalendarSettingsWin::PaintPreview(HDC dc) {
    auto s = ScaleForDisplay;
    int width = ClientWidth();
    Bitmap arrows(static_cast<HBITMAP>(LoadImageW(g_app.displayLibrary, MAKEINTRESOURCEW(IDB_PREVIEW_ARROWS),
                                                  IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION)));
    if (arrows) {
        BITMAP info = {};
        GetObjectW(arrows.get(), sizeof info, &info);
        TransparentImage(dc, s(6), previewTop_, s(20), s(12), arrows.get(), 0, 0, info.bmWidth, info.bmHeight,
                         kArrowsMask);
    }

    DcSelection font(dc, normalFont_);
    RECT header = {s(30), previewTop_, width, previewTop_ + s(16)};
    FillRect(dc, &header, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    DWORD format = Calendar().ApptDisplayFormat.value;
    WString title;
    title.format(LanguageText(IDS_CAL_PREVIEW_FORMAT).c_str(), static_cast<int>(format));
    title.append(LanguageText(format < kLastTimedFormat + 1 ? IDS_CAL_PREVIEW_WITH_TIMES : IDS_CAL_PREVIEW_WITHOUT_TIMES)
                     .c_str());
    SetTextColor(dc, RGB(0, 0, 0));
    SetBkMode(dc, TRANSPARENT);
    RECT measured = header;
    DrawTextW(dc, title.c_str(), -1, &measured, DT_CALCRECT | DT_SINGLELINE | DT_NOPREFIX);
    DrawTextW(dc, title.c_str(), -1, &header, DT_LEFT | DT_SINGLELINE | DT_NOPREFIX);

    // The sample appointment, from noon to three.
    int bandTop = previewTop_ + (measured.bottom - measured.top) + 4;
    SYSTEMTIME noon = TodayDate();
    noon.wHour = 12;
    SYSTEMTIME end = noon;
    end.wHour = 15;
    TodayItemSample item = CalendarAppointmentSample(LanguageText(IDS_CAL_SAMPLE_SUBJECT).c_str(),
                                                     LanguageText(IDS_CAL_SAMPLE_SECOND_LINE).c_str(), noon, end);
    PaintTodayItemBand(dc, bandTop, width, s(42), s(4), item);
}

// ---- storing -------------------------------------------------------------------------------------

void CalendarSettingsWin::StoreValues(HWND window) {
    CalendarSettings& calendar = Calendar();
    SetInt(calendar.dNumOfDays, static_cast<DWORD>(Selection(kDays) + 1));
    for (int i = 0; i < 3; ++i)
        SetInt(calendar.*kGeneralChecks[i].setting, IsChecked(kGeneralChecks[i].control) ? 1 : 0);
    SetInt(calendar.FirstWeekInYear, static_cast<DWORD>(Selection(kFirstWeek)));
    SetInt(calendar.ClrTextColor, static_cast<DWORD>(Selection(kTextColour)));
    SetInt(calendar.ClrSortTsksWithAppts, IsChecked(kSortTasksWithAppts) ? 1 : 0);
    ShowSection(window, SW_HIDE);
    HWND list = control(kTitleOrder);
    for (int row = 0; row < 6 && list; ++row) {
        LVITEMW item = {};
        item.mask = LVIF_PARAM;
        item.iItem = row;
        SendMessageW(list, LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
        SetInt(calendar.CalTitlesOrder[row], static_cast<DWORD>(item.lParam));
    }
}

SettingsPage* CreateCalendarPage() { return new CalendarSettingsWin; }
