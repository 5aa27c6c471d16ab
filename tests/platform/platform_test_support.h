#pragma once
// Windows that record what they receive, and a resource library with a menu, for the tests of
// the device stand-ins.
#include <windows.h>

#include <string>
#include <vector>

#include <commctrl.h>

#include "common/test_support.h"
#include "platform/shell.h"

// What a recording window received.
struct Received {
    std::vector<WPARAM> commands;  // wParam of each WM_COMMAND
    std::vector<LPARAM> commandSources;
    int moves = 0;
    int sizes = 0;
};

inline Received& ReceivedBy(HWND window) {
    return *reinterpret_cast<Received*>(GetWindowLongPtrW(window, GWLP_USERDATA));
}

inline LRESULT CALLBACK RecordingProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(new Received));
    }
    Received* received = reinterpret_cast<Received*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (received) {
        switch (message) {
        case WM_COMMAND:
            received->commands.push_back(wParam);
            received->commandSources.push_back(lParam);
            return 0;
        case WM_MOVE:
            ++received->moves;
            break;
        case WM_SIZE:
            ++received->sizes;
            break;
        case WM_NCDESTROY:
            delete received;
            SetWindowLongPtrW(window, GWLP_USERDATA, 0);
            break;
        }
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

inline const wchar_t* RecordingClass() {
    return TestWindowClass(L"QLPlatformTestWindow", RecordingProc, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
}

// A plain visible overlapped window of the recording class.
inline HWND CreateRecordingWindow(int x = 100, int y = 50, int width = 300, int height = 400) {
    return CreateWindowExW(0, RecordingClass(), L"test", WS_OVERLAPPEDWINDOW | WS_VISIBLE, x, y, width, height, nullptr,
                           nullptr, GetModuleHandleW(nullptr), nullptr);
}

inline RECT ClientRectOnScreen(HWND window) {
    RECT client;
    GetClientRect(window, &client);
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&client), 2);
    return client;
}

inline RECT WindowRect(HWND window) {
    RECT rect;
    GetWindowRect(window, &rect);
    return rect;
}

inline int Width(const RECT& rect) { return rect.right - rect.left; }
inline int Height(const RECT& rect) { return rect.bottom - rect.top; }

// A click at a point of a window's client area, delivered directly.
inline void Click(HWND window, int x, int y) {
    SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
    SendMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(x, y));
}

inline void ClickCentre(HWND window) {
    RECT client;
    GetClientRect(window, &client);
    Click(window, client.right / 2, client.bottom / 2);
}

// Like the device's windows: an empty menu bar made during WM_CREATE.
inline LRESULT CALLBACK BarOnCreateProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = RecordingProc(window, message, wParam, lParam);
    if (message == WM_CREATE) {
        SHMENUBARINFO info = {};
        info.cbSize = kDeviceMenuBarInfoSize;
        info.hwndParent = window;
        info.dwFlags = SHCMBF_EMPTYBAR;
        SHCreateMenuBar(&info);
    }
    return result;
}

inline const wchar_t* BarOnCreateClass() {
    return TestWindowClass(L"QLPlatformTestBarOnCreate", BarOnCreateProc,
                           static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
}

// The menu bar a window owns, found among the top-level windows.
inline HWND OwnedMenuBar(HWND window) {
    for (HWND candidate = GetWindow(GetDesktopWindow(), GW_CHILD); candidate;
         candidate = GetWindow(candidate, GW_HWNDNEXT)) {
        wchar_t className[64];
        GetClassNameW(candidate, className, 64);
        if (GetWindow(candidate, GW_OWNER) == window && wcscmp(className, TOOLBARCLASSNAMEW) == 0) return candidate;
    }
    return nullptr;
}

// Menu resource `kTestMenuId` of a copy of the language library: "Edit" (Cut 101, Copy 102),
// a command "Go" (300), and "Tools" with seven items (40001 to 40007).
const UINT kTestMenuId = 777;
const int kTestMenuTopItems = 3;

class MenuLibrary {
public:
    MenuLibrary() : folder_(L"platform_menu") {
        std::wstring path = folder_.file(L"menus.dll");
        CopyFileW((TestBinDir() + L"\\QLEngRc.dll").c_str(), path.c_str(), FALSE);
        std::vector<WORD> menu = MenuTemplate();
        HANDLE update = BeginUpdateResourceW(path.c_str(), FALSE);
        if (update) {
            UpdateResourceW(update, RT_MENU, MAKEINTRESOURCEW(kTestMenuId), MAKELANGID(LANG_NEUTRAL, SUBLANG_NEUTRAL),
                            menu.data(), static_cast<DWORD>(menu.size() * sizeof(WORD)));
            EndUpdateResourceW(update, FALSE);
        }
        module_ = LoadLibraryExW(path.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    }
    ~MenuLibrary() {
        if (module_) FreeLibrary(module_);
    }
    MenuLibrary(const MenuLibrary&) = delete;
    MenuLibrary& operator=(const MenuLibrary&) = delete;
    HINSTANCE module() const { return module_; }

private:
    // A pop-up entry (MF_POPUP in `flags`) has no command id.
    static void Item(std::vector<WORD>* words, WORD flags, WORD id, const wchar_t* text) {
        words->push_back(flags);
        if (!(flags & MF_POPUP)) words->push_back(id);
        words->insert(words->end(), text, text + wcslen(text) + 1);
    }
    static std::vector<WORD> MenuTemplate() {
        std::vector<WORD> words = {0, 0};
        Item(&words, MF_POPUP, 0, L"Edit");
        Item(&words, 0, 101, L"Cut");
        Item(&words, MF_END, 102, L"Copy");
        Item(&words, 0, 300, L"Go");
        Item(&words, MF_POPUP | MF_END, 0, L"Tools");
        for (WORD i = 1; i <= 7; ++i) {
            wchar_t text[16];
            wsprintfW(text, L"Tool %d", i);
            Item(&words, i == 7 ? MF_END : 0, static_cast<WORD>(40000 + i), text);
        }
        return words;
    }

    ScratchFolder folder_;
    HMODULE module_ = nullptr;
};
