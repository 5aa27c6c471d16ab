#pragma once
// Shared between the desktop stand-ins of src/platform only: window properties and subclass ids
// that tie a window to its menu bar, its OK control and the area it is fitted to.
#include <windows.h>

namespace platform_detail {

// Window properties.
extern const wchar_t kMenuBarProperty[];     // on a window: its menu bar
extern const wchar_t kCaptionOkProperty[];   // on a window: it asked for the caption OK button
extern const wchar_t kOkControlProperty[];   // on a window: its OK control
extern const wchar_t kFittedProperty[];      // on a dialog: sized by SHInitDialog over an area
extern const wchar_t kCoversOwnerProperty[]; // on a pop-up: covers its owner's client area

// Subclass ids (SetWindowSubclass); one per purpose so that they stack.
const UINT_PTR kMenuBarSubclass = 0x514C0001;
const UINT_PTR kBarParentSubclass = 0x514C0002;
const UINT_PTR kCaptionOkSubclass = 0x514C0003;
const UINT_PTR kDeviceWindowSubclass = 0x514C0004;
const UINT_PTR kCoverOwnerSubclass = 0x514C0005;

// The menu bar of `window`, or 0.
HWND MenuBarOf(HWND window);
// Height of the strip below the client area that the window's menu bar occupies (0 without one).
int MenuBarReserve(HWND window);
// Height of a menu bar: the device's 26 units.
int MenuBarHeight();

// Creates, moves or re-homes the OK control of a window that asked for one: inside its menu
// bar when it has one, else at the top right of its client area.
void PlaceOkControl(HWND window);

// The device's screen below the title bar, in pixels: 240 x 294 design units.
SIZE DeviceScreenSize();
// The outer size that gives `window` a client area of the device's screen above its menu bar.
SIZE DeviceSizedFrame(HWND window);
// The most recent top-level device window without an owner that still exists, or 0.
HWND DeviceMainWindow();
// Sizes a dialog fitted by SHInitDialog over its area again.
void RefitDialog(HWND dialog);

// True for windows marked with a non-zero property.
inline bool HasFlag(HWND window, const wchar_t* property) { return GetPropW(window, property) != nullptr; }

}  // namespace platform_detail
