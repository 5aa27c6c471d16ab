// The main window's Export settings and Import settings commands, driven as a user does: the
// menu command, the browser, the message box; then the file and the registry read back.
#include <windows.h>
#include <commctrl.h>

#include <string>

#include "common/test_support.h"
#include "dialogs/browser_steps.h"
#include "dialogs/file_browser.h"
#include "dialogs/modal_script.h"
#include "files/settings_backup.h"
#include "settings/settings.h"
#include "support/app_state.h"
#include "shell/application.h"
#include "shell/main_window.h"

namespace {

const wchar_t kProduct[] = L"Software\\Orvane\\Quillory";
const wchar_t kCalendar[] = L"Software\\Orvane\\Quillory\\Calendar";

std::wstring English(UINT id) {
    static HMODULE library = LoadLibraryW(L"\\Program Files\\Orvane\\Quillory\\LangRes\\QLEngRc.dll");
    wchar_t text[1024] = {};
    LoadStringW(library, id, text, 1024);
    return text;
}

// The message box's texts hold the expected text on a line of its own.
::testing::AssertionResult ShowsLine(const std::wstring& message, const std::wstring& line) {
    if (!line.empty() && (L"\n" + message).find(L"\n" + line + L"\n") != std::wstring::npos)
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "the message box does not show the expected text";
}

int g_broadcasts = 0;
LRESULT CALLBACK ListenerProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == RegisterWindowMessageW(L"OrvaneQuillorySettingsChanged")) ++g_broadcasts;
    return DefWindowProcW(window, message, wParam, lParam);
}

class BackupCommands : public ::testing::Test {
protected:
    void SetUp() override {
        InitCommonControlsForProgram();
        RegRemoveTree(HKEY_CURRENT_USER, kProduct);
        RegPutDword(HKEY_CURRENT_USER, kProduct, L"GoofyMode", 1);
        RegPutDword(HKEY_CURRENT_USER, kCalendar, L"dNumOfDays", 14);
        RegPutString(HKEY_CURRENT_USER, kCalendar, L"MailCustomInboxStr", L"Inbox \"two\"");
        g_app = AppState();
        g_app.instance = GetModuleHandleW(nullptr);
        g_app.pixelsPerInchX = g_app.pixelsPerInchY = 96;
        RegisterMainWindowClass(g_app.instance);
        window_ = CreateMainWindow(g_app.instance);
        ASSERT_NE(window_, nullptr);
        SetBrowserLastFolder((folder_.path() + L"\\").c_str());

        listener_ = CreateWindowExW(0, TestWindowClass(L"BackupListener", ListenerProc), L"", WS_POPUP, 0, 0, 1, 1,
                                    nullptr, nullptr, g_app.instance, nullptr);
        g_broadcasts = 0;
    }
    void TearDown() override {
        if (IsWindow(window_)) DestroyWindow(window_);
        DestroyWindow(listener_);
        PumpMessages();
        RegRemoveTree(HKEY_CURRENT_USER, kProduct);
    }

    // Plays: the browser titled `title` appears, `act` works on it; then the message box with
    // caption id `captionId` appears, its text is kept, and it is answered OK.
    std::wstring RunCommand(UINT command, const wchar_t* title, std::function<void(const BrowserWindows&)> act,
                            UINT captionId) {
        std::wstring message;
        ModalScript script;
        script
            .Then([&] {
                BrowserWindows browser = FindBrowser(title);
                if (!browser.dialog) return false;
                act(browser);
                return true;
            })
            .Then([&] {
                HWND box = ModalScript::FindDialog(English(captionId).c_str());
                if (!box) return false;
                message = StaticTexts(box);
                PostMessageW(box, WM_COMMAND, IDOK, 0);
                return true;
            });
        script.Play([&] { SendMessageW(window_, WM_COMMAND, command, 0); });
        return message;
    }

    ScratchFolder folder_{L"backup_commands"};
    HWND window_ = nullptr;
    HWND listener_ = nullptr;
};

TEST_F(BackupCommands, ExportProposesTodaysNameAndImportRestoresTheTree) {
    std::wstring proposed;
    std::wstring message = RunCommand(
        kCommandExport, L"Export QL Settings",
        [&](const BrowserWindows& browser) {
            proposed = WindowText(browser.name);
            PressOk(browser.dialog);
        },
        40209);
    EXPECT_EQ(proposed, BackupFileName().c_str());
    EXPECT_EQ(proposed.rfind(L"QL_Backup_", 0), 0u);
    std::wstring path = folder_.path() + L"\\" + proposed + L".qlsb";
    EXPECT_TRUE(ShowsLine(message, English(40208) + L" \"" + path + L"\""));
    std::string bytes = ReadBytes(path);
    ASSERT_GE(bytes.size(), 4u);
    EXPECT_EQ(bytes.substr(0, 2), std::string("\n\0", 2)) << "UTF-16, first line empty, no byte-order mark";
    EXPECT_TRUE(IsWindow(window_)) << "export keeps the program open";

    // Change the registry behind the program's back, then import the backup.
    RegPutDword(HKEY_CURRENT_USER, kProduct, L"GoofyMode", 0);
    RegPutDword(HKEY_CURRENT_USER, kProduct, L"Stray", 5);
    message = RunCommand(
        kCommandImport, L"Import QL Settings",
        [&](const BrowserWindows& browser) {
            PickItem(browser.list, FindItem(browser.list, proposed + L".qlsb"));
            PressOk(browser.dialog);
        },
        40215);
    EXPECT_TRUE(ShowsLine(message, English(40214)));
    EXPECT_FALSE(IsWindow(window_)) << "a successful import ends the program";
    PumpMessages();
    EXPECT_EQ(g_broadcasts, 1);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kProduct, L"GoofyMode", 1);
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kProduct, L"Stray");
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kCalendar, L"dNumOfDays", 14);
    EXPECT_REG_STRING(HKEY_CURRENT_USER, kCalendar, L"MailCustomInboxStr", L"Inbox \"two\"");
}

TEST_F(BackupCommands, ImportOfAFileThatIsNoBackupSaysSoAndStaysOpen) {
    WriteBytes(folder_.file(L"notes.qlsb"), Utf16Bytes(L"Just some notes\n"));
    std::wstring message = RunCommand(
        kCommandImport, L"Import QL Settings",
        [&](const BrowserWindows& browser) {
            PickItem(browser.list, FindItem(browser.list, L"notes.qlsb"));
            PressOk(browser.dialog);
        },
        40213);
    EXPECT_TRUE(ShowsLine(message, English(40212)));
    EXPECT_TRUE(IsWindow(window_));
    PumpMessages();
    EXPECT_EQ(g_broadcasts, 0);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kProduct, L"GoofyMode", 1) << "nothing was read, nothing deleted";
}

}  // namespace
