// The page framework driven through real windows: section tabs, control rows, section switching,
// closing order, and the icon marker strip.
#include <windows.h>
#include <commctrl.h>

#include <string>
#include <vector>

#include "common/test_support.h"
#include "support/app_state.h"
#include "shell/application.h"
#include "support/display_scale.h"
#include "shell/icon_marker_strip.h"
#include "shell/settings_page.h"
#include "ui/probe_page.h"

namespace {

// A plain top-level window standing in for the main window; counts close requests.
struct OwnerWindow {
    static int closeRequests;
    HWND window = nullptr;
    static LRESULT CALLBACK Proc(HWND w, UINT m, WPARAM wp, LPARAM lp) {
        if (m == kClosePageMessage) {
            ++closeRequests;
            return 0;
        }
        return DefWindowProcW(w, m, wp, lp);
    }
    OwnerWindow() {
        window = CreateWindowExW(0, TestWindowClass(L"ProbeOwner", Proc), L"owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                                 10, 10, 260, 340, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    }
    ~OwnerWindow() { DestroyWindow(window); }
};
int OwnerWindow::closeRequests = 0;

class PageFramework : public ::testing::Test {
protected:
    void SetUp() override {
        InitCommonControlsForProgram();
        g_app = AppState();
        g_app.instance = GetModuleHandleW(nullptr);
        g_app.pixelsPerInchX = g_app.pixelsPerInchY = 96;
        library_ = LoadLibraryW((TestBinDir() + L"\\QLEngRc.dll").c_str());
        g_app.languageLibrary = library_;
    }
    void TearDown() override {
        g_app.languageLibrary = nullptr;
        FreeLibrary(library_);
    }
    HWND Open(ProbePage* page) {
        HWND window = CreatePageWindow(page, owner_.window, L"ProbeSettingsWin", g_app.instance, nullptr, nullptr);
        PumpMessages();
        return window;
    }
    RECT ChildRect(HWND page, HWND child) {
        RECT r;
        GetWindowRect(child, &r);
        MapWindowPoints(nullptr, page, reinterpret_cast<POINT*>(&r), 2);
        return r;
    }
    OwnerWindow owner_;
    HMODULE library_ = nullptr;
};

TEST_F(PageFramework, BuildsTabsAndRowsWithTheirGeometry) {
    ProbePage page;
    HWND window = Open(&page);
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(page.window(), window);
    EXPECT_EQ(page.log, std::vector<std::string>{"show 0"}) << "the first section is shown at creation";

    HWND tabs = page.sectionTabs();
    ASSERT_NE(tabs, nullptr);
    EXPECT_TRUE(GetWindowLongW(tabs, GWL_STYLE) & TCS_BOTTOM);
    EXPECT_EQ(SendMessageW(tabs, TCM_GETITEMCOUNT, 0, 0), 2);
    wchar_t title[64] = {};
    TCITEMW item = {};
    item.mask = TCIF_TEXT;
    item.pszText = title;
    item.cchTextMax = 64;
    SendMessageW(tabs, TCM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    EXPECT_GT(wcslen(title), 0u) << "section titles come from the language library";

    RECT client;
    GetClientRect(window, &client);
    RECT tabRect = ChildRect(window, tabs);
    EXPECT_EQ(tabRect.left, -2);
    EXPECT_EQ(tabRect.top, client.bottom - 22 + 1);
    EXPECT_EQ(tabRect.right - tabRect.left, client.right + 2);

    int w = client.right;
    RECT label = ChildRect(window, page.control(0));
    RECT combo = ChildRect(window, page.control(1));
    EXPECT_EQ(label.left, 0);
    EXPECT_EQ(label.top, 8 + 3);
    EXPECT_EQ(label.right, w - 140);
    EXPECT_EQ(combo.left, w - 135);
    EXPECT_EQ(combo.top, 8);
    EXPECT_EQ(combo.right - combo.left, 125);
    EXPECT_EQ(SendMessageW(page.control(1), CB_GETCOUNT, 0, 0), 3);
    EXPECT_EQ(SendMessageW(page.control(1), CB_GETCURSEL, 0, 0), CB_ERR) << "a selection equal to the count selects nothing";
    EXPECT_EQ(SendMessageW(page.control(7), CB_GETCURSEL, 0, 0), 1);

    RECT check = ChildRect(window, page.control(2));
    EXPECT_EQ(check.top, 8 + 24) << "the row below advances by the combo row's height";
    EXPECT_EQ(SendMessageW(page.control(2), BM_GETCHECK, 0, 0), BST_CHECKED);

    RECT edit = ChildRect(window, page.control(3));
    RECT browse = ChildRect(window, page.control(5));
    EXPECT_EQ(edit.right - edit.left, w - 120);
    EXPECT_EQ(browse.left, w - 55);
    EXPECT_TRUE(GetWindowLongW(page.control(3), GWL_STYLE) & ES_READONLY);
    EXPECT_FALSE(IsWindowVisible(page.control(3))) << "section 1 starts hidden";
    EXPECT_TRUE(IsWindowVisible(page.control(1)));
    DestroyWindow(window);
}

TEST_F(PageFramework, SwitchingSectionsHidesTheOldBeforeShowingTheNew) {
    ProbePage page;
    HWND window = Open(&page);
    HWND tabs = page.sectionTabs();
    RECT second;
    SendMessageW(tabs, TCM_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&second));
    LPARAM at = MAKELPARAM((second.left + second.right) / 2, (second.top + second.bottom) / 2);
    SendMessageW(tabs, WM_LBUTTONDOWN, MK_LBUTTON, at);
    SendMessageW(tabs, WM_LBUTTONUP, 0, at);
    PumpMessages();
    EXPECT_EQ(page.log, (std::vector<std::string>{"show 0", "hide 0", "show 1"}));
    EXPECT_TRUE(IsWindowVisible(page.control(3)));
    EXPECT_FALSE(IsWindowVisible(page.control(1)));
    DestroyWindow(window);
}

TEST_F(PageFramework, ClosingStoresValuesBeforeControlsGoAndOkAsksTheOwner) {
    ProbePage page;
    HWND window = Open(&page);
    SendMessageW(page.control(2), BM_CLICK, 0, 0);  // a real click unchecks the box
    SendMessageW(page.control(1), CB_SETCURSEL, 2, 0);
    EXPECT_EQ(page.lastCommandControl, 2) << "commands name the control by its number";

    int before = OwnerWindow::closeRequests;
    SendMessageW(window, WM_COMMAND, IDOK, 0);
    EXPECT_EQ(OwnerWindow::closeRequests, before + 1) << "OK asks the owner to close the page";
    EXPECT_TRUE(IsWindow(window)) << "the owner, not the page, closes it";

    HWND checkBox = page.control(2);
    DestroyWindow(window);
    EXPECT_TRUE(page.storedWhileControlsAlive);
    EXPECT_FALSE(page.storedCheck);
    EXPECT_EQ(page.storedSelection, 2);
    EXPECT_FALSE(IsWindow(checkBox));
    EXPECT_EQ(page.control(2), nullptr);
    EXPECT_EQ(page.sectionTabs(), nullptr);
}

TEST_F(PageFramework, PageWithoutSectionsHasNoTabsAndMoveOnlyNotifies) {
    ProbePage page;
    page.sections = 0;
    HWND window = Open(&page);
    EXPECT_EQ(page.sectionTabs(), nullptr);
    int moves = page.moves;
    SetWindowPos(window, nullptr, 30, 30, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    EXPECT_EQ(page.moves, moves + 1);
    DestroyWindow(window);
}

// ---- icon marker strip -------------------------------------------------------------------------

struct StripOwner {
    static std::vector<std::pair<UINT, WPARAM>> received;
    static LRESULT CALLBACK Proc(HWND w, UINT m, WPARAM wp, LPARAM lp) {
        if (m == kMarkerToggledMessage || m == kMarkerSelectedMessage) received.push_back({m, wp});
        return DefWindowProcW(w, m, wp, lp);
    }
};
std::vector<std::pair<UINT, WPARAM>> StripOwner::received;

TEST_F(PageFramework, MarkerStripTogglesAndChoosesAndTellsItsOwner) {
    HWND owner = CreateWindowExW(0, TestWindowClass(L"StripOwner", StripOwner::Proc), L"",
                                 WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 240, 200, nullptr, nullptr,
                                 GetModuleHandleW(nullptr), nullptr);
    IconMarkerStrip strip;
    ASSERT_NE(strip.Create(owner, 5, 10, 10, 120, false), nullptr);
    strip.AddMarker(L"note", 0, 3, kMarkerOff);
    strip.AddMarker(L"reminder", 1, 4, kMarkerOn);
    strip.AddMarker(L"private", 2, 6, kMarkerFixed);

    EXPECT_EQ(strip.HitTest(0), 0);
    EXPECT_EQ(strip.HitTest(15), 0);
    EXPECT_EQ(strip.HitTest(16), 1);
    EXPECT_EQ(strip.HitTest(48), -1) << "past the last marker";

    StripOwner::received.clear();
    SendMessageW(strip.window(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(20, 5));
    EXPECT_EQ(strip.stateAt(1), kMarkerOff);
    EXPECT_NE(strip.toolTip(), nullptr) << "the tapped marker is named in a tip";
    SendMessageW(strip.window(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(40, 5));
    EXPECT_EQ(strip.stateAt(2), kMarkerFixed) << "a fixed marker never changes";
    ASSERT_EQ(StripOwner::received.size(), 2u);
    EXPECT_EQ(StripOwner::received[0], (std::pair<UINT, WPARAM>{kMarkerToggledMessage, 5}));
    EXPECT_EQ(strip.OnSet(), (1u << 6));

    strip.ChooseMarker(3);
    EXPECT_EQ(strip.stateAt(0), kMarkerOff) << "the chosen marker is off";
    EXPECT_EQ(strip.stateAt(1), kMarkerOn) << "every other marker is on";
    EXPECT_EQ(StripOwner::received.back(), (std::pair<UINT, WPARAM>{kMarkerSelectedMessage, 3}));

    SendMessageW(strip.window(), WM_TIMER, kTipHideTimer, 0);
    EXPECT_EQ(strip.toolTip(), nullptr) << "the tip goes when its timer ends";
    DestroyWindow(owner);
}

}  // namespace
