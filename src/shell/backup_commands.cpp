#include "shell/backup_commands.h"

#include "dialogs/file_browser.h"
#include "files/settings_backup.h"
#include "settings/settings.h"
#include "support/app_state.h"
#include "support/wide_string.h"

namespace {

const wchar_t kBackupExtension[] = L"qlsb";
const wchar_t kBackupDescription[] = L"QL Settings Backup (qlsb)";
const wchar_t kExportTitle[] = L"Export QL Settings";
const wchar_t kImportTitle[] = L"Import QL Settings";
const UINT kExportedId = 40208;
const UINT kImportFailedId = 40212;
const UINT kImportedId = 40214;

// Message box with text id N (plus an optional suffix) and caption id N + 1.
void ShowMessage(HWND owner, UINT textId, const wchar_t* suffix = nullptr) {
    WString text, caption;
    text.load(g_app.languageLibrary, textId);
    if (suffix) text.append(suffix);
    caption.load(g_app.languageLibrary, textId + 1);
    MessageBoxW(owner, text.c_str(), caption.c_str(), MB_OK);
}

bool ChooseBackupFile(HWND owner, BrowserKind kind, const wchar_t* title, const wchar_t* proposedName,
                      WString* path) {
    BrowserRequest request;
    request.kind = kind;
    request.owner = owner;
    request.title.assign(title);
    request.extension.assign(kBackupExtension);
    request.description.assign(kBackupDescription);
    if (proposedName) request.initialName.assign(proposedName);
    LoadBrowserTexts(g_app.languageLibrary, &request);
    if (!RunFileBrowser(&request)) return false;
    path->assign(request.result.c_str());
    return true;
}

}  // namespace

void RunExportCommand(HWND mainWindow) {
    WString path;
    if (!ChooseBackupFile(mainWindow, BrowserKind::SaveFile, kExportTitle, BackupFileName().c_str(), &path)) return;
    if (!ExportSettings(path.c_str())) {
        ShowMessage(mainWindow, kImportFailedId);  // the file could not be created or written
        return;
    }
    WString quoted(L" \"");
    quoted.append(path.c_str());
    quoted.append(L"\"");
    ShowMessage(mainWindow, kExportedId, quoted.c_str());
}

void RunImportCommand(HWND mainWindow) {
    WString path;
    if (!ChooseBackupFile(mainWindow, BrowserKind::LoadFile, kImportTitle, nullptr, &path)) return;
    if (!ImportSettings(path.c_str())) {
        ShowMessage(mainWindow, kImportFailedId);
        return;
    }
    ShowMessage(mainWindow, kImportedId);
    PostSettingsChanged();
    DestroyWindow(mainWindow);
}
