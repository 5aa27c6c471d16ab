// Opening the Contacts and Notes pages, showing each of their sections and closing them (the page
// stores its values; the Notes page rewrites its folder key), beside creating the same controls
// bare: a plain window with a tab control and child windows of the same classes in the same number.
#include <windows.h>
#include <commctrl.h>

#include <string>

#include "bench_harness.h"
#include "page_bench.h"
#include "pages/notes_page.h"
#include "settings/settings.h"
#include "shell/settings_page.h"

namespace {

long long EntriesOf(HWND control) {
    wchar_t name[64] = {};
    GetClassNameW(control, name, 64);
    UINT count = wcscmp(name, WC_LISTVIEWW) == 0 ? LVM_GETITEMCOUNT : CB_GETCOUNT;
    return SendMessageW(control, count, 0, 0);
}

// Checks that the page's control `number` lists `entries` entries.
std::function<void(SettingsPage*)> ListsEntries(int number, int entries) {
    return [number, entries](SettingsPage* page) {
        BenchCheckCount(EntriesOf(page->control(number)), entries, "entries listed");
    };
}

// The search bar: no search bar, four alphabets, all active alphabets, choose alphabets.
PageCase g_contacts = {4, 3, 18, &g_settings.contacts.CntctsHideNoPicture, ListsEntries(1, 7), {}, false, {}};
// The folder list, seeded with the folders below.
PageCase g_notes = {3, 4, 18, &g_settings.notes.NotesScannedFileTypes, ListsEntries(15, 6), {}, false, {}};
const wchar_t* const kNoteFolders[] = {L"C:\\windows", L"C:\\windows\\system32", L"C:\\windows\\Fonts", L"C:\\users",
                                       L"C:\\Program Files", L"C:\\windows\\temp"};

void SeedNoteFolders() {
    RegDeleteTreeW(HKEY_CURRENT_USER, kNotesFoldersKeyPath);
    HKEY folders;
    if (RegCreateKeyExW(HKEY_CURRENT_USER, kNotesFoldersKeyPath, 0, nullptr, 0, KEY_WRITE, nullptr, &folders,
                        nullptr) != ERROR_SUCCESS)
        return;
    for (int i = 0; i < static_cast<int>(sizeof kNoteFolders / sizeof kNoteFolders[0]); ++i) {
        std::wstring name = std::to_wstring(i);
        RegSetValueExW(folders, name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(kNoteFolders[i]),
                       static_cast<DWORD>((wcslen(kNoteFolders[i]) + 1) * sizeof(wchar_t)));
    }
    RegCloseKey(folders);
}

void SetUp(PageCase& bench) {
    SeedNoteFolders();
    SetUpPageBench();
    SetInt(g_settings.contacts.CntctsActiveLanguages, 15);
    ReadPageClasses(bench);
}

void TearDown() {
    TearDownPageBench();
    RegDeleteTreeW(HKEY_CURRENT_USER, kNotesFoldersKeyPath);
}

BenchRegistration g_contactsCase({"Contacts page: open, 3 sections, close", "same 18 controls and tabs, bare",
                                  [] { SetUp(g_contacts); }, [] { OpenShowAndClose(g_contacts); },
                                  [] { CreateBare(g_contacts); }, TearDown, 20});
BenchRegistration g_notesCase({"Notes page: open with 6 folders, 4 sections, close", "same 18 controls and tabs, bare",
                               [] { SetUp(g_notes); }, [] { OpenShowAndClose(g_notes); }, [] { CreateBare(g_notes); },
                               TearDown, 20});

}  // namespace
