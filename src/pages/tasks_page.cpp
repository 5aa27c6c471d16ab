#include "pages/tasks_page.h"

#include <oleauto.h>

#include <vector>

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
    kDateFormLabel, kDateForm, kFutureLimitLabel, kFutureLimit, kHideCompleted, kHidePastCompleted, kConfirmComplete,
    kLeaveOutNoDate, kHideUndated,
    kLineStyleLabel, kLineStyle, kFoldingLabel, kFolding, kFoldButtons, kCounters,
    kLeft1Label, kLeft1, kLeft2Label, kLeft2, kRightLabel, kRight,
    kUseCustomDate, kCustomStartLabel, kCustomStart, kCustomDueLabel, kCustomDue, kCustomShowLabel, kCustomShow,
    kControlCount
};

struct Section {
    UINT titleId;
    int first, last;
};
// The fourth title skips one number of the language library.
const Section kSections[] = {
    {IDS_TSK_SECTION_GENERAL, kDateFormLabel, kHideUndated},
    {IDS_SECTION_LAYOUT, kLineStyleLabel, kCounters},
    {IDS_SECTION_DISPLAY, kLeft1Label, kRight},
    {IDS_TSK_SECTION_CUSTOM_DATE, kUseCustomDate, kCustomShow},
};
const int kSectionCount = sizeof kSections / sizeof kSections[0];
const int kIconSection = 2;

// ---- rows that hold a value, in creation and storing order ------------------------------------

enum RowKind {
    kChoiceRow,    // drop-down list; holds the selection index
    kDateFormRow,  // the twelve date forms; holds the selection index
    kCheckRow,     // check box; holds 1 when ticked
    kTextRow,      // edit; holds its text
};

using Tasks = TasksSettings;

struct Row {
    RowKind kind;
    int section;
    int label;  // the check box itself for a check row
    int control;
    UINT textId;
    IntSetting Tasks::*number;
    StringSetting Tasks::*text;
    const UINT* items;
    int itemCount;
};

const UINT kFutureLimitItems[] = {IDS_FUTURE_LIMIT_NONE,    IDS_FUTURE_LIMIT_TOMORROW, IDS_FUTURE_LIMIT_3_DAYS,
                                  IDS_FUTURE_LIMIT_1_WEEK,  IDS_FUTURE_LIMIT_2_WEEKS,  IDS_FUTURE_LIMIT_1_MONTH,
                                  IDS_FUTURE_LIMIT_3_MONTHS, IDS_FUTURE_LIMIT_1_YEAR};
const UINT kLineStyleItems[] = {IDS_LINE_STYLE_NONE, IDS_LINE_STYLE_SOLID, IDS_LINE_STYLE_DOTTED, IDS_LINE_STYLE_BAR};
const UINT kFoldingItems[] = {IDS_FOLDING_TITLE_TAP, IDS_FOLDING_BUTTON, IDS_FOLDING_BOTH};
const UINT kCustomShowItems[] = {IDS_TSK_CUSTOM_SHOW_BOTH, IDS_TSK_CUSTOM_SHOW_START, IDS_TSK_CUSTOM_SHOW_DUE};

#define ITEMS(list) list, static_cast<int>(sizeof list / sizeof list[0])
#define CHOICE(section, label, control, text, setting, items) \
    {kChoiceRow, section, label, control, text, &Tasks::setting, nullptr, ITEMS(items)}
#define CHECK(section, control, text, setting) {kCheckRow, section, control, control, text, &Tasks::setting, nullptr, nullptr, 0}
#define TEXT_ROW(label, control, text, setting) {kTextRow, 3, label, control, text, nullptr, &Tasks::setting, nullptr, 0}

const Row kRows[] = {
    {kDateFormRow, 0, kDateFormLabel, kDateForm, IDS_TSK_DATE_LABEL, &Tasks::TsksDateFrmt, nullptr, nullptr, 0},
    CHOICE(0, kFutureLimitLabel, kFutureLimit, IDS_TSK_LIMIT_LABEL, TsksLimitFutureDate, kFutureLimitItems),
    CHECK(0, kHideCompleted, IDS_TSK_HIDE_COMPLETED, HideCompletedTasks),
    CHECK(0, kHidePastCompleted, IDS_TSK_HIDE_PAST_COMPLETED, HidePastCompletedTasks),
    CHECK(0, kConfirmComplete, IDS_TSK_CONFIRM_COMPLETE, ConfirmTaskCompleteTsks),
    CHECK(0, kLeaveOutNoDate, IDS_TSK_REMOVE_UNDATED_TEXT, RemoveUndatedLeadingStr),
    CHECK(0, kHideUndated, IDS_TSK_HIDE_UNDATED, RemoveUndatedTsks),
    CHOICE(1, kLineStyleLabel, kLineStyle, IDS_LINE_STYLE_LABEL, TsksLineBreaker, kLineStyleItems),
    CHOICE(1, kFoldingLabel, kFolding, IDS_TSK_FOLDING_LABEL, TsksFoldingType, kFoldingItems),
    CHECK(1, kFoldButtons, IDS_SHOW_FOLD_BUTTONS, TsksUseSmartFolding),
    CHECK(1, kCounters, IDS_SHOW_COUNTERS, IncludeCountersTsks),
    CHECK(3, kUseCustomDate, IDS_TSK_USE_CUSTOM_DATE, UseCustomDateTsks),
    TEXT_ROW(kCustomStartLabel, kCustomStart, IDS_TSK_CUSTOM_START_LABEL, CustomDateFrmtStart),
    TEXT_ROW(kCustomDueLabel, kCustomDue, IDS_TSK_CUSTOM_DUE_LABEL, CustomDateFrmtEnd),
    CHOICE(3, kCustomShowLabel, kCustomShow, IDS_TSK_CUSTOM_SHOW_LABEL, TsksCustomDateStruct, kCustomShowItems),
};
#undef CHOICE
#undef CHECK
#undef TEXT_ROW

const Row& RowOf(int control) {
    for (const Row& row : kRows)
        if (row.control == control) return row;
    return kRows[0];
}

// The stacked sections: rows one under another from the top, check boxes a little closer.
const int kStackedSections[] = {0, 1};
const int kCheckOverlap = 2;

// ---- dates ----------------------------------------------------------------------------------

// A date form: a picture for the task's start date, one for its due date; null for none.
struct DateForm {
    const wchar_t* start;
    const wchar_t* due;
};
const DateForm kDateForms[] = {
    {L"M'/'d", L"M'/'d'/'yy"}, {L"M'/'d", L"M'/'d"}, {L"M'/'d'/'yy", nullptr},
    {nullptr, L"M'/'d'/'yy"},  {L"M'/'d", nullptr},  {nullptr, L"M'/'d"},
    {L"d'/'M", L"d'/'M'/'yy"}, {L"d'/'M", L"d'/'M"}, {L"d'/'M'/'yy", nullptr},
    {nullptr, L"d'/'M'/'yy"},  {L"d'/'M", nullptr},  {nullptr, L"d'/'M"},
};
const int kDaysToDue = 7;
// The custom structure: what the "Show dates:" choice keeps of the two custom pictures.
enum CustomShow { kShowBoth, kShowStart, kShowDue };
const int kMostText = 256;

Tasks& TasksRecord() { return g_settings.tasks; }

// Whole days added to a local date in the automation date form.
bool DaysLater(const SYSTEMTIME& date, int days, SYSTEMTIME* later) {
    SYSTEMTIME copy = date;
    double variant = 0;
    return SystemTimeToVariantTime(&copy, &variant) && VariantTimeToSystemTime(variant + days, later);
}

// The date in the picture, as long as the locale makes it; false when the locale cannot.
bool FormatDate(const SYSTEMTIME& date, const wchar_t* picture, WString* text) {
    int length = GetDateFormatW(LOCALE_USER_DEFAULT, 0, &date, picture, nullptr, 0);
    if (length <= 0) return false;
    std::vector<wchar_t> buffer(static_cast<size_t>(length) + 1, L'\0');
    if (GetDateFormatW(LOCALE_USER_DEFAULT, 0, &date, picture, buffer.data(), length + 1) <= 0) return false;
    text->assign(buffer.data());
    return true;
}

// "start - due", "start (start)" or "due (due)"; empty without pictures or when a date cannot
// be written.
WString TaskDateText(const DateForm& form, const SYSTEMTIME& start, const SYSTEMTIME* due) {
    WString startText, dueText, result;
    if (form.start && !FormatDate(start, form.start, &startText)) return result;
    if (form.due && (!due || !FormatDate(*due, form.due, &dueText))) return result;
    if (form.start && form.due) {
        result.assign(startText.c_str());
        result.append(L" - ");
        result.append(dueText.c_str());
    } else if (form.start || form.due) {
        result.assign(form.start ? startText.c_str() : dueText.c_str());
        result.append(L" ");
        result.append(LanguageText(form.start ? IDS_TSK_DATE_START_SUFFIX : IDS_TSK_DATE_DUE_SUFFIX).c_str());
    }
    return result;
}

const int kStripControls[3] = {kLeft1, kLeft2, kRight};
const int kRightStrip = 3;

}  // namespace

// ---- framework slots ---------------------------------------------------------------------------

int TasksSettingsWin::GetSectionCount() { return kSectionCount; }

UINT TasksSettingsWin::GetSectionTitleId(int index) {
    return index >= 0 && index < kSectionCount ? kSections[index].titleId : 0;
}

int TasksSettingsWin::GetControlCount() { return kControlCount; }

void TasksSettingsWin::CreateControls(HWND) {
    CreateStackedRows();
    CreateIconRows();
    CreateCustomDateRows();
    EnableCustomDate();
}

void TasksSettingsWin::CreateStackedRows() {
    for (int section : kStackedSections) {
        int top = ScaleForDisplayY(8);
        for (const Row& row : kRows) {
            if (row.section != section) continue;
            DWORD value = (TasksRecord().*row.number).value;
            if (row.kind == kCheckRow) {
                top += CreateCheckBox(row.control, row.textId, value != 0, top) - ScaleForDisplayY(kCheckOverlap);
                continue;
            }
            const UINT* items = row.kind == kChoiceRow ? row.items : nullptr;
            int count = row.kind == kChoiceRow ? row.itemCount : 0;
            top += CreateComboRow(row.label, row.control, row.textId, items, count, static_cast<int>(value), top,
                                  false);
            if (row.kind == kDateFormRow) CreateDateForms(row.control);
        }
    }
}

// Each form writes today as the start and the day a week later as the due date.
void TasksSettingsWin::CreateDateForms(int combo) {
    HWND box = control(combo);
    if (!box) return;
    SYSTEMTIME today = TodayDate(), later;
    bool hasLater = DaysLater(today, kDaysToDue, &later);
    for (const DateForm& form : kDateForms) {
        WString text = TaskDateText(form, today, hasLater ? &later : nullptr);
        SendMessageW(box, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
    }
    DWORD chosen = TasksRecord().TsksDateFrmt.value;
    if (chosen < sizeof kDateForms / sizeof kDateForms[0]) SendMessageW(box, CB_SETCURSEL, chosen, 0);
}

HWND TasksSettingsWin::CreateStripFor(SettingsPage* page, int stripNumber, HWND parent, int x, int y) {
    auto* tasks = static_cast<TasksSettingsWin*>(page);
    for (int number = 1; number <= 3; ++number) {
        if (kStripControls[number - 1] != stripNumber) continue;
        bool dropDown = number != kRightStrip;
        int width = ScaleForDisplay(dropDown ? 22 : 16 * kItemIconChoiceCount);
        return tasks->strip(number).Create(parent, number, x, y, width, dropDown);
    }
    return nullptr;
}

void TasksSettingsWin::CreateIconRows() {
    const MarkerRow rows[3] = {
        {kLeft1Label, kLeft1, IDS_TASK_ICON_LEFT1_LABEL},
        {kLeft2Label, kLeft2, IDS_TASK_ICON_LEFT2_LABEL},
        {kRightLabel, kRight, IDS_TASK_ICON_RIGHT_LABEL},
    };
    int top = ScaleForDisplayY(8);
    previewTop_ = top + CreateMarkerRows(rows, CreateStripFor, top) + ScaleForDisplayY(8);
    FillLeftIconChoices(strip(1), kTaskIconChoices, TasksRecord().TaskTabLeftAlignIcon1.value);
    FillLeftIconChoices(strip(2), kTaskIconChoices, TasksRecord().TaskTabLeftAlignIcon2.value);
    FillRightIcons();
    ShowControls(kLeft1Label, kRight, SW_HIDE);
}

void TasksSettingsWin::FillRightIcons() {
    const Tasks& tasks = TasksRecord();
    FillRightIconChoices(strip(kRightStrip), kTaskIconChoices, tasks.TaskTabLeftAlignIcon1.value,
                         tasks.TaskTabLeftAlignIcon2.value, tasks.TasksRightIcons.value);
}

// The check box, then two labelled pictures side by side, then the "Show dates:" row.
void TasksSettingsWin::CreateCustomDateRows() {
    auto s = ScaleForDisplay;
    const Tasks& tasks = TasksRecord();
    int top = ScaleForDisplayY(8);
    top += CreateCheckBox(kUseCustomDate, IDS_TSK_USE_CUSTOM_DATE, tasks.UseCustomDateTsks.value != 0, top);
    const int textControls[2] = {kCustomStart, kCustomDue};
    for (int i = 0; i < 2; ++i) {
        const Row& row = RowOf(textControls[i]);
        int x = s(i == 0 ? 10 : 130);
        CreateLabel(row.label, row.textId, x, top, s(100), s(16), SS_LEFT);
        CreateEdit(row.control, (tasks.*row.text).c_str(), x, top + s(16), s(100), s(20));
        if (HWND edit = control(row.control)) SendMessageW(edit, EM_LIMITTEXT, kMostText, 0);
    }
    top += s(16) + s(26);
    const Row& show = RowOf(kCustomShow);
    CreateComboRow(show.label, show.control, show.textId, show.items, show.itemCount,
                   static_cast<int>((tasks.*show.number).value), top, false);
}

// The custom pictures count only while the custom date is ticked; their controls keep their
// texts while greyed.
void TasksSettingsWin::EnableCustomDate() {
    bool custom = IsChecked(kUseCustomDate);
    for (int number = kCustomStartLabel; number <= kCustomShow; ++number) EnableControl(number, custom);
}

// ---- sections, commands, icons ---------------------------------------------------------------

void TasksSettingsWin::ShowSection(HWND window, int showCommand) {
    int section = CurrentSection();
    if (section >= 0 && section < kSectionCount)
        ShowControls(kSections[section].first, kSections[section].last, showCommand);
    InvalidateRect(window, nullptr, TRUE);
}

LRESULT TasksSettingsWin::OnCommand(HWND, UINT, WPARAM wParam, LPARAM lParam) {
    if (HIWORD(wParam) == 0 && ControlNumberOf(reinterpret_cast<HWND>(lParam)) == kUseCustomDate) EnableCustomDate();
    return 0;
}

LRESULT TasksSettingsWin::OnMarkerSelected(HWND window, UINT, WPARAM wParam, LPARAM lParam) {
    int dropDown = static_cast<int>(lParam);
    if (dropDown != 1 && dropDown != 2) return 0;
    Tasks& tasks = TasksRecord();
    IntSetting& slot = dropDown == 1 ? tasks.TaskTabLeftAlignIcon1 : tasks.TaskTabLeftAlignIcon2;
    ChooseLeftIcon(slot, tasks.TasksRightIcons, FlagOfMarker(static_cast<int>(wParam)));
    FillRightIcons();
    InvalidateRect(window, nullptr, TRUE);
    return 0;
}

LRESULT TasksSettingsWin::OnMarkerToggled(HWND window, UINT, WPARAM wParam, LPARAM) {
    if (static_cast<int>(wParam) == kRightStrip) SetInt(TasksRecord().TasksRightIcons, strip(kRightStrip).OnSet());
    InvalidateRect(window, nullptr, TRUE);
    return 0;
}

// ---- preview -------------------------------------------------------------------------------------

// The sample task starts and is due today. With the custom date ticked its pictures are those
// typed, as far as the "Show dates:" choice keeps them (an empty picture shows nothing); otherwise the
// chosen one of the twelve forms.
WString TasksSettingsWin::PreviewDateText() const {
    SYSTEMTIME today = TodayDate();
    DateForm form = {nullptr, nullptr};
    WString start, due;
    if (IsChecked(kUseCustomDate)) {
        int show = Selection(kCustomShow);
        start = ControlText(control(kCustomStart));
        due = ControlText(control(kCustomDue));
        if (show != kShowDue && !start.empty()) form.start = start.c_str();
        if (show != kShowStart && !due.empty()) form.due = due.c_str();
    } else {
        int chosen = Selection(kDateForm);
        if (chosen >= 0 && chosen < static_cast<int>(sizeof kDateForms / sizeof kDateForms[0])) form = kDateForms[chosen];
    }
    return TaskDateText(form, today, &today);
}

LRESULT TasksSettingsWin::OnPaint(HWND window, UINT, WPARAM, LPARAM) {
    PAINTSTRUCT paint;
    HDC dc = BeginPaint(window, &paint);
    if (CurrentSection() == kIconSection) PaintPreview(dc);
    EndPaint(window, &paint);
    return 0;
}

void TasksSettingsWin::PaintPreview(HDC dc) {
    auto s = ScaleForDisplay;
    const Tasks& tasks = TasksRecord();
    TodayItemSample item;
    item.kind = TodayItemKind::Task;
    item.subject = LanguageText(IDS_TSK_SAMPLE_SUBJECT);
    item.start = TodayDate();
    item.dateText = PreviewDateText();
    item.leftIcons[0] = tasks.TaskTabLeftAlignIcon1.value;
    item.leftIcons[1] = tasks.TaskTabLeftAlignIcon2.value;
    item.rightIcons = tasks.TasksRightIcons.value;
    item.advancedFont = &g_settings.fonts.FontTskDueToday;
    PaintTodayItemBand(dc, previewTop_, ClientWidth(), s(42), s(4), item);
}

// ---- storing -------------------------------------------------------------------------------------

// The icon settings are not stored here: they were stored as they changed.
void TasksSettingsWin::StoreValues(HWND) {
    Tasks& tasks = TasksRecord();
    for (const Row& row : kRows) {
        switch (row.kind) {
        case kChoiceRow:
        case kDateFormRow:
            SetInt(tasks.*row.number, static_cast<DWORD>(Selection(row.control)));
            break;
        case kCheckRow:
            SetInt(tasks.*row.number, IsChecked(row.control) ? 1 : 0);
            break;
        case kTextRow:
            SetString(tasks.*row.text, ControlText(control(row.control)).c_str());
            break;
        }
    }
}

SettingsPage* CreateTasksPage() { return new TasksSettingsWin; }
