// The real program, started as a user starts it: the Calendar page picked in the grid, every
// section shown with the section tabs' arrow keys, an option of a list changed in its detail area,
// OK, then Done writes exactly the changed values.
#include "common/test_support.h"
#include "e2e/program_process.h"
#include "files/files_test_support.h"

namespace {

const wchar_t kProduct[] = L"Software\\Orvane\\Quillory";
HWND PageControl(HWND page, int number) { return GetDlgItem(page, 0x1000 + number); }

TEST(CalendarProgram, EverySectionShowsAndDoneWritesExactlyTheChanges) {
    RegRemoveTree(HKEY_CURRENT_USER, kProduct);
    ProgramProcess program;
    HWND main = WaitForTopWindow(L"QL_OPTIONS", L"QL Options");
    ASSERT_TRUE(main && WaitForVisible(main));
    Sleep(600);
    HWND grid = FindWindowExW(main, nullptr, L"SysListView32", nullptr);
    PostMessageW(grid, WM_CHAR, L'c', 1);
    PostMessageW(grid, WM_KEYDOWN, VK_RETURN, 0);
    HWND page = WaitForTopWindow(L"CalendarSettingsWin", L"CalendarSettingsWin");
    ASSERT_TRUE(page && WaitForVisible(page));

    SendMessageW(PageControl(page, 1), CB_SETCURSEL, 13, 0);  // 14 days
    SendMessageW(PageControl(page, 8), BM_CLICK, 0, 0);       // special events shown
    HWND tabs = FindWindowExW(page, nullptr, L"SysTabControl32", nullptr);
    const int kShownBySection[8] = {1, 10, 11, 12, 28, 13, 14, 15};
    for (int section = 1; section < 8; ++section) {
        SendMessageW(tabs, WM_KEYDOWN, VK_RIGHT, 0);
        EXPECT_TRUE(IsWindowVisible(PageControl(page, kShownBySection[section]))) << section;
        EXPECT_FALSE(IsWindowVisible(PageControl(page, kShownBySection[section - 1]))) << section;
        if (section != 2) continue;
        SendMessageW(PageControl(page, 11), WM_KEYDOWN, VK_DOWN, 0);  // the first task option
        HWND check = PageControl(page, 19);
        ASSERT_TRUE(IsWindowVisible(check));
        SendMessageW(check, BM_CLICK, 0, 0);  // tasks in the calendar: off
    }
    PostMessageW(page, WM_COMMAND, IDOK, 0);
    ASSERT_TRUE(WaitForGone(page));
    EXPECT_TRUE(WithoutEmptyKeys(Snapshot(HKEY_CURRENT_USER, kProduct)).empty()) << "nothing before Done";

    PostMessageW(main, WM_COMMAND, 1, 0);
    EXPECT_EQ(program.WaitExit(15000), 0);
    auto dword = [](DWORD value) { return RegValueData{REG_DWORD, std::string(reinterpret_cast<char*>(&value), 4)}; };
    RegSnapshot expected = {{std::wstring(kProduct) + L"\\Calendar",
                             {{L"IncldTasksInCR", dword(0)}, {L"SEventsOnClr", dword(1)}, {L"dNumOfDays", dword(14)}}}};
    EXPECT_EQ(WithoutEmptyKeys(Snapshot(HKEY_CURRENT_USER, kProduct)), expected);
    RegRemoveTree(HKEY_CURRENT_USER, kProduct);
}

}  // namespace
