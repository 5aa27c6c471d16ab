#pragma once
// The font dialog: style, size and colour of one font setting, edited in place. It is the
// program's dialog template 210 made full-screen, with an OK and Cancel menu bar.
#include <windows.h>

// Opens the dialog over `owner` on the caller's pair. OK (result true) writes into *font the
// italic, underline and strike-out ticks, the weight (700 when Bold is ticked, else 100) and the
// height (the size chosen, 9 when none is). Cancel (result false) leaves *font as it was. A colour
// chosen with "Set" is written into *colour at once, so it stays whichever button closes the
// dialog.
bool RunFontDialog(HWND owner, LOGFONTW* font, COLORREF* colour);
