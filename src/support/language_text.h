#pragma once
// Texts of the language resource library the program has loaded (held in the application state).
#include <windows.h>

#include "support/wide_string.h"

// The text of string id `id`; empty when the library or the id is missing.
WString LanguageText(UINT id);

// A message box whose text is string `textId` and whose caption is the string that follows it
// (`textId` + 1); returns the button pressed.
int LibraryMessageBox(HWND owner, UINT textId, UINT type);
