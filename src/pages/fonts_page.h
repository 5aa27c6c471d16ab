#pragma once
// Page 7: the fonts of the Today plug-in. In simple mode the plug-in uses two common sizes and one
// face; in advanced mode each of 33 kinds of text has a font of its own, edited in the font
// dialog. In both modes each kind has a colour of its own, chosen in the colour picker.
#include "settings/setting_types.h"
#include "shell/settings_page.h"

class FontSettingsWin : public SettingsPage {
public:
    static const int kRowCount = 33;

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

    // The font setting a row of the font list edits (null outside 0..32).
    static FontSetting* RowFont(int row);

private:
    bool Advanced() const;
    void ApplyMode();
    void FillSizes(int combo, DWORD size);
    void FillFaces(int combo);
    void EditSelectedFont(HWND window);
    void ResetFontHeights(HWND window);
    int SelectedRow() const;
    void PaintSample(HDC dc, int row);
};

SettingsPage* CreateFontsPage();
