#include "pages/categories_page.h"

#include <commctrl.h>

#include <algorithm>
#include <cwchar>

#include "dialogs/colour_picker.h"
#include "dialogs/file_browser.h"
#include "dialogs/filter_name_dialog.h"
#include "dialogs/icon_chooser.h"
#include "files/filters.h"
#include "platform/shell.h"
#include "settings/settings.h"
#include "string_ids.h"
#include "support/app_state.h"
#include "support/display_scale.h"
#include "support/handles.h"
#include "support/language_text.h"

namespace {

enum Control {
    kUseFilters,
    kCategoryList, kIconButton, kColourButton,
    kFilterLabel, kFilterCombo, kRenameButton, kFilterVisible, kFilterUncategorized, kSensitivityLabel,
    kSensitivityCombo, kCheckAll, kCheckNone, kFilterCategories,
    kIconsFolderLabel, kIconsFolder, kIconsFolderClear, kIconsFolderBrowse,
    kControlCount
};

struct Section {
    UINT titleId;
    int first, last;
};
const Section kSections[] = {
    {IDS_SECTION_GENERAL, kUseFilters, kUseFilters},
    {IDS_CAT_SECTION_CATEGORIES, kCategoryList, kColourButton},
    {IDS_CAT_SECTION_FILTERS, kFilterLabel, kFilterCategories},
    {IDS_SECTION_OTHER, kIconsFolderLabel, kIconsFolderBrowse},
};
const int kFilterSection = 2;

enum Kind { kCheckBox, kPushButton, kLabel, kDropList, kCategoryRows, kFilterRows, kIconsFolderRow };

// Geometry in design units: a negative x counts from the right edge, a width or height of 0 or
// less reaches to that distance from the right or bottom edge.
struct Place {
    int number;
    Kind kind;
    UINT textId;
    int x, y, width, height;
};
const Place kPlaces[] = {
    {kUseFilters, kCheckBox, IDS_CAT_USE_FILTERS, 10, 8, -10, 20},
    {kCategoryList, kCategoryRows, 0, 10, 8, -70, -28},
    {kIconButton, kPushButton, IDS_CAT_ICON, -65, 8, 55, 20},
    {kColourButton, kPushButton, IDS_CAT_COLOR, -65, 32, 55, 20},
    {kFilterLabel, kLabel, IDS_CAT_FILTER_LABEL, 0, 11, 70, 20},
    {kFilterCombo, kDropList, 0, 74, 8, -70, 100},
    {kRenameButton, kPushButton, IDS_CAT_RENAME, -65, 8, 55, 20},
    {kFilterVisible, kCheckBox, IDS_CAT_FILTER_VISIBLE, 10, 32, -10, 20},
    {kFilterUncategorized, kCheckBox, IDS_CAT_FILTER_UNCATEGORIZED, 10, 56, -10, 20},
    {kSensitivityLabel, kLabel, IDS_CAT_SENSITIVITY_LABEL, 0, 83, 70, 20},
    {kSensitivityCombo, kDropList, 0, 74, 80, -10, 100},
    {kCheckAll, kPushButton, IDS_CAT_CHECK_ALL, 10, 104, 60, 20},
    {kCheckNone, kPushButton, IDS_CAT_CHECK_NONE, 10, 128, 60, 20},
    {kFilterCategories, kFilterRows, 0, -160, 104, 150, -28},
    {kIconsFolderLabel, kIconsFolderRow, IDS_CAT_ICONS_FOLDER_LABEL, 0, 8, 0, 0},
};

const UINT kSensitivityItems[] = {IDS_CAT_SENSITIVITY_ANY, IDS_CAT_SENSITIVITY_ALL, IDS_CAT_SENSITIVITY_EXCLUDE};

const DWORD kDropListStyle = 0x40210003;  // child, vertical scroll bar, tab stop, drop-down list
const DWORD kCategoryListStyle = WS_CHILD | WS_BORDER | WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL |
                                 LVS_OWNERDRAWFIXED | LVS_NOCOLUMNHEADER | LVS_SHOWSELALWAYS;
const DWORD kFilterListStyle = WS_CHILD | WS_BORDER | WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS;
const int kFilterColumnWidth = 250;
const UINT kUnchecked = INDEXTOSTATEIMAGEMASK(1);
const UINT kChecked = INDEXTOSTATEIMAGEMASK(2);

// Row drawing, in design units.
const int kRowHeight = 16;
const int kIconSide = 12;
const int kIconCentreX = 10, kIconCentreY = 8;
const int kTextIndent = 4, kIconTextShift = 20;
const int kSwatchWidth = 14, kSwatchRightInset = 4, kSwatchVerticalInset = 2, kSwatchTextGap = 22;
const COLORREF kIconKey = 0x0000FF00;
const COLORREF kRowBackground = 0x00FFFFFF;

const wchar_t kIconsFolderTitle[] = L"Additional Icons Path";

WString WindowText(HWND window) {
    wchar_t text[MAX_PATH + 1] = {};
    if (window) GetWindowTextW(window, text, MAX_PATH + 1);
    return WString(text);
}

// A colour setting, or the shell's colour when the setting has no colour of its own.
COLORREF ColourOrShell(const IntSetting& setting, SystemColour shell) {
    return setting.value != kNoColour ? static_cast<COLORREF>(setting.value) : g_settings.systemColours[shell];
}

void FillRectangle(HDC dc, const RECT& area, COLORREF colour) {
    Brush brush(CreateSolidBrush(colour));
    FillRect(dc, &area, brush.get());
}

void AddRow(HWND list, int row, CategoryRecord* record) {
    LVITEMW item = {};
    item.mask = LVIF_TEXT | LVIF_PARAM;
    item.iItem = row;
    item.pszText = const_cast<wchar_t*>(record->name.c_str());
    item.lParam = reinterpret_cast<LPARAM>(record);
    ListView_InsertItem(list, &item);
}

void AddColumn(HWND list, const wchar_t* title, int width) {
    LVCOLUMNW column = {};
    column.mask = LVCF_TEXT | LVCF_WIDTH;
    column.cx = width;
    column.pszText = const_cast<wchar_t*>(title);
    ListView_InsertColumn(list, 0, &column);
}

// The icon centred near the row's left edge, at most 12 units square. A picture no larger than
// that is taken as drawn for 96 dpi and scaled with the display; a larger one is cut to the size.
void DrawRowIcon(HDC dc, const RECT& row, HBITMAP icon, int width, int height) {
    bool baseSize = width <= kIconSide && height <= kIconSide;
    int shownWidth = baseSize ? width : std::min(width, ScaleForDisplay(kIconSide));
    int shownHeight = baseSize ? height : std::min(height, ScaleForDisplay(kIconSide));
    int drawnWidth = baseSize ? ScaleForDisplay(width) : shownWidth;
    int drawnHeight = baseSize ? ScaleForDisplay(height) : shownHeight;
    TransparentImage(dc, row.left + ScaleForDisplay(kIconCentreX) - drawnWidth / 2,
                     row.top + ScaleForDisplay(kIconCentreY) - drawnHeight / 2, drawnWidth, drawnHeight, icon, 0, 0,
                     shownWidth, shownHeight, kIconKey);
}

}  // namespace

CategorySettingsWin::CategorySettingsWin() : filterTabShown_(g_settings.general.FilterMethodToUse.value != 0) {}

// ---- sections ------------------------------------------------------------------------------

// With three tabs the filter section has none: the third tab is the section after it.
int CategorySettingsWin::SectionAtTab(int tab) const {
    return filterTabShown_ || tab < kFilterSection ? tab : tab + 1;
}

int CategorySettingsWin::GetSectionCount() { return filterTabShown_ ? 4 : 3; }

UINT CategorySettingsWin::GetSectionTitleId(int index) {
    int section = SectionAtTab(index);
    return index >= 0 && section < 4 ? kSections[section].titleId : 0;
}

int CategorySettingsWin::GetControlCount() { return kControlCount; }

void CategorySettingsWin::ShowSection(HWND, int showCommand) {
    int tab = CurrentSection();
    if (tab < 0 || tab >= GetSectionCount()) return;
    const Section& section = kSections[SectionAtTab(tab)];
    ShowControls(section.first, section.last, showCommand);
}

void CategorySettingsWin::UpdateFilterTab(HWND window) {
    bool wanted = IsChecked(kUseFilters);
    if (wanted == filterTabShown_ || !sectionTabs_) return;
    ShowSection(window, SW_HIDE);
    if (wanted) {
        WString title;
        title.load(g_app.languageLibrary, IDS_CAT_SECTION_FILTERS);
        TCITEMW item = {};
        item.mask = TCIF_TEXT;
        item.pszText = const_cast<wchar_t*>(title.c_str());
        SendMessageW(sectionTabs_, TCM_INSERTITEMW, kFilterSection, reinterpret_cast<LPARAM>(&item));
    } else {
        SendMessageW(sectionTabs_, TCM_DELETEITEM, kFilterSection, 0);
    }
    filterTabShown_ = wanted;
    if (CurrentSection() < 0) SendMessageW(sectionTabs_, TCM_SETCURSEL, 0, 0);
    ShowSection(window, SW_SHOW);
}

// ---- controls ------------------------------------------------------------------------------

void CategorySettingsWin::CreateControls(HWND) {
    for (const Place& place : kPlaces) {
        int top = ScaleForDisplayY(place.y);
        switch (place.kind) {
        case kCheckBox:
            CreateCheckBox(place.number, place.textId,
                           place.number == kUseFilters && g_settings.general.FilterMethodToUse.value != 0, top);
            break;
        case kPushButton:
            CreateButton(place.number, place.textId, 0, top, 0, 0);
            break;
        case kLabel:
            CreateLabel(place.number, place.textId, 0, top, 0, 0, SS_RIGHT);
            break;
        case kDropList:
            CreateChild(place.number, L"combobox", L"", kDropListStyle, 0, top, 0, 0);
            break;
        case kCategoryRows:
            CreateChild(place.number, WC_LISTVIEWW, L"", kCategoryListStyle, 0, top, 0, 0);
            break;
        case kFilterRows:
            CreateChild(place.number, WC_LISTVIEWW, L"", kFilterListStyle, 0, top, 0, 0);
            break;
        case kIconsFolderRow:
            CreateLabelledPathRow(kIconsFolderLabel, kIconsFolder, kIconsFolderClear, kIconsFolderBrowse, place.textId,
                                  g_settings.categories.AdditionalIconsFolder.c_str(), top);
            break;
        }
    }
    PlaceControls();
    for (UINT id : kSensitivityItems) {
        WString text;
        text.load(g_app.languageLibrary, id);
        SendMessageW(control(kSensitivityCombo), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
    }
    FillCategoryLists();
    FillFilterCombo(0);
    ShowFilter(0);
}

// Every control of the table but the labelled path row, which keeps its own place.
void CategorySettingsWin::PlaceControls() {
    int width = ClientWidth(), height = ClientHeight();
    for (const Place& place : kPlaces) {
        HWND child = control(place.number);
        if (!child || place.kind == kIconsFolderRow) continue;
        int x = place.x < 0 ? width - ScaleForDisplay(-place.x) : ScaleForDisplay(place.x);
        int y = ScaleForDisplayY(place.y);
        int w = place.width > 0 ? ScaleForDisplay(place.width) : width - x - ScaleForDisplay(-place.width);
        int h = place.height > 0 ? ScaleForDisplayY(place.height) : height - y - ScaleForDisplayY(-place.height);
        MoveWindow(child, x, y, w, h, FALSE);
    }
    if (HWND list = control(kCategoryList)) FitListColumn(list);
}

LRESULT CategorySettingsWin::OnMove(HWND) {
    PlaceControls();
    return 0;
}

void CategorySettingsWin::FillCategoryLists() {
    HWND categories = control(kCategoryList), members = control(kFilterCategories);
    if (categories) AddColumn(categories, L"List Column", 0);
    if (members) {
        ListView_SetExtendedListViewStyle(members, LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT);
        AddColumn(members, L"Categories List", ScaleForDisplay(kFilterColumnWidth));
    }
    int row = 0;
    for (CategoryRecord* record = g_categories.head; record; record = record->next, ++row) {
        if (categories) AddRow(categories, row, record);
        if (members) AddRow(members, row, record);
    }
    if (categories) FitListColumn(categories);
}

void CategorySettingsWin::FillFilterCombo(int selection) {
    HWND combo = control(kFilterCombo);
    if (!combo) return;
    SendMessageW(combo, CB_RESETCONTENT, 0, 0);
    for (const FilterRecord* filter = g_filters.head; filter; filter = filter->next)
        SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(filter->title.c_str()));
    SendMessageW(combo, CB_SETCURSEL, selection, 0);
}

// ---- the filter editor ---------------------------------------------------------------------
// Combo entry x stands for filter bit x of every category's mask and for the filter record of
// index x + 1. The 32 default filters are numbered from 0, so with them entry 0 edits the flags
// of the second filter and the last entry edits no filter's flags; the bits change all the same.

void CategorySettingsWin::ShowFilter(int filter) {
    shownFilter_ = filter;
    if (filter < 0 || filter >= kFilterCount) return;
    if (HWND members = control(kFilterCategories)) {
        int row = 0;
        for (const CategoryRecord* r = g_categories.head; r; r = r->next, ++row)
            ListView_SetItemState(members, row, (r->filterMask >> filter) & 1 ? kChecked : kUnchecked,
                                  LVIS_STATEIMAGEMASK);
    }
    const FilterRecord* record = FindFilter(g_filters, filter + 1);
    if (!record) return;  // the flags keep what they showed
    SendMessageW(control(kFilterVisible), BM_SETCHECK, record->visible ? BST_CHECKED : BST_UNCHECKED, 0);
    SendMessageW(control(kFilterUncategorized), BM_SETCHECK,
                 record->includeUncategorized ? BST_CHECKED : BST_UNCHECKED, 0);
    SendMessageW(control(kSensitivityCombo), CB_SETCURSEL, record->sensitivity, 0);
}

void CategorySettingsWin::StoreFilter(int filter) {
    if (filter < 0 || filter >= kFilterCount) return;
    DWORD bit = 1u << filter;
    if (HWND members = control(kFilterCategories)) {
        int rows = ListView_GetItemCount(members), row = 0;
        for (CategoryRecord* r = g_categories.head; r && row < rows; r = r->next, ++row) {
            bool unchecked = ListView_GetItemState(members, row, LVIS_STATEIMAGEMASK) == kUnchecked;
            r->filterMask = unchecked ? r->filterMask & ~bit : r->filterMask | bit;
        }
    }
    FilterRecord* record = FindFilter(g_filters, filter + 1);
    if (!record) return;
    record->visible = IsChecked(kFilterVisible);
    record->includeUncategorized = IsChecked(kFilterUncategorized);
    int sensitivity = Selection(kSensitivityCombo);
    if (sensitivity >= 0) record->sensitivity = sensitivity;  // an unlisted sensitivity is kept
}

void CategorySettingsWin::OnFilterChosen() {
    int chosen = Selection(kFilterCombo);
    if (chosen < 0 || chosen == shownFilter_) return;
    StoreFilter(shownFilter_);
    ShowFilter(chosen);
}

void CategorySettingsWin::CheckEveryCategory(bool checked) {
    HWND members = control(kFilterCategories);
    for (int row = 0, rows = members ? ListView_GetItemCount(members) : 0; row < rows; ++row)
        ListView_SetItemState(members, row, checked ? kChecked : kUnchecked, LVIS_STATEIMAGEMASK);
}

void CategorySettingsWin::RenameFilter(HWND window) {
    int selection = Selection(kFilterCombo);
    WString title = WindowText(control(kFilterCombo));
    if (!AskFilterName(window, &title)) return;
    if (FilterRecord* record = FindFilter(g_filters, selection + 1)) record->title = title;
    FillFilterCombo(selection < 0 ? 0 : selection);
}

// ---- categories ----------------------------------------------------------------------------

CategoryRecord* CategorySettingsWin::SelectedCategory() const {
    HWND list = control(kCategoryList);
    int row = list ? ListView_GetNextItem(list, -1, LVNI_SELECTED) : -1;
    if (row < 0) return nullptr;
    LVITEMW item = {};
    item.mask = LVIF_PARAM;
    item.iItem = row;
    return ListView_GetItem(list, &item) ? reinterpret_cast<CategoryRecord*>(item.lParam) : nullptr;
}

std::vector<WString> CategorySettingsWin::IconFolders() const {
    WString additional = control(kIconsFolder) ? WindowText(control(kIconsFolder))
                                               : WString(g_settings.categories.AdditionalIconsFolder.c_str());
    const wchar_t* candidates[] = {g_settings.general.QLIconsFolder.c_str(), additional.c_str(),
                                   g_settings.pocketInformant.IconPath.c_str(),
                                   g_settings.agendaFusion.CoreCategories.c_str()};
    std::vector<WString> folders;
    for (const wchar_t* candidate : candidates) {
        bool listed = !*candidate;
        for (const WString& folder : folders) listed = listed || _wcsicmp(folder.c_str(), candidate) == 0;
        if (!listed) folders.emplace_back(candidate);
    }
    return folders;
}

void CategorySettingsWin::ChooseIcon(HWND window) {
    CategoryRecord* record = SelectedCategory();
    if (!record) return;
    const wchar_t* iconsFolder = g_settings.general.QLIconsFolder.c_str();
    WString iconPath;
    if (!CategoryIconPath(iconsFolder, record->name.c_str(), &iconPath)) {
        LibraryMessageBox(window, IDS_CAT_ICON_NAME_TEXT, MB_OK | MB_ICONSTOP);
        return;
    }
    bool hasFile = GetFileAttributesW(iconPath.c_str()) != INVALID_FILE_ATTRIBUTES;
    WString chosen;
    if (!ChooseCategoryIcon(window, IconFolders(), hasFile ? iconPath.c_str() : L"", &chosen)) return;
    ChangeCategoryIcon(*record, iconsFolder, chosen.c_str());
    InvalidateRect(control(kCategoryList), nullptr, TRUE);
}

void CategorySettingsWin::ChooseColour(HWND) {
    CategoryRecord* record = SelectedCategory();
    if (!record) return;
    COLORREF colour = record->colour;
    if (PickColour(&colour, true)) record->colour = colour;
    InvalidateRect(control(kCategoryList), nullptr, TRUE);
    SetFocus(control(kCategoryList));
}

void CategorySettingsWin::ChooseIconsFolder(HWND window) {
    BrowserRequest request;
    request.kind = BrowserKind::SelectFolder;
    request.owner = window;
    request.title.assign(kIconsFolderTitle);
    LoadBrowserTexts(g_app.languageLibrary, &request);
    if (!RunFileBrowser(&request)) return;
    SetWindowTextW(control(kIconsFolder), request.result.c_str());
    SetString(g_settings.categories.AdditionalIconsFolder, request.result.c_str());
}

// ---- messages ------------------------------------------------------------------------------

LRESULT CategorySettingsWin::OnCommand(HWND window, UINT, WPARAM wParam, LPARAM lParam) {
    int number = ControlNumberOf(reinterpret_cast<HWND>(lParam));
    UINT notification = HIWORD(wParam);
    if (number == kFilterCombo && (notification == CBN_SELCHANGE || notification == CBN_SELENDOK)) OnFilterChosen();
    if (notification != BN_CLICKED) return 0;
    switch (number) {
    case kUseFilters: UpdateFilterTab(window); break;
    case kIconButton: ChooseIcon(window); break;
    case kColourButton: ChooseColour(window); break;
    case kRenameButton: RenameFilter(window); break;
    case kCheckAll: CheckEveryCategory(true); break;
    case kCheckNone: CheckEveryCategory(false); break;
    case kIconsFolderClear:
        SetWindowTextW(control(kIconsFolder), L"");
        SetString(g_settings.categories.AdditionalIconsFolder, L"");
        break;
    case kIconsFolderBrowse: ChooseIconsFolder(window); break;
    default: break;
    }
    return 0;
}

LRESULT CategorySettingsWin::OnMeasureItem(HWND, UINT, WPARAM, LPARAM lParam) {
    auto* measure = reinterpret_cast<MEASUREITEMSTRUCT*>(lParam);
    if (measure->CtlType != ODT_LISTVIEW || measure->CtlID != static_cast<UINT>(kPageControlIdBase + kCategoryList))
        return 0;
    measure->itemHeight = ScaleForDisplay(kRowHeight);
    return 1;
}

// A category row: the background (the highlight colours when selected), the icon, the colour
// swatch at the right edge and the name between them.
LRESULT CategorySettingsWin::OnDrawItem(HWND, UINT, WPARAM, LPARAM lParam) {
    const auto* draw = reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
    if (draw->CtlType != ODT_LISTVIEW || draw->hwndItem != control(kCategoryList)) return 0;
    const auto* record = reinterpret_cast<const CategoryRecord*>(draw->itemData);
    if (!record) return 1;
    HDC dc = draw->hDC;
    RECT row = draw->rcItem;
    bool selected = (draw->itemState & ODS_SELECTED) != 0;
    const ColorsSettings& colours = g_settings.colors;
    FillRectangle(dc, row, selected ? ColourOrShell(colours.HighlightBgClr, kShellColour34) : kRowBackground);
    COLORREF oldText = selected ? SetTextColor(dc, ColourOrShell(colours.HighlightTextClr, kShellColour35))
                                : GetTextColor(dc);
    RECT text = row;
    text.left += ScaleForDisplay(kTextIndent);
    BITMAP icon = {};
    if (record->icon && GetObjectW(record->icon.get(), sizeof icon, &icon)) {
        DrawRowIcon(dc, row, record->icon.get(), icon.bmWidth, icon.bmHeight < 0 ? -icon.bmHeight : icon.bmHeight);
        text.left += ScaleForDisplay(kIconTextShift);
    }
    if (record->colour != kNoCategoryColour) {
        RECT swatch = {row.right - ScaleForDisplay(kSwatchRightInset + kSwatchWidth),
                       row.top + ScaleForDisplay(kSwatchVerticalInset), row.right - ScaleForDisplay(kSwatchRightInset),
                       row.bottom - ScaleForDisplay(kSwatchVerticalInset)};
        FillRectangle(dc, swatch, 0);
        InflateRect(&swatch, -1, -1);
        FillRectangle(dc, swatch, record->colour);
        text.right -= ScaleForDisplay(kSwatchTextGap);
    }
    int oldMode = SetBkMode(dc, TRANSPARENT);
    DrawTextW(dc, record->name.c_str(), -1, &text, DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
    SetBkMode(dc, oldMode);
    SetTextColor(dc, oldText);
    return 1;
}

// ---- storing -------------------------------------------------------------------------------

void CategorySettingsWin::StoreValues(HWND window) {
    ShowSection(window, SW_HIDE);
    SetInt(g_settings.general.FilterMethodToUse, IsChecked(kUseFilters) ? 1 : 0);
    StoreFilter(Selection(kFilterCombo));
}

SettingsPage* CreateCategoriesPage() { return new CategorySettingsWin; }
