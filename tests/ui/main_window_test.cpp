#include <tuple>

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
    // In the browser titled `title` picks `item` (none: the proposed name) and OK; returns the message.
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
    ScratchFolder folder_{L"main_window"};
    HWND window_ = nullptr, listener_ = nullptr;
    std::wstring proposed_;
};

TEST_F(MainWindow, StartUpLoadsCategoriesAndFiltersCancelNoKeepsAllDoneClosesAPageThenSavesThemAll) {
    WriteBytes(folder_.file(L"Categories Database.cedb"), "4001001F=work\t40020002=1\n4001001F=Home\t40020002=2\n"
                                                          "4001001F=\t40020002=3\n4001001F=apple\t40020002=4\n");
    WriteBytes(folder_.file(L"QLFilters.txt"), FiltersFile());
    RegPutString(HKEY_CURRENT_USER, kProductPath, L"QLFiltersFileFolder", folder_.path().c_str());
    RegPutDword(HKEY_CURRENT_USER, kCategories, L"CatColor.work", 0x123456);
    RegPutDword(HKEY_CURRENT_USER, kCategories, L"CatFilter.Home", 5);
    Create();
    std::wstring categories;
    for (CategoryRecord* r = g_categories.head; r; r = r->next)
        categories += std::wstring(r->name.c_str()) + L" " + std::to_wstring(r->number) + L", ";
    EXPECT_EQ(categories, L"apple 4, Home 2, work 1, ");
    CategoryRecord *home = FindCategory(g_categories, L"Home"), *work = FindCategory(g_categories, L"work");
    ASSERT_TRUE(home && work);
    EXPECT_EQ(std::make_tuple(work->colour, work->filterMask, home->colour, home->filterMask),
              std::make_tuple(0x123456ul, 0ul, kNoCategoryColour, 5ul));
    int n = 0;
    for (FilterRecord* f = g_filters.head; f; f = f->next, ++n)
        EXPECT_EQ(std::make_tuple(f->index, std::wstring(f->title.c_str()), f->sensitivity, f->visible,
                                  f->includeUncategorized),
                  std::make_tuple(n + 1, L"Mine " + std::to_wstring(n), n % 3, n != 5, n == 7));
    EXPECT_EQ(n, 32);

    auto* page = new ProbePage;
    HWND pageWindow = CreatePageWindow(page, window_, L"ProbeSettingsWin", g_app.instance, nullptr, nullptr);
    SetWindowTextW(window_, L"Probe");
    g_app.currentPage = page;
    DialogAnswerer answerer(IDNO);
    SendMessageW(window_, WM_COMMAND, kCommandCancel, 0);
    ASSERT_TRUE(answerer.Wait());
    EXPECT_EQ(answerer.caption() + L"|" + answerer.text(), English(40217) + L"|" + English(40216));
    EXPECT_TRUE(IsWindow(window_) && IsWindow(pageWindow) && WindowText(window_) == L"Probe") << "No keeps everything";
    SendMessageW(window_, WM_COMMAND, kCommandDone, 0);
    EXPECT_TRUE(!IsWindow(pageWindow) && !g_app.currentPage && WindowText(window_) == L"QL Options");

    work->colour = kNoCategoryColour;
    home->colour = 0xABCDEF;
    DeleteFileW(folder_.file(L"QLFilters.txt").c_str());
    g_settings.general.GoofyMode.set(1);
    g_settings.calendar.dNumOfDays.set(7);  // equal to its default: deleted, not written
    SendMessageW(window_, WM_COMMAND, kCommandDone, 0);
    EXPECT_FALSE(IsWindow(window_));
    PumpMessages();
    EXPECT_EQ(g_broadcasts, 1);
    EXPECT_EQ(RegValueCount(HKEY_CURRENT_USER, kProductPath), 2u) << "GoofyMode and the filters folder";
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kProductPath, L"GoofyMode", 1);
    EXPECT_EQ(RegValueCount(HKEY_CURRENT_USER, kCalendarPath), 0u);
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kCategories, L"CatColor.work");
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kCategories, L"CatColor.Home", 0xABCDEF);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kCategories, L"CatFilter.Home", 5);
    EXPECT_EQ(ReadBytes(folder_.file(L"QLFilters.txt")), FiltersFile()) << "the filters file written anew";
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

    RegPutDword(HKEY_CURRENT_USER, kProductPath, L"GoofyMode", 0);
    RunBackupCommand(kCommandImport, L"Import QL Settings", L"notes.qlsb", 40213);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kProductPath, L"GoofyMode", 0) << "nothing read, nothing deleted";

    RegPutDword(HKEY_CURRENT_USER, kProductPath, L"Stray", 5);
    RunBackupCommand(kCommandImport, L"Import QL Settings", name, 40215);
    EXPECT_FALSE(IsWindow(window_)) << "a successful import ends the program";
    PumpMessages();
    EXPECT_EQ(g_broadcasts, 1);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kProductPath, L"GoofyMode", 1);
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kProductPath, L"Stray");
    EXPECT_REG_STRING(HKEY_CURRENT_USER, kCalendarPath, L"MailCustomInboxStr", L"Inbox \"two\"");
}

TEST_F(MainWindow, ScalingAndDisplayLibraryFollowTheScreenTheGridOpensPagesAndYesToCancelSavesNothing) {
    const struct { int pixelsPerInch; bool vga; int scaled1, scaled12; const wchar_t* library; } cases[] = {
        {96, true, 2, 24, L"HighDpiRes.dll"},  // VGA mode doubles whatever the screen
        {143, false, 1, 18, L"LowDpiRes.dll"},
        {144, false, 2, 18, L"HighDpiRes.dll"},  // 1.5 rounds up
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(::testing::Message() << c.pixelsPerInch << (c.vga ? " dpi, VGA" : " dpi"));
        DestroyWindow(window_);  // the last one stays open
        PumpMessages();
        RemoveProductKeys();
        if (c.vga) RegPutDword(HKEY_CURRENT_USER, kProductPath, L"MyVgaMode", 1);
        Create(c.pixelsPerInch);
        EXPECT_EQ(std::make_pair(ScaleForDisplay(1), ScaleForDisplay(12)), std::make_pair(c.scaled1, c.scaled12));
        wchar_t path[MAX_PATH] = {};
        GetModuleFileNameW(g_app.displayLibrary, path, MAX_PATH);
        EXPECT_STREQ(wcsrchr(path, L'\\') + 1, c.library);
    }
    ASSERT_EQ(ListView_GetItemCount(g_app.pageList), 12);
    ListView_SetItemState(g_app.pageList, 1, LVIS_FOCUSED | LVIS_SELECTED, LVIS_FOCUSED | LVIS_SELECTED);
    SetFocus(g_app.pageList);
    SendMessageW(g_app.pageList, WM_KEYDOWN, VK_RETURN, 0);
    ASSERT_NE(g_app.currentPage, nullptr);
    EXPECT_TRUE(IsWindowVisible(g_app.currentPage->window()) && WindowText(window_) == English(40221));
    SendMessageW(window_, kClosePageMessage, 0, 0);
    EXPECT_TRUE(!g_app.currentPage && WindowText(window_) == L"QL Options");

    ASSERT_EQ(SendMessageW(g_app.menuBar, TB_BUTTONCOUNT, 0, 0), 3) << "the first button gone, Done and Cancel added";
    TBBUTTON done = {}, cancel = {};
    SendMessageW(g_app.menuBar, TB_GETBUTTON, 1, reinterpret_cast<LPARAM>(&done));
    SendMessageW(g_app.menuBar, TB_GETBUTTON, 2, reinterpret_cast<LPARAM>(&cancel));
    EXPECT_EQ(std::make_tuple(done.idCommand, done.iBitmap, cancel.idCommand, cancel.iBitmap),
              std::make_tuple(int(kCommandDone), 1, int(kCommandCancel), 0));

    g_settings.general.GoofyMode.set(1);
    DialogAnswerer answerer(IDYES);
    SendMessageW(window_, WM_COMMAND, kCommandCancel, 0);
    ASSERT_TRUE(answerer.Wait());
    EXPECT_FALSE(IsWindow(window_));
    PumpMessages();
    EXPECT_EQ(g_broadcasts, 0);
    EXPECT_EQ(RegValueCountTree(HKEY_CURRENT_USER, kProductPath), 0u) << "Cancel saves nothing";

    g_app.vgaMode = false;
    g_app.pixelsPerInchX = 192;
    g_app.pixelsPerInchY = 0;  // not read yet: 96
    EXPECT_EQ(std::make_tuple(ScaleForDisplay(-2), ScaleForDisplay(1), ScaleForDisplayY(-3), ScaleForDisplayY(1)),
              std::make_tuple(-4, 2, -3, 1));
}

}  // namespace
