#include "pages/sevents_page.h"

#include <cwchar>
#include <vector>

#include "files/categories.h"
#include "platform/clock.h"
#include "string_ids.h"
#include "support/wide_string.h"

namespace {

enum Control {
    kDaysLabel, kDays, kAlertLabel, kAlert, kDateFormatLabel, kDateFormat, kContactFormatLabel, kContactFormat,
    kDaySpanLabel, kDaySpan, kFilterAlertLabel, kFilterAlert, kCategory1Label, kCategory1, kCategory2Label,
    kCategory2, kCategory3Label, kCategory3, kCategory4Label, kCategory4,
    kLineStyleLabel, kLineStyle, kFoldButtons, kCounters,
    kControlCount
};

const PageSection kSections[] = {
    {IDS_SE_SECTION_GENERAL, kDaysLabel, kContactFormat},
    {IDS_SE_SECTION_FILTERS, kDaySpanLabel, kCategory4},
    {IDS_SECTION_LAYOUT, kLineStyleLabel, kCounters},
};

const UINT kDaysItems[] = {IDS_SE_DAYS_WEEK, IDS_SE_DAYS_TWO_WEEKS, IDS_SE_DAYS_MONTH};
const UINT kContactFormatItems[] = {IDS_CONTACT_TITLE_FIRST_LAST, IDS_CONTACT_TITLE_LAST_FIRST,
                                    IDS_CONTACT_TITLE_COMPANY};
const UINT kLineStyleItems[] = {IDS_LINE_STYLE_NONE, IDS_LINE_STYLE_SOLID, IDS_LINE_STYLE_DOTTED, IDS_LINE_STYLE_BAR};
const UINT kDateFormatFirstItem[] = {IDS_SE_DATE_FORMAT_DEFAULT};
const UINT kNoCategoryItem[] = {IDS_NO_CATEGORY};
const int kAlertDays = 16;

// Today's date in these pictures follows the first entry; the setting is the entry's index.
const wchar_t* const kDatePictures[] = {L"MM/dd", L"MM/dd/yy", L"dd/MM", L"dd/MM/yy"};
// Days of appointments searched; a value not listed shows as the second entry.
const DWORD kDaySpans[] = {15, 30, 60, 120, 365};
const int kUnlistedDaySpanEntry = 1;

constexpr SEventsSettings& kEvents = g_settings.sevents;
StringSetting* const kCategorySettings[] = {&kEvents.AdditionalFilterCat1, &kEvents.AdditionalFilterCat2,
                                            &kEvents.AdditionalFilterCat3, &kEvents.AdditionalFilterCat4};

const PageRow kRows[] = {
    {kChoiceRow, 0, kDaysLabel, kDays, IDS_SE_DAYS_LABEL, &kEvents.SEventDays, PAGE_ITEMS(kDaysItems)},
    {kNumberRow, 0, kAlertLabel, kAlert, IDS_SE_ALERT_LABEL, &kEvents.SEAlertBeforeDays, nullptr, kAlertDays},
    {kPageRow, 0, kDateFormatLabel, kDateFormat, IDS_SE_DATE_FORMAT_LABEL, &kEvents.SEDateFormat},
    {kChoiceRow, 0, kContactFormatLabel, kContactFormat, IDS_CONTACT_TITLE_LABEL, &kEvents.SEContactFormat,
     PAGE_ITEMS(kContactFormatItems)},
    {kPageRow, 1, kDaySpanLabel, kDaySpan, IDS_SE_SEARCH_SPAN_LABEL, &kEvents.SEApptsDaySpan},
    {kNumberRow, 1, kFilterAlertLabel, kFilterAlert, IDS_SE_FILTER_ALERT_LABEL, &kEvents.SEFilterAlertBeforeDays,
     nullptr, kAlertDays},
    {kPageRow, 1, kCategory1Label, kCategory1, IDS_SE_FILTER_CATEGORY1_LABEL, nullptr},
    {kPageRow, 1, kCategory2Label, kCategory2, IDS_SE_FILTER_CATEGORY2_LABEL, nullptr},
    {kPageRow, 1, kCategory3Label, kCategory3, IDS_SE_FILTER_CATEGORY3_LABEL, nullptr},
    {kPageRow, 1, kCategory4Label, kCategory4, IDS_SE_FILTER_CATEGORY4_LABEL, nullptr},
    {kChoiceRow, 2, kLineStyleLabel, kLineStyle, IDS_LINE_STYLE_LABEL, &kEvents.BreakLineStyle,
     PAGE_ITEMS(kLineStyleItems)},
    {kCheckRow, 2, kFoldButtons, kFoldButtons, IDS_SHOW_FOLD_BUTTONS, &kEvents.IncldFoldBttns},
    {kCheckRow, 2, kCounters, kCounters, IDS_SHOW_COUNTERS, &kEvents.IncldCounters},
};

StringSetting& CategorySetting(int control) { return *kCategorySettings[(control - kCategory1) / 2]; }
bool IsCategoryControl(int control) { return control >= kCategory1 && control <= kCategory4; }

// The text of entry `index`, empty when there is no such entry.
WString EntryText(HWND combo, int index) {
    WString text;
    LRESULT length = combo && index >= 0 ? SendMessageW(combo, CB_GETLBTEXTLEN, index, 0) : CB_ERR;
    if (length == CB_ERR) return text;
    std::vector<wchar_t> buffer(static_cast<size_t>(length) + 1);
    SendMessageW(combo, CB_GETLBTEXT, index, reinterpret_cast<LPARAM>(buffer.data()));
    text.assign(buffer.data());
    return text;
}

}  // namespace

SEventsSettingsWin::SEventsSettingsWin()
    : RowTablePage(PAGE_TABLE(kSections), PAGE_TABLE(kRows), kControlCount) {}

int SEventsSettingsWin::CreatePageRow(const PageRow& row, int top) {
    if (row.control == kDateFormat) return CreateDateFormatRow(row, top);
    if (row.control == kDaySpan) return CreateDaySpanRow(row, top);
    if (IsCategoryControl(row.control)) return CreateCategoryRow(row, CategorySetting(row.control), top);
    return 0;
}

int SEventsSettingsWin::CreateDateFormatRow(const PageRow& row, int top) {
    int height = CreateComboRow(row.label, row.control, row.textId, PAGE_ITEMS(kDateFormatFirstItem), 0, top, false);
    SYSTEMTIME today;
    GetProgramLocalTime(&today);
    for (const wchar_t* picture : kDatePictures) {
        wchar_t text[64] = {};
        GetDateFormatW(LOCALE_USER_DEFAULT, 0, &today, picture, text, 64);
        AddComboText(row.control, text);
    }
    SelectIfListed(row.control, row.setting->value);
    return height;
}

int SEventsSettingsWin::CreateDaySpanRow(const PageRow& row, int top) {
    int height = CreateComboRow(row.label, row.control, row.textId, nullptr, 0, 0, top, false);
    int selection = kUnlistedDaySpanEntry;
    for (int i = 0; i < static_cast<int>(sizeof kDaySpans / sizeof kDaySpans[0]); ++i) {
        wchar_t text[12];
        swprintf(text, 12, L"%lu", static_cast<unsigned long>(kDaySpans[i]));
        AddComboText(row.control, text);
        if (kDaySpans[i] == row.setting->value) selection = i;
    }
    SelectIfListed(row.control, selection);
    return height;
}

int SEventsSettingsWin::CreateCategoryRow(const PageRow& row, StringSetting& setting, int top) {
    int height = CreateComboRow(row.label, row.control, row.textId, PAGE_ITEMS(kNoCategoryItem), 0, top, false);
    for (const CategoryRecord* category = g_categories.head; category; category = category->next)
        AddComboText(row.control, category->name.c_str());
    HWND combo = control(row.control);
    LRESULT match = combo ? SendMessageW(combo, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                         reinterpret_cast<LPARAM>(setting.c_str()))
                          : CB_ERR;
    if (match != CB_ERR) SendMessageW(combo, CB_SETCURSEL, match, 0);
    return height;
}

void SEventsSettingsWin::StorePageRow(const PageRow& row) {
    int selection = Selection(row.control);
    if (row.control == kDateFormat) {
        SetInt(*row.setting, static_cast<DWORD>(selection));
    } else if (row.control == kDaySpan) {
        WString text = EntryText(control(row.control), selection);
        SetInt(*row.setting, static_cast<DWORD>(wcstol(text.c_str(), nullptr, 10)));
    } else if (IsCategoryControl(row.control)) {
        WString name = selection > 0 ? EntryText(control(row.control), selection) : WString();
        SetString(CategorySetting(row.control), name.c_str());
    }
}

SettingsPage* CreateSEventsPage() { return new SEventsSettingsWin; }
