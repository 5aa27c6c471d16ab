// Desktop stand-ins of the shell's dialog set-up, activation and input panel handling.
#include <windows.h>
#include <commctrl.h>

#include "platform/device_window.h"
#include "platform/platform_internal.h"
#include "platform/shell.h"

namespace platform_detail {

const wchar_t kFittedProperty[] = L"QLPlatform.Fitted";

}  // namespace platform_detail

using namespace platform_detail;

namespace {

DWORD g_sipFlags = SIPF_OFF;

const DWORD kFullScreenFlags = SHIDIF_SIZEDLG | SHIDIF_SIZEDLGFULLSCREEN | SHIDIF_FULLSCREENNOMENUBAR;

bool ValidActivateInfo(const SHACTIVATEINFO* info) {
    return info && (info->cbSize == kDeviceActivateInfoSize || info->cbSize == sizeof(SHACTIVATEINFO));
}

// With nothing to cover, a device-sized window in the middle of the work area.
RECT DefaultArea(HWND dialog) {
    SIZE size = DeviceSizedFrame(dialog);
    int width = size.cx;
    int height = size.cy;
    RECT work;
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    int x = work.left + ((work.right - work.left) - width) / 2;
    int y = work.top + ((work.bottom - work.top) - height) / 2;
    return RECT{x, y, x + width, y + height};
}

// The device's full-screen dialog covers the screen; here it covers its owner or the main window.
RECT AreaFor(HWND dialog) {
    HWND cover = GetWindow(dialog, GW_OWNER);
    if (!cover || IsIconic(cover)) cover = DeviceMainWindow();
    RECT area;
    if (cover && cover != dialog && !IsIconic(cover) && GetWindowRect(cover, &area)) return area;
    return DefaultArea(dialog);
}

}  // namespace

void platform_detail::RefitDialog(HWND dialog) {
    RECT area = AreaFor(dialog);
    SetWindowPos(dialog, nullptr, area.left, area.top, area.right - area.left, area.bottom - area.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

BOOL SHInitDialog(SHINITDLGINFO* info) {
    if (!info || !IsWindow(info->hDlg)) return FALSE;
    HWND dialog = info->hDlg;
    DWORD flags = (info->dwMask & SHIDIM_FLAGS) ? info->dwFlags : 0;
    if ((flags & SHIDIF_EMPTYMENU) && !MenuBarOf(dialog)) {
        SHMENUBARINFO bar = {};
        bar.cbSize = sizeof bar;
        bar.hwndParent = dialog;
        bar.dwFlags = SHCMBF_EMPTYBAR;
        SHCreateMenuBar(&bar);
    }
    if (flags & kFullScreenFlags) {
        SetPropW(dialog, kFittedProperty, reinterpret_cast<HANDLE>(1));
        RefitDialog(dialog);
    }
    if (flags & SHIDIF_SIPDOWN) SipShowIM(SIPF_OFF);
    if (flags & SHIDIF_DONEBUTTON) EnableCaptionOkButton(dialog);
    return TRUE;
}

BOOL SHHandleWMActivate(HWND window, WPARAM wParam, LPARAM lParam, SHACTIVATEINFO* info, DWORD flags) {
    if (!IsWindow(window) || !ValidActivateInfo(info)) return FALSE;
    if (LOWORD(wParam) == WA_INACTIVE) {
        HWND focus = GetFocus();
        if (focus && IsChild(window, focus)) info->hwndLastFocus = focus;
        info->fSipUp = (g_sipFlags & SIPF_ON) != 0;
        info->fSipOnDeactivation = info->fSipUp;
        info->fActive = 0;
        return TRUE;
    }
    info->fActive = 1;
    if (flags & SHA_INPUTDIALOG) SipShowIM(info->fSipUp ? SIPF_ON : SIPF_OFF);
    HWND last = info->hwndLastFocus;
    bool minimized = HIWORD(wParam) != 0;
    if (!minimized && last && IsWindow(last) && IsChild(window, last) && IsWindowVisible(last) &&
        IsWindowEnabled(last)) {
        SetFocus(last);
    }
    return TRUE;
}

BOOL SHHandleWMSettingChange(HWND window, WPARAM wParam, LPARAM lParam, SHACTIVATEINFO* info) {
    if (!IsWindow(window) || !ValidActivateInfo(info)) return FALSE;
    if (wParam == SPI_SETSIPINFO) {
        info->fSipUp = (g_sipFlags & SIPF_ON) != 0;
        // The desktop's input panel takes no room: a fitted dialog keeps its whole area.
        if (HasFlag(window, kFittedProperty)) RefitDialog(window);
    }
    return TRUE;
}

BOOL SipShowIM(DWORD flags) {
    g_sipFlags = flags;
    return TRUE;
}

DWORD SipShownFlags() { return g_sipFlags; }
