// Saves pictures of the program as a user sees it: the page grid, then every page that exists in
// every section, as 24-bit BMP files named <label>_<picture>.bmp in the folder given.
// Usage: ql_screenshots <folder> <label>
#include <windows.h>
#include <commctrl.h>

#include <cstdio>
#include <string>

#include "support/app_state.h"
#include "shell/application.h"
#include "shell/main_window.h"
#include "shell/settings_page.h"

namespace {

const wchar_t* const kPageNames[12] = {L"general", L"calendar", L"tasks",   L"notes", L"contacts", L"messages",
                                       L"sevents", L"fonts",    L"colours", L"pim",   L"tabs",     L"categories"};

void Pump(int rounds = 5) {
    for (int i = 0; i < rounds; ++i) {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        Sleep(40);
    }
}

bool SaveWindowPicture(HWND window, const std::wstring& path) {
    RECT area;
    GetWindowRect(window, &area);
    int width = area.right - area.left, height = area.bottom - area.top;
    HDC screen = GetDC(nullptr);
    HDC memory = CreateCompatibleDC(screen);
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 24;
    void* bits = nullptr;
    HBITMAP picture = CreateDIBSection(screen, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    HGDIOBJ old = SelectObject(memory, picture);
    BitBlt(memory, 0, 0, width, height, screen, area.left, area.top, SRCCOPY);
    SelectObject(memory, old);
    GdiFlush();
    DWORD stride = ((width * 3) + 3) & ~3u;
    DWORD imageSize = stride * height;
    BITMAPFILEHEADER header = {};
    header.bfType = 0x4D42;
    header.bfOffBits = sizeof header + sizeof info.bmiHeader;
    header.bfSize = header.bfOffBits + imageSize;
    FILE* file = _wfopen(path.c_str(), L"wb");
    bool written = file != nullptr;
    if (file) {
        fwrite(&header, sizeof header, 1, file);
        fwrite(&info.bmiHeader, sizeof info.bmiHeader, 1, file);
        fwrite(bits, 1, imageSize, file);
        fclose(file);
    }
    DeleteObject(picture);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    return written;
}

void ActivatePage(HWND main, int index) {
    NMITEMACTIVATE activate = {};
    activate.hdr.hwndFrom = g_app.pageList;
    activate.hdr.idFrom = 0;
    activate.hdr.code = LVN_ITEMACTIVATE;
    activate.iItem = index;
    SendMessageW(main, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&activate));
}

void SelectSection(SettingsPage* page, int section) {
    NMHDR header = {page->sectionTabs(), 0, static_cast<UINT>(TCN_SELCHANGING)};
    SendMessageW(page->window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header));
    SendMessageW(page->sectionTabs(), TCM_SETCURSEL, section, 0);
    header.code = static_cast<UINT>(TCN_SELCHANGE);
    SendMessageW(page->window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header));
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    if (argc < 3) {
        fwprintf(stderr, L"usage: ql_screenshots <folder> <label>\n");
        return 2;
    }
    std::wstring folder = argv[1], label = argv[2];
    INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_LISTVIEW_CLASSES | ICC_TAB_CLASSES | ICC_BAR_CLASSES};
    InitCommonControlsEx(&controls);
    g_app.instance = GetModuleHandleW(nullptr);
    RegisterMainWindowClass(g_app.instance);
    HWND main = CreateFittedMainWindow(g_app.instance);
    if (!main) return 1;
    ShowWindow(main, SW_SHOW);
    SetWindowPos(main, HWND_TOP, 0, 0, 0, 0, SWP_NOSIZE);
    Pump(15);
    int saved = SaveWindowPicture(main, folder + L"\\" + label + L"_page_grid.bmp") ? 1 : 0;

    for (int index = 0; index < 12; ++index) {
        ActivatePage(main, index);
        SettingsPage* page = g_app.currentPage;
        if (!page || !page->window()) {
            SendMessageW(main, kClosePageMessage, 0, 0);
            continue;
        }
        int sections = page->sectionTabs() ? static_cast<int>(SendMessageW(page->sectionTabs(), TCM_GETITEMCOUNT, 0, 0)) : 1;
        for (int section = 0; section < sections; ++section) {
            if (section > 0) SelectSection(page, section);
            Pump(8);
            wchar_t name[64];
            swprintf(name, 64, L"_%ls_%d.bmp", kPageNames[index], section + 1);
            saved += SaveWindowPicture(main, folder + L"\\" + label + name) ? 1 : 0;
        }
        SendMessageW(main, kClosePageMessage, 0, 0);
        Pump(2);
    }
    DestroyWindow(main);
    Pump(2);
    wprintf(L"%d pictures\n", saved);
    return 0;
}
