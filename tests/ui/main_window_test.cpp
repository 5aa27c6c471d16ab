// The real main window built in-process: page grid, menu bar, Done and Cancel, and the display
// scaling chosen at creation.
#include <windows.h>
#include <commctrl.h>

#include <set>
#include <string>

#include "common/dialog_answer.h"
#include "common/test_support.h"
#include "settings/settings.h"
#include "support/app_state.h"
#include "shell/application.h"
#include "support/display_scale.h"
#include "shell/main_window.h"
#include "shell/settings_page.h"
#include "ui/probe_page.h"

namespace {

const wchar_t kProduct[] = L"Software\\Orvane\\Quillory";
const wchar_t kLanguageLibrary[] = L"\\Program Files\\Orvane\\Quillory\\LangRes\\QLEngRc.dll";
// The page grid's items in order, each with the language library's id of its title (40226 is
// no page).
struct PageTitle {
    const char* page;
    UINT titleId;
};
const PageTitle kPageTitles[12] = {{"General", 40220},        {"Calendar", 40221}, {"Tasks", 40222},
                                   {"Notes", 40981},          {"Contacts", 41174}, {"Messages", 40982},
                                   {"Special events", 40223}, {"Fonts", 40224},    {"Colours", 40225},
                                   {"PIM", 40227},            {"Tabs", 40228},     {"Categories", 40229}};

std::wstring LoadEnglish(UINT id) {
    HMODULE library = LoadLibraryW(kLanguageLibrary);
    wchar_t text[1024] = {};
    LoadStringW(library, id, text, 1024);
    FreeLibrary(library);
    return text;
}

std::set<std::wstring> ValueNames(const wchar_t* path) {
    std::set<std::wstring> names;
    HKEY key;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, path, 0, KEY_READ, &key) != ERROR_SUCCESS) return names;
    wchar_t name[256];
    for (DWORD i = 0;; ++i) {
        DWORD length = 256;
        if (RegEnumValueW(key, i, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) break;
        names.insert(name);
    }
    RegCloseKey(key);
    return names;
}

// A hidden top-level window that records the settings-changed broadcast.
struct BroadcastListener {
    static UINT message;
    static int received;
    static WPARAM lastW;
    static LPARAM lastL;
    HWND window = nullptr;
    static LRESULT CALLBACK Proc(HWND w, UINT m, WPARAM wp, LPARAM lp) {
        if (m == message && m != 0) {
            ++received;
            lastW = wp;
            lastL = lp;
        }
        return DefWindowProcW(w, m, wp, lp);
    }
    BroadcastListener() {
        message = RegisterWindowMessageW(L"OrvaneQuillorySettingsChanged");
        received = 0;
        window = CreateWindowExW(0, TestWindowClass(L"BroadcastListener", Proc), L"", WS_POPUP, 0, 0, 1, 1, nullptr,
                                 nullptr, GetModuleHandleW(nullptr), nullptr);
    }
    ~BroadcastListener() { DestroyWindow(window); }
};
UINT BroadcastListener::message = 0;
int BroadcastListener::received = 0;
WPARAM BroadcastListener::lastW = 99;
LPARAM BroadcastListener::lastL = 99;

class MainWindow : public ::testing::Test {
protected:
    void SetUp() override {
        InitCommonControlsForProgram();
        RegRemoveTree(HKEY_CURRENT_USER, kProduct);
        g_app = AppState();
        g_app.instance = GetModuleHandleW(nullptr);
        RegisterMainWindowClass(g_app.instance);
    }
    void TearDown() override {
        if (IsWindow(window_)) DestroyWindow(window_);
        PumpMessages();
        RegRemoveTree(HKEY_CURRENT_USER, kProduct);
    }
    void Create(int pixelsPerInch = 96) {
        g_app.pixelsPerInchX = g_app.pixelsPerInchY = pixelsPerInch;
        window_ = CreateMainWindow(g_app.instance);
        ASSERT_NE(window_, nullptr);
        PumpMessages();
    }
    ProbePage* OpenProbePage() {
        auto* page = new ProbePage;
        CreatePageWindow(page, window_, L"ProbeSettingsWin", g_app.instance, g_app.normalFont, g_app.boldFont);
        g_app.currentPage = page;
        SetWindowTextW(window_, L"Probe");
        return page;
    }
    std::wstring Title() {
        wchar_t title[256] = {};
        GetWindowTextW(window_, title, 256);
        return title;
    }
    HWND window_ = nullptr;
};

TEST_F(MainWindow, ShowsTwelvePagesAndTheMenuBarTheDeviceWay) {
    Create();
    HWND list = g_app.pageList;
    ASSERT_NE(list, nullptr);
    ASSERT_EQ(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0), 12);
    for (int i = 0; i < 12; ++i) {
        wchar_t text[256] = {};
        LVITEMW item = {};
        item.mask = LVIF_TEXT | LVIF_IMAGE;
        item.iItem = i;
        item.pszText = text;
        item.cchTextMax = 256;
        SendMessageW(list, LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
        const PageTitle& expected = kPageTitles[i];
        EXPECT_EQ(std::wstring(text), LoadEnglish(expected.titleId)) << "item " << i << ", " << expected.page;
        EXPECT_FALSE(std::wstring(text).empty()) << "item " << i << ", " << expected.page;
        EXPECT_EQ(item.iImage, i);
    }
    EXPECT_NE(g_app.pageImages, nullptr) << "page icons come from the display library";

    HWND bar = g_app.menuBar;
    ASSERT_NE(bar, nullptr);
    EXPECT_TRUE(IsWindowVisible(bar));
    RECT barRect, frame;
    GetWindowRect(bar, &barRect);
    GetWindowRect(window_, &frame);
    EXPECT_GT(barRect.bottom - barRect.top, 0);
    EXPECT_GE(barRect.top, frame.top);
    EXPECT_LE(barRect.bottom, frame.bottom) << "the bar lies inside the main window";
    // The menu resource's placeholder button 0 is gone; its "Menu" button stays, then Done and Cancel.
    ASSERT_EQ(SendMessageW(bar, TB_BUTTONCOUNT, 0, 0), 3);
    TBBUTTON button = {};
    SendMessageW(bar, TB_GETBUTTON, 0, reinterpret_cast<LPARAM>(&button));
    EXPECT_NE(button.idCommand, kCommandDone) << "the placeholder Done of the resource was deleted";
    SendMessageW(bar, TB_GETBUTTON, 1, reinterpret_cast<LPARAM>(&button));
    EXPECT_EQ(button.idCommand, kCommandDone);
    EXPECT_EQ(button.iBitmap, 1);
    SendMessageW(bar, TB_GETBUTTON, 2, reinterpret_cast<LPARAM>(&button));
    EXPECT_EQ(button.idCommand, kCommandCancel);
    EXPECT_EQ(button.iBitmap, 0);

    HMENU menu = reinterpret_cast<HMENU>(SendMessageW(bar, SHCMBM_GETMENU, 0, 0));
    HMODULE library = LoadLibraryW(kLanguageLibrary);
    HMENU original = LoadMenuW(library, MAKEINTRESOURCEW(102));
    EXPECT_EQ(GetMenuItemCount(GetSubMenu(menu, 1)), GetMenuItemCount(GetSubMenu(original, 1)) - 2);
    for (UINT command : {kCommandAbout, kCommandExport, kCommandImport})
        EXPECT_NE(GetMenuState(GetSubMenu(menu, 1), command, MF_BYCOMMAND), static_cast<UINT>(-1)) << command;
    DestroyMenu(original);
    FreeLibrary(library);
}

TEST_F(MainWindow, DoneClosesAnOpenPageFirstThenSavesAndBroadcasts) {
    Create();
    BroadcastListener listener;
    int stores = 0;
    ProbePage* page = OpenProbePage();
    page->storeCounter = &stores;
    HWND pageWindow = page->window();

    SendMessageW(window_, WM_COMMAND, kCommandDone, 0);
    EXPECT_FALSE(IsWindow(pageWindow));
    EXPECT_EQ(stores, 1) << "the page stored its values as it closed";
    EXPECT_EQ(g_app.currentPage, nullptr);
    EXPECT_EQ(Title(), L"QL Options");
    EXPECT_TRUE(IsWindow(window_)) << "the first Done only closes the page";
    PumpMessages();
    EXPECT_EQ(BroadcastListener::received, 0);

    g_settings.general.GoofyMode.set(1);
    g_settings.calendar.dNumOfDays.set(7);  // equal to its default: deleted, not written
    SendMessageW(window_, WM_COMMAND, kCommandDone, 0);
    EXPECT_FALSE(IsWindow(window_));
    PumpMessages();
    EXPECT_EQ(BroadcastListener::received, 1);
    EXPECT_EQ(BroadcastListener::lastW, 0u);
    EXPECT_EQ(BroadcastListener::lastL, 0);
    EXPECT_EQ(ValueNames(kProduct), std::set<std::wstring>{L"GoofyMode"});
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kProduct, L"GoofyMode", 1);
    EXPECT_TRUE(ValueNames(L"Software\\Orvane\\Quillory\\Calendar").empty());
}

TEST_F(MainWindow, CancelAsksAndNoLeavesEverythingYesWritesNothing) {
    Create();
    BroadcastListener listener;
    ProbePage* page = OpenProbePage();
    g_settings.general.GoofyMode.set(1);
    {
        DialogAnswerer answer(IDNO);
        SendMessageW(window_, WM_COMMAND, kCommandCancel, 0);
        ASSERT_TRUE(answer.Wait());
        EXPECT_EQ(answer.caption(), LoadEnglish(40217));
        EXPECT_EQ(answer.text(), LoadEnglish(40216));
    }
    EXPECT_TRUE(IsWindow(window_));
    EXPECT_EQ(g_app.currentPage, page);
    EXPECT_TRUE(IsWindow(page->window()));
    EXPECT_EQ(Title(), L"Probe");

    SendMessageW(window_, WM_COMMAND, 31337, 0);  // unknown commands are ignored
    EXPECT_TRUE(IsWindow(window_));

    {
        DialogAnswerer answer(IDYES);
        SendMessageW(window_, WM_COMMAND, kCommandCancel, 0);
        ASSERT_TRUE(answer.Wait());
    }
    EXPECT_FALSE(IsWindow(window_));
    PumpMessages();
    EXPECT_EQ(BroadcastListener::received, 0);
    EXPECT_TRUE(ValueNames(kProduct).empty()) << "Cancel saves nothing";
    delete g_app.currentPage;  // the program would end here with the page still open
    g_app.currentPage = nullptr;
}

TEST_F(MainWindow, EnterOnAFocusedIconOpensItsPageAsATapDoes) {
    Create();
    HWND list = g_app.pageList;
    LVITEMW focus = {};
    focus.stateMask = focus.state = LVIS_FOCUSED | LVIS_SELECTED;
    SendMessageW(list, LVM_SETITEMSTATE, 0, reinterpret_cast<LPARAM>(&focus));
    SetFocus(list);
    SendMessageW(list, WM_KEYDOWN, VK_RETURN, 0);
    SendMessageW(list, WM_KEYUP, VK_RETURN, 0);
    ASSERT_NE(g_app.currentPage, nullptr) << "Enter opened the focused page";
    EXPECT_TRUE(IsWindowVisible(g_app.currentPage->window()));
    EXPECT_EQ(Title(), L"General");

    SendMessageW(window_, kClosePageMessage, 0, 0);
    EXPECT_EQ(g_app.currentPage, nullptr);
    EXPECT_EQ(Title(), L"QL Options");
}

struct ScaleCase {
    int pixelsPerInch;
    bool vga;
    int scaled12;
    const wchar_t* library;
};

TEST_F(MainWindow, ScalingAndDisplayLibraryFollowTheScreen) {
    const ScaleCase cases[] = {
        {96, false, 12, L"LowDpiRes.dll"},
        {130, false, 16, L"LowDpiRes.dll"},  // ScaleForDisplay(1) is still 1
        {192, false, 24, L"HighDpiRes.dll"},
        {96, true, 24, L"HighDpiRes.dll"},  // VGA mode doubles whatever the screen
    };
    for (const ScaleCase& c : cases) {
        SCOPED_TRACE(c.pixelsPerInch);
        SCOPED_TRACE(c.vga);
        RegRemoveTree(HKEY_CURRENT_USER, kProduct);
        if (c.vga) RegPutDword(HKEY_CURRENT_USER, kProduct, L"MyVgaMode", 1);
        g_app = AppState();
        g_app.instance = GetModuleHandleW(nullptr);
        Create(c.pixelsPerInch);
        EXPECT_EQ(ScaleForDisplay(12), c.scaled12);
        EXPECT_EQ(ScaleForDisplay(-2), -ScaleForDisplay(2));
        LOGFONTW font = {};
        GetObjectW(g_app.normalFont, sizeof font, &font);
        EXPECT_EQ(font.lfHeight, c.scaled12);
        wchar_t path[MAX_PATH] = {};
        ASSERT_NE(g_app.displayLibrary, nullptr);
        GetModuleFileNameW(g_app.displayLibrary, path, MAX_PATH);
        std::wstring loaded = path;
        EXPECT_EQ(loaded.substr(loaded.find_last_of(L'\\') + 1), c.library);
        DestroyWindow(window_);
        PumpMessages();
    }
    g_app.vgaMode = false;
    g_app.pixelsPerInchX = 192;
    EXPECT_EQ(ScaleForDisplay(-2), -4);
}

}  // namespace
