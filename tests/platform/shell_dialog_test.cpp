#include <windows.h>

#include <vector>

#include "platform/device_window.h"
#include "platform/shell.h"
#include "platform_test_support.h"
#include "support/display_scale.h"

namespace {

const DWORD kDialogStyle = 0x90C00000;  // WS_POPUP | WS_VISIBLE | WS_CAPTION
const DWORD kFullScreenDone = SHIDIF_DONEBUTTON | SHIDIF_SIZEDLGFULLSCREEN | SHIDIF_SIPDOWN;

HWND CreateMainWindow() {
    HWND main = CreateDeviceWindow(WS_EX_CAPTIONOKBTN, BarOnCreateClass(), L"QL Options", 0x14000800, 60, 40,
                                   CW_USEDEFAULT, CW_USEDEFAULT, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    RECT frame = WindowRect(main);
    RECT bar = WindowRect(OwnedMenuBar(main));
    MoveWindow(main, frame.left, frame.top, Width(frame), Height(frame) - Height(bar), FALSE);
    return main;
}

HWND CreateCaptionedWindow(HWND owner = nullptr) {
    return CreateWindowExW(0, RecordingClass(), L"dialog", kDialogStyle, 300, 300, 100, 80, owner, nullptr,
                           GetModuleHandleW(nullptr), nullptr);
}

BOOL InitDialog(HWND dialog, DWORD flags, DWORD mask = SHIDIM_FLAGS) {
    SHINITDLGINFO info = {mask, dialog, flags};
    return SHInitDialog(&info);
}

HWND AddEmptyBar(HWND window) {
    SHMENUBARINFO info = {};
    info.cbSize = kDeviceMenuBarInfoSize;
    info.hwndParent = window;
    info.dwFlags = SHCMBF_EMPTYBAR;
    return SHCreateMenuBar(&info) ? info.hwndMB : nullptr;
}

// The menu bar fills the strip between the client area and the window's lower frame.
::testing::AssertionResult BarBelowClient(HWND window) {
    HWND bar = OwnedMenuBar(window);
    if (!bar) return ::testing::AssertionFailure() << "no menu bar";
    RECT client = ClientRectOnScreen(window);
    RECT strip = WindowRect(bar);
    RECT frame = WindowRect(window);
    if (strip.top == client.bottom && strip.bottom <= frame.bottom && frame.bottom - strip.bottom < 8) {
        return ::testing::AssertionSuccess();
    }
    return ::testing::AssertionFailure() << "bar " << strip.top << "-" << strip.bottom << ", client bottom "
                                         << client.bottom << ", frame bottom " << frame.bottom;
}

TEST(SHInitDialog, FullScreenDialogCoversTheMainWindowWithRoomForItsBar) {
    HWND main = CreateMainWindow();
    RECT mainFrame = WindowRect(main);
    SipShowIM(SIPF_ON);

    // Bar first, then SHInitDialog: the dialog code's order.
    HWND dialog = CreateCaptionedWindow();
    AddEmptyBar(dialog);
    int sizes = ReceivedBy(dialog).sizes;
    EXPECT_TRUE(InitDialog(dialog, kFullScreenDone));
    RECT frame = WindowRect(dialog);
    EXPECT_TRUE(EqualRect(&frame, &mainFrame));
    EXPECT_TRUE(BarBelowClient(dialog));
    EXPECT_GT(ReceivedBy(dialog).sizes, sizes) << "laid out again";
    EXPECT_EQ(SipShownFlags(), SIPF_OFF);
    ASSERT_NE(CaptionOkControl(dialog), nullptr);
    EXPECT_EQ(GetParent(CaptionOkControl(dialog)), OwnedMenuBar(dialog));

    // SHInitDialog first, then the bar: the dialog keeps its area and gives the strip.
    HWND second = CreateCaptionedWindow();
    EXPECT_TRUE(InitDialog(second, SHIDIF_SIZEDLGFULLSCREEN));
    AddEmptyBar(second);
    frame = WindowRect(second);
    EXPECT_TRUE(EqualRect(&frame, &mainFrame));
    EXPECT_TRUE(BarBelowClient(second));
    EXPECT_FALSE(HasCaptionOkButton(second));

    // An owner wins over the main window.
    HWND owner = CreateRecordingWindow(400, 100, 260, 300);
    HWND owned = CreateCaptionedWindow(owner);
    EXPECT_TRUE(InitDialog(owned, SHIDIF_SIZEDLGFULLSCREEN | SHIDIF_EMPTYMENU));
    RECT ownerFrame = WindowRect(owner);
    frame = WindowRect(owned);
    EXPECT_TRUE(EqualRect(&frame, &ownerFrame));
    EXPECT_TRUE(BarBelowClient(owned)) << "SHIDIF_EMPTYMENU made one";

    for (HWND window : {dialog, second, owned, owner, main}) DestroyWindow(window);
}

TEST(SHInitDialog, WithoutMainWindowTheDialogIsDeviceSizedAndCentred) {
    HWND dialog = CreateCaptionedWindow();
    AddEmptyBar(dialog);
    EXPECT_TRUE(InitDialog(dialog, SHIDIF_SIZEDLG));
    RECT client;
    GetClientRect(dialog, &client);
    EXPECT_EQ(client.right, ScaleForDisplay(240));
    EXPECT_EQ(client.bottom + ScaleForDisplayY(26), ScaleForDisplayY(294));
    RECT work;
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    RECT frame = WindowRect(dialog);
    EXPECT_LE(abs((frame.left + frame.right) - (work.left + work.right)), 1);
    EXPECT_TRUE(BarBelowClient(dialog));
    DestroyWindow(dialog);
}

TEST(SHInitDialog, FlagsNeedTheirMaskAndBadDialogsFail) {
    HWND dialog = CreateCaptionedWindow();
    RECT before = WindowRect(dialog);
    SipShowIM(SIPF_ON);
    EXPECT_TRUE(InitDialog(dialog, kFullScreenDone | SHIDIF_EMPTYMENU, 0));
    RECT after = WindowRect(dialog);
    EXPECT_TRUE(EqualRect(&before, &after));
    EXPECT_EQ(SipShownFlags(), SIPF_ON);
    EXPECT_FALSE(HasCaptionOkButton(dialog));
    EXPECT_EQ(OwnedMenuBar(dialog), nullptr);
    EXPECT_FALSE(SHInitDialog(nullptr));
    EXPECT_FALSE(InitDialog(reinterpret_cast<HWND>(static_cast<UINT_PTR>(0xBAD0)), kFullScreenDone));
    DestroyWindow(dialog);
    SipShowIM(SIPF_OFF);
}

// A real modal dialog doing what the dialog base does in WM_INITDIALOG.
struct DialogRun {
    BOOL initialised = FALSE;
    RECT frame = {};
    HWND okParent = nullptr;
    HWND bar = nullptr;
    bool barBelowClient = false;
};

INT_PTR CALLBACK FullScreenDialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    DialogRun* run = reinterpret_cast<DialogRun*>(GetWindowLongPtrW(dialog, GWLP_USERDATA));
    switch (message) {
    case WM_INITDIALOG:
        SetWindowLongPtrW(dialog, GWLP_USERDATA, lParam);
        run = reinterpret_cast<DialogRun*>(lParam);
        run->bar = AddEmptyBar(dialog);
        run->initialised = InitDialog(dialog, kFullScreenDone);
        PostMessageW(dialog, WM_APP, 0, 0);
        return run->initialised;
    case WM_APP:
        run->frame = WindowRect(dialog);
        run->okParent = GetParent(CaptionOkControl(dialog));
        run->barBelowClient = BarBelowClient(dialog);
        ClickCentre(CaptionOkControl(dialog));
        return TRUE;
    case WM_COMMAND:
        if (LOWORD(wParam) == IDOK) EndDialog(dialog, 1);
        return TRUE;
    }
    return FALSE;
}

TEST(SHInitDialog, ModalDialogFromATemplateEndsThroughItsOkControl) {
    HWND main = CreateMainWindow();
    std::vector<BYTE> bytes(64, 0);
    DWORD style = kDialogStyle;
    DWORD exStyle = WS_EX_CAPTIONOKBTN;
    memcpy(&bytes[0], &style, 4);
    memcpy(&bytes[4], &exStyle, 4);
    DialogRun run;
    INT_PTR result = DeviceDialogBoxIndirectParam(GetModuleHandleW(nullptr), reinterpret_cast<DLGTEMPLATE*>(bytes.data()),
                                                  nullptr, FullScreenDialogProc, reinterpret_cast<LPARAM>(&run));
    EXPECT_EQ(result, 1);
    EXPECT_TRUE(run.initialised);
    RECT mainFrame = WindowRect(main);
    EXPECT_TRUE(EqualRect(&run.frame, &mainFrame));
    EXPECT_TRUE(run.barBelowClient);
    EXPECT_EQ(run.okParent, run.bar);
    EXPECT_FALSE(IsWindow(run.bar)) << "the bar went with the dialog";
    DestroyWindow(main);
}

// ---- activation ----

SHACTIVATEINFO NewActivateInfo() {
    SHACTIVATEINFO info = {};
    info.cbSize = kDeviceActivateInfoSize;
    return info;
}

TEST(SHHandleWMActivate, RemembersTheFocusOnDeactivationAndRestoresIt) {
    HWND window = CreateRecordingWindow();
    HWND first = CreateWindowExW(0, L"edit", L"", WS_CHILD | WS_VISIBLE, 10, 10, 100, 20, window, nullptr, nullptr, nullptr);
    HWND second = CreateWindowExW(0, L"edit", L"", WS_CHILD | WS_VISIBLE, 10, 40, 100, 20, window, nullptr, nullptr, nullptr);
    SetForegroundWindow(window);
    SHACTIVATEINFO info = NewActivateInfo();

    SetFocus(second);
    EXPECT_TRUE(SHHandleWMActivate(window, WA_INACTIVE, 0, &info, 0));
    EXPECT_EQ(info.hwndLastFocus, second);
    SetFocus(first);
    EXPECT_TRUE(SHHandleWMActivate(window, WA_ACTIVE, 0, &info, 0));
    EXPECT_EQ(GetFocus(), second);

    // Focus outside the window is not remembered; a minimised activation restores nothing.
    SetFocus(window);
    EXPECT_TRUE(SHHandleWMActivate(window, WA_INACTIVE, 0, &info, 0));
    EXPECT_EQ(info.hwndLastFocus, second);
    SetFocus(first);
    EXPECT_TRUE(SHHandleWMActivate(window, MAKEWPARAM(WA_ACTIVE, 1), 0, &info, 0));
    EXPECT_EQ(GetFocus(), first);

    // A remembered control that is gone or hidden is skipped.
    ShowWindow(second, SW_HIDE);
    EXPECT_TRUE(SHHandleWMActivate(window, WA_CLICKACTIVE, 0, &info, 0));
    EXPECT_EQ(GetFocus(), first);
    DestroyWindow(second);
    EXPECT_TRUE(SHHandleWMActivate(window, WA_ACTIVE, 0, &info, 0));
    EXPECT_EQ(GetFocus(), first);

    SHACTIVATEINFO wrongSize = {};
    wrongSize.cbSize = 4;
    EXPECT_FALSE(SHHandleWMActivate(window, WA_ACTIVE, 0, &wrongSize, 0));
    EXPECT_FALSE(SHHandleWMActivate(window, WA_ACTIVE, 0, nullptr, 0));
    info.cbSize = sizeof(SHACTIVATEINFO);
    EXPECT_TRUE(SHHandleWMActivate(window, WA_ACTIVE, 0, &info, 0)) << "the desktop size is accepted too";
    DestroyWindow(window);
}

TEST(SHHandleWMActivate, InputDialogsGetTheirInputPanelStateBack) {
    HWND window = CreateRecordingWindow();
    SHACTIVATEINFO info = NewActivateInfo();
    SipShowIM(SIPF_ON);
    SHHandleWMActivate(window, WA_INACTIVE, 0, &info, SHA_INPUTDIALOG);
    EXPECT_EQ(info.fSipUp, 1u);
    EXPECT_EQ(info.fSipOnDeactivation, 1u);
    SipShowIM(SIPF_OFF);  // another window lowered it
    SHHandleWMActivate(window, WA_ACTIVE, 0, &info, 0);
    EXPECT_EQ(SipShownFlags(), SIPF_OFF) << "only input dialogs restore it";
    SHHandleWMActivate(window, WA_ACTIVE, 0, &info, SHA_INPUTDIALOG);
    EXPECT_EQ(SipShownFlags(), SIPF_ON);
    SipShowIM(SIPF_OFF);
    DestroyWindow(window);
}

// The device code's window procedure: activation goes through the shell.
SHACTIVATEINFO g_activateInfo;

LRESULT CALLBACK ActivatingProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_ACTIVATE) {
        SHHandleWMActivate(window, wParam, lParam, &g_activateInfo, 0);
        return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

TEST(SHHandleWMActivate, FocusComesBackAfterAnotherWindowWasActive) {
    g_activateInfo = NewActivateInfo();
    HWND window = CreateWindowExW(0, TestWindowClass(L"QLPlatformActivating", ActivatingProc), L"",
                                  WS_OVERLAPPEDWINDOW | WS_VISIBLE, 50, 50, 300, 200, nullptr, nullptr,
                                  GetModuleHandleW(nullptr), nullptr);
    CreateWindowExW(0, L"edit", L"", WS_CHILD | WS_VISIBLE, 10, 10, 100, 20, window, nullptr, nullptr, nullptr);
    HWND second = CreateWindowExW(0, L"edit", L"", WS_CHILD | WS_VISIBLE, 10, 40, 100, 20, window, nullptr, nullptr, nullptr);
    SetForegroundWindow(window);
    SetFocus(second);
    HWND other = CreateRecordingWindow(400, 50, 200, 200);
    SetForegroundWindow(other);
    EXPECT_NE(GetFocus(), second);
    SetForegroundWindow(window);
    PumpMessages();
    EXPECT_EQ(GetFocus(), second);
    DestroyWindow(other);
    DestroyWindow(window);
}

TEST(SHHandleWMSettingChange, InputPanelChangesAreNotedAndFittedDialogsKeepTheirArea) {
    HWND main = CreateMainWindow();
    HWND dialog = CreateCaptionedWindow();
    InitDialog(dialog, SHIDIF_SIZEDLGFULLSCREEN | SHIDIF_EMPTYMENU);
    SetWindowPos(dialog, nullptr, 5, 5, 100, 100, SWP_NOZORDER);  // knocked out of place
    SHACTIVATEINFO info = NewActivateInfo();

    SipShowIM(SIPF_ON);
    EXPECT_TRUE(SHHandleWMSettingChange(dialog, SPI_SETSIPINFO, 0, &info));
    EXPECT_EQ(info.fSipUp, 1u);
    RECT frame = WindowRect(dialog);
    RECT mainFrame = WindowRect(main);
    EXPECT_TRUE(EqualRect(&frame, &mainFrame)) << "the desktop's input panel takes no room";

    SipShowIM(SIPF_OFF);
    SetWindowPos(dialog, nullptr, 5, 5, 100, 100, SWP_NOZORDER);
    EXPECT_TRUE(SHHandleWMSettingChange(dialog, SPI_SETWORKAREA, 0, &info));
    EXPECT_EQ(info.fSipUp, 1u) << "other settings leave it";
    RECT moved = {5, 5, 105, 105};
    frame = WindowRect(dialog);
    EXPECT_TRUE(EqualRect(&frame, &moved));
    EXPECT_TRUE(SHHandleWMSettingChange(main, SPI_SETSIPINFO, 0, &info));
    EXPECT_EQ(info.fSipUp, 0u);
    EXPECT_FALSE(SHHandleWMSettingChange(main, SPI_SETSIPINFO, 0, nullptr));
    DestroyWindow(dialog);
    DestroyWindow(main);
}

}  // namespace
