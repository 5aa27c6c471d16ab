// The real program, started as a user starts it: on the Categories page one category gets a colour
// from the colour picker and every category goes into the first filter, whose flag is changed;
// Done writes the colour and the masks to the registry and the filter into QLFilters.txt.
#include "common/test_support.h"
#include "e2e/program_process.h"

namespace {

const wchar_t kProduct[] = L"Software\\Orvane\\Quillory";
const wchar_t kLook[] = L"Software\\Orvane\\Quillory\\Categories";
const wchar_t kDatabase[] = L"C:\\Windows\\Categories Database.cedb";
const wchar_t kFiltersFile[] = L"C:\\Program Files\\Orvane\\Quillory\\QLFilters.txt";
enum { kCategoryList = 1, kColour = 3, kVisible = 7, kCheckAll = 11 };
const int kPaletteFF6633 = 27;

HWND Control(HWND page, int number) { return GetDlgItem(page, 0x1000 + number); }
void Key(HWND window, WPARAM key) { PostMessageW(window, WM_KEYDOWN, key, 1); }

std::wstring Utf16Text(const std::string& bytes) {
    std::wstring text;
    for (size_t i = 0; i + 1 < bytes.size(); i += 2) text += static_cast<wchar_t>((bytes[i] & 0xFF) | (bytes[i + 1] << 8));
    return text;
}

TEST(CategoriesProgramTest, AColourAndAFilterChangeReachTheRegistryAndTheFiltersFileOnDone) {
    std::string database = ReadBytes(kDatabase);  // the prefix's own, put back afterwards
    WriteBytes(kDatabase, "4001001F=Work\t40020002=1\n4001001F=Home\t40020002=2\n");
    RegRemoveTree(HKEY_CURRENT_USER, kProduct);
    DeleteFileW(kFiltersFile);
    RegPutDword(HKEY_CURRENT_USER, kProduct, L"FilterMethodToUse", 1);
    ProgramProcess program;
    HWND main = WaitForTopWindow(L"QL_OPTIONS", L"QL Options");
    ASSERT_TRUE(main && WaitForVisible(main));
    Sleep(600);
    HWND grid = FindWindowExW(main, nullptr, L"SysListView32", nullptr);
    for (wchar_t letter : {L'c', L'a', L't'}) PostMessageW(grid, WM_CHAR, letter, 1);
    Key(grid, VK_RETURN);
    HWND page = WaitForTopWindow(L"CategorySettingsWin", L"CategorySettingsWin");
    ASSERT_TRUE(page && WaitForVisible(page));
    HWND sections = FindWindowExW(page, nullptr, L"SysTabControl32", nullptr);

    Key(sections, VK_RIGHT);  // the categories: Home is the first row
    Key(Control(page, kCategoryList), VK_HOME);
    PostMessageW(Control(page, kColour), BM_CLICK, 0, 0);
    HWND picker = WaitForTopWindow(L"#32770", L"Color");
    ASSERT_NE(picker, nullptr);
    SendMessageW(picker, WM_COMMAND, 1024, 0);  // the palette
    SendMessageW(GetDlgItem(picker, kPaletteFF6633), BM_CLICK, 0, 0);
    PostMessageW(picker, WM_COMMAND, IDOK, 0);
    ASSERT_TRUE(WaitForGone(picker));

    Key(sections, VK_RIGHT);  // the filters, at entry 0: with the default filters, "Filter 2"
    PostMessageW(Control(page, kCheckAll), BM_CLICK, 0, 0);
    PostMessageW(Control(page, kVisible), BM_CLICK, 0, 0);
    PostMessageW(main, WM_COMMAND, 1, 0);  // Done: the grid is back
    PostMessageW(main, WM_COMMAND, 1, 0);  // Done: save and leave
    EXPECT_EQ(program.WaitExit(15000), 0);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kLook, L"CatColor.Home", RGB(0xFF, 0x66, 0x33));
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kLook, L"CatColor.Work");
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kLook, L"CatFilter.Home", 1);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kLook, L"CatFilter.Work", 1);
    std::wstring filters = Utf16Text(ReadBytes(kFiltersFile));
    EXPECT_NE(filters.find(L"[FILTER1]\r\n\"Title\"=\"Filter 2\"\r\n\"Sensitivity\"=dword:0\r\n\"Visible\"=dword:0\r\n"),
              std::wstring::npos);
    EXPECT_NE(filters.find(L"[FILTER31]\r\n\"Title\"=\"Filter 32\""), std::wstring::npos);

    if (database.empty()) DeleteFileW(kDatabase);
    else WriteBytes(kDatabase, database);
    DeleteFileW(kFiltersFile);
    RegRemoveTree(HKEY_CURRENT_USER, kProduct);
}

}  // namespace
