// Saves pictures of the program as a user sees it: the page grid, every page that exists in
// every section, then the pictures the *_shots.cpp files register (dialogs), as 24-bit BMP files
// named <label>_<picture>.bmp in the folder given.
// Usage: ql_screenshots <folder> <label>
#include <windows.h>
#include <commctrl.h>

#include <algorithm>
#include <cstdio>
#include <string>

#include "screenshot_registry.h"
#include "shots.h"
#include "support/app_state.h"
#include "shell/application.h"
#include "shell/main_window.h"
#include "shell/settings_page.h"

namespace {

const wchar_t* const kPageNames[12] = {L"general", L"calendar", L"tasks",   L"notes", L"contacts", L"messages",
                                       L"sevents", L"fonts",    L"colours", L"pim",   L"tabs",     L"categories"};

void ActivatePage(HWND main, int index) {
    NMITEMACTIVATE activate = {};
    activate.hdr.hwndFrom = g_app.pageList;
    activate.hdr.idFrom = 0;
    activate.hdr.code = LVN_ITEMACTIVATE;
    activate.iItem = index;
    SendMessageW(main, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&activate));
}

void SelectSection(SettingsPage* page, int section) {
    NMHDR header = {page->sectionTabs(), 0, static_cast<UINT>(TCN_SELCHANGING)};
    SendMessageW(page->window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header));
    SendMessageW(page->sectionTabs(), TCM_SETCURSEL, section, 0);
    header.code = static_cast<UINT>(TCN_SELCHANGE);
    SendMessageW(page->window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header));
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    if (argc < 3) {
        fwprintf(stderr, L"usage: ql_screenshots <folder> <label>\n");
        return 2;
    }
    std::wstring folder = argv[1], label = argv[2];
    INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_LISTVIEW_CLASSES | ICC_TAB_CLASSES | ICC_BAR_CLASSES};
    InitCommonControlsEx(&controls);
    g_app.instance = GetModuleHandleW(nullptr);
    RegisterMainWindowClass(g_app.instance);
    HWND main = CreateFittedMainWindow(g_app.instance);
    if (!main) return 1;
    ShowWindow(main, SW_SHOW);
    SetWindowPos(main, HWND_TOP, 0, 0, 0, 0, SWP_NOSIZE);
    Pump(15);
    SaveWindowPicture(main, ShotPath(folder.c_str(), label.c_str(), L"page_grid"));

    for (int index = 0; index < 12; ++index) {
        ActivatePage(main, index);
        SettingsPage* page = g_app.currentPage;
        if (!page || !page->window()) {
            SendMessageW(main, kClosePageMessage, 0, 0);
            continue;
        }
        int sections = page->sectionTabs() ? static_cast<int>(SendMessageW(page->sectionTabs(), TCM_GETITEMCOUNT, 0, 0)) : 1;
        for (int section = 0; section < sections; ++section) {
            if (section > 0) SelectSection(page, section);
            Pump(8);
            wchar_t name[64];
            swprintf(name, 64, L"%ls_%d", kPageNames[index], section + 1);
            SaveWindowPicture(main, ShotPath(folder.c_str(), label.c_str(), name));
        }
        SendMessageW(main, kClosePageMessage, 0, 0);
        Pump(2);
    }
    DestroyWindow(main);
    Pump(2);

    if (!LoadProgramLibraries()) fwprintf(stderr, L"the language or display library is missing\n");
    std::vector<RegisteredShot> shots = RegisteredShots();
    int empty = 0;
    std::sort(shots.begin(), shots.end(),
              [](const RegisteredShot& a, const RegisteredShot& b) { return wcscmp(a.name, b.name) < 0; });
    for (const RegisteredShot& shot : shots) {
        int before = SavedPictureCount();
        shot.take(folder.c_str(), label.c_str());
        int taken = SavedPictureCount() - before;
        wprintf(L"%ls: %d pictures\n", shot.name, taken);
        if (taken == 0) ++empty;
    }
    wprintf(L"%d pictures\n", SavedPictureCount());
    return empty == 0 ? 0 : 1;
}
