#pragma once
// Pages and dialogs are one white surface: labels, check boxes and buttons are drawn on white
// instead of the desktop's grey control face. Edit fields, read-only ones included, keep the
// system's own colours so that a field still looks like a field.
#include <windows.h>

// The brush to answer WM_CTLCOLORSTATIC, WM_CTLCOLORBTN or WM_CTLCOLORDLG with, after setting the
// text background of `dc` to white; null for a control that keeps its default colours.
HBRUSH WhiteSurfaceBrush(HWND control, HDC dc);
