#pragma once
// A settings page opened through the page framework on the test registry, driven with messages
// to its real controls, closed (it stores its values) and saved as Done would.
#include <windows.h>
#include <commctrl.h>

#include <string>
#include <vector>

#include "files/files_test_support.h"
#include "settings/settings_test_util.h"
#include "shell/application.h"
#include "shell/page_factory.h"
#include "shell/settings_page.h"
#include "support/app_state.h"

class PageFixture : public ::testing::Test {
protected:
    void SetUp() override {
        InitCommonControlsForProgram();
        RemoveProductKeys();
        g_app = AppState();
        g_app.instance = GetModuleHandleW(nullptr);
        g_app.pixelsPerInchX = g_app.pixelsPerInchY = 96;
        owner_ = CreateWindowExW(0, TestWindowClass(L"PageOwner", DefWindowProcW), L"QL Options",
                                 WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 260, 340, nullptr, nullptr, g_app.instance,
                                 nullptr);
    }
    void TearDown() override {
        Close();
        DestroyWindow(owner_);
        ClearCategories(g_categories);
        if (g_app.languageLibrary) FreeLibrary(g_app.languageLibrary);
        g_app.languageLibrary = nullptr;
        RemoveProductKeys();
    }
    // Loads the record from the registry as it stands, with the English texts, and opens the page.
    void Open(int index) {
        LoadSettings();
        if (!g_app.languageLibrary) g_app.languageLibrary = LoadLibraryW((TestBinDir() + L"\\QLEngRc.dll").c_str());
        page_ = CreatePage(owner_, index);
        ASSERT_TRUE(page_ && page_->window());
    }
    void Close() {
        if (page_) DestroyWindow(page_->window());
        delete page_;
        page_ = nullptr;
    }
    // Shows every section in turn, as taps on the section tabs do, then leaves and saves.
    void ShowEverySectionCloseAndSave() {
        int sections = static_cast<int>(SendMessageW(page_->sectionTabs(), TCM_GETITEMCOUNT, 0, 0));
        for (int section = 1; section < sections; ++section) {
            NMHDR header = {page_->sectionTabs(), 0, static_cast<UINT>(TCN_SELCHANGING)};
            SendMessageW(page_->window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header));
            SendMessageW(page_->sectionTabs(), TCM_SETCURSEL, section, 0);
            header.code = static_cast<UINT>(TCN_SELCHANGE);
            SendMessageW(page_->window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header));
        }
        Close();
        SaveSettings();
    }
    HWND Control(int number) { return page_->control(number); }
    void Choose(int combo, int index) {
        SendMessageW(Control(combo), CB_SETCURSEL, index, 0);
        SendMessageW(page_->window(), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(Control(combo)), CBN_SELENDOK),
                     reinterpret_cast<LPARAM>(Control(combo)));
    }
    int Selected(int combo) { return static_cast<int>(SendMessageW(Control(combo), CB_GETCURSEL, 0, 0)); }
    std::vector<std::wstring> Entries(int combo) {
        std::vector<std::wstring> entries;
        for (int i = 0; i < SendMessageW(Control(combo), CB_GETCOUNT, 0, 0); ++i) {
            wchar_t text[256] = {};
            SendMessageW(Control(combo), CB_GETLBTEXT, i, reinterpret_cast<LPARAM>(text));
            entries.push_back(text);
        }
        return entries;
    }
    bool Enabled(int number) { return IsWindowEnabled(Control(number)) != FALSE; }

    HWND owner_ = nullptr;
    SettingsPage* page_ = nullptr;
};
