#include "shell/icon_marker_strip.h"

#include <commctrl.h>

#include "support/app_state.h"
#include "support/display_scale.h"
#include "shell/item_icons.h"
#include "shell/settings_page.h"
#include "support/handles.h"

namespace {

const wchar_t kStripClass[] = L"IconMarkerStrip";
const wchar_t kToolTipClass[] = L"ToolTipWindow";
const UINT kTipShowMs = 350;
const UINT kTipHideMs = 3200;

LRESULT CALLBACK ToolTipProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_PAINT) {
        PAINTSTRUCT paint;
        HDC dc = BeginPaint(window, &paint);
        RECT area;
        GetClientRect(window, &area);
        FillRect(dc, &area, GetSysColorBrush(COLOR_INFOBK));
        FrameRect(dc, &area, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
        wchar_t text[128];
        GetWindowTextW(window, text, 128);
        DcSelection font(dc, g_app.normalFont ? g_app.normalFont : GetStockObject(DEFAULT_GUI_FONT));
        SetBkMode(dc, TRANSPARENT);
        DrawTextW(dc, text, -1, &area, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
        EndPaint(window, &paint);
        return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

void RegisterClasses(WNDPROC stripProc) {
    static bool registered = false;
    if (registered) return;
    WNDCLASSW strip = {};
    strip.lpfnWndProc = stripProc;
    strip.hInstance = GetModuleHandleW(nullptr);
    strip.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    strip.hbrBackground = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
    strip.lpszClassName = kStripClass;
    RegisterClassW(&strip);
    WNDCLASSW tip = strip;
    tip.lpfnWndProc = ToolTipProc;
    tip.lpszClassName = kToolTipClass;
    RegisterClassW(&tip);
    registered = true;
}

}  // namespace

IconMarkerStrip::~IconMarkerStrip() {
    HideTip();
    if (window_ && IsWindow(window_)) {
        SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
        DestroyWindow(window_);
    }
}

HWND IconMarkerStrip::Create(HWND ownerPage, int number, int x, int y, int width, bool menuMode) {
    RegisterClasses(WindowProc);
    owner_ = ownerPage;
    number_ = number;
    menuMode_ = menuMode;
    window_ = CreateWindowExW(0, kStripClass, L"", WS_CHILD | WS_VISIBLE, x, y, width, ScaleForDisplay(18), ownerPage,
                              nullptr, GetModuleHandleW(nullptr), this);
    return window_;
}

void IconMarkerStrip::AddMarker(const wchar_t* name, int image, int value, MarkerState state) {
    markers_.push_back(Marker{WString(name), image, value, state});
    if (window_) InvalidateRect(window_, nullptr, TRUE);
}

void IconMarkerStrip::RemoveMarker(int value) {
    int index = IndexOfValue(value);
    if (index < 0) return;
    markers_.erase(markers_.begin() + index);
    if (window_) InvalidateRect(window_, nullptr, TRUE);
}

int IconMarkerStrip::IndexOfValue(int value) const {
    for (size_t i = 0; i < markers_.size(); ++i)
        if (markers_[i].value == value) return static_cast<int>(i);
    return -1;
}

DWORD IconMarkerStrip::OnSet() const {
    DWORD bits = 0;
    for (const Marker& marker : markers_)
        if (marker.state != kMarkerOff && marker.value >= 0 && marker.value < 32) bits |= 1u << marker.value;
    return bits;
}

int IconMarkerStrip::HitTest(int x) const {
    int cell = ScaleForDisplay(16);
    if (x < 0 || cell <= 0) return -1;
    int index = x / cell;
    return index < count() ? index : -1;
}

void IconMarkerStrip::Tap(int x, int y) {
    if (menuMode_) {
        OpenMenu();
        return;
    }
    int index = HitTest(x);
    if (index < 0) return;
    Marker& marker = markers_[index];
    if (marker.state == kMarkerOff)
        marker.state = kMarkerOn;
    else if (marker.state == kMarkerOn)
        marker.state = kMarkerOff;
    POINT tap = {x, y};
    ClientToScreen(window_, &tap);
    ShowTip(marker.name.c_str(), tap);
    SetTimer(window_, kTipShowTimer, kTipShowMs, nullptr);
    SetTimer(window_, kTipHideTimer, kTipHideMs, nullptr);
    InvalidateRect(window_, nullptr, TRUE);
    SendMessageW(owner_, kMarkerToggledMessage, static_cast<WPARAM>(number_), 0);
}

void IconMarkerStrip::ChooseMarker(int value) {
    for (Marker& marker : markers_)
        if (marker.state != kMarkerFixed) marker.state = kMarkerOn;
    int index = IndexOfValue(value);
    if (index >= 0 && markers_[index].state != kMarkerFixed) markers_[index].state = kMarkerOff;
    if (window_) InvalidateRect(window_, nullptr, TRUE);
    SendMessageW(owner_, kMarkerSelectedMessage, static_cast<WPARAM>(value), static_cast<LPARAM>(number_));
}

int IconMarkerStrip::ChosenValue() const {
    for (const Marker& marker : markers_)
        if (marker.state == kMarkerOff) return marker.value;
    return kNoMarker;
}

void IconMarkerStrip::OpenMenu() {
    HMENU menu = CreatePopupMenu();
    bool noneOff = true;
    for (const Marker& marker : markers_) noneOff = noneOff && marker.state != kMarkerOff;
    WString all;
    all.load(g_app.languageLibrary, kAllMarkersTextId);
    AppendMenuW(menu, MF_STRING | (noneOff ? MF_CHECKED : 0), kMarkerCommandBase - 1, all.c_str());
    for (const Marker& marker : markers_) {
        UINT flags = MF_STRING | (marker.state != kMarkerOff ? MF_CHECKED : 0);
        AppendMenuW(menu, flags, kMarkerCommandBase + marker.value, marker.name.c_str());
    }
    RECT strip;
    GetWindowRect(window_, &strip);
    UINT command = TrackPopupMenu(menu, TPM_RETURNCMD | TPM_LEFTALIGN | TPM_TOPALIGN, strip.left,
                                  strip.top + ScaleForDisplay(18), 0, window_, nullptr);
    DestroyMenu(menu);
    if (command >= kMarkerCommandBase && command <= kMarkerCommandLast) ChooseMarker(command - kMarkerCommandBase);
    if (command == kMarkerCommandBase - 1) ChooseMarker(kNoMarker);
}

void IconMarkerStrip::ShowTip(const wchar_t* text, POINT tap) {
    HideTip();
    HDC screen = GetDC(nullptr);
    SIZE extent = {};
    {
        DcSelection font(screen, g_app.normalFont ? g_app.normalFont : GetStockObject(DEFAULT_GUI_FONT));
        GetTextExtentPoint32W(screen, text, lstrlenW(text), &extent);
    }
    ReleaseDC(nullptr, screen);
    int width = extent.cx + ScaleForDisplay(8);
    int height = extent.cy + ScaleForDisplay(4);
    // The tip's lower right corner sits just left of and above the tap.
    int right = tap.x - ScaleForDisplay(2);
    int bottom = tap.y - ScaleForDisplay(2);
    toolTip_ = CreateWindowExW(WS_EX_TOPMOST | WS_EX_TOOLWINDOW, kToolTipClass, text, WS_POPUP, right - width,
                               bottom - height, width, height, owner_, nullptr, GetModuleHandleW(nullptr), nullptr);
    if (toolTip_) ShowWindow(toolTip_, SW_SHOWNOACTIVATE);
}

void IconMarkerStrip::HideTip() {
    if (toolTip_) DestroyWindow(toolTip_);
    toolTip_ = nullptr;
    if (window_ && IsWindow(window_)) {
        KillTimer(window_, kTipShowTimer);
        KillTimer(window_, kTipHideTimer);
    }
}

// A drop-down shows only its chosen marker (none: an empty cell) and an arrow that opens the menu.
void IconMarkerStrip::PaintChoice(HDC dc) {
    RECT client;
    GetClientRect(window_, &client);
    FrameRect(dc, &client, static_cast<HBRUSH>(GetStockObject(GRAY_BRUSH)));
    int index = IndexOfValue(ChosenValue());
    if (index >= 0 && ItemIcons())
        ImageList_Draw(ItemIcons(), markers_[index].image, dc, ScaleForDisplay(1), ScaleForDisplay(1), ILD_TRANSPARENT);
    int middle = ScaleForDisplay(17) + (client.right - ScaleForDisplay(17)) / 2;
    int top = client.bottom / 2 - ScaleForDisplay(1);
    POINT arrow[3] = {{middle - ScaleForDisplay(2), top}, {middle + ScaleForDisplay(2), top},
                      {middle, top + ScaleForDisplay(2)}};
    DcSelection brush(dc, GetStockObject(BLACK_BRUSH));
    DcSelection pen(dc, GetStockObject(BLACK_PEN));
    Polygon(dc, arrow, 3);
}

void IconMarkerStrip::Paint() {
    PAINTSTRUCT paint;
    HDC dc = BeginPaint(window_, &paint);
    if (menuMode_) {
        PaintChoice(dc);
        EndPaint(window_, &paint);
        return;
    }
    int cell = ScaleForDisplay(16);
    HIMAGELIST icons = ItemIcons();
    for (int i = 0; i < count(); ++i) {
        const Marker& marker = markers_[i];
        RECT box = {i * cell, 0, (i + 1) * cell, ScaleForDisplay(18)};
        if (marker.state != kMarkerOff) FillRect(dc, &box, GetSysColorBrush(COLOR_HIGHLIGHT));
        if (icons) ImageList_Draw(icons, marker.image, dc, box.left, box.top + ScaleForDisplay(1), ILD_TRANSPARENT);
        if (marker.state == kMarkerFixed) FrameRect(dc, &box, static_cast<HBRUSH>(GetStockObject(GRAY_BRUSH)));
    }
    EndPaint(window_, &paint);
}

LRESULT CALLBACK IconMarkerStrip::WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        auto* create = reinterpret_cast<CREATESTRUCTW*>(lParam);
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(create->lpCreateParams));
    }
    auto* strip = reinterpret_cast<IconMarkerStrip*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!strip) return DefWindowProcW(window, message, wParam, lParam);
    switch (message) {
    case WM_PAINT:
        strip->Paint();
        return 0;
    case WM_LBUTTONDOWN:
        strip->Tap(static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam)));
        return 0;
    case WM_TIMER:
        KillTimer(window, wParam);
        if (wParam == kTipHideTimer) strip->HideTip();
        return 0;
    case WM_NCDESTROY:
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        strip->window_ = nullptr;
        return DefWindowProcW(window, message, wParam, lParam);
    default:
        return DefWindowProcW(window, message, wParam, lParam);
    }
}
