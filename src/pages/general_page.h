#pragma once
// Page 0: what a tap and a double tap do, the height on the Today screen, skin and language, the
// tabs bar, directional-pad navigation, scrolling and the display mode.
#include "shell/settings_page.h"
#include "support/wide_string.h"

class GeneralSettingsWin : public SettingsPage {
public:
    static const int kLanguageSlots = 20;

    int GetSectionCount() override;
    UINT GetSectionTitleId(int index) override;
    int GetControlCount() override;
    void CreateControls(HWND window) override;
    void ShowSection(HWND window, int showCommand) override;
    void StoreValues(HWND window) override;
    LRESULT OnCommand(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;

    // The language libraries offered, in list order (empty slots are unused).
    const WString& languagePath(int slot) const { return languagePaths_[slot]; }

private:
    void FillHeightCombo(int combo, bool withZero, DWORD current);
    void FillLanguages(int combo);
    void UpdateHeightEnabling();
    void UpdateDPadEnabling();
    void ChooseSkinFolder(HWND window);

    WString languagePaths_[kLanguageSlots];
    int languageCount_ = 0;
};

SettingsPage* CreateGeneralPage();
