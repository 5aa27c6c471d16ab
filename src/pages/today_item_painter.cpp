#include "pages/today_item_painter.h"

#include "dialogs/font_preview.h"
#include "display/display_ids.h"
#include "platform/shell.h"
#include "settings/settings.h"
#include "support/app_state.h"
#include "support/display_scale.h"
#include "support/handles.h"

namespace {

const COLORREF kNoColour = 0xFFFFFFFF;
const COLORREF kDefaultText = RGB(0, 0, 0);
const COLORREF kDefaultBusy = RGB(40, 80, 200);
const COLORREF kSampleCategory = RGB(40, 160, 70);
const int kFormatsPerGroup = 6;
const int kLastFormat = 12;
const DWORD kLeadingStatus = 1;
const DWORD kTextByCategory = 1;
const DWORD kTextByStatus = 2;
const int kIconCount = QL_ITEM_ICON_COUNT;

// What one display format shows.
struct Layout {
    bool times;
    bool endTime;
    bool twoLines;
    bool secondLine;
};

Layout LayoutOf(DWORD value) {
    int format = static_cast<int>(value);
    if (format < 1) format = 1;
    if (format > kLastFormat) format = kLastFormat;
    int style = (format - 1) % kFormatsPerGroup;
    Layout layout;
    layout.times = format <= kFormatsPerGroup;
    layout.endTime = style % 2 == 0;
    layout.twoLines = style == 2 || style == 3;
    layout.secondLine = style < 4;
    return layout;
}

COLORREF OrDefault(DWORD colour, COLORREF fallback) { return colour == kNoColour ? fallback : colour; }

const FontSetting& FontOf(const TodayItemSample& item) {
    const FontsSettings& fonts = g_settings.fonts;
    if (fonts.FontGnrlUseAdvncd.value == 1 && item.advancedFont) return *item.advancedFont;
    return fonts.FontGeneral;
}

COLORREF StatusColour() { return OrDefault(g_settings.colors.ClrStatusBusy.value, kDefaultBusy); }

COLORREF TextColour(const TodayItemSample& item) {
    DWORD byWhat = g_settings.calendar.ClrTextColor.value;
    if (item.kind == TodayItemKind::Appointment && byWhat == kTextByCategory) return kSampleCategory;
    if (item.kind == TodayItemKind::Appointment && byWhat == kTextByStatus) return StatusColour();
    COLORREF general = OrDefault(g_settings.colors.GeneralFontColor.value, kDefaultText);
    return OrDefault(FontOf(item).colour.value, general);
}

WString TimeText(const SYSTEMTIME& time) {
    bool twoDigits = g_settings.calendar.Force2DigitsTImeFrmt.value != 0;
    const wchar_t* picture = g_settings.twelveHourClock ? (twoDigits ? L"hh:mmt" : L"h:mmt")
                                                         : (twoDigits ? L"HH:mm" : L"H:mm");
    wchar_t text[64] = {};
    GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &time, picture, text, 64);
    return WString(text);
}

int CountIcons(const DWORD flags[2]) { return (ItemIconForFlag(flags[0]) >= 0) + (ItemIconForFlag(flags[1]) >= 0); }

int CountBits(DWORD set) {
    int count = 0;
    for (int image = 0; image < kIconCount; ++image) count += (set >> image) & 1;
    return count;
}

// The row's pieces, placed once and then either measured or drawn.
class RowPainter {
public:
    RowPainter(HDC dc, const TodayItemSample& item)
        : dc_(dc), item_(item), font_(CreateFontIndirectW(&FontOf(item).font)), selected_(dc, font_.get()) {
        TEXTMETRICW metrics = {};
        GetTextMetricsW(dc, &metrics);
        lineHeight_ = metrics.tmHeight > IconSize() ? metrics.tmHeight : IconSize();
        if (lineHeight_ <= 0) lineHeight_ = IconSize();
    }

    int Height() const {
        bool twoLines = item_.kind == TodayItemKind::Appointment && LayoutOf(Format()).twoLines;
        return lineHeight_ * (twoLines ? 2 : 1);
    }

    void Paint(const RECT& area) {
        SaveDC(dc_);
        IntersectClipRect(dc_, area.left, area.top, area.right, area.bottom);
        SetBkMode(dc_, TRANSPARENT);
        SetTextColor(dc_, TextColour(item_));
        icons_.reset(static_cast<HBITMAP>(LoadImageW(g_app.displayLibrary, MAKEINTRESOURCEW(IDB_ITEM_ICONS),
                                                     IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION)));
        if (item_.kind == TodayItemKind::Appointment)
            PaintAppointment(area);
        else
            PaintTask(area);
        RestoreDC(dc_, -1);
    }

private:
    static int IconSize() { return ScaleForDisplay(12); }
    static int IconStep() { return ScaleForDisplay(13); }
    DWORD Format() const { return g_settings.calendar.ApptDisplayFormat.value; }
    int Indent() const { return g_settings.general.IndentItems.value == 1 ? ScaleForDisplay(8) : 0; }

    void PaintAppointment(const RECT& area) {
        Layout layout = LayoutOf(Format());
        int column = TimeColumnWidth(dc_);
        int x = area.left + Indent();
        if (layout.times && g_settings.calendar.LeadingRects.value != 0) {
            COLORREF bar = g_settings.calendar.LeadingRects.value == kLeadingStatus ? StatusColour() : kSampleCategory;
            RECT mark = {x + ScaleForDisplay(2), area.top + ScaleForDisplay(1), x + ScaleForDisplay(8),
                         area.top + Height() - ScaleForDisplay(1)};
            Brush brush(CreateSolidBrush(bar));
            FillRect(dc_, &mark, brush.get());
            x += ScaleForDisplay(12);
        }
        int iconsLeft = area.left + column - IconStep() * CountIcons(item_.leftIcons);
        if (layout.times) {
            WString time = TimeText(item_.start);
            if (layout.endTime) {
                time.append(L"-");
                time.append(TimeText(item_.end).c_str());
            }
            Text(time.c_str(), x, area.top, iconsLeft - ScaleForDisplay(1), DT_LEFT);
        }
        PaintIcons(item_.leftIcons, 2, iconsLeft, area.top);

        int subjectLeft = area.left + column + ScaleForDisplay(2);
        int subjectRight = PaintRightIcons(area.right, area.top);
        WString subject(item_.subject.c_str());
        if (layout.secondLine && !layout.twoLines && !item_.secondLine.empty()) {
            subject.append(L", ");
            subject.append(item_.secondLine.c_str());
        }
        Text(subject.c_str(), subjectLeft, area.top, subjectRight, DT_LEFT | DT_END_ELLIPSIS);
        if (layout.twoLines)
            Text(item_.secondLine.c_str(), subjectLeft, area.top + lineHeight_, area.right, DT_LEFT | DT_END_ELLIPSIS);
    }

    void PaintTask(const RECT& area) {
        int x = area.left + Indent();
        if (!item_.dateText.empty()) {
            RECT box = {0, 0, 0, 0};
            DrawTextW(dc_, item_.dateText.c_str(), -1, &box, DT_CALCRECT | DT_SINGLELINE | DT_NOPREFIX);
            Text(item_.dateText.c_str(), x, area.top, x + box.right, DT_LEFT);
            x += box.right + ScaleForDisplay(4);
        }
        PaintIcons(item_.leftIcons, 2, x, area.top);
        x += IconStep() * CountIcons(item_.leftIcons);
        int subjectRight = PaintRightIcons(area.right, area.top);
        Text(item_.subject.c_str(), x + ScaleForDisplay(2), area.top, subjectRight, DT_LEFT | DT_END_ELLIPSIS);
    }

    // Draws the right icons flush with `right`; returns where they begin.
    int PaintRightIcons(int right, int top) {
        int left = right - IconStep() * CountBits(item_.rightIcons);
        int x = left;
        for (int image = 0; image < kIconCount; ++image) {
            if (!((item_.rightIcons >> image) & 1)) continue;
            PaintIcon(image, x, top);
            x += IconStep();
        }
        return left - ScaleForDisplay(2);
    }

    void PaintIcons(const DWORD* flags, int count, int x, int top) {
        for (int i = 0; i < count; ++i) {
            int image = ItemIconForFlag(flags[i]);
            if (image < 0) continue;
            PaintIcon(image, x, top);
            x += IconStep();
        }
    }

    void PaintIcon(int image, int x, int top) {
        if (!icons_) return;
        BITMAP info = {};
        GetObjectW(icons_.get(), sizeof info, &info);
        int side = info.bmHeight;
        int y = top + (lineHeight_ - IconSize()) / 2;
        TransparentImage(dc_, x, y, IconSize(), IconSize(), icons_.get(), image * side, 0, side, side,
                         QL_ITEM_ICON_MASK);
    }

    void Text(const wchar_t* text, int left, int top, int right, UINT format) {
        if (right <= left) return;
        RECT box = {left, top, right, top + lineHeight_};
        DrawTextW(dc_, text, -1, &box, format | DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
    }

    HDC dc_;
    const TodayItemSample& item_;
    Font font_;
    DcSelection selected_;
    Bitmap icons_;
    int lineHeight_ = 0;
};

}  // namespace

TodayItemSample CalendarAppointmentSample(const wchar_t* subject, const wchar_t* secondLine, const SYSTEMTIME& start,
                                          const SYSTEMTIME& end) {
    const CalendarSettings& calendar = g_settings.calendar;
    TodayItemSample item;
    item.kind = TodayItemKind::Appointment;
    item.subject.assign(subject);
    item.secondLine.assign(secondLine);
    item.start = start;
    item.end = end;
    item.leftIcons[0] = calendar.ApptLeftAlignIcon1.value;
    item.leftIcons[1] = calendar.ApptLeftAlignIcon2.value;
    item.rightIcons = calendar.ClrApptRightIcons.value;
    item.advancedFont = &g_settings.fonts.FontCalApptBusy;
    return item;
}

TodayItemSample CalendarTaskSample(const wchar_t* subject, const SYSTEMTIME& due) {
    const CalendarSettings& calendar = g_settings.calendar;
    TodayItemSample item;
    item.kind = TodayItemKind::Task;
    item.subject.assign(subject);
    item.start = due;
    item.dateText = CalendarTaskDateText(due, calendar.DueDateTsksDateFrmt.value);
    item.leftIcons[0] = calendar.TaskLeftAlignIcon1.value;
    item.leftIcons[1] = calendar.TaskLeftAlignIcon2.value;
    item.rightIcons = calendar.ClrTaskRightIcons.value;
    item.advancedFont = &g_settings.fonts.FontCalTasks;
    return item;
}

WString CalendarTaskDateText(const SYSTEMTIME& date, DWORD form) {
    static const wchar_t* const kPictures[] = {nullptr, L"M'/'d'/'yy", L"d'/'M'/'yy", L"M'/'d", L"d'/'M"};
    const wchar_t* picture = form < sizeof kPictures / sizeof kPictures[0] ? kPictures[form] : nullptr;
    wchar_t text[128] = {};
    GetDateFormatW(LOCALE_USER_DEFAULT, picture ? 0 : DATE_SHORTDATE, &date, picture, text, 128);
    return WString(text);
}

int MeasureTodayItem(HDC dc, int, const TodayItemSample& item) { return RowPainter(dc, item).Height(); }

int PaintTodayItem(HDC dc, const RECT& area, const TodayItemSample& item) {
    RowPainter row(dc, item);
    row.Paint(area);
    return row.Height();
}

void PaintTodayItemBand(HDC dc, int bandTop, int width, int bandHeight, int inset, const TodayItemSample& item) {
    MemoryDc band(CreateCompatibleDC(dc));
    Bitmap canvas(CreateCompatibleBitmap(dc, width, bandHeight));
    if (!band || !canvas) return;
    DcSelection target(band.get(), canvas.get());
    RECT all = {0, 0, width, bandHeight};
    FillRect(band.get(), &all, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    int height = MeasureTodayItem(band.get(), width, item);
    int top = (bandHeight - height) / 2;
    RECT row = {inset, top, width - inset, top + height};
    PaintTodayItem(band.get(), row, item);
    BitBlt(dc, 0, bandTop, width, bandHeight, band.get(), 0, 0, SRCCOPY);
}
