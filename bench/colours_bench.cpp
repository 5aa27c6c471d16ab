// The Colours page opened, both sections shown and closed, beside the same controls created bare;
// and a colour scheme saved and loaded (every colour, every font part and 16 categories), beside
// the bare registry-text writer and reader on the same two trees.
#include <windows.h>
#include <commctrl.h>

#include <string>

#include "bench_harness.h"
#include "files/categories.h"
#include "files/colour_schemes.h"
#include "files/filters.h"
#include "files/registry_text.h"
#include "page_bench.h"
#include "settings/key_table.h"
#include "settings/registry_values.h"
#include "settings/settings.h"
#include "shell/page_factory.h"
#include "shell/settings_page.h"

namespace {

const int kColoursPage = 8, kSchemeFiles = 20, kSeededColour = 0x00123456;
const wchar_t* const kPageClasses[] = {L"button", WC_LISTVIEWW, L"edit", L"button", WC_LISTVIEWW, L"button",
                                       L"button"};
std::wstring g_folder;

void UseBenchFolder() { g_settings.productFolder.assign(g_folder.c_str()); }

void OpenShowAndClose() {
    SettingsPage* page = CreatePage(g_pageBenchOwner, kColoursPage);
    BenchCheck(page && page->window(), "page window created");
    BenchCheckCount(SendMessageW(page->control(1), LVM_GETITEMCOUNT, 0, 0), 16, "colour items listed");
    BenchCheckCount(SendMessageW(page->control(4), LVM_GETITEMCOUNT, 0, 0), kSchemeFiles, "schemes listed");
    ShowPageSection(page, 1);
    BenchCheckCount(page->CurrentSection(), 1, "section shown");
    DestroyWindow(page->window());
    delete page;
}

void CreateBare() {
    HWND host = CreateBareHost(BareLayout::kFixed, 2);
    int created = 0, items = 0, lists = 0;
    for (const wchar_t* name : kPageClasses) {
        HWND child = CreateBareChild(host, name, created, LVS_REPORT);
        created += child != nullptr;
        if (wcscmp(name, WC_LISTVIEWW) == 0) items += FillBareList(child, lists++ == 0 ? 16 : kSchemeFiles, L"Item");
    }
    BenchCheckCount(created, 7, "bare controls created");
    BenchCheckCount(items, 16 + kSchemeFiles, "bare items listed");
    DestroyWindow(host);
}

const wchar_t* const kFontParts[] = {L"lfWeight", L"lfItalic", L"lfUnderline", L"lfStrikeOut", L"lfHeight", L"lfColor"};

void PutDword(HKEY key, const std::wstring& name, DWORD value) {
    RegSetValueExW(key, name.c_str(), 0, REG_DWORD, reinterpret_cast<const BYTE*>(&value), sizeof value);
}

void SeedLook() {
    RegKey colours = OpenSettingKey(kKeyColors), fonts = OpenSettingKey(kKeyFonts);
    for (Setting* setting : g_settings.colors.settings()) PutDword(colours.get(), setting->valueName.c_str(), kSeededColour);
    for (Setting* setting : g_settings.fonts.settings())
        if (dynamic_cast<FontSetting*>(setting))
            for (const wchar_t* part : kFontParts) PutDword(fonts.get(), std::wstring(setting->valueName.c_str()) + part, 1);
}

void SetUp() {
    SetUpPageBench();
    wchar_t temp[MAX_PATH];
    GetTempPathW(MAX_PATH, temp);
    g_folder = std::wstring(temp) + L"ql_bench_colours";
    CreateDirectoryW(g_folder.c_str(), nullptr);
    UseBenchFolder();
    for (int i = 0; i < kSchemeFiles; ++i) SaveSchemeFile((L"Scheme " + std::to_wstring(i)).c_str());
    for (int i = 0; i < 16; ++i) {
        CategoryRecord* record = new CategoryRecord;
        record->name.assign((L"Category " + std::to_wstring(i)).c_str());
        InsertCategory(g_categories, record);
    }
    MakeDefaultFilters(g_filters);
    SeedLook();
}

void TearDown() {
    TearDownPageBench();
    ClearCategories(g_categories);
    UseBenchFolder();
    for (const WString& name : ListSchemeFiles()) DeleteSchemeFile(name.c_str());
    RemoveDirectoryW(SchemesFolder().c_str());
    RemoveDirectoryW(g_folder.c_str());
    RegDeleteTreeW(HKEY_CURRENT_USER, KeyPath(kKeyColors));
    RegDeleteTreeW(HKEY_CURRENT_USER, KeyPath(kKeyFonts));
}

void SaveAndLoadScheme() {
    UseBenchFolder();
    BenchCheck(SaveSchemeFile(L"Bench") == SchemeSaveResult::kSaved, "scheme saved");
    BenchCheck(LoadSchemeFile(L"Bench.scm") == SchemeLoadResult::kLoaded, "scheme loaded");
    BenchCheckCount(g_settings.colors.ClrStatusOutofoffice.value, kSeededColour, "colour read back");
    BenchCheckCount(g_settings.fonts.FontSEGroupingTtls.colour.value, 1, "font read back");
    UseBenchFolder();
    DeleteSchemeFile(L"Bench.scm");
}

void RawWriteAndRead() {
    std::wstring path = g_folder + L"\\raw.scm";
    Utf16TextWriter out;
    BenchCheck(out.open(path.c_str()), "raw file created");
    WriteRegistryTree(KeyPath(kKeyColors), out);
    WriteRegistryTree(KeyPath(kKeyFonts), out);
    WriteCategoriesSection(g_categories, out);
    out.close();
    Utf16TextReader in;
    BenchCheck(in.open(path.c_str()) && ReadRegistryTextFile(in, g_categories, g_filters), "raw file read");
    RegKey colours = OpenSettingKey(kKeyColors);
    BenchCheckCount(ReadDword(colours.get(), L"ClrStatusOutofoffice", 0), kSeededColour, "raw colour read back");
    DeleteFileW(path.c_str());
}

BenchRegistration g_pageCase({"Colours page: open, 2 sections, close", "same 7 controls, items and tabs, bare",
                              SetUp, OpenShowAndClose, CreateBare, TearDown, 20});
BenchRegistration g_schemeCase({"Colour scheme: save and load (16 colours, 198 font values, 16 categories)",
                                "registry-text writer and reader on the same trees", SetUp, SaveAndLoadScheme,
                                RawWriteAndRead, TearDown, 20});

}  // namespace
