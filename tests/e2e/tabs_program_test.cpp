// The real program: a user opens the Tabs page from the grid, hides a tab, moves one, removes a
// plug-in tab and adds a Today plug-in, then leaves with OK and Done; TabSettings is rebuilt.
#include <string>

#include "common/test_support.h"
#include "e2e/program_process.h"

namespace {

const std::wstring kTabs = L"Software\\Orvane\\Quillory\\TabSettings";
const std::wstring kWeather = L"SOFTWARE\\Microsoft\\Today\\Items\\Weather";

HWND WaitFor(const wchar_t* className, const wchar_t* title) {
    HWND window = WaitForTopWindow(className, title);
    return window && WaitForVisible(window) ? window : nullptr;
}

void Key(HWND window, UINT key) { PostMessageW(window, WM_KEYDOWN, key, 0); }

TEST(TabsProgram, HiddenMovedRemovedAndAddedTabsReachTabSettingsOnDone) {
    RegRemoveTree(HKEY_CURRENT_USER, L"Software\\Orvane\\Quillory");
    RegPutDword(HKEY_CURRENT_USER, (kTabs + L"\\OldNews").c_str(), L"Order", 7);
    RegPutDword(HKEY_CURRENT_USER, (kTabs + L"\\OldNews").c_str(), L"Type", 1);
    RegPutDword(HKEY_CURRENT_USER, (kTabs + L"\\OldNews").c_str(), L"Enabled", 1);
    RegPutString(HKEY_CURRENT_USER, (kTabs + L"\\OldNews").c_str(), L"DLL", L"old.dll");
    RegPutDword(HKEY_CURRENT_USER, (kTabs + L"\\OldNews").c_str(), L"Extra", 5);  // lost when rebuilt
    RegPutDword(HKEY_CURRENT_USER, (kTabs + L"\\Stale").c_str(), L"Order", 8);
    RegPutDword(HKEY_CURRENT_USER, (kTabs + L"\\Stale").c_str(), L"Type", 1);
    RegPutDword(HKEY_CURRENT_USER, (kTabs + L"\\Contacts").c_str(), L"Kept", 5);
    RegPutDword(HKEY_LOCAL_MACHINE, kWeather.c_str(), L"Type", 4);
    RegPutString(HKEY_LOCAL_MACHINE, kWeather.c_str(), L"DLL", L"weather.dll");

    ProgramProcess program;
    ASSERT_TRUE(program.started());
    HWND main = WaitFor(L"QL_OPTIONS", L"QL Options");
    ASSERT_NE(main, nullptr);
    HWND grid = FindWindowExW(main, nullptr, L"SysListView32", nullptr);
    for (wchar_t letter : std::wstring(L"Tab")) PostMessageW(grid, WM_CHAR, letter, 1);  // a key press of count 1
    Key(grid, VK_RETURN);
    HWND page = WaitFor(L"TabsSettingsWin", nullptr);
    ASSERT_NE(page, nullptr);
    auto control = [&](int number) { return GetDlgItem(page, 0x1000 + number); };
    const int list = 0, down = 2, add = 3, remove = 4;

    Key(control(list), VK_HOME);   // Tasks, the first row
    Key(control(list), VK_SPACE);  // hidden
    PostMessageW(control(down), BM_CLICK, 0, 0);
    Key(control(list), VK_END);    // Stale, the last row
    PostMessageW(control(remove), BM_CLICK, 0, 0);
    PostMessageW(control(add), BM_CLICK, 0, 0);
    HWND chooser = WaitFor(L"#32770", L"Today Plug-in");
    ASSERT_NE(chooser, nullptr);
    PostMessageW(chooser, WM_COMMAND, IDOK, 0);
    HWND question = WaitFor(L"#32770", L"Add Tab");
    ASSERT_NE(question, nullptr);
    PostMessageW(question, WM_COMMAND, IDYES, 0);
    EXPECT_TRUE(WaitForGone(chooser));
    PostMessageW(page, WM_COMMAND, IDOK, 0);
    EXPECT_TRUE(WaitForGone(page));
    EXPECT_FALSE(RegValueExists(HKEY_CURRENT_USER, kTabs.c_str(), L"TasksTabEnabled")) << "not before Done";
    PostMessageW(main, WM_COMMAND, 1, 0);
    EXPECT_EQ(program.WaitExit(15000), 0);

    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kTabs.c_str(), L"TasksTabEnabled", 0);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kTabs.c_str(), L"NotesTabOrder", 2);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kTabs.c_str(), L"TasksTabOrder", 3);
    for (const wchar_t* name : {L"CalendarTabOrder", L"ContactsTabOrder", L"SEventsTabEnabled"})
        EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kTabs.c_str(), name) << "equal to its default";
    const std::pair<std::wstring, std::pair<DWORD, const wchar_t*>> plugIns[] = {{L"OldNews", {7, L"old.dll"}},
                                                                                 {L"Weather", {8, L"weather.dll"}}};
    for (const auto& plugIn : plugIns) {
        std::wstring key = kTabs + L"\\" + plugIn.first;
        EXPECT_REG_DWORD(HKEY_CURRENT_USER, key.c_str(), L"Order", plugIn.second.first);
        EXPECT_REG_DWORD(HKEY_CURRENT_USER, key.c_str(), L"Type", 1);
        EXPECT_REG_DWORD(HKEY_CURRENT_USER, key.c_str(), L"Enabled", 1);
        EXPECT_REG_STRING(HKEY_CURRENT_USER, key.c_str(), L"DLL", plugIn.second.second);
    }
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, (kTabs + L"\\OldNews").c_str(), L"Extra");
    EXPECT_FALSE(RegKeyExists(HKEY_CURRENT_USER, (kTabs + L"\\Stale").c_str()));
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, (kTabs + L"\\Contacts").c_str(), L"Kept", 5);
    EXPECT_REG_DWORD(HKEY_LOCAL_MACHINE, kWeather.c_str(), L"Enabled", 0) << "confirmed with Yes";

    RegRemoveTree(HKEY_CURRENT_USER, L"Software\\Orvane\\Quillory");
    RegRemoveTree(HKEY_LOCAL_MACHINE, kWeather.c_str());
}

}  // namespace
