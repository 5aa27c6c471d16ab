#pragma once
// Ids of the program's own resources (program.rc): its icon, accelerator table and the dialog
// templates with their control ids. Usable from resource scripts and from C++.

#define IDI_PROGRAM 101

// Accelerator table loaded by name at start-up.
#define QL_ACCELERATOR_TABLE_NAME "QL_OPTIONS"

// ---- Font dialog: font style, size and colour of one font setting ---------------------------
#define IDD_FONT_DIALOG 210
#define IDC_FONT_SIZE_COMBO 1085
#define IDC_FONT_COLOR_LABEL 1002
#define IDC_FONT_SIZE_LABEL 1006
#define IDC_FONT_ITALIC 1087
#define IDC_FONT_UNDERLINE 1088
#define IDC_FONT_STRIKEOUT 1089
#define IDC_FONT_BOLD 1090
#define IDC_FONT_SET_COLOR 1091

// ---- Filter name: rename a category filter (IDOK, IDCANCEL) -----------------------------------
#define IDD_FILTER_NAME 306
#define IDC_FILTER_NAME_LABEL 1001
#define IDC_FILTER_NAME_EDIT 1000

// ---- Today plug-in chooser: a plug-in to show as a tab --------------------------------------
#define IDD_TODAY_PLUGIN_CHOOSER 311
#define IDC_PLUGIN_COMBO 1085
#define IDC_PLUGIN_INTRO 1002
#define IDC_PLUGIN_NOTE 1006

// ---- Alphabet selection: an empty full-screen dialog; its label and list are made in code ----
#define IDD_ALPHABET_SELECTION 312

// ---- Icon chooser: category icons and icon sets; its list is made in code -----------------------
#define IDD_ICON_CHOOSER 313
