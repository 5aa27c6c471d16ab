#pragma once
#include <windows.h>

// The modal About box: product name, version and build date.
void ShowAboutBox(HWND owner);

// Title of the About box window.
extern const wchar_t kAboutTitle[];
