// The real program, started as a user starts it: the Messages, Special events and PIM pages are
// picked in the page grid with the keyboard, changed, left with OK, and Done writes exactly the
// values that changed.
#include "common/test_support.h"
#include "e2e/program_process.h"
#include "files/files_test_support.h"

namespace {

const wchar_t kProduct[] = L"Software\\Orvane\\Quillory";
const wchar_t kAgendaFusion[] = L"SOFTWARE\\Developer One, Inc.\\Agenda Fusion";

// Picks a page in the grid: its title's first letter (repeat count 1, as a key press gives), then
// Enter. The grid's type-ahead joins letters typed within half a second, hence the pause.
HWND OpenPage(HWND main, wchar_t letter, const wchar_t* className) {
    Sleep(600);
    HWND grid = FindWindowExW(main, nullptr, L"SysListView32", nullptr);
    PostMessageW(grid, WM_CHAR, letter, 1);
    PostMessageW(grid, WM_KEYDOWN, VK_RETURN, 0);
    HWND page = WaitForTopWindow(className, className);
    return page && WaitForVisible(page) ? page : nullptr;
}

HWND PageControl(HWND page, int number) { return GetDlgItem(page, 0x1000 + number); }

// The title bar's OK: the page stores its values and closes.
bool PressOk(HWND page) {
    PostMessageW(page, WM_COMMAND, IDOK, 0);
    return WaitForGone(page);
}

TEST(PagesProgram, ThreePagesChangedThenDoneWritesExactlyTheirChanges) {
    RegRemoveTree(HKEY_CURRENT_USER, kProduct);
    RegPutDword(HKEY_LOCAL_MACHINE, kAgendaFusion, L"VerMajor", 3);
    ProgramProcess program;
    HWND main = WaitForTopWindow(L"QL_OPTIONS", L"QL Options");
    ASSERT_TRUE(main && WaitForVisible(main));

    HWND messages = OpenPage(main, L'm', L"MessagesSettingsWin");
    ASSERT_NE(messages, nullptr);
    SendMessageW(PageControl(messages, 2), BM_CLICK, 0, 0);  // a tap opens the item
    ASSERT_TRUE(PressOk(messages));
    HWND events = OpenPage(main, L's', L"SEventsSettingsWin");
    ASSERT_NE(events, nullptr);
    SendMessageW(PageControl(events, 1), CB_SETCURSEL, 0, 0);  // events of the next week
    ASSERT_TRUE(PressOk(events));
    HWND pim = OpenPage(main, L'p', L"PIMSettingsWin");
    ASSERT_NE(pim, nullptr);
    HWND software = PageControl(pim, 1);
    ASSERT_EQ(SendMessageW(software, CB_GETCOUNT, 0, 0), 2);
    SendMessageW(software, CB_SETCURSEL, 1, 0);  // Agenda Fusion
    SendMessageW(pim, WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(software), CBN_SELENDOK), reinterpret_cast<LPARAM>(software));
    ASSERT_TRUE(PressOk(pim));
    EXPECT_TRUE(WithoutEmptyKeys(Snapshot(HKEY_CURRENT_USER, kProduct)).empty()) << "nothing before Done";

    PostMessageW(main, WM_COMMAND, 1, 0);
    EXPECT_EQ(program.WaitExit(15000), 0);
    auto dword = [](DWORD value) { return RegValueData{REG_DWORD, std::string(reinterpret_cast<char*>(&value), 4)}; };
    RegSnapshot expected = {{std::wstring(kProduct) + L"\\Messages", {{L"MsgsOpenOnClick", dword(1)}}},
                            {std::wstring(kProduct) + L"\\SEvents", {{L"SEventDays", dword(0)}}},
                            {std::wstring(kProduct) + L"\\CustomPIM", {{L"PimSw", dword(2)}}}};
    EXPECT_EQ(WithoutEmptyKeys(Snapshot(HKEY_CURRENT_USER, kProduct)), expected);
    RegRemoveTree(HKEY_CURRENT_USER, kProduct);
    RegRemoveTree(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Developer One, Inc.");
}

}  // namespace
