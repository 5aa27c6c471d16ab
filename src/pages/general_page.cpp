#include "pages/general_page.h"

#include <cwchar>

#include "dialogs/file_browser.h"
#include "settings/settings.h"
#include "support/app_state.h"
#include "support/display_scale.h"
#include "support/handles.h"

namespace {

// Control numbers, grouped by section.
enum Control {
    kOnClickLabel, kOnClick, kOnDoubleClickLabel, kOnDoubleClick, kAutoHeight, kHeightLabel, kHeight,
    kLandscapeHeightLabel, kLandscapeHeight,
    kSkinLabel, kSkinPath, kSkinClear, kSkinBrowse, kLanguageLabel, kLanguage, kVerticalTabs, kSoundEffects,
    kGoofyMode, kIndentItems,
    kTitleAlignLabel, kTitleAlign, kRemoveTabsBar, kRemoveSettingsButton, kRemoveSeparatingLine,
    kDPadEnabled, kDPadModeLabel, kDPadMode, kDPadCompleteLabel, kDPadComplete, kDPadScrollLabel, kDPadScroll,
    kDPadDoubleClickTabs, kExclusiveDPad,
    kDoubleClickScroll, kFullScrollings, kVgaMode, kThinLines, kRemoveHighlight, kLoadingDelayLabel, kLoadingDelay,
    kControlCount
};

struct Section {
    UINT titleId;
    int first, last;
};
const Section kSections[] = {
    {40240, kOnClickLabel, kLandscapeHeight},       {41239, kSkinLabel, kIndentItems},
    {40962, kTitleAlignLabel, kRemoveSeparatingLine}, {41084, kDPadEnabled, kExclusiveDPad},
    {40247, kDoubleClickScroll, kLoadingDelay},
};
const int kSectionCount = sizeof kSections / sizeof kSections[0];

// How a row of the page is built and what it holds.
enum RowKind {
    kChoiceRow,     // drop-down list of string ids, holds the selection index
    kCheckRow,      // check box, holds 1 or 0
    kHeightRow,     // editable list of heights, holds the number typed or chosen
    kSkinRow,       // labelled path row with clear and browse buttons
    kLanguageRow,   // drop-down of the installed language libraries
    kDigitRow,      // drop-down of "0" to "5", holds the selection (which is the number)
};

struct Row {
    RowKind kind;
    int label;      // label control, or the check box itself
    int control;    // the control holding the value (same as label for a check box)
    UINT textId;
    IntSetting GeneralSettings::*setting;
    const UINT* items;
    int itemCount;
    int section;
    int advanceReduction;  // the four check boxes of the skin section sit closer together
};

const UINT kTapItems[] = {31, 32, 40657};
const UINT kDoubleTapItems[] = {40660, 40661, 40662};
const UINT kTitleAlignItems[] = {40699, 40700, 40701};
const UINT kDPadModeItems[] = {41087, 41088};
const UINT kDPadCompleteItems[] = {41090, 41091, 41092};
const UINT kDPadScrollItems[] = {40463, 40464, 40465};

#define ITEMS(list) list, static_cast<int>(sizeof list / sizeof list[0])
using G = GeneralSettings;

// Every row in creation order (control 31 is made between the completion and scrolling rows).
const Row kRows[] = {
    {kChoiceRow, kOnClickLabel, kOnClick, 40655, &G::OnClick, ITEMS(kTapItems), 0, 0},
    {kChoiceRow, kOnDoubleClickLabel, kOnDoubleClick, 40658, &G::OnDoubleClick, ITEMS(kDoubleTapItems), 0, 0},
    {kCheckRow, kAutoHeight, kAutoHeight, 41238, &G::AutoHeight, nullptr, 0, 0, 0},
    {kHeightRow, kHeightLabel, kHeight, 40663, &G::dHeightLimit, nullptr, 0, 0, 0},
    {kHeightRow, kLandscapeHeightLabel, kLandscapeHeight, 40665, &G::dHeightLimitLandscape, nullptr, 0, 0, 0},
    {kSkinRow, kSkinLabel, kSkinPath, 40638, nullptr, nullptr, 0, 1, 0},
    {kLanguageRow, kLanguageLabel, kLanguage, 40667, nullptr, nullptr, 0, 1, 0},
    {kCheckRow, kVerticalTabs, kVerticalTabs, 40965, &G::VerticalTabs, nullptr, 0, 1, 2},
    {kCheckRow, kSoundEffects, kSoundEffects, 40671, &G::EnableSoundEffect, nullptr, 0, 1, 2},
    {kCheckRow, kGoofyMode, kGoofyMode, 40708, &G::GoofyMode, nullptr, 0, 1, 2},
    {kCheckRow, kIndentItems, kIndentItems, 40963, &G::IndentItems, nullptr, 0, 1, 2},
    {kChoiceRow, kTitleAlignLabel, kTitleAlign, 40649, &G::FilterTtlAlign, ITEMS(kTitleAlignItems), 2, 0},
    {kCheckRow, kRemoveTabsBar, kRemoveTabsBar, 40652, &G::RemoveTabsBar, nullptr, 0, 2, 0},
    {kCheckRow, kRemoveSettingsButton, kRemoveSettingsButton, 40964, &G::RemoveSettingsButton, nullptr, 0, 2, 0},
    {kCheckRow, kRemoveSeparatingLine, kRemoveSeparatingLine, 40644, &G::RemoveSeparatingLine, nullptr, 0, 2, 0},
    {kCheckRow, kDPadEnabled, kDPadEnabled, 41085, &G::DPadEnabled, nullptr, 0, 3, 0},
    {kChoiceRow, kDPadModeLabel, kDPadMode, 41086, &G::DPadMode, ITEMS(kDPadModeItems), 3, 0},
    {kChoiceRow, kDPadCompleteLabel, kDPadComplete, 41089, &G::DPadCompleteAction, ITEMS(kDPadCompleteItems), 3, 0},
    {kCheckRow, kDPadDoubleClickTabs, kDPadDoubleClickTabs, 41093, &G::DPadDoubleClickTabSwitching, nullptr, 0, 3, 0},
    {kChoiceRow, kDPadScrollLabel, kDPadScroll, 41094, &G::DPadScrollingAction, ITEMS(kDPadScrollItems), 3, 0},
    {kCheckRow, kExclusiveDPad, kExclusiveDPad, 40967, &G::ExclusiveDPadNavig, nullptr, 0, 3, 0},
    {kCheckRow, kDoubleClickScroll, kDoubleClickScroll, 40677, &G::UseDoubleClickScroll, nullptr, 0, 4, 0},
    {kCheckRow, kFullScrollings, kFullScrollings, 40679, &G::UseFullScrollings, nullptr, 0, 4, 0},
    {kCheckRow, kVgaMode, kVgaMode, 40704, &G::MyVgaMode, nullptr, 0, 4, 0},
    {kCheckRow, kThinLines, kThinLines, 40710, &G::UseThinLines, nullptr, 0, 4, 0},
    {kCheckRow, kRemoveHighlight, kRemoveHighlight, 40702, &G::RemoveHighlight, nullptr, 0, 4, 0},
    {kDigitRow, kLoadingDelayLabel, kLoadingDelay, 40969, &G::LoadingDelay, nullptr, 0, 4, 0},
};
#undef ITEMS

// The rows by their value control, in the order StoreValues writes them: the scrolling action
// comes before the double-tap tab switching that is created ahead of it.
const int kStoreOrder[] = {
    kOnClick, kOnDoubleClick, kAutoHeight, kHeight, kLandscapeHeight, kSkinPath, kLanguage, kVerticalTabs,
    kSoundEffects, kGoofyMode, kIndentItems, kTitleAlign, kRemoveTabsBar, kRemoveSettingsButton,
    kRemoveSeparatingLine, kDPadEnabled, kDPadMode, kDPadComplete, kDPadScroll, kDPadDoubleClickTabs, kExclusiveDPad,
    kDoubleClickScroll, kFullScrollings, kVgaMode, kThinLines, kRemoveHighlight, kLoadingDelay,
};
static_assert(sizeof kStoreOrder / sizeof kStoreOrder[0] == sizeof kRows / sizeof kRows[0], "every row is stored");

const Row& RowOf(int valueControl) {
    for (const Row& row : kRows)
        if (row.control == valueControl) return row;
    return kRows[0];
}

const int kFirstHeight = 80, kLastHeight = 600, kHeightStep = 20;
const wchar_t kSkinFolderTitle[] = L"Select Skin Path";
const UINT kLanguageNameId = 719;

// The exclusive directional-pad option does not exist on the oldest systems (3.x and 4.20).
bool SystemHasExclusiveDPad() {
    OSVERSIONINFOW version = {sizeof version};
    GetVersionExW(&version);
    return !(version.dwMajorVersion == 3 || (version.dwMajorVersion == 4 && version.dwMinorVersion == 20));
}

WString WindowText(HWND window, int maxChars) {
    wchar_t text[1024] = {};
    if (window) GetWindowTextW(window, text, maxChars < 1024 ? maxChars + 1 : 1024);
    return WString(text);
}

}  // namespace

int GeneralSettingsWin::GetSectionCount() { return kSectionCount; }

UINT GeneralSettingsWin::GetSectionTitleId(int index) {
    return index >= 0 && index < kSectionCount ? kSections[index].titleId : 0;
}

int GeneralSettingsWin::GetControlCount() { return kControlCount; }

void GeneralSettingsWin::CreateControls(HWND) {
    GeneralSettings& general = g_settings.general;
    int y[kSectionCount];
    for (int& top : y) top = ScaleForDisplayY(8);
    for (const Row& row : kRows) {
        int& top = y[row.section];
        DWORD value = row.setting ? (general.*row.setting).value : 0;
        switch (row.kind) {
        case kChoiceRow:
            top += CreateComboRow(row.label, row.control, row.textId, row.items, row.itemCount, value, top, false);
            break;
        case kCheckRow:
            if (row.control == kExclusiveDPad && !SystemHasExclusiveDPad()) break;
            top += CreateCheckBox(row.control, row.textId, value != 0, top) - ScaleForDisplayY(row.advanceReduction);
            break;
        case kHeightRow:
            top += CreateComboRow(row.label, row.control, row.textId, nullptr, 0, 0, top, true);
            FillHeightCombo(row.control, row.control == kLandscapeHeight, value);
            break;
        case kSkinRow:
            top += CreateLabelledPathRow(kSkinLabel, kSkinPath, kSkinClear, kSkinBrowse, row.textId,
                                         general.SkinPath.c_str(), top);
            break;
        case kLanguageRow:
            top += CreateComboRow(row.label, row.control, row.textId, nullptr, 0, 0, top, false);
            FillLanguages(row.control);
            break;
        case kDigitRow:
            top += CreateComboRow(row.label, row.control, row.textId, nullptr, 0, 0, top, false);
            for (const wchar_t* digit : {L"0", L"1", L"2", L"3", L"4", L"5"})
                SendMessageW(control(row.control), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(digit));
            SendMessageW(control(row.control), CB_SETCURSEL, value, 0);
            break;
        }
    }
    UpdateHeightEnabling();
    UpdateDPadEnabling();
}

void GeneralSettingsWin::FillHeightCombo(int combo, bool withZero, DWORD current) {
    HWND box = control(combo);
    if (!box) return;
    WString text;
    if (withZero) SendMessageW(box, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(L"0"));
    for (int height = kFirstHeight; height <= kLastHeight; height += kHeightStep) {
        text.format(L"%d", height);
        SendMessageW(box, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
    }
    text.format(L"%d", static_cast<int>(current));
    SetWindowTextW(box, text.c_str());
}

void GeneralSettingsWin::FillLanguages(int combo) {
    HWND box = control(combo);
    languageCount_ = 0;
    int selection = 0;
    WString pattern(g_settings.productFolder.c_str());
    pattern.append(L"\\LangRes\\*.dll");
    WIN32_FIND_DATAW found;
    FindHandle search(FindFirstFileW(pattern.c_str(), &found));
    if (box && search) {
        do {
            if (languageCount_ >= kLanguageSlots) break;
            WString path;
            path.format(L"%s\\LangRes\\%s", g_settings.productFolder.c_str(), found.cFileName);
            Library library(LoadLibraryW(path.c_str()));
            if (!library) continue;
            wchar_t name[257] = {};
            if (LoadStringW(library.get(), kLanguageNameId, name, 257) <= 0) continue;
            SendMessageW(box, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name));
            if (wcscmp(path.c_str(), g_settings.general.SelectedLangResFile.c_str()) == 0) selection = languageCount_;
            languagePaths_[languageCount_++].assign(path.c_str());
        } while (FindNextFileW(search.get(), &found));
    }
    if (box) SendMessageW(box, CB_SETCURSEL, selection, 0);
}

void GeneralSettingsWin::UpdateHeightEnabling() {
    bool manual = !IsChecked(kAutoHeight);
    for (int number = kHeightLabel; number <= kLandscapeHeight; ++number) EnableControl(number, manual);
}

void GeneralSettingsWin::UpdateDPadEnabling() {
    bool enabled = IsChecked(kDPadEnabled);
    int mode = Selection(kDPadMode);
    EnableControl(kDPadModeLabel, enabled);
    EnableControl(kDPadMode, enabled);
    for (int number : {kDPadCompleteLabel, kDPadComplete, kDPadDoubleClickTabs}) EnableControl(number, enabled && mode == 0);
    for (int number : {kDPadScrollLabel, kDPadScroll}) EnableControl(number, enabled && mode == 1);
    EnableControl(kExclusiveDPad, enabled);
}

void GeneralSettingsWin::ShowSection(HWND, int showCommand) {
    int section = CurrentSection();
    if (section < 0 || section >= kSectionCount) return;
    ShowControls(kSections[section].first, kSections[section].last, showCommand);
}

LRESULT GeneralSettingsWin::OnCommand(HWND window, UINT, WPARAM wParam, LPARAM lParam) {
    int number = ControlNumberOf(reinterpret_cast<HWND>(lParam));
    UINT notification = HIWORD(wParam);
    if (number == kAutoHeight && notification == BN_CLICKED) UpdateHeightEnabling();
    if (number == kDPadEnabled && notification == BN_CLICKED) UpdateDPadEnabling();
    if (number == kDPadMode && notification == CBN_SELCHANGE) UpdateDPadEnabling();
    if (number == kSkinClear && notification == BN_CLICKED) SetWindowTextW(control(kSkinPath), L"");
    if (number == kSkinBrowse && notification == BN_CLICKED) ChooseSkinFolder(window);
    return 0;
}

void GeneralSettingsWin::ChooseSkinFolder(HWND window) {
    BrowserRequest request;
    request.kind = BrowserKind::SelectFolder;
    request.owner = window;
    request.title.assign(kSkinFolderTitle);
    LoadBrowserTexts(g_app.languageLibrary, &request);
    if (RunFileBrowser(&request)) SetWindowTextW(control(kSkinPath), request.result.c_str());
}

void GeneralSettingsWin::StoreValues(HWND window) {
    ShowSection(window, SW_HIDE);
    GeneralSettings& general = g_settings.general;
    for (int valueControl : kStoreOrder) {
        const Row& row = RowOf(valueControl);
        HWND box = control(row.control);
        switch (row.kind) {
        case kChoiceRow:
        case kDigitRow:
            SetInt(general.*row.setting, static_cast<DWORD>(Selection(row.control)));
            break;
        case kCheckRow:
            if (box) SetInt(general.*row.setting, IsChecked(row.control) ? 1 : 0);
            break;
        case kHeightRow:
            SetInt(general.*row.setting, static_cast<DWORD>(wcstol(WindowText(box, 1023).c_str(), nullptr, 0)));
            break;
        case kSkinRow:
            SetString(general.SkinPath, WindowText(box, MAX_PATH).c_str());
            break;
        case kLanguageRow: {
            int selection = Selection(kLanguage);
            if (selection >= 0 && selection < languageCount_)
                SetString(general.SelectedLangResFile, languagePaths_[selection].c_str());
            break;
        }
        }
    }
    for (WString& path : languagePaths_) path.assign(L"");
    languageCount_ = 0;
}

SettingsPage* CreateGeneralPage() { return new GeneralSettingsWin; }
