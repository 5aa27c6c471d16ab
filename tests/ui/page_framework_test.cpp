#include <tuple>
#include <utility>

#include "common/test_support.h"
#include "shell/application.h"
#include "shell/icon_marker_strip.h"
#include "support/app_state.h"
#include "ui/probe_page.h"

namespace {

// Stands in for the main window or a page: records the messages a page or a strip sends it.
std::vector<std::pair<UINT, WPARAM>> g_received;
LRESULT CALLBACK OwnerProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == kClosePageMessage || message == kMarkerToggledMessage || message == kMarkerSelectedMessage)
        g_received.push_back({message, wParam});
    return DefWindowProcW(window, message, wParam, lParam);
}

class PageFramework : public ::testing::Test {
protected:
    void SetUp() override {
        InitCommonControlsForProgram();
        g_app = AppState();
        g_app.instance = GetModuleHandleW(nullptr);
        g_app.pixelsPerInchX = g_app.pixelsPerInchY = 96;
        owner_ = CreateWindowExW(0, TestWindowClass(L"ProbeOwner", OwnerProc), L"owner",
                                 WS_OVERLAPPEDWINDOW | WS_VISIBLE, 10, 10, 260, 340, nullptr, nullptr, g_app.instance,
                                 nullptr);
        g_received.clear();
    }
    void TearDown() override { DestroyWindow(owner_); }
    HWND Open(ProbePage* page) {
        return CreatePageWindow(page, owner_, L"ProbeSettingsWin", g_app.instance, nullptr, nullptr);
    }
    HWND owner_ = nullptr;
};

TEST_F(PageFramework, RowsTabsSectionSwitchingAndClosingInOrder) {
    ProbePage page;
    HWND window = Open(&page);
    HWND tabs = page.sectionTabs();
    ASSERT_TRUE(window && page.window() == window && tabs);
    EXPECT_EQ(SendMessageW(tabs, TCM_GETITEMCOUNT, 0, 0), 2);
    EXPECT_EQ(SendMessageW(page.control(1), CB_GETCOUNT, 0, 0), 3);
    EXPECT_EQ(std::make_tuple(page.Selection(1), page.Selection(7), page.IsChecked(2)), std::make_tuple(-1, 1, true))
        << "a selection equal to the count selects nothing";
    EXPECT_TRUE(IsWindowVisible(page.control(1)) && !IsWindowVisible(page.control(3)));

    RECT second;
    SendMessageW(tabs, TCM_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&second));
    LPARAM at = MAKELPARAM((second.left + second.right) / 2, (second.top + second.bottom) / 2);
    SendMessageW(tabs, WM_LBUTTONDOWN, MK_LBUTTON, at);
    SendMessageW(tabs, WM_LBUTTONUP, 0, at);
    EXPECT_EQ(page.log, (std::vector<std::string>{"show 0", "hide 0", "show 1"}));
    EXPECT_TRUE(IsWindowVisible(page.control(3)) && !IsWindowVisible(page.control(1)));

    SendMessageW(page.control(2), BM_CLICK, 0, 0);
    EXPECT_EQ(page.lastCommandControl, 2) << "commands name the control by its number";
    SendMessageW(page.control(1), CB_SETCURSEL, 2, 0);
    SendMessageW(window, WM_COMMAND, IDOK, 0);
    EXPECT_EQ(g_received, (std::vector<std::pair<UINT, WPARAM>>{{kClosePageMessage, 0}})) << "OK asks the owner";
    EXPECT_TRUE(IsWindow(window)) << "the owner, not the page, closes it";
    DestroyWindow(window);
    EXPECT_EQ(page.log.back(), "store 1 0 2") << "stored before the controls went";
    EXPECT_TRUE(page.control(2) == nullptr && page.sectionTabs() == nullptr);
}

TEST_F(PageFramework, MarkerStripTogglesAndChoosesAndTellsItsOwner) {
    IconMarkerStrip strip;
    ASSERT_NE(strip.Create(owner_, 5, 10, 10, 120, false), nullptr);
    strip.AddMarker(L"note", 0, 3, kMarkerOff);
    strip.AddMarker(L"reminder", 1, 4, kMarkerOn);
    strip.AddMarker(L"private", 2, 6, kMarkerFixed);
    EXPECT_EQ((std::vector<int>{strip.HitTest(15), strip.HitTest(16), strip.HitTest(47), strip.HitTest(48)}),
              (std::vector<int>{0, 1, 2, -1}));

    SendMessageW(strip.window(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(20, 5));
    EXPECT_EQ(strip.stateAt(1), kMarkerOff);
    SendMessageW(strip.window(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(40, 5));
    EXPECT_EQ(strip.stateAt(2), kMarkerFixed) << "a fixed marker never changes";
    EXPECT_EQ(strip.OnSet(), 1u << 6);
    strip.ChooseMarker(3);
    EXPECT_EQ(std::make_pair(strip.stateAt(0), strip.stateAt(1)), std::make_pair(kMarkerOff, kMarkerOn))
        << "the chosen marker off, every other on";
    EXPECT_EQ(g_received, (std::vector<std::pair<UINT, WPARAM>>{
                              {kMarkerToggledMessage, 5}, {kMarkerToggledMessage, 5}, {kMarkerSelectedMessage, 3}}));
}

}  // namespace
