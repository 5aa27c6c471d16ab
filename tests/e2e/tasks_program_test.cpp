// The real program: a user opens the Tasks page from the grid, changes a row, a check box and the
// custom date, then leaves with OK and Done; exactly those values reach the registry.
#include "common/test_support.h"
#include "e2e/program_process.h"
#include "settings/settings_test_util.h"

namespace {

const wchar_t kProduct[] = L"Software\\Orvane\\Quillory";

TEST(TasksProgram, OkThenDoneWritesExactlyTheChangedValues) {
    RegRemoveTree(HKEY_CURRENT_USER, kProduct);
    ProgramProcess program;
    HWND main = WaitForTopWindow(L"QL_OPTIONS", L"QL Options");
    ASSERT_TRUE(main && WaitForVisible(main));
    Sleep(600);
    HWND grid = FindWindowExW(main, nullptr, L"SysListView32", nullptr);
    for (wchar_t letter : std::wstring(L"Tas")) PostMessageW(grid, WM_CHAR, letter, 1);
    PostMessageW(grid, WM_KEYDOWN, VK_RETURN, 0);
    HWND page = WaitForTopWindow(L"TasksSettingsWin", L"TasksSettingsWin");
    ASSERT_TRUE(page && WaitForVisible(page));
    auto control = [&](int number) { return GetDlgItem(page, 0x1000 + number); };

    SendMessageW(control(3), CB_SETCURSEL, 4, 0);      // tasks up to two weeks ahead
    SendMessageW(control(4), BM_CLICK, 0, 0);          // hide completed tasks
    SendMessageW(control(21), BM_CLICK, 0, 0);         // my own date format...
    SendMessageW(control(23), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"d MMM"));
    EXPECT_NE(IsWindowEnabled(control(23)), FALSE);
    PostMessageW(page, WM_COMMAND, IDOK, 0);
    ASSERT_TRUE(WaitForGone(page));
    PostMessageW(main, WM_COMMAND, 1, 0);
    EXPECT_EQ(program.WaitExit(15000), 0);

    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kTasksPath, L"TsksLimitFutureDate", 4);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kTasksPath, L"HideCompletedTasks", 1);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kTasksPath, L"UseCustomDateTsks", 1);
    EXPECT_REG_STRING(HKEY_CURRENT_USER, kTasksPath, L"CustomDateFrmtStart", L"d MMM");
    EXPECT_EQ(RegValueCountTree(HKEY_CURRENT_USER, kProduct), 4u) << "nothing else written";
    RegRemoveTree(HKEY_CURRENT_USER, kProduct);
}

}  // namespace
