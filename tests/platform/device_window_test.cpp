#include <windows.h>
#include <commctrl.h>

#include <cstring>
#include <vector>

#include "platform/device_window.h"
#include "platform/shell.h"
#include "platform_test_support.h"
#include "support/display_scale.h"

namespace {

const DWORD kMainStyle = 0x14000800;  // the device main window's style
const DWORD kPageStyle = 0x90000800;  // a device page's style

HWND CreateMainWindow() {
    return CreateDeviceWindow(WS_EX_CAPTIONOKBTN, BarOnCreateClass(), L"QL Options", kMainStyle, CW_USEDEFAULT,
                              CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, nullptr, nullptr,
                              GetModuleHandleW(nullptr), nullptr);
}

// The device code's step after creating its main window: shorten it by the menu bar's height.
void ShortenByBar(HWND window) {
    RECT frame = WindowRect(window);
    RECT bar = WindowRect(OwnedMenuBar(window));
    MoveWindow(window, frame.left, frame.top, Width(frame), Height(frame) - Height(bar), FALSE);
}

int DeviceWidth() { return ScaleForDisplay(240); }
int DeviceHeight() { return ScaleForDisplayY(294); }
int BarHeight() { return ScaleForDisplayY(26); }

int Commands(HWND window, WPARAM wanted) {
    int count = 0;
    for (WPARAM command : ReceivedBy(window).commands) count += command == wanted;
    return count;
}

TEST(CaptionOk, ControlLivesInTheMenuBarOrAtTheTopRightAndPostsIdok) {
    HWND window = CreateDeviceWindow(WS_EX_CAPTIONOKBTN, RecordingClass(), L"page", WS_POPUP | WS_VISIBLE, 50, 50, 240,
                                     300, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(GetWindowLongW(window, GWL_EXSTYLE) & WS_EX_CAPTIONOKBTN, 0u) << "the desktop must not see the bit";
    EXPECT_TRUE(HasCaptionOkButton(window));

    // No menu bar yet: top right of the client area.
    HWND control = CaptionOkControl(window);
    ASSERT_NE(control, nullptr);
    EXPECT_EQ(GetParent(control), window);
    RECT client = ClientRectOnScreen(window);
    RECT rect = WindowRect(control);
    EXPECT_LT(client.right - rect.right, ScaleForDisplay(8));
    EXPECT_LT(rect.top - client.top, ScaleForDisplay(8));
    ClickCentre(control);
    EXPECT_EQ(Commands(window, IDOK), 0) << "posted, not sent";
    PumpMessages();
    ASSERT_EQ(Commands(window, IDOK), 1);
    EXPECT_EQ(ReceivedBy(window).commandSources.back(), 0);

    // Pressed, dragged off and released elsewhere: nothing.
    SendMessageW(control, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(2, 2));
    SendMessageW(control, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(500, 500));
    SendMessageW(control, WM_LBUTTONUP, 0, MAKELPARAM(500, 500));
    PumpMessages();
    EXPECT_EQ(Commands(window, IDOK), 1);

    // A menu bar arrives: the control moves to its right end.
    SHMENUBARINFO info = {};
    info.cbSize = sizeof info;
    info.hwndParent = window;
    info.dwFlags = SHCMBF_EMPTYBAR;
    ASSERT_TRUE(SHCreateMenuBar(&info));
    HWND inBar = CaptionOkControl(window);
    ASSERT_NE(inBar, nullptr);
    EXPECT_FALSE(IsWindow(control));
    EXPECT_EQ(GetParent(inBar), info.hwndMB);
    RECT bar = WindowRect(info.hwndMB);
    rect = WindowRect(inBar);
    EXPECT_TRUE(rect.right <= bar.right && bar.right - rect.right < ScaleForDisplay(8));
    EXPECT_TRUE(rect.top >= bar.top && rect.bottom <= bar.bottom);
    EXPECT_EQ(SendMessageW(inBar, WM_MOUSEACTIVATE, 0, 0), MA_NOACTIVATE);
    ClickCentre(inBar);
    PumpMessages();
    EXPECT_EQ(Commands(window, IDOK), 2);

    // Without the bar the control comes back to the client area.
    DestroyWindow(info.hwndMB);
    control = CaptionOkControl(window);
    ASSERT_NE(control, nullptr);
    EXPECT_EQ(GetParent(control), window);
    DestroyWindow(window);

    HWND plain = CreateDeviceWindow(0, BarOnCreateClass(), L"plain", WS_POPUP | WS_VISIBLE, 50, 50, 200, 200, nullptr,
                                    nullptr, GetModuleHandleW(nullptr), nullptr);
    EXPECT_FALSE(HasCaptionOkButton(plain));
    EXPECT_EQ(CaptionOkControl(plain), nullptr);
    EXPECT_EQ(GetWindow(OwnedMenuBar(plain), GW_CHILD), nullptr);
    DestroyWindow(plain);
}

TEST(DeviceWindow, MainWindowOpensDeviceSizedResizableAndShortensLikeTheDevice) {
    HWND main = CreateMainWindow();
    ASSERT_NE(main, nullptr);
    EXPECT_TRUE(GetWindowLongW(main, GWL_STYLE) & WS_THICKFRAME) << "resizable";
    ASSERT_NE(OwnedMenuBar(main), nullptr);
    RECT client;
    GetClientRect(main, &client);
    EXPECT_EQ(client.right, DeviceWidth());
    EXPECT_EQ(client.bottom, DeviceHeight()) << "the bar joined below it";

    ShortenByBar(main);
    GetClientRect(main, &client);
    EXPECT_EQ(client.bottom + BarHeight(), DeviceHeight()) << "client and bar fill the device's screen";
    EXPECT_EQ(GetParent(CaptionOkControl(main)), OwnedMenuBar(main));

    SetWindowPos(main, nullptr, 0, 0, 500, 600, SWP_NOMOVE | SWP_NOZORDER);
    RECT before = WindowRect(main);
    SizeAsDevice(main);
    GetClientRect(main, &client);
    EXPECT_EQ(client.right, DeviceWidth());
    EXPECT_EQ(client.bottom + BarHeight(), DeviceHeight());
    EXPECT_EQ(WindowRect(main).left, before.left);
    EXPECT_EQ(WindowRect(main).top, before.top);
    DestroyWindow(main);
}

TEST(DeviceWindow, PageCoversItsOwnersClientAreaAndFollowsIt) {
    HWND main = CreateMainWindow();
    ASSERT_NE(main, nullptr);
    ShortenByBar(main);
    RECT mainFrame = WindowRect(main);
    // The device page asks for its owner's window rectangle.
    HWND page = CreateDeviceWindow(WS_EX_CAPTIONOKBTN, BarOnCreateClass(), L"GeneralSettingsWin", kPageStyle,
                                   mainFrame.left, mainFrame.top, Width(mainFrame), Height(mainFrame), main, nullptr,
                                   GetModuleHandleW(nullptr), nullptr);
    ASSERT_NE(page, nullptr);
    RECT pageClient = ClientRectOnScreen(page);
    RECT mainClient = ClientRectOnScreen(main);
    EXPECT_TRUE(EqualRect(&pageClient, &mainClient));
    RECT pageBar = WindowRect(OwnedMenuBar(page));
    RECT mainBar = WindowRect(OwnedMenuBar(main));
    EXPECT_TRUE(EqualRect(&pageBar, &mainBar)) << "the page's bar lies over the main window's";
    EXPECT_EQ(GetParent(CaptionOkControl(page)), OwnedMenuBar(page)) << "the page's OK is in its empty bar";

    // Resizing the owner without moving its client area: the page follows and hears WM_MOVE.
    int movesBefore = ReceivedBy(page).moves;
    SetWindowPos(main, nullptr, 0, 0, Width(mainFrame) + 60, Height(mainFrame) + 40, SWP_NOMOVE | SWP_NOZORDER);
    pageClient = ClientRectOnScreen(page);
    mainClient = ClientRectOnScreen(main);
    EXPECT_TRUE(EqualRect(&pageClient, &mainClient));
    EXPECT_GT(ReceivedBy(page).moves, movesBefore);
    int mainMoves = ReceivedBy(main).moves;
    SetWindowPos(main, nullptr, 0, 0, Width(mainFrame), Height(mainFrame), SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_EQ(ReceivedBy(main).moves, mainMoves + 1) << "one WM_MOVE per resize, not two";

    SetWindowPos(main, nullptr, 7, 9, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    pageClient = ClientRectOnScreen(page);
    mainClient = ClientRectOnScreen(main);
    EXPECT_TRUE(EqualRect(&pageClient, &mainClient)) << "after a move";

    // A pop-up that does not cover its owner is left where it asked to be.
    HWND small = CreateDeviceWindow(0, RecordingClass(), L"small", WS_POPUP | WS_VISIBLE, 20, 30, 50, 40, main,
                                    nullptr, GetModuleHandleW(nullptr), nullptr);
    RECT smallRect = WindowRect(small);
    RECT asked = {20, 30, 70, 70};
    EXPECT_TRUE(EqualRect(&smallRect, &asked));
    SetWindowPos(main, nullptr, 0, 0, Width(mainFrame) + 10, Height(mainFrame), SWP_NOMOVE | SWP_NOZORDER);
    smallRect = WindowRect(small);
    EXPECT_TRUE(EqualRect(&smallRect, &asked));

    DestroyWindow(page);
    EXPECT_NE(OwnedMenuBar(main), nullptr) << "the page's bar went with the page, the main bar stays";
    DestroyWindow(main);
    EXPECT_FALSE(IsWindow(small));
}

// ---- dialogs from templates ----

std::vector<BYTE> PlainTemplate(DWORD style, DWORD exStyle) {
    std::vector<BYTE> bytes(64, 0);
    memcpy(&bytes[0], &style, 4);
    memcpy(&bytes[4], &exStyle, 4);
    return bytes;  // no controls, position and size 0, no menu, no class, empty title
}

std::vector<BYTE> ExtendedTemplate(DWORD style, DWORD exStyle) {
    std::vector<BYTE> bytes(64, 0);
    WORD head[2] = {1, 0xFFFF};
    memcpy(&bytes[0], head, 4);
    memcpy(&bytes[8], &exStyle, 4);
    memcpy(&bytes[12], &style, 4);
    return bytes;
}

TEST(DeviceDialog, StripsOnlyTheCaptionOkBitFromBothTemplateKinds) {
    for (bool extended : {false, true}) {
        std::vector<BYTE> bytes = extended ? ExtendedTemplate(0x90C00000, 0x80000008) : PlainTemplate(0x90C00000, 0x80000008);
        std::vector<BYTE> expected = extended ? ExtendedTemplate(0x90C00000, 0x00000008) : PlainTemplate(0x90C00000, 0x00000008);
        DLGTEMPLATE* dialogTemplate = reinterpret_cast<DLGTEMPLATE*>(bytes.data());
        EXPECT_TRUE(StripCaptionOkButton(dialogTemplate));
        EXPECT_EQ(bytes, expected) << (extended ? "DLGTEMPLATEEX" : "DLGTEMPLATE");
        EXPECT_FALSE(StripCaptionOkButton(dialogTemplate)) << "nothing left to strip";
        EXPECT_EQ(bytes, expected);
    }
    EXPECT_FALSE(StripCaptionOkButton(nullptr));
}

struct DialogRun {
    DWORD exStyleSeen = 0xFFFFFFFF;
    bool hadControl = false;
    LPARAM parameterSeen = 0;
};

const UINT kAfterInit = WM_APP + 5;

INT_PTR CALLBACK TestDialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    DialogRun* run = reinterpret_cast<DialogRun*>(GetWindowLongPtrW(dialog, GWLP_USERDATA));
    switch (message) {
    case WM_INITDIALOG:
        SetWindowLongPtrW(dialog, GWLP_USERDATA, lParam);
        reinterpret_cast<DialogRun*>(lParam)->parameterSeen = lParam;
        reinterpret_cast<DialogRun*>(lParam)->exStyleSeen = GetWindowLongW(dialog, GWL_EXSTYLE);
        PostMessageW(dialog, kAfterInit, 0, 0);
        return TRUE;
    case kAfterInit:
        run->hadControl = CaptionOkControl(dialog) != nullptr;
        if (run->hadControl) {
            ClickCentre(CaptionOkControl(dialog));  // the dialog ends on the posted IDOK
        } else {
            EndDialog(dialog, 5);
        }
        return TRUE;
    case WM_COMMAND:
        if (LOWORD(wParam) == IDOK) EndDialog(dialog, 77);
        return TRUE;
    }
    return FALSE;
}

TEST(DeviceDialog, TemplateDialogGetsTheOkControlAfterInitialisation) {
    std::vector<BYTE> bytes = PlainTemplate(0x90C00000, WS_EX_CAPTIONOKBTN);
    DialogRun run;
    INT_PTR result = DeviceDialogBoxIndirectParam(GetModuleHandleW(nullptr), reinterpret_cast<DLGTEMPLATE*>(bytes.data()),
                                                  nullptr, TestDialogProc, reinterpret_cast<LPARAM>(&run));
    EXPECT_EQ(result, 77) << "ended by its OK control";
    EXPECT_TRUE(run.hadControl);
    EXPECT_EQ(run.parameterSeen, reinterpret_cast<LPARAM>(&run));
    EXPECT_EQ(run.exStyleSeen & WS_EX_CAPTIONOKBTN, 0u);

    std::vector<BYTE> withoutOk = ExtendedTemplate(0x90C00000, 0);
    DialogRun plain;
    result = DeviceDialogBoxIndirectParam(GetModuleHandleW(nullptr), reinterpret_cast<DLGTEMPLATE*>(withoutOk.data()),
                                          nullptr, TestDialogProc, reinterpret_cast<LPARAM>(&plain));
    EXPECT_EQ(result, 5);
    EXPECT_FALSE(plain.hadControl);
    EXPECT_EQ(DeviceDialogBoxIndirectParam(GetModuleHandleW(nullptr), nullptr, nullptr, TestDialogProc, 0), -1);
}

// ---- bringing forward ----

TEST(DeviceWindow, LowBitOfTheHandleBringsTheOwnedPopupsForwardToo) {
    HWND main = CreateMainWindow();
    ShortenByBar(main);
    RECT frame = WindowRect(main);
    HWND page = CreateDeviceWindow(0, BarOnCreateClass(), L"page", kPageStyle, frame.left, frame.top, Width(frame),
                                   Height(frame), main, nullptr, GetModuleHandleW(nullptr), nullptr);
    HWND other = CreateRecordingWindow(0, 0, 600, 600);
    SetForegroundWindow(other);
    ASSERT_EQ(GetForegroundWindow(), other);

    EXPECT_TRUE(DeviceSetForegroundWindow(reinterpret_cast<HWND>(reinterpret_cast<UINT_PTR>(main) | 1)));
    EXPECT_EQ(GetForegroundWindow(), page) << "the page, not its menu bar, takes the input";
    // Top to bottom: the page's bar, the page, ... the main window, then the other window.
    std::vector<HWND> order;
    for (HWND w = GetTopWindow(nullptr); w; w = GetWindow(w, GW_HWNDNEXT)) {
        if (w == page || w == main || w == other || w == OwnedMenuBar(page) || w == OwnedMenuBar(main)) order.push_back(w);
    }
    ASSERT_EQ(order.size(), 5u);
    EXPECT_EQ(order[0], OwnedMenuBar(page));
    EXPECT_EQ(order[1], page);
    EXPECT_EQ(order[4], other);

    SetForegroundWindow(other);
    EXPECT_TRUE(DeviceSetForegroundWindow(main));
    EXPECT_EQ(GetForegroundWindow(), main) << "without the bit only the window itself";
    EXPECT_FALSE(DeviceSetForegroundWindow(reinterpret_cast<HWND>(static_cast<UINT_PTR>(0xBAD1))));

    DestroyWindow(other);
    DestroyWindow(main);
    EXPECT_FALSE(IsWindow(page));
}

}  // namespace
