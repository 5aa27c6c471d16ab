#pragma once
// Page 8: the product's 16 colour settings, each changed in the colour picker, and the colour
// schemes: named snapshots of the colours, fonts and category colours that the user saves, loads
// and deletes.
#include "shell/settings_page.h"

class ColorSettingsWin : public SettingsPage {
public:
    static const int kColourItemCount = 16;

    int GetSectionCount() override;
    UINT GetSectionTitleId(int index) override;
    int GetControlCount() override;
    void CreateControls(HWND window) override;
    void ShowSection(HWND window, int showCommand) override;
    void StoreValues(HWND window) override;
    LRESULT OnPaint(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
    LRESULT OnCommand(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
    LRESULT OnMove(HWND window) override;
    LRESULT OnNotify(HWND window, int control, NMHDR* header) override;

    // The scheme list: one column, every scheme file of the folder in the file system's order.
    void FillSchemeList(HWND listView);
    // The three scheme actions; each shows its own messages, owned by `window`, and returns
    // whether it did what it names. A loaded scheme destroys `window`.
    bool SaveScheme(HWND window);
    bool LoadScheme(HWND window);
    bool DeleteScheme(HWND window);

private:
    void ChangeSelectedColour(HWND window);
    int SelectedColourItem() const;
    int SelectionMark(int list) const;
    void PlaceControl(int number);
    void PaintColourItem(HDC dc);
    void PaintSchemesHelp(HDC dc);
};

SettingsPage* CreateColoursPage();
