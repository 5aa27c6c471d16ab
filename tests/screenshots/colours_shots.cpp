// The Colours page with a colour item selected: its description and its sample, once with a colour
// of its own and once without (the sample then reads "Default").
#include <windows.h>
#include <commctrl.h>

#include "settings/settings.h"
#include "shell/application.h"
#include "shell/main_window.h"
#include "shell/settings_page.h"
#include "shots.h"
#include "support/app_state.h"

namespace {

void TakeSelectedItemPictures(const wchar_t* folder, const wchar_t* label) {
    HWND main = CreateFittedMainWindow(g_app.instance);
    ShowWindow(main, SW_SHOW);
    Pump(5);
    g_settings.colors.ClrStatusBusy.value = RGB(0x00, 0x66, 0xFF);
    NMITEMACTIVATE activate = {{g_app.pageList, 0, static_cast<UINT>(LVN_ITEMACTIVATE)}, 8};
    SendMessageW(main, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&activate));
    SettingsPage* page = g_app.currentPage;
    if (page && page->window()) {
        HWND list = page->control(1);
        const struct {
            int item;
            const wchar_t* picture;
        } shots[] = {{13, L"colours_item"}, {14, L"colours_item_default"}};
        for (const auto& shot : shots) {
            ListView_SetItemState(list, shot.item, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
            ListView_EnsureVisible(list, shot.item, FALSE);
            Pump(8);
            SaveWindowPicture(main, ShotPath(folder, label, shot.picture));
        }
    }
    SendMessageW(main, kClosePageMessage, 0, 0);
    DestroyWindow(main);
    Pump(2);
    LoadProgramLibraries();  // the main window freed the libraries it loaded
}

ShotRegistration g_selectedItem(L"colours page with a selected item", TakeSelectedItemPictures);

}  // namespace
