#pragma once
// Page 2: how the tasks tab lists tasks: the dates shown beside a task, how far ahead tasks are
// listed, completed and undated tasks, line breaking and folding, the task icons over a preview of
// a sample task, and a date format of the user's own.
#include "settings/settings.h"
#include "shell/icon_marker_strip.h"
#include "shell/settings_page.h"
#include "support/wide_string.h"

class TasksSettingsWin : public SettingsPage {
public:
    TasksSettingsWin() = default;

    int GetSectionCount() override;
    UINT GetSectionTitleId(int index) override;
    int GetControlCount() override;
    void CreateControls(HWND window) override;
    void ShowSection(HWND window, int showCommand) override;
    void StoreValues(HWND window) override;
    LRESULT OnPaint(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
    LRESULT OnMarkerSelected(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
    LRESULT OnMarkerToggled(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
    LRESULT OnCommand(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;

    // The icon strips as they report themselves: 1 and 2 the left icons, 3 the right-icon set.
    IconMarkerStrip& strip(int number) { return strips_[number - 1]; }
    // Top of the preview band under the icon rows.
    int previewTop() const { return previewTop_; }
    // The date text the preview's sample task shows, from the controls as they stand.
    WString PreviewDateText() const;

private:
    static HWND CreateStripFor(SettingsPage* page, int stripNumber, HWND parent, int x, int y);
    void CreateStackedRows();
    void CreateDateForms(int combo);
    void CreateIconRows();
    void CreateCustomDateRows();
    void FillRightIcons();
    void EnableCustomDate();
    void PaintPreview(HDC dc);

    IconMarkerStrip strips_[3];
    int previewTop_ = 0;
};

SettingsPage* CreateTasksPage();
