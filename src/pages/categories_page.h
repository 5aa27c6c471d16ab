#pragma once
// Page 11: the look of the device's categories (colour and icon), the 32 category filters and the
// folder of additional icons. The filter section has a tab only while category filters are used.
#include <vector>

#include "files/categories.h"
#include "shell/settings_page.h"
#include "support/wide_string.h"

class CategorySettingsWin : public SettingsPage {
public:
    CategorySettingsWin();

    int GetSectionCount() override;
    UINT GetSectionTitleId(int index) override;
    int GetControlCount() override;
    void CreateControls(HWND window) override;
    void ShowSection(HWND window, int showCommand) override;
    void StoreValues(HWND window) override;
    LRESULT OnDrawItem(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
    LRESULT OnMeasureItem(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
    LRESULT OnCommand(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
    LRESULT OnMove(HWND window) override;

    // The filter the filter editor shows (combo entry x edits filter bit x).
    int shownFilter() const { return shownFilter_; }
    // The folders the icon chooser lists, in order: the category icons folder, the additional
    // icons folder as the page shows it, then the icon folders of Pocket Informant and Agenda
    // Fusion; empty and repeated folders left out.
    std::vector<WString> IconFolders() const;

private:
    int SectionAtTab(int tab) const;
    void PlaceControls();
    void FillCategoryLists();
    void FillFilterCombo(int selection);
    void ShowFilter(int filter);
    void StoreFilter(int filter);
    void OnFilterChosen();
    void UpdateFilterTab(HWND window);
    void CheckEveryCategory(bool checked);
    void RenameFilter(HWND window);
    CategoryRecord* SelectedCategory() const;
    void ChooseIcon(HWND window);
    void ChooseColour(HWND window);
    void ChooseIconsFolder(HWND window);

    bool filterTabShown_;
    int shownFilter_ = 0;
};

SettingsPage* CreateCategoriesPage();
