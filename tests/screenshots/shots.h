#pragma once
// Each tests/screenshots/<name>_shots.cpp registers functions with a ShotRegistration at namespace
// scope; ql_screenshots calls them after the page pictures, in the order of their names.
#include <windows.h>

#include <functional>
#include <initializer_list>
#include <vector>

// Pictures go to <folder>\<label>_<picture>.bmp.
struct ShotTarget {
    const wchar_t* folder;
    const wchar_t* label;
    // The window and the pop-ups it owns (menu bars, an open page) as drawn, as a 24-bit BMP.
    bool save(HWND window, const wchar_t* picture) const;
};

struct ShotRegistration {
    ShotRegistration(const wchar_t* name, void (*take)(const ShotTarget& to));
    const wchar_t* name;
    void (*take)(const ShotTarget& to);
};
std::vector<const ShotRegistration*>& RegisteredShots();
inline int g_savedPictures = 0;

// The page grid and every page in every section.
void TakePagePictures(const ShotTarget& to);

struct DialogStep {
    const wchar_t* picture;  // saved first, unless null
    UINT command;            // then posted to the dialog
};
// Runs `open`, which shows the dialog titled `title` modally, and takes one step every ten timer
// ticks while the dialog is up. After 5 s the active dialog is ended.
void DialogPictures(const ShotTarget& to, const wchar_t* title, const std::function<void()>& open,
                    std::initializer_list<DialogStep> steps);
