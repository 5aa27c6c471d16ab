// The real program as its own process: single instance, the "About" start and Cancel's yes/no.
#include "common/dialog_answer.h"
#include "common/test_support.h"
#include "e2e/program_process.h"
#include "settings/settings_test_util.h"

namespace {

class ProgramTest : public ::testing::Test {
protected:
    void SetUp() override { RegRemoveTree(HKEY_CURRENT_USER, kProductPath); }
    void TearDown() override { RegRemoveTree(HKEY_CURRENT_USER, kProductPath); }
};

// Ends a running copy the way a user would: Cancel, then Yes.
void CancelAndConfirm(ProgramProcess& program, HWND main) {
    DialogAnswerer answer(IDYES, 15000, program.id());
    PostMessageW(main, WM_COMMAND, 2, 0);
    EXPECT_TRUE(answer.Wait());
    EXPECT_EQ(program.WaitExit(15000), 0);
}

bool WaitForeground(HWND window) {
    for (DWORD start = GetTickCount(); GetForegroundWindow() != window && GetTickCount() - start < 10000;) Sleep(50);
    return GetForegroundWindow() == window;
}

TEST_F(ProgramTest, SecondStartEndsAtOnceAndCancelYesDropsAChangedPage) {
    ProgramProcess first(L"About ");  // not the exact word: no About box
    HWND main = WaitForShown(L"QL_OPTIONS", L"QL Options");
    ASSERT_NE(main, nullptr);
    ProgramProcess second;
    EXPECT_EQ(second.WaitExit(20000), 0) << "the second copy ends at once with 0";
    HWND firstFound = FindWindowExW(nullptr, nullptr, L"QL_OPTIONS", nullptr);
    EXPECT_EQ(FindWindowExW(nullptr, firstFound, L"QL_OPTIONS", nullptr), nullptr) << "one main window";
    EXPECT_EQ(FindWindowW(nullptr, L"About Quillory"), nullptr);
    HWND page = OpenPage(main, L"m", L"MessagesSettingsWin");
    ASSERT_NE(page, nullptr);
    SendMessageW(PageControl(page, 2), BM_CLICK, 0, 0);  // a change, kept by the page's OK
    ASSERT_TRUE(PressOk(page));
    CancelAndConfirm(first, main);
    EXPECT_EQ(RegValueCountTree(HKEY_CURRENT_USER, kProductPath), 0u) << "Cancel and Yes write nothing";
}

TEST_F(ProgramTest, AboutOnTheCommandLineShowsTheAboutBoxBeforeTheMainWindow) {
    ProgramProcess program(L"About");
    HWND about = WaitForShown(nullptr, L"About Quillory");
    ASSERT_NE(about, nullptr);
    HWND main = FindWindowW(L"QL_OPTIONS", L"QL Options");
    ASSERT_NE(main, nullptr);
    EXPECT_EQ(GetWindow(about, GW_OWNER), main);
    EXPECT_TRUE(WaitForeground(about)) << "the About box comes up first";
    PostMessageW(about, WM_COMMAND, IDOK, 0);
    EXPECT_TRUE(WaitForeground(main)) << "the main window follows once the box is closed";
    CancelAndConfirm(program, main);
}

}  // namespace
