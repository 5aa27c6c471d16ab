#include "shots.h"

#include <commctrl.h>

#include <cstdio>
#include <cstring>
#include <string>

#include "shell/application.h"
#include "shell/settings_page.h"
#include "support/app_state.h"
#include "support/display_scale.h"

std::vector<const ShotRegistration*>& RegisteredShots() {
    static std::vector<const ShotRegistration*> shots;
    return shots;
}

ShotRegistration::ShotRegistration(const wchar_t* name, void (*take)(const ShotTarget& to)) : name(name), take(take) {
    RegisteredShots().push_back(this);
}

int& SavedPictureCount() {
    static int count = 0;
    return count;
}

void Pump(int rounds) {
    for (int i = 0; i < rounds; ++i) {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        Sleep(40);
    }
}

namespace {

bool OwnedBy(HWND window, HWND owner) {
    for (HWND up = GetWindow(window, GW_OWNER); up; up = GetWindow(up, GW_OWNER))
        if (up == owner) return true;
    return false;
}

bool WriteBytes(const std::wstring& path, const std::vector<BYTE>& bytes) {
    FILE* file = _wfopen(path.c_str(), L"wb");
    if (!file) return false;
    bool written = fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
    return fclose(file) == 0 && written;
}

}  // namespace

// Each window is copied from its own device context, pop-ups bottom of the Z order first: the X
// screen may not show the latest drawing yet.
bool ShotTarget::save(HWND window, const wchar_t* picture) const {
    std::vector<HWND> windows = {window};
    for (HWND popup = GetWindow(GetDesktopWindow(), GW_CHILD); popup; popup = GetWindow(popup, GW_HWNDNEXT))
        if (IsWindowVisible(popup) && OwnedBy(popup, window)) windows.insert(windows.begin() + 1, popup);
    RECT area = {}, rect;
    for (HWND part : windows) {
        GetWindowRect(part, &rect);
        UnionRect(&area, &area, &rect);
    }
    int width = area.right - area.left, height = area.bottom - area.top;
    if (width <= 0 || height <= 0) return false;
    HDC screen = GetDC(nullptr), memory = CreateCompatibleDC(screen);
    HBITMAP bitmap = CreateCompatibleBitmap(screen, width, height);
    HGDIOBJ previous = SelectObject(memory, bitmap);
    PatBlt(memory, 0, 0, width, height, BLACKNESS);
    for (HWND part : windows) {
        GetWindowRect(part, &rect);
        HDC source = GetWindowDC(part);
        BitBlt(memory, rect.left - area.left, rect.top - area.top, rect.right - rect.left, rect.bottom - rect.top, source,
               0, 0, SRCCOPY);
        ReleaseDC(part, source);
    }
    SelectObject(memory, previous);
    BITMAPINFOHEADER info = {sizeof info, width, height, 1, 24, BI_RGB};
    BITMAPFILEHEADER header = {0x4D42, 0, 0, 0, sizeof header + sizeof info};
    std::vector<BYTE> bytes(header.bfOffBits + static_cast<size_t>((width * 3 + 3) & ~3) * height);
    header.bfSize = static_cast<DWORD>(bytes.size());
    int rows = GetDIBits(memory, bitmap, 0, height, bytes.data() + header.bfOffBits,
                         reinterpret_cast<BITMAPINFO*>(&info), DIB_RGB_COLORS);
    memcpy(bytes.data(), &header, sizeof header);
    memcpy(bytes.data() + sizeof header, &info, sizeof info);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    std::wstring path = std::wstring(folder) + L"\\" + label + L"_" + picture + L".bmp";
    bool saved = rows == height && WriteBytes(path, bytes);
    if (saved)
        ++SavedPictureCount();
    else
        fwprintf(stderr, L"could not save %ls\n", path.c_str());
    return saved;
}

bool LoadProgramLibraries() {
    wchar_t path[MAX_PATH] = L"";
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    std::wstring folder = path;
    folder.erase(folder.find_last_of(L'\\') + 1);
    SetVgaMode(false);  // reads the screen's pixels per inch
    if (!g_app.languageLibrary) g_app.languageLibrary = LoadLibraryW((folder + L"QLEngRc.dll").c_str());
    if (!g_app.displayLibrary)
        g_app.displayLibrary =
            LoadLibraryW((folder + (ScaleForDisplay(1) > 1 ? L"HighDpiRes.dll" : L"LowDpiRes.dll")).c_str());
    return g_app.languageLibrary && g_app.displayLibrary;
}

namespace {

std::function<void()> g_onTimer;

void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD) {
    if (g_onTimer) g_onTimer();
}

BOOL CALLBACK EndIfDialog(HWND window, LPARAM) {
    wchar_t className[32] = L"";
    GetClassNameW(window, className, 32);
    if (wcscmp(className, L"#32770") == 0) EndDialog(window, 0);
    return TRUE;
}

}  // namespace

void DialogPictures(const ShotTarget& to, const wchar_t* title, const std::function<void()>& open,
                    std::initializer_list<DialogStep> steps) {
    const DialogStep* step = steps.begin();
    int ticks = 0, ticksShown = 0;
    g_onTimer = [&] {
        if (step == steps.end()) return;
        if (++ticks > 500) {
            EnumThreadWindows(GetCurrentThreadId(), EndIfDialog, 0);
            return;
        }
        HWND dialog = FindWindowW(L"#32770", title);
        if (!dialog || !IsWindowVisible(dialog)) return;
        SetForegroundWindow(dialog);
        if (++ticksShown % 10 != 0) return;  // a few ticks for everything to be drawn
        if (step->picture) to.save(dialog, step->picture);
        PostMessageW(dialog, WM_COMMAND, step++->command, 0);
    };
    UINT_PTR timer = SetTimer(nullptr, 0, 10, OnTimer);
    open();
    KillTimer(nullptr, timer);
    g_onTimer = nullptr;
}

ShotWindow::ShotWindow() : window_(CreateFittedMainWindow(g_app.instance)) {
    ShowWindow(window_, SW_SHOW);
    SetWindowPos(window_, HWND_TOP, 0, 0, 0, 0, SWP_NOSIZE);
    Pump(8);
}

ShotWindow::~ShotWindow() {
    closePage();
    DestroyWindow(window_);
    Pump(2);
    LoadProgramLibraries();
}

SettingsPage* ShotWindow::openPage(int index) {
    NMITEMACTIVATE activate = {{g_app.pageList, 0, static_cast<UINT>(LVN_ITEMACTIVATE)}, index};
    SendMessageW(window_, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&activate));
    Pump(4);
    SettingsPage* page = g_app.currentPage;
    return page && page->window() ? page : nullptr;
}

void ShotWindow::closePage() {
    SendMessageW(window_, kClosePageMessage, 0, 0);
    Pump(2);
}

void ShotWindow::picture(const ShotTarget& to, const wchar_t* name) {
    Pump(8);
    to.save(window_, name);
}

void ShowSection(SettingsPage* page, int section) {
    NMHDR header = {page->sectionTabs(), 0, static_cast<UINT>(TCN_SELCHANGING)};
    SendMessageW(page->window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header));
    SendMessageW(page->sectionTabs(), TCM_SETCURSEL, section, 0);
    header.code = static_cast<UINT>(TCN_SELCHANGE);
    SendMessageW(page->window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header));
}

void SelectRow(HWND list, int row) {
    ListView_SetItemState(list, row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
}
