#pragma once
// The one process-wide application record: what the main window owns for the life of the
// program. The settings record, the category list and the filter list live in their own modules.
#include <windows.h>
#include <commctrl.h>

#include "platform/shell.h"

class SettingsPage;

struct AppState {
    const wchar_t* sharedEmptyString;
    HFONT normalFont;
    SettingsPage* currentPage;
    HINSTANCE instance;
    HIMAGELIST toolbarImages;
    SHACTIVATEINFO activateInfo;
    HWND menuBar;
    int startMode;  // 0 normal, 1 About box at start
    HIMAGELIST pageImages;
    HMODULE displayLibrary;
    HWND pageList;
    HMODULE languageLibrary;
    HFONT boldFont;
    UINT settingsChangedMessage;
    bool vgaMode;
    int pixelsPerInchY;
    int pixelsPerInchX;
};

extern AppState g_app;
