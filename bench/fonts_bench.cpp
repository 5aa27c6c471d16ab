// The Fonts page opened, both sections shown (a row selected, so the sample is drawn) and closed,
// beside the same controls created bare: the same classes and count, the font list's 33 rows and
// the installed faces in the face list.
#include <windows.h>
#include <commctrl.h>

#include <string>

#include "bench_harness.h"
#include "page_bench.h"
#include "settings/settings.h"
#include "shell/page_factory.h"
#include "shell/settings_page.h"

namespace {

const int kFontsPage = 7;
const int kRows = 33;
const int kFaceCombo = 6, kFontList = 11;

int g_faces = 0;

void OpenShowAndClose() {
    SettingsPage* page = CreatePage(g_pageBenchOwner, kFontsPage);
    BenchCheck(page && page->window(), "page window created");
    BenchCheckCount(SendMessageW(page->control(kFaceCombo), CB_GETCOUNT, 0, 0), g_faces, "faces listed");
    HWND list = page->control(kFontList);
    BenchCheckCount(ListView_GetItemCount(list), kRows, "font rows listed");
    ShowPageSection(page, 1);
    ListView_SetItemState(list, 6, LVIS_SELECTED, LVIS_SELECTED);
    UpdateWindow(page->window());
    BenchCheckCount(page->CurrentSection(), 1, "section shown");
    ShowPageSection(page, 0);
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
    HWND host = CreateBareHost(BareLayout::kFixed, 2);
    const wchar_t* classes[] = {L"static", L"combobox", L"static", L"combobox", L"BUTTON", L"static", L"combobox",
                                L"static", L"combobox", L"BUTTON", L"button", WC_LISTVIEWW, L"button"};
    HWND made[13] = {};
    int created = 0;
    for (const wchar_t* name : classes) {
        made[created] = CreateBareChild(host, name, created, created == kFontList ? LVS_REPORT : 0);
        created += made[created] != nullptr;
    }
    for (int combo : {1, 3})
        for (int size = 10; size <= 30; ++size)
            SendMessageW(made[combo], CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(std::to_wstring(size).c_str()));
    HDC screen = GetDC(nullptr);
    EnumFontFamiliesW(screen, nullptr, AddFace, reinterpret_cast<LPARAM>(made[kFaceCombo]));
    ReleaseDC(nullptr, screen);
    HWND list = made[kFontList];
    FillBareList(list, kRows, L"Calendar: out of office");
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
    SetUpPageBench();
    HDC screen = GetDC(nullptr);
    EnumFontFamiliesW(screen, nullptr, CountFace, reinterpret_cast<LPARAM>(&g_faces));
    ReleaseDC(nullptr, screen);
    BenchCheck(g_faces > 0, "installed faces found");
}

BenchRegistration g_fontsPage({"Fonts page opened, both sections shown, closed",
                               "the same controls, sizes, faces and rows created bare", SetUp, OpenShowAndClose,
                               CreateBare, TearDownPageBench, 20});

}  // namespace
