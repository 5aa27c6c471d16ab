#pragma once
// Each tests/screenshots/<name>_shots.cpp registers functions with a ShotRegistration at namespace
// scope; ql_screenshots calls them after the page pictures, in the order of their names.
#include <windows.h>

#include <functional>
#include <initializer_list>
#include <vector>

class SettingsPage;

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
int& SavedPictureCount();

// Dispatches the thread's pending messages `rounds` times, 40 ms apart.
void Pump(int rounds);

// Loads the language library and the display library of the screen's resolution from the
// program's folder; false when one is missing.
bool LoadProgramLibraries();

// The picture saved (none when null), then the command posted to the dialog.
struct DialogStep {
    const wchar_t* picture;
    UINT command;
};

// Runs `open`, which shows the dialog titled `title` modally, and takes one step every ten timer
// ticks while the dialog is up. After 5 s every dialog of the thread is ended.
void DialogPictures(const ShotTarget& to, const wchar_t* title, const std::function<void()>& open,
                    std::initializer_list<DialogStep> steps);

// A fitted main window on screen; on leaving scope its page is closed, the window destroyed and the
// program's libraries, which the window frees, loaded again.
class ShotWindow {
public:
    ShotWindow();
    ~ShotWindow();
    HWND handle() const { return window_; }
    SettingsPage* openPage(int index);  // null when the page has no window
    void closePage();
    void picture(const ShotTarget& to, const wchar_t* name);

private:
    HWND window_;
};

// Switches the page to another section as a click on its tab does.
void ShowSection(SettingsPage* page, int section);
void SelectRow(HWND list, int row);
