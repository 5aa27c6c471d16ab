// Device windows on the desktop: creation with the device's styles, pages that cover their
// owner, device-sized main windows, bringing windows forward, the Today reload request.
#include "platform/device_window.h"

#include <commctrl.h>

#include <vector>

#include "platform/platform_internal.h"
#include "platform/shell.h"
#include "support/display_scale.h"

namespace platform_detail {

const wchar_t kCoversOwnerProperty[] = L"QLPlatform.CoversOwner";

SIZE DeviceScreenSize() { return SIZE{ScaleForDisplay(240), ScaleForDisplayY(294)}; }

SIZE DeviceSizedFrame(HWND window) {
    SIZE screen = DeviceScreenSize();
    RECT frame;
    RECT client;
    GetWindowRect(window, &frame);
    GetClientRect(window, &client);
    return SIZE{screen.cx + (frame.right - frame.left) - client.right,
                screen.cy + (frame.bottom - frame.top) - client.bottom - MenuBarReserve(window)};
}

}  // namespace platform_detail

using namespace platform_detail;

namespace {

// Class-private style bit the device's main and page windows carry (DS_CENTER to dialogs).
const DWORD kDeviceLowStyleBit = 0x0800;
const wchar_t kDialogHookProperty[] = L"QLPlatform.DialogHook";

HWND g_mainWindow = nullptr;
int g_todayReloads = 0;
const WPARAM kTodayReloadCode = 0xF2;

RECT ClientOnScreen(HWND window) {
    RECT client;
    GetClientRect(window, &client);
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&client), 2);
    return client;
}

bool Covers(int x, int y, int width, int height, const RECT& area) {
    if (x == CW_USEDEFAULT || width == CW_USEDEFAULT) return false;
    return x <= area.left && y <= area.top && x + width >= area.right && y + height >= area.bottom &&
           area.right > area.left && area.bottom > area.top;
}

// Places a covering pop-up so that its client area is its owner's client area; its frame and
// menu bar strip lie around that.
void FitCoveringPopup(HWND popup) {
    HWND owner = GetWindow(popup, GW_OWNER);
    if (!owner || IsIconic(owner)) return;
    RECT target = ClientOnScreen(owner);
    RECT frame;
    GetWindowRect(popup, &frame);
    RECT client = ClientOnScreen(popup);
    RECT wanted = {target.left - (client.left - frame.left), target.top - (client.top - frame.top),
                   target.right + (frame.right - client.right), target.bottom + (frame.bottom - client.bottom)};
    if (EqualRect(&wanted, &frame)) return;
    SetWindowPos(popup, nullptr, wanted.left, wanted.top, wanted.right - wanted.left, wanted.bottom - wanted.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

BOOL CALLBACK FitIfCovering(HWND window, LPARAM owner) {
    if (GetWindow(window, GW_OWNER) == reinterpret_cast<HWND>(owner) && HasFlag(window, kCoversOwnerProperty)) {
        FitCoveringPopup(window);
    }
    return TRUE;
}

LRESULT CALLBACK CoverOwnerProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR) {
    switch (message) {
    case WM_WINDOWPOSCHANGED: {
        LRESULT result = DefSubclassProc(window, message, wParam, lParam);
        EnumThreadWindows(GetCurrentThreadId(), FitIfCovering, reinterpret_cast<LPARAM>(window));
        return result;
    }
    case WM_NCDESTROY:
        RemoveWindowSubclass(window, CoverOwnerProc, kCoverOwnerSubclass);
        break;
    }
    return DefSubclassProc(window, message, wParam, lParam);
}

// Device code lays out on WM_MOVE; a resize that keeps the client origin sends none, so one is
// added after WM_SIZE came without it.
struct GeometryNotices {
    bool sized = false;
    bool moved = false;
};

LRESULT CALLBACK DeviceWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                  DWORD_PTR data) {
    GeometryNotices* notices = reinterpret_cast<GeometryNotices*>(data);
    switch (message) {
    case WM_WINDOWPOSCHANGED: {
        GeometryNotices outer = *notices;
        *notices = GeometryNotices();
        LRESULT result = DefSubclassProc(window, message, wParam, lParam);
        if (!IsWindow(window)) return result;  // destroyed meanwhile: `notices` is gone
        if (notices->sized && !notices->moved) {
            POINT origin = {0, 0};
            MapWindowPoints(window, (GetWindowLongW(window, GWL_STYLE) & WS_CHILD) ? GetParent(window) : nullptr,
                            &origin, 1);
            SendMessageW(window, WM_MOVE, 0, MAKELPARAM(origin.x, origin.y));
        }
        *notices = outer;
        return result;
    }
    case WM_SIZE:
        notices->sized = true;
        break;
    case WM_MOVE:
        notices->moved = true;
        break;
    case WM_NCDESTROY:
        RemoveWindowSubclass(window, DeviceWindowProc, kDeviceWindowSubclass);
        RemovePropW(window, kCoversOwnerProperty);
        if (g_mainWindow == window) g_mainWindow = nullptr;
        delete notices;
        break;
    }
    return DefSubclassProc(window, message, wParam, lParam);
}

SIZE DeviceFrameSize(DWORD style, DWORD exStyle, bool hasMenu) {
    SIZE screen = DeviceScreenSize();
    RECT frame = {0, 0, screen.cx, screen.cy};
    AdjustWindowRectEx(&frame, style, hasMenu, exStyle);
    return SIZE{frame.right - frame.left, frame.bottom - frame.top};
}

// ---- dialogs from templates ----

struct DialogHook {
    DLGPROC procedure;
    bool captionOk;
};

thread_local DialogHook* t_pendingHook = nullptr;

INT_PTR CALLBACK HookedDialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    DialogHook* hook = static_cast<DialogHook*>(GetPropW(dialog, kDialogHookProperty));
    if (!hook) {
        hook = t_pendingHook;
        if (!hook) return FALSE;
        t_pendingHook = nullptr;
        SetPropW(dialog, kDialogHookProperty, hook);
    }
    INT_PTR result = hook->procedure(dialog, message, wParam, lParam);
    if (message == WM_INITDIALOG && hook->captionOk && IsWindow(dialog)) EnableCaptionOkButton(dialog);
    if (message == WM_NCDESTROY) RemovePropW(dialog, kDialogHookProperty);
    return result;
}

bool IsExtendedTemplate(const DLGTEMPLATE* dialogTemplate) {
    WORD head[2];
    memcpy(head, dialogTemplate, sizeof head);
    return head[0] == 1 && head[1] == 0xFFFF;
}

// ---- bringing windows forward ----

struct OwnedPopups {
    HWND owner;
    std::vector<HWND> topDown;
};

BOOL CALLBACK CollectOwnedPopup(HWND window, LPARAM data) {
    OwnedPopups* popups = reinterpret_cast<OwnedPopups*>(data);
    if (GetWindow(window, GW_OWNER) == popups->owner && IsWindowVisible(window)) popups->topDown.push_back(window);
    return TRUE;
}

bool IsMenuBarOf(HWND window, HWND owner) { return MenuBarOf(owner) == window; }

}  // namespace

HWND platform_detail::DeviceMainWindow() { return g_mainWindow && IsWindow(g_mainWindow) ? g_mainWindow : nullptr; }

HWND CreateDeviceWindow(DWORD exStyle, const wchar_t* className, const wchar_t* title, DWORD style, int x, int y,
                        int width, int height, HWND parent, HMENU menu, HINSTANCE instance, void* parameter) {
    bool captionOk = (exStyle & WS_EX_CAPTIONOKBTN) != 0;
    exStyle &= ~WS_EX_CAPTIONOKBTN;
    bool topLevel = !(style & WS_CHILD);
    bool covers = false;
    if (topLevel) {
        style &= ~kDeviceLowStyleBit;
        if (!(style & WS_POPUP)) {
            style |= WS_OVERLAPPEDWINDOW;
            if (width == static_cast<int>(CW_USEDEFAULT)) {
                SIZE frame = DeviceFrameSize(style, exStyle, menu != nullptr);
                width = frame.cx;
                height = frame.cy;
            }
        } else if (parent && IsWindow(parent) && !IsIconic(parent)) {
            RECT ownerClient = ClientOnScreen(parent);
            covers = Covers(x, y, width, height, ownerClient);
            if (covers) {
                x = ownerClient.left;
                y = ownerClient.top;
                width = ownerClient.right - ownerClient.left;
                height = ownerClient.bottom - ownerClient.top;
            }
        }
    }
    HWND window = CreateWindowExW(exStyle, className, title, style, x, y, width, height, parent, menu, instance,
                                  parameter);
    if (!window) return nullptr;
    SetWindowSubclass(window, DeviceWindowProc, kDeviceWindowSubclass,
                      reinterpret_cast<DWORD_PTR>(new GeometryNotices));
    if (covers) {
        SetPropW(window, kCoversOwnerProperty, reinterpret_cast<HANDLE>(1));
        SetWindowSubclass(parent, CoverOwnerProc, kCoverOwnerSubclass, 0);
        FitCoveringPopup(window);
    }
    if (topLevel && !GetWindow(window, GW_OWNER)) g_mainWindow = window;
    if (captionOk) EnableCaptionOkButton(window);
    return window;
}

bool StripCaptionOkButton(DLGTEMPLATE* dialogTemplate) {
    if (!dialogTemplate) return false;
    // DLGTEMPLATEEX: dlgVer, signature, helpID, exStyle, style; DLGTEMPLATE: style, exStyle.
    size_t offset = IsExtendedTemplate(dialogTemplate) ? 8 : 4;
    BYTE* field = reinterpret_cast<BYTE*>(dialogTemplate) + offset;
    DWORD exStyle;
    memcpy(&exStyle, field, sizeof exStyle);
    if (!(exStyle & WS_EX_CAPTIONOKBTN)) return false;
    exStyle &= ~WS_EX_CAPTIONOKBTN;
    memcpy(field, &exStyle, sizeof exStyle);
    return true;
}

INT_PTR DeviceDialogBoxIndirectParam(HINSTANCE instance, DLGTEMPLATE* dialogTemplate, HWND owner, DLGPROC procedure,
                                     LPARAM parameter) {
    if (!dialogTemplate || !procedure) return -1;
    DialogHook hook = {procedure, StripCaptionOkButton(dialogTemplate)};
    DialogHook* outer = t_pendingHook;
    t_pendingHook = &hook;
    INT_PTR result = DialogBoxIndirectParamW(instance, dialogTemplate, owner, HookedDialogProc, parameter);
    t_pendingHook = outer;
    return result;
}

void SizeAsDevice(HWND window) {
    if (!IsWindow(window)) return;
    SIZE size = DeviceSizedFrame(window);
    SetWindowPos(window, nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

BOOL DeviceSetForegroundWindow(HWND handleWithLowBit) {
    UINT_PTR raw = reinterpret_cast<UINT_PTR>(handleWithLowBit);
    HWND window = reinterpret_cast<HWND>(raw & ~static_cast<UINT_PTR>(1));
    if (!IsWindow(window)) return FALSE;
    if (IsIconic(window)) ShowWindow(window, SW_RESTORE);
    // Activation alone does not raise a window when no window manager does it.
    SetWindowPos(window, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    BOOL result = SetForegroundWindow(window);
    if (!(raw & 1)) return result;
    OwnedPopups popups = {window, {}};
    EnumWindows(CollectOwnedPopup, reinterpret_cast<LPARAM>(&popups));
    // Bottom first, so that the pop-ups keep their order above the window.
    for (auto it = popups.topDown.rbegin(); it != popups.topDown.rend(); ++it) {
        SetWindowPos(*it, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    }
    for (HWND popup : popups.topDown) {
        if (IsMenuBarOf(popup, window) || !IsWindowEnabled(popup)) continue;
        SetForegroundWindow(popup);
        break;
    }
    return result;
}

// The desktop window of a desktop system has no Today screen and passes the message on to its
// default handling, which ignores it.
void NotifyTodayScreenReload() {
    ++g_todayReloads;
    SendMessageW(GetDesktopWindow(), WM_WININICHANGE, kTodayReloadCode, 0);
}

int TodayReloadCount() { return g_todayReloads; }
