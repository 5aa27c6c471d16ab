// Filling the file browser for a folder of 10,000 entries (2,500 folders, 7,500 matching files,
// created in shuffled order) beside the raw work it rests on: FindFirstFileW enumeration and
// LVM_INSERTITEMW of the same entries into a plain list view. The browser also gives each entry a
// shell icon (one per kind, cached) and sorts with texts read back from its shadow list, and its
// list reports every insertion to the dialog. The extra cases time the sort part alone and what a
// message to the dialog costs.
#include <windows.h>
#include <commctrl.h>

#include <algorithm>
#include <cwchar>
#include <random>
#include <string>
#include <vector>

#include "bench_harness.h"
#include "dialogs/file_browser.h"
#include "support/app_state.h"

namespace {

const int kFolders = 2500;
const int kFiles = 7500;

std::wstring g_folder;  // with a trailing backslash
std::vector<std::wstring> g_names;
BrowserRequest g_request;
FileBrowserDialog* g_browser = nullptr;
HWND g_browserWindow = nullptr;
HWND g_host = nullptr;
HWND g_plainList = nullptr;

void MakeEntries() {
    wchar_t temp[MAX_PATH];
    GetTempPathW(MAX_PATH, temp);
    g_folder = std::wstring(temp) + L"ql_bench_browser\\";
    CreateDirectoryW(g_folder.c_str(), nullptr);
    std::vector<std::pair<std::wstring, bool>> entries;
    const wchar_t* stems[] = {L"alpha", L"Beta", L"GAMMA", L"delta", L"Epsilon", L"zeta"};
    for (int i = 0; i < kFolders + kFiles; ++i) {
        wchar_t name[64];
        bool folder = i < kFolders;
        swprintf(name, 64, folder ? L"%ls %05d" : L"%ls %05d.qlsb", stems[i % 6], (i * 7919) % 100000);
        entries.emplace_back(name, folder);
    }
    std::shuffle(entries.begin(), entries.end(), std::mt19937(42));
    for (const auto& entry : entries) {
        std::wstring path = g_folder + entry.first;
        if (entry.second) {
            CreateDirectoryW(path.c_str(), nullptr);
        } else {
            HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
            if (file != INVALID_HANDLE_VALUE) CloseHandle(file);
        }
        g_names.push_back(entry.first);
    }
}

void RemoveEntries() {
    for (const std::wstring& name : g_names) {
        std::wstring path = g_folder + name;
        if (!DeleteFileW(path.c_str())) RemoveDirectoryW(path.c_str());
    }
    RemoveDirectoryW(g_folder.c_str());
    g_names.clear();
}

// The browser as a modeless window, so that its list can be filled again and again while open.
INT_PTR CALLBACK BrowserProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) SetWindowLongPtrW(window, GWLP_USERDATA, lParam);
    auto* dialog = reinterpret_cast<DialogBase*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    return dialog ? dialog->DialogProc(window, message, wParam, lParam) : 0;
}

void OpenBrowser() {
    g_app.instance = GetModuleHandleW(nullptr);
    g_request.kind = BrowserKind::LoadFile;
    g_request.extension.assign(L"qlsb");
    SetBrowserLastFolder(g_folder.c_str());
    g_browser = new LoadFileDialog(g_app.instance, &g_request);
    struct {
        DLGTEMPLATE header;
        WORD menu, windowClass, title;
    } dialogTemplate = {};
    dialogTemplate.header.style = WS_POPUP | WS_CAPTION;  // not shown: drawing is not measured
    g_browserWindow = CreateDialogIndirectParamW(g_app.instance, &dialogTemplate.header, nullptr, BrowserProc,
                                                 reinterpret_cast<LPARAM>(static_cast<DialogBase*>(g_browser)));
}

void OpenPlainList() {
    g_host = CreateWindowExW(0, L"static", L"", WS_POPUP, 0, 0, 240, 300, nullptr, nullptr, nullptr, nullptr);
    g_plainList = CreateWindowExW(0, WC_LISTVIEWW, L"", WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_NOCOLUMNHEADER, 0, 0,
                                  240, 300, g_host, nullptr, nullptr, nullptr);
    LVCOLUMNW column = {};
    column.mask = LVCF_WIDTH;
    column.cx = 220;
    ListView_InsertColumn(g_plainList, 0, &column);
}

// Without windows (no display) the browser would list nothing and the figures would be for no
// work at all.
void SetUp() {
    INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_LISTVIEW_CLASSES};
    InitCommonControlsEx(&controls);
    MakeEntries();
    OpenBrowser();
    OpenPlainList();
    BenchCheck(g_browserWindow && GetDlgItem(g_browserWindow, kBrowserList), "browser window and list created");
    BenchCheck(g_plainList != nullptr, "plain list created");
}

LPARAM ItemParameter(HWND list, int index) {
    LVITEMW item = {};
    item.mask = LVIF_PARAM;
    item.iItem = index;
    return ListView_GetItem(list, &item) ? item.lParam : -1;
}

// Every entry listed; sorted, the folders come first.
void CheckListed(HWND list, bool sorted, const char* what) {
    BenchCheckCount(ListView_GetItemCount(list), kFolders + kFiles, what);
    if (!sorted) return;
    BenchCheck((ItemParameter(list, 0) & FileBrowserDialog::kFolderBit) &&
                   (ItemParameter(list, kFolders - 1) & FileBrowserDialog::kFolderBit) &&
                   !(ItemParameter(list, kFolders) & FileBrowserDialog::kFolderBit),
               "folders sorted before files");
}

void TearDown() {
    DestroyWindow(g_browserWindow);
    delete g_browser;
    DestroyWindow(g_host);
    RemoveEntries();
}

// The raw work: enumerate the folder and insert every entry with its text and a parameter (the
// browser's: a running number, and a bit for a folder); with a shadow list, into it as well.
void RawFill(HWND shadow) {
    SendMessageW(g_plainList, WM_SETREDRAW, FALSE, 0);
    ListView_DeleteAllItems(g_plainList);
    WIN32_FIND_DATAW entry;
    HANDLE find = FindFirstFileW((g_folder + L"*").c_str(), &entry);
    int count = 0;
    for (bool more = find != INVALID_HANDLE_VALUE; more; more = FindNextFileW(find, &entry)) {
        if (entry.cFileName[0] == L'.') continue;
        LVITEMW item = {};
        item.mask = LVIF_TEXT | LVIF_PARAM;
        item.iItem = count;
        item.pszText = entry.cFileName;
        item.lParam = count | ((entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) ? FileBrowserDialog::kFolderBit : 0);
        ListView_InsertItem(g_plainList, &item);
        if (shadow) ListView_InsertItem(shadow, &item);
        ++count;
    }
    if (find != INVALID_HANDLE_VALUE) FindClose(find);
    SendMessageW(g_plainList, WM_SETREDRAW, TRUE, 0);
    BenchCheckCount(count, kFolders + kFiles, "entries enumerated");
    CheckListed(g_plainList, false, "entries inserted into the plain list");
    if (shadow) CheckListed(shadow, false, "entries inserted into the shadow list");
}

void RawEnumerateAndInsert() { RawFill(nullptr); }

// The browser's own fill, from the folder it shows.
void FillBrowser() {
    g_browser->FillList();
    wchar_t path[MAX_PATH] = L"";
    GetDlgItemTextW(g_browserWindow, kBrowserPathField, path, MAX_PATH);
    BenchCheck(g_folder == path, "browser shows the bench folder");
    CheckListed(GetDlgItem(g_browserWindow, kBrowserList), true, "entries the browser listed");
}

BenchRegistration g_fill({"browser fill, 10,000 entries", "FindFirstFileW + LVM_INSERTITEMW of the same entries",
                          SetUp,
                          FillBrowser,
                          RawEnumerateAndInsert, TearDown, 3});

int CALLBACK CompareThroughShadow(LPARAM first, LPARAM second, LPARAM shadow) {
    bool firstIsFolder = (first & FileBrowserDialog::kFolderBit) != 0;
    bool secondIsFolder = (second & FileBrowserDialog::kFolderBit) != 0;
    if (firstIsFolder != secondIsFolder) return firstIsFolder ? -1 : 1;
    wchar_t a[MAX_PATH];
    wchar_t b[MAX_PATH];
    ListView_GetItemText(reinterpret_cast<HWND>(shadow), static_cast<int>(first & 0xFFFF), 0, a, MAX_PATH);
    ListView_GetItemText(reinterpret_cast<HWND>(shadow), static_cast<int>(second & 0xFFFF), 0, b, MAX_PATH);
    int order = CompareStringW(LOCALE_USER_DEFAULT, NORM_IGNORECASE, a, -1, b, -1);
    return order == 0 ? 0 : order - CSTR_EQUAL;
}

// The sort alone: the raw work into the list and a shadow list, then LVM_SORTITEMS through it.
BenchRegistration g_sort({"browser part: raw fill + shadow-list sort", "FindFirstFileW + LVM_INSERTITEMW",
                          SetUp,
                          [] {
                              HWND shadow = CreateWindowExW(0, WC_LISTVIEWW, L"", WS_CHILD | LVS_REPORT | LVS_NOCOLUMNHEADER, 0, 0, 0, 0,
                                                            g_host, nullptr, nullptr, nullptr);
                              SendMessageW(shadow, WM_SETREDRAW, FALSE, 0);
                              RawFill(shadow);
                              ListView_SortItems(g_plainList, CompareThroughShadow, reinterpret_cast<LPARAM>(shadow));
                              DestroyWindow(shadow);
                              CheckListed(g_plainList, true, "entries sorted");
                          },
                          RawEnumerateAndInsert, TearDown, 3});

// Every list insertion is reported to the dialog; this is what such a message costs there, beside
// the same message to a dialog of the bare dialog base (no menu bar, no OK control).
DialogBase g_bareDialog(nullptr, false);
HWND g_bareWindow = nullptr;

void SendMessages(HWND dialog, const char* what) {
    int answered = 0;
    DWORD_PTR result = 0;
    for (int i = 0; i < 10000; ++i) answered += SendMessageTimeoutW(dialog, WM_NULL, 0, 0, SMTO_NORMAL, 1000, &result) != 0;
    BenchCheckCount(answered, 10000, what);
}

BenchRegistration g_messages({"browser dialog: 10,000 messages", "10,000 messages to a bare dialog",
                              [] {
                                  SetUp();
                                  struct {
                                      DLGTEMPLATE header;
                                      WORD menu, windowClass, title;
                                  } dialogTemplate = {};
                                  dialogTemplate.header.style = WS_POPUP | WS_CAPTION;
                                  g_bareWindow = CreateDialogIndirectParamW(
                                      g_app.instance, &dialogTemplate.header, nullptr, BrowserProc,
                                      reinterpret_cast<LPARAM>(&g_bareDialog));
                                  BenchCheck(g_bareWindow != nullptr, "bare dialog created");
                              },
                              [] { SendMessages(g_browserWindow, "messages the browser answered"); },
                              [] { SendMessages(g_bareWindow, "messages the bare dialog answered"); },
                              [] {
                                  DestroyWindow(g_bareWindow);
                                  TearDown();
                              },
                              3});

}  // namespace
