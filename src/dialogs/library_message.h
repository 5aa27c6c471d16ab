#pragma once
// Message boxes whose text is string `textId` of the language library and whose caption is the
// string that follows it (`textId` + 1).
#include <windows.h>

// MessageBoxW with those texts and `type`; returns the button pressed.
int LibraryMessageBox(HWND owner, UINT textId, UINT type);
