// The three file browser variants, opened on a device-like "\My Documents" folder made on the
// current drive, so that the path field reads "\My Documents\".
#include <windows.h>

#include <string>

#include "dialogs/file_browser.h"
#include "shots.h"
#include "support/app_state.h"

namespace {

const wchar_t kRoot[] = L"\\My Documents";

void RemoveFolder(const std::wstring& path) {
    WIN32_FIND_DATAW found;
    HANDLE search = FindFirstFileW((path + L"\\*").c_str(), &found);
    if (search != INVALID_HANDLE_VALUE) {
        do {
            std::wstring name = found.cFileName;
            if (name == L"." || name == L"..") continue;
            std::wstring child = path + L"\\" + name;
            if (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)
                RemoveFolder(child);
            else
                DeleteFileW(child.c_str());
        } while (FindNextFileW(search, &found));
        FindClose(search);
    }
    RemoveDirectoryW(path.c_str());
}

void MakeDocuments() {
    const std::wstring root = kRoot;
    RemoveFolder(root);
    CreateDirectoryW(root.c_str(), nullptr);
    for (const wchar_t* name : {L"Backups", L"Personal", L"Skins", L"Templates"})
        CreateDirectoryW((root + L"\\" + name).c_str(), nullptr);
    for (const wchar_t* name : {L"QL_Backup_2024_01_31.qlsb", L"QL_Backup_2024_03_02.qlsb", L"notes.txt"}) {
        HANDLE file = CreateFileW((root + L"\\" + name).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
        DWORD written = 0;
        WriteFile(file, "x", 1, &written, nullptr);
        CloseHandle(file);
    }
}

void TakeBrowserPictures(const wchar_t* folder, const wchar_t* label) {
    MakeDocuments();
    struct Shot {
        BrowserKind kind;
        const wchar_t* title;
        const wchar_t* picture;
    } const shots[] = {{BrowserKind::LoadFile, L"Import QL Settings", L"browser_load"},
                       {BrowserKind::SaveFile, L"Export QL Settings", L"browser_save"},
                       {BrowserKind::SelectFolder, L"Select Skin Path", L"browser_folder"}};
    for (const Shot& shot : shots) {
        SetBrowserLastFolder(kRoot);
        BrowserRequest request;
        request.kind = shot.kind;
        request.title.assign(shot.title);
        request.extension.assign(L"qlsb");
        request.description.assign(L"QL Settings Backup (qlsb)");
        if (shot.kind == BrowserKind::SaveFile) request.initialName.assign(L"QL_Backup_2024_04_15");
        LoadBrowserTexts(g_app.languageLibrary, &request);
        int ticks = 0;
        WhileModal([&] { RunFileBrowser(&request); },
                   [&] {
                       HWND dialog = FindThreadDialog(shot.title);
                       if (!dialog) return false;
                       SetForegroundWindow(dialog);
                       SetActiveWindow(dialog);
                       if (++ticks < 10) return false;  // a few ticks for everything to be drawn
                       SaveWindowPicture(dialog, ShotPath(folder, label, shot.picture));
                       PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
                       return true;
                   });
    }
    RemoveFolder(kRoot);
}

ShotRegistration browserPictures(L"browser", TakeBrowserPictures);

}  // namespace
