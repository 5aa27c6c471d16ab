#include "pages/tabs_page.h"

#include <commctrl.h>

#include "dialogs/today_plugin_chooser.h"
#include "settings/registry_values.h"
#include "settings/settings.h"
#include "support/display_scale.h"
#include "support/language_text.h"

namespace {

// Control numbers, grouped by section.
enum Control {
    kTabList, kMoveUp, kMoveDown, kAddPlugIn, kRemovePlugIn,
    kTimeOutLabel, kTimeOut, kDefaultTabLabel, kDefaultTab, kDefaultAtStart,
    kControlCount
};

struct Section {
    UINT titleId;
    int first, last;
};
const Section kSections[] = {{40240, kTabList, kRemovePlugIn}, {41140, kTimeOutLabel, kDefaultAtStart}};
const int kSectionCount = sizeof kSections / sizeof kSections[0];

// The buttons beside the list, top to bottom, each this far below the one before.
struct SideButton {
    int number;
    UINT textId;
    int gap;
};
const SideButton kSideButtons[] = {
    {kMoveUp, 40248, 0}, {kMoveDown, 40249, 24}, {kAddPlugIn, 40739, 30}, {kRemovePlugIn, 40738, 24}};

const UINT kTimeOutItems[] = {41160, 41164, 41165, 41166, 41167, 41168, 41169};
const UINT kDefaultTabItems[] = {41180, 41155, 41156, 41157, 41158, 41159};

// The rows of the default-tab section: two drop-down lists holding their selection index.
struct ChoiceRow {
    int label, combo;
    UINT labelId;
    const UINT* items;
    int itemCount;
    IntSetting TabSettingsGroup::*setting;
};
#define ITEMS(list) list, static_cast<int>(sizeof list / sizeof list[0])
const ChoiceRow kChoiceRows[] = {
    {kTimeOutLabel, kTimeOut, 41153, ITEMS(kTimeOutItems), &TabSettingsGroup::DfltTabTimeOut},
    {kDefaultTabLabel, kDefaultTab, 41154, ITEMS(kDefaultTabItems), &TabSettingsGroup::DfltTab},
};
#undef ITEMS
const UINT kDefaultAtStartTextId = 41181;

const DWORD kTabListStyle = 0x0081C00D | WS_CHILD;  // report view, single selection, selection always
                                                    // shown, no header, border, tab stop
const DWORD kTabListExtendedStyle = 0x10000024;     // check boxes, full-row selection, no horizontal scroll
const wchar_t kTabListColumn[] = L"Calendar settings";

const UINT kAlreadyATabId = 40749;
// A new plug-in tab sorts after the built-in ones until the page numbers the rows.
const DWORD kNewTabOrder = 9;
// Row i stores order i + 2: order 1 stays with the calendar tab, which is not listed.
const DWORD kFirstRowOrder = 2;

TabList& Tabs() { return g_settings.tabSettings.tabs; }

}  // namespace

int TabsSettingsWin::GetSectionCount() { return kSectionCount; }

UINT TabsSettingsWin::GetSectionTitleId(int index) {
    return index >= 0 && index < kSectionCount ? kSections[index].titleId : 0;
}

int TabsSettingsWin::GetControlCount() { return kControlCount; }

void TabsSettingsWin::CreateControls(HWND) {
    CreateChild(kTabList, WC_LISTVIEWW, L"", kTabListStyle, 0, 0, 0, 0);
    PlaceTabList(ScaleForDisplay(8));
    int buttonX = ClientWidth() - ScaleForDisplay(85);
    int y = ScaleForDisplay(8);
    for (const SideButton& button : kSideButtons) {
        y += ScaleForDisplayY(button.gap);
        CreateButton(button.number, button.textId, buttonX, y, ScaleForDisplay(75), ScaleForDisplay(20));
    }
    FillTabList();
    UpdateRemoveButton();

    TabSettingsGroup& settings = g_settings.tabSettings;
    int top = ScaleForDisplay(8);
    for (const ChoiceRow& row : kChoiceRows)
        top += CreateComboRow(row.label, row.combo, row.labelId, row.items, row.itemCount,
                              static_cast<int>((settings.*row.setting).value), top, false);
    CreateCheckBox(kDefaultAtStart, kDefaultAtStartTextId, settings.DfltTabOnStartup.value != 0, top);
}

void TabsSettingsWin::PlaceTabList(int top) {
    HWND list = control(kTabList);
    if (!list) return;
    int height = ClientHeight() - ScaleForDisplayY(28) - ScaleForDisplay(8);
    MoveWindow(list, ScaleForDisplay(10), top, ClientWidth() - ScaleForDisplay(100), height, TRUE);
}

LRESULT TabsSettingsWin::OnMove(HWND) {
    PlaceTabList(ScaleForDisplayY(8));
    return 0;
}

// Every tab but the calendar's, which always comes first on the Today screen.
void TabsSettingsWin::FillTabList() {
    HWND list = control(kTabList);
    if (!list) return;
    SendMessageW(list, LVM_DELETECOLUMN, 0, 0);
    SendMessageW(list, LVM_SETEXTENDEDLISTVIEWSTYLE, 0, kTabListExtendedStyle);
    SendMessageW(list, WM_SETFONT, reinterpret_cast<WPARAM>(normalFont_), TRUE);
    RECT listClient = {};
    GetClientRect(list, &listClient);
    LVCOLUMNW column = {};
    column.mask = LVCF_TEXT | LVCF_WIDTH;
    column.cx = listClient.right;
    column.pszText = const_cast<wchar_t*>(kTabListColumn);
    SendMessageW(list, LVM_INSERTCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
    SendMessageW(list, LVM_DELETEALLITEMS, 0, 0);
    for (TabEntry* entry = Tabs().head(); entry; entry = entry->next)
        if (entry->kind != kTabCalendar) AppendRow(entry);
}

void TabsSettingsWin::AppendRow(TabEntry* entry) {
    HWND list = control(kTabList);
    LVITEMW item = {};
    item.mask = LVIF_TEXT | LVIF_PARAM;
    item.iItem = static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
    item.pszText = const_cast<wchar_t*>(entry->name.c_str());
    item.lParam = reinterpret_cast<LPARAM>(entry);
    int row = static_cast<int>(SendMessageW(list, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item)));
    if (row >= 0) ListView_SetCheckState(list, row, entry->enabled == 1);
}

int TabsSettingsWin::SelectedRow() const {
    HWND list = control(kTabList);
    return list ? static_cast<int>(SendMessageW(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED)) : -1;
}

TabEntry* TabsSettingsWin::RowEntry(int row) const {
    LVITEMW item = {};
    item.mask = LVIF_PARAM;
    item.iItem = row;
    if (row < 0 || !SendMessageW(control(kTabList), LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item))) return nullptr;
    return reinterpret_cast<TabEntry*>(item.lParam);
}

// Only a plug-in added on this page (kind 2) can be removed again.
void TabsSettingsWin::UpdateRemoveButton() {
    const TabEntry* entry = RowEntry(SelectedRow());
    EnableControl(kRemovePlugIn, entry && entry->kind == kTabPlugInTyped);
}

// The selected row changes places with its neighbour `step` rows away, taking its text, check
// state and entry along; the selection follows it.
void TabsSettingsWin::SwapWithNeighbour(int step) {
    HWND list = control(kTabList);
    int row = SelectedRow();
    int other = row + step;
    int count = list ? static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0)) : 0;
    if (row < 0 || other < 0 || other >= count) return;
    TabEntry* entries[2] = {RowEntry(row), RowEntry(other)};
    bool checks[2] = {ListView_GetCheckState(list, row) != 0, ListView_GetCheckState(list, other) != 0};
    const int rows[2] = {other, row};
    for (int i = 0; i < 2; ++i) {
        LVITEMW item = {};
        item.mask = LVIF_TEXT | LVIF_PARAM;
        item.iItem = rows[i];
        item.pszText = const_cast<wchar_t*>(entries[i]->name.c_str());
        item.lParam = reinterpret_cast<LPARAM>(entries[i]);
        SendMessageW(list, LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
        ListView_SetCheckState(list, rows[i], checks[i]);
    }
    const UINT selected = LVIS_SELECTED | LVIS_FOCUSED;
    ListView_SetItemState(list, other, selected, selected);
    ListView_EnsureVisible(list, other, FALSE);
    UpdateRemoveButton();
}

void TabsSettingsWin::AddPlugIn(HWND window) {
    WString name;
    if (!ChooseTodayPlugIn(instance_, window, &name)) return;
    if (Tabs().findByKindAndName(kTabPlugInTyped, name.c_str())) {
        LibraryMessageBox(window, kAlreadyATabId, MB_OK);
        return;
    }
    WString itemPath, dll;
    itemPath.format(L"%s\\%s", kTodayItemsPath, name.c_str());
    ReadString(HKEY_LOCAL_MACHINE, itemPath.c_str(), L"DLL", dll, L"");
    AppendRow(Tabs().add(kTabPlugInTyped, kNewTabOrder, 1, name.c_str(), dll.c_str()));
    UpdateRemoveButton();
}

// The plug-in stays off the Today screen.
void TabsSettingsWin::RemovePlugIn() {
    int row = SelectedRow();
    TabEntry* entry = RowEntry(row);
    if (!entry || entry->kind != kTabPlugInTyped) return;
    SendMessageW(control(kTabList), LVM_DELETEITEM, row, 0);
    Tabs().remove(entry);
    UpdateRemoveButton();
}

void TabsSettingsWin::ShowSection(HWND, int showCommand) {
    int section = CurrentSection();
    if (section < 0 || section >= kSectionCount) return;
    ShowControls(kSections[section].first, kSections[section].last, showCommand);
}

LRESULT TabsSettingsWin::OnCommand(HWND window, UINT, WPARAM wParam, LPARAM lParam) {
    if (HIWORD(wParam) != BN_CLICKED) return 0;
    switch (ControlNumberOf(reinterpret_cast<HWND>(lParam))) {
    case kMoveUp:
        SwapWithNeighbour(-1);
        break;
    case kMoveDown:
        SwapWithNeighbour(1);
        break;
    case kAddPlugIn:
        AddPlugIn(window);
        break;
    case kRemovePlugIn:
        RemovePlugIn();
        break;
    }
    return 0;
}

LRESULT TabsSettingsWin::OnNotify(HWND, int, NMHDR* header) {
    if (header->hwndFrom == control(kTabList) && header->code == static_cast<UINT>(LVN_ITEMCHANGED))
        UpdateRemoveButton();
    return 0;
}

void TabsSettingsWin::StoreValues(HWND) {
    HWND list = control(kTabList);
    int count = list ? static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0)) : 0;
    for (int row = 0; row < count; ++row) {
        TabEntry* entry = RowEntry(row);
        if (!entry) continue;
        entry->order = kFirstRowOrder + row;
        entry->enabled = ListView_GetCheckState(list, row) ? 1 : 0;
    }
    TabSettingsGroup& settings = g_settings.tabSettings;
    for (const ChoiceRow& row : kChoiceRows) SetInt(settings.*row.setting, static_cast<DWORD>(Selection(row.combo)));
    SetInt(settings.DfltTabOnStartup, IsChecked(kDefaultAtStart) ? 1 : 0);
}

SettingsPage* CreateTabsPage() { return new TabsSettingsWin; }
