// The Fonts page opened, both sections shown (a row selected, so the sample is drawn) and closed,
// beside the same controls created bare: the same classes and count, the font list's 33 rows and
// the installed faces in the face list.
#include <windows.h>
#include <commctrl.h>

#include <string>

#include "bench_harness.h"
#include "settings/settings.h"
#include "shell/application.h"
#include "shell/page_factory.h"
#include "shell/settings_page.h"
#include "support/app_state.h"

namespace {

const int kFontsPage = 7;
const int kRows = 33;
const int kFaceCombo = 6, kFontList = 11;

HWND g_owner = nullptr;
int g_faces = 0;

void ShowSection(SettingsPage* page, int section) {
    NMHDR header = {page->sectionTabs(), 0, static_cast<UINT>(TCN_SELCHANGING)};
    SendMessageW(page->window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header));
    SendMessageW(page->sectionTabs(), TCM_SETCURSEL, section, 0);
    header.code = static_cast<UINT>(TCN_SELCHANGE);
    SendMessageW(page->window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header));
}

void OpenShowAndClose() {
    SettingsPage* page = CreatePage(g_owner, kFontsPage);
    BenchCheck(page && page->window(), "page window created");
    BenchCheckCount(SendMessageW(page->control(kFaceCombo), CB_GETCOUNT, 0, 0), g_faces, "faces listed");
    HWND list = page->control(kFontList);
    BenchCheckCount(ListView_GetItemCount(list), kRows, "font rows listed");
    ShowSection(page, 1);
    ListView_SetItemState(list, 6, LVIS_SELECTED, LVIS_SELECTED);
    UpdateWindow(page->window());
    BenchCheckCount(page->CurrentSection(), 1, "section shown");
    ShowSection(page, 0);
    g_settings.fonts.FontGnrlSize.dirty = 0;
    DestroyWindow(page->window());
    delete page;
    BenchCheckCount(g_settings.fonts.FontGnrlSize.dirty, 1, "values stored");
}

int CALLBACK AddFace(const LOGFONTW* font, const TEXTMETRICW*, DWORD, LPARAM combo) {
    SendMessageW(reinterpret_cast<HWND>(combo), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(font->lfFaceName));
    return 1;
}

// Thirteen controls in the page's classes, the section tabs, 42 sizes, the faces and 33 rows.
void CreateBare() {
    HWND host = CreateWindowExW(0, L"static", L"", WS_POPUP | WS_VISIBLE, 0, 0, 240, 294, g_owner, nullptr,
                                g_app.instance, nullptr);
    HWND tabs = CreateWindowExW(0, WC_TABCONTROLW, L"", WS_CHILD | WS_VISIBLE | TCS_BOTTOM, 0, 272, 240, 22, host,
                                nullptr, g_app.instance, nullptr);
    for (int section = 0; section < 2; ++section) {
        TCITEMW item = {TCIF_TEXT};
        item.pszText = const_cast<wchar_t*>(L"Section");
        SendMessageW(tabs, TCM_INSERTITEMW, section, reinterpret_cast<LPARAM>(&item));
    }
    const wchar_t* classes[] = {L"static", L"combobox", L"static", L"combobox", L"BUTTON", L"static", L"combobox",
                                L"static", L"combobox", L"BUTTON", L"button", WC_LISTVIEWW, L"button"};
    HWND made[13] = {};
    int created = 0;
    for (const wchar_t* name : classes) {
        made[created] = CreateWindowExW(0, name, L"Text", WS_CHILD | WS_VISIBLE | (created == kFontList ? LVS_REPORT : 0),
                                        10, 10 + created * 2, 120, 20, host, nullptr, g_app.instance, nullptr);
        created += made[created] != nullptr;
    }
    for (int combo : {1, 3})
        for (int size = 10; size <= 30; ++size)
            SendMessageW(made[combo], CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(std::to_wstring(size).c_str()));
    HDC screen = GetDC(nullptr);
    EnumFontFamiliesW(screen, nullptr, AddFace, reinterpret_cast<LPARAM>(made[kFaceCombo]));
    ReleaseDC(nullptr, screen);
    HWND list = made[kFontList];
    LVCOLUMNW column = {LVCF_WIDTH, 0, 120};
    ListView_InsertColumn(list, 0, &column);
    for (int row = 0; row < kRows; ++row) {
        LVITEMW item = {LVIF_TEXT, row};
        item.pszText = const_cast<wchar_t*>(L"Calendar: out of office");
        ListView_InsertItem(list, &item);
    }
    BenchCheckCount(created, 13, "bare controls created");
    BenchCheckCount(SendMessageW(made[kFaceCombo], CB_GETCOUNT, 0, 0), g_faces, "bare faces");
    BenchCheckCount(ListView_GetItemCount(list), kRows, "bare rows");
    DestroyWindow(host);
}

int CALLBACK CountFace(const LOGFONTW*, const TEXTMETRICW*, DWORD, LPARAM count) {
    ++*reinterpret_cast<int*>(count);
    return 1;
}

void SetUp() {
    InitCommonControlsForProgram();
    g_app.instance = GetModuleHandleW(nullptr);
    LoadSettings();
    g_app.normalFont = static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
    g_app.boldFont = g_app.normalFont;
    g_owner = CreateWindowExW(0, L"static", L"QL Options", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 260, 340, nullptr,
                              nullptr, g_app.instance, nullptr);
    HDC screen = GetDC(nullptr);
    EnumFontFamiliesW(screen, nullptr, CountFace, reinterpret_cast<LPARAM>(&g_faces));
    ReleaseDC(nullptr, screen);
    BenchCheck(g_faces > 0, "installed faces found");
}

void TearDown() {
    DestroyWindow(g_owner);
    g_owner = nullptr;
}

BenchRegistration g_fontsPage({"Fonts page opened, both sections shown, closed",
                               "the same controls, sizes, faces and rows created bare", SetUp, OpenShowAndClose,
                               CreateBare, TearDown, 20});

}  // namespace
