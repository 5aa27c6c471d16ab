#pragma once
// A settings page of two sections for window tests, logging what the framework asks of it.
#include <string>
#include <vector>

#include "shell/settings_page.h"
#include "support/display_scale.h"

class ProbePage : public SettingsPage {
public:
    std::vector<std::string> log;
    int lastCommandControl = -1;
    using SettingsPage::IsChecked;
    using SettingsPage::Selection;

    int GetSectionCount() override { return 2; }
    UINT GetSectionTitleId(int index) override { return 40240 + index; }
    int GetControlCount() override { return 8; }
    // Section 0: a combo row selecting nothing, a check box, an editable combo row; section 1: a path row.
    void CreateControls(HWND) override {
        static const UINT items[] = {31, 32, 40657};
        int y = ScaleForDisplayY(8);
        y += CreateComboRow(0, 1, 40655, items, 3, 3, y, false);
        y += CreateCheckBox(2, 41238, true, y);
        CreatePathRow(3, 4, 5, L"\\Skins", ScaleForDisplayY(8));
        CreateComboRow(6, 7, 40663, items, 3, 1, y, true);
    }
    void ShowSection(HWND, int show) override {
        log.push_back((show == SW_HIDE ? "hide " : "show ") + std::to_string(CurrentSection()));
        if (CurrentSection() == 0) ShowControls(0, 2, show), ShowControls(6, 7, show);
        if (CurrentSection() == 1) ShowControls(3, 5, show);
    }
    // Logs "store", whether the controls are still there, the check box and the first combo's selection.
    void StoreValues(HWND) override {
        log.push_back("store " + std::to_string(IsWindow(control(2)) && IsWindow(control(1))) + " " +
                      std::to_string(IsChecked(2)) + " " + std::to_string(Selection(1)));
    }
    LRESULT OnCommand(HWND, UINT, WPARAM, LPARAM lParam) override {
        lastCommandControl = ControlNumberOf(reinterpret_cast<HWND>(lParam));
        return 0;
    }
};
