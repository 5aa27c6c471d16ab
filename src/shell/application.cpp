#include "shell/application.h"

#include <commctrl.h>

#include <cwchar>

#include "platform/device_window.h"
#include "settings/settings.h"
#include "shell/about_box.h"
#include "support/app_state.h"
#include "shell/main_window.h"
#include "support/wide_string.h"

void InitCommonControlsForProgram() {
    INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_LISTVIEW_CLASSES | ICC_TAB_CLASSES | ICC_BAR_CLASSES};
    InitCommonControlsEx(&controls);
}

namespace {

// Shortens the main window by the menu bar's height, as the device does after creating the bar.
void FitAroundMenuBar(HWND window) {
    if (!g_app.menuBar) return;
    RECT frame = {}, bar = {};
    GetWindowRect(window, &frame);
    GetWindowRect(g_app.menuBar, &bar);
    int height = (frame.bottom - frame.top) - (bar.bottom - bar.top);
    MoveWindow(window, frame.left, frame.top, frame.right - frame.left, height, FALSE);
}

int RunMessageLoop(HINSTANCE instance) {
    HACCEL accelerators = LoadAcceleratorsW(instance, L"QL_OPTIONS");
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (!TranslateAcceleratorW(message.hwnd, accelerators, &message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    return static_cast<int>(message.wParam);
}

}  // namespace

HWND CreateFittedMainWindow(HINSTANCE instance) {
    HWND window = CreateMainWindow(instance);
    if (!window) return nullptr;
    FitAroundMenuBar(window);
    // The desktop has no full screen to fill: give the window the device's screen, now that the
    // screen's pixels per inch are known.
    SizeAsDevice(window);
    return window;
}

int RunApplication(HINSTANCE instance, const wchar_t* commandLine, int showCommand) {
    g_app.startMode = (commandLine && wcscmp(commandLine, L"About") == 0) ? 1 : 0;
    g_app.instance = instance;
    g_app.sharedEmptyString = SharedEmptyText();

    HWND running = FindWindowW(kMainWindowClass, kMainWindowTitle);
    if (running) {
        DeviceSetForegroundWindow(reinterpret_cast<HWND>(reinterpret_cast<UINT_PTR>(running) | 1));
        return 0;
    }

    InitCommonControlsForProgram();
    RegisterMainWindowClass(instance);
    HWND window = CreateFittedMainWindow(instance);
    if (!window) return 0;
    if (g_app.startMode == 1) ShowAboutBox(window);
    ShowWindow(window, showCommand);
    UpdateWindow(window);
    return RunMessageLoop(instance);
}
