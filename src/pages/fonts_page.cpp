#include "pages/fonts_page.h"

#include <commctrl.h>

#include <cwchar>

#include "dialogs/colour_picker.h"
#include "dialogs/font_dialog.h"
#include "settings/settings.h"
#include "string_ids.h"
#include "support/app_state.h"
#include "support/display_scale.h"
#include "support/handles.h"
#include "support/language_text.h"

namespace {

// Control numbers: section 0 first, then section 1.
enum Control {
    kSizeLabel, kSize, kTitleSizeLabel, kTitleSize, kAdvanced, kFaceLabel, kFace, kShadowLabel, kShadow, kClearType,
    kEditFont, kFontList, kResetSizes,
    kControlCount
};

const int kGeneralSection = 0;
const int kFontsSection = 1;
const UINT kSectionTitles[] = {IDS_FNT_SECTION_GENERAL, IDS_FNT_SECTION_COLORS};

// One row of the font list: its label, the name its sample gives the text, and its font.
struct FontRow {
    UINT labelId;
    UINT sampleId;
    FontSetting FontsSettings::*font;
};

using F = FontsSettings;
const FontRow kRows[FontSettingsWin::kRowCount] = {
    {IDS_FNT_ROW_GENERAL, IDS_FNT_SAMPLE_GENERAL, &F::FontGeneral},
    {IDS_FNT_ROW_CAL_TASKS, IDS_FNT_SAMPLE_CAL_TASKS, &F::FontCalTasks},
    {IDS_FNT_ROW_CAL_TASKS_OVERDUE, IDS_FNT_SAMPLE_CAL_TASKS_OVERDUE, &F::FontCalTasksOverdue},
    {IDS_FNT_ROW_CAL_TASKS_FUTURE, IDS_FNT_SAMPLE_CAL_TASKS_FUTURE, &F::FontCalTasksFuture},
    {IDS_FNT_ROW_CAL_TASKS_COMPLETED, IDS_FNT_SAMPLE_CAL_TASKS_COMPLETED, &F::FontCalTasksCompleted},
    {IDS_FNT_ROW_CAL_TASKS_UNDATED, IDS_FNT_SAMPLE_CAL_TASKS_UNDATED, &F::FontCalTasksUndated},
    {IDS_FNT_ROW_APPT_BUSY, IDS_FNT_SAMPLE_APPT_BUSY, &F::FontCalApptBusy},
    {IDS_FNT_ROW_APPT_FREE, IDS_FNT_SAMPLE_APPT_FREE, &F::FontCalApptFree},
    {IDS_FNT_ROW_APPT_OUT_OF_OFFICE, IDS_FNT_SAMPLE_APPT_OUT_OF_OFFICE, &F::FontCalApptOutOfOffice},
    {IDS_FNT_ROW_APPT_TENTATIVE, IDS_FNT_SAMPLE_APPT_TENTATIVE, &F::FontCalTentative},
    {IDS_FNT_ROW_APPT_PAST, IDS_FNT_SAMPLE_APPT_PAST, &F::FontCalPast},
    {IDS_FNT_ROW_APPT_COMPLETED, IDS_FNT_SAMPLE_APPT_COMPLETED, &F::FontCalCompleted},
    {IDS_FNT_ROW_MAIL_READ, IDS_FNT_SAMPLE_MAIL_READ, &F::FontMailRead},
    {IDS_FNT_ROW_MAIL_UNREAD, IDS_FNT_SAMPLE_MAIL_UNREAD, &F::FontMailUnread},
    {IDS_FNT_ROW_DAY_TITLES, IDS_FNT_SAMPLE_DAY_TITLES, &F::FontCalDayTitles},
    {IDS_FNT_ROW_TASK_OVERDUE, IDS_FNT_SAMPLE_TASK_OVERDUE, &F::FontTskOverdue},
    {IDS_FNT_ROW_TASK_DUE_TODAY, IDS_FNT_SAMPLE_TASK_DUE_TODAY, &F::FontTskDueToday},
    {IDS_FNT_ROW_TASK_NO_DUE, IDS_FNT_SAMPLE_TASK_NO_DUE, &F::FontTskNoDue},
    {IDS_FNT_ROW_TASK_FUTURE, IDS_FNT_SAMPLE_TASK_FUTURE, &F::FontTskFutureDue},
    {IDS_FNT_ROW_TASK_GROUP_TITLES, IDS_FNT_SAMPLE_TASK_GROUP_TITLES, &F::FontTskGroupingTtls},
    {IDS_FNT_ROW_NOTE_ITEMS, IDS_FNT_ROW_NOTE_ITEMS, &F::FontNoteItems},
    {IDS_FNT_ROW_NOTE_TITLES, IDS_FNT_ROW_NOTE_TITLES, &F::FontNoteTitles},
    // Contact items are listed before contact titles, the other way round from the record.
    {IDS_FNT_ROW_CONTACT_ITEMS, IDS_FNT_ROW_CONTACT_ITEMS, &F::FontContactItems},
    {IDS_FNT_ROW_CONTACT_TITLES, IDS_FNT_ROW_CONTACT_TITLES, &F::FontContactTitles},
    {IDS_FNT_ROW_MSG_UNREAD, IDS_FNT_ROW_MSG_UNREAD, &F::FontMsgsUnread},
    {IDS_FNT_ROW_MSG_READ, IDS_FNT_ROW_MSG_READ, &F::FontMsgsRead},
    {IDS_FNT_ROW_MSG_TITLES, IDS_FNT_ROW_MSG_TITLES, &F::FontMsgsTitles},
    {IDS_FNT_ROW_SE_GENERAL, IDS_FNT_SAMPLE_SE_GENERAL, &F::FontSEGeneral},
    {IDS_FNT_ROW_SE_FILTER1, IDS_FNT_SAMPLE_SE_FILTER1, &F::FontSEFilter1},
    {IDS_FNT_ROW_SE_FILTER2, IDS_FNT_SAMPLE_SE_FILTER2, &F::FontSEFilter2},
    {IDS_FNT_ROW_SE_FILTER3, IDS_FNT_SAMPLE_SE_FILTER3, &F::FontSEFilter3},
    {IDS_FNT_ROW_SE_FILTER4, IDS_FNT_SAMPLE_SE_FILTER4, &F::FontSEFilter4},
    {IDS_FNT_ROW_SE_GROUP_TITLES, IDS_FNT_SAMPLE_SE_GROUP_TITLES, &F::FontSEGroupingTtls},
};

// The two contact rows keep their heights when the others are reset to the general font's.
const int kGeneralRow = 0;
const int kFirstContactRow = 22;
const int kLastContactRow = 23;

const UINT kShadowItems[] = {IDS_FNT_SHADOW_OFF, IDS_FNT_SHADOW_LIGHT, IDS_FNT_SHADOW_DARK, IDS_FNT_GLOW_LIGHT,
                             IDS_FNT_GLOW_DARK};
const int kShadowItemCount = sizeof kShadowItems / sizeof kShadowItems[0];

const int kSmallestSize = 10;
const int kLargestSize = 30;
const int kFaceChars = 256;

UINT ListRowLabels(UINT* ids) {
    for (int row = 0; row < FontSettingsWin::kRowCount; ++row) ids[row] = kRows[row].labelId;
    return FontSettingsWin::kRowCount;
}

int CALLBACK AddFace(const LOGFONTW* font, const TEXTMETRICW*, DWORD, LPARAM combo) {
    SendMessageW(reinterpret_cast<HWND>(combo), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(font->lfFaceName));
    return 1;
}

}  // namespace

FontSetting* FontSettingsWin::RowFont(int row) {
    return row >= 0 && row < kRowCount ? &(g_settings.fonts.*kRows[row].font) : nullptr;
}

int FontSettingsWin::GetSectionCount() { return 2; }

// The second title follows the mode (ApplyMode sets it at creation and on every change).
UINT FontSettingsWin::GetSectionTitleId(int index) { return index >= 0 && index < 2 ? kSectionTitles[index] : 0; }

int FontSettingsWin::GetControlCount() { return kControlCount; }

void FontSettingsWin::CreateControls(HWND window) {
    FontsSettings& fonts = g_settings.fonts;
    int top = ScaleForDisplayY(8);
    top += CreateComboRow(kSizeLabel, kSize, IDS_FNT_SIZE_LABEL, nullptr, 0, 0, top, false);
    FillSizes(kSize, fonts.FontGnrlSize.value);
    top += CreateComboRow(kTitleSizeLabel, kTitleSize, IDS_FNT_TITLES_SIZE_LABEL, nullptr, 0, 0, top, false);
    FillSizes(kTitleSize, fonts.FontGnrlTitlesSize.value);
    top += CreateCheckBox(kAdvanced, IDS_FNT_ADVANCED, fonts.FontGnrlUseAdvncd.value != 0, top);
    top += CreateComboRow(kFaceLabel, kFace, IDS_FNT_FACE_LABEL, nullptr, 0, 0, top, false);
    FillFaces(kFace);
    top += CreateComboRow(kShadowLabel, kShadow, IDS_FNT_SHADOW_LABEL, kShadowItems, kShadowItemCount,
                          static_cast<int>(fonts.UseShadowColor.value), top, false);
    CreateCheckBox(kClearType, IDS_FNT_FORCE_CLEARTYPE, fonts.ForceClearType.value != 0, top);

    int sectionTop = ScaleForDisplayY(8);
    int width = ClientWidth();
    CreateButton(kEditFont, IDS_FNT_EDIT, width - ScaleForDisplay(50), sectionTop + ScaleForDisplay(42),
                 ScaleForDisplay(40), ScaleForDisplay(20));
    CreateButton(kResetSizes, IDS_FNT_RESET_SIZES, ScaleForDisplay(10), sectionTop + ScaleForDisplay(42),
                 ScaleForDisplay(70), ScaleForDisplay(20));
    UINT labels[kRowCount];
    CreateList(kFontList, labels, ListRowLabels(labels), sectionTop);
    ApplyMode();
}

void FontSettingsWin::FillSizes(int combo, DWORD size) {
    HWND box = control(combo);
    if (!box) return;
    wchar_t text[8];
    for (int value = kSmallestSize; value <= kLargestSize; ++value) {
        swprintf(text, 8, L"%d", value);
        LRESULT item = SendMessageW(box, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
        SendMessageW(box, CB_SETITEMDATA, item, value);
    }
    // A size outside the list selects nothing.
    DWORD index = size - kSmallestSize;
    if (index <= static_cast<DWORD>(kLargestSize - kSmallestSize)) SendMessageW(box, CB_SETCURSEL, index, 0);
}

void FontSettingsWin::FillFaces(int combo) {
    HWND box = control(combo);
    if (!box) return;
    WindowDc screen(nullptr);
    EnumFontFamiliesW(screen.get(), nullptr, AddFace, reinterpret_cast<LPARAM>(box));
    LRESULT match = SendMessageW(box, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                 reinterpret_cast<LPARAM>(g_settings.fonts.FontFaceToUse.c_str()));
    if (match != CB_ERR) SendMessageW(box, CB_SETCURSEL, match, 0);
}

bool FontSettingsWin::Advanced() const { return IsChecked(kAdvanced); }

// Advanced mode: the common sizes give way to a font per kind, and section 1 edits fonts.
void FontSettingsWin::ApplyMode() {
    bool advanced = Advanced();
    for (int number = kSizeLabel; number <= kTitleSize; ++number) EnableControl(number, !advanced);
    EnableControl(kResetSizes, advanced);
    if (sectionTabs_) {
        WString title = LanguageText(advanced ? IDS_FNT_SECTION_FONTS : IDS_FNT_SECTION_COLORS);
        TCITEMW item = {};
        item.mask = TCIF_TEXT;
        item.pszText = const_cast<wchar_t*>(title.c_str());
        SendMessageW(sectionTabs_, TCM_SETITEMW, kFontsSection, reinterpret_cast<LPARAM>(&item));
    }
    InvalidateRect(pageWindow_, nullptr, TRUE);
}

void FontSettingsWin::ShowSection(HWND window, int showCommand) {
    int section = CurrentSection();
    if (section == kGeneralSection) ShowControls(kSizeLabel, kClearType, showCommand);
    if (section == kFontsSection) ShowControls(kEditFont, kResetSizes, showCommand);
    InvalidateRect(window, nullptr, TRUE);
}

LRESULT FontSettingsWin::OnCommand(HWND window, UINT, WPARAM wParam, LPARAM lParam) {
    if (LOWORD(wParam) == IDM_RESET_FONT_HEIGHTS) {
        ResetFontHeights(window);
        return 0;
    }
    int number = ControlNumberOf(reinterpret_cast<HWND>(lParam));
    if (HIWORD(wParam) != BN_CLICKED) return 0;
    if (number == kAdvanced) ApplyMode();
    if (number == kEditFont) EditSelectedFont(window);
    if (number == kResetSizes) ResetFontHeights(window);
    return 0;
}

// The row the Edit button works on: the list's selection mark.
void FontSettingsWin::EditSelectedFont(HWND window) {
    HWND list = control(kFontList);
    FontSetting* setting = list ? RowFont(ListView_GetSelectionMark(list)) : nullptr;
    if (!setting) return;
    COLORREF colour = setting->colour.value;
    if (Advanced()) {
        // The dialog changes the font only on OK, the colour as soon as one is chosen: the
        // setting takes both whichever way the dialog was closed.
        RunFontDialog(window, &setting->font, &colour);
    } else if (!PickColour(&colour, true)) {
        return;
    }
    setting->apply(setting->font, colour);
    InvalidateRect(window, nullptr, TRUE);
}

void FontSettingsWin::ResetFontHeights(HWND window) {
    WString text = LanguageText(IDS_FNT_RESET_HEIGHTS_TEXT);
    WString caption = LanguageText(IDS_FNT_RESET_HEIGHTS_CAPTION);
    if (MessageBoxW(window, text.c_str(), caption.c_str(), MB_YESNO) != IDYES) return;
    LONG height = RowFont(kGeneralRow)->font.lfHeight;
    for (int row = kGeneralRow + 1; row < kRowCount; ++row) {
        if (row >= kFirstContactRow && row <= kLastContactRow) continue;
        FontSetting* setting = RowFont(row);
        setting->font.lfHeight = height;
        setting->apply(setting->font, setting->colour.value);
    }
    InvalidateRect(window, nullptr, TRUE);
}

LRESULT FontSettingsWin::OnMove(HWND window) {
    HWND list = control(kFontList);
    if (!list) return 0;
    int top = ScaleForDisplayY(8);
    MoveWindow(list, ScaleForDisplay(10), top + ScaleForDisplay(68), ClientWidth() - ScaleForDisplay(20),
               ClientHeight() - ScaleForDisplay(96) - top, TRUE);
    RECT listClient = {};
    GetClientRect(list, &listClient);
    ListView_SetColumnWidth(list, 0, listClient.right);
    return 0;
}

LRESULT FontSettingsWin::OnNotify(HWND window, int, NMHDR* header) {
    if (header->hwndFrom != control(kFontList) || header->code != LVN_ITEMCHANGED) return 0;
    auto* change = reinterpret_cast<NMLISTVIEW*>(header);
    if (!(change->uChanged & LVIF_STATE) || !((change->uNewState ^ change->uOldState) & LVIS_SELECTED)) return 0;
    RECT sample = {0, 0, ClientWidth(), ScaleForDisplay(80)};
    InvalidateRect(window, &sample, TRUE);
    return 0;
}

int FontSettingsWin::SelectedRow() const {
    HWND list = control(kFontList);
    return list ? ListView_GetNextItem(list, -1, LVNI_SELECTED) : -1;
}

LRESULT FontSettingsWin::OnPaint(HWND window, UINT, WPARAM, LPARAM) {
    PAINTSTRUCT paint;
    HDC dc = BeginPaint(window, &paint);
    int row = SelectedRow();
    if (CurrentSection() == kFontsSection && RowFont(row)) PaintSample(dc, row);
    EndPaint(window, &paint);
    return 0;
}

// From the top: which text the row is for, a sample in its own font (advanced mode), and its
// colour beside the Edit button.
void FontSettingsWin::PaintSample(HDC dc, int row) {
    const FontSetting& setting = *RowFont(row);
    int width = ClientWidth();
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, RGB(0, 0, 0));
    DcSelection pageFont(dc, normalFont_);

    int y = ScaleForDisplayY(8);
    WString title = LanguageText(Advanced() ? IDS_FNT_PREVIEW_FONT_PREFIX : IDS_FNT_PREVIEW_COLOR_PREFIX);
    title.append(LanguageText(kRows[row].sampleId).c_str());
    RECT line = {0, y, width, y + ScaleForDisplay(20)};
    DrawTextW(dc, title.c_str(), -1, &line, DT_CENTER | DT_SINGLELINE | DT_NOPREFIX);

    y += ScaleForDisplay(22);
    if (Advanced()) {
        Font own(CreateFontIndirectW(&setting.font));
        DcSelection ownFont(dc, own.get());
        RECT sample = {0, y, width, y + ScaleForDisplay(20)};
        DrawTextW(dc, LanguageText(IDS_FNT_PREVIEW_SAMPLE).c_str(), -1, &sample, DT_CENTER | DT_SINGLELINE | DT_NOPREFIX);
    }

    y += ScaleForDisplay(20);
    int bandHeight = ScaleForDisplay(20);
    RECT swatch = {width - ScaleForDisplay(104), y, width - ScaleForDisplay(60), y + bandHeight};
    FillRect(dc, &swatch, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
    InflateRect(&swatch, -ScaleForDisplay(1), -ScaleForDisplay(1));
    COLORREF colour = setting.colour.value;
    if (colour == kNoColour) {
        FillRect(dc, &swatch, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
        DrawTextW(dc, LanguageText(IDS_NO_COLOR).c_str(), -1, &swatch, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
    } else {
        Brush fill(CreateSolidBrush(colour & 0x00FFFFFF));
        FillRect(dc, &swatch, fill.get());
    }
    RECT label = {0, y, width - ScaleForDisplay(106), y + bandHeight};
    DrawTextW(dc, LanguageText(IDS_FNT_PREVIEW_COLOR_LABEL).c_str(), -1, &label,
              DT_RIGHT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
}

void FontSettingsWin::StoreValues(HWND) {
    FontsSettings& fonts = g_settings.fonts;
    SetInt(fonts.FontGnrlSize, static_cast<DWORD>(Selection(kSize) + kSmallestSize));
    SetInt(fonts.FontGnrlTitlesSize, static_cast<DWORD>(Selection(kTitleSize) + kSmallestSize));
    SetInt(fonts.FontGnrlUseAdvncd, IsChecked(kAdvanced) ? 1 : 0);
    wchar_t face[kFaceChars + 1] = L"";
    if (HWND box = control(kFace)) GetWindowTextW(box, face, kFaceChars + 1);
    SetString(fonts.FontFaceToUse, face);
    SetInt(fonts.UseShadowColor, static_cast<DWORD>(Selection(kShadow)));
    SetInt(fonts.ForceClearType, IsChecked(kClearType) ? 1 : 0);
}

SettingsPage* CreateFontsPage() { return new FontSettingsWin; }
