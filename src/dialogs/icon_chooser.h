#pragma once
// The icon chooser: a full-screen list of pictures shown as large icons, whose first entry stands
// for "none". It has two modes:
// - category icons: the "*.bmp" pictures of the icon folders; the answer is the chosen picture's
//   path, or an empty text for no icon;
// - icon sets: the sets of the product's Icons folder (strips of item icons, shown by their first
//   four icons), the first entry being the built-in icons; the choice is kept under the IconSet
//   key.
// A picture that cannot be loaded (no bitmap, cut short, no strip of item icons) is shown with the
// same picture as "none".
#include <windows.h>

#include <vector>

#include "dialogs/dialog_base.h"
#include "support/handles.h"
#include "support/wide_string.h"

enum class IconChooserMode { CategoryIcon, IconSet };

// One entry of the chooser: the file (empty for the first entry) and the name shown.
struct IconChoice {
    WString path;
    WString name;
};

// The "*.bmp" files of `folders`, folder by folder in the order given, each folder's files by name
// (case-insensitive); the name shown is the file name without ".bmp". Folders that cannot be
// listed add nothing.
std::vector<IconChoice> ListPictureFiles(const std::vector<WString>& folders);

// Id of the chooser's list.
const int kIconChooserList = 1001;

class IconChooserDialog : public DialogBase {
public:
    // `current` is the path of the entry selected at start (empty or unlisted: the first entry).
    IconChooserDialog(HINSTANCE instance, IconChooserMode mode, std::vector<IconChoice> choices,
                      const wchar_t* current);

    INT_PTR DialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
    BOOL OnInitDialog(HWND window) override;
    void CreateMenuBar(HWND window) override;
    SharedString GetTitle() override;
    void CreateControls(HWND window) override;
    void Layout(HWND window, int width, int height) override;

    // The chosen entry's path once the dialog ended with OK (empty: the first entry).
    const WString& chosen() const { return chosen_; }
    const std::vector<IconChoice>& choices() const { return choices_; }

private:
    void FillList();
    HBITMAP MakePicture(const IconChoice& choice, int side);
    void Confirm(HWND window);

    IconChooserMode mode_;
    std::vector<IconChoice> choices_;
    WString current_;
    WString chosen_;
    HWND window_ = nullptr;
    HWND list_ = nullptr;
    HWND menuBar_ = nullptr;
    ImageList buttonImages_;
};

// Category icon: runs the chooser over the pictures of `folders` with `current` selected. True
// when the user confirmed, with `chosen` set to the picture's path or empty for no icon; false
// (and `chosen` untouched) when cancelled.
bool ChooseCategoryIcon(HWND owner, const std::vector<WString>& folders, const wchar_t* current, WString* chosen);

// Icon set: runs the chooser over the sets of the Icons folder with the set in use selected; on
// OK keeps the chosen set under the IconSet key and returns true.
bool ChooseIconSet(HWND owner);
