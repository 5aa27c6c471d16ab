// The Categories page with category filters in use (the filter section has its tab then), a row
// selected among categories given colours, and the icon chooser in both its modes over the
// pictures the device seeding installs. Nothing is saved.
#include <windows.h>
#include <commctrl.h>

#include "dialogs/icon_chooser.h"
#include "files/categories.h"
#include "settings/settings.h"
#include "shell/application.h"
#include "shell/settings_page.h"
#include "shots.h"
#include "string_ids.h"
#include "support/app_state.h"

namespace {

const wchar_t kGeneralKey[] = L"Software\\Orvane\\Quillory";
const int kCategoriesPage = 11, kCategoryList = 1, kFilterCombo = 5;

void ShowTab(SettingsPage* page, int tab) {
    NMHDR header = {page->sectionTabs(), 0, static_cast<UINT>(TCN_SELCHANGING)};
    SendMessageW(page->window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header));
    SendMessageW(page->sectionTabs(), TCM_SETCURSEL, tab, 0);
    header.code = static_cast<UINT>(TCN_SELCHANGE);
    SendMessageW(page->window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header));
}

void Picture(HWND main, const wchar_t* folder, const wchar_t* label, const wchar_t* name) {
    Pump(6);
    SaveWindowPicture(main, ShotPath(folder, label, name));
}

void TakePagePictures(const wchar_t* folder, const wchar_t* label) {
    const DWORD on = 1;
    RegSetKeyValueW(HKEY_CURRENT_USER, kGeneralKey, L"FilterMethodToUse", REG_DWORD, &on, sizeof on);
    HWND main = CreateFittedMainWindow(g_app.instance);
    ShowWindow(main, SW_SHOW);
    Pump(8);
    const COLORREF colours[] = {RGB(220, 40, 40), RGB(40, 150, 60), RGB(40, 90, 210)};
    int given = 0, row = 0;
    for (CategoryRecord* r = g_categories.head; r && given < 3; r = r->next, ++row)
        if (row % 2 == 0) r->colour = colours[given++];
    NMITEMACTIVATE activate = {};
    activate.hdr.hwndFrom = g_app.pageList;
    activate.hdr.code = LVN_ITEMACTIVATE;
    activate.iItem = kCategoriesPage;
    SendMessageW(main, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&activate));
    Pump(4);
    if (SettingsPage* page = g_app.currentPage) {
        ShowTab(page, 1);
        ListView_SetItemState(page->control(kCategoryList), 2, LVIS_SELECTED | LVIS_FOCUSED,
                              LVIS_SELECTED | LVIS_FOCUSED);
        Picture(main, folder, label, L"categories_rows");
        ShowTab(page, 2);
        SendMessageW(page->control(kFilterCombo), CB_SETCURSEL, 0, 0);
        Picture(main, folder, label, L"categories_filters");
        SendMessageW(main, kClosePageMessage, 0, 0);
    }
    DestroyWindow(main);
    Pump(2);
    RegDeleteKeyValueW(HKEY_CURRENT_USER, kGeneralKey, L"FilterMethodToUse");
    LoadProgramLibraries();  // the main window freed its libraries; later pictures need them
}

// Runs `open` and pictures the chooser titled `title` once it has drawn, then cancels it.
void ChooserPicture(const wchar_t* folder, const wchar_t* label, const wchar_t* name, UINT titleId,
                    const std::function<void()>& open) {
    WString title;
    title.load(g_app.languageLibrary, titleId);
    int ticks = 0;
    WhileModal(open, [&] {
        HWND dialog = FindThreadDialog(title.c_str());
        if (!dialog) return false;
        SetForegroundWindow(dialog);
        if (++ticks < 10) return false;
        SaveWindowPicture(dialog, ShotPath(folder, label, name));
        PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
        return true;
    });
}

void TakeChooserPictures(const wchar_t* folder, const wchar_t* label) {
    LoadSettings();
    WString icons(g_settings.general.QLIconsFolder.c_str()), current(icons.c_str());
    current.append(L"\\Holiday.bmp");
    WString chosen;
    ChooserPicture(folder, label, L"icon_chooser", IDS_ICON_CHOOSER_TITLE,
                   [&] { ChooseCategoryIcon(nullptr, {icons}, current.c_str(), &chosen); });
    ChooserPicture(folder, label, L"icon_set_chooser", IDS_ICON_SET_TITLE, [] { ChooseIconSet(nullptr); });
}

ShotRegistration g_page(L"categories page", TakePagePictures);
ShotRegistration g_choosers(L"icon chooser", TakeChooserPictures);

}  // namespace
