#pragma once
// Measures shared by the font dialog's neighbours: the Today-item previews of the Calendar and
// Tasks pages lay out an appointment line with these.
#include <windows.h>

// Width in pixels of the time column at the left of an appointment line: room for the time text
// of the appointment display format (measured in the appointment font: the busy-appointment font
// in advanced font mode, else the general font), the left-aligned icons of the larger of the
// appointment and task pairs, the indent of indented items and the leading rectangle.
//
// It is measured with `dc` on the first call and kept: later calls return the kept width, whatever
// their device context, until ForgetTimeColumnWidth. A page that changes one of the settings the
// width depends on calls ForgetTimeColumnWidth before it paints again.
int TimeColumnWidth(HDC dc);
void ForgetTimeColumnWidth();
