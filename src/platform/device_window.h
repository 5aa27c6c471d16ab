#pragma once
// Device window behaviour that desktop Windows lacks: the caption OK button, device-sized
// windows, bringing a window forward with its pop-ups and the Today screen's reload request.
// Program code creates its WS_EX_CAPTIONOKBTN windows and dialogs through these functions.
#include <windows.h>

// CreateWindowExW with the device's meaning of the styles:
// - WS_EX_CAPTIONOKBTN is removed (desktop Windows uses that bit itself) and the window gets an
//   OK control that posts WM_COMMAND IDOK (wParam IDOK, lParam 0) to it: at the right end of the
//   window's menu bar, or at the top right of its client area while it has no menu bar.
// - A top-level window without WS_POPUP (the device's main window) becomes a resizable framed
//   window; with CW_USEDEFAULT as width its client area is the device's screen below the title
//   bar (see SizeAsDevice).
// - The device's class-private style bit 0x0800 of top-level windows is dropped (it means
//   DS_CENTER to dialog classes).
// - A pop-up given a rectangle that covers its owner's client area (as device pages do with their
//   owner's window rectangle) is placed over that client area and follows it when the owner
//   moves or resizes.
// Device windows receive WM_MOVE whenever their client area is resized, even if it did not move:
// device code lays out on WM_MOVE.
HWND CreateDeviceWindow(DWORD exStyle, const wchar_t* className, const wchar_t* title, DWORD style, int x, int y,
                        int width, int height, HWND parent, HMENU menu, HINSTANCE instance, void* parameter);

// Removes WS_EX_CAPTIONOKBTN from an in-memory DLGTEMPLATE or DLGTEMPLATEEX, in place. Returns
// whether the bit was set.
bool StripCaptionOkButton(DLGTEMPLATE* dialogTemplate);
// DialogBoxIndirectParamW for a device template: strips WS_EX_CAPTIONOKBTN (the template is
// changed in place) and, when it was set, gives the dialog the OK control after WM_INITDIALOG.
INT_PTR DeviceDialogBoxIndirectParam(HINSTANCE instance, DLGTEMPLATE* dialogTemplate, HWND owner, DLGPROC procedure,
                                     LPARAM parameter);

// Gives any window the OK control of WS_EX_CAPTIONOKBTN (SHInitDialog uses it for
// SHIDIF_DONEBUTTON). Calling it again does nothing more.
void EnableCaptionOkButton(HWND window);
bool HasCaptionOkButton(HWND window);
// The OK control of a window, or 0.
HWND CaptionOkControl(HWND window);

// Sizes a window so that its client area together with its menu bar is the device's screen below
// the title bar: 240 x 294 design units (ScaleForDisplay / ScaleForDisplayY). Keeps its position.
void SizeAsDevice(HWND window);

// SetForegroundWindow with the device's meaning of the handle's lowest bit: when set, the
// window's visible owned pop-ups come forward too, the top one active. Returns the result of
// SetForegroundWindow for the window.
BOOL DeviceSetForegroundWindow(HWND handleWithLowBit);

// The device's "Today screen, reload" request: WM_WININICHANGE with 0xF2 sent to the desktop
// window, as on the device (a desktop system ignores it). The requests are also counted.
void NotifyTodayScreenReload();
int TodayReloadCount();
