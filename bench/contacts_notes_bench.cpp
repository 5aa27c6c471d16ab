// Opening the Contacts and Notes pages, showing each of their sections and closing them (the page
// stores its values; the Notes page rewrites its folder key), beside creating the same controls
// bare: a plain window with a tab control and child windows of the same classes in the same number.
#include <windows.h>
#include <commctrl.h>

#include <string>
#include <vector>

#include "bench_harness.h"
#include "pages/notes_page.h"
#include "settings/settings.h"
#include "shell/application.h"
#include "shell/page_factory.h"
#include "shell/settings_page.h"
#include "support/app_state.h"

namespace {

HWND g_owner = nullptr;

struct PageCase {
    int index;
    int sections;
    int controls;
    IntSetting* stored;                 // a setting the page writes on closing
    int listControl;                    // a control whose entries are counted, and how many it must hold
    int listEntries;
    std::vector<std::wstring> classes;  // of the page's controls, read once in the set-up
};

// The search bar: no search bar, four alphabets, all active alphabets, choose alphabets.
PageCase g_contacts = {4, 3, 18, &g_settings.contacts.CntctsHideNoPicture, 1, 7, {}};
// The folder list, seeded with the folders below.
PageCase g_notes = {3, 4, 18, &g_settings.notes.NotesScannedFileTypes, 15, 6, {}};
const wchar_t* const kNoteFolders[] = {L"C:\\windows", L"C:\\windows\\system32", L"C:\\windows\\Fonts", L"C:\\users",
                                       L"C:\\Program Files", L"C:\\windows\\temp"};

long long EntriesOf(HWND control) {
    wchar_t name[64] = {};
    GetClassNameW(control, name, 64);
    UINT count = wcscmp(name, WC_LISTVIEWW) == 0 ? LVM_GETITEMCOUNT : CB_GETCOUNT;
    return SendMessageW(control, count, 0, 0);
}

void ShowSection(SettingsPage* page, int section) {
    NMHDR header = {page->sectionTabs(), 0, static_cast<UINT>(TCN_SELCHANGING)};
    SendMessageW(page->window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header));
    SendMessageW(page->sectionTabs(), TCM_SETCURSEL, section, 0);
    header.code = static_cast<UINT>(TCN_SELCHANGE);
    SendMessageW(page->window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header));
}

void OpenShowAndClose(PageCase& bench) {
    bench.stored->dirty = 0;
    SettingsPage* page = CreatePage(g_owner, bench.index);
    BenchCheck(page && page->window(), "page window created");
    std::vector<std::wstring> classes;
    for (int number = 0; number < page->controlCount(); ++number) {
        wchar_t name[64] = {};
        if (HWND control = page->control(number)) GetClassNameW(control, name, 64);
        if (name[0]) classes.push_back(name);
    }
    BenchCheckCount(static_cast<long long>(classes.size()), bench.controls, "controls created");
    BenchCheckCount(EntriesOf(page->control(bench.listControl)), bench.listEntries, "entries listed");
    int sections = static_cast<int>(SendMessageW(page->sectionTabs(), TCM_GETITEMCOUNT, 0, 0));
    BenchCheckCount(sections, bench.sections, "sections");
    for (int section = 1; section < sections; ++section) {
        ShowSection(page, section);
        BenchCheckCount(page->CurrentSection(), section, "section shown");
    }
    DestroyWindow(page->window());
    delete page;
    BenchCheck(bench.stored->dirty == 1, "values stored on closing");
    if (bench.classes.empty()) bench.classes = classes;
}

void CreateBare(const PageCase& bench) {
    RECT area;
    GetClientRect(g_owner, &area);
    MapWindowPoints(g_owner, nullptr, reinterpret_cast<POINT*>(&area), 2);
    HWND host = CreateWindowExW(0, L"static", L"", WS_POPUP | WS_VISIBLE, area.left, area.top, area.right - area.left,
                                area.bottom - area.top, g_owner, nullptr, g_app.instance, nullptr);
    HWND tabs = CreateWindowExW(0, WC_TABCONTROLW, L"", WS_CHILD | WS_VISIBLE | TCS_BOTTOM, 0, 280, 240, 20, host,
                                nullptr, g_app.instance, nullptr);
    for (int section = 0; section < bench.sections; ++section) {
        TCITEMW item = {TCIF_TEXT};
        item.pszText = const_cast<wchar_t*>(L"Section");
        SendMessageW(tabs, TCM_INSERTITEMW, section, reinterpret_cast<LPARAM>(&item));
    }
    int created = 0;
    for (const std::wstring& name : bench.classes) {
        HWND child = CreateWindowExW(0, name.c_str(), L"Text", WS_CHILD | WS_VISIBLE, 10, 10 + created * 2, 120, 20,
                                     host, nullptr, g_app.instance, nullptr);
        if (child) SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(g_app.normalFont), TRUE);
        created += child != nullptr;
    }
    BenchCheckCount(created, bench.controls, "bare controls created");
    DestroyWindow(host);
}

void SetUp(PageCase& bench) {
    InitCommonControlsForProgram();
    g_app.instance = GetModuleHandleW(nullptr);
    RegDeleteTreeW(HKEY_CURRENT_USER, kNotesFoldersKeyPath);
    HKEY folders;
    if (RegCreateKeyExW(HKEY_CURRENT_USER, kNotesFoldersKeyPath, 0, nullptr, 0, KEY_WRITE, nullptr, &folders,
                        nullptr) == ERROR_SUCCESS) {
        for (int i = 0; i < static_cast<int>(sizeof kNoteFolders / sizeof kNoteFolders[0]); ++i) {
            std::wstring name = std::to_wstring(i);
            RegSetValueExW(folders, name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(kNoteFolders[i]),
                           static_cast<DWORD>((wcslen(kNoteFolders[i]) + 1) * sizeof(wchar_t)));
        }
        RegCloseKey(folders);
    }
    LoadSettings();
    SetInt(g_settings.contacts.CntctsActiveLanguages, 15);
    g_app.normalFont = static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
    g_app.boldFont = g_app.normalFont;
    g_owner = CreateWindowExW(0, L"static", L"QL Options", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 260, 340, nullptr,
                              nullptr, g_app.instance, nullptr);
    bench.classes.clear();
    OpenShowAndClose(bench);
}

void TearDown() {
    DestroyWindow(g_owner);
    g_owner = nullptr;
    RegDeleteTreeW(HKEY_CURRENT_USER, kNotesFoldersKeyPath);
}

BenchRegistration g_contactsCase({"Contacts page: open, 3 sections, close", "same 18 controls and tabs, bare",
                                  [] { SetUp(g_contacts); }, [] { OpenShowAndClose(g_contacts); },
                                  [] { CreateBare(g_contacts); }, TearDown, 20});
BenchRegistration g_notesCase({"Notes page: open with 6 folders, 4 sections, close", "same 18 controls and tabs, bare",
                               [] { SetUp(g_notes); }, [] { OpenShowAndClose(g_notes); }, [] { CreateBare(g_notes); },
                               TearDown, 20});

}  // namespace
