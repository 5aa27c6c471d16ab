#pragma once
// The new title of a category filter, asked in the small "Filter name:" dialog of the program's
// resources (its OK and Cancel buttons are its own).
#include <windows.h>

#include "support/wide_string.h"

// Longest title the field takes.
const int kFilterNameChars = 255;

// Shows the dialog over `owner` with `name` in the field; on OK `name` takes the field's text and
// the result is true; Cancel leaves `name` as it was.
bool AskFilterName(HWND owner, WString* name);
