// ql_screenshots <folder> <label>: the page pictures, then the registered ones, as <folder>\<label>_*.bmp.
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cwchar>

#include "shell/application.h"
#include "shell/main_window.h"
#include "shots.h"
#include "support/app_state.h"

int wmain(int argc, wchar_t** argv) {
    if (argc < 3) {
        fwprintf(stderr, L"usage: ql_screenshots <folder> <label>\n");
        return 2;
    }
    const ShotTarget to = {argv[1], argv[2]};
    InitCommonControlsForProgram();
    g_app.instance = GetModuleHandleW(nullptr);
    RegisterMainWindowClass(g_app.instance);
    TakePagePictures(to);
    std::vector<const ShotRegistration*> shots = RegisteredShots();
    std::sort(shots.begin(), shots.end(), [](auto* a, auto* b) { return wcscmp(a->name, b->name) < 0; });
    int empty = 0;
    for (const ShotRegistration* shot : shots) {
        int before = g_savedPictures;
        shot->take(to);
        wprintf(L"%ls: %d pictures\n", shot->name, g_savedPictures - before);
        empty += g_savedPictures == before;
    }
    wprintf(L"%d pictures\n", g_savedPictures);
    return empty == 0 ? 0 : 1;
}
