// The real program: pages picked in the grid with the keyboard, changed and left with OK; then Done
// writes exactly what changed, to the registry and the filters file.
#include <memory>

#include "common/test_support.h"
#include "e2e/program_process.h"
#include "files/files_test_support.h"
#include "settings/settings_test_util.h"

namespace {

const wchar_t kDatabase[] = L"C:\\Windows\\Categories Database.cedb";
const wchar_t kFiltersFile[] = L"C:\\Program Files\\Orvane\\Quillory\\QLFilters.txt";
const wchar_t kAlphabets[] = L"C:\\Program Files\\Orvane\\Quillory\\CustomAlphabets";
const std::wstring kProduct = kProductPath, kTabs = kTabsPath;
const std::wstring kWeather = L"SOFTWARE\\Microsoft\\Today\\Items\\Weather";

void Click(HWND button) { SendMessageW(button, BM_CLICK, 0, 0); }
void Key(HWND window, WPARAM key) { SendMessageW(window, WM_KEYDOWN, key, 1); }

class PagesProgram : public ::testing::Test {
protected:
    void SetUp() override {
        database_ = ReadBytes(kDatabase);  // the prefix's own, put back afterwards
        TearDown();
    }
    void TearDown() override {
        program_.reset();
        RemoveProductKeys();
        RegRemoveTree(HKEY_LOCAL_MACHINE, kWeather.c_str());
        if (database_.empty()) DeleteFileW(kDatabase);
        else WriteBytes(kDatabase, database_);
        DeleteFileW(kFiltersFile);
        RemoveTree(kAlphabets);
    }
    HWND Start() {
        program_.reset(new ProgramProcess);
        return main_ = WaitForShown(L"QL_OPTIONS", L"QL Options");
    }
    // Done on the grid: save and leave.
    long Done() { return PostMessageW(main_, WM_COMMAND, 1, 0) ? program_->WaitExit(15000) : -1; }
    std::string database_;
    std::unique_ptr<ProgramProcess> program_;
    HWND main_ = nullptr;
};

TEST_F(PagesProgram, PagesChangedThenDoneWritesExactlyTheirChangesAndTheFiltersFile) {
    WriteBytes(kDatabase, "4001001F=Work\t40020002=1\n4001001F=Home\t40020002=2\n");
    RegPutDword(HKEY_CURRENT_USER, kProductPath, L"FilterMethodToUse", 1);
    for (const auto& value : {std::make_pair(L"Order", 7), {L"Type", 1}, {L"Enabled", 1}})  // a tab added earlier
        RegPutDword(HKEY_CURRENT_USER, (kTabs + L"\\OldNews").c_str(), value.first, value.second);
    RegPutString(HKEY_CURRENT_USER, (kTabs + L"\\OldNews").c_str(), L"DLL", L"OldNews.dll");
    RegPutDword(HKEY_CURRENT_USER, (kTabs + L"\\Contacts").c_str(), L"Kept", 5);
    RegPutDword(HKEY_LOCAL_MACHINE, kWeather.c_str(), L"Type", 4);
    RegPutString(HKEY_LOCAL_MACHINE, kWeather.c_str(), L"DLL", L"weather.dll");
    CreateDirectoryW(kAlphabets, nullptr);
    WriteBytes(std::wstring(kAlphabets) + L"\\Thai.txt", Utf16Bytes(L"ABC"));
    RegSnapshot seeded = WithoutEmptyKeys(Snapshot(HKEY_CURRENT_USER, kProduct.c_str()));
    ASSERT_TRUE(Start());

    HWND page, picker, chooser, question, alphabets;
    ASSERT_TRUE(page = OpenPage(main_, L"c", L"CalendarSettingsWin"));
    SendMessageW(PageControl(page, 1), CB_SETCURSEL, 13, 0);  // 14 days
    Click(PageControl(page, 8));                              // special events shown
    HWND sections = FindWindowExW(page, nullptr, L"SysTabControl32", nullptr);
    Key(sections, VK_RIGHT), Key(sections, VK_RIGHT);
    Key(PageControl(page, 11), VK_DOWN);  // the first task option...
    Click(PageControl(page, 19));          // ...tasks in the calendar: off
    ASSERT_TRUE(PressOk(page));

    ASSERT_TRUE(page = OpenPage(main_, L"cat", L"CategorySettingsWin"));
    sections = FindWindowExW(page, nullptr, L"SysTabControl32", nullptr);
    Key(sections, VK_RIGHT);  // the categories: Home is the first row, coloured from the palette
    Key(PageControl(page, 1), VK_HOME);
    PostMessageW(PageControl(page, 3), BM_CLICK, 0, 0);
    ASSERT_TRUE(picker = WaitForShown(L"#32770", L"Color"));
    SendMessageW(picker, WM_COMMAND, 1024, 0);
    Click(GetDlgItem(picker, 27));  // #FF6633
    ASSERT_TRUE(PressOk(picker));
    Key(sections, VK_RIGHT);  // the filters, at entry 0: with the default filters, "Filter 2"
    Click(PageControl(page, 11));  // every category in
    Click(PageControl(page, 7));   // not visible
    ASSERT_TRUE(PressOk(page));

    ASSERT_TRUE(page = OpenPage(main_, L"Tab", L"TabsSettingsWin"));
    Key(PageControl(page, 0), VK_HOME);   // Tasks, the first row...
    Key(PageControl(page, 0), VK_SPACE);  // ...hidden...
    Click(PageControl(page, 2));          // ...and moved down
    PostMessageW(PageControl(page, 3), BM_CLICK, 0, 0);  // Weather added
    ASSERT_TRUE(chooser = WaitForShown(L"#32770", L"Today Plug-in"));
    PostMessageW(chooser, WM_COMMAND, IDOK, 0);
    ASSERT_TRUE(question = WaitForShown(L"#32770", L"Add Tab"));
    PostMessageW(question, WM_COMMAND, IDYES, 0);
    EXPECT_TRUE(WaitForGone(chooser));
    ASSERT_TRUE(PressOk(page));

    EXPECT_EQ(WithoutEmptyKeys(Snapshot(HKEY_CURRENT_USER, kProduct.c_str())), seeded)
        << "nothing written before Done, but the Alphabets dialog next writes at once";
    ASSERT_TRUE(page = OpenPage(main_, L"con", L"ContactSettingsWin"));
    HWND searchBar = PageControl(page, 1);
    SendMessageW(searchBar, CB_SETCURSEL, SendMessageW(searchBar, CB_GETCOUNT, 0, 0) - 1, 0);  // choose alphabets
    PostMessageW(page, WM_COMMAND, MAKEWPARAM(0x1001, CBN_SELCHANGE), reinterpret_cast<LPARAM>(searchBar));
    ASSERT_TRUE(alphabets = WaitForShown(L"#32770", L"Alphabets"));
    Key(GetDlgItem(alphabets, 1002), VK_END), Key(GetDlgItem(alphabets, 1002), VK_SPACE);  // ticks Thai
    ASSERT_TRUE(PressOk(alphabets) && PressOk(page));

    EXPECT_EQ(Done(), 0);
    const std::wstring calendar = kProduct + L"\\Calendar", look = kProduct + L"\\Categories";
    const std::wstring contacts = kProduct + L"\\Contacts", weatherTab = kTabs + L"\\Weather";
    struct Written { std::wstring key; const wchar_t* name; DWORD value; } written[] = {
        {calendar, L"IncldTasksInCR", 0}, {calendar, L"SEventsOnClr", 1}, {calendar, L"dNumOfDays", 14},
        {look, L"CatColor.Home", RGB(0xFF, 0x66, 0x33)}, {look, L"CatFilter.Home", 1}, {look, L"CatFilter.Work", 1},
        {kTabs, L"TasksTabEnabled", 0}, {kTabs, L"NotesTabOrder", 2}, {kTabs, L"TasksTabOrder", 3},
        {weatherTab, L"Order", 8}, {weatherTab, L"Type", 1}, {weatherTab, L"Enabled", 1},
        {kTabs + L"\\Contacts", L"Kept", 5}, {contacts + L"\\Alphabets", L"Thai", 1},
        {contacts, L"CntctsActiveLanguages", 1 + 16}, {contacts, L"CntctsActiveSearchBar", 0}};  // the first entry
    for (const Written& w : written) EXPECT_REG_DWORD(HKEY_CURRENT_USER, w.key.c_str(), w.name, w.value);
    EXPECT_REG_STRING(HKEY_CURRENT_USER, weatherTab.c_str(), L"DLL", L"weather.dll");
    EXPECT_REG_DWORD(HKEY_LOCAL_MACHINE, kWeather.c_str(), L"Enabled", 0) << "confirmed with Yes";
    EXPECT_NE(WideFromUtf16(ReadBytes(kFiltersFile))
                  .find(L"[FILTER1]\r\n\"Title\"=\"Filter 2\"\r\n\"Sensitivity\"=dword:0\r\n\"Visible\"=dword:0\r\n"),
              std::wstring::npos);
    EXPECT_EQ(RegValueCountTree(HKEY_CURRENT_USER, kProduct), 22u) << "those above, the seeded values, nothing else";
}

}  // namespace
