#pragma once
// A settings page opened on the test registry, driven through its real controls, closed and saved as Done would.
#include <map>

#include "dialogs/modal_script.h"
#include "files/files_test_support.h"
#include "settings/settings_test_util.h"
#include "shell/application.h"
#include "shell/page_factory.h"
#include "shell/settings_page.h"
#include "support/app_state.h"

inline void PutDwords(const wchar_t* path, std::initializer_list<std::pair<const wchar_t*, DWORD>> values) {
    for (const auto& value : values) RegPutDword(HKEY_CURRENT_USER, path, value.first, value.second);
}

// A step of a modal script: `act` on the topmost dialog titled `title` (any when null) once it is up.
inline ModalScript::Step On(const wchar_t* title, std::function<bool(HWND)> act) {
    return [=] {
        HWND dialog = ModalScript::FindDialog(title);
        return dialog && act(dialog);
    };
}
inline std::function<bool(HWND)> Post(int command) {
    return [command](HWND dialog) { return PostMessageW(dialog, WM_COMMAND, command, 0) != FALSE; };
}

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
        RemoveProductKeys();
    }
    // Loads the record from the registry as it stands, with the English texts, and opens the page.
    void Open(int index, const std::wstring& productFolder = L"") {
        LoadSettings();
        if (!productFolder.empty()) g_settings.productFolder.assign(productFolder.c_str());
        if (!g_app.languageLibrary) g_app.languageLibrary = LoadLibraryW((TestBinDir() + L"\\QLEngRc.dll").c_str());
        page_ = CreatePage(owner_, index);
        ASSERT_TRUE(page_ && page_->window());
    }
    void Close() {
        if (page_) DestroyWindow(page_->window());
        delete page_;
        page_ = nullptr;
    }
    // A tap on section tab `section`: the page hears the change coming and then the change.
    void ShowSection(int section) {
        NMHDR header = {page_->sectionTabs(), 0, static_cast<UINT>(TCN_SELCHANGING)};
        SendMessageW(page_->window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header));
        SendMessageW(page_->sectionTabs(), TCM_SETCURSEL, section, 0);
        header.code = static_cast<UINT>(TCN_SELCHANGE);
        SendMessageW(page_->window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header));
    }
    void ShowEverySectionCloseAndSave() {
        int sections = static_cast<int>(SendMessageW(page_->sectionTabs(), TCM_GETITEMCOUNT, 0, 0));
        for (int section = 1; section < sections; ++section) ShowSection(section);
        CloseAndSave();
    }
    void CloseAndSave() {
        Close();
        SaveSettings();
    }
    // Page `index` opened on the registry as it stands, `visit` run, every section shown, OK and
    // save: succeeds when nothing below `path` changed, else names the values that did.
    ::testing::AssertionResult RoundTripKeeps(int index, const wchar_t* path = kProductPath,
                                              const std::wstring& productFolder = L"",
                                              const std::function<void()>& visit = {}) {
        std::map<std::wstring, RegValueData> before = Values(path);
        Open(index, productFolder);
        if (!page_) return ::testing::AssertionFailure() << "page " << index << " did not open";
        if (visit) visit();
        ShowEverySectionCloseAndSave();
        std::map<std::wstring, RegValueData> after = Values(path);
        std::string changed;
        for (const auto* side : {&before, &after})
            for (const auto& value : *side)
                if (before[value.first] != after[value.first]) changed += " " + Narrow(value.first);
        if (changed.empty()) return ::testing::AssertionSuccess();
        return ::testing::AssertionFailure() << "changed:" << changed;
    }
    static std::map<std::wstring, RegValueData> Values(const wchar_t* path) {
        std::map<std::wstring, RegValueData> values;
        for (const auto& key : Snapshot(HKEY_CURRENT_USER, path))
            for (const auto& value : key.second) values[key.first + L"|" + value.first] = value.second;
        return values;
    }
    HWND Control(int number) { return page_->control(number); }
    void Click(int number) { SendMessageW(Control(number), BM_CLICK, 0, 0); }
    // Clicks `button` while `steps` play in the dialogs it opens.
    void ClickThrough(int button, std::initializer_list<ModalScript::Step> steps, int ticks = 1000) {
        ModalScript script;
        for (const auto& step : steps) script.Then(step);
        script.Play([&] { Click(button); }, ticks);
    }
    bool Checked(int number) { return SendMessageW(Control(number), BM_GETCHECK, 0, 0) == BST_CHECKED; }
    // A user's choice: the selection changes, then the list closes on it (index -1: the last entry).
    void Choose(int combo, int index) {
        SendMessageW(Control(combo), CB_SETCURSEL, index < 0 ? Entries(combo).size() - 1 : index, 0);
        for (UINT code : {CBN_SELCHANGE, CBN_SELENDOK})
            SendMessageW(page_->window(), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(Control(combo)), code),
                         reinterpret_cast<LPARAM>(Control(combo)));
    }
    int Selected(int combo) { return static_cast<int>(SendMessageW(Control(combo), CB_GETCURSEL, 0, 0)); }
    Texts Entries(int combo) {
        Texts entries;
        for (int i = 0; i < SendMessageW(Control(combo), CB_GETCOUNT, 0, 0); ++i) {
            wchar_t text[300] = {};
            SendMessageW(Control(combo), CB_GETLBTEXT, i, reinterpret_cast<LPARAM>(text));
            entries.push_back(text);
        }
        return entries;
    }
    bool Enabled(int number) { return IsWindowEnabled(Control(number)) != FALSE; }

    HWND owner_ = nullptr;
    SettingsPage* page_ = nullptr;
};
