#include "shots.h"

#include <cstdio>
#include <string>
#include <vector>

// Each window is copied from its own device context, pop-ups bottom of the Z order first: the X
// screen may not show the latest drawing yet.
void ShotTarget::save(HWND window, const wchar_t* picture) const {
    std::vector<HWND> windows = {window};
    for (HWND popup = GetWindow(GetDesktopWindow(), GW_CHILD); popup; popup = GetWindow(popup, GW_HWNDNEXT)) {
        HWND owner = GetWindow(popup, GW_OWNER);
        while (owner && owner != window) owner = GetWindow(owner, GW_OWNER);
        if (owner && IsWindowVisible(popup)) windows.insert(windows.begin() + 1, popup);
    }
    RECT area = {}, rect;
    for (HWND part : windows) {
        GetWindowRect(part, &rect);
        UnionRect(&area, &area, &rect);
    }
    int width = area.right - area.left, height = area.bottom - area.top;
    BITMAPINFOHEADER info = {sizeof info, width, height, 1, 24, BI_RGB};
    DWORD size = ((width * 3 + 3) & ~3) * height, offset = sizeof(BITMAPFILEHEADER) + sizeof info;
    BITMAPFILEHEADER header = {0x4D42, offset + size, 0, 0, offset};
    void* bits = nullptr;
    HDC memory = CreateCompatibleDC(nullptr);
    HBITMAP bitmap = CreateDIBSection(memory, reinterpret_cast<BITMAPINFO*>(&info), DIB_RGB_COLORS, &bits, nullptr, 0);
    SelectObject(memory, bitmap);  // a new section is black
    for (HWND part : windows) {
        GetWindowRect(part, &rect);
        HDC source = GetWindowDC(part);
        BitBlt(memory, rect.left - area.left, rect.top - area.top, rect.right - rect.left, rect.bottom - rect.top,
               source, 0, 0, SRCCOPY);
        ReleaseDC(part, source);
    }
    GdiFlush();
    std::wstring path = std::wstring(folder) + L"\\" + label + L"_" + picture + L".bmp";
    FILE* file = bits ? _wfopen(path.c_str(), L"wb") : nullptr;
    bool saved = file && fwrite(&header, sizeof header, 1, file) && fwrite(&info, sizeof info, 1, file) &&
                 fwrite(bits, size, 1, file);
    saved = file && fclose(file) == 0 && saved;
    DeleteDC(memory);
    DeleteObject(bitmap);
    if (!saved) fwprintf(stderr, L"could not save %ls\n", path.c_str());
    g_failures += saved ? 0 : 1;
}
