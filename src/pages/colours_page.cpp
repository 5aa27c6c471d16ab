#include "pages/colours_page.h"

#include <commctrl.h>

#include "dialogs/colour_picker.h"
#include "files/colour_schemes.h"
#include "platform/device_window.h"
#include "settings/settings.h"
#include "string_ids.h"
#include "support/app_state.h"
#include "support/colour_sample.h"
#include "support/display_scale.h"
#include "support/language_text.h"
#include "support/wide_string.h"

namespace {

enum Control { kChange, kColourList, kSchemeName, kSave, kSchemeList, kLoad, kDelete, kControlCount };

struct Section {
    UINT titleId;
    int first, last;
};
const Section kSections[] = {{IDS_CLR_SECTION_COLORS, kChange, kColourList},
                             {IDS_CLR_SECTION_SCHEMES, kSchemeName, kDelete}};
const int kSectionCount = sizeof kSections / sizeof kSections[0];

// Where each control goes, in 96-dpi units. A negative x or y counts from the page's right or
// bottom edge; a width or height of 0 or less is the page's width or height plus that amount.
// Only the controls marked followSize are moved again when the page changes size.
enum ControlKind { kButton, kColourNames, kNameEdit, kSchemeFiles };
struct ControlPlace {
    ControlKind kind;
    UINT textId;
    int x, y, width, height;
    bool followSize;
};
const ControlPlace kPlaces[kControlCount] = {
    {kButton, IDS_CLR_CHANGE, -50, 50, 40, 20, false},
    {kColourNames, 0, 10, 76, -20, -104, true},
    {kNameEdit, 0, 10, 50, 130, 20, false},
    {kButton, IDS_CLR_SCHEME_SAVE, 150, 50, 80, 20, false},
    {kSchemeFiles, 0, 10, 76, -20, -130, true},
    {kButton, IDS_CLR_SCHEME_LOAD, 10, -48, 80, 20, true},
    {kButton, IDS_CLR_SCHEME_DELETE, 100, -48, 80, 20, true},
};

// The colour items in list order: item i is listed as IDS_CLR_ITEM_SEPARATOR + i and described by
// IDS_CLR_ABOUT_SEPARATOR + 2 * i.
using C = ColorsSettings;
IntSetting C::*const kColourItems[ColorSettingsWin::kColourItemCount] = {
    &C::SeperatorLineClr, &C::ShadowFontColor,  &C::GeneralFontColor,   &C::HighlightBgClr,
    &C::HighlightTextClr, &C::TimeLinesBgClr,   &C::TimeLinesDfltClr,   &C::ClrBreakingLineClr,
    &C::ClrPopupClrBg,    &C::ClrPopupCurr,     &C::ClrPopupHighlight,  &C::TskBreakingLineClr,
    &C::ClrStatusFree,    &C::ClrStatusBusy,    &C::ClrStatusTentative, &C::ClrStatusOutofoffice,
};

const DWORD kSchemeListStyle = WS_CHILD | WS_BORDER | WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL;
const DWORD kSchemeListExtendedStyle = 0x10000020;  // full-row selection, no horizontal scroll bar
// The scheme list's column header; the program's own text, kept although the list holds schemes.
const wchar_t kSchemeColumnTitle[] = L"Calendar settings";
const int kSchemeColumnWidth = 300;
const int kLoadNameChars = 256;    // 255 characters and the terminator
const int kDeleteNameChars = 257;  // 256 characters and the terminator
const int kRepaintedTop = 80;      // the description and the sample above the colour list
const int kDescriptionTop = 8;
const int kSampleRight = 10 + 90;
const int kSampleTop = 8 + 42;

int Scaled(int units, int pageSize, bool vertical) {
    int pixels = vertical ? ScaleForDisplayY(units) : ScaleForDisplay(units);
    return units < 0 ? pageSize + pixels : pixels;
}
int ScaledSize(int units, int pageSize, bool vertical) {
    int pixels = vertical ? ScaleForDisplayY(units) : ScaleForDisplay(units);
    return units <= 0 ? pageSize + pixels : pixels;
}

// The column takes the list's width less its scroll bar, so no horizontal scroll bar appears.
void FitColumn(HWND list) {
    RECT client = {};
    if (list && GetClientRect(list, &client)) SendMessageW(list, LVM_SETCOLUMNWIDTH, 0, client.right);
}

void DrawPageText(HDC dc, HFONT font, const wchar_t* text, RECT area) {
    DcSelection selected(dc, font);
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, RGB(0, 0, 0));
    DrawTextW(dc, text, -1, &area, DT_LEFT | DT_TOP | DT_WORDBREAK | DT_NOPREFIX);
}

WString ItemText(HWND list, int item, int chars) {
    wchar_t text[kDeleteNameChars] = {};
    LVITEMW request = {};
    request.iSubItem = 0;
    request.pszText = text;
    request.cchTextMax = chars;
    SendMessageW(list, LVM_GETITEMTEXTW, item, reinterpret_cast<LPARAM>(&request));
    return WString(text);
}

void InsertListText(HWND list, int index, const wchar_t* text) {
    LVITEMW item = {};
    item.mask = LVIF_TEXT;
    item.iItem = index;
    item.pszText = const_cast<wchar_t*>(text);
    SendMessageW(list, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
}

}  // namespace

int ColorSettingsWin::GetSectionCount() { return kSectionCount; }

UINT ColorSettingsWin::GetSectionTitleId(int index) {
    return index >= 0 && index < kSectionCount ? kSections[index].titleId : 0;
}

int ColorSettingsWin::GetControlCount() { return kControlCount; }

void ColorSettingsWin::CreateControls(HWND) {
    int width = ClientWidth(), height = ClientHeight();
    for (int number = 0; number < kControlCount; ++number) {
        const ControlPlace& place = kPlaces[number];
        int x = Scaled(place.x, width, false), y = Scaled(place.y, height, true);
        int w = ScaledSize(place.width, width, false), h = ScaledSize(place.height, height, true);
        switch (place.kind) {
        case kButton:
            CreateButton(number, place.textId, x, y, w, h);
            break;
        case kColourNames: {
            UINT itemIds[kColourItemCount];
            for (int i = 0; i < kColourItemCount; ++i) itemIds[i] = IDS_CLR_ITEM_SEPARATOR + i;
            CreateList(number, itemIds, kColourItemCount, ScaleForDisplayY(kDescriptionTop));
            FitColumn(control(number));
            break;
        }
        case kNameEdit:
            CreateEdit(number, L"", x, y, w, h);
            break;
        case kSchemeFiles:
            if (HWND list = CreateChild(number, WC_LISTVIEWW, L"", kSchemeListStyle, x, y, w, h)) FillSchemeList(list);
            break;
        }
    }
}

void ColorSettingsWin::ShowSection(HWND window, int showCommand) {
    int section = CurrentSection();
    if (section < 0 || section >= kSectionCount) return;
    ShowControls(kSections[section].first, kSections[section].last, showCommand);
    InvalidateRect(window, nullptr, TRUE);
}

// Colours are written to the settings record as soon as they are chosen.
void ColorSettingsWin::StoreValues(HWND) {}

void ColorSettingsWin::PlaceControl(int number) {
    HWND child = control(number);
    if (!child) return;
    const ControlPlace& place = kPlaces[number];
    int width = ClientWidth(), height = ClientHeight();
    MoveWindow(child, Scaled(place.x, width, false), Scaled(place.y, height, true),
               ScaledSize(place.width, width, false), ScaledSize(place.height, height, true), TRUE);
    if (number == kColourList) FitColumn(child);
}

LRESULT ColorSettingsWin::OnMove(HWND) {
    for (int number = 0; number < kControlCount; ++number)
        if (kPlaces[number].followSize) PlaceControl(number);
    return 0;
}

// ---- painting --------------------------------------------------------------------------------

LRESULT ColorSettingsWin::OnPaint(HWND window, UINT, WPARAM, LPARAM) {
    PAINTSTRUCT paint;
    HDC dc = BeginPaint(window, &paint);
    int section = CurrentSection();
    if (section == 0) PaintColourItem(dc);
    if (section == 1) PaintSchemesHelp(dc);
    EndPaint(window, &paint);
    return 0;
}

int ColorSettingsWin::SelectedColourItem() const {
    HWND list = control(kColourList);
    if (!list) return -1;
    int item = static_cast<int>(SendMessageW(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
    return item < kColourItemCount ? item : -1;
}

void ColorSettingsWin::PaintColourItem(HDC dc) {
    int item = SelectedColourItem();
    if (item < 0) return;
    int width = ClientWidth();
    WString description;
    description.load(g_app.languageLibrary, IDS_CLR_ABOUT_SEPARATOR + 2 * item);
    RECT text = {ScaleForDisplay(10), ScaleForDisplayY(kDescriptionTop), width - ScaleForDisplay(10),
                 ScaleForDisplayY(kPlaces[kColourList].y)};
    DrawPageText(dc, normalFont_, description.c_str(), text);
    RECT sample = {width - ScaleForDisplay(kSampleRight), ScaleForDisplayY(kSampleTop), 0, 0};
    sample.right = sample.left + ScaleForDisplay(kColourSampleWidth);
    sample.bottom = sample.top + ScaleForDisplayY(kColourSampleHeight);
    DrawColourSample(dc, sample, (g_settings.colors.*kColourItems[item]).value, normalFont_);
}

void ColorSettingsWin::PaintSchemesHelp(HDC dc) {
    WString help;
    help.load(g_app.languageLibrary, IDS_CLR_SCHEMES_HELP);
    RECT text = {ScaleForDisplay(10), ScaleForDisplayY(kDescriptionTop), ClientWidth() - ScaleForDisplay(10),
                 ScaleForDisplayY(kPlaces[kSchemeName].y)};
    DrawPageText(dc, normalFont_, help.c_str(), text);
}

// ---- notifications and commands --------------------------------------------------------------

LRESULT ColorSettingsWin::OnNotify(HWND window, int, NMHDR* header) {
    if (header->hwndFrom != control(kColourList) || header->code != LVN_ITEMCHANGED) return 0;
    auto* change = reinterpret_cast<NMLISTVIEW*>(header);
    bool newlySelected = (change->uChanged & LVIF_STATE) && !(change->uOldState & LVIS_SELECTED) &&
                         (change->uNewState & LVIS_SELECTED);
    if (newlySelected) {
        RECT top = {0, 0, ClientWidth(), ScaleForDisplayY(kRepaintedTop)};
        InvalidateRect(window, &top, TRUE);
    }
    return 0;
}

LRESULT ColorSettingsWin::OnCommand(HWND window, UINT, WPARAM wParam, LPARAM lParam) {
    if (HIWORD(wParam) != BN_CLICKED) return 0;
    switch (ControlNumberOf(reinterpret_cast<HWND>(lParam))) {
    case kChange:
        ChangeSelectedColour(window);
        break;
    case kSave:
        SaveScheme(window);
        break;
    case kLoad:
        LoadScheme(window);
        break;
    case kDelete:
        DeleteScheme(window);
        break;
    default:
        break;
    }
    return 0;
}

int ColorSettingsWin::SelectionMark(int list) const {
    HWND listView = control(list);
    return listView ? static_cast<int>(SendMessageW(listView, LVM_GETSELECTIONMARK, 0, 0)) : -1;
}

void ColorSettingsWin::ChangeSelectedColour(HWND window) {
    int item = SelectionMark(kColourList);
    if (item < 0 || item >= kColourItemCount) return;
    IntSetting& setting = g_settings.colors.*kColourItems[item];
    COLORREF colour = setting.value;
    if (!PickColour(&colour, true)) return;
    SetInt(setting, colour);
    InvalidateRect(window, nullptr, TRUE);
}

// ---- schemes ---------------------------------------------------------------------------------

void ColorSettingsWin::FillSchemeList(HWND listView) {
    SendMessageW(listView, LVM_DELETECOLUMN, 0, 0);
    SendMessageW(listView, LVM_SETEXTENDEDLISTVIEWSTYLE, 0, kSchemeListExtendedStyle);
    SendMessageW(listView, WM_SETFONT, reinterpret_cast<WPARAM>(normalFont_), TRUE);
    LVCOLUMNW column = {};
    column.mask = LVCF_TEXT | LVCF_WIDTH;
    column.cx = ScaleForDisplay(kSchemeColumnWidth);
    column.pszText = const_cast<wchar_t*>(kSchemeColumnTitle);
    SendMessageW(listView, LVM_INSERTCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
    SendMessageW(listView, LVM_DELETEALLITEMS, 0, 0);
    std::vector<WString> names = ListSchemeFiles();
    for (size_t i = 0; i < names.size(); ++i) InsertListText(listView, static_cast<int>(i), names[i].c_str());
}

bool ColorSettingsWin::SaveScheme(HWND window) {
    wchar_t name[256] = {};
    if (HWND edit = control(kSchemeName)) GetWindowTextW(edit, name, 256);
    switch (SaveSchemeFile(name)) {
    case SchemeSaveResult::kNoName:
        LibraryMessageBox(window, IDS_SCHEME_NO_NAME_TEXT, MB_OK);
        return false;
    case SchemeSaveResult::kExists:
        LibraryMessageBox(window, IDS_SCHEME_EXISTS_TEXT, MB_OK);
        return false;
    case SchemeSaveResult::kSaved:
        break;
    }
    WString fileName(name);
    fileName.append(L".scm");
    if (HWND list = control(kSchemeList)) InsertListText(list, 0, fileName.c_str());
    SetWindowTextW(control(kSchemeName), L"");
    LibraryMessageBox(window, IDS_SCHEME_SAVED_TEXT, MB_OK);
    return true;
}

bool ColorSettingsWin::LoadScheme(HWND window) {
    int item = SelectionMark(kSchemeList);
    if (item < 0) {
        LibraryMessageBox(window, IDS_SCHEME_NO_SELECTION_TEXT, MB_OK);
        return false;
    }
    if (LibraryMessageBox(window, IDS_SCHEME_LOAD_TEXT, MB_YESNO) != IDYES) return false;
    WString fileName = ItemText(control(kSchemeList), item, kLoadNameChars);
    switch (LoadSchemeFile(fileName.c_str())) {
    case SchemeLoadResult::kCannotOpen:
        LibraryMessageBox(window, IDS_SCHEME_CANNOT_OPEN_TEXT, MB_OK);
        return false;
    case SchemeLoadResult::kRejected:
        LibraryMessageBox(window, IDS_SCHEME_DAMAGED_TEXT, MB_OK);
        return false;
    case SchemeLoadResult::kLoaded:
        break;
    }
    // Reloading the settings has already released the language library it replaced.
    NotifyTodayScreenReload();
    DestroyWindow(window);
    return true;
}

bool ColorSettingsWin::DeleteScheme(HWND window) {
    int item = SelectionMark(kSchemeList);
    if (item < 0) {
        LibraryMessageBox(window, IDS_SCHEME_NO_SELECTION_TEXT, MB_OK);
        return false;
    }
    if (LibraryMessageBox(window, IDS_SCHEME_DELETE_TEXT, MB_YESNO) != IDYES) return false;
    DeleteSchemeFile(ItemText(control(kSchemeList), item, kDeleteNameChars).c_str());
    SendMessageW(control(kSchemeList), LVM_DELETEITEM, item, 0);
    return true;
}

SettingsPage* CreateColoursPage() { return new ColorSettingsWin; }
