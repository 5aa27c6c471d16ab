// The helpers shots.h declares, and the list of registered picture functions.
#include "shots.h"

#include <cstdio>
#include <vector>

#include "screenshot_registry.h"
#include "support/app_state.h"
#include "support/display_scale.h"

std::vector<RegisteredShot>& RegisteredShots() {
    static std::vector<RegisteredShot> shots;
    return shots;
}

ShotRegistration::ShotRegistration(const wchar_t* name, void (*take)(const wchar_t* folder, const wchar_t* label)) {
    RegisteredShots().push_back({name, take});
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

// The visible pop-up windows a window owns, directly or through another pop-up (a page and its
// menu bar), bottom of the Z order first.
std::vector<HWND> OwnedPopups(HWND owner) {
    std::vector<HWND> popups;
    for (HWND window = GetWindow(GetDesktopWindow(), GW_CHILD); window; window = GetWindow(window, GW_HWNDNEXT))
        if (IsWindowVisible(window) && OwnedBy(window, owner)) popups.insert(popups.begin(), window);
    return popups;
}

bool WriteBmp(const std::wstring& path, const BITMAPINFOHEADER& info, const std::vector<BYTE>& pixels) {
    BITMAPFILEHEADER header = {};
    header.bfType = 0x4D42;
    header.bfOffBits = sizeof header + sizeof info;
    header.bfSize = static_cast<DWORD>(header.bfOffBits + pixels.size());
    FILE* file = _wfopen(path.c_str(), L"wb");
    if (!file) return false;
    bool written = fwrite(&header, sizeof header, 1, file) == 1 && fwrite(&info, sizeof info, 1, file) == 1 &&
                   fwrite(pixels.data(), 1, pixels.size(), file) == pixels.size();
    return fclose(file) == 0 && written;
}

}  // namespace

// Each window is copied from its own device context: the X screen may not show the latest
// drawing yet.
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
    if (width <= 0 || height <= 0) return false;
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
    int rows = GetDIBits(memory, bitmap, 0, height, pixels.data(), reinterpret_cast<BITMAPINFO*>(&info), DIB_RGB_COLORS);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    bool saved = rows == height && WriteBmp(path, info, pixels);
    if (saved)
        ++SavedPictureCount();
    else
        fwprintf(stderr, L"could not save %ls\n", path.c_str());
    return saved;
}

std::wstring ShotPath(const wchar_t* folder, const wchar_t* label, const wchar_t* picture) {
    return std::wstring(folder) + L"\\" + label + L"_" + picture + L".bmp";
}

namespace {

struct ModalRun {
    const std::function<bool()>* step = nullptr;
    int ticks = 0;
    int maxTicks = 0;
    bool done = false;
    bool gaveUp = false;
    bool busy = false;
};
ModalRun* g_modalRun = nullptr;

BOOL CALLBACK EndDialogWindow(HWND window, LPARAM) {
    wchar_t className[32] = L"";
    GetClassNameW(window, className, 32);
    if (wcscmp(className, L"#32770") == 0) EndDialog(window, 0);
    return TRUE;
}

void CALLBACK ModalTick(HWND, UINT, UINT_PTR, DWORD) {
    ModalRun* run = g_modalRun;
    if (!run || run->busy || run->done) return;
    run->busy = true;
    if (++run->ticks > run->maxTicks) {
        run->gaveUp = true;
        EnumThreadWindows(GetCurrentThreadId(), EndDialogWindow, 0);
    } else if ((*run->step)()) {
        run->done = true;
    }
    run->busy = false;
}

}  // namespace

bool WhileModal(const std::function<void()>& open, const std::function<bool()>& step, int maxTicks) {
    ModalRun run;
    run.step = &step;
    run.maxTicks = maxTicks;
    ModalRun* outer = g_modalRun;
    g_modalRun = &run;
    UINT_PTR timer = SetTimer(nullptr, 0, 10, ModalTick);
    open();
    KillTimer(nullptr, timer);
    g_modalRun = outer;
    return run.done && !run.gaveUp;
}

HWND FindThreadDialog(const wchar_t* title) {
    struct Search {
        const wchar_t* title;
        HWND found;
    } search = {title, nullptr};
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM data) -> BOOL {
            auto* search = reinterpret_cast<Search*>(data);
            wchar_t className[32] = L"", text[256] = L"";
            GetClassNameW(window, className, 32);
            GetWindowTextW(window, text, 256);
            if (wcscmp(className, L"#32770") != 0 || !IsWindowVisible(window) || wcscmp(text, search->title) != 0)
                return TRUE;
            search->found = window;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
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
