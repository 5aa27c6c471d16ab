// The real program started as its own process: single instance, the "About" start, Done's
// broadcast and Cancel's yes/no.
#include <set>
#include <string>

#include "common/dialog_answer.h"
#include "common/test_support.h"
#include "e2e/program_process.h"
#include "settings/settings_test_util.h"

namespace {

const wchar_t kProduct[] = L"Software\\Orvane\\Quillory";

using Program = ProgramProcess;

int CountMainWindows() {
    int count = 0;
    HWND window = nullptr;
    while ((window = FindWindowExW(nullptr, window, L"QL_OPTIONS", nullptr)) != nullptr) ++count;
    return count;
}

bool ProductKeyHasValues() {
    HKEY key;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, kProduct, 0, KEY_READ, &key) != ERROR_SUCCESS) return false;
    DWORD values = 0, subKeys = 0;
    RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, &subKeys, nullptr, nullptr, &values, nullptr, nullptr, nullptr,
                     nullptr);
    RegCloseKey(key);
    return values != 0;
}

class ProgramTest : public ::testing::Test {
protected:
    void SetUp() override { RegRemoveTree(HKEY_CURRENT_USER, kProduct); }
    void TearDown() override { RegRemoveTree(HKEY_CURRENT_USER, kProduct); }
};

// Ends a running copy the way a user would: Cancel, then Yes.
void CancelAndConfirm(Program& program, HWND main) {
    DialogAnswerer answer(IDYES, 15000, program.id());
    PostMessageW(main, WM_COMMAND, 2, 0);
    EXPECT_TRUE(answer.Wait());
    EXPECT_EQ(program.WaitExit(15000), 0);
}

TEST_F(ProgramTest, SecondStartBringsTheFirstForwardAndCancelYesWritesNothing) {
    Program first;
    ASSERT_TRUE(first.started());
    HWND main = WaitForTopWindow(L"QL_OPTIONS", L"QL Options");
    ASSERT_NE(main, nullptr);
    ASSERT_TRUE(WaitForVisible(main));

    Program second;
    ASSERT_TRUE(second.started());
    EXPECT_EQ(second.WaitExit(20000), 0) << "the second copy ends at once with 0";
    EXPECT_EQ(CountMainWindows(), 1);

    CancelAndConfirm(first, main);
    EXPECT_FALSE(ProductKeyHasValues()) << "Cancel and Yes write nothing";
}

TEST_F(ProgramTest, AboutOnTheCommandLineShowsTheAboutBoxBeforeTheMainWindow) {
    Program program(L"About");
    ASSERT_TRUE(program.started());
    HWND about = WaitForTopWindow(nullptr, L"About Quillory");
    ASSERT_NE(about, nullptr);
    HWND main = FindWindowW(L"QL_OPTIONS", L"QL Options");
    ASSERT_NE(main, nullptr) << "the main window exists";
    EXPECT_EQ(GetWindow(about, GW_OWNER), main);
    // The box exists a moment before the system has made it active.
    DWORD start = GetTickCount();
    while (GetForegroundWindow() != about && GetTickCount() - start < 10000) Sleep(50);
    EXPECT_EQ(GetForegroundWindow(), about) << "the About box comes up before the main window";

    PostMessageW(about, WM_COMMAND, IDOK, 0);
    start = GetTickCount();
    while (GetForegroundWindow() != main && GetTickCount() - start < 10000) Sleep(50);
    EXPECT_EQ(GetForegroundWindow(), main) << "the main window follows once the box is closed";
    CancelAndConfirm(program, main);
}

TEST_F(ProgramTest, OnlyTheExactWordAboutOpensTheAboutBox) {
    for (const wchar_t* arguments : {L"about", L"About "}) {
        SCOPED_TRACE(arguments);
        Program program(arguments);
        ASSERT_TRUE(program.started());
        HWND main = WaitForTopWindow(L"QL_OPTIONS", L"QL Options");
        ASSERT_NE(main, nullptr);
        EXPECT_TRUE(WaitForVisible(main));
        EXPECT_EQ(FindWindowW(nullptr, L"About Quillory"), nullptr);
        CancelAndConfirm(program, main);
    }
}

// A hidden top-level window of the test, listening for the program's broadcast.
UINT g_changedMessage = 0;
int g_received = 0;
WPARAM g_wParam = 1;
LPARAM g_lParam = 1;

LRESULT CALLBACK ListenerProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == g_changedMessage && message != 0) {
        ++g_received;
        g_wParam = wParam;
        g_lParam = lParam;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

TEST_F(ProgramTest, DonePostsTheChangeMessageToAllWindowsAndExits) {
    g_changedMessage = RegisterWindowMessageW(L"OrvaneQuillorySettingsChanged");
    HWND listener = CreateWindowExW(0, TestWindowClass(L"ChangeListener", ListenerProc), L"", WS_POPUP, 0, 0, 1, 1,
                                    nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);

    Program program;
    HWND main = WaitForTopWindow(L"QL_OPTIONS", L"QL Options");
    ASSERT_NE(main, nullptr);
    ASSERT_TRUE(WaitForVisible(main));
    PostMessageW(main, WM_COMMAND, 1, 0);
    EXPECT_EQ(program.WaitExit(15000), 0);

    DWORD start = GetTickCount();
    while (g_received == 0 && GetTickCount() - start < 5000) {
        PumpMessages();
        Sleep(20);
    }
    EXPECT_EQ(g_received, 1);
    EXPECT_EQ(g_wParam, 0u);
    EXPECT_EQ(g_lParam, 0);
    EXPECT_FALSE(ProductKeyHasValues()) << "nothing was changed, so nothing is written";
    DestroyWindow(listener);
}

// A user types the first letters of "Fonts" on the page grid and presses Enter, changes two
// options, leaves the page with its OK and then the program with Done.
TEST_F(ProgramTest, FontsPageChangesReachTheRegistryOnDoneAndNowhereElse) {
    const wchar_t fonts[] = L"Software\\Orvane\\Quillory\\Fonts";
    const int controlIdBase = 0x1000, titleSizeCombo = 3, advancedCheck = 4;
    Program program;
    HWND main = WaitForTopWindow(L"QL_OPTIONS", L"QL Options");
    ASSERT_NE(main, nullptr);
    ASSERT_TRUE(WaitForVisible(main));
    HWND grid = FindWindowExW(main, nullptr, L"SysListView32", nullptr);
    ASSERT_NE(grid, nullptr);
    PostMessageW(grid, WM_CHAR, L'F', 1);  // lParam: a repeat count of 1
    PostMessageW(grid, WM_CHAR, L'o', 1);
    PostMessageW(grid, WM_KEYDOWN, VK_RETURN, 1);
    HWND page = WaitForTopWindow(L"FontSettingsWin", nullptr);
    ASSERT_NE(page, nullptr);
    ASSERT_TRUE(WaitForVisible(page));

    SendMessageW(GetDlgItem(page, controlIdBase + titleSizeCombo), CB_SETCURSEL, 8, 0);  // "18"
    SendMessageW(GetDlgItem(page, controlIdBase + advancedCheck), BM_CLICK, 0, 0);
    PostMessageW(page, WM_COMMAND, IDOK, 0);
    DWORD start = GetTickCount();
    while (IsWindow(page) && GetTickCount() - start < 10000) Sleep(50);
    EXPECT_FALSE(IsWindow(page)) << "the page's OK closes it";
    EXPECT_FALSE(RegValueExists(HKEY_CURRENT_USER, fonts, L"FontGnrlUseAdvncd")) << "not before Done";

    PostMessageW(main, WM_COMMAND, 1, 0);
    EXPECT_EQ(program.WaitExit(15000), 0);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, fonts, L"FontGnrlUseAdvncd", 1);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, fonts, L"FontGnrlTitlesSize", 18);
    EXPECT_EQ(RegValueCountTree(HKEY_CURRENT_USER, kProduct), 2u) << "nothing else is written";
}

}  // namespace
