// Opening the Categories page over 200 categories and the 32 filters, showing each of its four
// sections and closing it (the filter shown is stored), beside creating the same 18 controls bare
// with the same rows in two list views; and listing 300 pictures for the icon chooser beside a
// plain enumeration of the folder.
#include <windows.h>
#include <commctrl.h>

#include <string>
#include <vector>

#include "bench_harness.h"
#include "dialogs/icon_chooser.h"
#include "files/categories.h"
#include "files/filters.h"
#include "settings/settings.h"
#include "shell/application.h"
#include "shell/page_factory.h"
#include "shell/settings_page.h"
#include "support/app_state.h"

namespace {

const int kCategoriesPage = 11, kSections = 4, kControls = 18, kRows = 200, kPictures = 300;
const int kCategoryList = 1, kMembers = 13;
HWND g_owner = nullptr;
std::vector<std::wstring> g_classes;  // of the page's controls, read on the first opening
WString g_pictureFolder;

void ShowSection(SettingsPage* page, int section) {
    NMHDR header = {page->sectionTabs(), 0, static_cast<UINT>(TCN_SELCHANGING)};
    SendMessageW(page->window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header));
    SendMessageW(page->sectionTabs(), TCM_SETCURSEL, section, 0);
    header.code = static_cast<UINT>(TCN_SELCHANGE);
    SendMessageW(page->window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header));
}

void OpenShowAndClose() {
    g_settings.general.FilterMethodToUse.dirty = 0;
    g_categories.head->filterMask = 0;
    SettingsPage* page = CreatePage(g_owner, kCategoriesPage);
    BenchCheck(page && page->window(), "page window created");
    BenchCheckCount(SendMessageW(page->sectionTabs(), TCM_GETITEMCOUNT, 0, 0), kSections, "sections");
    BenchCheckCount(ListView_GetItemCount(page->control(kCategoryList)), kRows, "category rows");
    BenchCheckCount(ListView_GetItemCount(page->control(kMembers)), kRows, "filter rows");
    std::vector<std::wstring> classes;
    for (int number = 0; number < page->controlCount(); ++number) {
        wchar_t name[64] = {};
        if (HWND control = page->control(number)) GetClassNameW(control, name, 64);
        if (name[0]) classes.push_back(name);
    }
    BenchCheckCount(static_cast<long long>(classes.size()), kControls, "controls created");
    for (int section = 1; section < kSections; ++section) {
        ShowSection(page, section);
        UpdateWindow(page->window());
        BenchCheckCount(page->CurrentSection(), section, "section shown");
    }
    ListView_SetCheckState(page->control(kMembers), 0, TRUE);
    DestroyWindow(page->window());
    delete page;
    BenchCheck(g_settings.general.FilterMethodToUse.dirty == 1, "values stored on closing");
    BenchCheckCount(g_categories.head->filterMask, 1, "the first row's tick stored in its mask");
    if (g_classes.empty()) g_classes = classes;
}

HWND AddRows(HWND list, DWORD extendedStyle) {
    ListView_SetExtendedListViewStyle(list, extendedStyle);
    LVCOLUMNW column = {LVCF_WIDTH, 0, 150};
    ListView_InsertColumn(list, 0, &column);
    int row = 0;
    for (CategoryRecord* r = g_categories.head; r; r = r->next, ++row) {
        LVITEMW item = {LVIF_TEXT | LVIF_PARAM, row};
        item.pszText = const_cast<wchar_t*>(r->name.c_str());
        item.lParam = reinterpret_cast<LPARAM>(r);
        ListView_InsertItem(list, &item);
    }
    return list;
}

void CreateBare() {
    RECT area;
    GetClientRect(g_owner, &area);
    MapWindowPoints(g_owner, nullptr, reinterpret_cast<POINT*>(&area), 2);
    HWND host = CreateWindowExW(0, L"static", L"", WS_POPUP | WS_VISIBLE, area.left, area.top, area.right - area.left,
                                area.bottom - area.top, g_owner, nullptr, g_app.instance, nullptr);
    HWND tabs = CreateWindowExW(0, WC_TABCONTROLW, L"", WS_CHILD | WS_VISIBLE | TCS_BOTTOM, 0, 280, 240, 20, host,
                                nullptr, g_app.instance, nullptr);
    for (int section = 0; section < kSections; ++section) {
        TCITEMW item = {TCIF_TEXT};
        item.pszText = const_cast<wchar_t*>(L"Section");
        SendMessageW(tabs, TCM_INSERTITEMW, section, reinterpret_cast<LPARAM>(&item));
    }
    int created = 0, lists = 0, rows = 0;
    for (const std::wstring& name : g_classes) {
        bool list = name == WC_LISTVIEWW;
        HWND child = CreateWindowExW(0, name.c_str(), L"Text", WS_CHILD | WS_VISIBLE | (list ? LVS_REPORT : 0), 10,
                                     10 + created * 2, 150, 200, host, nullptr, g_app.instance, nullptr);
        if (child) SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(g_app.normalFont), TRUE);
        if (child && list) rows += ListView_GetItemCount(AddRows(child, lists++ ? LVS_EX_CHECKBOXES : 0));
        created += child != nullptr;
    }
    BenchCheckCount(created, kControls, "bare controls created");
    BenchCheckCount(rows, 2 * kRows, "bare rows");
    UpdateWindow(host);
    DestroyWindow(host);
}

void SetUp() {
    InitCommonControlsForProgram();
    g_app.instance = GetModuleHandleW(nullptr);
    LoadSettings();
    g_settings.general.FilterMethodToUse.value = 1;
    g_app.normalFont = static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
    g_app.boldFont = g_app.normalFont;
    ClearCategories(g_categories);
    for (int i = 0; i < kRows; ++i) {
        auto* record = new CategoryRecord;
        record->name.format(L"Category %03d", i);
        record->colour = i % 3 ? kNoCategoryColour : RGB(i, 0, 0);
        InsertCategory(g_categories, record);
    }
    MakeDefaultFilters(g_filters);
    g_owner = CreateWindowExW(0, L"static", L"QL Options", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 260, 340, nullptr,
                              nullptr, g_app.instance, nullptr);
    g_classes.clear();
    OpenShowAndClose();
}

void TearDown() {
    DestroyWindow(g_owner);
    g_owner = nullptr;
    ClearCategories(g_categories);
    ClearFilters(g_filters);
}

// ---- the chooser's list of pictures ----------------------------------------------------------

void SeedPictures() {
    wchar_t temp[MAX_PATH];
    GetTempPathW(MAX_PATH, temp);
    g_pictureFolder.assign(temp);
    g_pictureFolder.append(L"ql_bench_pictures");
    CreateDirectoryW(g_pictureFolder.c_str(), nullptr);
    for (int i = 0; i < kPictures; ++i) {
        WString path;
        path.format(L"%s\\Picture %03d.bmp", g_pictureFolder.c_str(), kPictures - i);
        HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
        if (file != INVALID_HANDLE_VALUE) CloseHandle(file);
    }
}

void RemovePictures() {
    for (int i = 0; i < kPictures; ++i) {
        WString path;
        path.format(L"%s\\Picture %03d.bmp", g_pictureFolder.c_str(), kPictures - i);
        DeleteFileW(path.c_str());
    }
    RemoveDirectoryW(g_pictureFolder.c_str());
}

void ListPictures() {
    std::vector<IconChoice> choices = ListPictureFiles({g_pictureFolder});
    BenchCheckCount(static_cast<long long>(choices.size()), kPictures, "pictures listed");
    BenchCheck(wcscmp(choices.front().name.c_str(), L"Picture 001") == 0, "listed by name");
}

void EnumerateRaw() {
    WString pattern(g_pictureFolder.c_str());
    pattern.append(L"\\*.bmp");
    WIN32_FIND_DATAW found;
    HANDLE search = FindFirstFileW(pattern.c_str(), &found);
    std::vector<std::wstring> names;
    for (BOOL more = search != INVALID_HANDLE_VALUE; more; more = FindNextFileW(search, &found))
        names.push_back(found.cFileName);
    if (search != INVALID_HANDLE_VALUE) FindClose(search);
    BenchCheckCount(static_cast<long long>(names.size()), kPictures, "files enumerated");
}

BenchRegistration g_pageCase({"Categories page: 200 categories, open, 4 sections, close",
                              "same 18 controls, tabs and rows, bare", SetUp, OpenShowAndClose, CreateBare, TearDown,
                              20});
BenchRegistration g_pictureCase({"Icon chooser: 300 pictures listed by name", "plain enumeration of the folder",
                                 SeedPictures, ListPictures, EnumerateRaw, RemovePictures, 20});

}  // namespace
