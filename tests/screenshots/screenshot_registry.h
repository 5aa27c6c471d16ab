#pragma once
// The screenshot program's side of the registrations: the functions registered, and the number
// of pictures saved so far.
#include <vector>

struct RegisteredShot {
    const wchar_t* name;
    void (*take)(const wchar_t* folder, const wchar_t* label);
};

std::vector<RegisteredShot>& RegisteredShots();
int& SavedPictureCount();
