#pragma once
#include <windows.h>
#include <commctrl.h>

// The small icons Quillory draws beside items ("note", "regenerated", "reminder", ...), from the
// display library; the icon marker strips draw from this table.
void LoadItemIcons();
void FreeItemIcons();
HIMAGELIST ItemIcons();
