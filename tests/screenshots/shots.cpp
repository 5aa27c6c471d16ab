#include "shots.h"

#include <cstdio>
#include <string>

std::vector<const ShotRegistration*>& RegisteredShots() {
    static std::vector<const ShotRegistration*> shots;
    return shots;
}

ShotRegistration::ShotRegistration(const wchar_t* name, void (*take)(const ShotTarget& to)) : name(name), take(take) {
    RegisteredShots().push_back(this);
}

namespace {

bool OwnedBy(HWND window, HWND owner) {
    for (HWND up = GetWindow(window, GW_OWNER); up; up = GetWindow(up, GW_OWNER))
        if (up == owner) return true;
    return false;
}

std::function<void()> g_onTimer;

void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD) {
    if (g_onTimer) g_onTimer();
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
    BITMAPINFOHEADER info = {sizeof info, width, height, 1, 24, BI_RGB};
    DWORD size = ((width * 3 + 3) & ~3) * height, offset = sizeof(BITMAPFILEHEADER) + sizeof info;
    BITMAPFILEHEADER header = {0x4D42, offset + size, 0, 0, offset};
    void* pixels = nullptr;
    HDC memory = CreateCompatibleDC(nullptr);
    HBITMAP bitmap = CreateDIBSection(memory, reinterpret_cast<BITMAPINFO*>(&info), DIB_RGB_COLORS, &pixels, nullptr, 0);
    SelectObject(memory, bitmap);  // a new section is black
    for (HWND part : windows) {
        GetWindowRect(part, &rect);
        HDC source = GetWindowDC(part);
        BitBlt(memory, rect.left - area.left, rect.top - area.top, rect.right - rect.left, rect.bottom - rect.top, source,
               0, 0, SRCCOPY);
        ReleaseDC(part, source);
    }
    GdiFlush();
    std::wstring path = std::wstring(folder) + L"\\" + label + L"_" + picture + L".bmp";
    FILE* file = pixels ? _wfopen(path.c_str(), L"wb") : nullptr;
    bool saved = file && fwrite(&header, sizeof header, 1, file) && fwrite(&info, sizeof info, 1, file) &&
                 fwrite(pixels, size, 1, file);
    saved = file && fclose(file) == 0 && saved;
    DeleteDC(memory);
    DeleteObject(bitmap);
    if (!saved) fwprintf(stderr, L"could not save %ls\n", path.c_str());
    g_savedPictures += saved ? 1 : 0;
    return saved;
}

void DialogPictures(const ShotTarget& to, const wchar_t* title, const std::function<void()>& open,
                    std::initializer_list<DialogStep> steps) {
    const DialogStep* step = steps.begin();
    int ticks = 0, ticksShown = 0;
    g_onTimer = [&] {
        if (step == steps.end()) return;
        if (++ticks > 500) EndDialog(GetActiveWindow(), 0);  // the dialog never showed up
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
