#pragma once
// The colour picker: the one dialog every page and dialog opens to let the user choose a colour.
// It offers three ways on three tabs (red, green and blue sliders with number fields; a
// hexadecimal "HTML#" field; a palette of 50 fixed colours) and shows a sample of the current
// choice along its bottom edge.
//
// Colours are COLORREFs (0x00BBGGRR, red in the low byte). Two values above any colour carry a
// meaning of their own: kNoColour, an item without a colour of its own (the "Default" button),
// and kColourCancelled, the picker's answer when the user cancelled.
//
// Typical use:
//     COLORREF colour = setting.value;
//     if (PickColour(&colour, true)) SetInt(setting, colour);
#include <windows.h>

#include "support/wide_string.h"

const COLORREF kNoColour = 0xFFFFFFFF;
const COLORREF kColourCancelled = 0xFFFFFFFE;

// The texts a caller may give the picker in the user's language; a text left empty is shown in
// English: "Red", "Green", "Blue", "RGB Values", "HTML#", "Picker", "Default",
// "Valid values are between 0-255", "Invalid value", "Selected color", and the title "Color".
enum ColourPickerText {
    kPickerTextRed,
    kPickerTextGreen,
    kPickerTextBlue,
    kPickerTextRgbTab,
    kPickerTextHtml,  // the second tab and its field's label
    kPickerTextPaletteTab,
    kPickerTextDefault,  // the button, and the sample's text for kNoColour
    kPickerTextRangeMessage,
    kPickerTextRangeCaption,
    kPickerTextSample,
    kPickerTextTitle,
    kPickerTextCount
};

// Made by the caller and handed to the picker.
struct ColourRequest {
    COLORREF colour = kNoColour;  // in: the colour shown at start; out: the result (see RunColourPicker)
    bool allowDefault = false;    // offer the "Default" button, which chooses kNoColour
    WString texts[kPickerTextCount];
};

// Runs the picker modally. The result, also left in request->colour, is the colour chosen when the
// user pressed OK (kNoColour after "Default" then OK) or kColourCancelled when the user cancelled.
// The colour shown at start is returned unchanged by OK when the user changed nothing.
COLORREF RunColourPicker(ColourRequest* request);

// The usual call: opens the picker on *colour. On OK, *colour takes the choice and the result is
// true; on Cancel, *colour is left as it was and the result is false.
bool PickColour(COLORREF* colour, bool allowDefault);

// Palette colour `index` (0..49, five rows of ten), or kNoColour outside the palette.
COLORREF PaletteColour(int index);

// Commands and control ids of the picker window. The palette buttons have the ids 0..49 of their
// colours; ids 1 and 2 are still OK and Cancel when they come from anywhere but those buttons.
const int kPickerCancelCommand = 1020;  // like Cancel
const int kPickerDefaultButton = 1021;
const int kPickerFirstTabCommand = 1022;  // 1022, 1023, 1024 show tab 0, 1, 2
const int kPickerRedSlider = 1101;        // then green, blue
const int kPickerRedField = 1111;         // then green, blue
const int kPickerHtmlField = 1121;
const int kPickerTabs = 1131;
const int kPaletteSize = 50;
