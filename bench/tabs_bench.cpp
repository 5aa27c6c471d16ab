// The Tabs page opened, both sections shown and closed (rows store their orders), beside the same
// controls and rows created bare; and the Today plug-in chooser's list filled from 600 Today items
// (500 plug-ins of type 4) beside enumerating them and adding the same names to a plain combo box.
#include <windows.h>
#include <commctrl.h>

#include <string>

#include "bench_harness.h"
#include "dialogs/today_plugin_chooser.h"
#include "page_bench.h"
#include "settings/registry_values.h"
#include "settings/settings.h"
#include "shell/application.h"
#include "shell/page_factory.h"
#include "shell/settings_page.h"
#include "support/app_state.h"

namespace {

const int kTabsPage = 10;
const int kPlugIns = 500, kOtherItems = 100;
const wchar_t kBenchItemPrefix[] = L"QLBench";

HWND g_combo = nullptr;

void OpenShowAndClose() {
    TabList& tabs = g_settings.tabSettings.tabs;
    for (TabEntry* entry = tabs.head(); entry; entry = entry->next) entry->order = 0;
    SettingsPage* page = CreatePage(g_pageBenchOwner, kTabsPage);
    BenchCheck(page && page->window(), "page window created");
    HWND list = page->control(0);
    BenchCheckCount(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0), tabs.count() - 1, "rows listed");
    BenchCheckCount(SendMessageW(page->sectionTabs(), TCM_GETITEMCOUNT, 0, 0), 2, "sections");
    ShowPageSection(page, 1);
    BenchCheckCount(page->CurrentSection(), 1, "section shown");
    DestroyWindow(page->window());
    delete page;
    BenchCheckCount(tabs.findByKind(kTabSEvents)->order, 6, "orders stored");
}

// The page's classes in its numbers: list, four buttons, two label-and-combo rows, a check box.
void CreateBare() {
    HWND host = CreateBareHost(BareLayout::kFixed, 2);
    const wchar_t* classes[] = {WC_LISTVIEWW, L"button", L"button", L"button", L"button",
                                L"static",    L"combobox", L"static", L"combobox", L"button"};
    int created = 0;
    HWND list = nullptr;
    for (const wchar_t* name : classes) {
        HWND child = CreateBareChild(host, name, created, created == 0 ? LVS_REPORT : 0);
        if (!list) list = child;
        created += child != nullptr;
    }
    LVCOLUMNW column = {LVCF_WIDTH, 0, 120};
    ListView_InsertColumn(list, 0, &column);
    ListView_SetExtendedListViewStyle(list, LVS_EX_CHECKBOXES);
    int rows = 0;
    for (const TabEntry* entry = g_settings.tabSettings.tabs.head(); entry; entry = entry->next) {
        if (entry->kind == kTabCalendar) continue;
        LVITEMW item = {LVIF_TEXT | LVIF_PARAM, rows};
        item.pszText = const_cast<wchar_t*>(entry->name.c_str());
        ListView_InsertItem(list, &item);
        ListView_SetCheckState(list, rows++, TRUE);
    }
    BenchCheckCount(created, 10, "bare controls created");
    BenchCheckCount(ListView_GetItemCount(list), rows, "bare rows");
    DestroyWindow(host);
}

std::wstring ItemPath(const std::wstring& name) { return std::wstring(kTodayItemsPath) + L"\\" + name; }

void SeedTodayItems() {
    for (int i = 0; i < kPlugIns + kOtherItems; ++i) {
        HKEY key;
        std::wstring name = kBenchItemPrefix + std::to_wstring(i);
        if (RegCreateKeyExW(HKEY_LOCAL_MACHINE, ItemPath(name).c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &key,
                            nullptr) != ERROR_SUCCESS)
            continue;
        DWORD type = i < kPlugIns ? 4 : 1;
        RegSetValueExW(key, L"Type", 0, REG_DWORD, reinterpret_cast<BYTE*>(&type), sizeof type);
        RegCloseKey(key);
    }
}

void RemoveTodayItems() {
    for (int i = 0; i < kPlugIns + kOtherItems; ++i)
        RegDeleteKeyW(HKEY_LOCAL_MACHINE, ItemPath(kBenchItemPrefix + std::to_wstring(i)).c_str());
}

int BenchItemsListed() {
    int count = 0;
    wchar_t name[256];
    for (int i = 0, n = static_cast<int>(SendMessageW(g_combo, CB_GETCOUNT, 0, 0)); i < n; ++i)
        if (SendMessageW(g_combo, CB_GETLBTEXTLEN, i, 0) < 256 &&
            SendMessageW(g_combo, CB_GETLBTEXT, i, reinterpret_cast<LPARAM>(name)) > 0 &&
            wcsncmp(name, kBenchItemPrefix, wcslen(kBenchItemPrefix)) == 0)
            ++count;
    return count;
}

void FillChooserList() {
    SendMessageW(g_combo, CB_RESETCONTENT, 0, 0);
    AddTodayPlugIns(g_combo);
    BenchCheckCount(BenchItemsListed(), kPlugIns, "plug-ins listed");
}

void FillRaw() {
    SendMessageW(g_combo, CB_RESETCONTENT, 0, 0);
    HKEY items;
    if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, kTodayItemsPath, 0, KEY_READ, &items) != ERROR_SUCCESS) return;
    wchar_t name[256];
    for (DWORD index = 0, length = 256;
         RegEnumKeyExW(items, index, name, &length, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
         ++index, length = 256)
        if (ReadDword(items, name, L"Type", 0) == 4)
            SendMessageW(g_combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name));
    RegCloseKey(items);
    BenchCheckCount(BenchItemsListed(), kPlugIns, "plug-ins listed raw");
}

void SetUp() {
    SetUpPageBench();
    g_combo = CreateWindowExW(0, L"combobox", L"", WS_CHILD | CBS_DROPDOWNLIST | WS_VSCROLL, 0, 0, 200, 200,
                              g_pageBenchOwner, nullptr, g_app.instance, nullptr);
}

void TearDown() {
    TearDownPageBench();
    g_combo = nullptr;
}

BenchRegistration g_pageCase({"Tabs page: open, 2 sections, close", "same 10 controls, rows and tabs, bare", SetUp,
                              OpenShowAndClose, CreateBare, TearDown, 20});
BenchRegistration g_chooserCase({"Today plug-in chooser: list of 600 Today items", "enumeration into a combo box",
                                 [] {
                                     SetUp();
                                     SeedTodayItems();
                                 },
                                 FillChooserList, FillRaw,
                                 [] {
                                     RemoveTodayItems();
                                     TearDown();
                                 },
                                 20});

}  // namespace
