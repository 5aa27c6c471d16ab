#pragma once
// What the page benchmarks share: the program state and owner window a page opens in, switching
// a page's section as its tab control does, and the bare side of a case (a plain host window with
// a bottom tab control and child windows of the page's classes). A PageCase runs the whole
// "open, show every section, close" work for a page whose bare side is its own control classes.
#include <windows.h>

#include <functional>
#include <string>
#include <vector>

class SettingsPage;
class IntSetting;

// The owner every page opens in; made by SetUpPageBench, destroyed by TearDownPageBench.
extern HWND g_pageBenchOwner;

// Common controls, the instance, the settings loaded from the registry, fonts, and the owner.
void SetUpPageBench();
void TearDownPageBench();

// The notifications the section tab control sends when the user picks `section`.
void ShowPageSection(SettingsPage* page, int section);

// The class names of the page's controls, in their numbers.
std::vector<std::wstring> PageControlClasses(SettingsPage* page);

// Where the bare host sits: over the owner's client area (20-pixel tabs at 280), or at the
// owner's origin, 240 x 294 (22-pixel tabs at 272).
enum class BareLayout { kOwnerClient, kFixed };

// A visible host window with a bottom tab control of `sections` sections.
HWND CreateBareHost(BareLayout layout, int sections);
// One visible child of class `name`, placed by its index among the host's children.
HWND CreateBareChild(HWND host, const wchar_t* name, int index, DWORD style = 0);
// Children of the given classes, each given the program's font; returns how many were created.
int CreateBareControls(HWND host, const std::vector<std::wstring>& classes);
// A report-list column and `rows` rows of `text`; returns how many rows were inserted.
int FillBareList(HWND list, int rows, const wchar_t* text);

struct PageCase {
    int index;           // in the page grid
    int sections;
    int controls;
    IntSetting* stored;  // a setting the page writes on closing
    // Checks on the opened page before its sections are shown, and after each one (may be empty).
    std::function<void(SettingsPage*)> checkOpened;
    std::function<void(SettingsPage*, int section)> checkSection;
    bool paintBare;                     // the bare host is painted before it is destroyed
    std::vector<std::wstring> classes;  // of the page's controls, read once in the set-up
};

// Opens the page, checks its controls and sections, shows each section, closes it and checks
// that it stored its values; the first run records the page's control classes.
void OpenShowAndClose(PageCase& bench);
// The same classes, count and sections created bare.
void CreateBare(const PageCase& bench);
// Runs the case once so that its control classes are known.
void ReadPageClasses(PageCase& bench);
