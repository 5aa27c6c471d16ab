// Saves pictures of the program as a user sees it: the page grid, every page in every section, then
// the registered pictures, as 24-bit BMP files named <label>_<picture>.bmp in the folder given.
#include <windows.h>
#include <commctrl.h>

#include <algorithm>
#include <cstdio>
#include <cwchar>

#include "shell/main_window.h"
#include "shell/settings_page.h"
#include "shots.h"
#include "support/app_state.h"

namespace {

const wchar_t* const kPageNames[12] = {L"general", L"calendar", L"tasks",   L"notes", L"contacts", L"messages",
                                       L"sevents", L"fonts",    L"colours", L"pim",   L"tabs",     L"categories"};

bool TakePagePictures(const ShotTarget& to) {
    ShotWindow main;
    if (!main.handle()) return false;
    Pump(7);
    to.save(main.handle(), L"page_grid");
    for (int index = 0; index < 12; ++index) {
        SettingsPage* page = main.openPage(index);
        int sections = !page ? 0 : page->sectionTabs() ? TabCtrl_GetItemCount(page->sectionTabs()) : 1;
        for (int section = 0; section < sections; ++section) {
            if (section > 0) ShowSection(page, section);
            wchar_t name[64];
            swprintf(name, 64, L"%ls_%d", kPageNames[index], section + 1);
            main.picture(to, name);
        }
        main.closePage();
    }
    return true;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    if (argc < 3) {
        fwprintf(stderr, L"usage: ql_screenshots <folder> <label>\n");
        return 2;
    }
    const ShotTarget to = {argv[1], argv[2]};
    INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_LISTVIEW_CLASSES | ICC_TAB_CLASSES | ICC_BAR_CLASSES};
    InitCommonControlsEx(&controls);
    g_app.instance = GetModuleHandleW(nullptr);
    RegisterMainWindowClass(g_app.instance);
    if (!TakePagePictures(to)) return 1;
    if (!LoadProgramLibraries()) fwprintf(stderr, L"the language or display library is missing\n");
    std::vector<const ShotRegistration*> shots = RegisteredShots();
    std::sort(shots.begin(), shots.end(), [](auto* a, auto* b) { return wcscmp(a->name, b->name) < 0; });
    int empty = 0;
    for (const ShotRegistration* shot : shots) {
        int before = SavedPictureCount();
        shot->take(to);
        int taken = SavedPictureCount() - before;
        wprintf(L"%ls: %d pictures\n", shot->name, taken);
        empty += taken == 0;
    }
    wprintf(L"%d pictures\n", SavedPictureCount());
    return empty == 0 ? 0 : 1;
}
