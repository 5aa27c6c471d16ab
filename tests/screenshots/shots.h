#pragma once
// What the screenshot program offers to the files that add pictures of their own: each
// tests/screenshots/<name>_shots.cpp registers a function with a ShotRegistration at namespace
// scope, and ql_screenshots calls it, after the page pictures, with the output folder and the
// label every file name starts with (pictures are saved as <folder>\<label>_<picture>.bmp).
#include <windows.h>

#include <functional>
#include <string>

struct ShotRegistration {
    ShotRegistration(const wchar_t* name, void (*take)(const wchar_t* folder, const wchar_t* label));
};

// Dispatches the thread's pending messages `rounds` times, 40 ms apart.
void Pump(int rounds = 5);

// Saves the window and the pop-ups it owns (menu bars, an open page) as drawn, as a 24-bit BMP file.
bool SaveWindowPicture(HWND window, const std::wstring& path);

// <folder>\<label>_<picture>.bmp
std::wstring ShotPath(const wchar_t* folder, const wchar_t* label, const wchar_t* picture);

// Runs `open`, which enters a modal loop, while `step` is called every 10 ms from inside that
// loop until it returns true. After `maxTicks` calls every dialog of the thread is ended; returns
// false then.
bool WhileModal(const std::function<void()>& open, const std::function<bool()>& step, int maxTicks = 500);

// The visible dialog of this thread with this title, or null.
HWND FindThreadDialog(const wchar_t* title);

// Loads the language library and the display library of the screen's resolution from the
// program's folder into the application state; false when one is missing.
bool LoadProgramLibraries();
