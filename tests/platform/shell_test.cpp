#include <windows.h>
#include <commctrl.h>

#include <cstring>
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
    HWND bar = nullptr;  // made on WM_CREATE by windows of the device kind
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
    if (message == WM_NCDESTROY) delete received;
    return message == WM_COMMAND ? 0 : DefWindowProcW(window, message, wParam, lParam);
}

// Like the device's windows: an empty menu bar made during WM_CREATE.
LRESULT CALLBACK DeviceLikeProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = RecordingProc(window, message, wParam, lParam);
    if (message == WM_CREATE) ReceivedBy(window).bar = CreateBar(window, SHCMBF_EMPTYBAR);
    return result;
}

// A window of rectangle x, y, width, height; made by CreateDeviceWindow unless `plain`.
HWND Create(DWORD exStyle, DWORD style, RECT r, HWND owner = nullptr, bool plain = false, bool withBar = false) {
    WNDPROC proc = withBar ? DeviceLikeProc : RecordingProc;
    const wchar_t* name = TestWindowClass(withBar ? L"QLDeviceLike" : L"QLRecording", proc,
                                          static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    HINSTANCE instance = GetModuleHandleW(nullptr);
    if (plain)
        return CreateWindowExW(exStyle, name, L"", style, r.left, r.top, r.right, r.bottom, owner, nullptr, instance,
                               nullptr);
    return CreateDeviceWindow(exStyle, name, L"", style, r.left, r.top, r.right, r.bottom, owner, nullptr, instance,
                              nullptr);
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
    HWND main = Create(WS_EX_CAPTIONOKBTN, 0x14000800, {60, 40, CW_USEDEFAULT, CW_USEDEFAULT}, nullptr, false, true);
    RECT frame = Frame(main);
    MoveWindow(main, frame.left, frame.top, frame.right - frame.left, Height(frame) - BarHeight(), FALSE);
    return main;
}

bool DeviceScreenSized(HWND window) {
    RECT client;
    GetClientRect(window, &client);
    return client.right == ScaleForDisplay(240) && client.bottom + BarHeight() == ScaleForDisplayY(294);
}

void Click(HWND window, RECT r) {
    LPARAM at = MAKELPARAM((r.left + r.right) / 2, (r.top + r.bottom) / 2);
    SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, at);
    SendMessageW(window, WM_LBUTTONUP, 0, at);
}

void ClickCentre(HWND window) {
    RECT client;
    GetClientRect(window, &client);
    Click(window, client);
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
    RECT frame = Frame(parent), client = Client(parent);
    HWND bar = CreateBar(parent, SHCMBF_HMENU, library, 102);  // "Done" (command 1), then a drop-down
    ASSERT_EQ(SendMessageW(bar, TB_BUTTONCOUNT, 0, 0), 2);
    EXPECT_NE(GetSubMenu(reinterpret_cast<HMENU>(SendMessageW(bar, SHCMBM_GETMENU, 0, 0)), 1), nullptr);
    RECT button;
    SendMessageW(bar, TB_GETRECT, IDOK, reinterpret_cast<LPARAM>(&button));
    Click(bar, button);
    PumpMessages();
    EXPECT_EQ(ReceivedBy(parent).commands, (std::vector<WPARAM>{IDOK | 0x80000000u}));

    EXPECT_TRUE(Same(Client(parent), client)) << "the parent grows by the strip instead";
    EXPECT_EQ(Height(Frame(parent)), Height(frame) + BarHeight());
    EXPECT_TRUE(Docked(bar, parent));
    SetWindowPos(parent, nullptr, 30, 40, 350, 280, SWP_NOZORDER);
    EXPECT_TRUE(Docked(bar, parent)) << "after a move and resize";
    RECT strip = Frame(bar);
    EXPECT_EQ(WindowFromPoint({(strip.left + strip.right) / 2, strip.bottom - 2}), bar)
        << "the parent leaves the strip";
    ShowWindow(parent, SW_HIDE);
    EXPECT_FALSE(IsWindowVisible(bar));
    ShowWindow(parent, SW_SHOWNOACTIVATE);
    EXPECT_TRUE(IsWindowVisible(bar) && Docked(bar, parent));

    frame = Frame(parent);
    client = Client(parent);
    DestroyWindow(bar);
    EXPECT_EQ(Height(Frame(parent)), Height(frame) - BarHeight()) << "the strip given back";
    EXPECT_TRUE(Same(Client(parent), client));
    DestroyWindow(parent);
    FreeLibrary(library);
}

TEST(CaptionOk, ControlSitsTopRightOrInTheMenuBarAndPostsIdok) {
    HWND window = Create(WS_EX_CAPTIONOKBTN, WS_POPUP | WS_VISIBLE, {50, 50, 240, 300});
    HWND control = CaptionOkControl(window);
    ASSERT_NE(control, nullptr);
    RECT client = Client(window), rect = Frame(control);
    EXPECT_TRUE(GetParent(control) == window && client.right - rect.right < 8 && rect.top - client.top < 8);
    ClickCentre(control);

    HWND bar = CreateBar(window, SHCMBF_EMPTYBAR);
    HWND inBar = CaptionOkControl(window);
    RECT strip = Frame(bar);
    rect = Frame(inBar);
    EXPECT_TRUE(GetParent(inBar) == bar && rect.right <= strip.right && strip.right - rect.right < 8);
    ClickCentre(inBar);
    PumpMessages();
    EXPECT_EQ(ReceivedBy(window).commands, (std::vector<WPARAM>{IDOK, IDOK})) << "from both places";
    DestroyWindow(bar);
    EXPECT_EQ(GetParent(CaptionOkControl(window)), window) << "back in the client area";
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
                       main, false, true);
    EXPECT_TRUE(Same(Client(page), Client(main)));
    EXPECT_TRUE(Same(Frame(ReceivedBy(page).bar), Frame(ReceivedBy(main).bar))) << "its bar over the main one's";
    int moves = ReceivedBy(page).moves;
    SetWindowPos(main, nullptr, 0, 0, frame.right - frame.left + 60, Height(frame) + 40, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_TRUE(Same(Client(page), Client(main)));
    EXPECT_GT(ReceivedBy(page).moves, moves) << "a resize in place still tells the page WM_MOVE";
    moves = ReceivedBy(main).moves;
    SetWindowPos(main, nullptr, 7, 9, frame.right - frame.left, Height(frame), SWP_NOZORDER);
    EXPECT_EQ(ReceivedBy(main).moves, moves + 1) << "once";
    EXPECT_TRUE(Same(Client(page), Client(main))) << "after a move";

    // The handle's low bit brings the owned pop-ups forward too, the page taking the input.
    HWND other = CreatePlain({0, 0, 600, 600});
    SetForegroundWindow(other);
    EXPECT_TRUE(DeviceSetForegroundWindow(reinterpret_cast<HWND>(reinterpret_cast<UINT_PTR>(main) | 1)));
    EXPECT_EQ(GetForegroundWindow(), page);
    DestroyWindow(other);
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
    if (message == WM_APP && CaptionOkControl(dialog)) ClickCentre(CaptionOkControl(dialog));
    if (message == WM_APP && !CaptionOkControl(dialog)) EndDialog(dialog, 5);
    if (message == WM_COMMAND && wParam == IDOK && lParam == 0) EndDialog(dialog, 77);
    return message == WM_INITDIALOG;
}

std::vector<BYTE> Template(bool extended, DWORD exStyle) {
    std::vector<BYTE> bytes(64, 0);  // no controls, position and size 0, no menu, no class, empty title
    DWORD style = kDialogStyle;
    WORD head[2] = {1, 0xFFFF};
    if (extended) memcpy(&bytes[0], head, 4);
    memcpy(&bytes[extended ? 12 : 0], &style, 4);
    memcpy(&bytes[extended ? 8 : 4], &exStyle, 4);
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

TEST(SHHandleWMActivate, RemembersTheFocusOnDeactivationAndRestoresIt) {
    HWND window = CreatePlain();
    HWND first =
        CreateWindowExW(0, L"edit", L"", WS_CHILD | WS_VISIBLE, 10, 10, 100, 20, window, nullptr, nullptr, nullptr);
    HWND second =
        CreateWindowExW(0, L"edit", L"", WS_CHILD | WS_VISIBLE, 10, 40, 100, 20, window, nullptr, nullptr, nullptr);
    SetForegroundWindow(window);
    SHACTIVATEINFO info = {kDeviceActivateInfoSize};
    SetFocus(second);
    EXPECT_TRUE(SHHandleWMActivate(window, WA_INACTIVE, 0, &info, 0));
    SetFocus(first);
    EXPECT_TRUE(SHHandleWMActivate(window, WA_ACTIVE, 0, &info, 0));
    EXPECT_EQ(GetFocus(), second);
    DestroyWindow(window);
}

}  // namespace
