// The Today plug-in chooser, listing the Today items the device seeding provides.
#include <windows.h>

#include "dialogs/today_plugin_chooser.h"
#include "shots.h"
#include "support/app_state.h"

namespace {

void TakeChooserPicture(const wchar_t* folder, const wchar_t* label) {
    WString chosen;
    int ticks = 0;
    WhileModal([&] { ChooseTodayPlugIn(g_app.instance, nullptr, &chosen); },
               [&] {
                   HWND dialog = FindThreadDialog(L"Today Plug-in");
                   if (!dialog) return false;
                   SetForegroundWindow(dialog);
                   if (++ticks < 10) return false;  // a few ticks for everything to be drawn
                   SaveWindowPicture(dialog, ShotPath(folder, label, L"today_plugin_chooser"));
                   PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
                   return true;
               });
}

ShotRegistration g_chooser(L"Today plug-in chooser", TakeChooserPicture);

}  // namespace
