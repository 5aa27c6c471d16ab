// Opening the Messages, Special events and PIM pages, showing each of their sections and closing
// them (the page stores its values), beside creating the same controls bare: a plain window with
// a tab control and child windows of the same classes in the same number, shown and destroyed.
#include <windows.h>
#include <commctrl.h>

#include <string>
#include <vector>

#include "bench_harness.h"
#include "files/categories.h"
#include "settings/settings.h"
#include "shell/application.h"
#include "shell/page_factory.h"
#include "shell/settings_page.h"
#include "support/app_state.h"

namespace {

HWND g_owner = nullptr;

struct PageCase {
    int index;
    int sections;
    int controls;
    IntSetting* stored;  // a setting the page writes on closing
    std::vector<std::wstring> classes;  // of the page's controls, read once in the set-up
};

PageCase g_messages = {5, 2, 10, &g_settings.messages.MsgsIncldFoldBttns, {}};
PageCase g_events = {6, 3, 24, &g_settings.sevents.IncldCounters, {}};
PageCase g_pim = {9, 2, 6, &g_settings.customPim.HideABCVals, {}};

void ShowSection(SettingsPage* page, int section) {
    NMHDR header = {page->sectionTabs(), 0, static_cast<UINT>(TCN_SELCHANGING)};
    SendMessageW(page->window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header));
    SendMessageW(page->sectionTabs(), TCM_SETCURSEL, section, 0);
    header.code = static_cast<UINT>(TCN_SELCHANGE);
    SendMessageW(page->window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header));
}

void OpenShowAndClose(PageCase& bench) {
    bench.stored->dirty = 0;
    SettingsPage* page = CreatePage(g_owner, bench.index);
    BenchCheck(page && page->window(), "page window created");
    std::vector<std::wstring> classes;
    for (int number = 0; number < page->controlCount(); ++number) {
        wchar_t name[64] = {};
        if (HWND control = page->control(number)) GetClassNameW(control, name, 64);
        if (name[0]) classes.push_back(name);
    }
    BenchCheckCount(static_cast<long long>(classes.size()), bench.controls, "controls created");
    int sections = static_cast<int>(SendMessageW(page->sectionTabs(), TCM_GETITEMCOUNT, 0, 0));
    BenchCheckCount(sections, bench.sections, "sections");
    for (int section = 1; section < sections; ++section) {
        ShowSection(page, section);
        BenchCheckCount(page->CurrentSection(), section, "section shown");
    }
    DestroyWindow(page->window());
    delete page;
    BenchCheck(bench.stored->dirty == 1, "values stored on closing");
    if (bench.classes.empty()) bench.classes = classes;
}

void CreateBare(const PageCase& bench) {
    RECT area;
    GetClientRect(g_owner, &area);
    MapWindowPoints(g_owner, nullptr, reinterpret_cast<POINT*>(&area), 2);
    HWND host = CreateWindowExW(0, L"static", L"", WS_POPUP | WS_VISIBLE, area.left, area.top, area.right - area.left,
                                area.bottom - area.top, g_owner, nullptr, g_app.instance, nullptr);
    HWND tabs = CreateWindowExW(0, WC_TABCONTROLW, L"", WS_CHILD | WS_VISIBLE | TCS_BOTTOM, 0, 280, 240, 20, host,
                                nullptr, g_app.instance, nullptr);
    for (int section = 0; section < bench.sections; ++section) {
        TCITEMW item = {TCIF_TEXT};
        item.pszText = const_cast<wchar_t*>(L"Section");
        SendMessageW(tabs, TCM_INSERTITEMW, section, reinterpret_cast<LPARAM>(&item));
    }
    int created = 0;
    for (const std::wstring& name : bench.classes) {
        HWND child = CreateWindowExW(0, name.c_str(), L"Text", WS_CHILD | WS_VISIBLE, 10, 10 + created * 2, 120, 20,
                                     host, nullptr, g_app.instance, nullptr);
        if (child) SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(g_app.normalFont), TRUE);
        created += child != nullptr;
    }
    BenchCheckCount(created, bench.controls, "bare controls created");
    DestroyWindow(host);
}

void SetUp(PageCase& bench) {
    InitCommonControlsForProgram();
    g_app.instance = GetModuleHandleW(nullptr);
    LoadSettings();
    g_app.normalFont = static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
    g_app.boldFont = g_app.normalFont;
    const wchar_t* names[] = {L"Business", L"Personal", L"Holiday", L"Gifts", L"Ideas", L"Key Customer",
                              L"Miscellaneous", L"Travel", L"Family", L"VIP Clients", L"Waiting", L"Status"};
    for (const wchar_t* name : names) {
        CategoryRecord* record = new CategoryRecord;
        record->name.assign(name);
        InsertCategory(g_categories, record);
    }
    g_owner = CreateWindowExW(0, L"static", L"QL Options", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 260, 340, nullptr,
                              nullptr, g_app.instance, nullptr);
    bench.classes.clear();
    OpenShowAndClose(bench);
}

void TearDown() {
    DestroyWindow(g_owner);
    g_owner = nullptr;
    ClearCategories(g_categories);
}

BenchRegistration g_messagesCase({"Messages page: open, 2 sections, close", "same 10 controls and tabs, bare",
                                  [] { SetUp(g_messages); }, [] { OpenShowAndClose(g_messages); },
                                  [] { CreateBare(g_messages); }, TearDown, 20});
BenchRegistration g_eventsCase({"Special events page: open, 3 sections, close", "same 24 controls and tabs, bare",
                                [] { SetUp(g_events); }, [] { OpenShowAndClose(g_events); },
                                [] { CreateBare(g_events); }, TearDown, 20});
BenchRegistration g_pimCase({"PIM page: open, 2 sections, close", "same 6 controls and tabs, bare",
                             [] { SetUp(g_pim); }, [] { OpenShowAndClose(g_pim); }, [] { CreateBare(g_pim); },
                             TearDown, 20});

}  // namespace
