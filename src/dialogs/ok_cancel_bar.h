#pragma once
// The menu bar of the program's small modal dialogs (font dialog, colour picker): the OK and
// Cancel menu of the language library with the input-panel button hidden, its OK given as the
// OK image of the display library's button strip.
#include <windows.h>

#include "support/handles.h"

// Creates the bar on `dialog`; `images` receives the image list the bar draws from (the caller
// keeps it until the bar is destroyed). Returns the bar, or null when it could not be made.
HWND CreateOkCancelBar(HWND dialog, ImageList* images);
