#include "pages/contacts_page.h"

#include <cwchar>

#include "pages/search_bar.h"
#include "string_ids.h"

namespace {

enum Control {
    kSearchBarLabel, kSearchBar, kTitleLabel, kTitle, kDPadActionLabel, kDPadAction, kTapOpensItem,
    kPreviewBeforeOpening, kCategoryColourText,
    kLineStyleLabel, kLineStyle, kFoldButtons, kCounters,
    kLayoutLabel, kLayout, kPhoneWidthLabel, kPhoneWidth, kHideNoPicture,
    kControlCount
};

const PageSection kSections[] = {
    {IDS_SECTION_GENERAL, kSearchBarLabel, kCategoryColourText},
    {IDS_SECTION_LAYOUT, kLineStyleLabel, kCounters},
    {IDS_SECTION_DISPLAY, kLayoutLabel, kHideNoPicture},
};
const int kLayoutSection = 2;

const UINT kTitleItems[] = {IDS_CONTACT_TITLE_FIRST_LAST, IDS_CONTACT_TITLE_LAST_FIRST, IDS_CONTACT_TITLE_COMPANY};
const UINT kDPadActionItems[] = {IDS_DPAD_ACTION_DEFAULT, IDS_DPAD_ACTION_OPEN, IDS_DPAD_ACTION_CALL};
const UINT kLineStyleItems[] = {IDS_LINE_STYLE_NONE, IDS_LINE_STYLE_SOLID, IDS_LINE_STYLE_DOTTED, IDS_LINE_STYLE_BAR};
// Two layouts are offered (the first with a phone column); the cards layout that follows them in the
// library is not.
const UINT kLayoutItems[] = {IDS_CNT_LAYOUT_COLUMNS, IDS_CNT_LAYOUT_LIST};

const int kNarrowestPhoneColumn = 60, kWidestPhoneColumn = 120, kPhoneColumnStep = 5;

constexpr ContactsSettings& kContacts = g_settings.contacts;
const SearchBarSettings kSearchBarSettings = {&kContacts.CntctsActiveSearchBar,
                                              &kContacts.ContactsCustomSearchBarSelected};

const PageRow kRows[] = {
    {kPageRow, 0, kSearchBarLabel, kSearchBar, IDS_SEARCH_BAR_LABEL, &kContacts.CntctsActiveSearchBar},
    {kChoiceRow, 0, kTitleLabel, kTitle, IDS_CONTACT_TITLE_LABEL, &kContacts.CntctsTitleStruct, PAGE_ITEMS(kTitleItems)},
    {kChoiceRow, 0, kDPadActionLabel, kDPadAction, IDS_DPAD_ACTION_LABEL, &kContacts.CntctsDPadActionOverride,
     PAGE_ITEMS(kDPadActionItems)},
    {kCheckRow, 0, kTapOpensItem, kTapOpensItem, IDS_TAP_OPENS_ITEM, &kContacts.CntctsOnClickActionOpenItem},
    {kCheckRow, 0, kPreviewBeforeOpening, kPreviewBeforeOpening, IDS_PREVIEW_BEFORE_OPENING,
     &kContacts.CntctsPrvwDlgUponOpenItem},
    {kCheckRow, 0, kCategoryColourText, kCategoryColourText, IDS_CNT_CATEGORY_COLOR_TEXT,
     &kContacts.ContactsTxtByCategoryClr},
    {kChoiceRow, 1, kLineStyleLabel, kLineStyle, IDS_LINE_STYLE_LABEL, &kContacts.CntctsBreakLineStyle,
     PAGE_ITEMS(kLineStyleItems)},
    {kCheckRow, 1, kFoldButtons, kFoldButtons, IDS_SHOW_FOLD_BUTTONS, &kContacts.CntctsIncldFoldBttns},
    {kCheckRow, 1, kCounters, kCounters, IDS_SHOW_COUNTERS, &kContacts.CntctsIncldCounters},
    {kChoiceRow, 2, kLayoutLabel, kLayout, IDS_CNT_LAYOUT_LABEL, &kContacts.ContactsLayout, PAGE_ITEMS(kLayoutItems)},
    {kPageRow, 2, kPhoneWidthLabel, kPhoneWidth, IDS_CNT_PHONE_WIDTH_LABEL, &kContacts.CntctsPhoneColumnWidth},
    {kCheckRow, 2, kHideNoPicture, kHideNoPicture, IDS_CNT_HIDE_NO_PICTURE, &kContacts.CntctsHideNoPicture},
};

}  // namespace

ContactSettingsWin::ContactSettingsWin() : RowTablePage(PAGE_TABLE(kSections), PAGE_TABLE(kRows), kControlCount) {}

int ContactSettingsWin::CreatePageRow(const PageRow& row, int top) {
    int height = CreateComboRow(row.label, row.control, row.textId, nullptr, 0, 0, top, false);
    HWND combo = control(row.control);
    if (row.control == kSearchBar) {
        FillSearchBar(combo, kContacts.CntctsActiveLanguages.value, kSearchBarSettings);
        return height;
    }
    // Phone column widths; the entry equal to the stored width is selected, if there is one.
    for (int width = kNarrowestPhoneColumn; width <= kWidestPhoneColumn; width += kPhoneColumnStep) {
        wchar_t text[8];
        swprintf(text, 8, L"%d", width);
        int index = AddComboText(row.control, text);
        if (index < 0) continue;
        SendMessageW(combo, CB_SETITEMDATA, index, width);
        if (static_cast<DWORD>(width) == row.setting->value) SendMessageW(combo, CB_SETCURSEL, index, 0);
    }
    return height;
}

void ContactSettingsWin::StorePageRow(const PageRow& row) {
    if (row.control == kSearchBar) {
        StoreSearchBar(control(kSearchBar), kSearchBarSettings);
        return;
    }
    // Without a selection (a stored width not offered) the stored width stays.
    int selection = Selection(row.control);
    if (selection >= 0)
        SetInt(*row.setting, static_cast<DWORD>(SendMessageW(control(row.control), CB_GETITEMDATA, selection, 0)));
}

// The phone column width applies to the first layout only; the picture option is never shown.
void ContactSettingsWin::ApplyLayoutRule() {
    bool columns = Selection(kLayout) == 0;
    EnableControl(kPhoneWidthLabel, columns);
    EnableControl(kPhoneWidth, columns);
    if (HWND hidden = control(kHideNoPicture)) ShowWindow(hidden, SW_HIDE);
}

void ContactSettingsWin::ShowSection(HWND window, int showCommand) {
    RowTablePage::ShowSection(window, showCommand);
    if (showCommand != SW_HIDE && CurrentSection() == kLayoutSection) ApplyLayoutRule();
}

LRESULT ContactSettingsWin::OnCommand(HWND window, UINT, WPARAM wParam, LPARAM lParam) {
    if (HIWORD(wParam) != CBN_SELCHANGE) return 0;
    int number = ControlNumberOf(reinterpret_cast<HWND>(lParam));
    if (number == kSearchBar) OnSearchBarChanged(window, control(kSearchBar), kSearchBarSettings);
    if (number == kLayout) ApplyLayoutRule();
    return 0;
}

SettingsPage* CreateContactsPage() { return new ContactSettingsWin; }
