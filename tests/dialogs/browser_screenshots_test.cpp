// Pictures of the three browser variants for the documentation. Runs only when the environment
// variable QL_SCREENSHOT_DIR names a folder (a Unix path is taken to be on drive Z:); it writes
// browser_load.bmp, browser_save.bmp and browser_folder.bmp there, copied from the screen.
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "browser_steps.h"
#include "common/test_support.h"
#include "dialogs/file_browser.h"
#include "modal_script.h"
#include "support/app_state.h"
#include "support/display_scale.h"

namespace {

std::wstring ScreenshotFolder() {
    const wchar_t* value = _wgetenv(L"QL_SCREENSHOT_DIR");
    if (!value || !*value) return L"";
    std::wstring folder = value;
    if (folder[0] == L'/') folder = L"Z:" + folder;
    for (wchar_t& c : folder)
        if (c == L'/') c = L'\\';
    return folder;
}

// The pop-up windows a window owns (its menu bar), bottom of the Z order first.
std::vector<HWND> OwnedPopups(HWND owner) {
    std::vector<HWND> popups;
    for (HWND window = GetWindow(GetDesktopWindow(), GW_CHILD); window; window = GetWindow(window, GW_HWNDNEXT))
        if (GetWindow(window, GW_OWNER) == owner && IsWindowVisible(window)) popups.insert(popups.begin(), window);
    return popups;
}

// The window and its owned pop-ups as they are drawn, as a 24-bit bottom-up BMP file. Each window
// is copied from its own device context: the X screen may not show the latest drawing yet.
bool SaveWindowPicture(HWND window, const std::wstring& path) {
    RECT area;
    GetWindowRect(window, &area);
    std::vector<HWND> windows = {window};
    for (HWND popup : OwnedPopups(window)) {
        windows.push_back(popup);
        RECT rect;
        GetWindowRect(popup, &rect);
        UnionRect(&area, &area, &rect);
    }
    int width = area.right - area.left;
    int height = area.bottom - area.top;
    HDC screen = GetDC(nullptr);
    HDC memory = CreateCompatibleDC(screen);
    HBITMAP bitmap = CreateCompatibleBitmap(screen, width, height);
    HGDIOBJ previous = SelectObject(memory, bitmap);
    PatBlt(memory, 0, 0, width, height, BLACKNESS);
    for (HWND part : windows) {
        RECT rect;
        GetWindowRect(part, &rect);
        HDC source = GetWindowDC(part);
        BitBlt(memory, rect.left - area.left, rect.top - area.top, rect.right - rect.left, rect.bottom - rect.top, source,
               0, 0, SRCCOPY);
        ReleaseDC(part, source);
    }
    SelectObject(memory, previous);

    BITMAPINFOHEADER info = {};
    info.biSize = sizeof info;
    info.biWidth = width;
    info.biHeight = height;
    info.biPlanes = 1;
    info.biBitCount = 24;
    info.biCompression = BI_RGB;
    int stride = (width * 3 + 3) & ~3;
    std::vector<BYTE> pixels(static_cast<size_t>(stride) * height);
    GetDIBits(memory, bitmap, 0, height, pixels.data(), reinterpret_cast<BITMAPINFO*>(&info), DIB_RGB_COLORS);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);

    BITMAPFILEHEADER file = {};
    file.bfType = 0x4D42;
    file.bfOffBits = sizeof file + sizeof info;
    file.bfSize = static_cast<DWORD>(file.bfOffBits + pixels.size());
    FILE* out = _wfopen(path.c_str(), L"wb");
    if (!out) return false;
    fwrite(&file, sizeof file, 1, out);
    fwrite(&info, sizeof info, 1, out);
    fwrite(pixels.data(), 1, pixels.size(), out);
    fclose(out);
    return true;
}

}  // namespace

TEST(BrowserScreenshots, ThreeVariants) {
    std::wstring folder = ScreenshotFolder();
    if (folder.empty()) GTEST_SKIP() << "QL_SCREENSHOT_DIR is not set";
    CreateDirectoryW(folder.c_str(), nullptr);

    g_app.instance = GetModuleHandleW(nullptr);
    g_app.languageLibrary = LoadLibraryW((TestBinDir() + L"\\QLEngRc.dll").c_str());
    SetVgaMode(false);  // reads the screen's pixels per inch
    const wchar_t* display = ScaleForDisplay(1) > 1 ? L"\\HighDpiRes.dll" : L"\\LowDpiRes.dll";
    g_app.displayLibrary = LoadLibraryW((TestBinDir() + display).c_str());

    // A device-like folder on the current drive, so that the path field reads "\My Documents\".
    const std::wstring root = L"\\My Documents";
    RemoveTree(root);
    CreateDirectoryW(root.c_str(), nullptr);
    for (const wchar_t* name : {L"Backups", L"Personal", L"Skins", L"Templates"})
        CreateDirectoryW((root + L"\\" + name).c_str(), nullptr);
    for (const wchar_t* name : {L"QL_Backup_2024_01_31.qlsb", L"QL_Backup_2024_03_02.qlsb", L"notes.txt"})
        WriteBytes(root + L"\\" + name, "x");

    struct Shot {
        BrowserKind kind;
        const wchar_t* title;
        const wchar_t* file;
    } shots[] = {{BrowserKind::LoadFile, L"Import QL Settings", L"browser_load.bmp"},
                 {BrowserKind::SaveFile, L"Export QL Settings", L"browser_save.bmp"},
                 {BrowserKind::SelectFolder, L"Select Skin Path", L"browser_folder.bmp"}};
    for (const Shot& shot : shots) {
        SetBrowserLastFolder(root.c_str());
        BrowserRequest request;
        request.kind = shot.kind;
        request.title.assign(shot.title);
        request.extension.assign(L"qlsb");
        request.description.assign(L"QL Settings Backup (qlsb)");
        if (shot.kind == BrowserKind::SaveFile) request.initialName.assign(L"QL_Backup_2024_04_15");
        LoadBrowserTexts(g_app.languageLibrary, &request);
        int ticks = 0;
        ModalScript script;
        script.Then([&] {
            HWND dialog = ModalScript::FindDialog(shot.title);
            if (!dialog) return false;
            SetForegroundWindow(dialog);
            SetActiveWindow(dialog);
            if (++ticks < 10) return false;  // a few ticks for everything to be drawn
            EXPECT_TRUE(SaveWindowPicture(dialog, folder + L"\\" + shot.file));
            PressCancel(dialog);
            return true;
        });
        script.Play([&] { RunFileBrowser(&request); });
    }
    RemoveTree(root);
}
