#include <windows.h>
#include <commctrl.h>

#include <cstring>
#include <vector>

#include "common/test_support.h"
#include "platform/device_window.h"
#include "platform/shell.h"
#include "support/display_scale.h"

namespace {

const DWORD kPopup = WS_POPUP | WS_VISIBLE;
const DWORD kDialogStyle = 0x90C00000;  // WS_POPUP | WS_VISIBLE | WS_CAPTION
const DWORD kFullScreenDone = SHIDIF_DONEBUTTON | SHIDIF_SIZEDLGFULLSCREEN | SHIDIF_SIPDOWN;

int BarHeight() { return ScaleForDisplayY(26); }

struct Received {
    std::vector<WPARAM> commands;  // wParam of each WM_COMMAND; the top bit marks a non-zero lParam
    int moves = 0;
    HWND bar = nullptr;  // made on WM_CREATE by windows of the device kind
};

Received& ReceivedBy(HWND window) { return *reinterpret_cast<Received*>(GetWindowLongPtrW(window, GWLP_USERDATA)); }

HWND CreateBar(HWND parent, DWORD flags, HINSTANCE resources = nullptr, UINT menu = 0, DWORD size = kDeviceMenuBarInfoSize) {
    SHMENUBARINFO info = {size, parent, flags, menu, resources};
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
    if (plain) return CreateWindowExW(exStyle, name, L"", style, r.left, r.top, r.right, r.bottom, owner, nullptr, instance, nullptr);
    return CreateDeviceWindow(exStyle, name, L"", style, r.left, r.top, r.right, r.bottom, owner, nullptr, instance, nullptr);
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

RECT g_shownMenu;

VOID CALLBACK NoteMenuAndCloseIt(HWND, UINT, UINT_PTR timer, DWORD) {
    KillTimer(nullptr, timer);
    GetWindowRect(FindWindowW(L"#32768", nullptr), &g_shownMenu);
    PostMessageW(GetForegroundWindow(), WM_KEYDOWN, VK_ESCAPE, 0);
}

TEST(MenuBar, MenuItemsBecomeButtonsWhoseCommandsAndDropDownsReachTheParent) {
    HMODULE library = LoadLibraryExW((TestBinDir() + L"\\QLEngRc.dll").c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    HWND parent = CreatePlain();
    HWND bar = CreateBar(parent, SHCMBF_HMENU, library, 102);  // "Done" (command 1), then a drop-down
    ASSERT_EQ(SendMessageW(bar, TB_BUTTONCOUNT, 0, 0), 2);
    TBBUTTON done = {}, more = {};
    SendMessageW(bar, TB_GETBUTTON, 0, reinterpret_cast<LPARAM>(&done));
    SendMessageW(bar, TB_GETBUTTON, 1, reinterpret_cast<LPARAM>(&more));
    EXPECT_EQ(done.idCommand, IDOK) << "a plain item keeps its command";
    HMENU original = GetSubMenu(reinterpret_cast<HMENU>(SendMessageW(bar, SHCMBM_GETMENU, 0, 0)), 1);
    ASSERT_NE(original, nullptr);
    EXPECT_EQ(reinterpret_cast<HMENU>(SendMessageW(bar, SHCMBM_GETSUBMENU, 0, more.idCommand)), original);

    SetForegroundWindow(parent);
    SetTimer(nullptr, 0, 300, NoteMenuAndCloseIt);
    RECT button;
    SendMessageW(bar, TB_GETRECT, more.idCommand, reinterpret_cast<LPARAM>(&button));
    Click(bar, button);  // returns when the menu closes
    MapWindowPoints(bar, nullptr, reinterpret_cast<POINT*>(&button), 2);
    EXPECT_TRUE(g_shownMenu.bottom == button.top && g_shownMenu.left == button.left) << "opened above its button";
    SendMessageW(bar, TB_GETRECT, IDOK, reinterpret_cast<LPARAM>(&button));
    Click(bar, button);
    PumpMessages();
    EXPECT_EQ(ReceivedBy(parent).commands, (std::vector<WPARAM>{IDOK | 0x80000000u}));
    HMENU mine = CreatePopupMenu();
    EXPECT_EQ(reinterpret_cast<HMENU>(SendMessageW(bar, SHCMBM_SETSUBMENU, more.idCommand, (LPARAM)mine)), original);
    EXPECT_EQ(reinterpret_cast<HMENU>(SendMessageW(bar, SHCMBM_GETSUBMENU, 0, more.idCommand)), mine);
    EXPECT_EQ(SendMessageW(bar, SHCMBM_SETSUBMENU, 12345, (LPARAM)mine), 0) << "no such button";
    DestroyWindow(parent);
    DestroyMenu(mine);  // the bar frees only the menu it loaded
    FreeLibrary(library);
}

TEST(MenuBar, BarJoinsBelowTheClientAreaStaysDockedAndGivesTheStripBack) {
    HWND parent = CreatePlain();
    RECT frame = Frame(parent), client = Client(parent);
    HWND bar = CreateBar(parent, SHCMBF_EMPTYBAR);
    EXPECT_TRUE(Same(Client(parent), client)) << "the parent grows by the strip instead";
    EXPECT_EQ(Height(Frame(parent)), Height(frame) + BarHeight());
    EXPECT_TRUE(Docked(bar, parent));
    SetWindowPos(parent, nullptr, 30, 40, 350, 280, SWP_NOZORDER);
    EXPECT_TRUE(Docked(bar, parent)) << "after a move and resize";
    RECT strip = Frame(bar);
    EXPECT_EQ(WindowFromPoint({(strip.left + strip.right) / 2, strip.bottom - 2}), bar) << "the parent leaves the strip";
    ShowWindow(parent, SW_HIDE);
    EXPECT_FALSE(IsWindowVisible(bar));
    ShowWindow(parent, SW_SHOWNOACTIVATE);
    EXPECT_TRUE(IsWindowVisible(bar) && Docked(bar, parent));
    EXPECT_EQ(SendMessageW(bar, WM_MOUSEACTIVATE, 0, MAKELPARAM(HTCLIENT, WM_LBUTTONDOWN)), MA_NOACTIVATE);

    frame = Frame(parent);
    client = Client(parent);
    DestroyWindow(bar);
    EXPECT_EQ(Height(Frame(parent)), Height(frame) - BarHeight());
    EXPECT_TRUE(Same(Client(parent), client));
    HRGN region = CreateRectRgn(0, 0, 0, 0);
    EXPECT_EQ(GetWindowRgn(parent, region), ERROR) << "the parent has its whole window again";
    DeleteObject(region);

    // Hidden and refused bars take no room; a new bar replaces the old and goes with its parent.
    frame = Frame(parent);
    HWND hidden = CreateBar(parent, SHCMBF_EMPTYBAR | SHCMBF_HIDDEN, nullptr, 0, sizeof(SHMENUBARINFO));
    EXPECT_TRUE(hidden && !IsWindowVisible(hidden));
    EXPECT_FALSE(SHCreateMenuBar(nullptr));
    EXPECT_EQ(CreateBar(parent, SHCMBF_EMPTYBAR, nullptr, 0, 12), nullptr) << "unknown structure size";
    EXPECT_EQ(CreateBar(reinterpret_cast<HWND>(static_cast<UINT_PTR>(0xDEAD0)), SHCMBF_EMPTYBAR), nullptr);
    EXPECT_EQ(CreateBar(parent, SHCMBF_HMENU, nullptr, 4242), nullptr) << "no such menu";
    EXPECT_TRUE(Same(Frame(parent), frame));
    bar = CreateBar(parent, SHCMBF_EMPTYBAR);
    EXPECT_FALSE(IsWindow(hidden));
    EXPECT_EQ(Height(Frame(parent)), Height(frame) + BarHeight());
    DestroyWindow(parent);
    EXPECT_FALSE(IsWindow(bar));
}

int Oks(HWND window) {
    PumpMessages();
    int count = 0;
    for (WPARAM command : ReceivedBy(window).commands) count += command == IDOK;
    return count;
}

TEST(CaptionOk, ControlSitsTopRightOrInTheMenuBarAndPostsIdok) {
    HWND window = Create(WS_EX_CAPTIONOKBTN, kPopup, {50, 50, 240, 300});
    EXPECT_EQ(GetWindowLongW(window, GWL_EXSTYLE) & WS_EX_CAPTIONOKBTN, 0u) << "the desktop must not see the bit";
    HWND control = CaptionOkControl(window);
    ASSERT_NE(control, nullptr);
    RECT client = Client(window), rect = Frame(control);
    EXPECT_TRUE(GetParent(control) == window && client.right - rect.right < 8 && rect.top - client.top < 8);
    ClickCentre(control);
    EXPECT_EQ(Oks(window), 1);
    SendMessageW(control, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(2, 2));
    SendMessageW(control, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(500, 500));
    SendMessageW(control, WM_LBUTTONUP, 0, MAKELPARAM(500, 500));
    EXPECT_EQ(Oks(window), 1) << "released elsewhere";

    HWND bar = CreateBar(window, SHCMBF_EMPTYBAR);
    HWND inBar = CaptionOkControl(window);
    RECT strip = Frame(bar);
    rect = Frame(inBar);
    EXPECT_TRUE(GetParent(inBar) == bar && rect.right <= strip.right && strip.right - rect.right < 8);
    EXPECT_EQ(SendMessageW(inBar, WM_MOUSEACTIVATE, 0, 0), MA_NOACTIVATE);
    ClickCentre(inBar);
    EXPECT_EQ(Oks(window), 2);
    DestroyWindow(bar);
    EXPECT_EQ(GetParent(CaptionOkControl(window)), window) << "back in the client area";
    DestroyWindow(window);
}

TEST(DeviceWindow, MainWindowIsDeviceSizedAndPagesCoverItsClientArea) {
    HWND main = CreateMainWindow();
    EXPECT_TRUE(GetWindowLongW(main, GWL_STYLE) & WS_THICKFRAME) << "resizable";
    EXPECT_TRUE(DeviceScreenSized(main)) << "client and bar fill the device's screen";
    EXPECT_EQ(GetParent(CaptionOkControl(main)), ReceivedBy(main).bar);
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
    HWND small = Create(0, kPopup, {20, 30, 50, 40}, main);
    SetWindowPos(main, nullptr, 0, 0, 400, 500, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_TRUE(Same(Frame(small), {20, 30, 70, 70})) << "a pop-up that does not cover its owner stays";
    DestroyWindow(small);

    // The handle's low bit brings the owned pop-ups forward too, the page taking the input.
    HWND other = CreatePlain({0, 0, 600, 600});
    SetForegroundWindow(other);
    EXPECT_TRUE(DeviceSetForegroundWindow(reinterpret_cast<HWND>(reinterpret_cast<UINT_PTR>(main) | 1)));
    EXPECT_EQ(GetForegroundWindow(), page);
    SetForegroundWindow(other);
    EXPECT_TRUE(DeviceSetForegroundWindow(main));
    EXPECT_EQ(GetForegroundWindow(), main) << "without the bit only the window itself";
    DestroyWindow(other);
    DestroyWindow(page);
    EXPECT_TRUE(IsWindow(ReceivedBy(main).bar)) << "the page's bar went with it, the main one stays";
    DestroyWindow(main);
}

BOOL InitDialog(HWND dialog, DWORD flags, DWORD mask = SHIDIM_FLAGS) {
    SHINITDLGINFO info = {mask, dialog, flags};
    return SHInitDialog(&info);
}

TEST(SHInitDialog, FullScreenDialogsCoverTheirOwnerOrTheMainWindowWithRoomForTheirBar) {
    HWND dialog = CreatePlain({300, 300, 100, 80}, kDialogStyle);
    HWND bar = CreateBar(dialog, SHCMBF_EMPTYBAR);
    EXPECT_TRUE(InitDialog(dialog, SHIDIF_SIZEDLG));
    RECT work, frame = Frame(dialog);
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    EXPECT_TRUE(DeviceScreenSized(dialog) && Docked(bar, dialog));
    EXPECT_LE(abs((frame.left + frame.right) - (work.left + work.right)), 1) << "no main window: centred";
    DestroyWindow(dialog);

    HWND main = CreateMainWindow();
    SipShowIM(SIPF_ON);
    dialog = CreatePlain({300, 300, 100, 80}, kDialogStyle);
    EXPECT_TRUE(InitDialog(dialog, kFullScreenDone | SHIDIF_EMPTYMENU, 0));
    EXPECT_TRUE(Same(Frame(dialog), {300, 300, 400, 380}) && !CaptionOkControl(dialog)) << "flags need their mask";
    EXPECT_FALSE(SHInitDialog(nullptr) || InitDialog(reinterpret_cast<HWND>(static_cast<UINT_PTR>(0xBAD0)), 0));
    EXPECT_TRUE(InitDialog(dialog, kFullScreenDone));
    EXPECT_TRUE(Same(Frame(dialog), Frame(main)) && SipShownFlags() == SIPF_OFF);
    bar = CreateBar(dialog, SHCMBF_EMPTYBAR);
    EXPECT_TRUE(Same(Frame(dialog), Frame(main))) << "a bar after SHInitDialog takes its strip from the client area";
    EXPECT_TRUE(Docked(bar, dialog) && GetParent(CaptionOkControl(dialog)) == bar);
    HWND owner = CreatePlain({400, 100, 260, 300});
    HWND owned = CreatePlain({300, 300, 100, 80}, kDialogStyle, owner);
    EXPECT_TRUE(InitDialog(owned, SHIDIF_SIZEDLGFULLSCREEN | SHIDIF_EMPTYMENU));
    EXPECT_TRUE(Same(Frame(owned), Frame(owner))) << "an owner wins over the main window";
    EXPECT_LE(Client(owned).bottom + BarHeight(), Frame(owned).bottom) << "SHIDIF_EMPTYMENU gave it a bar";

    // The input panel's coming and going refits a fitted dialog; other settings leave it.
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
        EXPECT_FALSE(StripCaptionOkButton(reinterpret_cast<DLGTEMPLATE*>(bytes.data())));
        bytes = Template(extended, extended ? WS_EX_CAPTIONOKBTN : 0);
        EXPECT_EQ(DeviceDialogBoxIndirectParam(GetModuleHandleW(nullptr), reinterpret_cast<DLGTEMPLATE*>(bytes.data()), nullptr,
                                               ClickOkOnceShown, 0), extended ? 77 : 5);
    }
    EXPECT_FALSE(StripCaptionOkButton(nullptr));
    EXPECT_EQ(DeviceDialogBoxIndirectParam(GetModuleHandleW(nullptr), nullptr, nullptr, ClickOkOnceShown, 0), -1);
}

TEST(SHHandleWMActivate, RemembersTheFocusOnDeactivationAndRestoresIt) {
    HWND window = CreatePlain();
    HWND first = CreateWindowExW(0, L"edit", L"", WS_CHILD | WS_VISIBLE, 10, 10, 100, 20, window, nullptr, nullptr, nullptr);
    HWND second = CreateWindowExW(0, L"edit", L"", WS_CHILD | WS_VISIBLE, 10, 40, 100, 20, window, nullptr, nullptr, nullptr);
    SetForegroundWindow(window);
    SHACTIVATEINFO info = {kDeviceActivateInfoSize};
    SetFocus(second);
    EXPECT_TRUE(SHHandleWMActivate(window, WA_INACTIVE, 0, &info, 0));
    EXPECT_TRUE(info.hwndLastFocus == second && !info.fActive);
    SetFocus(first);
    EXPECT_TRUE(SHHandleWMActivate(window, WA_ACTIVE, 0, &info, 0));
    EXPECT_TRUE(GetFocus() == second && info.fActive);
    SetFocus(first);
    EXPECT_TRUE(SHHandleWMActivate(window, MAKEWPARAM(WA_ACTIVE, 1), 0, &info, 0));
    EXPECT_EQ(GetFocus(), first) << "a minimised activation restores nothing";
    SHACTIVATEINFO wrongSize = {4};
    EXPECT_FALSE(SHHandleWMActivate(window, WA_ACTIVE, 0, &wrongSize, 0));
    DestroyWindow(window);
}

}  // namespace
