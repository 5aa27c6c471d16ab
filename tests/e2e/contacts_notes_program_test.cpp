// The real program, started as a user starts it: a custom alphabet ticked through the Contacts
// page's alphabet selection and a folder added on the Notes page reach the registry on Done.
#include "common/test_support.h"
#include "e2e/program_process.h"

namespace {

const wchar_t kProduct[] = L"Software\\Orvane\\Quillory";
const wchar_t kAlphabets[] = L"C:\\Program Files\\Orvane\\Quillory\\CustomAlphabets";
const wchar_t kNotesFolder[] = L"C:\\QL Notes";

// Keys (below '0') and letters sent straight to a window, as its own loop would deliver them (a
// dialog's loop takes a posted Enter as OK).
void Keys(HWND window, std::initializer_list<WPARAM> keys) {
    for (WPARAM key : keys) SendMessageW(window, key < L'0' ? WM_KEYDOWN : WM_CHAR, key, 1);
}

// Picks a page in the grid by typing the start of its title, then Enter.
HWND OpenPage(HWND main, const wchar_t* typed, const wchar_t* className) {
    Sleep(600);  // letters typed within half a second of the last ones would join them
    HWND grid = FindWindowExW(main, nullptr, L"SysListView32", nullptr);
    for (const wchar_t* letter = typed; *letter; ++letter) Keys(grid, {*letter});
    PostMessageW(grid, WM_KEYDOWN, VK_RETURN, 0);
    HWND page = WaitForTopWindow(className, className);
    return page && WaitForVisible(page) ? page : nullptr;
}

// Posts what a user's choice in page control `number` notifies.
void Notify(HWND page, int number, UINT code) {
    PostMessageW(page, WM_COMMAND, MAKEWPARAM(0x1000 + number, code), reinterpret_cast<LPARAM>(GetDlgItem(page, 0x1000 + number)));
}

bool Close(HWND window) { return PostMessageW(window, WM_COMMAND, IDOK, 0) && WaitForGone(window); }

TEST(ContactsNotesProgram, ATickedAlphabetAndAnAddedNotesFolderAreWrittenOnDone) {
    RegRemoveTree(HKEY_CURRENT_USER, kProduct);
    CreateDirectoryW(kAlphabets, nullptr);
    WriteBytes(std::wstring(kAlphabets) + L"\\Thai.txt", Utf16Bytes(L"ABC"));
    CreateDirectoryW(kNotesFolder, nullptr);
    ProgramProcess program;
    HWND main = WaitForTopWindow(L"QL_OPTIONS", L"QL Options");
    ASSERT_TRUE(main && WaitForVisible(main));

    HWND contacts = OpenPage(main, L"con", L"ContactSettingsWin");
    ASSERT_NE(contacts, nullptr);
    HWND searchBar = GetDlgItem(contacts, 0x1001);
    SendMessageW(searchBar, CB_SETCURSEL, SendMessageW(searchBar, CB_GETCOUNT, 0, 0) - 1, 0);  // choose alphabets
    Notify(contacts, 1, CBN_SELCHANGE);
    HWND alphabets = WaitForTopWindow(L"#32770", L"Alphabets");
    ASSERT_NE(alphabets, nullptr);
    Keys(GetDlgItem(alphabets, 1002), {VK_END, VK_SPACE});  // ticks the last row, Thai
    ASSERT_TRUE(Close(alphabets) && Close(contacts));

    HWND notes = OpenPage(main, L"n", L"NotesSettingsWin");
    ASSERT_NE(notes, nullptr);
    Notify(notes, 17, BN_CLICKED);  // Add
    HWND browser = WaitForTopWindow(L"#32770", L"Add Notes Folder");
    ASSERT_NE(browser, nullptr);
    Keys(GetDlgItem(browser, 1004), {L'Q', VK_RETURN});  // opens "QL Notes" in the drive's root
    ASSERT_TRUE(Close(browser) && Close(notes));

    PostMessageW(main, WM_COMMAND, 1, 0);  // Done
    EXPECT_EQ(program.WaitExit(15000), 0);
    std::wstring contactsKey = std::wstring(kProduct) + L"\\Contacts";
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, contactsKey.c_str(), L"CntctsActiveLanguages", 1 + 16);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, (contactsKey + L"\\Alphabets").c_str(), L"Thai", 1);
    EXPECT_REG_STRING(HKEY_CURRENT_USER, (std::wstring(kProduct) + L"\\Notes\\Folders").c_str(), L"0", L"\\QL Notes");
    RegRemoveTree(HKEY_CURRENT_USER, kProduct);
    RemoveTree(kAlphabets);
    RemoveTree(kNotesFolder);
}

}  // namespace
