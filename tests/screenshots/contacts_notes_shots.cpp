// The alphabet selection as the Contacts page opens it, with Latin and Cyrillic active (the device
// layout's CustomAlphabets folder adds Thai and passes over Latvian), and the Notes page's folder
// list holding two folders of the device.
#include <windows.h>
#include <commctrl.h>

#include <cwchar>

#include "dialogs/alphabet_dialog.h"
#include "pages/notes_page.h"
#include "shell/application.h"
#include "shell/settings_page.h"
#include "shots.h"
#include "support/app_state.h"

namespace {

void TakeAlphabetPictures(const wchar_t* folder, const wchar_t* label) {
    int ticks = 0;
    WhileModal([] { RunAlphabetSelection(nullptr, kLatinAlphabet | kCyrillicAlphabet); },
               [&] {
                   HWND dialog = FindThreadDialog(L"Alphabets");
                   if (!dialog) return false;
                   SetForegroundWindow(dialog);
                   if (++ticks < 10) return false;  // a few ticks for everything to be drawn
                   SaveWindowPicture(dialog, ShotPath(folder, label, L"alphabets"));
                   PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
                   return true;
               });
}

void TakeNotesFolderPictures(const wchar_t* folder, const wchar_t* label) {
    const wchar_t* folders[] = {L"\\Program Files", L"\\windows"};
    for (int i = 0; i < 2; ++i) {
        const wchar_t name[] = {static_cast<wchar_t>(L'0' + i), 0};
        RegSetKeyValueW(HKEY_CURRENT_USER, kNotesFoldersKeyPath, name, REG_SZ, folders[i],
                        static_cast<DWORD>((wcslen(folders[i]) + 1) * sizeof(wchar_t)));
    }
    HWND main = CreateFittedMainWindow(g_app.instance);
    ShowWindow(main, SW_SHOW);
    Pump(8);
    NMITEMACTIVATE activate = {};
    activate.hdr.hwndFrom = g_app.pageList;
    activate.hdr.code = LVN_ITEMACTIVATE;
    activate.iItem = 3;
    SendMessageW(main, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&activate));
    if (SettingsPage* notes = g_app.currentPage) {
        NMHDR header = {notes->sectionTabs(), 0, static_cast<UINT>(TCN_SELCHANGING)};
        SendMessageW(notes->window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header));
        SendMessageW(notes->sectionTabs(), TCM_SETCURSEL, 3, 0);
        header.code = static_cast<UINT>(TCN_SELCHANGE);
        SendMessageW(notes->window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header));
        Pump(8);
        SaveWindowPicture(main, ShotPath(folder, label, L"notes_folders"));
        SendMessageW(main, kClosePageMessage, 0, 0);
    }
    DestroyWindow(main);
    Pump(2);
    RegDeleteTreeW(HKEY_CURRENT_USER, kNotesFoldersKeyPath);
    LoadProgramLibraries();  // the main window freed its libraries; later pictures need them
}

ShotRegistration alphabetPictures(L"alphabets", TakeAlphabetPictures);
ShotRegistration notesFolderPictures(L"notes folders", TakeNotesFolderPictures);

}  // namespace
