#include "support/surface_colours.h"

namespace {

bool IsEditField(HWND control) {
    wchar_t className[16] = {};
    GetClassNameW(control, className, 16);
    return lstrcmpiW(className, L"Edit") == 0;
}

}  // namespace

HBRUSH WhiteSurfaceBrush(HWND control, HDC dc) {
    if (IsEditField(control)) return nullptr;
    SetBkColor(dc, RGB(255, 255, 255));
    return static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
}
