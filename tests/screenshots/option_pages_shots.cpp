// The Special events page with a date format and four categories chosen, and the PIM page with
// the three other applications installed and Agenda Fusion chosen (their registry values are set
// for the pictures and removed afterwards). Nothing is saved.
#include <windows.h>
#include <commctrl.h>

#include "shell/application.h"
#include "shell/settings_page.h"
#include "shots.h"
#include "support/app_state.h"

namespace {

struct PimValue {
    HKEY root;
    const wchar_t* path;
    const wchar_t* name;
    DWORD type;
    const void* data;
    DWORD size;
};
const DWORD kVersion = 3;
const wchar_t kAgendaOnePath[] = L"\\Program Files\\Agenda One";
const PimValue kPimValues[] = {
    {HKEY_CURRENT_USER, L"Software\\WebIS\\PocketInformant", L"version", REG_DWORD, &kVersion, 4},
    {HKEY_LOCAL_MACHINE, L"SOFTWARE\\Developer One, Inc.\\Agenda Fusion", L"VerMajor", REG_DWORD, &kVersion, 4},
    {HKEY_CURRENT_USER, L"SOFTWARE\\Developer One\\Agenda One", L"InstallPath", REG_SZ, kAgendaOnePath,
     sizeof kAgendaOnePath},
};

SettingsPage* OpenPage(HWND main, int index) {
    NMITEMACTIVATE activate = {};
    activate.hdr.hwndFrom = g_app.pageList;
    activate.hdr.code = LVN_ITEMACTIVATE;
    activate.iItem = index;
    SendMessageW(main, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&activate));
    Pump(4);
    return g_app.currentPage;
}

void ShowSection(SettingsPage* page, int section) {
    NMHDR header = {page->sectionTabs(), 0, static_cast<UINT>(TCN_SELCHANGING)};
    SendMessageW(page->window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header));
    SendMessageW(page->sectionTabs(), TCM_SETCURSEL, section, 0);
    header.code = static_cast<UINT>(TCN_SELCHANGE);
    SendMessageW(page->window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header));
}

void Choose(SettingsPage* page, int combo, int entry) {
    SendMessageW(page->control(combo), CB_SETCURSEL, entry, 0);
    SendMessageW(page->window(), WM_COMMAND, MAKEWPARAM(kPageControlIdBase + combo, CBN_SELENDOK),
                 reinterpret_cast<LPARAM>(page->control(combo)));
}

void Picture(HWND main, const wchar_t* folder, const wchar_t* label, const wchar_t* name) {
    Pump(6);
    SaveWindowPicture(main, ShotPath(folder, label, name));
}

void TakeOptionPagePictures(const wchar_t* folder, const wchar_t* label) {
    const int kDateFormat = 5, kCategory1 = 13, kSoftware = 1;
    for (const PimValue& value : kPimValues)
        RegSetKeyValueW(value.root, value.path, value.name, value.type, value.data, value.size);
    HWND main = CreateFittedMainWindow(g_app.instance);
    ShowWindow(main, SW_SHOW);
    Pump(8);
    if (SettingsPage* events = OpenPage(main, 6)) {
        Choose(events, kDateFormat, 2);
        Picture(main, folder, label, L"sevents_date_chosen");
        ShowSection(events, 1);
        for (int row = 0; row < 4; ++row) Choose(events, kCategory1 + 2 * row, row + 1);
        Picture(main, folder, label, L"sevents_categories_chosen");
        SendMessageW(main, kClosePageMessage, 0, 0);
    }
    if (SettingsPage* pim = OpenPage(main, 9)) {
        Choose(pim, kSoftware, 2);
        Picture(main, folder, label, L"pim_fusion_chosen");
        ShowSection(pim, 1);
        Picture(main, folder, label, L"pim_fusion_options");
        SendMessageW(main, kClosePageMessage, 0, 0);
    }
    DestroyWindow(main);
    Pump(2);
    for (const PimValue& value : kPimValues) RegDeleteKeyValueW(value.root, value.path, value.name);
    LoadProgramLibraries();  // the main window freed its libraries; later pictures need them
}

ShotRegistration g_optionPages(L"option pages", TakeOptionPagePictures);

}  // namespace
