#pragma once
// Pages and dialogs are one white surface: labels and check boxes (which ask with
// WM_CTLCOLORSTATIC) are drawn on white instead of the desktop's grey control face. Edit fields,
// read-only ones included, keep the system's own colours so that a field still looks like a field.
// Push buttons and the menu bar's tool buttons keep theirs too: WM_CTLCOLORBTN is not answered.
#include <windows.h>

// The brush to answer WM_CTLCOLORSTATIC or WM_CTLCOLORDLG with, after setting the
// text background of `dc` to white; null for a control that keeps its default colours.
HBRUSH WhiteSurfaceBrush(HWND control, HDC dc);
