// From entry to the idle page grid, beside a minimal window created and shown the same way.
#include <windows.h>
#include <commctrl.h>

#include "bench_harness.h"
#include "support/app_state.h"
#include "shell/application.h"
#include "shell/main_window.h"

namespace {

void PumpUntilIdle() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

// The page grid lists the product's twelve pages.
const int kPages = 12;

void StartAndStopProgram() {
    HWND main = CreateFittedMainWindow(g_app.instance);
    BenchCheck(main != nullptr, "main window created");
    ShowWindow(main, SW_SHOW);
    UpdateWindow(main);
    PumpUntilIdle();
    BenchCheck(IsWindowVisible(main) != FALSE, "main window shown");
    BenchCheckCount(SendMessageW(g_app.pageList, LVM_GETITEMCOUNT, 0, 0), kPages, "pages in the grid");
    DestroyWindow(main);
    PumpUntilIdle();
    BenchCheck(!IsWindow(main), "main window closed");
}

void ShowMinimalWindow() {
    HWND window = CreateWindowExW(0, L"BenchMinimal", L"QL Options", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, CW_USEDEFAULT,
                                  260, 340, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    BenchCheck(window != nullptr, "minimal window created");
    ShowWindow(window, SW_SHOW);
    UpdateWindow(window);
    PumpUntilIdle();
    BenchCheck(IsWindowVisible(window) != FALSE, "minimal window shown");
    DestroyWindow(window);
    PumpUntilIdle();
    BenchCheck(!IsWindow(window), "minimal window closed");
}

BenchRegistration g_startUp({
    "start-up to idle page grid", "minimal window created and shown",
    [] {
        InitCommonControlsForProgram();
        g_app.instance = GetModuleHandleW(nullptr);
        RegisterMainWindowClass(g_app.instance);
        WNDCLASSW minimal = {};
        minimal.lpfnWndProc = DefWindowProcW;
        minimal.hInstance = g_app.instance;
        minimal.hbrBackground = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
        minimal.lpszClassName = L"BenchMinimal";
        RegisterClassW(&minimal);
    },
    StartAndStopProgram, ShowMinimalWindow, nullptr, 10});

}  // namespace
