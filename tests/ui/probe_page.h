#pragma once
// A small settings page for window tests: two sections of ordinary rows, recording what the
// framework asks of it.
#include <string>
#include <vector>

#include "support/display_scale.h"
#include "shell/settings_page.h"

class ProbePage : public SettingsPage {
public:
    std::vector<std::string> log;
    int sections = 2;
    bool storedWhileControlsAlive = false;
    bool storedCheck = false;
    int storedSelection = -2;
    int moves = 0;
    int lastCommandControl = -1;
    int* storeCounter = nullptr;

    int GetSectionCount() override { return sections; }
    UINT GetSectionTitleId(int index) override { return 40240 + index; }
    int GetControlCount() override { return 8; }
    void CreateControls(HWND) override {
        static const UINT items[] = {31, 32, 40657};
        int y = ScaleForDisplayY(8);
        y += CreateComboRow(0, 1, 40655, items, 3, 3, y, false);
        y += CreateCheckBox(2, 41238, true, y);
        CreatePathRow(3, 4, 5, L"\\Skins", ScaleForDisplayY(8));
        CreateComboRow(6, 7, 40663, items, 3, 1, y, true);
    }
    void ShowSection(HWND, int show) override {
        int section = CurrentSection();
        log.push_back((show == SW_HIDE ? "hide " : "show ") + std::to_string(section));
        if (section == 0) ShowControls(0, 2, show), ShowControls(6, 7, show);
        if (section == 1) ShowControls(3, 5, show);
    }
    void StoreValues(HWND) override {
        storedWhileControlsAlive = IsWindow(control(2)) && IsWindow(control(1));
        storedCheck = IsChecked(2);
        storedSelection = Selection(1);
        log.push_back("store");
        if (storeCounter) ++*storeCounter;
    }
    LRESULT OnMove(HWND) override {
        ++moves;
        return 0;
    }
    LRESULT OnCommand(HWND, UINT, WPARAM, LPARAM lParam) override {
        lastCommandControl = ControlNumberOf(reinterpret_cast<HWND>(lParam));
        return 0;
    }
};
