#pragma once
// Page 1: how the calendar tab shows appointments, tasks, day titles, time lines, the monthly
// pop-up calendar and the mail line. Section 0 holds plain rows; six sections are option lists
// that share one detail area above them; section 4 arranges the item icons over a live preview.
#include "settings/settings.h"
#include "shell/icon_marker_strip.h"
#include "shell/settings_page.h"

class CalendarSettingsWin : public SettingsPage {
public:
    CalendarSettingsWin() = default;

    int GetSectionCount() override;
    UINT GetSectionTitleId(int index) override;
    int GetControlCount() override;
    void CreateControls(HWND window) override;
    void ShowSection(HWND window, int showCommand) override;
    void StoreValues(HWND window) override;
    LRESULT OnPaint(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
    LRESULT OnLButtonDown(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
    LRESULT OnMarkerSelected(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
    LRESULT OnMarkerToggled(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
    LRESULT OnCommand(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
    LRESULT OnMove(HWND window) override;
    LRESULT OnNotify(HWND window, int control, NMHDR* header) override;

    // The icon strips of section 4, numbered as they report themselves: 1 and 2 the appointment
    // left icons, 3 and 4 the task left icons, 5 the appointment and 6 the task right icons.
    IconMarkerStrip& strip(int number) { return strips_[number - 1]; }
    // Top of the section-4 preview band (its header with the two arrows).
    int previewTop() const { return previewTop_; }

    struct Option;
    struct OptionList;

private:
    static HWND CreateStripFor(SettingsPage* page, int stripNumber, HWND parent, int x, int y);
    void CreateGeneralRows();
    void CreateOptionLists();
    static void FitColumn(HWND list);
    void CreateDetailControls();
    void CreateTitleOrderList();
    void CreateIconRows();

    const OptionList* ListOfControl(int number) const;
    const OptionList* ListOfSection(int section) const;
    void ShowOption(const Option& option);
    void StoreOption(const Option& option);
    void FillChoices(const Option& option);
    void SelectStoredChoice(const Option& option);
    void StoreChoice(const Option& option);
    void StorePinned();
    void LeaveOptionList(const OptionList& list);

    void MoveTitleRow(int step);
    void ChooseMailProgram(HWND window);

    void FillRightIcons(int kind);
    void ChangeLeftIcon(int dropDown, DWORD flag);
    void StepDisplayFormat(int step);
    void PaintPreview(HDC dc);

    IconMarkerStrip strips_[6];
    int previewTop_ = 0;
    bool quietLists_ = false;  // set while the page itself clears a list's selection
};

SettingsPage* CreateCalendarPage();
