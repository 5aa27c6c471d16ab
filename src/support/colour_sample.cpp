#include "support/colour_sample.h"

#include "string_ids.h"
#include "support/app_state.h"
#include "support/display_scale.h"
#include "support/handles.h"
#include "support/wide_string.h"

namespace {

const COLORREF kNoOwnColour = 0xFFFFFFFF;

}  // namespace

void DrawColourSample(HDC dc, const RECT& box, COLORREF colour, HFONT font) {
    FillRect(dc, &box, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
    RECT inside = box;
    int border = ScaleForDisplay(1);
    InflateRect(&inside, -border, -border);
    if (colour != kNoOwnColour) {
        // Only the three colour bytes: a set high byte would make the value a palette index.
        Brush fill(CreateSolidBrush(colour & 0x00FFFFFF));
        FillRect(dc, &inside, fill.get());
        return;
    }
    FillRect(dc, &inside, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    WString none;
    none.load(g_app.languageLibrary, IDS_NO_COLOR);
    DcSelection selected(dc, font ? font : GetStockObject(DEFAULT_GUI_FONT));
    int oldMode = SetBkMode(dc, TRANSPARENT);
    COLORREF oldColour = SetTextColor(dc, RGB(0, 0, 0));
    DrawTextW(dc, none.c_str(), -1, &inside, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
    SetTextColor(dc, oldColour);
    SetBkMode(dc, oldMode);
}
