#include "support/display_scale.h"

#include "support/app_state.h"

namespace {

int Scale(int value, int pixelsPerInch) {
    if (g_app.vgaMode) return value * 2;
    // Until the screen has been read the design resolution holds.
    if (pixelsPerInch == 0) pixelsPerInch = 96;
    int magnitude = value < 0 ? -value : value;
    int scaled = (magnitude * pixelsPerInch + 48) / 96;
    return value < 0 ? -scaled : scaled;
}

}  // namespace

int ScaleForDisplay(int value) { return Scale(value, g_app.pixelsPerInchX); }

int ScaleForDisplayY(int value) { return Scale(value, g_app.pixelsPerInchY); }

void SetVgaMode(bool vga) {
    g_app.vgaMode = vga;
    if (g_app.pixelsPerInchX != 0) return;
    HDC screen = GetDC(nullptr);
    g_app.pixelsPerInchX = GetDeviceCaps(screen, LOGPIXELSX);
    g_app.pixelsPerInchY = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
}
