#pragma once
// Small readers the pages share: a control's text and today's date.
#include <windows.h>

#include "support/wide_string.h"

// At most 256 characters of the control's text; empty for no control.
WString ControlText(HWND window);

// Today's date in the program's local time, the time of day at midnight.
SYSTEMTIME TodayDate();
