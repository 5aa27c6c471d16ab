// The colour picker on each of its tabs, the font dialog, and the Fonts page's sample of a
// selected row in both modes.
#include <windows.h>
#include <commctrl.h>

#include "dialogs/colour_picker.h"
#include "settings/settings.h"
#include "shell/application.h"
#include "shell/main_window.h"
#include "shell/settings_page.h"
#include "shots.h"
#include "support/app_state.h"

namespace {

// Calls `picture` once the dialog titled `title` has been up for a few ticks; it returns true
// when it is done with the dialog.
void WhenUp(const std::function<void()>& open, const wchar_t* title, const std::function<bool(HWND, int)>& picture) {
    int ticks = 0;
    WhileModal(open, [&] {
        HWND dialog = FindThreadDialog(title);
        if (!dialog) return false;
        SetForegroundWindow(dialog);
        return ++ticks % 10 == 0 && picture(dialog, ticks / 10 - 1);
    });
}

void TakePickerPictures(const wchar_t* folder, const wchar_t* label) {
    const wchar_t* const names[] = {L"colour_picker_rgb", L"colour_picker_html", L"colour_picker_palette"};
    ColourRequest request;
    request.colour = RGB(0x33, 0x99, 0xCC);
    request.allowDefault = true;
    WhenUp([&] { RunColourPicker(&request); }, L"Color", [&](HWND dialog, int shot) {
        if (shot > 0) SaveWindowPicture(dialog, ShotPath(folder, label, names[shot - 1]));
        PostMessageW(dialog, WM_COMMAND, shot < 3 ? kPickerFirstTabCommand + shot : IDCANCEL, 0);
        return shot == 3;
    });
}

// The page over a main window of its own, left without saving.
void TakeSamplePictures(const wchar_t* folder, const wchar_t* label) {
    HWND main = CreateFittedMainWindow(g_app.instance);
    ShowWindow(main, SW_SHOW);
    Pump(5);
    g_settings.fonts.FontGnrlUseAdvncd.value = 0;
    g_settings.fonts.FontCalApptBusy.colour.value = RGB(0x00, 0x66, 0xFF);
    NMITEMACTIVATE activate = {{g_app.pageList, 0, static_cast<UINT>(LVN_ITEMACTIVATE)}, 7};
    SendMessageW(main, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&activate));
    SettingsPage* page = g_app.currentPage;
    if (page && page->window()) {
        for (UINT code : {TCN_SELCHANGING, TCN_SELCHANGE}) {
            NMHDR header = {page->sectionTabs(), 0, code};
            if (code == static_cast<UINT>(TCN_SELCHANGE)) SendMessageW(page->sectionTabs(), TCM_SETCURSEL, 1, 0);
            SendMessageW(page->window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header));
        }
        HWND list = page->control(11);
        ListView_SetItemState(list, 6, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
        Pump(8);
        SaveWindowPicture(main, ShotPath(folder, label, L"fonts_sample_simple"));
        SendMessageW(page->control(4), BM_CLICK, 0, 0);  // the mode check box, on the hidden section
        Pump(8);
        SaveWindowPicture(main, ShotPath(folder, label, L"fonts_sample_advanced"));
        // Edit opens the font dialog on the selected row, as the user sees it from the page.
        ListView_SetSelectionMark(list, 6);
        WhenUp([&] { SendMessageW(page->control(10), BM_CLICK, 0, 0); }, L"Font", [&](HWND dialog, int) {
            SaveWindowPicture(dialog, ShotPath(folder, label, L"font_dialog"));
            PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
            return true;
        });
    }
    SendMessageW(main, kClosePageMessage, 0, 0);
    DestroyWindow(main);
    Pump(2);
    LoadProgramLibraries();  // the main window freed the libraries it loaded
}

ShotRegistration g_picker(L"colour picker", TakePickerPictures);
ShotRegistration g_fontSamples(L"fonts page samples and font dialog", TakeSamplePictures);

}  // namespace
