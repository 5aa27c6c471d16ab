// The Tasks page with left icons chosen over the sample task, and with a date format of the
// user's own ticked and typed. Values are changed in memory only; nothing is saved.
#include <windows.h>
#include <commctrl.h>

#include "pages/tasks_page.h"
#include "shell/application.h"
#include "shots.h"
#include "support/app_state.h"

namespace {

void ShowSection(SettingsPage* page, int section) {
    NMHDR header = {page->sectionTabs(), 0, static_cast<UINT>(TCN_SELCHANGING)};
    SendMessageW(page->window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header));
    SendMessageW(page->sectionTabs(), TCM_SETCURSEL, section, 0);
    header.code = static_cast<UINT>(TCN_SELCHANGE);
    SendMessageW(page->window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header));
}

void TakeTasksPictures(const wchar_t* folder, const wchar_t* label) {
    HWND main = CreateFittedMainWindow(g_app.instance);
    ShowWindow(main, SW_SHOW);
    Pump(8);
    NMITEMACTIVATE activate = {};
    activate.hdr.hwndFrom = g_app.pageList;
    activate.hdr.code = LVN_ITEMACTIVATE;
    activate.iItem = 2;
    SendMessageW(main, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&activate));
    Pump(4);
    if (auto* page = static_cast<TasksSettingsWin*>(g_app.currentPage)) {
        SendMessageW(page->control(1), CB_SETCURSEL, 0, 0);  // start and due dates
        ShowSection(page, 2);
        page->strip(1).ChooseMarker(5);  // high priority
        page->strip(2).ChooseMarker(0);  // note
        Pump(6);
        SaveWindowPicture(main, ShotPath(folder, label, L"tasks_icons_chosen"));
        ShowSection(page, 3);
        SendMessageW(page->control(21), BM_CLICK, 0, 0);
        SetWindowTextW(page->control(23), L"ddd d MMM");
        SetWindowTextW(page->control(25), L"'due' d/M");
        SendMessageW(page->control(27), CB_SETCURSEL, 0, 0);
        Pump(6);
        SaveWindowPicture(main, ShotPath(folder, label, L"tasks_custom_date"));
        ShowSection(page, 2);
        Pump(6);
        SaveWindowPicture(main, ShotPath(folder, label, L"tasks_custom_date_preview"));
        SendMessageW(main, kClosePageMessage, 0, 0);
    }
    DestroyWindow(main);
    Pump(2);
    LoadProgramLibraries();  // the main window freed its libraries; later pictures need them
}

ShotRegistration g_tasks(L"tasks", TakeTasksPictures);

}  // namespace
