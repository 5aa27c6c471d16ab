#pragma once
// Page 10: the order and visibility of the Today plug-in's tabs, other Today screen plug-ins shown
// as tabs of their own, and the default tab.
#include "shell/settings_page.h"

struct TabEntry;

class TabsSettingsWin : public SettingsPage {
public:
    int GetSectionCount() override;
    UINT GetSectionTitleId(int index) override;
    int GetControlCount() override;
    void CreateControls(HWND window) override;
    void ShowSection(HWND window, int showCommand) override;
    void StoreValues(HWND window) override;
    LRESULT OnCommand(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
    LRESULT OnMove(HWND window) override;
    LRESULT OnNotify(HWND window, int control, NMHDR* header) override;

private:
    void PlaceTabList(int top);
    void FillTabList();
    void AppendRow(TabEntry* entry);
    int SelectedRow() const;
    TabEntry* RowEntry(int row) const;
    void UpdateRemoveButton();
    void SwapWithNeighbour(int step);
    void AddPlugIn(HWND window);
    void RemovePlugIn();
};

SettingsPage* CreateTabsPage();
