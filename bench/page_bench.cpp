#include "page_bench.h"

#include <commctrl.h>

#include "bench_harness.h"
#include "settings/settings.h"
#include "shell/application.h"
#include "shell/page_factory.h"
#include "shell/settings_page.h"
#include "support/app_state.h"

HWND g_pageBenchOwner = nullptr;

void SetUpPageBench() {
    InitCommonControlsForProgram();
    g_app.instance = GetModuleHandleW(nullptr);
    LoadSettings();
    g_app.normalFont = static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
    g_app.boldFont = g_app.normalFont;
    g_pageBenchOwner = CreateWindowExW(0, L"static", L"QL Options", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 260, 340,
                                       nullptr, nullptr, g_app.instance, nullptr);
}

void TearDownPageBench() {
    DestroyWindow(g_pageBenchOwner);
    g_pageBenchOwner = nullptr;
}

void ShowPageSection(SettingsPage* page, int section) {
    NMHDR header = {page->sectionTabs(), 0, static_cast<UINT>(TCN_SELCHANGING)};
    SendMessageW(page->window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header));
    SendMessageW(page->sectionTabs(), TCM_SETCURSEL, section, 0);
    header.code = static_cast<UINT>(TCN_SELCHANGE);
    SendMessageW(page->window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header));
}

std::vector<std::wstring> PageControlClasses(SettingsPage* page) {
    std::vector<std::wstring> classes;
    for (int number = 0; number < page->controlCount(); ++number) {
        wchar_t name[64] = {};
        if (HWND control = page->control(number)) GetClassNameW(control, name, 64);
        if (name[0]) classes.push_back(name);
    }
    return classes;
}

HWND CreateBareHost(BareLayout layout, int sections) {
    RECT area = {0, 0, 240, 294};
    int tabTop = 272, tabHeight = 22;
    if (layout == BareLayout::kOwnerClient) {
        GetClientRect(g_pageBenchOwner, &area);
        MapWindowPoints(g_pageBenchOwner, nullptr, reinterpret_cast<POINT*>(&area), 2);
        tabTop = 280;
        tabHeight = 20;
    }
    HWND host = CreateWindowExW(0, L"static", L"", WS_POPUP | WS_VISIBLE, area.left, area.top, area.right - area.left,
                                area.bottom - area.top, g_pageBenchOwner, nullptr, g_app.instance, nullptr);
    HWND tabs = CreateWindowExW(0, WC_TABCONTROLW, L"", WS_CHILD | WS_VISIBLE | TCS_BOTTOM, 0, tabTop, 240, tabHeight,
                                host, nullptr, g_app.instance, nullptr);
    for (int section = 0; section < sections; ++section) {
        TCITEMW item = {TCIF_TEXT};
        item.pszText = const_cast<wchar_t*>(L"Section");
        SendMessageW(tabs, TCM_INSERTITEMW, section, reinterpret_cast<LPARAM>(&item));
    }
    return host;
}

HWND CreateBareChild(HWND host, const wchar_t* name, int index, DWORD style) {
    return CreateWindowExW(0, name, L"Text", WS_CHILD | WS_VISIBLE | style, 10, 10 + index * 2, 120, 20, host, nullptr,
                           g_app.instance, nullptr);
}

int CreateBareControls(HWND host, const std::vector<std::wstring>& classes) {
    int created = 0;
    for (const std::wstring& name : classes) {
        HWND child = CreateBareChild(host, name.c_str(), created);
        if (child) SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(g_app.normalFont), TRUE);
        created += child != nullptr;
    }
    return created;
}

int FillBareList(HWND list, int rows, const wchar_t* text) {
    LVCOLUMNW column = {LVCF_WIDTH, 0, 120};
    ListView_InsertColumn(list, 0, &column);
    int inserted = 0;
    for (int row = 0; row < rows; ++row) {
        LVITEMW item = {LVIF_TEXT, row};
        item.pszText = const_cast<wchar_t*>(text);
        inserted += ListView_InsertItem(list, &item) >= 0;
    }
    return inserted;
}

void OpenShowAndClose(PageCase& bench) {
    bench.stored->dirty = 0;
    SettingsPage* page = CreatePage(g_pageBenchOwner, bench.index);
    BenchCheck(page && page->window(), "page window created");
    std::vector<std::wstring> classes = PageControlClasses(page);
    BenchCheckCount(static_cast<long long>(classes.size()), bench.controls, "controls created");
    if (bench.checkOpened) bench.checkOpened(page);
    int sections = static_cast<int>(SendMessageW(page->sectionTabs(), TCM_GETITEMCOUNT, 0, 0));
    BenchCheckCount(sections, bench.sections, "sections");
    for (int section = 1; section < sections; ++section) {
        ShowPageSection(page, section);
        BenchCheckCount(page->CurrentSection(), section, "section shown");
        if (bench.checkSection) bench.checkSection(page, section);
    }
    DestroyWindow(page->window());
    delete page;
    BenchCheck(bench.stored->dirty == 1, "values stored on closing");
    if (bench.classes.empty()) bench.classes = classes;
}

void CreateBare(const PageCase& bench) {
    HWND host = CreateBareHost(BareLayout::kOwnerClient, bench.sections);
    BenchCheckCount(CreateBareControls(host, bench.classes), bench.controls, "bare controls created");
    if (bench.paintBare) UpdateWindow(host);
    DestroyWindow(host);
}

void ReadPageClasses(PageCase& bench) {
    bench.classes.clear();
    OpenShowAndClose(bench);
}
