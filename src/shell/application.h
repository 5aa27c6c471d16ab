#pragma once
#include <windows.h>

// Registers the common control classes the program's windows use.
void InitCommonControlsForProgram();

// Creates the main window (the application is built inside) and gives it the device's proportions;
// null when it could not be created.
HWND CreateFittedMainWindow(HINSTANCE instance);

// The program's entry: runs the main window's message loop and returns the exit code.
int RunApplication(HINSTANCE instance, const wchar_t* commandLine, int showCommand);
