#pragma once
// The Today-item painter: draws sample rows of the Today screen as the plug-in would show them
// with the current settings, for the previews of the Calendar and Tasks pages. It reads the
// settings record g_settings (fonts, colours, icon choices, display formats) and never writes it.
//
// Two kinds of row:
//   appointment: [time column][subject ............ right icons]
//                             [second line]                      (two-line layouts only)
//     The time column is as wide as TimeColumnWidth gives (a kept measure: a page that changes
//     what it depends on calls ForgetTimeColumnWidth first); inside it, from the left:
//     the indent (IndentItems), the leading status or category bar (LeadingRects, layouts with
//     times), the time text, and the left icons at its right edge.
//   task:        [indent][date][left icons][subject ............ right icons]
//
// ApptDisplayFormat picks one of twelve layouts: 1 to 6 show times, 7 to 12 the same six
// without them. Within each six, (format - 1) % 6 is:
//   0  start and end time, subject and second line on one line ("subject, second line")
//   1  start time only,    subject and second line on one line
//   2  start and end time, second line under the subject
//   3  start time only,    second line under the subject
//   4  start and end time, subject only
//   5  start time only,    subject only
// A format outside 1..12 is drawn as layout 6 without times when above 12 and as layout 1 when
// below 1.
//
// Typical use (the Calendar page's preview):
//     TodayItemSample item = CalendarAppointmentSample(subject, place, noon, threePm);
//     int height = MeasureTodayItem(dc, width, item);
//     RECT row = {0, top + (band - height) / 2, width, top + (band + height) / 2};
//     PaintTodayItem(dc, row, item);
#include <windows.h>

#include "settings/setting_types.h"
#include "support/wide_string.h"

enum class TodayItemKind { Appointment, Task };

struct TodayItemSample {
    TodayItemKind kind = TodayItemKind::Appointment;
    WString subject;
    WString secondLine;       // appointments: the location line
    SYSTEMTIME start = {};    // appointments: the start; tasks: the due date
    SYSTEMTIME end = {};      // appointments: the end
    WString dateText;         // tasks: the date column (empty: none)
    DWORD leftIcons[2] = {};  // item flags drawn at the left (0 = none)
    DWORD rightIcons = 0;     // item flags drawn at the right end of the first line
    // The font of advanced mode (FontGnrlUseAdvncd); otherwise the general font is used.
    const FontSetting* advancedFont = nullptr;
};

// An appointment of the calendar tab: ApptLeftAlignIcon1/2, ClrApptRightIcons, FontCalApptBusy.
TodayItemSample CalendarAppointmentSample(const wchar_t* subject, const wchar_t* secondLine, const SYSTEMTIME& start,
                                          const SYSTEMTIME& end);
// A task of the calendar tab due on `due`: TaskLeftAlignIcon1/2, ClrTaskRightIcons, FontCalTasks, the
// date in the DueDateTsksDateFrmt form.
TodayItemSample CalendarTaskSample(const wchar_t* subject, const SYSTEMTIME& due);

// The DueDateTsksDateFrmt forms of a date: 0 the locale's short date, 1 "M/d/yy", 2 "d/M/yy",
// 3 "M/d", 4 "d/M" (any other value: the short date).
WString CalendarTaskDateText(const SYSTEMTIME& date, DWORD form);

// Height the row takes when drawn `width` pixels wide.
int MeasureTodayItem(HDC dc, int width, const TodayItemSample& item);
// Draws the row with its top at area.top, clipped to `area`, over what the DC already holds (the
// text is drawn transparently). Returns the height it took.
int PaintTodayItem(HDC dc, const RECT& area, const TodayItemSample& item);

// Composes the row off-screen over white, `width` by `bandHeight` pixels, centred in the band and
// kept `inset` pixels from either side, then copies the band to `dc` at (0, bandTop) in one block.
void PaintTodayItemBand(HDC dc, int bandTop, int width, int bandHeight, int inset, const TodayItemSample& item);
