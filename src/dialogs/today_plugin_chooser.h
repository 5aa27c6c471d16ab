#pragma once
// The Today plug-in chooser: a full-screen dialog listing the other Today screen plug-ins that
// can be shown as a tab. Choosing one that is on the Today screen asks to take it off first.
#include <windows.h>

#include "dialogs/dialog_base.h"
#include "support/wide_string.h"

// Where the Today screen's items live, one sub-key per item, under HKEY_LOCAL_MACHINE.
extern const wchar_t kTodayItemsPath[];

class TodayPlugInChooser : public DialogBase {
public:
    explicit TodayPlugInChooser(HINSTANCE instance);

    INT_PTR DialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
    BOOL OnInitDialog(HWND window) override;
    void CreateMenuBar(HWND window) override;
    SharedString GetTitle() override;
    void CreateControls(HWND window) override;
    void Layout(HWND window, int width, int height) override;

    // The plug-in chosen, once the dialog ended with Done.
    const WString& chosen() const { return chosen_; }

private:
    void OnDone(HWND window);
    bool TakeOffTodayScreen(HWND window, const wchar_t* name);

    HWND window_ = nullptr;
    HWND menuBar_ = nullptr;
    WString chosen_;
};

// Adds to `combo` the name of every Today item of type 4 but the product's own; returns how many.
int AddTodayPlugIns(HWND combo);

// Runs the chooser over `owner`; true, with `name` set, when a plug-in was chosen.
bool ChooseTodayPlugIn(HINSTANCE instance, HWND owner, WString* name);
