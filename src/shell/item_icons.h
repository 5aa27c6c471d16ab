#pragma once
#include <windows.h>
#include <commctrl.h>

// The small icons Quillory draws beside items ("note", "regenerated", "reminder", ...): those of
// the chosen icon set, else the display library's own; the icon marker strips draw from this
// table. Loading again after another set was chosen shows that set.
void LoadItemIcons();
void FreeItemIcons();
HIMAGELIST ItemIcons();
