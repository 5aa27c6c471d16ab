#pragma once
#include <windows.h>

// The program's entry: runs the main window's message loop and returns the exit code.
int RunApplication(HINSTANCE instance, const wchar_t* commandLine, int showCommand);
