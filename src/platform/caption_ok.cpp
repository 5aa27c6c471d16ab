// The OK control that stands in for the device's OK in the title bar: a small push button drawn
// by a window class of its own that never takes the focus or activates, so a tap on it inside
// a menu bar leaves the window's focus where it was. It posts WM_COMMAND IDOK to its window.
#include <windows.h>
#include <commctrl.h>

#include "platform/device_window.h"
#include "platform/platform_internal.h"
#include "support/display_scale.h"

namespace platform_detail {

const wchar_t kCaptionOkProperty[] = L"QLPlatform.CaptionOk";
const wchar_t kOkControlProperty[] = L"QLPlatform.OkControl";

}  // namespace platform_detail

using namespace platform_detail;

namespace {

const wchar_t kOkClassName[] = L"QLPlatformCaptionOk";
// Text of the device shell's own button; it is not one of the program's texts.
const wchar_t kOkText[] = L"OK";

// Extra window bytes of the control.
const int kTargetSlot = 0;                // the window that receives IDOK
const int kStateSlot = sizeof(LONG_PTR);  // kTracking | kPressed
const LONG_PTR kTracking = 1;
const LONG_PTR kPressed = 2;

LONG_PTR State(HWND control) { return GetWindowLongPtrW(control, kStateSlot); }

void SetState(HWND control, LONG_PTR state) {
    if (State(control) == state) return;
    SetWindowLongPtrW(control, kStateSlot, state);
    InvalidateRect(control, nullptr, TRUE);
}

bool Inside(HWND control, LPARAM lParam) {
    RECT client;
    GetClientRect(control, &client);
    POINT point = {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
    return PtInRect(&client, point) != FALSE;
}

void Paint(HWND control) {
    PAINTSTRUCT paint;
    HDC dc = BeginPaint(control, &paint);
    RECT client;
    GetClientRect(control, &client);
    bool pressed = (State(control) & kPressed) != 0;
    DrawFrameControl(dc, &client, DFC_BUTTON, DFCS_BUTTONPUSH | (pressed ? DFCS_PUSHED : 0));
    HGDIOBJ previous = SelectObject(dc, GetStockObject(DEFAULT_GUI_FONT));
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, GetSysColor(COLOR_BTNTEXT));
    if (pressed) OffsetRect(&client, 1, 1);
    DrawTextW(dc, kOkText, -1, &client, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
    SelectObject(dc, previous);
    EndPaint(control, &paint);
}

LRESULT CALLBACK OkControlProc(HWND control, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_PAINT:
        Paint(control);
        return 0;
    case WM_MOUSEACTIVATE:
        return MA_NOACTIVATE;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
        SetCapture(control);
        SetState(control, kTracking | kPressed);
        return 0;
    case WM_MOUSEMOVE:
        if (State(control) & kTracking) SetState(control, kTracking | (Inside(control, lParam) ? kPressed : 0));
        return 0;
    case WM_LBUTTONUP: {
        bool clicked = (State(control) & kTracking) && Inside(control, lParam);
        SetState(control, 0);
        if (GetCapture() == control) ReleaseCapture();
        HWND target = reinterpret_cast<HWND>(GetWindowLongPtrW(control, kTargetSlot));
        // Posted: the window usually closes in answer, destroying this control.
        if (clicked) PostMessageW(target, WM_COMMAND, MAKEWPARAM(IDOK, 0), 0);
        return 0;
    }
    case WM_CAPTURECHANGED:
        SetState(control, 0);
        return 0;
    }
    return DefWindowProcW(control, message, wParam, lParam);
}

HINSTANCE ThisModule() {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&OkControlProc), &module);
    return module;
}

void RegisterOkClass() {
    static bool registered = false;
    if (registered) return;
    WNDCLASSW windowClass = {};
    windowClass.style = CS_HREDRAW | CS_VREDRAW | CS_DBLCLKS;
    windowClass.lpfnWndProc = OkControlProc;
    windowClass.cbWndExtra = 2 * sizeof(LONG_PTR);
    windowClass.hInstance = ThisModule();
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.lpszClassName = kOkClassName;
    registered = RegisterClassW(&windowClass) != 0 || GetLastError() == ERROR_CLASS_ALREADY_EXISTS;
}

HWND CreateOkControl(HWND window, HWND host) {
    RegisterOkClass();
    HWND control = CreateWindowExW(0, kOkClassName, kOkText, WS_CHILD | WS_VISIBLE, 0, 0, 0, 0, host, nullptr,
                                   ThisModule(), nullptr);
    if (control) SetWindowLongPtrW(control, kTargetSlot, reinterpret_cast<LONG_PTR>(window));
    return control;
}

// A control on the window itself follows its client area's top right corner.
LRESULT CALLBACK CaptionOkWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR) {
    switch (message) {
    case WM_SIZE: {
        LRESULT result = DefSubclassProc(window, message, wParam, lParam);
        HWND control = CaptionOkControl(window);
        if (control && GetParent(control) == window) PlaceOkControl(window);
        return result;
    }
    case WM_NCDESTROY:
        RemoveWindowSubclass(window, CaptionOkWindowProc, kCaptionOkSubclass);
        RemovePropW(window, kCaptionOkProperty);
        RemovePropW(window, kOkControlProperty);
        break;
    }
    return DefSubclassProc(window, message, wParam, lParam);
}

}  // namespace

void platform_detail::PlaceOkControl(HWND window) {
    if (!HasCaptionOkButton(window)) return;
    HWND bar = MenuBarOf(window);
    HWND host = bar ? bar : window;
    HWND control = CaptionOkControl(window);
    if (control && GetParent(control) != host) {
        DestroyWindow(control);
        control = nullptr;
    }
    if (!control) {
        control = CreateOkControl(window, host);
        if (!control) return;
        SetPropW(window, kOkControlProperty, control);
    }
    RECT client;
    GetClientRect(host, &client);
    int width = ScaleForDisplay(32);
    int margin = ScaleForDisplay(2);
    int height = bar ? client.bottom - 2 * ScaleForDisplayY(2) : ScaleForDisplayY(20);
    int y = bar ? (client.bottom - height) / 2 : margin;
    SetWindowPos(control, HWND_TOP, client.right - width - margin, y, width, height, SWP_NOACTIVATE);
}

void EnableCaptionOkButton(HWND window) {
    if (!IsWindow(window) || HasCaptionOkButton(window)) return;
    SetPropW(window, kCaptionOkProperty, reinterpret_cast<HANDLE>(1));
    SetWindowSubclass(window, CaptionOkWindowProc, kCaptionOkSubclass, 0);
    PlaceOkControl(window);
}

bool HasCaptionOkButton(HWND window) { return HasFlag(window, kCaptionOkProperty); }

HWND CaptionOkControl(HWND window) {
    HWND control = static_cast<HWND>(GetPropW(window, kOkControlProperty));
    return control && IsWindow(control) ? control : nullptr;
}
