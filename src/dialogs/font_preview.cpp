#include "dialogs/font_preview.h"

#include "settings/settings.h"
#include "support/display_scale.h"
#include "support/handles.h"

namespace {

const int kNotMeasured = -1;
int g_timeColumnWidth = kNotMeasured;

// Formats above this show no time text at all.
const DWORD kLastTimedFormat = 6;
const wchar_t kTimeAndMultiday[] = L"X22:22-Multiday:";  // odd formats show the time
const wchar_t kMultidayOnly[] = L"XXMultiday:";
const int kMeasureBox = 200;

int CountSet(DWORD first, DWORD second) { return (first != 0 ? 1 : 0) + (second != 0 ? 1 : 0); }

int TextWidth(HDC dc, const LOGFONTW& logical, const wchar_t* text) {
    Font font(CreateFontIndirectW(&logical));
    DcSelection selected(dc, font.get());
    RECT box = {0, 0, kMeasureBox, kMeasureBox};
    DrawTextW(dc, text, -1, &box, DT_CALCRECT | DT_SINGLELINE | DT_NOPREFIX);
    return box.right - box.left;
}

int MeasureTimeColumn(HDC dc) {
    const FontsSettings& fonts = g_settings.fonts;
    const CalendarSettings& calendar = g_settings.calendar;
    const LOGFONTW& font = fonts.FontGnrlUseAdvncd.value == 1 ? fonts.FontCalApptBusy.font : fonts.FontGeneral.font;
    DWORD format = calendar.ApptDisplayFormat.value;

    int width = ScaleForDisplay(2);
    if (format <= kLastTimedFormat) width = TextWidth(dc, font, format % 2 == 1 ? kTimeAndMultiday : kMultidayOnly);

    int appointmentIcons = CountSet(calendar.ApptLeftAlignIcon1.value, calendar.ApptLeftAlignIcon2.value);
    int taskIcons = CountSet(calendar.TaskLeftAlignIcon1.value, calendar.TaskLeftAlignIcon2.value);
    width += ScaleForDisplay(13) * (appointmentIcons > taskIcons ? appointmentIcons : taskIcons);
    if (g_settings.general.IndentItems.value == 1) width += ScaleForDisplay(8);
    if (calendar.LeadingRects.value != 0 && format <= kLastTimedFormat) width += ScaleForDisplay(12);
    return width;
}

}  // namespace

int TimeColumnWidth(HDC dc) {
    if (g_timeColumnWidth == kNotMeasured) g_timeColumnWidth = MeasureTimeColumn(dc);
    return g_timeColumnWidth;
}

void ForgetTimeColumnWidth() { g_timeColumnWidth = kNotMeasured; }
