// The real main window built in-process as the program starts it: the categories and filters it
// loads, the page grid and menu bar, its commands (Done, Cancel, Export and Import settings), and
// the display scaling chosen at creation.
#include <tuple>

#include "common/bitmap_bytes.h"
#include "common/dialog_answer.h"
#include "dialogs/browser_steps.h"
#include "files/categories.h"
#include "files/filters.h"
#include "platform/object_store.h"
#include "settings/settings_test_util.h"
#include "shell/application.h"
#include "shell/main_window.h"
#include "support/app_state.h"
#include "ui/probe_page.h"

namespace {

const wchar_t kCategories[] = L"Software\\Orvane\\Quillory\\Categories";
const wchar_t kLanguageLibrary[] = L"\\Program Files\\Orvane\\Quillory\\LangRes\\QLEngRc.dll";

std::wstring English(UINT id) {
    static HMODULE library = LoadLibraryW(kLanguageLibrary);
    wchar_t text[1024] = {};
    LoadStringW(library, id, text, 1024);
    return text;
}

int g_broadcasts = 0;
LRESULT CALLBACK ListenerProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == RegisterWindowMessageW(L"OrvaneQuillorySettingsChanged") && !wParam && !lParam) ++g_broadcasts;
    return DefWindowProcW(window, message, wParam, lParam);
}

// 32 filter records: filter n titled "Mine n", sensitivity n % 3, 5 hidden, 7 with uncategorized items.
std::string FiltersFile() {
    std::wstring text;
    for (int n = 0; n < 32; ++n)
        text += L"[FILTER" + std::to_wstring(n) + L"]\r\n\"Title\"=\"Mine " + std::to_wstring(n) +
                L"\"\r\n\"Sensitivity\"=dword:" + std::to_wstring(n % 3) + L"\r\n\"Visible\"=dword:" +
                (n == 5 ? L"0" : L"1") + L"\r\n\"Uncategorized\"=dword:" + (n == 7 ? L"1" : L"0") + L"\r\n";
    return Utf16Bytes(text);
}

class MainWindow : public ::testing::Test {
protected:
    void SetUp() override {
        InitCommonControlsForProgram();
        RemoveProductKeys();
        SetObjectStoreFolder((folder_.path() + L"\\").c_str());
        RegisterMainWindowClass(GetModuleHandleW(nullptr));
        listener_ = CreateWindowExW(0, TestWindowClass(L"Listener", ListenerProc), L"", WS_POPUP, 0, 0, 1, 1, nullptr,
                                    nullptr, GetModuleHandleW(nullptr), nullptr);
        g_broadcasts = 0;
    }
    void TearDown() override {
        if (IsWindow(window_)) DestroyWindow(window_);
        DestroyWindow(listener_);
        PumpMessages();
        SetObjectStoreFolder(nullptr);
        RemoveProductKeys();
    }
    void Create(int pixelsPerInch = 96) {
        g_app = AppState();
        g_app.instance = GetModuleHandleW(nullptr);
        g_app.pixelsPerInchX = g_app.pixelsPerInchY = pixelsPerInch;
        window_ = CreateMainWindow(g_app.instance);
        ASSERT_NE(window_, nullptr);
        PumpMessages();
    }
    ProbePage* OpenProbePage() {
        auto* page = new ProbePage;
        CreatePageWindow(page, window_, L"ProbeSettingsWin", g_app.instance, g_app.normalFont, g_app.boldFont);
        SetWindowTextW(window_, L"Probe");
        g_app.currentPage = page;
        return page;
    }
    // Runs a backup command: in the browser titled `title` the user picks `item` (keeps the proposed
    // name when empty) and presses OK; returns the texts of the message box captioned `captionId`.
    std::wstring RunBackupCommand(UINT command, const wchar_t* title, const std::wstring& item, UINT captionId) {
        std::wstring message;
        ModalScript().Then([&] {
            BrowserWindows browser = FindBrowser(title);
            if (browser.name) proposed_ = WindowText(browser.name);
            if (browser.list) PickItem(browser.list, item.empty() ? -1 : FindItem(browser.list, item));
            return browser.dialog && PostMessageW(browser.dialog, WM_COMMAND, IDOK, 0);
        }).Then([&] {
            HWND box = ModalScript::FindDialog(English(captionId).c_str());
            return box && (message = L"\n" + StaticTexts(box), PostMessageW(box, WM_COMMAND, IDOK, 0));
        }).Play([&] { SendMessageW(window_, WM_COMMAND, command, 0); });
        return message;
    }
    std::wstring Title() { return WindowText(window_); }
    ScratchFolder folder_{L"main_window"};
    HWND window_ = nullptr, listener_ = nullptr;
    std::wstring proposed_;
};

TEST_F(MainWindow, StartUpLoadsCategoriesAndFiltersAndDoneClosesAPageThenSavesThemAll) {
    WriteBytes(folder_.file(L"Categories Database.cedb"), "4001001F=work\t40020002=1\n4001001F=Home\t40020002=2\n"
                                                          "4001001F=\t40020002=3\n4001001F=apple\t40020002=4\n");
    CreateDirectoryW(folder_.file(L"Icons").c_str(), nullptr);
    WriteBytes(folder_.file(L"Icons\\Home.bmp"), PlainBitmap(4, 4, RGB(1, 2, 3)));
    WriteBytes(folder_.file(L"QLFilters.txt"), FiltersFile());
    RegPutString(HKEY_CURRENT_USER, kProductPath, L"QLFiltersFileFolder", folder_.path().c_str());
    RegPutString(HKEY_CURRENT_USER, kProductPath, L"QLIconsFolder", folder_.file(L"Icons").c_str());
    RegPutDword(HKEY_CURRENT_USER, kCategories, L"CatColor.work", 0x123456);
    RegPutDword(HKEY_CURRENT_USER, kCategories, L"CatFilter.Home", 5);
    Create();
    std::wstring categories;
    for (CategoryRecord* r = g_categories.head; r; r = r->next)
        categories += std::wstring(r->name.c_str()) + L" " + std::to_wstring(r->number) + L", ";
    EXPECT_EQ(categories, L"apple 4, Home 2, work 1, ");
    CategoryRecord *home = FindCategory(g_categories, L"Home"), *work = FindCategory(g_categories, L"work");
    ASSERT_TRUE(home && work);
    EXPECT_TRUE(home->icon.get() && !work->icon.get()) << "icons from the icons folder";
    EXPECT_EQ(std::make_tuple(work->colour, work->filterMask, home->colour, home->filterMask),
              std::make_tuple(0x123456ul, 0ul, kNoCategoryColour, 5ul));
    int n = 0;
    for (FilterRecord* f = g_filters.head; f; f = f->next, ++n)
        EXPECT_EQ(std::make_tuple(f->index, std::wstring(f->title.c_str()), f->sensitivity, f->visible,
                                  f->includeUncategorized),
                  std::make_tuple(n + 1, L"Mine " + std::to_wstring(n), n % 3, n != 5, n == 7));
    EXPECT_EQ(n, 32);

    int stores = 0;
    ProbePage* page = OpenProbePage();
    page->storeCounter = &stores;
    HWND pageWindow = page->window();
    SendMessageW(window_, WM_COMMAND, kCommandDone, 0);
    EXPECT_TRUE(!IsWindow(pageWindow) && stores == 1) << "the page stored its values as it closed";
    EXPECT_EQ(g_app.currentPage, nullptr);
    EXPECT_EQ(Title(), L"QL Options");
    PumpMessages();
    EXPECT_TRUE(IsWindow(window_) && g_broadcasts == 0) << "the first Done only closes the page";

    work->colour = kNoCategoryColour;
    home->colour = 0xABCDEF;
    DeleteFileW(folder_.file(L"QLFilters.txt").c_str());
    g_settings.general.GoofyMode.set(1);
    g_settings.calendar.dNumOfDays.set(7);  // equal to its default: deleted, not written
    SendMessageW(window_, WM_COMMAND, kCommandDone, 0);
    EXPECT_FALSE(IsWindow(window_));
    PumpMessages();
    EXPECT_EQ(g_broadcasts, 1);
    EXPECT_EQ(RegValueCount(HKEY_CURRENT_USER, kProductPath), 3u) << "GoofyMode and the two folders";
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kProductPath, L"GoofyMode", 1);
    EXPECT_EQ(RegValueCount(HKEY_CURRENT_USER, kCalendarPath), 0u);
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kCategories, L"CatColor.work");
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kCategories, L"CatColor.Home", 0xABCDEF);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kCategories, L"CatFilter.Home", 5);
    EXPECT_EQ(ReadBytes(folder_.file(L"QLFilters.txt")), FiltersFile()) << "the filters file written anew";
}

TEST_F(MainWindow, ShowsTwelvePagesEnterOpensTheFocusedOneAndTheMenuBarIsTheDevices) {
    Create();
    const UINT titleIds[12] = {40220, 40221, 40222, 40981, 41174, 40982, 40223, 40224, 40225, 40227, 40228, 40229};
    ASSERT_EQ(ListView_GetItemCount(g_app.pageList), 12);
    for (int i = 0; i < 12; ++i) {
        wchar_t text[256] = {};
        LVITEMW item = {LVIF_TEXT | LVIF_IMAGE, i, 0, 0, 0, text, 256};
        ListView_GetItem(g_app.pageList, &item);
        EXPECT_EQ(std::make_pair(std::wstring(text), item.iImage), std::make_pair(English(titleIds[i]), i));
    }
    EXPECT_NE(ListView_GetImageList(g_app.pageList, LVSIL_NORMAL), nullptr) << "page icons from the display library";
    ListView_SetItemState(g_app.pageList, 1, LVIS_FOCUSED | LVIS_SELECTED, LVIS_FOCUSED | LVIS_SELECTED);
    SetFocus(g_app.pageList);
    SendMessageW(g_app.pageList, WM_KEYDOWN, VK_RETURN, 0);
    ASSERT_NE(g_app.currentPage, nullptr);
    EXPECT_TRUE(IsWindowVisible(g_app.currentPage->window()));
    EXPECT_EQ(Title(), English(40221));
    SendMessageW(window_, kClosePageMessage, 0, 0);
    EXPECT_EQ(g_app.currentPage, nullptr);
    EXPECT_EQ(Title(), L"QL Options");

    HWND bar = g_app.menuBar;
    ASSERT_EQ(SendMessageW(bar, TB_BUTTONCOUNT, 0, 0), 3) << "the resource's first button gone, Done and Cancel added";
    TBBUTTON buttons[3] = {};
    for (int i = 0; i < 3; ++i) SendMessageW(bar, TB_GETBUTTON, i, reinterpret_cast<LPARAM>(&buttons[i]));
    EXPECT_NE(buttons[0].idCommand, kCommandDone);
    EXPECT_EQ(std::make_tuple(buttons[1].idCommand, buttons[1].iBitmap, buttons[2].idCommand, buttons[2].iBitmap),
              std::make_tuple(int(kCommandDone), 1, int(kCommandCancel), 0));
    HMENU menu = GetSubMenu(reinterpret_cast<HMENU>(SendMessageW(bar, SHCMBM_GETMENU, 0, 0)), 1);
    HMENU original = LoadMenuW(LoadLibraryW(kLanguageLibrary), MAKEINTRESOURCEW(102));
    EXPECT_EQ(GetMenuItemCount(menu), GetMenuItemCount(GetSubMenu(original, 1)) - 2);
    for (UINT command : {kCommandAbout, kCommandExport, kCommandImport})
        EXPECT_NE(GetMenuState(menu, command, MF_BYCOMMAND), static_cast<UINT>(-1)) << command;
    DestroyMenu(original);
}

TEST_F(MainWindow, CancelAsksAndNoLeavesEverythingWhileYesWritesNothing) {
    Create();
    ProbePage* page = OpenProbePage();
    g_settings.general.GoofyMode.set(1);
    for (int answer : {IDNO, IDYES}) {
        DialogAnswerer answerer(answer);
        SendMessageW(window_, WM_COMMAND, kCommandCancel, 0);
        ASSERT_TRUE(answerer.Wait());
        EXPECT_EQ(answerer.caption() + L"|" + answerer.text(), English(40217) + L"|" + English(40216));
        if (answer == IDYES) break;
        SendMessageW(window_, WM_COMMAND, 31337, 0);  // unknown commands are ignored
        EXPECT_TRUE(IsWindow(window_) && IsWindow(page->window()) && g_app.currentPage == page);
        EXPECT_EQ(Title(), L"Probe");
    }
    EXPECT_FALSE(IsWindow(window_));
    PumpMessages();
    EXPECT_EQ(g_broadcasts, 0);
    EXPECT_EQ(RegValueCountTree(HKEY_CURRENT_USER, kProductPath), 0u) << "Cancel saves nothing";
    delete g_app.currentPage;  // the program would end here with the page still open
    g_app.currentPage = nullptr;
}

TEST_F(MainWindow, ExportProposesTodaysNameImportRestoresTheTreeOrRefusesAFileThatIsNoBackup) {
    Create();
    RegPutDword(HKEY_CURRENT_USER, kProductPath, L"GoofyMode", 1);
    RegPutString(HKEY_CURRENT_USER, kCalendarPath, L"MailCustomInboxStr", L"Inbox \"two\"");
    SetBrowserLastFolder((folder_.path() + L"\\").c_str());
    WriteBytes(folder_.file(L"notes.qlsb"), Utf16Bytes(L"Just some notes\n"));
    wchar_t today[32] = {};
    GetDateFormatW(LOCALE_USER_DEFAULT, 0, nullptr, L"yyyy_MM_dd", today, 32);
    std::wstring name = L"QL_Backup_" + std::wstring(today) + L".qlsb", path = folder_.path() + L"\\" + name;
    std::wstring message = RunBackupCommand(kCommandExport, L"Export QL Settings", L"", 40209);
    EXPECT_NE(message.find(L"\n" + English(40208) + L" \"" + path + L"\"\n"), std::wstring::npos);
    EXPECT_EQ(proposed_ + L".qlsb", name);
    EXPECT_EQ(ReadBytes(path).substr(0, 2), std::string("\n\0", 2)) << "UTF-16, first line empty, no byte-order mark";

    RegPutDword(HKEY_CURRENT_USER, kProductPath, L"GoofyMode", 0);
    message = RunBackupCommand(kCommandImport, L"Import QL Settings", L"notes.qlsb", 40213);
    EXPECT_NE(message.find(L"\n" + English(40212) + L"\n"), std::wstring::npos);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kProductPath, L"GoofyMode", 0) << "nothing read, nothing deleted";
    PumpMessages();
    EXPECT_TRUE(IsWindow(window_) && g_broadcasts == 0) << "export and a failed import keep the program open";

    RegPutDword(HKEY_CURRENT_USER, kProductPath, L"Stray", 5);
    message = RunBackupCommand(kCommandImport, L"Import QL Settings", name, 40215);
    EXPECT_NE(message.find(L"\n" + English(40214) + L"\n"), std::wstring::npos);
    EXPECT_FALSE(IsWindow(window_)) << "a successful import ends the program";
    PumpMessages();
    EXPECT_EQ(g_broadcasts, 1);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kProductPath, L"GoofyMode", 1);
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kProductPath, L"Stray");
    EXPECT_REG_STRING(HKEY_CURRENT_USER, kCalendarPath, L"MailCustomInboxStr", L"Inbox \"two\"");
}

TEST_F(MainWindow, ScalingAndDisplayLibraryFollowTheScreen) {
    const struct {
        int pixelsPerInch;
        bool vga;
        int scaled12;
        const wchar_t* library;
    } cases[] = {
        {96, false, 12, L"LowDpiRes.dll"},
        {143, false, 18, L"LowDpiRes.dll"},  // ScaleForDisplay(1) is still 1
        {144, false, 18, L"HighDpiRes.dll"},
        {96, true, 24, L"HighDpiRes.dll"},  // VGA mode doubles whatever the screen
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(::testing::Message() << c.pixelsPerInch << (c.vga ? " dpi, VGA" : " dpi"));
        RemoveProductKeys();
        if (c.vga) RegPutDword(HKEY_CURRENT_USER, kProductPath, L"MyVgaMode", 1);
        Create(c.pixelsPerInch);
        EXPECT_EQ(ScaleForDisplay(12), c.scaled12);
        LOGFONTW font = {};
        GetObjectW(g_app.normalFont, sizeof font, &font);
        EXPECT_EQ(font.lfHeight, c.scaled12);
        wchar_t path[MAX_PATH] = {};
        GetModuleFileNameW(g_app.displayLibrary, path, MAX_PATH);
        EXPECT_STREQ(wcsrchr(path, L'\\') + 1, c.library);
        DestroyWindow(window_);
        PumpMessages();
    }
    g_app.vgaMode = false;
    g_app.pixelsPerInchX = 192;
    g_app.pixelsPerInchY = 0;  // not read yet: 96
    EXPECT_EQ(std::make_tuple(ScaleForDisplay(-2), ScaleForDisplay(1), ScaleForDisplayY(-3), ScaleForDisplayY(1)),
              std::make_tuple(-4, 2, -3, 1));
}

}  // namespace
