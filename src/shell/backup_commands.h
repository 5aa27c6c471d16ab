#pragma once
#include <windows.h>

// The main window's Export settings and Import settings commands.
void RunExportCommand(HWND mainWindow);
void RunImportCommand(HWND mainWindow);
