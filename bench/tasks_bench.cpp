// Opening the Tasks page, showing each of its four sections once (the icon section painted with
// the sample task) and closing it (the page stores its values), beside creating the same 28
// controls bare: a plain window with a tab control and child windows of the same classes, shown
// and destroyed.
#include <windows.h>
#include <commctrl.h>

#include <string>
#include <vector>

#include "bench_harness.h"
#include "pages/tasks_page.h"
#include "settings/settings.h"
#include "shell/application.h"
#include "shell/page_factory.h"
#include "support/app_state.h"

namespace {

const int kTasksPage = 2, kSections = 4, kControls = 28, kIconSection = 2, kDateForms = 12;
HWND g_owner = nullptr;
std::vector<std::wstring> g_classes;  // of the page's controls, read once in the set-up

void ShowSection(SettingsPage* page, int section) {
    NMHDR header = {page->sectionTabs(), 0, static_cast<UINT>(TCN_SELCHANGING)};
    SendMessageW(page->window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header));
    SendMessageW(page->sectionTabs(), TCM_SETCURSEL, section, 0);
    header.code = static_cast<UINT>(TCN_SELCHANGE);
    SendMessageW(page->window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header));
}

void OpenShowAndClose() {
    g_settings.tasks.CustomDateFrmtEnd.dirty = 0;
    auto* page = static_cast<TasksSettingsWin*>(CreatePage(g_owner, kTasksPage));
    BenchCheck(page && page->window(), "page window created");
    std::vector<std::wstring> classes;
    for (int number = 0; number < page->controlCount(); ++number) {
        wchar_t name[64] = {};
        if (HWND control = page->control(number)) GetClassNameW(control, name, 64);
        if (name[0]) classes.push_back(name);
    }
    BenchCheckCount(static_cast<long long>(classes.size()), kControls, "controls created");
    BenchCheckCount(SendMessageW(page->sectionTabs(), TCM_GETITEMCOUNT, 0, 0), kSections, "sections");
    BenchCheckCount(SendMessageW(page->control(1), CB_GETCOUNT, 0, 0), kDateForms, "date forms listed");
    for (int section = 1; section < kSections; ++section) {
        ShowSection(page, section);
        BenchCheckCount(page->CurrentSection(), section, "section shown");
        if (section == kIconSection) {
            BenchCheckCount(page->strip(3).count(), 8, "right icons offered");
            BenchCheck(GetUpdateRect(page->window(), nullptr, FALSE) != 0, "preview to paint");
            UpdateWindow(page->window());
            BenchCheck(GetUpdateRect(page->window(), nullptr, FALSE) == 0, "preview painted");
        }
    }
    DestroyWindow(page->window());
    delete page;
    BenchCheck(g_settings.tasks.CustomDateFrmtEnd.dirty == 1, "values stored on closing");
    if (g_classes.empty()) g_classes = classes;
}

void CreateBare() {
    RECT area;
    GetClientRect(g_owner, &area);
    MapWindowPoints(g_owner, nullptr, reinterpret_cast<POINT*>(&area), 2);
    HWND host = CreateWindowExW(0, L"static", L"", WS_POPUP | WS_VISIBLE, area.left, area.top, area.right - area.left,
                                area.bottom - area.top, g_owner, nullptr, g_app.instance, nullptr);
    HWND tabs = CreateWindowExW(0, WC_TABCONTROLW, L"", WS_CHILD | WS_VISIBLE | TCS_BOTTOM, 0, 280, 240, 20, host,
                                nullptr, g_app.instance, nullptr);
    for (int section = 0; section < kSections; ++section) {
        TCITEMW item = {TCIF_TEXT};
        item.pszText = const_cast<wchar_t*>(L"Section");
        SendMessageW(tabs, TCM_INSERTITEMW, section, reinterpret_cast<LPARAM>(&item));
    }
    int created = 0;
    for (const std::wstring& name : g_classes) {
        HWND child = CreateWindowExW(0, name.c_str(), L"Text", WS_CHILD | WS_VISIBLE, 10, 10 + created * 2, 120, 20,
                                     host, nullptr, g_app.instance, nullptr);
        if (child) SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(g_app.normalFont), TRUE);
        created += child != nullptr;
    }
    BenchCheckCount(created, kControls, "bare controls created");
    UpdateWindow(host);
    DestroyWindow(host);
}

void SetUp() {
    InitCommonControlsForProgram();
    g_app.instance = GetModuleHandleW(nullptr);
    LoadSettings();
    g_app.normalFont = static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
    g_app.boldFont = g_app.normalFont;
    g_owner = CreateWindowExW(0, L"static", L"QL Options", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 260, 340, nullptr,
                              nullptr, g_app.instance, nullptr);
    g_classes.clear();
    OpenShowAndClose();
}

void TearDown() {
    DestroyWindow(g_owner);
    g_owner = nullptr;
}

BenchRegistration g_tasksCase({"Tasks page: open, 4 sections, close", "same 28 controls and tabs, bare", SetUp,
                               OpenShowAndClose, CreateBare, TearDown, 20});

}  // namespace
