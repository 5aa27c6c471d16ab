// The Calendar page with an option of each kind open in its detail area, and the icon section with
// left icons chosen and a layout without times. Values are changed in memory only; nothing is saved.
#include <windows.h>
#include <commctrl.h>

#include "pages/calendar_page.h"
#include "shell/application.h"
#include "shots.h"
#include "support/app_state.h"

namespace {

struct OpenOption {
    int section;
    int list;  // control number of the section's option list
    int row;
    const wchar_t* picture;
};
const OpenOption kOpenOptions[] = {
    {1, 10, 1, L"calendar_check"},        {3, 12, 0, L"calendar_choice"},
    {5, 13, 9, L"calendar_pinned"},       {6, 14, 4, L"calendar_mail_program"},
    {7, 15, 5, L"calendar_day_title_text"}, {7, 15, 6, L"calendar_title_order"},
};

void ShowSection(SettingsPage* page, int section) {
    NMHDR header = {page->sectionTabs(), 0, static_cast<UINT>(TCN_SELCHANGING)};
    SendMessageW(page->window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header));
    SendMessageW(page->sectionTabs(), TCM_SETCURSEL, section, 0);
    header.code = static_cast<UINT>(TCN_SELCHANGE);
    SendMessageW(page->window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header));
}

void Picture(HWND main, const wchar_t* folder, const wchar_t* label, const wchar_t* name) {
    Pump(6);
    SaveWindowPicture(main, ShotPath(folder, label, name));
}

void TakeCalendarPictures(const wchar_t* folder, const wchar_t* label) {
    HWND main = CreateFittedMainWindow(g_app.instance);
    ShowWindow(main, SW_SHOW);
    Pump(8);
    NMITEMACTIVATE activate = {};
    activate.hdr.hwndFrom = g_app.pageList;
    activate.hdr.code = LVN_ITEMACTIVATE;
    activate.iItem = 1;
    SendMessageW(main, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&activate));
    Pump(4);
    if (auto* page = static_cast<CalendarSettingsWin*>(g_app.currentPage)) {
        for (const OpenOption& option : kOpenOptions) {
            if (page->CurrentSection() != option.section) ShowSection(page, option.section);
            HWND list = page->control(option.list);
            SetFocus(list);
            ListView_SetItemState(list, option.row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
            Picture(main, folder, label, option.picture);
        }
        ShowSection(page, 4);
        page->strip(1).ChooseMarker(1);
        page->strip(2).ChooseMarker(0);
        page->strip(3).ChooseMarker(5);
        g_settings.calendar.ApptDisplayFormat.value = 9;
        g_settings.general.IndentItems.value = 1;
        Picture(main, folder, label, L"calendar_icons_chosen");
        SendMessageW(main, kClosePageMessage, 0, 0);
    }
    DestroyWindow(main);
    Pump(2);
    LoadProgramLibraries();  // the main window freed its libraries; later pictures need them
}

ShotRegistration g_calendar(L"calendar", TakeCalendarPictures);

}  // namespace
