#pragma once
// Icon sets: other looks for the item icons Quillory draws beside items. A set is a bitmap file in
// the product's Icons folder holding the item icons side by side, square, on the mask colour of
// the built-in strip. The set in use is named (file name only) by the value "ItemIcons" of the
// IconSet key; without it the display library's own icons are used.
#include <windows.h>

#include "support/wide_string.h"

// HKEY_CURRENT_USER path of the IconSet key, and its value naming the set in use.
extern const wchar_t kIconSetKeyPath[];
extern const wchar_t kIconSetValueName[];

// The product folder + "\Icons".
WString IconSetsFolder();
// The file name of the set in use, empty for the built-in icons.
WString ChosenIconSet();
// Keeps `fileName` as the set in use; an empty name (the built-in icons) deletes the value.
void StoreIconSetChoice(const wchar_t* fileName);
// IconSetsFolder() + "\" + fileName; empty for an empty name.
WString IconSetPath(const wchar_t* fileName);
