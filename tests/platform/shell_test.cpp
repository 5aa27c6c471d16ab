#include <windows.h>
#include <commctrl.h>

#include <cstring>
#include <string>
#include <vector>

#include "common/test_support.h"
#include "platform/device_window.h"
#include "platform/shell.h"
#include "support/display_scale.h"

namespace {

const DWORD kDialogStyle = 0x90C00000;  // WS_POPUP | WS_VISIBLE | WS_CAPTION
const DWORD kFullScreenDone = SHIDIF_DONEBUTTON | SHIDIF_SIZEDLGFULLSCREEN | SHIDIF_SIPDOWN;

int BarHeight() { return ScaleForDisplayY(26); }

struct Received {
    std::vector<WPARAM> commands;  // wParam of each WM_COMMAND; the top bit marks a non-zero lParam
    int moves = 0;
    HWND bar = nullptr;  // an empty menu bar made on WM_CREATE, as device code does, by windows made as device ones
};

Received& ReceivedBy(HWND window) { return *reinterpret_cast<Received*>(GetWindowLongPtrW(window, GWLP_USERDATA)); }

HWND CreateBar(HWND parent, DWORD flags, HINSTANCE resources = nullptr, UINT menu = 0) {
    SHMENUBARINFO info = {kDeviceMenuBarInfoSize, parent, flags, menu, resources};
    return SHCreateMenuBar(&info) ? info.hwndMB : nullptr;
}

LRESULT CALLBACK RecordingProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(new Received));
    Received* received = reinterpret_cast<Received*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (message == WM_COMMAND) received->commands.push_back(lParam ? wParam | 0x80000000u : wParam);
    if (message == WM_MOVE) received->moves++;
    if (message == WM_CREATE && reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams)
        received->bar = CreateBar(window, SHCMBF_EMPTYBAR);
    if (message == WM_NCDESTROY) delete received;
    return message == WM_COMMAND ? 0 : DefWindowProcW(window, message, wParam, lParam);
}

// A window of rectangle x, y, width, height; made by CreateDeviceWindow (with a bar) unless `plain`.
HWND Create(DWORD exStyle, DWORD style, RECT r, HWND owner = nullptr, bool plain = false) {
    const wchar_t* name =
        TestWindowClass(L"QLRecording", RecordingProc, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    HINSTANCE instance = GetModuleHandleW(nullptr);
    if (plain)
        return CreateWindowExW(exStyle, name, L"", style, r.left, r.top, r.right, r.bottom, owner, nullptr, instance,
                               nullptr);
    return CreateDeviceWindow(exStyle, name, L"", style, r.left, r.top, r.right, r.bottom, owner, nullptr, instance,
                              instance);
}

HWND CreatePlain(RECT r = {100, 50, 300, 400}, DWORD style = WS_OVERLAPPEDWINDOW | WS_VISIBLE, HWND owner = nullptr) {
    return Create(0, style, r, owner, true);
}

RECT Frame(HWND window) {
    RECT rect;
    GetWindowRect(window, &rect);
    return rect;
}

RECT Client(HWND window) {
    RECT client;
    GetClientRect(window, &client);
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&client), 2);
    return client;
}

int Height(const RECT& r) { return r.bottom - r.top; }
bool Same(const RECT& a, const RECT& b) { return EqualRect(&a, &b) != FALSE; }

// The device's main window (style 0x14000800, default size), shortened by its menu bar as device code does.
HWND CreateMainWindow() {
    HWND main = Create(WS_EX_CAPTIONOKBTN, 0x14000800, {60, 40, CW_USEDEFAULT, CW_USEDEFAULT});
    RECT frame = Frame(main);
    MoveWindow(main, frame.left, frame.top, frame.right - frame.left, Height(frame) - BarHeight(), FALSE);
    return main;
}

bool DeviceScreenSized(HWND window) {
    RECT client;
    GetClientRect(window, &client);
    return client.right == ScaleForDisplay(240) && client.bottom + BarHeight() == ScaleForDisplayY(294);
}

void Click(HWND window, RECT r = {}) {
    if (IsRectEmpty(&r)) GetClientRect(window, &r);
    LPARAM at = MAKELPARAM((r.left + r.right) / 2, (r.top + r.bottom) / 2);
    SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, at);
    SendMessageW(window, WM_LBUTTONUP, 0, at);
}

// The bar fills the strip right below the parent's client area, as wide as it, inside the frame.
bool Docked(HWND bar, HWND parent) {
    RECT client = Client(parent), strip = Frame(bar);
    return strip.left == client.left && strip.top == client.bottom && strip.right == client.right &&
           Height(strip) == BarHeight() && strip.bottom <= Frame(parent).bottom;
}

TEST(MenuBar, ButtonsFromTheMenuPostToTheParentAndTheBarStaysDockedBelowItsClientArea) {
    HMODULE library = LoadLibraryExW((TestBinDir() + L"\\QLEngRc.dll").c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    HWND parent = CreatePlain();
    RECT client = Client(parent);
    HWND bar = CreateBar(parent, SHCMBF_HMENU, library, 102);  // "Done" (command 1), then a drop-down
    ASSERT_EQ(SendMessageW(bar, TB_BUTTONCOUNT, 0, 0), 2);
    RECT button;
    SendMessageW(bar, TB_GETRECT, IDOK, reinterpret_cast<LPARAM>(&button));
    Click(bar, button);
    PumpMessages();
    EXPECT_EQ(ReceivedBy(parent).commands, (std::vector<WPARAM>{IDOK | 0x80000000u}));

    EXPECT_TRUE(Same(Client(parent), client)) << "the parent grows by the strip instead";
    EXPECT_TRUE(Docked(bar, parent));
    SetWindowPos(parent, nullptr, 30, 40, 350, 280, SWP_NOZORDER);
    ShowWindow(parent, SW_HIDE);
    EXPECT_FALSE(IsWindowVisible(bar));
    ShowWindow(parent, SW_SHOWNOACTIVATE);
    EXPECT_TRUE(IsWindowVisible(bar) && Docked(bar, parent)) << "after a move and resize";

    RECT frame = Frame(parent);
    DestroyWindow(bar);
    EXPECT_EQ(Height(Frame(parent)), Height(frame) - BarHeight()) << "the strip given back";
    DestroyWindow(parent);
    FreeLibrary(library);
}

TEST(CaptionOk, ControlSitsInTheMenuBarOrTopRightAndPostsIdok) {
    HWND window = Create(WS_EX_CAPTIONOKBTN, WS_POPUP | WS_VISIBLE, {50, 50, 240, 300});
    HWND control = CaptionOkControl(window), bar = ReceivedBy(window).bar;
    RECT strip = Frame(bar), rect = Frame(control);
    EXPECT_TRUE(GetParent(control) == bar && rect.right <= strip.right && strip.right - rect.right < 8);
    Click(control);
    DestroyWindow(bar);
    control = CaptionOkControl(window);
    RECT client = Client(window), inClient = Frame(control);
    EXPECT_TRUE(GetParent(control) == window && client.right - inClient.right < 8 && inClient.top - client.top < 8);
    Click(control);
    PumpMessages();
    EXPECT_EQ(ReceivedBy(window).commands, (std::vector<WPARAM>{IDOK, IDOK})) << "from both places";
    DestroyWindow(window);
}

TEST(DeviceWindow, MainWindowIsDeviceSizedAndPagesCoverItsClientArea) {
    HWND main = CreateMainWindow();
    EXPECT_TRUE(DeviceScreenSized(main)) << "client and bar fill the device's screen";
    SetWindowPos(main, nullptr, 0, 0, 500, 600, SWP_NOMOVE | SWP_NOZORDER);
    RECT frame = Frame(main);
    SizeAsDevice(main);
    EXPECT_TRUE(DeviceScreenSized(main));
    EXPECT_TRUE(Frame(main).left == frame.left && Frame(main).top == frame.top) << "in its place";

    // A page (style 0x90000800) asks for its owner's window rectangle.
    frame = Frame(main);
    HWND page = Create(WS_EX_CAPTIONOKBTN, 0x90000800, {frame.left, frame.top, frame.right - frame.left, Height(frame)},
                       main);
    EXPECT_TRUE(Same(Client(page), Client(main)));
    EXPECT_TRUE(Same(Frame(ReceivedBy(page).bar), Frame(ReceivedBy(main).bar))) << "its bar over the main one's";
    int moves = ReceivedBy(page).moves;
    SetWindowPos(main, nullptr, 0, 0, frame.right - frame.left + 60, Height(frame) + 40, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_TRUE(Same(Client(page), Client(main)));
    EXPECT_GT(ReceivedBy(page).moves, moves) << "a resize in place still tells the page WM_MOVE";
    SetWindowPos(main, nullptr, 7, 9, frame.right - frame.left, Height(frame), SWP_NOZORDER);
    EXPECT_TRUE(Same(Client(page), Client(main))) << "after a move";

    HWND pageBar = ReceivedBy(page).bar;
    DestroyWindow(page);
    EXPECT_TRUE(!IsWindow(pageBar) && IsWindow(ReceivedBy(main).bar)) << "the page's bar went with the page";
    DestroyWindow(main);
}

BOOL InitDialog(HWND dialog, DWORD flags) {
    SHINITDLGINFO info = {SHIDIM_FLAGS, dialog, flags};
    return SHInitDialog(&info);
}

TEST(SHInitDialog, FullScreenDialogsCoverTheirOwnerOrTheMainWindowAndRefitWithTheInputPanel) {
    HWND main = CreateMainWindow();
    SipShowIM(SIPF_ON);
    HWND dialog = CreatePlain({300, 300, 100, 80}, kDialogStyle);
    EXPECT_TRUE(InitDialog(dialog, SHIDIF_SIPDOWN));
    EXPECT_TRUE(Same(Frame(dialog), {300, 300, 400, 380}) && !CaptionOkControl(dialog) && SipShownFlags() == SIPF_OFF);
    EXPECT_TRUE(InitDialog(dialog, kFullScreenDone));
    HWND bar = CreateBar(dialog, SHCMBF_EMPTYBAR);
    EXPECT_TRUE(Same(Frame(dialog), Frame(main))) << "a bar after SHInitDialog takes its strip from the client area";
    EXPECT_TRUE(Docked(bar, dialog) && GetParent(CaptionOkControl(dialog)) == bar);
    HWND owner = CreatePlain({400, 100, 260, 300});
    HWND owned = CreatePlain({300, 300, 100, 80}, kDialogStyle, owner);
    EXPECT_TRUE(InitDialog(owned, kFullScreenDone));
    EXPECT_TRUE(Same(Frame(owned), Frame(owner))) << "an owner wins over the main window";

    SHACTIVATEINFO info = {kDeviceActivateInfoSize};
    SetWindowPos(dialog, nullptr, 5, 5, 100, 100, SWP_NOZORDER);
    EXPECT_TRUE(SHHandleWMSettingChange(dialog, SPI_SETWORKAREA, 0, &info) && Same(Frame(dialog), {5, 5, 105, 105}));
    EXPECT_TRUE(SHHandleWMSettingChange(dialog, SPI_SETSIPINFO, 0, &info) && Same(Frame(dialog), Frame(main)));
    for (HWND window : {dialog, owned, owner, main}) DestroyWindow(window);
}

INT_PTR CALLBACK ClickOkOnceShown(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) PostMessageW(dialog, WM_APP, 0, 0);
    if (message == WM_APP && CaptionOkControl(dialog)) Click(CaptionOkControl(dialog));
    if (message == WM_APP && !CaptionOkControl(dialog)) EndDialog(dialog, 5);
    if (message == WM_COMMAND && wParam == IDOK && lParam == 0) EndDialog(dialog, 77);
    return message == WM_INITDIALOG;
}

// No controls, position and size 0, no menu, no class, empty title.
std::vector<BYTE> Template(bool extended, DWORD exStyle) {
    const DWORD classic[] = {kDialogStyle, exStyle}, extendedHead[] = {0xFFFF0001, 0, exStyle, kDialogStyle};
    std::vector<BYTE> bytes(64, 0);
    memcpy(bytes.data(), extended ? extendedHead : classic, extended ? 16 : 8);
    return bytes;
}

TEST(DeviceDialog, TemplatesLoseOnlyTheCaptionOkBitAndTheDialogGetsTheOkControl) {
    for (bool extended : {false, true}) {
        std::vector<BYTE> bytes = Template(extended, 0x80000008);
        EXPECT_TRUE(StripCaptionOkButton(reinterpret_cast<DLGTEMPLATE*>(bytes.data())));
        EXPECT_EQ(bytes, Template(extended, 0x00000008)) << extended;
        bytes = Template(extended, extended ? WS_EX_CAPTIONOKBTN : 0);
        EXPECT_EQ(DeviceDialogBoxIndirectParam(GetModuleHandleW(nullptr), reinterpret_cast<DLGTEMPLATE*>(bytes.data()),
                                               nullptr, ClickOkOnceShown, 0),
                  extended ? 77 : 5);
    }
}

HBITMAP MakeBitmap(int width, int height, const std::vector<COLORREF>& pixels) {
    DWORD* out = nullptr;
    HBITMAP bitmap = CreateTopDownDib(width, height, &out);
    for (size_t i = 0; i < pixels.size(); ++i) out[i] = DibPixelOfColour(pixels[i]);
    return bitmap;
}

const COLORREF kKey = RGB(255, 0, 255), kBackground = RGB(0, 0, 255), kInk = RGB(200, 100, 50);

// What a 4 x 4 canvas of the background colour shows after `draw`: rows of '.' background, 'x' ink, '?' else.
template <typename Draw>
std::string Drawn(Draw draw) {
    HDC dc = CreateCompatibleDC(nullptr);
    HBITMAP canvas = MakeBitmap(4, 4, std::vector<COLORREF>(16, kBackground));
    HGDIOBJ previous = SelectObject(dc, canvas);
    draw(dc);
    std::string rows;
    for (int i = 0; i < 16; ++i) {
        COLORREF pixel = GetPixel(dc, i % 4, i / 4);
        rows += std::string(i && i % 4 == 0 ? "|" : "") + (pixel == kBackground ? '.' : pixel == kInk ? 'x' : '?');
    }
    DeleteObject(SelectObject(dc, previous));
    DeleteDC(dc);
    return rows;
}

TEST(TransparentImage, DrawsABitmapStretchedWithoutTheKeyColourAndRefusesEmptyShapes) {
    HBITMAP source = MakeBitmap(2, 2, {kKey, kInk, kInk, kKey});
    EXPECT_EQ(Drawn([&](HDC dc) { EXPECT_TRUE(TransparentImage(dc, 0, 0, 4, 4, source, 0, 0, 2, 2, kKey)); }),
              "..xx|..xx|xx..|xx..");
    EXPECT_EQ(Drawn([&](HDC dc) {
                  EXPECT_FALSE(TransparentImage(dc, 0, 0, -2, 2, source, 0, 0, 2, 2, kKey));
                  EXPECT_FALSE(TransparentImage(dc, 0, 0, 2, 2, source, 0, 0, 2, 0, kKey));
                  EXPECT_FALSE(TransparentImage(dc, 0, 0, 2, 2, nullptr, 0, 0, 2, 2, kKey));
                  EXPECT_TRUE(TransparentImage(dc, 1, 2, 3, 2, source, 1, 0, 1, 2, kKey)) << "drawn again: put back";
              }),
              "....|....|.xxx|....");
    DeleteObject(source);
}

}  // namespace
