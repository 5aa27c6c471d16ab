#pragma once
// Pages by index. Declared here for the main window; defined with the pages themselves
// (src/pages/page_factory.cpp), so that the shell includes no page.
#include <windows.h>

class SettingsPage;

const int kPageCount = 12;

// Creates page `index` (0..11 in page-list order) and its window over `mainWindow`. Returns null for
// an index of 12 or more, and for a page this build does not have.
SettingsPage* CreatePage(HWND mainWindow, int index);
