#pragma once
// The colour sample pages and dialogs show for a colour setting: a black frame filled, one unit
// inside, with the colour; a colour of all bits set (no colour of its own) leaves the inside white
// and names it with the language library's "Default" text, centred.
#include <windows.h>

// Sample size the pages use, in 96-dpi units.
const int kColourSampleWidth = 44;
const int kColourSampleHeight = 20;

// Draws into `box` (device pixels) with `font` for the no-colour text.
void DrawColourSample(HDC dc, const RECT& box, COLORREF colour, HFONT font);
