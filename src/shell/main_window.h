#pragma once
#include <windows.h>

extern const wchar_t kMainWindowClass[];
extern const wchar_t kMainWindowTitle[];

// Command ids of the main window.
enum MainCommand : UINT {
    kCommandDone = 1,
    kCommandCancel = 2,
    kCommandAbout = 40053,
    kCommandExport = 40839,
    kCommandImport = 40840,
    kCommandIconSet = 40843,
};

// Registers the main window's class; returns false when the class could not be registered.
bool RegisterMainWindowClass(HINSTANCE instance);
// Creates the main window (the application is built inside, in WM_CREATE); null on failure.
HWND CreateMainWindow(HINSTANCE instance);
LRESULT CALLBACK MainWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
