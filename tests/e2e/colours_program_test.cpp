// The real program, started as a user starts it: on the Colours page a scheme is saved, a colour
// changed in the colour picker, the scheme loaded again, and Done keeps the scheme's colour.
#include "common/dialog_answer.h"
#include "common/test_support.h"
#include "e2e/program_process.h"

namespace {

const wchar_t kProduct[] = L"Software\\Orvane\\Quillory";
const wchar_t kColours[] = L"Software\\Orvane\\Quillory\\Colors";
const wchar_t kSavedScheme[] = L"C:\\Program Files\\Orvane\\Quillory\\Schemes\\Mine.scm";
enum { kChange, kColourList, kSchemeName, kSave, kSchemeList, kLoad };

HWND Control(HWND page, int number) { return GetDlgItem(page, 0x1000 + number); }
void Key(HWND window, WPARAM key) { PostMessageW(window, WM_KEYDOWN, key, 1); }

// Presses a button and answers the message box it shows.
std::wstring PressAndAnswer(ProgramProcess& program, HWND button, int answer) {
    DialogAnswerer box(answer, 15000, program.id());
    PostMessageW(button, BM_CLICK, 0, 0);
    return box.Wait() ? box.caption() : L"<no message>";
}

TEST(ColoursProgramTest, ALoadedSchemeBringsBackTheColourItWasSavedWith) {
    RegRemoveTree(HKEY_CURRENT_USER, kProduct);
    DeleteFileW(kSavedScheme);
    RegPutDword(HKEY_CURRENT_USER, kColours, L"SeperatorLineClr", RGB(0x12, 0x34, 0x56));
    ProgramProcess program;
    HWND main = WaitForTopWindow(L"QL_OPTIONS", L"QL Options");
    ASSERT_TRUE(main && WaitForVisible(main));
    Sleep(600);
    HWND grid = FindWindowExW(main, nullptr, L"SysListView32", nullptr);
    for (wchar_t letter : {L'c', L'o', L'l'}) PostMessageW(grid, WM_CHAR, letter, 1);
    Key(grid, VK_RETURN);
    HWND page = WaitForTopWindow(L"ColorSettingsWin", L"ColorSettingsWin");
    ASSERT_TRUE(page && WaitForVisible(page));
    HWND sections = FindWindowExW(page, nullptr, L"SysTabControl32", nullptr);

    Key(sections, VK_RIGHT);  // the schemes
    SendMessageW(Control(page, kSchemeName), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"Mine"));
    EXPECT_EQ(PressAndAnswer(program, Control(page, kSave), IDOK), L"Save Scheme");

    Key(sections, VK_LEFT);  // the colours: the first item, changed to black in the palette
    Key(Control(page, kColourList), VK_HOME);
    PostMessageW(Control(page, kChange), BM_CLICK, 0, 0);
    HWND picker = WaitForTopWindow(L"#32770", L"Color");
    ASSERT_NE(picker, nullptr);
    SendMessageW(picker, WM_COMMAND, 1024, 0);  // the palette
    SendMessageW(GetDlgItem(picker, 40), BM_CLICK, 0, 0);
    PostMessageW(picker, WM_COMMAND, IDOK, 0);
    ASSERT_TRUE(WaitForGone(picker));

    Key(sections, VK_RIGHT);
    Key(Control(page, kSchemeList), VK_HOME);
    EXPECT_NE(PressAndAnswer(program, Control(page, kLoad), IDYES), L"<no message>");
    EXPECT_TRUE(WaitForGone(page)) << "loading closes the page";
    PostMessageW(main, WM_COMMAND, 1, 0);  // Done: the grid is back
    PostMessageW(main, WM_COMMAND, 1, 0);  // Done: save and leave
    EXPECT_EQ(program.WaitExit(15000), 0);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kColours, L"SeperatorLineClr", RGB(0x12, 0x34, 0x56));

    DeleteFileW(kSavedScheme);
    RegRemoveTree(HKEY_CURRENT_USER, kProduct);
}

}  // namespace
